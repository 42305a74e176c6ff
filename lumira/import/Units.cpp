#include "lumira/import/Units.h"

#include <numbers>
#include <utility>

namespace lumira {
namespace {

// Exact by definition: the international pound and inch (agreement of 1959).
constexpr double kPound = 0.45359237;
constexpr double kInch = 0.0254;
constexpr double kFoot = 12 * kInch;

constexpr double Cube(double x) { return x * x * x; }

struct Unit {
  Quantity quantity;
  std::string_view name;
  double si;
};

constexpr Unit kUnits[] = {
    {Quantity::Mass, "kg", 1},
    {Quantity::Mass, "g", 1e-3},
    {Quantity::Mass, "t", 1e3},
    {Quantity::Mass, "lb", kPound},
    {Quantity::Length, "m", 1},
    {Quantity::Length, "mm", 1e-3},
    {Quantity::Length, "cm", 1e-2},
    {Quantity::Length, "in", kInch},
    {Quantity::Length, "ft", kFoot},
    {Quantity::Inertia, "kg m2", 1},
    {Quantity::Inertia, "kg mm2", 1e-6},
    {Quantity::Inertia, "g mm2", 1e-9},
    {Quantity::Inertia, "g cm2", 1e-7},
    {Quantity::Inertia, "t m2", 1e3},
    {Quantity::Inertia, "t mm2", 1e-3},
    {Quantity::Inertia, "lb in2", kPound* kInch* kInch},
    {Quantity::Inertia, "lb ft2", kPound* kFoot* kFoot},
    {Quantity::Angle, "rad", 1},
    {Quantity::Angle, "deg", std::numbers::pi / 180},
    {Quantity::Density, "kg/m3", 1},
    {Quantity::Density, "g/cm3", 1e3},
    {Quantity::Density, "t/m3", 1e3},
    {Quantity::Density, "lb/in3", kPound / Cube(kInch)},
    {Quantity::Density, "lb/ft3", kPound / Cube(kFoot)},
    {Quantity::Volume, "m3", 1},
    {Quantity::Volume, "mm3", 1e-9},
    {Quantity::Volume, "cm3", 1e-6},
    {Quantity::Volume, "in3", Cube(kInch)},
    {Quantity::Volume, "ft3", Cube(kFoot)},
    {Quantity::ShapeInertia, "m5", 1},
    {Quantity::ShapeInertia, "mm5", 1e-15},
    {Quantity::ShapeInertia, "in5", Cube(kInch) * kInch* kInch},
    {Quantity::SurfaceMass, "kg/m2", 1},
    {Quantity::SurfaceMass, "g/m2", 1e-3},
    {Quantity::SurfaceMass, "g/cm2", 10},
    {Quantity::SurfaceMass, "lb/ft2", kPound / (kFoot * kFoot)},
    {Quantity::SurfaceMass, "lb/in2", kPound / (kInch * kInch)},
    {Quantity::Fraction, "%", 1e-2},
};

constexpr std::pair<std::string_view, std::string_view> kSpellings[] = {
    {" ", ""}, {"^", ""}, {"*", ""}, {"·", ""}, {"⋅", ""}, {"²", "2"}, {"³", "3"}, {"⁵", "5"}, {"°", "deg"}};

std::string Plain(std::string_view unit) {
  std::string plain(unit);
  for (const auto& [from, to] : kSpellings)
    for (std::size_t at = plain.find(from); at != plain.npos; at = plain.find(from, at + to.size()))
      plain.replace(at, from.size(), to);
  return plain;
}

}  // namespace

bool HasUnit(Quantity quantity) { return quantity > Quantity::Number; }

std::optional<double> FindUnit(Quantity quantity, std::string_view name) {
  const std::string plain = Plain(name);
  for (const Unit& unit : kUnits)
    if (unit.quantity == quantity && Plain(unit.name) == plain) return unit.si;
  return std::nullopt;
}

std::string UnitList(Quantity quantity) {
  std::string list;
  for (const Unit& unit : kUnits)
    if (unit.quantity == quantity) list.append(list.empty() ? "" : ", ").append(unit.name);
  return list;
}

}  // namespace lumira
