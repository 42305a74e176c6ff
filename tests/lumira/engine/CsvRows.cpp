#include "tests/lumira/engine/CsvRows.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace lumira::test {
namespace {

std::vector<std::string> Split(const std::string& line) {
  std::vector<std::string> fields{""};
  for (const char c : line) {
    if (c == ',') {
      fields.emplace_back();
    } else if (c != '\r') {
      fields.back() += c;
    }
  }
  return fields;
}

}  // namespace

std::vector<CsvRow> ReadCsv(const std::string& file) {
  std::ifstream in(std::filesystem::path(KORVO_SOURCE_DIR) / "tests/lumira/data" / file);
  std::string line;
  if (!std::getline(in, line)) throw std::runtime_error("cannot read " + file);
  const auto names = Split(line);
  std::vector<CsvRow> rows;
  while (std::getline(in, line)) {
    const auto fields = Split(line);
    std::map<std::string, std::string> row;
    for (std::size_t i = 0; i < names.size(); ++i) row[names[i]] = fields.at(i);
    rows.emplace_back(std::move(row));
  }
  return rows;
}

const CsvRow& RowWith(const std::vector<CsvRow>& rows, const std::string& column, const std::string& value) {
  const auto found = std::ranges::find_if(rows, [&](const CsvRow& row) { return row.Text(column) == value; });
  if (found == rows.end()) throw std::runtime_error("no row with " + column + " " + value);
  return *found;
}

}  // namespace lumira::test
