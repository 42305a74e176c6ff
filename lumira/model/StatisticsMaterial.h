#pragma once

#include <compare>
#include <optional>
#include <string_view>

#include "lumira/model/Part.h"

namespace lumira {

/// A material as the statistics of a part list it; each one once. The name is that of a part, and as long
/// there.
struct StatisticsMaterial {
  static constexpr int kDensityKind = 1, kSurfaceMassKind = 2;

  std::string_view name;
  double density = 0;  ///< kg/m³, or kg/m² of sheet material
  int kind = kDensityKind;

  friend auto operator<=>(const StatisticsMaterial&, const StatisticsMaterial&) = default;
};

/// The name that goes with the density that counts.
inline std::string_view MaterialNameOf(const Part& part) {
  const bool isCad = part.densityPriority == DensityPriority::CadFirst && part.cadDensity;
  return isCad || part.material.empty() ? part.cadMaterial : part.material;
}

/// None for a part without the name of a material, or without a density of it.
inline std::optional<StatisticsMaterial> MaterialOf(const Part& part) {
  const std::string_view name = MaterialNameOf(part);
  if (name.empty()) return std::nullopt;
  if (part.surfaceMass)
    return StatisticsMaterial{name, *part.surfaceMass, StatisticsMaterial::kSurfaceMassKind};
  const auto density = EffectiveDensity(part);
  return density ? std::optional(StatisticsMaterial{name, *density, StatisticsMaterial::kDensityKind})
                 : std::nullopt;
}

}  // namespace lumira
