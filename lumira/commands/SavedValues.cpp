#include "lumira/commands/SavedValues.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "lumira/commands/ComputedMassType.h"
#include "lumira/commands/FieldTexts.h"
#include "lumira/commands/UserMassTypes.h"
#include "lumira/store/ActiveDocument.h"
#include "protocol/Codec.h"
#include "protocol/Limits.h"
#include "protocol/Utf8.h"
#include "protocol/forms/PartDataForms.h"

namespace lumira {
namespace {

using protocol::FieldChange;
using protocol::PartData;

std::vector<protocol::MassType> MassTypesOf(const Part& part, const PartDetails& details) {
  std::vector<protocol::MassType> types(1);
  types.front().name = std::string(kComputedMassType);
  AddPrecision(types.front(), details.precisions);
  for (protocol::MassType& type : ToWire(part.massTypes, details.precisions))
    types.push_back(std::move(type));
  return types;
}

// Negative and positive zero are the same number, though not the same text.
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

PartData WithPlainZeros(PartData values) {
  for (protocol::MassType& type : values.massTypes) PlainZeros(type);
  if (values.material.density) PlainZero(*values.material.density);
  return values;
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

// Where a character begins, so that none is cut in two.
std::string Cut(std::string text) {
  if (text.size() <= protocol::kMaxShownValueBytes) return text;
  constexpr std::string_view kMore = "...";
  std::size_t size = protocol::kMaxShownValueBytes - kMore.size();
  while (size > 0 && (static_cast<unsigned char>(text[size]) & 0xC0) == 0x80) --size;
  return text.substr(0, size) + std::string(kMore);
}

std::optional<std::string> Shown(const std::optional<std::string>& text) {
  return text ? std::optional(Cut(*text)) : std::nullopt;
}

}  // namespace

Precision PrecisionOf(const protocol::MassType& type) {
  return {type.name,           type.precisionType,          type.precisionValueType,    type.lowerPrecision,
          type.upperPrecision, type.massTypeLowerPrecision, type.massTypeUpperPrecision};
}

PartData SavedValuesOf(const Part& part, const PartDetails& details) {
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

std::string ToHistoryText(const PartData& values) { return protocol::WritePartData(values); }

protocol::Result<PartData> FromHistoryText(std::string_view text) {
  auto values = protocol::ReadPartData(text);
  if (values && values.Value().massTypes.empty())
    return protocol::Error{protocol::ErrorKind::BadText, "PartData: massTypes: the computed one is missing"};
  if (!values) return values;
  return WithPlainZeros(std::move(values).Value());
}

std::vector<FieldChange> DifferencesOf(const PartData& before, const PartData& after) {
  std::vector<FieldText> now = FieldTexts::Of(after);
  std::unordered_map<std::string_view, FieldText*> left;
  for (FieldText& field : now) left.emplace(field.field, &field);
  std::vector<FieldChange> changes;
  for (const FieldText& old : FieldTexts::Of(before)) {
    const auto found = left.find(old.field);
    const std::optional<std::string> text = found == left.end() ? std::nullopt : found->second->text;
    if (text != old.text) changes.push_back({old.field, Shown(old.text), Shown(text)});
    if (found != left.end()) left.erase(found);
  }
  for (const FieldText& added : now)
    if (left.contains(added.field)) changes.push_back({added.field, std::nullopt, Shown(added.text)});
  return changes;
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
