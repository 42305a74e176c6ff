#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace protocol {

/// Why something could not be done. The kind decides exit codes and retries; the message is for people.
enum class ErrorKind {
  BadText,      ///< a request, reply or table that cannot be read
  BadValue,     ///< readable, but outside what is allowed
  NotFound,     ///< an unknown part, product, command or file
  Conflict,     ///< somebody else changed it, or the structure forbids it (a cycle)
  Storage,      ///< the database or disk refused: damaged, read-only, locked, full, of a newer version
  Unsupported,  ///< a version or feature that this program does not know
  Internal,     ///< a broken promise of our own code
};

/// What a Storage failure says of the data that is stored.
enum class StoredData {
  NotToBlame,  ///< locked, read-only, a full disk: another try may succeed
  Unusable,    ///< damaged, or of another version: no later try succeeds
};

/// One failure. `message` carries the value, the place (file, line, column or field) and the limit.
struct Error {
  ErrorKind kind = ErrorKind::Internal;
  std::string message;
  StoredData storedData = StoredData::NotToBlame;
};

/// A value or the reason why there is none. Exceptions never carry failures across a layer.
template <class T>
class [[nodiscard]] Result {
 public:
  Result(T value) : _state(std::move(value)) {}
  Result(Error error) : _state(std::move(error)) {}

  bool Ok() const { return std::holds_alternative<T>(_state); }
  explicit operator bool() const { return Ok(); }

  const T& Value() const& { return std::get<T>(_state); }
  T& Value() & { return std::get<T>(_state); }
  T&& Value() && { return std::get<T>(std::move(_state)); }
  const Error& Failure() const { return std::get<Error>(_state); }

 private:
  std::variant<T, Error> _state;
};

/// Success without a value, or the reason of the failure.
template <>
class [[nodiscard]] Result<void> {
 public:
  Result() = default;
  Result(Error error) : _error(std::move(error)) {}

  bool Ok() const { return !_error.has_value(); }
  explicit operator bool() const { return Ok(); }
  const Error& Failure() const { return *_error; }

 private:
  std::optional<Error> _error;
};

}  // namespace protocol
