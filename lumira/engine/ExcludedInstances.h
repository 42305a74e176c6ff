#pragma once

#include <cstddef>
#include <vector>

#include "lumira/engine/StructureIndex.h"
#include "lumira/model/ConfigurationFilter.h"
#include "protocol/Result.h"

namespace lumira {

/// The instances that do not pass a configuration filter, by index in the product (see FilterCondition). What
/// is below them takes no part either, but only there; it is not marked. NotFound when a condition names an
/// instance or part that the product has not, BadValue when its values are not what its kind needs; the
/// message names the filter, the condition and the value.
protocol::Result<std::vector<bool>> ExcludedInstances(const StructureIndex& structure,
                                                      const ConfigurationFilter& filter);

/// How many instances of the product take no part anywhere: those that do not pass, and those that stand
/// below such ones only.
std::size_t CountLeftOut(const StructureIndex& structure, const std::vector<bool>& excluded);

}  // namespace lumira
