#pragma once

#include <cstdint>

#include "lumira/engine/ProductGraph.h"
#include "lumira/model/Product.h"

namespace bench {

/// How many different rotations the placements of a structure have.
enum class Rotations { AllDifferent, OfSixtyFour };

/// `items` parts, each placed once, eight to an assembly, eight assemblies to the next, up to one root, which
/// is the last part. Placements are turned and moved at random; masses, inertias and deviations are random.
lumira::ProductGraph EightEach(std::uint32_t items, Rotations rotations);

/// `links` assemblies, each with one part of its own and the next assembly; the top is the last part.
lumira::ProductGraph Chain(std::uint32_t links, Rotations rotations);

/// `levels` levels of `width` parts; each part places eight of the level below. The root, last, places `top`
/// of the highest level: top · 8^(levels - 1) occurrences of items.
lumira::ProductGraph Shared(std::uint32_t levels, std::uint32_t width, std::uint32_t top);

/// The same as a graph, as it would come from the store.
lumira::Product AsProduct(const lumira::ProductGraph& graph);

}  // namespace bench
