#pragma once

#include <optional>

#include "lumira/model/InertiaTensor.h"
#include "lumira/model/Vec3.h"

namespace lumira {

/// What the shape of a part gives without its material, in the part's own frame.
struct Geometry {
  double volume = 0.0;                       ///< m³
  std::optional<Vec3> centroid;              ///< m
  std::optional<InertiaTensor> unitInertia;  ///< about the centroid, for a density of 1 kg/m³: m⁵

  friend bool operator==(const Geometry&, const Geometry&) = default;
};

}  // namespace lumira
