#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "lumira/engine/FingerprintIndex.h"
#include "lumira/engine/FlatStructure.h"
#include "lumira/engine/GraphFromProduct.h"
#include "lumira/model/Product.h"
#include "protocol/Result.h"

namespace lumira {

/// The children of every part, by number; for questions about the structure, not for sums.
struct ChildIndex {
  std::vector<std::uint32_t> begin;     ///< per part, into `children`
  std::vector<std::uint32_t> children;  ///< parts, as often as they are placed

  std::span<const std::uint32_t> Of(std::uint32_t part) const {
    return {children.data() + begin[part], children.data() + begin[part + 1]};
  }
};

/// A product made ready for roll-ups. It keeps nothing of the `Product` that it came from.
struct CompiledProduct {
  std::vector<std::string> partIds;
  std::unordered_map<std::string, std::uint32_t> partIndex;
  std::vector<GraphPart> parts;
  ChildIndex children;
  MassTypeChoice massType;
  FlatStructure structure;
  FingerprintIndex fingerprints;
};

/// Checks a product and lays it out as flat arrays, shared subtrees once.
///
/// Which data counts where: a part that has a mass in the chosen mass type counts with it, and replaces what
/// is below it when it has children. Any other part with children is their roll-up; a shape of its own is not
/// added (its children are taken to be its shape). Any other part without children counts with volume ×
/// density if the computed type was asked for, or is counted as an item without data.
///
/// Fails as `GraphFromProduct` does, and with Conflict on a cycle: the message names the chain of parts.
protocol::Result<CompiledProduct> Compile(const Product& product, const CompileOptions& options = {});

/// What `Compile` would fail with, without laying anything out.
protocol::Result<void> CheckCompiles(const Product& product);

}  // namespace lumira
