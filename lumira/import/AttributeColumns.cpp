#include "lumira/import/AttributeColumns.h"

#include <algorithm>
#include <utility>

#include "lumira/import/CellTexts.h"
#include "lumira/model/Identifier.h"

namespace lumira {
namespace {

constexpr std::string_view kPrefix = "attribute ";

}  // namespace

AttributeColumns::AttributeColumns(const CsvTable& table, ImportLog& log) : _table(table), _log(log) {
  for (std::size_t position = 0; position < table.ColumnCount(); ++position) {
    const std::string_view title = table.Title(position);
    // The title "attribute" alone is a column that is not known.
    if (title.size() > kPrefix.size() && Lower(title.substr(0, kPrefix.size())) == kPrefix)
      Add(position, std::string(Trimmed(title.substr(kPrefix.size()))));
  }
}

void AttributeColumns::Add(std::size_t position, std::string name) {
  const Place place{_table.Name(), _table.HeaderLine(), position + 1, _table.Title(position)};
  if (const auto problem = FindIdentifierProblem(name))
    _log.Error(place, "name of an attribute: " + *problem, protocol::ErrorKind::BadText);
  if (std::ranges::find(_columns, name, &Column::name) != _columns.end())
    _log.Error(place, "there is a column of this attribute already", protocol::ErrorKind::BadText);
  _columns.push_back({position, std::move(name)});
}

std::vector<InstanceAttribute> AttributeColumns::Read(std::size_t row) const {
  std::vector<InstanceAttribute> attributes;
  for (const auto& [position, name] : _columns) {
    const std::string_view value = _table.Cell(row, position);
    if (value.empty()) continue;
    if (const auto problem = FindIdentifierProblem(value))
      _log.Error({_table.Name(), _table.Line(row), position + 1, _table.Title(position)}, *problem);
    attributes.push_back({name, std::string(value)});
  }
  return attributes;
}

void AttributeColumns::AddFound(std::set<std::size_t>& positions) const {
  for (const Column& column : _columns) positions.insert(column.position);
}

}  // namespace lumira
