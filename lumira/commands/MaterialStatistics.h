#pragma once

#include <cstdint>
#include <vector>

#include "lumira/engine/StructureIndex.h"
#include "protocol/PartData.h"

namespace lumira {

/// The materials of a part and of all parts below it, each with its density (or surface mass, for sheet
/// material) once, in the order in which a walk down the tree meets them. Parts that are used in several
/// places are looked at once.
std::vector<protocol::MaterialStatistic> MaterialStatistics(const StructureIndex& structure,
                                                            std::uint32_t part);

}  // namespace lumira
