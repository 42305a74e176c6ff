#pragma once

#include <cstdint>
#include <vector>

#include "lumira/engine/FlatStructure.h"
#include "lumira/engine/NodeState.h"
#include "lumira/engine/ParallelPlan.h"
#include "lumira/engine/RollupKernel.h"

namespace lumira {

/// Whether the covariance of the sums is carried along (about three times the work).
enum class Spread { Ignore, Carry };

/// Everything that adds up to one part; `covariance` is nullptr when there are no deviations.
struct NodeSums {
  const NodeState& state;
  const Coverage& coverage;
  const NodeCovariance* covariance;
};

/// The sums of all nodes of a flat structure, computed bottom-up in one pass without allocating. A node's
/// sums depend on nothing but what is below it, so neither the order of nodes, nor threads, nor the processor
/// show in any bit.
class NodeRollup {
 public:
  /// `threads`: how many may work on large structures at once, 0 for as many as the machine runs.
  NodeRollup(FlatStructure structure, Spread spread, unsigned threads = 0,
             RollupKernel kernel = BestKernel());

  /// Computes all nodes anew.
  void Compute();
  /// Gives a part other numbers and computes what depends on them: the nodes above it up to the roots.
  /// Returns how many nodes were computed.
  std::size_t Change(std::uint32_t part, const GraphPart& changed);

  const FlatStructure& Structure() const { return _structure; }
  NodeSums SumsOf(std::uint32_t node) const;

 private:
  bool CarriesCovariance() const {
    return _spread == Spread::Carry && _structure.DeviationBlocks() != nullptr;
  }
  void Compute(NodeRange nodes);
  void AddUpCoverage(std::uint32_t node);

  FlatStructure _structure;
  Spread _spread;
  unsigned _threads;
  RollupKernel _kernel;
  ParallelPlan _plan;
  LargeVector<NodeState> _states;
  LargeVector<NodeCovariance> _covariances;
  LargeVector<Coverage> _coverages;
};

}  // namespace lumira
