#pragma once

#include <string>
#include <utility>

#include <SQLiteCpp/SQLiteCpp.h>

#include "protocol/Result.h"

namespace lumira {

/// A Storage error that names the file and says what an SQLite failure means for its user.
protocol::Error StorageError(const std::string& file, const SQLite::Exception& exception);

/// Runs work on the database of `file`; no exception of SQLite leaves it.
template <class Work>
auto Guarded(const std::string& file, Work&& work) -> decltype(work()) {
  try {
    return std::forward<Work>(work)();
  } catch (const SQLite::Exception& exception) {
    return StorageError(file, exception);
  }
}

}  // namespace lumira
