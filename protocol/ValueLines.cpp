#include "protocol/ValueLines.h"

#include <cctype>
#include <cstdio>

namespace protocol {
namespace {

constexpr std::array kAxes{"x", "y", "z"};
constexpr std::array kElements{"xx", "yy", "zz", "xy", "xz", "yz"};

std::string Prefix(std::string_view part) {
  std::string prefix;
  for (const char c : part) {
    const auto byte = static_cast<unsigned char>(c);
    prefix += std::isalnum(byte) != 0 || byte >= 0x80 ? static_cast<char>(std::tolower(byte)) : '_';
  }
  return prefix + ".";
}

}  // namespace

ValueLines::ValueLines(std::string_view part, std::string_view filter)
    : _prefix(Prefix(part) + (filter.empty() ? "" : Prefix(filter))) {}

void ValueLines::Value(const std::string& quantity, double value) {
  std::array<char, 40> digits{};
  // A negative zero says nothing that a zero does not.
  std::snprintf(digits.data(), digits.size(), "%.17g", value == 0 ? 0.0 : value);
  _text += _prefix + quantity + " = " + digits.data() + "\n";
}

void ValueLines::Vector(const std::string& name, const std::array<double, 3>& xyz, const std::string& unit) {
  for (std::size_t i = 0; i < xyz.size(); ++i) Value(name + "_" + kAxes[i] + "_" + unit, xyz[i]);
}

void ValueLines::Tensor(const std::string& name, const std::array<double, 6>& elements) {
  for (std::size_t i = 0; i < elements.size(); ++i) Value(name + "_" + kElements[i] + "_kgm2", elements[i]);
}

}  // namespace protocol
