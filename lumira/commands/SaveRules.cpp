#include "lumira/commands/SaveRules.h"

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "lumira/commands/ComputedMassType.h"
#include "lumira/commands/SavedValues.h"
#include "lumira/commands/UserMassTypes.h"
#include "lumira/model/PropertyOnWire.h"
#include "lumira/model/PropertyRules.h"
#include "lumira/store/ProductRules.h"
#include "protocol/Constants.h"
#include "protocol/FieldWriter.h"
#include "protocol/Limits.h"
#include "protocol/Numbers.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Quoted;
using protocol::Result;

Error BadField(const std::string& field, const std::string& problem) {
  return {ErrorKind::BadValue, "PartData: " + field + ": " + problem};
}

std::string Entry(const char* list, std::size_t index, const char* field) {
  return std::string(list) + '[' + std::to_string(index + 1) + "]." + field;
}

template <class Names>
std::string Listed(const Names& names) {
  constexpr std::size_t kShown = 10;
  std::string text;
  std::size_t count = 0;
  for (const auto& name : names)
    if (count++ < kShown) text += (text.empty() ? "" : ", ") + Quoted(name);
  return count > kShown ? text + " and " + std::to_string(count - kShown) + " more" : text;
}

// A number that a range forbids below zero.
Result<void> CheckNotNegative(const std::string& field, double value) {
  if (value >= 0) return {};
  return BadField(field, protocol::FormatNumber(value) + " is negative, a number of 0 or above expected");
}

// A text is longer where it has to be told than where it was typed.
Result<void> CheckSize(const std::string& field, const std::string& value) {
  const std::size_t size = protocol::Escape(value).size();
  if (size <= protocol::kMaxFieldBytes) return {};
  return BadField(field, Quoted(value) + " has " + std::to_string(size) + " bytes when it is told, at most " +
                             std::to_string(protocol::kMaxFieldBytes) + " expected");
}

// ---- Mass types

std::vector<std::string> MassTypeNames(const Part& part) {
  std::vector<std::string> names = {std::string(kComputedMassType)};
  for (const MassTypeData& type : part.massTypes) names.push_back(type.name);
  return names;
}

// Every mass type of the part is listed once, and no other.
Result<void> CheckNames(const Part& part, const std::vector<protocol::MassType>& types) {
  const std::vector<std::string> names = MassTypeNames(part);
  const std::set<std::string_view> known(names.begin(), names.end());
  std::set<std::string_view> seen;
  for (std::size_t i = 0; i < types.size(); ++i) {
    const std::string& name = types[i].name;
    if (!known.contains(name))
      return BadField(Entry("massTypes", i, "name"), Quoted(name) + " is no mass type of part " +
                                                         Quoted(part.id) + ", one of " + Listed(names) +
                                                         " expected");
    if (!seen.insert(name).second)
      return BadField(Entry("massTypes", i, "name"), Quoted(name) + " is listed twice, once expected");
  }
  for (const MassTypeData& type : part.massTypes)
    if (!seen.contains(type.name))
      return BadField("massTypes", Quoted(type.name) + " is missing, all mass types of part " +
                                       Quoted(part.id) + " expected");
  return {};
}

// Whether the values of a mass type are taken, and not its precision only.
bool TakesValues(const protocol::MassType& type) {
  return type.name != kComputedMassType && type.status != protocol::MassTypeStatus::Undefined;
}

Result<void> CheckNumbers(const protocol::MassType& type, std::size_t index) {
  const bool hasDeviations = TakesValues(type);
  const std::pair<const char*, double> numbers[] = {
      {"lowerDeviation", hasDeviations ? type.lowerDeviation : 0},
      {"upperDeviation", hasDeviations ? type.upperDeviation : 0},
      {"lowerPrecision", type.lowerPrecision},
      {"upperPrecision", type.upperPrecision}};
  for (const auto& [field, value] : numbers)
    if (auto good = CheckNotNegative(Entry("massTypes", index, field), value); !good) return good;
  return {};
}

