#pragma once

#include <array>
#include <string>
#include <string_view>

namespace protocol {

/// Lines "part.quantity = value" about one part, as the programs print them, or "part.filter.quantity =
/// value" about what a filter leaves of it: part and filter in small letters with "_" for what is no letter,
/// digit or byte beyond ASCII, and 17 significant digits. A negative zero is written as zero.
class ValueLines {
 public:
  /// An empty filter: none.
  explicit ValueLines(std::string_view part, std::string_view filter = {});

  void Value(const std::string& quantity, double value);
  /// `name_x_unit` and so on.
  void Vector(const std::string& name, const std::array<double, 3>& xyz, const std::string& unit = "m");
  /// `name_xx_kgm2` and so on. Elements of the tensor in the order xx, yy, zz, xy, xz, yz, in kg·m².
  void Tensor(const std::string& name, const std::array<double, 6>& elements);

  const std::string& Text() const { return _text; }

 private:
  std::string _prefix;
  std::string _text;
};

}  // namespace protocol
