#pragma once

#include <cstddef>
#include <iterator>

#include "lumira/model/PropertyDefinition.h"
#include "protocol/PartData.h"

namespace lumira {

/// What a type of property is on the wire.
struct WirePropertyType {
  int type;
  bool isDate, isMagnitude;
};

/// In the order of PropertyType.
inline constexpr WirePropertyType kWirePropertyTypes[] = {
    {3, false, false}, {1, false, false}, {1, true, false}, {2, false, false}, {2, false, true}};

/// A property without a value, as clients are told it.
inline protocol::ExtraProperty ToWire(const PropertyDefinition& property) {
  const WirePropertyType& wire = kWirePropertyTypes[static_cast<std::size_t>(property.type)];
  return {property.name, {}, wire.type, wire.isDate, wire.isMagnitude, property.magnitude};
}

/// The definition of a property that `ToWire` has told.
inline PropertyDefinition DefinitionOf(const protocol::ExtraProperty& property) {
  std::size_t type = 0;
  for (std::size_t i = 0; i < std::size(kWirePropertyTypes); ++i) {
    const WirePropertyType& wire = kWirePropertyTypes[i];
    if (wire.type == property.type && wire.isDate == property.isDate &&
        wire.isMagnitude == property.isMagnitude)
      type = i;
  }
  return {property.name, static_cast<PropertyType>(type), property.magnitude};
}

}  // namespace lumira
