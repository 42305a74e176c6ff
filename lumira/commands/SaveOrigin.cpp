#include "lumira/commands/SaveOrigin.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "lumira/commands/ComputedMassType.h"
#include "lumira/commands/HistoryText.h"
#include "lumira/commands/SavedValues.h"
#include "lumira/commands/UserMassTypes.h"
#include "protocol/Numbers.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::MassType;
using protocol::OriginKind;
using protocol::PartData;
using protocol::Quoted;
using protocol::Result;

Error BadName(const std::string& name, const std::string& problem) {
  return {ErrorKind::BadValue, "PartData: massTypesOrigin.name: " + Quoted(name) + " " + problem};
}

// The precision of the computed mass type belongs to the part, whatever the others are.
StoredPart WithMassTypes(StoredPart part, std::vector<MassTypeData> massTypes,
                         const std::vector<Precision>& precisions) {
  part.part.massTypes = std::move(massTypes);
  auto& present = part.details.precisions;
  std::erase_if(present, [](const Precision& precision) { return precision.massType != kComputedMassType; });
  std::ranges::copy_if(precisions, std::back_inserter(present),
                       [](const Precision& precision) { return precision.massType != kComputedMassType; });
  return part;
}

Result<StoredPart> WithRevision(Store& store, const StoredPart& stored, const std::string& name) {
  const auto revision = store.LoadRevision(stored.part.id, name);
  if (revision) return WithMassTypes(stored, revision.Value().massTypes, revision.Value().precisions);
  if (revision.Failure().kind != ErrorKind::NotFound) return revision.Failure();
  return BadName(name, "is no revision with mass types of part " + Quoted(stored.part.id));
}

// A history that an older program has written keeps what was told of a mass type. What the part knows of its
// deviations beyond that stays where it tells the same.
MassTypeData OlderDataOf(const MassType& type, const Part& part) {
  MassTypeData data{.name = type.name, .properties = PropertiesOf(type), .deviations = {}, .bounds = {}};
  const MassTypeData* const known = FindMassType(part, type.name);
  if (known == nullptr) return data;
  const MassType told = ToWire(*known, type.status);
  if (told.lowerDeviation != type.lowerDeviation || told.upperDeviation != type.upperDeviation) return data;
  data.deviations = known->deviations;
  data.bounds = known->bounds;
  return data;
}

std::vector<MassTypeData> MassTypesIn(const SavedValues& values, const Part& part) {
  if (values.hasDeviations) return MassTypesOf(values);
  std::vector<MassTypeData> types;
  for (const MassType& type : UserMassTypesOf(values.data)) types.push_back(OlderDataOf(type, part));
  return types;
}

StoredPart WithState(const StoredPart& stored, const SavedValues& values) {
  std::vector<Precision> precisions;
  for (const MassType& type : UserMassTypesOf(values.data)) precisions.push_back(PrecisionOf(type));
  return WithMassTypes(stored, MassTypesIn(values, stored.part), precisions);
}

Result<StoredPart> WithStateOfSave(Store& store, const StoredPart& stored, const protocol::Origin& origin) {
  const std::string& part = stored.part.id;
  const auto number = protocol::ParseInteger(origin.name);
  if (!number) return BadName(origin.name, "is no number of a save");
  const auto texts = store.LoadHistoryTexts(part, *number);
  if (!texts && texts.Failure().kind == ErrorKind::NotFound)
    return BadName(origin.name, "is no save of part " + Quoted(part));
  if (!texts) return texts.Failure();
  const bool isBefore = origin.kind == OriginKind::BeforeSave;
  const auto values = FromHistoryText(isBefore ? texts.Value().before : texts.Value().after);
  if (!values) return store.Damage("the history of part " + Quoted(part) + ": " + values.Failure().message);
  return WithState(stored, values.Value());
}

}  // namespace

Result<StoredPart> EditedPart(Store& store, const StoredPart& stored, const protocol::Origin& origin) {
  switch (origin.kind) {
    case OriginKind::Part:
      return stored;
    case OriginKind::Revision:
      return WithRevision(store, stored, origin.name);
    case OriginKind::BeforeSave:
    case OriginKind::AfterSave:
      return WithStateOfSave(store, stored, origin);
  }
  return stored;
}

}  // namespace lumira
