#pragma once

#include <string>
#include <vector>

namespace lumira {

/// A named filter of a product: the instances that it leaves out, with everything below them.
struct ConfigurationFilter {
  std::string name;
  std::vector<std::string> excludedInstances;  ///< instance ids

  friend bool operator==(const ConfigurationFilter&, const ConfigurationFilter&) = default;
};

}  // namespace lumira
