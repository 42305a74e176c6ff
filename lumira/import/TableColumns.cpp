#include "lumira/import/TableColumns.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

#include "lumira/import/CellTexts.h"
#include "lumira/model/Identifier.h"
#include "protocol/Numbers.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::ErrorKind;
using protocol::Quoted;

// "mass [kg]" is the name "mass" and the unit "kg"; without brackets there is no unit.
std::pair<std::string, std::optional<std::string_view>> SplitTitle(std::string_view title) {
  const std::size_t open = title.find('[');
  const bool hasUnit = open != title.npos && title.ends_with(']');
  if (!hasUnit) return {Lower(Trimmed(title)), std::nullopt};
  return {Lower(Trimmed(title.substr(0, open))), Trimmed(title.substr(open + 1, title.size() - open - 2))};
}

// Numbers and exponents may have a plus, which the parser does not take; only one sign.
std::string_view WithoutPlus(std::string_view text) {
  const bool hasPlus = text.starts_with('+') && text.find_first_of("+-", 1) != 1;
  return hasPlus ? text.substr(1) : text;
}

// Whether a text that is no finite number is one so close to zero that none stands for it, such as 1e-400.
bool IsTooSmall(std::string_view text) {
  long double wide = 0;  // reaches far enough to tell most small numbers from large ones
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, wide);
  if (stop != end || error == std::errc::invalid_argument) return false;
  if (error == std::errc::result_out_of_range)
    return text.find("e-") != text.npos || text.find("E-") != text.npos;
  return std::abs(wide) < 1;
}

std::string NotANumber(std::string_view text) {
  if (IsTooSmall(WithoutPlus(text)))
    return Quoted(text) + " is too small; the least number above 0 is about 5e-324";
  const bool comma = text.find(',') != text.npos;
  return Quoted(text) + " is not a finite number" + (comma ? "; a decimal point expected" : "");
}

// A full turn, rounded up so that 360 deg and its usual roundings in rad pass. More is most often a slip, and
// the sine of a huge angle is noise.
constexpr double kMaxAngle = 6.2832;  // rad

}  // namespace

TableColumns::TableColumns(const CsvTable& table, std::span<const ColumnRule> rules, ImportLog& log)
    : _table(table), _rules(rules), _log(log), _columns(rules.size()) {
  for (std::size_t rule = 0; rule < rules.size(); ++rule) Find(rule);
}

void TableColumns::Find(std::size_t rule) {
  const ColumnRule& wanted = _rules[rule];
  for (std::size_t position = 0; position < _table.ColumnCount(); ++position) {
    const auto [name, unit] = SplitTitle(_table.Title(position));
    if (name != wanted.name) continue;
    if (wanted.presence == Presence::CheckedElsewhere) {
      if (!_columns[rule]) _columns[rule] = Found{position, 1};
      continue;
    }
    const Place place{_table.Name(), _table.HeaderLine(), position + 1, _table.Title(position)};
    if (_columns[rule]) {
      _log.Error(place, "there is a column of this name already", ErrorKind::BadText);
    } else if (!unit && HasUnit(wanted.quantity)) {
      _log.Error(place, "the unit is missing; one of " + UnitList(wanted.quantity) + " expected, in brackets",
                 ErrorKind::BadText);
      _columns[rule] = Found{position, 1};
    } else {
      _columns[rule] = Found{position, UnitOf(rule, position, unit.value_or("")).value_or(1)};
    }
  }
  if (!_columns[rule] && wanted.presence == Presence::Required && _table.ColumnCount() > 0)
    _log.Error({_table.Name(), _table.HeaderLine(), 0, {}}, "there is no column " + Quoted(wanted.name),
               ErrorKind::BadText);
}

bool TableColumns::HasRequired() const {
  for (std::size_t rule = 0; rule < _rules.size(); ++rule)
    if (_rules[rule].presence == Presence::Required && !_columns[rule]) return false;
  return true;
}

std::optional<double> TableColumns::UnitOf(std::size_t rule, std::size_t position, std::string_view unit) {
  const Quantity quantity = _rules[rule].quantity;
  const Place place{_table.Name(), _table.HeaderLine(), position + 1, _table.Title(position)};
  if (!HasUnit(quantity)) {
    if (!unit.empty() && unit != "-")
      _log.Error(place, "this column has no unit, " + Quoted(unit) + " found", ErrorKind::BadText);
    return std::nullopt;
  }
  const auto si = FindUnit(quantity, unit);
  if (!si)
    _log.Error(place, Quoted(unit) + " is no unit known here; one of " + UnitList(quantity) + " expected",
               ErrorKind::BadText);
  return si;
}

