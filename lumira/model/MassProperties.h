#pragma once

#include <optional>

#include "lumira/model/InertiaTensor.h"
#include "lumira/model/Vec3.h"

namespace lumira {

/// What is known of a part's mass properties, in the part's own frame. Each piece may be missing.
struct MassProperties {
  std::optional<double> mass;            ///< kg; negative for a cut-out or a removed item
  std::optional<Vec3> cg;                ///< centre of gravity, m
  std::optional<InertiaTensor> inertia;  ///< about the own centre of gravity, part axes, kg·m²

  friend bool operator==(const MassProperties&, const MassProperties&) = default;
};

}  // namespace lumira
