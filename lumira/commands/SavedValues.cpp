#include "lumira/commands/SavedValues.h"

#include <algorithm>
#include <utility>

#include "lumira/commands/ComputedMassType.h"
#include "lumira/commands/PlainZeros.h"
#include "lumira/commands/UserMassTypes.h"
#include "lumira/commands/WireNumbers.h"
#include "lumira/store/ActiveDocument.h"

namespace lumira {
namespace {

using protocol::PartData;

std::vector<protocol::MassType> MassTypesOf(const Part& part, const PartDetails& details) {
  std::vector<protocol::MassType> types(1);
  types.front().name = std::string(kComputedMassType);
  AddPrecision(types.front(), details.precisions);
  for (protocol::MassType& type : ToWire(part.massTypes, details.precisions))
    types.push_back(std::move(type));
  return types;
}

// None where nothing is known, which is told by zeros elsewhere.
SavedDeviations SavedDeviationsOf(const MassTypeData& type) {
  SavedDeviations saved;
  const auto& [mass, cg, inertia] = type.deviations;
  if (mass != 0) saved.mass = mass;
  if (cg != Vec3{}) saved.cg = ToWire(cg);
  if (inertia != InertiaTensor{}) saved.inertia = ToWire(inertia);
  if (type.bounds) saved.hasLimits = true;
  return saved;
}

std::vector<SavedDeviations> DeviationsOf(const Part& part) {
  std::vector<SavedDeviations> deviations;
  for (const MassTypeData& type : part.massTypes) deviations.push_back(SavedDeviationsOf(type));
  return deviations;
}

MassTypeData MassTypeOf(const protocol::MassType& type, const SavedDeviations& saved) {
  MassTypeData data{.name = type.name, .properties = PropertiesOf(type), .deviations = {}, .bounds = {}};
  data.deviations.mass = saved.mass.value_or(0);
  if (saved.cg) data.deviations.cg = FromWire(*saved.cg);
  if (saved.inertia) data.deviations.inertia = FromWire(*saved.inertia);
  if (saved.hasLimits == true) data.bounds = MassBounds{type.lowerDeviation, type.upperDeviation};
  return data;
}

// The revision that was chosen may have vanished, or the document itself; then the choice of now stays.
bool CanBeChosen(const protocol::Documents& now, const protocol::Documents& then) {
  return then.activeId == now.activeId &&
         (!then.usedSpecificRevisionBefore ||
          std::ranges::find(now.revisions, then.activeVersion, &protocol::DocumentRevision::revision) !=
              now.revisions.end());
}

void PutChoice(protocol::Documents& now, const protocol::Documents& then) {
  if (!CanBeChosen(now, then)) return;
  now.activeVersion = then.activeVersion;
  now.usedSpecificRevisionBefore = then.usedSpecificRevisionBefore;
}

}  // namespace

Precision PrecisionOf(const protocol::MassType& type) {
  return {type.name,           type.precisionType,          type.precisionValueType,    type.lowerPrecision,
          type.upperPrecision, type.massTypeLowerPrecision, type.massTypeUpperPrecision};
}

PartData SavedDataOf(const Part& part, const PartDetails& details) {
  PartData values;
  values.standardPart = part.standardPart;
  values.activeMassType = part.activeMassType;
  values.massTypes = MassTypesOf(part, details);
  values.material.name = part.material;
  values.material.density = part.density;
  values.material.densityPriority = static_cast<int>(part.densityPriority);
  values.material.appliedOn = details.appliedOn;
  values.documents.activeId = details.documents.activeId;
  values.documents.activeVersion = ChosenVersion(details.documents);
  values.documents.usedSpecificRevisionBefore = details.documents.usedSpecificRevisionBefore;
  values.properties = details.properties;
  return WithPlainZeros(std::move(values));
}

SavedValues SavedValuesOf(const Part& part, const PartDetails& details) {
  return {.data = SavedDataOf(part, details), .deviations = DeviationsOf(part)};
}

std::span<const protocol::MassType> UserMassTypesOf(const PartData& data) {
  return std::span(data.massTypes).subspan(1);
}

std::vector<MassTypeData> MassTypesOf(const SavedValues& values) {
  const auto told = UserMassTypesOf(values.data);
  std::vector<MassTypeData> types;
  for (std::size_t i = 0; i < told.size(); ++i) types.push_back(MassTypeOf(told[i], values.deviations.at(i)));
  return types;
}

void PutSavedValues(PartData& data, const PartData& values) {
  SetPrecision(data.massTypes.front(), PrecisionOf(values.massTypes.front()));
  data.massTypes.resize(1);
  data.massTypes.insert(data.massTypes.end(), values.massTypes.begin() + 1, values.massTypes.end());
  data.activeMassType = values.activeMassType;
  data.standardPart = values.standardPart;
  data.material.name = values.material.name;
  data.material.density = values.material.density;
  data.material.densityPriority = values.material.densityPriority;
  data.material.appliedOn = values.material.appliedOn;
  PutChoice(data.documents, values.documents);
  for (protocol::ExtraProperty& property : data.properties)
    for (const protocol::ExtraProperty& saved : values.properties)
      if (saved.name == property.name) property.value = saved.value;
}

}  // namespace lumira
