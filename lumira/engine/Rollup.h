#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "lumira/engine/Compile.h"
#include "lumira/engine/Fingerprint.h"
#include "lumira/engine/MassResult.h"
#include "lumira/engine/NodeRollup.h"
#include "lumira/engine/Warnings.h"
#include "protocol/Result.h"

namespace lumira {

/// What became of a change.
enum class Changed {
  PathComputed,  ///< everything that depends on the part is up to date again
  NeedsCompile,  ///< the change decides whether the part or its children count: compile the product again
};

/// The mass properties of all parts of a product, computed when the object is made and kept up to date.
/// Every question about a part fails with NotFound when the product has no part of that id.
class Rollup {
 public:
  explicit Rollup(CompiledProduct product, Spread spread = Spread::Carry);

  /// What the engine computes for a part: the roll-up of its children, or for a part without children its own
  /// numbers.
  protocol::Result<MassResult> ResultOf(std::string_view partId) const;
  /// What the part brings into its parents. It differs from `ResultOf` for an assembly whose own mass type
  /// replaces its children.
  protocol::Result<MassResult> ContributionOf(std::string_view partId) const;

  /// Of everything that `ResultOf` depends on. A stored result is up to date as long as this stays the same.
  protocol::Result<Fingerprint> FingerprintOf(std::string_view partId) const;

  /// What a user should know about `ResultOf`.
  protocol::Result<std::vector<Warning>> WarningsOf(std::string_view partId,
                                                    std::size_t maxExamples = 5) const;

  /// The data of a part changed (not its place in the structure). Computes the path from it to the roots.
  /// Fails as `Compile` does on bad numbers; then nothing changed.
  protocol::Result<Changed> ChangePart(const Part& part);

  /// How many nodes (assemblies, cut into bundles) have been computed since the object was made, all of them
  /// once for that. Tells what a change has cost.
  std::size_t ComputedNodes() const { return _computedNodes; }

 private:
  protocol::Result<std::uint32_t> IndexOf(std::string_view partId) const;
  MassResult Computed(std::uint32_t part) const;

  CompiledProduct _product;
  NodeRollup _nodes;  ///< owns the structure of `_product`
  std::size_t _computedNodes = 0;
};

}  // namespace lumira
