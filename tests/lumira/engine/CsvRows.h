#pragma once

#include <map>
#include <string>
#include <vector>

namespace lumira::test {

/// One line of a table: the text under each heading.
class CsvRow {
 public:
  explicit CsvRow(std::map<std::string, std::string> fields) : _fields(std::move(fields)) {}
  const std::string& Text(const std::string& column) const { return _fields.at(column); }
  double Number(const std::string& column) const { return std::stod(Text(column)); }
  bool Has(const std::string& column) const { return !Text(column).empty(); }

 private:
  std::map<std::string, std::string> _fields;
};

/// The rows of a table of plain fields in tests/lumira/data; throws when it cannot be read.
std::vector<CsvRow> ReadCsv(const std::string& file);

/// The row with `value` under `column`; throws when there is none.
const CsvRow& RowWith(const std::vector<CsvRow>& rows, const std::string& column, const std::string& value);

}  // namespace lumira::test
