#pragma once

#include <cstdint>
#include <vector>

#include "lumira/engine/Item.h"
#include "lumira/model/Placement.h"

namespace lumira {

/// What a part is in a graph: its own numbers, and whether they stand for what is below it.
struct GraphPart {
  Item item;
  bool replacesChildren = false;  ///< the item counts in parents although the part has children
  bool isHollow = false;      ///< an assembly of which everything was left out: nothing, rather than unknown
  bool isPartlyKept = false;  ///< an assembly whose own data do not count since something was left out of it
};

/// One instance: `child` placed in `parent`, both indices of parts.
struct GraphEdge {
  std::uint32_t parent = 0;
  std::uint32_t child = 0;
  double quantity = 1.0;  ///< coincident copies, a positive integer
  Placement placement;
};

/// A product by numbers: what the compile step makes its flat arrays from. The sums of a parent are taken in
/// the order of its edges here, so that order has to be canonical (see `GraphFromProduct`).
struct ProductGraph {
  std::vector<GraphPart> parts;
  std::vector<GraphEdge> edges;
};

}  // namespace lumira
