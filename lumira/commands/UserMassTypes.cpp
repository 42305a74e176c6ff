#include "lumira/commands/UserMassTypes.h"

#include "lumira/commands/ComputedMassType.h"
#include "lumira/commands/WireNumbers.h"

namespace lumira {

void SetPrecision(protocol::MassType& type, const Precision& precision) {
  type.precisionType = precision.precisionType;
  type.precisionValueType = precision.precisionValueType;
  type.lowerPrecision = precision.lowerPrecision;
  type.upperPrecision = precision.upperPrecision;
  type.massTypeLowerPrecision = precision.massTypeLowerPrecision;
  type.massTypeUpperPrecision = precision.massTypeUpperPrecision;
}

void AddPrecision(protocol::MassType& type, const std::vector<Precision>& precisions) {
  for (const Precision& precision : precisions)
    if (precision.massType == type.name) SetPrecision(type, precision);
}

MassProperties PropertiesOf(const protocol::MassType& type) {
  MassProperties properties{type.mass, {}, {}};
  if (type.cg) properties.cg = FromWire(*type.cg);
  if (type.inertia) properties.inertia = FromWire(*type.inertia);
  return properties;
}

std::vector<protocol::MassType> ToWire(const std::vector<MassTypeData>& types,
                                       const std::vector<Precision>& precisions) {
  using protocol::MassTypeStatus;
  std::vector<protocol::MassType> wire;
  for (const MassTypeData& data : types) {
    const bool hasValues = data.properties != MassProperties{};
    wire.push_back(ToWire(data, hasValues ? MassTypeStatus::Defined : MassTypeStatus::Undefined));
    AddPrecision(wire.back(), precisions);
  }
  return wire;
}

}  // namespace lumira
