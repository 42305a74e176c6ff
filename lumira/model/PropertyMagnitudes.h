#pragma once

#include <optional>
#include <string_view>

namespace lumira {

/// A kind of physical quantity that an extra property may have, and the unit in which its values are stored
/// and sent.
struct PropertyMagnitude {
  std::string_view name;
  std::string_view storageUnit;
};

inline constexpr PropertyMagnitude kPropertyMagnitudes[] = {
    {"LENGTH", "m"},   {"MASS", "kg"},     {"DENSITY", "kg/m3"},      {"INERTIAMOMENT", "kg m2"},
    {"AREA", "m2"},    {"VOLUME", "m3"},   {"SURFACICMASS", "kg/m2"}, {"LINEICMASS", "kg/m"},
    {"ANGLE", "rad"},  {"TIME", "s"},      {"TEMPERATURE", "K"},      {"FORCE", "N"},
    {"TORQUE", "N m"}, {"PRESSURE", "Pa"}, {"SPEED", "m/s"},          {"ACCELERATION", "m/s2"},
    {"ENERGY", "J"},   {"POWER", "W"},     {"FREQUENCY", "Hz"},
};

/// The magnitude of that name; nullptr when there is none.
inline const PropertyMagnitude* FindMagnitude(std::string_view name) {
  for (const PropertyMagnitude& magnitude : kPropertyMagnitudes)
    if (magnitude.name == name) return &magnitude;
  return nullptr;
}

}  // namespace lumira
