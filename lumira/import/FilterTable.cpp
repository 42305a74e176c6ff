#include "lumira/import/FilterTable.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "lumira/import/CellTexts.h"
#include "lumira/import/TableColumns.h"
#include "lumira/store/ProductRules.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::ErrorKind;
using protocol::Quoted;

enum Column : std::size_t { FilterName, Description, Condition, Name, Values, Sense, Set };

constexpr std::array kColumns = {
    ColumnRule{"filter", Quantity::Text, Presence::Required},
    ColumnRule{"description"},
    ColumnRule{"condition"},
    ColumnRule{"name"},
    ColumnRule{"values"},
    ColumnRule{"sense"},
    ColumnRule{"set", Quantity::Flag},
};

// In the order of ConditionKind, behind the empty cell.
constexpr std::string_view kConditions[] = {"", "attribute", "revision", "effectivity", "instances"};
constexpr std::string_view kSenses[] = {"keep", "leave out"};

class FilterReading {
 public:
  FilterReading(const CsvTable& table, ImportLog& log) : _columns(table, kColumns, log) {}

  FilterRows Run() {
    _columns.AddFound(_result.usedColumns);
    if (_columns.HasRequired()) _columns.EachRow({}, {}, [this](std::size_t row) { ReadRow(row); });
    return std::move(_result);
  }

 private:
  void ReadRow(std::size_t row) {
    const auto name = _columns.Identifier(row, FilterName);
    if (!name) return;
    if (const auto good = CheckFilter({.name = *name}); !good)
      return _columns.Error(row, FilterName, good.Failure().message);
    auto& filters = _result.filters.filters;
    const auto [known, isNew] = _indices.emplace(*name, filters.size());
    if (isNew) filters.push_back({.name = *name});
    ReadDescription(row, filters[known->second]);
    if (_columns.Flag(row, Set)) SetHandler(row, *name);
    ReadCondition(row, known->second);
  }

  void ReadDescription(std::size_t row, ConfigurationFilter& filter) {
    const std::string text(_columns.Text(row, Description));
    if (text.empty()) return;
    if (!filter.description.empty() && filter.description != text)
      _columns.Error(row, Description,
                     Quoted(text) + " differs from " + Quoted(filter.description) +
                         " on another row of the same filter");
    filter.description = text;
  }

  void SetHandler(std::size_t row, const std::string& name) {
    auto& handler = _result.filters.handler;
    if (handler && *handler != name)
      _columns.Error(row, Set, "the filter " + Quoted(*handler) + " is set already; one can be");
    handler = name;
  }

  void ReadCondition(std::size_t row, std::size_t filter) {
    const std::size_t choice = _columns.Choice(row, Condition, kConditions);
    if (choice == 0) return RefuseWithoutCondition(row);
    FilterCondition condition{.kind = static_cast<ConditionKind>(choice - 1),
                              .sense = static_cast<ConditionSense>(_columns.Choice(row, Sense, kSenses)),
                              .name = std::string(_columns.Text(row, Name)),
                              .values = ReadValues(row)};
    CheckName(row, condition);
    if (condition.kind == ConditionKind::Effectivity) CheckDate(row, condition.values);
    auto& conditions = _result.filters.filters[filter].conditions;
    _result.sources.push_back(
        {filter, conditions.size(), _columns.PlaceOf(row, Name), _columns.PlaceOf(row, Values)});
    conditions.push_back(std::move(condition));
  }

  // A condition that is there but none of those known has been told already.
  void RefuseWithoutCondition(std::size_t row) {
    if (!_columns.Text(row, Condition).empty()) return;
    for (const Column column : {Name, Values, Sense})
      if (!_columns.Text(row, column).empty())
        _columns.Error(row, column, "there is no condition that this could belong to");
  }

  std::vector<std::string> ReadValues(std::size_t row) {
    std::vector<std::string> values = SplitValues(row);
    for (std::size_t i = 0; i < values.size(); ++i) {
      values[i] = Trimmed(values[i]);
      if (values[i].empty())
        _columns.Error(row, Values,
                       "value " + std::to_string(i + 1) + " is empty; values are separated by \";\"");
    }
    return values;
  }

  // At each ";" but those behind a backslash. A backslash that escapes nothing is told and stays in the
  // value.
  std::vector<std::string> SplitValues(std::size_t row) {
    const std::string_view text = _columns.Text(row, Values);
    std::vector<std::string> values(1);
    for (std::size_t i = 0; i < text.size(); ++i) {
      const bool isEscape = IsEscape(text.substr(i, 2));
      if (text[i] == '\\' && !isEscape) RefuseBackslash(row, values.size());
      if (text[i] == ';')
        values.emplace_back();
      else
        values.back() += text[isEscape ? ++i : i];
    }
    return values;
  }

  static bool IsEscape(std::string_view pair) { return pair == "\\;" || pair == "\\\\"; }

