#pragma once

#include <vector>

#include "lumira/model/MassTypeData.h"
#include "lumira/model/Precision.h"
#include "protocol/PartData.h"

namespace lumira {

void SetPrecision(protocol::MassType& type, const Precision& precision);

/// Gives a mass type its precision, when there is one of its name.
void AddPrecision(protocol::MassType& type, const std::vector<Precision>& precisions);

/// The values that a client sends.
MassProperties PropertiesOf(const protocol::MassType& type);

/// User mass types as they go over the wire.
std::vector<protocol::MassType> ToWire(const std::vector<MassTypeData>& types,
                                       const std::vector<Precision>& precisions);

}  // namespace lumira
