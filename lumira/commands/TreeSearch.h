#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "lumira/commands/OpenProduct.h"

namespace lumira {

/// One place in a product: the root and the instances that lead down from it.
struct FoundOccurrence {
  std::uint32_t root = 0;                ///< part
  std::vector<std::uint32_t> instances;  ///< from the root down; empty for the root itself
};

struct FoundOccurrences {
  std::vector<FoundOccurrence> hits;  ///< in the order of the tree, at most as many as wanted
  bool cut = false;                   ///< there are more
};

/// The occurrences whose part identifier, part name or instance identifier contains the text; upper and lower
/// case of ASCII letters are the same. Takes time for the parts and the hits, however often parts are shared.
FoundOccurrences SearchOccurrences(const OpenProduct& product, std::string_view text, std::size_t limit);

/// Every occurrence of a part.
FoundOccurrences OccurrencesOf(const OpenProduct& product, std::uint32_t part, std::size_t limit);

}  // namespace lumira
