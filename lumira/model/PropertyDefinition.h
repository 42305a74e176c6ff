#pragma once

#include <string>

namespace lumira {

/// What the values of an extra property are.
enum class PropertyType {
  Text = 0,       ///< anything
  Integer = 1,    ///< a whole number of 32 bits
  Date = 2,       ///< a day as YYYY-MM-DD
  Real = 3,       ///< a finite number
  Magnitude = 4,  ///< a finite number in the storage unit of a magnitude
};

/// An extra property that every part of a product has; a part without a value for it has an empty one.
struct PropertyDefinition {
  std::string name;  ///< unique in its product
  PropertyType type = PropertyType::Text;
  std::string magnitude = {};  ///< model/PropertyMagnitudes.h; empty unless the type is Magnitude

  friend bool operator==(const PropertyDefinition&, const PropertyDefinition&) = default;
};

}  // namespace lumira
