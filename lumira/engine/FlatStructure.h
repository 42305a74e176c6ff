#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "lumira/engine/Coverage.h"
#include "lumira/engine/LargeMemory.h"
#include "lumira/engine/ProductGraph.h"
#include "lumira/engine/TopologicalOrder.h"

namespace lumira {

inline constexpr std::uint32_t kLanes = 4;       ///< items that the kernel treats at once
inline constexpr std::uint32_t kMaxFanOut = 64;  ///< items, and nodes, below one node
inline constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

/// Four items side by side with their placements in the node above: number k of each array belongs to lane k.
/// Quantities are already multiplied in. Unused lanes have a mass of zero and stand where lane 0 stands.
struct alignas(64) LeafBlock {
  double mass[kLanes] = {};             ///< kg; zero when the centre is not known
  double cg[3][kLanes] = {};            ///< part frame, m
  double inertia[6][kLanes] = {};       ///< xx yy zz xy xz yz about the cg, part axes, kg·m²
  double translation[3][kLanes] = {};   ///< m, node frame
  std::uint32_t rotation[kLanes] = {};  ///< indices into the table of rotations
};

/// The standard deviations of the same four items, of independent inputs. Those of n independent copies
/// together: mass and inertia √n times one copy's, the centre known √n times better.
struct alignas(64) DeviationBlock {
  double mass[kLanes] = {};        ///< kg
  double cg[3][kLanes] = {};       ///< m
  double inertia[6][kLanes] = {};  ///< kg·m²
};

/// A node placed in the node above it.
struct NodeEdge {
  std::uint32_t child = 0;     ///< node, always smaller than the one above
  std::uint32_t rotation = 0;  ///< index into the table of rotations
  double quantity = 1.0;
  Vec3 translation;  ///< m, frame of the node above
};

/// A product as the kernel reads it, front to back: nodes stand below those that use them. A node is a part
/// with children, or a bundle of at most `kMaxFanOut` children of a part that has more: bundles keep the sums
/// short (so that they stay accurate) and a change local. They have the frame of their part.
class FlatStructure {
 public:
  /// `order` is a valid bottom-up order of the graph's parts.
  FlatStructure(const ProductGraph& graph, const EdgesByParent& byParent,
                const std::vector<std::uint32_t>& order);

  std::uint32_t NodeCount() const { return static_cast<std::uint32_t>(_leafBegin.size() - 1); }
  /// The node of a part, `kNone` for a part without children.
  std::uint32_t NodeOf(std::uint32_t part) const { return _nodeOfPart[part]; }

  const LeafBlock* LeafBlocks() const { return _leafBlocks.data(); }
  /// nullptr when no item has a deviation.
  const DeviationBlock* DeviationBlocks() const { return _hasDeviations ? _deviationBlocks.data() : nullptr; }
  const NodeEdge* NodeEdges() const { return _nodeEdges.data(); }
  const std::uint32_t* LeafBegin() const { return _leafBegin.data(); }  ///< per node, into the blocks
  const std::uint32_t* EdgeBegin() const { return _edgeBegin.data(); }  ///< per node, into the node edges
  const double* Rotations() const { return _rotations.data(); }         ///< nine per rotation, row by row
  std::uint32_t RotationCount() const { return static_cast<std::uint32_t>(_rotations.size() / 9); }

  /// What the items directly below a node cover.
  const Coverage& OwnCoverage(std::uint32_t node) const { return _ownCoverage[node]; }
  /// The nodes that use a node.
  std::span<const std::uint32_t> ParentsOf(std::uint32_t node) const;

  /// Gives a part other numbers. Returns the nodes right above it, which are now out of date; a node that
  /// uses the part more than once may come more than once.
  std::vector<std::uint32_t> ChangeItem(std::uint32_t part, const GraphPart& changed);

 private:
  friend class FlatStructureBuilder;

  void WriteLane(std::uint32_t lane, const Item& item);
  void RefreshCoverage(std::uint32_t node);
  std::uint32_t NodeOfLane(std::uint32_t lane) const;

  std::vector<std::uint32_t> _nodeOfPart;
  LargeVector<LeafBlock> _leafBlocks;
  LargeVector<DeviationBlock> _deviationBlocks;
  bool _hasDeviations = false;
  LargeVector<NodeEdge> _nodeEdges;
  std::vector<std::uint32_t> _leafBegin{0};
  std::vector<std::uint32_t> _edgeBegin{0};
  LargeVector<double> _rotations;
  std::vector<Coverage> _ownCoverage;

  // Read by changes only, never by the kernel.
  std::vector<std::uint32_t> _partOfLane;  ///< `kNone` for an unused lane
  std::vector<double> _quantityOfLane;
  std::vector<std::uint32_t> _laneBegin, _lanes;      ///< the lanes of each part
  std::vector<std::uint32_t> _parentBegin, _parents;  ///< the nodes above each node
  std::vector<Coverage> _coverageOfPart;
};

}  // namespace lumira
