#include "protocol/Numbers.h"

#include <charconv>
#include <cmath>
#include <system_error>

namespace protocol {
namespace {

template <class T>
std::optional<T> ParseWhole(std::string_view text) {
  T value{};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc{} || stop != end) return std::nullopt;
  return value;
}

}  // namespace

std::string FormatNumber(double value) {
  char buffer[32];
  const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value);
  return {buffer, end};
}

std::optional<double> ParseNumber(std::string_view text) {
  const auto value = ParseWhole<double>(text);
  return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<long long> ParseInteger(std::string_view text) { return ParseWhole<long long>(text); }

}  // namespace protocol
