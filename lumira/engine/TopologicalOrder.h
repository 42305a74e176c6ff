#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "lumira/engine/ProductGraph.h"

namespace lumira {

/// The edges of each parent, one range after the other: those of part p are
/// `edges[begin[p]] … edges[begin[p + 1] - 1]`, indices into the graph's edges in the graph's order.
struct EdgesByParent {
  std::vector<std::uint32_t> begin;
  std::vector<std::uint32_t> edges;

  std::span<const std::uint32_t> Of(std::uint32_t part) const {
    return {edges.data() + begin[part], edges.data() + begin[part + 1]};
  }
};

EdgesByParent GroupByParent(const ProductGraph& graph);

/// An order of all parts in which every child stands before its parents, each subtree close together.
struct TopologicalOrder {
  std::vector<std::uint32_t> order;
  std::vector<std::uint32_t>
      cycle;  ///< not empty: no order exists; a chain of parts that ends where it began
};

TopologicalOrder OrderBottomUp(const ProductGraph& graph, const EdgesByParent& byParent);

}  // namespace lumira
