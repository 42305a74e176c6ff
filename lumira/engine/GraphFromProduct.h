#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "lumira/engine/ProductGraph.h"
#include "lumira/model/Product.h"
#include "protocol/Result.h"

namespace lumira {

/// What a product is compiled for.
struct CompileOptions {
  MassTypeChoice massType;
  /// Instances (by id) that are left out, with everything that is below them there.
  std::unordered_set<std::string> excludedInstances;
  /// Parts (by id) that stand for some of what is in them only. Like every assembly that something is left
  /// out of, they are the sum of what is below them; data of their own do not count.
  std::unordered_set<std::string> partlyKept = {};
};

/// A product by numbers, with the names that belong to them.
struct NamedGraph {
  ProductGraph graph;
  std::vector<std::string> partIds;
  std::unordered_map<std::string, std::uint32_t> partIndex;
};

/// Turns names into numbers and checks every number. The edges of a parent come out ordered by instance id,
/// so that the order of storage never shows in a sum. Fails with BadValue on: a part or instance id that is
/// not unique; a number that is not finite; a placement that is no rotation (tolerance `kRotationTolerance`);
/// a quantity below 1. With NotFound on: an instance, root or exclusion that names what is not there. The
/// message names the part or instance, the value and the limit.
protocol::Result<NamedGraph> GraphFromProduct(const Product& product, const CompileOptions& options);

}  // namespace lumira
