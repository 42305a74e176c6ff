#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "lumira/model/Effectivity.h"
#include "lumira/model/InstanceAttribute.h"
#include "lumira/model/Placement.h"

namespace lumira {

/// One use of a part in a parent part.
struct Instance {
  std::string id;             ///< unique in its product
  std::string parent;         ///< part id
  std::string child;          ///< part id
  std::int64_t quantity = 1;  ///< coincident copies, 1 or more, each a physical item of its own
  Placement placement;
  /// What configuration filters look at; neither enters a computation without a filter.
  Effectivity effectivity = {};
  std::vector<InstanceAttribute> attributes = {};

  friend bool operator==(const Instance&, const Instance&) = default;
};

}  // namespace lumira
