#pragma once

#include <cstdint>

/// Values of the selected filter's option, and the fixed pieces of the filter texts.
namespace KorWBNymNavFilterOptions {

inline constexpr std::int32_t kNeverChosen = -1;
inline constexpr std::int32_t kUser = 0;
inline constexpr std::int32_t kConfiguration = 1;

inline constexpr const char* kNoFilter = "No Filter";
inline constexpr const char* kConfigurationPrefix = "0|";
inline constexpr const char* kEmptyUserFilter = "1|0";

}  // namespace KorWBNymNavFilterOptions
