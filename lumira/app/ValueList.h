#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "lumira/model/Deviations.h"
#include "lumira/model/MassProperties.h"
#include "lumira/model/Placement.h"
#include "protocol/PartData.h"

namespace lumira {

/// Mass properties in the part's own frame, and where the part stands in the root part.
struct ComputedValues {
  std::string part;
  MassProperties properties;
  double lowerDeviation = 0;  ///< of the mass, kg
  double upperDeviation = 0;
  Deviations deviations;
  Placement placement;  ///< in the root part, or nowhere in particular
  /// About the part's origin, kg·m; there when masses add up to zero.
  std::optional<Vec3> firstMoment = std::nullopt;
  /// About the part's origin, kg·m²; there when masses add up to zero.
  std::optional<InertiaTensor> inertiaAtOrigin = std::nullopt;
};

/// Writes a line "name = value" for each quantity, in SI units with 17 significant digits. Names begin with
/// the part in small letters. The centre of gravity (`cg`) is in the frame of the placement; `inertia_cg` is
/// about it in the part's own axes; `inertia_ref` is about the origin of that frame, in its axes; `sd_` are
/// standard deviations in the part's own frame. `first_moment` and `inertia_origin` are about the part's
/// origin in its own axes. What is not known has no line; deviations that are all zero are not known.
void WriteValues(std::ostream& out, const ComputedValues& values);

}  // namespace lumira
