#include "lumira/engine/RollupKernel.h"

// Not a header: each kernel has a copy of its own, compiled for its own processor.
#include "lumira/engine/RollupKernelBody.inc"

namespace lumira {

void RollUpNodesBaseline(const KernelArrays& arrays, std::uint32_t first, std::uint32_t last) {
  RollUpNodes(arrays, first, last);
}

}  // namespace lumira
