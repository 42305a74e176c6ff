#include "protocol/Filter.h"

#include <algorithm>
#include <optional>

#include "protocol/Constants.h"
#include "protocol/Limits.h"
#include "protocol/Numbers.h"
#include "protocol/Utf8.h"

namespace protocol {
namespace {

constexpr std::string_view kNoFilterName = kNoFilter.substr(2);
constexpr std::string_view kConfiguration = "0";
constexpr std::string_view kUser = "1";

Error BadFilter(std::string message) { return {ErrorKind::BadText, "Filter: " + std::move(message)}; }

// Takes the fields of a user filter one by one; the first failure is kept and later calls do nothing.
class RowReader {
 public:
  explicit RowReader(std::string_view rest) : _rest(rest) {}

  std::string Text(std::string_view name) {
    if (_failure) return {};
    ++_number;
    if (_atEnd) {
      _failure =
          BadFilter("field " + std::to_string(_number) + " (" + _row + std::string(name) + ") is missing");
      return {};
    }
    const std::size_t separator = _rest.find('|');
    const std::string_view field = _rest.substr(0, separator);
    _atEnd = separator == std::string_view::npos;
    _rest.remove_prefix(_atEnd ? _rest.size() : separator + 1);
    return std::string(field);
  }

  std::size_t Count(std::string_view name, std::size_t most) {
    const std::string field = Text(name);
    if (_failure) return 0;
    const auto count = ParseInteger(field);
    // Written in one way only: what reads a filter as text compares it as text.
    const bool isPlain = count && std::to_string(*count) == field;
    if (isPlain && *count >= 0 && *count <= static_cast<long long>(most))
      return static_cast<std::size_t>(*count);
    _failure = BadFilter("field " + std::to_string(_number) + " (" + _row + std::string(name) +
                         "): " + Quoted(field) + " is not a number from 0 to " + std::to_string(most));
    return 0;
  }

  FilterRow Row(std::size_t index) {
    _row = "row " + std::to_string(index + 1) + ", ";
    FilterRow row{Text("instance id"), Text("part id"), Text("part version"), {}};
    const std::size_t depth = Count("depth", kMaxPathDepth);
    for (std::size_t i = 0; i < depth && !_failure; ++i)
      row.path.push_back(Text("path element " + std::to_string(i + 1)));
    return row;
  }

  std::optional<Error> Finish() {
    if (!_failure && !_atEnd)
      _failure =
          BadFilter("there is more text after field " + std::to_string(_number) + ", the last of the rows");
    return _failure;
  }

  bool Failed() const { return _failure.has_value(); }

 private:
  std::string_view _rest;
  std::string _row;
  bool _atEnd = false;
  int _number = 1;  // the kind has been taken
  std::optional<Error> _failure;
};

Result<Filter> ReadUserFilter(std::string_view rest) {
  RowReader reader(rest);
  Filter filter{.kind = Filter::Kind::User, .name = {}, .rows = {}};
  const std::size_t count = reader.Count("row count", kMaxFilterRows);
  for (std::size_t i = 0; i < count && !reader.Failed(); ++i) filter.rows.push_back(reader.Row(i));
  if (auto failure = reader.Finish()) return *failure;
  return filter;
}

bool Separable(const std::string& element) { return element.find('|') == std::string::npos; }

bool Separable(const FilterRow& row) {
  return Separable(row.instanceId) && Separable(row.partId) && Separable(row.partVersion) &&
         std::all_of(row.path.begin(), row.path.end(), [](const std::string& e) { return Separable(e); });
}

std::string RowText(const FilterRow& row) {
  std::string text =
      "|" + row.instanceId + "|" + row.partId + "|" + row.partVersion + "|" + std::to_string(row.path.size());
  for (const std::string& element : row.path) text += "|" + element;
  return text;
}

}  // namespace

bool Filter::LetsAllPass() const {
  return kind == Kind::Configuration ? name == kNoFilterName : rows.empty();
}

Result<std::string> WriteFilter(const Filter& filter) {
  if (filter.kind == Filter::Kind::Configuration) return std::string(kConfiguration) + "|" + filter.name;
  std::string text = std::string(kUser) + "|" + std::to_string(filter.rows.size());
  for (std::size_t i = 0; i < filter.rows.size(); ++i) {
    if (!Separable(filter.rows[i]))
      return Error{ErrorKind::BadValue,
                   "Filter: row " + std::to_string(i + 1) + " holds a \"|\" in an element"};
    text += RowText(filter.rows[i]);
  }
  return text;
}

Result<Filter> ReadFilter(std::string_view text) {
  if (text.size() > kMaxTextBytes)
    return BadFilter("the text has " + std::to_string(text.size()) + " bytes, the limit is " +
                     std::to_string(kMaxTextBytes));
  const std::size_t separator = text.find('|');
  const std::string_view kind = text.substr(0, separator);
  if (kind != kConfiguration && kind != kUser)
    return BadFilter("field 1 (kind): " + Quoted(kind) + " is neither 0 nor 1");
  if (separator == std::string_view::npos) return BadFilter("field 2 is missing");
  const std::string_view rest = text.substr(separator + 1);
  if (kind == kUser) return ReadUserFilter(rest);
  return Filter{.kind = Filter::Kind::Configuration, .name = std::string(rest), .rows = {}};
}

}  // namespace protocol
