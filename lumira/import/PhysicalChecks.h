#pragma once

#include <string>
#include <vector>

#include "lumira/import/ImportLog.h"
#include "lumira/model/Geometry.h"
#include "lumira/model/MassProperties.h"

namespace lumira {

/// What no body of ordinary matter can have, as sentences; empty when all is well. `rounding` (kg·m²) is how
/// much each element of the tensor may be off because the figures are rounded; within it, thin plates and
/// rods pass. Mass properties of a negative mass are looked at with the sign turned. Inertia that counts
/// nowhere, for want of a mass or a centre of gravity, is a problem as well.
std::vector<std::string> FindPhysicalProblems(const MassProperties& properties,
                                              const InertiaTensor& rounding);

/// The same of a shape; `rounding` in m⁵.
std::vector<std::string> FindShapeProblems(const Geometry& shape, const InertiaTensor& rounding);

/// Logs a warning of each problem that the row of a part has.
void WarnOf(const std::vector<std::string>& problems, const Place& row, const std::string& partId,
            ImportLog& log);

}  // namespace lumira
