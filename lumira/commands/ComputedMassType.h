#pragma once

#include "lumira/commands/WireNumbers.h"
#include "lumira/engine/MassResult.h"
#include "lumira/model/MassTypeData.h"
#include "protocol/PartData.h"

namespace lumira {

/// A result of the engine as the computed mass type. Its bounds are there when any item has limits of its
/// mass: the engine's worst case, which knows limits only, and on top of it one standard deviation of each
/// item that has no limits but a standard deviation. An item with neither adds nothing.
inline MassTypeData ToMassType(const MassResult& result) {
  MassTypeData type{.name = std::string(kComputedMassType),
                    .properties = {result.mass, result.cg, result.inertiaAtCg},
                    .deviations = result.deviations.value_or(Deviations{}),
                    .bounds = std::nullopt};
  const Coverage& coverage = result.coverage;
  if (coverage.withBounds > 0)
    type.bounds = MassBounds{coverage.lower + coverage.spreadWithoutBounds,
                             coverage.upper + coverage.spreadWithoutBounds};
  return type;
}

/// Mass data as it goes over the wire. The deviations of the mass are the bounds where there are any, else
/// plus and minus the standard deviation, else 0.
inline protocol::MassType ToWire(const MassTypeData& data, protocol::MassTypeStatus status) {
  protocol::MassType type;
  type.name = data.name;
  type.status = status;
  type.mass = data.properties.mass;
  if (data.properties.cg) type.cg = ToWire(*data.properties.cg);
  if (data.properties.inertia) type.inertia = ToWire(*data.properties.inertia);
  type.lowerDeviation = data.bounds ? data.bounds->lower : data.deviations.mass;
  type.upperDeviation = data.bounds ? data.bounds->upper : data.deviations.mass;
  return type;
}

}  // namespace lumira