// The deviations on the wire are the limits, or for want of them the standard deviation; only when a client
// sends others than it was told are they limits that somebody has set.
void TakeMassType(MassTypeData& data, const protocol::MassType& type) {
  if (!TakesValues(type)) {
    // One without values cannot be removed; what else is known of it is not the user's.
    if (data.properties == MassProperties{}) return;
    data = {.name = data.name, .properties = {}, .deviations = {}, .bounds = {}};
    return;
  }
  const protocol::MassType told = ToWire(data, type.status);
  if (told.lowerDeviation != type.lowerDeviation || told.upperDeviation != type.upperDeviation)
    data.bounds = MassBounds{type.lowerDeviation, type.upperDeviation};
  data.properties = PropertiesOf(type);
}

// What comes with the mass type is not the user's to change.
void TakePrecision(std::vector<Precision>& precisions, const protocol::MassType& type) {
  Precision precision = PrecisionOf(type);
  const auto known = std::ranges::find(precisions, type.name, &Precision::massType);
  if (known != precisions.end()) {
    precision.massTypeLowerPrecision = known->massTypeLowerPrecision;
    precision.massTypeUpperPrecision = known->massTypeUpperPrecision;
    *known = precision;
    return;
  }
  precision.massTypeLowerPrecision = precision.massTypeUpperPrecision = 0;
  const bool isDefault = precision.precisionType == 0 && precision.precisionValueType == 0 &&
                         precision.lowerPrecision == 0 && precision.upperPrecision == 0;
  if (!isDefault) precisions.push_back(std::move(precision));
}

Result<void> TakeMassTypes(StoredPart& saved, const protocol::PartData& request) {
  if (auto good = CheckNames(saved.part, request.massTypes); !good) return good;
  for (std::size_t i = 0; i < request.massTypes.size(); ++i) {
    const protocol::MassType& type = request.massTypes[i];
    if (auto good = CheckNumbers(type, i); !good) return good;
    const auto data = std::ranges::find(saved.part.massTypes, type.name, &MassTypeData::name);
    if (data != saved.part.massTypes.end()) TakeMassType(*data, type);
    TakePrecision(saved.details.precisions, type);
  }
  return {};
}

Result<void> TakeActiveMassType(StoredPart& saved, const protocol::PartData& request) {
  const std::vector<std::string> names = MassTypeNames(saved.part);
  if (std::ranges::find(names, request.activeMassType) == names.end())
    return BadField("activeMassType", Quoted(request.activeMassType) + " is no mass type of part " +
                                          Quoted(saved.part.id) + ", one of " + Listed(names) + " expected");
  saved.part.activeMassType = request.activeMassType;
  return {};
}

// ---- Material

Result<void> TakeMaterial(StoredPart& saved, const protocol::PartData& request) {
  const protocol::Material& material = request.material;
  if (material.density)
    if (auto good = CheckNotNegative("material.density", *material.density); !good) return good;
  const std::string_view places[] = {"", protocol::kPartInstance, protocol::kPartReference};
  if (auto good = CheckSize("material.name", material.name); !good) return good;
  const bool isKnown = std::ranges::find(places, material.appliedOn) != std::end(places);
  if (!isKnown && material.appliedOn != saved.details.appliedOn)
    return BadField("material.appliedOn", Quoted(material.appliedOn) +
                                              " is no place to apply a material to, one of " +
                                              Listed(places) + " expected");
  saved.part.material = material.name;
  saved.part.density = material.density;
  saved.part.densityPriority = static_cast<DensityPriority>(material.densityPriority);
  saved.part.standardPart = request.standardPart;
  saved.details.appliedOn = material.appliedOn;
  return {};
}

// ---- Active document

bool HasRevision(const protocol::Documents& documents, const std::string& version) {
  return std::ranges::find(documents.revisions, version, &protocol::DocumentRevision::revision) !=
         documents.revisions.end();
}

// Clients say "no revision by hand" with an absent value in words, or with none at all.
bool IsAutomatic(const protocol::Documents& choice) {
  return choice.activeVersion == protocol::kNull || choice.activeVersion.empty();
}

