#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

#include "lumira/model/Counted.h"
#include "protocol/Result.h"

namespace lumira {

/// Content that our tables never hold: the file was damaged or written by somebody else. Thrown while rows
/// are read; `Guarded` makes a Storage error of it.
class DamagedContent : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A value that no column may hold: a number that is not finite, or outside its range. Thrown while values
/// are bound; `Guarded` makes a BadValue error of it.
class UnstorableValue : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Throws DamagedContent when something has not as many of its rows as were stored. `nameOwner` is asked for
/// what has them only then.
template <class NameOwner>
void CheckRowCount(NameOwner&& nameOwner, Noun rows, std::size_t found, std::int64_t stored) {
  if (static_cast<std::int64_t>(found) != stored)
    throw DamagedContent(nameOwner() + " has " + Counted(found, rows) + " instead of " +
                         std::to_string(stored));
}

/// A Storage error that names the file and says what is damaged in it: the stored data is unusable.
protocol::Error DamageError(const std::string& file, const std::string& what);

/// A Storage error that names the file and says what an SQLite failure means for its user, and whether the
/// stored data is to blame.
protocol::Error StorageError(const std::string& file, const SQLite::Exception& exception);

/// Runs work on the database of `file`; no exception of SQLite, of damaged content or of values that cannot
/// be stored leaves it.
template <class Work>
auto Guarded(const std::string& file, Work&& work) -> decltype(work()) {
  try {
    return std::forward<Work>(work)();
  } catch (const SQLite::Exception& exception) {
    return StorageError(file, exception);
  } catch (const DamagedContent& damage) {
    return DamageError(file, damage.what());
  } catch (const UnstorableValue& value) {
    return protocol::Error{protocol::ErrorKind::BadValue, value.what()};
  }
}

}  // namespace lumira
