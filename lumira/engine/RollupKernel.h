#pragma once

#include <cstdint>

#include "lumira/engine/FlatStructure.h"
#include "lumira/engine/NodeState.h"

namespace lumira {

/// What the kernel reads and writes; plain pointers into arrays that the caller owns.
struct KernelArrays {
  const LeafBlock* leafBlocks = nullptr;
  const DeviationBlock* deviationBlocks = nullptr;
  const NodeEdge* nodeEdges = nullptr;
  const std::uint32_t* leafBegin = nullptr;
  const std::uint32_t* edgeBegin = nullptr;
  const double* rotations = nullptr;
  NodeState* states = nullptr;
  NodeCovariance* covariances = nullptr;  ///< nullptr: without covariance
};

/// Computes the nodes from `first` up to but not including `last`, in that order; all nodes below them
/// outside of the range have to be computed. Every variant gives the same bits.
using RollupKernel = void (*)(const KernelArrays& arrays, std::uint32_t first, std::uint32_t last);

/// The fastest variant that this processor can run.
RollupKernel BestKernel();

void RollUpNodesBaseline(const KernelArrays& arrays, std::uint32_t first, std::uint32_t last);
/// Only where the processor has AVX2.
void RollUpNodesAvx2(const KernelArrays& arrays, std::uint32_t first, std::uint32_t last);

}  // namespace lumira
