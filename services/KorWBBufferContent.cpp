#include "services/KorWBBufferContent.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

#include "protocol/Constants.h"
#include "protocol/Filter.h"
#include "protocol/Numbers.h"
#include "services/KorWBLengths.h"

namespace {

/// No revision chosen by hand, said with an absent value in words or with none at all.
bool IsAutomatic(const protocol::Documents& sent) {
  return sent.activeId == protocol::kNull || sent.activeVersion == protocol::kNull ||
         sent.activeVersion.empty();
}

std::optional<std::array<double, 3>> CgInMillimetres(const protocol::MassType& massType) {
  if (!massType.cg) return std::nullopt;
  std::array<double, 3> mm{};
  std::transform(massType.cg->begin(), massType.cg->end(), mm.begin(), KorMillimetresFromMetres);
  return mm;
}

// What the selection decides and a document revision does not, and what the user edits of the part itself.
// The next save is of what was read, and edited, here: it names the state of then, so that what somebody else
// has saved since is not written over.
void KeepPart(const protocol::PartData& present, protocol::PartData& loaded) {
  loaded.instancePath = present.instancePath;
  loaded.configurationHandler = present.configurationHandler;
  loaded.filter = present.filter;
  loaded.hasInstance = present.hasInstance;
  loaded.referenceInertiaMode = present.referenceInertiaMode;
  loaded.placement = present.placement;
  loaded.stateToken = present.stateToken;
  loaded.standardPart = present.standardPart;
  loaded.propertiesRequested = present.propertiesRequested;
  loaded.dateFormat = present.dateFormat;
  loaded.properties = present.properties;
}

bool IsSameFilter(const std::string& a, const std::string& b) {
  if (a == b) return true;
  const auto first = protocol::ReadFilter(a), second = protocol::ReadFilter(b);
  if (!first || !second) return false;
  return first.Value() == second.Value() || (first.Value().LetsAllPass() && second.Value().LetsAllPass());
}

protocol::MassType ComputedOf(const protocol::PartData& data) {
  const auto found = std::ranges::find(data.massTypes, protocol::kComputed, &protocol::MassType::name);
  if (found != data.massTypes.end()) return *found;
  return {.name = std::string(protocol::kComputed), .mass = {}, .cg = {}, .inertia = {}};
}

// People may write a number with blanks around it and a plus before it.
std::optional<double> NumberIn(std::string_view text) {
  const auto from = text.find_first_not_of(" \t");
  if (from == text.npos) return std::nullopt;
  text = text.substr(from, text.find_last_not_of(" \t") - from + 1);
  const bool hasPlus = text.starts_with('+') && !text.substr(1).starts_with('-');
  return protocol::ParseNumber(hasPlus ? text.substr(1) : text);
}

// None for what is no length, as a text without a number.
std::optional<double> LengthIn(const protocol::ExtraProperty& property, std::string_view text) {
  const bool isLength = property.isMagnitude && property.magnitude == "LENGTH";
  return isLength ? NumberIn(text) : std::nullopt;
}

// The value of a property with the conversion applied when it is a length; any other text as it is.
std::string Converted(const protocol::ExtraProperty& property, const std::string& text,
                      double (*convert)(double)) {
  const auto number = LengthIn(property, text);
  const double converted = number ? convert(*number) : 0;
  return number && std::isfinite(converted) ? protocol::FormatNumber(converted) : text;
}

}  // namespace

void KorWBAllDataBuffer::Content::ReplaceStored(protocol::PartData newData) {
  storedDocumentId = newData.documents.activeId;
  storedDocumentVersion = serverDocumentVersion = newData.documents.activeVersion;
  Replace(std::move(newData));
}

void KorWBAllDataBuffer::Content::TakeOtherState(protocol::PartData newData) {
  const bool hasOtherFilter = !IsSameFilter(data.filter, newData.filter);
  const protocol::MassType computed = ComputedOf(data);
  if (hasOtherFilter) newData.computed = data.computed;
  KeepPart(data, newData);
  const std::vector<std::string> typed = propertyTexts;
  Replace(std::move(newData));
  propertyTexts = typed;
  if (hasOtherFilter) SetComputed(computed);
}

void KorWBAllDataBuffer::Content::Replace(protocol::PartData newData) {
  data = std::move(newData);
  NoteWhatHasNoValues();
  cgMillimetres.clear();
  std::transform(data.massTypes.begin(), data.massTypes.end(), std::back_inserter(cgMillimetres),
                 CgInMillimetres);
  propertyTexts.clear();
  for (const protocol::ExtraProperty& property : data.properties)
    propertyTexts.push_back(Converted(property, property.value, KorMillimetresFromMetres));
}

