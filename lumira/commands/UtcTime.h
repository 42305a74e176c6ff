#pragma once

#include <chrono>
#include <cstdio>
#include <string>

#include "lumira/model/Date.h"

namespace lumira {

/// A moment as "YYYY-MM-DDThh:mm:ssZ".
inline std::string UtcTime(std::chrono::system_clock::time_point moment = std::chrono::system_clock::now()) {
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::hh_mm_ss time(std::chrono::floor<std::chrono::seconds>(moment - day));
  char text[16];
  std::snprintf(text, sizeof text, "T%02d:%02d:%02dZ", static_cast<int>(time.hours().count()),
                static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
  return FormatDate(Date(day)) + text;
}

}  // namespace lumira
