#include "lumira/engine/RollupKernel.h"

namespace lumira {

RollupKernel BestKernel() {
#if defined(__x86_64__)
  if (__builtin_cpu_supports("avx2")) return RollUpNodesAvx2;
#endif
  return RollUpNodesBaseline;
}

}  // namespace lumira
