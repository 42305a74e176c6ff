#pragma once

#include <string>

namespace lumira {

/// Something that is said of one instance, such as the system or the zone that it belongs to.
struct InstanceAttribute {
  std::string name;   ///< unique in its instance
  std::string value;  ///< never empty

  friend bool operator==(const InstanceAttribute&, const InstanceAttribute&) = default;
};

}  // namespace lumira