Place TableColumns::ColumnPlace(std::size_t column) const {
  if (!_columns[column]) return {_table.Name(), _table.HeaderLine(), 0, {}};
  const std::size_t position = _columns[column]->position;
  return {_table.Name(), _table.HeaderLine(), position + 1, _table.Title(position)};
}

Place TableColumns::PlaceOf(std::size_t row, std::size_t column) const {
  Place place = ColumnPlace(column);
  place.line = _table.Line(row);
  return place;
}

std::size_t TableColumns::FirstGiven(std::size_t row, std::size_t first, std::size_t count) const {
  for (std::size_t column = first; column < first + count; ++column)
    if (!Text(row, column).empty()) return column;
  return first;
}

void TableColumns::Error(std::size_t row, std::size_t column, std::string_view text) const {
  _log.Error(PlaceOf(row, column), text);
}

void TableColumns::LeftOut(std::size_t row, std::size_t column, std::string_view text) const {
  _log.LeftOut(PlaceOf(row, column), text);
}

std::string_view TableColumns::Text(std::size_t row, std::size_t column) const {
  return _columns[column] ? _table.Cell(row, _columns[column]->position) : std::string_view{};
}

std::optional<std::string> TableColumns::Identifier(std::size_t row, std::size_t column) const {
  const std::string_view text = Text(row, column);
  const auto problem = FindIdentifierProblem(text);
  if (!problem) return std::string(text);
  if (_rules[column].presence != Presence::CheckedElsewhere) Error(row, column, *problem);
  return std::nullopt;
}

std::optional<double> TableColumns::Number(std::size_t row, std::size_t column) const {
  const std::string_view text = Text(row, column);
  if (text.empty()) return std::nullopt;
  const auto refuse = [&](const std::string& reason) -> std::optional<double> {
    Error(row, column, reason);
    return std::nullopt;
  };
  const auto number = protocol::ParseNumber(WithoutPlus(text));
  if (!number) return refuse(NotANumber(text));
  const double si = *number * _columns[column]->si;
  if (!std::isfinite(si)) return refuse(Quoted(text) + " is too large");
  if (_rules[column].quantity == Quantity::Angle && std::abs(si) > kMaxAngle)
    return refuse(Quoted(text) + " is more than a full turn (360 deg, 6.2832 rad)");
  return si;
}

long long TableColumns::Count(std::size_t row, std::size_t column) const {
  constexpr long long kMost = 1'000'000'000;
  const std::string_view text = Text(row, column);
  if (text.empty()) return 1;
  const auto count = protocol::ParseInteger(text);
  if (count && *count >= 1 && *count <= kMost) return *count;
  Error(row, column, Quoted(text) + " is not a whole number from 1 to " + std::to_string(kMost));
  return 1;
}

std::optional<Date> TableColumns::Day(std::size_t row, std::size_t column) const {
  const std::string_view text = Text(row, column);
  const auto date = ParseDate(text);
  if (!date && !text.empty()) Error(row, column, NoDate(Quoted(text)));
  return date;
}

std::size_t TableColumns::Choice(std::size_t row, std::size_t column,
                                 std::span<const std::string_view> choices) const {
  const std::string text = Lower(Text(row, column));
  if (text.empty()) return 0;
  const auto found = std::find(choices.begin(), choices.end(), text);
  if (found != choices.end()) return static_cast<std::size_t>(found - choices.begin());
  std::string list;
  for (std::string_view choice : choices)
    if (!choice.empty()) list += (list.empty() ? "" : ", ") + Quoted(choice);
  Error(row, column, Quoted(Text(row, column)) + " is none of " + list);
  return 0;
}

bool TableColumns::Flag(std::size_t row, std::size_t column) const {
  static constexpr std::string_view kAnswers[] = {"no", "yes"};
  return Choice(row, column, kAnswers) == 1;
}

double TableColumns::Rounding(std::size_t row, std::size_t column) const {
  const std::string_view text = WithoutPlus(Text(row, column));
  if (protocol::ParseNumber(text).value_or(0) == 0) return 0;
  const std::size_t exponentAt = text.find_first_of("eE");
  const std::size_t point = text.find('.');
  const auto exponent = exponentAt == text.npos
                            ? 0
                            : protocol::ParseInteger(WithoutPlus(text.substr(exponentAt + 1))).value_or(0);
  const std::size_t digitsEnd = std::min(exponentAt, text.size());
  const auto decimals = point == text.npos ? 0 : static_cast<long long>(digitsEnd - point - 1);
  return 0.5 * std::pow(10.0, static_cast<double>(exponent - decimals)) * _columns[column]->si;
}

void TableColumns::AddFound(std::set<std::size_t>& positions) const {
  for (const auto& column : _columns)
    if (column) positions.insert(column->position);
}

}  // namespace lumira
