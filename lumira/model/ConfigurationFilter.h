#pragma once

#include <string>
#include <vector>

#include "lumira/model/FilterCondition.h"

namespace lumira {

/// A named filter of a product. An instance takes part when every condition lets it pass and everything above
/// it takes part; without conditions all do.
struct ConfigurationFilter {
  std::string name;              ///< unique in its product
  std::string description = {};  ///< for people; may be empty
  std::vector<FilterCondition> conditions = {};

  friend bool operator==(const ConfigurationFilter&, const ConfigurationFilter&) = default;
};

}  // namespace lumira
