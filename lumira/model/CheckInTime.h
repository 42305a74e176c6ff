#pragma once

#include <string>
#include <string_view>

#include "lumira/model/Date.h"

namespace lumira {

/// Whether a text is a time as document revisions have it, "YYYY-MM-DD hh:mm:ss".
inline bool IsCheckInTime(std::string_view text) {
  constexpr std::string_view kForm = "0000-00-00 00:00:00";
  if (text.size() != kForm.size() || !ParseDate(text.substr(0, 10))) return false;
  for (std::size_t i = 10; i < kForm.size(); ++i) {
    const bool isDigit = text[i] >= '0' && text[i] <= '9';
    if (isDigit != (kForm[i] == '0') || (!isDigit && text[i] != kForm[i])) return false;
  }
  return text.substr(11, 2) < "24" && text[14] < '6' && text[17] < '6';
}

/// What to say of a text (as a message quotes it) that is no such time; may follow a place.
inline std::string NoCheckInTime(const std::string& quoted) {
  return quoted + " is no time; YYYY-MM-DD hh:mm:ss expected";
}

}  // namespace lumira
