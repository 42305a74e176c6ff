#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "protocol/Result.h"

namespace lumira {

/// Where in a table something is. Line 0: the file as a whole; column 0: the line as a whole.
struct Place {
  std::string_view file;
  std::size_t line = 0;    ///< of the text, from 1
  std::size_t column = 0;  ///< of the table, from 1
  std::string_view title;  ///< of the column
};

/// The same column on another line.
inline Place At(Place column, std::size_t line) {
  column.line = line;
  return column;
}

/// "mass.csv, line 3, column 5 (mass [kg])".
std::string ToText(const Place& place);

/// Collects what is wrong with tables, so that a user learns of everything at once.
class ImportLog {
 public:
  void Error(const Place& place, std::string_view text,
             protocol::ErrorKind kind = protocol::ErrorKind::BadValue);
  void Warning(const Place& place, std::string_view text);
  void LeftOut(const Place& place, std::string_view text);

  bool HasErrors() const { return _errorCount > 0; }

  /// All errors, one to a line. The first `kShownErrors` are shown, the rest are counted.
  protocol::Error Failure() const;

  const std::vector<std::string>& Warnings() const { return _warnings; }
  const std::vector<std::string>& LeftOut() const { return _leftOut; }

  static constexpr std::size_t kShownErrors = 100;

 private:
  std::size_t _errorCount = 0;
  protocol::ErrorKind _kind = protocol::ErrorKind::BadValue;  ///< of the first error
  std::vector<std::string> _errors;
  std::vector<std::string> _warnings;
  std::vector<std::string> _leftOut;
};

}  // namespace lumira
