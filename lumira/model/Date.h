#pragma once

#include <chrono>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

namespace lumira {

/// A day of the Gregorian calendar.
using Date = std::chrono::year_month_day;

/// How dates are written, as people are told of it.
inline constexpr std::string_view kDateFormat = "YYYY-MM-DD";

/// As `ParseDate`, but takes the year 0, which older programs have stored.
inline std::optional<Date> ParseStoredDate(std::string_view text) {
  constexpr std::string_view kForm = "0000-00-00";
  if (text.size() != kForm.size()) return std::nullopt;
  int fields[3] = {};
  std::size_t field = 0;
  for (std::size_t i = 0; i < kForm.size(); ++i) {
    const bool isDigit = text[i] >= '0' && text[i] <= '9';
    if (isDigit != (kForm[i] == '0') || (!isDigit && text[i] != kForm[i])) return std::nullopt;
    if (isDigit)
      fields[field] = 10 * fields[field] + (text[i] - '0');
    else
      ++field;
  }
  const Date date{std::chrono::year(fields[0]), std::chrono::month(static_cast<unsigned>(fields[1])),
                  std::chrono::day(static_cast<unsigned>(fields[2]))};
  return date.ok() ? std::optional(date) : std::nullopt;
}

/// Reads "YYYY-MM-DD"; none for any other text and for a day that the calendar has not, which begins with the
/// year 1.
inline std::optional<Date> ParseDate(std::string_view text) {
  const auto date = ParseStoredDate(text);
  return date && date->year() >= std::chrono::year(1) ? date : std::nullopt;
}

/// "YYYY-MM-DD"; the year has to be from 0 to 9999.
inline std::string FormatDate(const Date& date) {
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
  return text;
}

/// What to say of a text (as a message quotes it) that is no date; may follow a place.
inline std::string NoDate(const std::string& quoted) {
  return quoted + " is no date; a day of the calendar as YYYY-MM-DD expected";
}

}  // namespace lumira
