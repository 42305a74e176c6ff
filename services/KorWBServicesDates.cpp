#include "services/KorWBServices.h"

#include <chrono>
#include <map>
#include <optional>
#include <string_view>

namespace {

/// A number for each letter of a pattern: "YYYY", "MM", "DD", "hh", "mm", "ss".
using DateNumbers = std::map<char, int>;

constexpr std::string_view kFieldLetters = "YMDhms";

/// Both have the same length, digits stand where the pattern has letters, and the rest is the same.
std::optional<DateNumbers> Match(std::string_view text, std::string_view pattern) {
  if (text.size() != pattern.size()) return std::nullopt;
  DateNumbers numbers;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool inField = kFieldLetters.find(pattern[i]) != kFieldLetters.npos;
    const bool digit = text[i] >= '0' && text[i] <= '9';
    if (inField ? !digit : text[i] != pattern[i]) return std::nullopt;
    if (inField) numbers[pattern[i]] = 10 * numbers[pattern[i]] + (text[i] - '0');
  }
  return numbers;
}

/// Each letter as often as it has to, in one run.
bool HasDate(std::string_view pattern) {
  for (const std::string_view field : {"YYYY", "MM", "DD"}) {
    const std::size_t at = pattern.find(field);
    if (at == pattern.npos || pattern.find(field[0], at + field.size()) != pattern.npos ||
        pattern.find(field[0]) != at)
      return false;
  }
  return true;
}

/// Nothing for a date or a time of day that does not exist.
std::optional<std::time_t> TimeOf(DateNumbers numbers) {
  using namespace std::chrono;
  const year_month_day date = year(numbers['Y']) / numbers['M'] / numbers['D'];
  const bool exists = date.ok() && numbers['Y'] >= 1;
  if (!exists || numbers['h'] > 23 || numbers['m'] > 59 || numbers['s'] > 59) return std::nullopt;
  const auto time = sys_days(date) + hours(numbers['h']) + minutes(numbers['m']) + seconds(numbers['s']);
  return duration_cast<seconds>(time.time_since_epoch()).count();
}

}  // namespace

HRESULT KorWBServices::GetDateFromText(const KorUnicodeString& text, const KorUnicodeString& format,
                                       const KorUnicodeString& delimiter,
                                       const KorUnicodeString& ymdDelimiter,
                                       const KorUnicodeString& hmsDelimiter, DateFields fields,
                                       std::time_t& time) {
  KorUnicodeString pattern =
      format.IsEmpty() ? KorUnicodeString("YYYY") + ymdDelimiter + "MM" + ymdDelimiter + "DD" : format;
  if (!HasDate(pattern.Utf8())) return E_FAIL;
  if (fields == DateFields::DateAndTime)
    pattern += delimiter + "hh" + hmsDelimiter + "mm" + hmsDelimiter + "ss";
  const auto numbers = Match(text.Utf8(), pattern.Utf8());
  const auto found = numbers ? TimeOf(*numbers) : std::nullopt;
  if (!found) return E_FAIL;
  time = *found;
  return S_OK;
}
