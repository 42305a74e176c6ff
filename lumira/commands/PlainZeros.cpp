#include "lumira/commands/PlainZeros.h"

#include <algorithm>

namespace lumira {
namespace {

void PlainZero(double& number) { number += 0.0; }

void PlainZeros(protocol::MassType& type) {
  if (type.mass) PlainZero(*type.mass);
  if (type.cg) std::ranges::for_each(*type.cg, PlainZero);
  if (type.inertia) std::ranges::for_each(*type.inertia, PlainZero);
  for (double protocol::MassType::*field :
       {&protocol::MassType::lowerDeviation, &protocol::MassType::upperDeviation,
        &protocol::MassType::lowerPrecision, &protocol::MassType::upperPrecision})
    PlainZero(type.*field);
}

}  // namespace

protocol::PartData WithPlainZeros(protocol::PartData data) {
  for (protocol::MassType& type : data.massTypes) PlainZeros(type);
  if (data.material.density) PlainZero(*data.material.density);
  return data;
}

}  // namespace lumira
