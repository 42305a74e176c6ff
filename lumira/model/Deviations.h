#pragma once

#include "lumira/model/InertiaTensor.h"
#include "lumira/model/Vec3.h"

namespace lumira {

/// Standard deviations of mass properties, each 0 or above; 0 says that none is known.
/// Those of one item are taken as independent of each other.
struct Deviations {
  double mass = 0.0;      ///< kg
  Vec3 cg;                ///< per coordinate, m
  InertiaTensor inertia;  ///< per element of the tensor about the own centre of gravity, kg·m²

  friend bool operator==(const Deviations&, const Deviations&) = default;
};

}  // namespace lumira
