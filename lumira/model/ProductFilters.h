#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lumira/model/ConfigurationFilter.h"

namespace lumira {

/// The configuration filters of a product, and the one that is set on it for everybody (its configuration
/// handler): the name of one of them, or none.
struct ProductFilters {
  std::vector<ConfigurationFilter> filters = {};
  std::optional<std::string> handler = {};

  friend bool operator==(const ProductFilters&, const ProductFilters&) = default;
};

}  // namespace lumira
