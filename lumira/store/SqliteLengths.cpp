#include "lumira/store/SqliteLengths.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <SQLiteCpp/VariadicBind.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "lumira/model/Counted.h"
#include "lumira/model/PropertyRules.h"
#include "lumira/store/SqliteVersion6.h"
#include "protocol/Numbers.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Quoted;

// Without the zeros that do not count, as in "0012.50".
std::string WithoutIdleZeros(std::string number) {
  number.erase(number.find_last_not_of('0') + 1);
  if (number.ends_with('.')) number.pop_back();
  const std::size_t first = number.find_first_not_of('0');
  number.erase(0, first == number.npos ? number.size() : first);
  return number.empty() || number.front() == '.' ? "0" + number : number;
}

// Digits with or without a point in them. The point goes three digits to the left.
std::string WithPointMoved(std::string_view digits) {
  constexpr std::size_t kPlaces = 3;
  const std::size_t point = std::min(digits.find('.'), digits.size());
  std::string whole(digits.substr(0, point));
  if (whole.size() < kPlaces) whole.insert(0, kPlaces - whole.size(), '0');
  whole.insert(whole.size() - kPlaces, 1, '.');
  if (point < digits.size()) whole += digits.substr(point + 1);
  return WithoutIdleZeros(whole);
}

// A thousandth of a number, with all digits that it has.
std::string ThousandthOf(std::string_view number) {
  const std::string sign(number.starts_with('-') ? "-" : "");
  number.remove_prefix(sign.size());
  const std::size_t exponent = std::min(number.find_first_of("eE"), number.size());
  return sign + WithPointMoved(number.substr(0, exponent)) + std::string(number.substr(exponent));
}

// None for what is no number of metres.
std::optional<std::string> MetresOf(std::string_view millimetres) {
  const std::string_view bare = BareNumber(millimetres);
  if (!protocol::ParseNumber(bare)) return std::nullopt;
  std::string metres = ThousandthOf(bare);
  return protocol::ParseNumber(metres) ? std::optional(std::move(metres)) : std::nullopt;
}

// The values of one property that stayed.
struct Left {
  std::string property;
  std::string value;  ///< the first one
  std::string part;   ///< which has it
  std::size_t count = 0;
};

std::string NoteOf(const Left& left) {
  return "the extra property " + Quoted(left.property) + " had " +
         Counted(left.count, {"value that is no length", "values that are no lengths"}) + ", the first " +
         Quoted(left.value) + " of part " + Quoted(left.part) +
         "; what is no length is as it was, the others are in metres now";
}

}  // namespace

void BringLengthsToMetres(SQLite::Database& database) {
  SQLite::Statement values(
      database,
      "SELECT parts.product, definition, parts.key, property_definitions.name, value, parts.part"
      " FROM property_values JOIN parts ON parts.key = property_values.part JOIN property_definitions"
      " ON property_definitions.product = parts.product AND property_definitions.position = definition"
      " WHERE magnitude = 'LENGTH' ORDER BY parts.key, definition");
  SQLite::Statement update(database,
                           "UPDATE property_values SET value = ? WHERE part = ? AND definition = ?");
  std::map<std::pair<std::int64_t, std::int64_t>, Left> left;
  while (values.executeStep()) {
    const std::int64_t product = values.getColumn(0).getInt64(), definition = values.getColumn(1).getInt64();
    const std::string value = values.getColumn(4).getString();
    if (WithoutBlanks(value).empty()) continue;
    if (const auto metres = MetresOf(value)) {
      SQLite::bind(update, *metres, values.getColumn(2).getInt64(), definition);
      update.exec();
      update.reset();
      continue;
    }
    Left& kept = left[{product, definition}];
    if (kept.count++ == 0)
      kept = {values.getColumn(3).getString(), value, values.getColumn(5).getString(), 1};
  }
  for (const auto& [place, kept] : left) AddNote(database, place.first, place.second, NoteOf(kept));
}

}  // namespace lumira
