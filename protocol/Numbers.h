#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace protocol {

/// The shortest text that reads back to the same bits.
std::string FormatNumber(double value);

/// A finite number, the whole text of it: no blanks, no leading "+", no overflow or underflow. Otherwise
/// none.
std::optional<double> ParseNumber(std::string_view text);

/// A decimal integer, the whole text of it, inside the range of `long long`. Otherwise none.
std::optional<long long> ParseInteger(std::string_view text);

}  // namespace protocol
