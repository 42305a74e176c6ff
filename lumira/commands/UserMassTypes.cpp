#include "lumira/commands/UserMassTypes.h"

#include "lumira/commands/ComputedMassType.h"

namespace lumira {

void AddPrecision(protocol::MassType& type, const std::vector<Precision>& precisions) {
  for (const Precision& p : precisions) {
    if (p.massType != type.name) continue;
    type.precisionType = p.precisionType;
    type.precisionValueType = p.precisionValueType;
    type.lowerPrecision = p.lowerPrecision;
    type.upperPrecision = p.upperPrecision;
    type.massTypeLowerPrecision = p.massTypeLowerPrecision;
    type.massTypeUpperPrecision = p.massTypeUpperPrecision;
  }
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
