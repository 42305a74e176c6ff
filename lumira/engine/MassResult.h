#pragma once

#include <optional>

#include "lumira/engine/Coverage.h"
#include "lumira/engine/Item.h"
#include "lumira/engine/NodeRollup.h"
#include "lumira/model/Deviations.h"

namespace lumira {

/// Mass properties of a part as the engine answers them; kg, m, kg·m², frame of the part, tensor elements.
struct MassResult {
  /// Sum of all known masses; none when nothing below has a mass.
  std::optional<double> mass;
  /// Of the mass whose centre is known; none when that mass is zero (masses that cancel, or none).
  std::optional<Vec3> cg;
  /// About `cg`; items without an inertia of their own count as point masses. None without `cg`.
  std::optional<InertiaTensor> inertiaAtCg;
  Vec3 firstMoment;               ///< about the part's origin, kg·m; there even when the mass is zero
  InertiaTensor inertiaAtOrigin;  ///< about the part's origin; there even when the mass is zero
  /// Standard deviations to first order of mass, `cg` and `inertiaAtCg`; zero for those that are missing
  /// above. None when deviations were not carried, or no item has any.
  std::optional<Deviations> deviations;
  /// What the result covers. `coverage.lower` and `upper`: the mass lies between mass - lower and mass +
  /// upper in the worst case, as far as items have bounds (`withoutBounds` says how many have none).
  Coverage coverage;
};

/// The answer for a part with children.
MassResult ResultFrom(const NodeSums& sums);

/// The answer for one occurrence of a part that brings its own numbers.
MassResult ResultFrom(const GraphPart& part);

}  // namespace lumira
