#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lumira {

/// What the numbers of a column are.
enum class Quantity {
  Text,
  Flag,
  Count,
  Number,
  Mass,
  Length,
  Inertia,
  Angle,
  Density,
  Volume,
  ShapeInertia,
  SurfaceMass,
  Fraction
};

/// Whether a column of this quantity names a unit in its title.
bool HasUnit(Quantity quantity);

/// How many SI units (kg, m, kg·m², rad, kg/m³, m³, m⁵, kg/m², 1) one of the named unit is. Blanks, "^", "*"
/// and "·" do not matter, and "²", "³" and "⁵" are 2, 3 and 5. None when the quantity has no such unit.
std::optional<double> FindUnit(Quantity quantity, std::string_view unit);

/// The units of a quantity as a message lists them.
std::string UnitList(Quantity quantity);

}  // namespace lumira
