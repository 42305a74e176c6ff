#include "lumira/engine/Coverage.h"

#include "lumira/engine/ProductGraph.h"

namespace lumira {

Coverage CoverageOf(const GraphPart& part) {
  if (part.isHollow) return {};
  const auto& item = part.item;
  const bool negative = item.mass < 0.0;
  const bool loose = item.massKnown && !item.cgKnown;
  Coverage coverage;
  coverage.items = 1.0;
  coverage.withoutMass = item.massKnown ? 0.0 : 1.0;
  coverage.withoutCg = loose ? 1.0 : 0.0;
  coverage.withoutInertia = item.cgKnown && !item.inertiaKnown ? 1.0 : 0.0;
  coverage.negative = negative ? 1.0 : 0.0;
  coverage.withBounds = item.boundsKnown ? 1.0 : 0.0;
  coverage.withoutBounds = item.massKnown && !item.boundsKnown ? 1.0 : 0.0;
  coverage.replacing = part.replacesChildren ? 1.0 : 0.0;
  coverage.massWithoutCg = loose ? item.mass : 0.0;
  coverage.varianceWithoutCg = loose ? item.deviations.mass * item.deviations.mass : 0.0;
  coverage.massWithInertia = item.inertiaKnown ? item.mass : 0.0;
  coverage.lower = negative ? item.bounds.upper : item.bounds.lower;
  coverage.upper = negative ? item.bounds.lower : item.bounds.upper;
  coverage.spreadWithoutBounds = item.boundsKnown ? 0.0 : item.deviations.mass;
  return coverage;
}

}  // namespace lumira