// What a client was told of an automatic revision, and sends back, is no choice; the same revision chosen by
// hand comes with the flag that says so.
bool IsAsTold(const protocol::Documents& choice, const protocol::Documents& told) {
  return choice.activeId == told.activeId && choice.activeVersion == told.activeVersion &&
         choice.usedSpecificRevisionBefore <= told.usedSpecificRevisionBefore;
}

Result<void> TakeDocument(StoredPart& saved, const protocol::PartData& request) {
  const protocol::Documents& choice = request.documents;
  protocol::Documents& known = saved.details.documents;
  if (IsAsTold(choice, known)) return {};
  if (choice.activeId != protocol::kNull && choice.activeId != known.activeId)
    return BadField("documents.activeId", Quoted(choice.activeId) + " is not the document of part " +
                                              Quoted(saved.part.id) + ", " + Quoted(known.activeId) +
                                              " expected");
  if (!IsAutomatic(choice) && !HasRevision(known, choice.activeVersion))
    return BadField("documents.activeVersion", Quoted(choice.activeVersion) + " is no revision of document " +
                                                   Quoted(known.activeId) +
                                                   ", one of its revisions expected");
  // Without revisions there is nothing to choose, and the client has nothing else to say.
  if (known.revisions.empty()) return {};
  known.usedSpecificRevisionBefore = !IsAutomatic(choice);
  known.activeVersion = IsAutomatic(choice) ? std::string() : choice.activeVersion;
  return {};
}

// ---- Extra properties

Result<void> TakeProperty(StoredPart& saved, const protocol::ExtraProperty& sent, std::size_t index) {
  auto& properties = saved.details.properties;
  const auto known = std::ranges::find(properties, sent.name, &protocol::ExtraProperty::name);
  if (known == properties.end())
    return BadField(Entry("properties", index, "name"), Quoted(sent.name) + " is no property of part " +
                                                            Quoted(saved.part.id) +
                                                            ", one of its properties expected");
  // A value that was there before was somebody else's decision.
  if (sent.value == known->value) return {};
  if (const auto problem = FindValueProblem(DefinitionOf(*known), sent.value))
    return BadField(Entry("properties", index, "value"), *problem + " (property " + Quoted(sent.name) + ")");
  if (auto good = CheckSize(Entry("properties", index, "value"), sent.value); !good) return good;
  known->value = sent.value;
  return {};
}

Result<void> TakeProperties(StoredPart& saved, const protocol::PartData& request) {
  std::set<std::string_view> seen;
  for (std::size_t i = 0; i < request.properties.size(); ++i) {
    const protocol::ExtraProperty& sent = request.properties[i];
    if (!seen.insert(sent.name).second)
      return BadField(Entry("properties", i, "name"), Quoted(sent.name) + " is listed twice, once expected");
    if (auto good = TakeProperty(saved, sent, i); !good) return good;
  }
  return {};
}

// What the fields are together: a volume times a density may be too large for a number.
Result<void> CheckAsAWhole(StoredPart& saved, const protocol::PartData&) {
  const auto good = CheckPart(saved.part);
  if (good || !saved.part.density) return good;
  Part other = saved.part;
  other.density.reset();
  // The density of the CAD material, or what else it may be, is none of the fields.
  if (!CheckPart(other)) return good;
  return BadField("material.density",
                  protocol::FormatNumber(*saved.part.density) + ": " + good.Failure().message);
}

constexpr Result<void> (*kSteps[])(StoredPart&, const protocol::PartData&) = {
    TakeMassTypes, TakeActiveMassType, TakeMaterial, TakeDocument, TakeProperties, CheckAsAWhole};

}  // namespace

Result<StoredPart> ApplySave(const StoredPart& stored, const protocol::PartData& request) {
  StoredPart saved = stored;
  for (const auto step : kSteps)
    if (auto good = step(saved, request); !good) return good.Failure();
  return saved;
}

}  // namespace lumira
