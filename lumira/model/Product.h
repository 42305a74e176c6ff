#pragma once

#include <string>
#include <vector>

#include "lumira/model/Instance.h"
#include "lumira/model/Part.h"

namespace lumira {

/// A product structure as it is stored: parts are shared, instances place them. The order of the
/// vectors carries no meaning.
struct Product {
  std::string id;
  std::vector<Part> parts;
  std::vector<Instance> instances;
  std::vector<std::string> roots;  ///< part ids, the top of the tree; usually one

  friend bool operator==(const Product&, const Product&) = default;
};

}  // namespace lumira