const protocol::MassType* KorWBAllDataBuffer::Content::Find(const KorUnicodeString& massType) const {
  const auto found =
      std::find_if(data.massTypes.begin(), data.massTypes.end(),
                   [&](const protocol::MassType& listed) { return listed.name == massType.Utf8(); });
  return found == data.massTypes.end() ? nullptr : &*found;
}

protocol::MassType* KorWBAllDataBuffer::Content::Find(const KorUnicodeString& massType) {
  return const_cast<protocol::MassType*>(std::as_const(*this).Find(massType));
}

const std::optional<KorWBAllDataBuffer::Content::Coordinates>& KorWBAllDataBuffer::Content::CgOf(
    const protocol::MassType& massType) const {
  return cgMillimetres[IndexOf(massType)];
}

void KorWBAllDataBuffer::Content::SetCg(protocol::MassType& massType, const double* mm) {
  std::optional<Coordinates>& present = cgMillimetres[IndexOf(massType)];
  protocol::Vector metres{};
  for (std::size_t i = 0; i < metres.size(); ++i) {
    const bool unchanged = present && massType.cg && (*present)[i] == mm[i];
    metres[i] = unchanged ? (*massType.cg)[i] : KorMetresFromMillimetres(mm[i]);
  }
  massType.cg = metres;
  present = Coordinates{mm[0], mm[1], mm[2]};
}

void KorWBAllDataBuffer::Content::RemoveCg(protocol::MassType& massType) {
  massType.cg.reset();
  cgMillimetres[IndexOf(massType)].reset();
}

void KorWBAllDataBuffer::Content::SetPropertyText(std::size_t index, const std::string& text) {
  protocol::ExtraProperty& property = data.properties[index];
  const std::string present = std::exchange(propertyTexts[index], text);
  const auto length = LengthIn(property, text);
  if (text == present || (length && length == LengthIn(property, present))) return;
  property.value = Converted(property, text, KorMetresFromMillimetres);
}

void KorWBAllDataBuffer::Content::SetComputed(const protocol::MassType& computed) {
  protocol::MassType* listed = Find(computed.name);
  if (!listed) {
    data.massTypes.insert(data.massTypes.begin(), computed);
    cgMillimetres.insert(cgMillimetres.begin(), CgInMillimetres(computed));
    return;
  }
  protocol::MassType values = computed;
  values.precisionType = listed->precisionType;
  values.precisionValueType = listed->precisionValueType;
  values.lowerPrecision = listed->lowerPrecision;
  values.upperPrecision = listed->upperPrecision;
  *listed = std::move(values);
  cgMillimetres[IndexOf(*listed)] = CgInMillimetres(*listed);
}

void KorWBAllDataBuffer::Content::SetSaved(const std::string& stateToken) {
  data.stateToken = stateToken;
  data.persisted = true;
  data.massTypesOrigin = {};
  ForgetRemovedDeviations();
  SetSavedDocument();
  data.documents.activeId = storedDocumentId;
  data.documents.activeVersion = storedDocumentVersion;
}

void KorWBAllDataBuffer::Content::NoteWhatHasNoValues() {
  storedWithoutValues.clear();
  for (const protocol::MassType& type : data.massTypes)
    if (type.status == protocol::MassTypeStatus::Undefined) storedWithoutValues.insert(type.name);
}

/// A mass type whose values have been removed has no deviations from then on, as on the server: else the next
/// save would make limits of them that nobody has set.
void KorWBAllDataBuffer::Content::ForgetRemovedDeviations() {
  for (protocol::MassType& type : data.massTypes)
    if (type.name != protocol::kComputed && type.status == protocol::MassTypeStatus::Undefined &&
        !storedWithoutValues.contains(type.name))
      type.lowerDeviation = type.upperDeviation = 0;
  NoteWhatHasNoValues();
}

/// As on the server: a document without revisions leaves the choice as it is, and so does one that was sent
/// as it was told.
void KorWBAllDataBuffer::Content::SetSavedDocument() {
  protocol::Documents& documents = data.documents;
  if (documents.revisions.empty()) return;
  if (IsAutomatic(documents)) {
    documents.usedSpecificRevisionBefore = false;
    serverDocumentVersion.clear();
    return;
  }
  const bool unchanged =
      documents.activeId == storedDocumentId && documents.activeVersion == serverDocumentVersion;
  if (unchanged) return;
  documents.usedSpecificRevisionBefore = true;
  serverDocumentVersion = documents.activeVersion;
  storedDocumentId = documents.activeId;
  storedDocumentVersion = documents.activeVersion;
}