  void RefuseBackslash(std::size_t row, std::size_t value) {
    _columns.Error(row, Values,
                   "value " + std::to_string(value) + " of " + Quoted(_columns.Text(row, Values)) +
                       " has a \"\\\" before neither \";\" nor \"\\\"; \"\\;\" is a \";\" inside a value and "
                       "\"\\\\\" a \"\\\"");
  }

  void CheckName(std::size_t row, const FilterCondition& condition) {
    const bool needsName = condition.kind == ConditionKind::Attribute;
    const bool mayHaveName = needsName || condition.kind == ConditionKind::Revision;
    if (needsName && condition.name.empty())
      _columns.Error(row, Name, "the name of the attribute is missing");
    else if (!mayHaveName && !condition.name.empty())
      _columns.Error(row, Name, "a condition of this kind has no name, " + Quoted(condition.name) + " found");
  }

  void CheckDate(std::size_t row, const std::vector<std::string>& values) {
    if (values.size() != 1)
      _columns.Error(row, Values, "one date expected, there are " + std::to_string(values.size()));
    else if (!values.front().empty() && !ParseDate(values.front()))
      _columns.Error(row, Values, NoDate(Quoted(values.front())));
  }

  TableColumns _columns;
  FilterRows _result;
  std::unordered_map<std::string, std::size_t> _indices;  ///< of filters by name
};

// What a product has that conditions can name.
class KnownNames {
 public:
  explicit KnownNames(const Product& product) {
    for (const Part& part : product.parts) _revisions[part.id] = part.revision;
    for (const Instance& instance : product.instances) {
      _instances.insert(instance.id);
      for (const InstanceAttribute& attribute : instance.attributes)
        _attributes[attribute.name].insert(attribute.value);
    }
  }

  bool HasPart(const std::string& id) const { return _revisions.contains(id); }
  bool HasInstance(const std::string& id) const { return _instances.contains(id); }
  bool HasAttribute(const std::string& name) const { return _attributes.contains(name); }
  bool HasValue(const std::string& name, const std::string& value) const {
    return _attributes.at(name).contains(value);
  }

  bool HasRevision(const std::string& part, const std::string& revision) const {
    if (!part.empty()) return _revisions.at(part) == revision;
    return std::ranges::any_of(_revisions, [&](const auto& entry) { return entry.second == revision; });
  }

  std::string Attributes() const {
    std::string list;
    for (const auto& [name, values] : _attributes) list += (list.empty() ? "" : ", ") + Quoted(name);
    return list.empty() ? "no instance has any" : "those known are " + list;
  }

 private:
  std::map<std::string_view, std::unordered_set<std::string_view>> _attributes;  ///< values by name
  std::unordered_map<std::string_view, std::string_view> _revisions;             ///< by part
  std::unordered_set<std::string_view> _instances;
};

class FilterCheck {
 public:
  FilterCheck(const Product& product, ImportLog& log) : _known(product), _log(log) {}

  void Look(const FilterCondition& condition, const FilterRows::Source& source) {
    switch (condition.kind) {
      case ConditionKind::Attribute:
        return LookAtAttribute(condition, source);
      case ConditionKind::Revision:
        return LookAtRevision(condition, source);
      case ConditionKind::Instances:
        return LookAtInstances(condition, source);
      case ConditionKind::Effectivity:
        return;  // a date names nothing
    }
  }

 private:
  void LookAtAttribute(const FilterCondition& condition, const FilterRows::Source& source) {
    if (!_known.HasAttribute(condition.name))
      return _log.Error(source.name,
                        "there is no attribute " + Quoted(condition.name) + "; " + _known.Attributes(),
                        ErrorKind::NotFound);
    for (const std::string& value : condition.values)
      if (!_known.HasValue(condition.name, value))
        _log.Warning(source.values, "no instance has the value " + Quoted(value) + " of attribute " +
                                        Quoted(condition.name));
  }

  void LookAtRevision(const FilterCondition& condition, const FilterRows::Source& source) {
    if (!condition.name.empty() && !_known.HasPart(condition.name))
      return _log.Error(source.name, "there is no part " + Quoted(condition.name), ErrorKind::NotFound);
    for (const std::string& revision : condition.values)
      if (!_known.HasRevision(condition.name, revision))
        _log.Warning(source.values, (condition.name.empty() ? "no part" : "part " + Quoted(condition.name)) +
                                        " has" + (condition.name.empty() ? "" : " not") + " the revision " +
                                        Quoted(revision));
  }

  void LookAtInstances(const FilterCondition& condition, const FilterRows::Source& source) {
    for (const std::string& id : condition.values)
      if (!_known.HasInstance(id))
        _log.Error(source.values, "there is no instance " + Quoted(id), ErrorKind::NotFound);
  }

  KnownNames _known;
  ImportLog& _log;
};

}  // namespace

FilterRows ReadFilterTable(const CsvTable& table, ImportLog& log) { return FilterReading(table, log).Run(); }

void CheckFilterRows(const FilterRows& rows, const Product& product, ImportLog& log) {
  FilterCheck check(product, log);
  for (const FilterRows::Source& source : rows.sources)
    check.Look(rows.filters.filters[source.filter].conditions[source.condition], source);
}

}  // namespace lumira
