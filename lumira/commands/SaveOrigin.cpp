#include "lumira/commands/SaveOrigin.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "lumira/commands/ComputedMassType.h"
#include "lumira/commands/SavedValues.h"
#include "lumira/commands/UserMassTypes.h"
#include "lumira/store/ActiveDocument.h"
#include "lumira/store/MassTypesKey.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::MassType;
using protocol::PartData;
using protocol::Quoted;
using protocol::Result;

// User mass types that a client may have been told.
struct Origin {
  std::vector<MassTypeData> massTypes;
  std::vector<Precision> precisions;
};

using Candidates = std::vector<Origin>;

const MassType* FindType(const PartData& data, const std::string& name) {
  const auto found = std::ranges::find(data.massTypes, name, &MassType::name);
  return found == data.massTypes.end() ? nullptr : &*found;
}

// What users cannot change of a mass type tells where it comes from.
bool IsOfType(const MassType& sent, const MassType& told) {
  return sent.massTypeLowerPrecision == told.massTypeLowerPrecision &&
         sent.massTypeUpperPrecision == told.massTypeUpperPrecision;
}

bool HasDeviationsAsTold(const MassType& sent, const MassType& told) {
  return IsOfType(sent, told) && sent.lowerDeviation == told.lowerDeviation &&
         sent.upperDeviation == told.upperDeviation;
}

bool IsAsTold(const MassType& sent, const MassType& told) {
  return HasDeviationsAsTold(sent, told) && sent.status == told.status && sent.mass == told.mass &&
         sent.cg == told.cg && sent.inertia == told.inertia;
}

using Match = bool (*)(const MassType& sent, const MassType& told);

// Whether the request has just these user mass types; one that it lists twice fits nothing.
bool Fits(const PartData& request, const std::vector<MassType>& told, Match match) {
  const auto users = std::ranges::count_if(
      request.massTypes, [](const MassType& type) { return type.name != kComputedMassType; });
  return users == std::ssize(told) && std::ranges::all_of(told, [&](const MassType& type) {
           const MassType* sent = FindType(request, type.name);
           return sent != nullptr && match(*sent, type);
         });
}

std::optional<Origin> FindOriginIn(const Candidates& candidates, const PartData& request, Match match) {
  for (const Origin& origin : candidates)
    if (Fits(request, ToWire(origin.massTypes, origin.precisions), match)) return origin;
  return std::nullopt;
}

// A revision that the request chooses by hand, and the part does not: it has just been loaded.
bool IsNewlyChosen(const PartData& request, const StoredPart& stored, const std::string& revision) {
  const protocol::Documents& choice = request.documents;
  return choice.usedSpecificRevisionBefore && choice.activeVersion == revision &&
         ChosenVersion(stored.details.documents) != revision;
}

enum class Revisions { NewlyChosen, Others };

// The data of the revisions of the part's document that have any.
Result<Candidates> RevisionsOf(Store& store, const StoredPart& stored, const PartData& request,
                               Revisions which) {
  Candidates candidates;
  for (const auto& listed : stored.details.documents.revisions) {
    if (IsNewlyChosen(request, stored, listed.revision) != (which == Revisions::NewlyChosen)) continue;
    auto revision = store.LoadRevision(stored.part.id, listed.revision);
    if (!revision && revision.Failure().kind == protocol::ErrorKind::NotFound) continue;
    if (!revision) return revision.Failure();
    candidates.push_back({revision.Value().massTypes, revision.Value().precisions});
  }
  return candidates;
}

// A history keeps what was told of a mass type. What the part knows beyond that stays where it tells the
// same.
Origin OriginOf(const PartData& values, const Part& part) {
  Origin origin;
  for (std::size_t i = 1; i < values.massTypes.size(); ++i) {
    const MassType& type = values.massTypes[i];
    const MassTypeData* const known = FindMassType(part, type.name);
    const MassType told = known == nullptr ? MassType{} : ToWire(*known, type.status);
    const bool isKnown = known != nullptr && told.lowerDeviation == type.lowerDeviation &&
                         told.upperDeviation == type.upperDeviation;
    origin.massTypes.push_back(
        isKnown ? *known : MassTypeData{.name = type.name, .properties = {}, .deviations = {}, .bounds = {}});
    origin.precisions.push_back(PrecisionOf(type));
  }
  return origin;
}

// The latest of the states of a part that had the mass types of a request.
Result<std::optional<Origin>> FindInHistory(Store& store, const Part& part, const PartData& request) {
  const auto text = store.FindTextWithMassTypes(part.id, MassTypesKey(request));
  if (!text) return text.Failure();
  if (!text.Value()) return std::optional<Origin>();
  const auto values = FromHistoryText(*text.Value());
  if (!values)
    return store.Damage("the history of part " + Quoted(part.id) + ": " + values.Failure().message);
  const auto& types = values.Value().massTypes;
  // Different mass types may have the same key, though hardly ever.
  if (!Fits(request, {types.begin() + 1, types.end()}, IsOfType)) return std::optional<Origin>();
  return std::optional(OriginOf(values.Value(), part));
}

// The precision of the computed mass type belongs to the part, whatever the others are.
StoredPart WithMassTypesOf(const Origin& origin, StoredPart part) {
  part.part.massTypes = origin.massTypes;
  auto& precisions = part.details.precisions;
  std::erase_if(precisions,
                [](const Precision& precision) { return precision.massType != kComputedMassType; });
  for (const Precision& precision : origin.precisions)
    if (precision.massType != kComputedMassType) precisions.push_back(precision);
  return part;
}

// With a revision that has just been chosen, or with the part, whose other revisions need not be looked at
// unless the request has other deviations. Clients send deviations as they were told: those of the part are
// not those of a revision that was chosen without being loaded.
std::optional<Origin> FindNear(const Candidates& chosen, const Candidates& part, const PartData& request) {
  if (auto origin = FindOriginIn(chosen, request, IsAsTold)) return origin;
  if (auto origin = FindOriginIn(part, request, IsAsTold)) return origin;
  if (auto origin = FindOriginIn(chosen, request, HasDeviationsAsTold)) return origin;
  return FindOriginIn(part, request, HasDeviationsAsTold);
}

// A revision that has all values as they were told goes before the part, whose deviations would be others.
std::optional<Origin> FindFar(const Candidates& part, const Candidates& others, const PartData& request) {
  if (auto origin = FindOriginIn(others, request, IsAsTold)) return origin;
  return FindOriginIn(part, request, IsOfType);
}

// What only names and types tell of is a state that is brought back rather than an edited revision, whose
// standard deviations the part may never have had.
Result<std::optional<Origin>> FindByType(Store& store, const Part& part, const Candidates& chosen,
                                         const Candidates& others, const PartData& request) {
  auto state = FindInHistory(store, part, request);
  if (!state || state.Value()) return state;
  if (auto origin = FindOriginIn(chosen, request, IsOfType)) return origin;
  return FindOriginIn(others, request, IsOfType);
}

// In the order of what it costs to look.
Result<std::optional<Origin>> FindOrigin(Store& store, const StoredPart& stored, const PartData& request) {
  const Candidates part = {{stored.part.massTypes, stored.details.precisions}};
  const auto chosen = RevisionsOf(store, stored, request, Revisions::NewlyChosen);
  if (!chosen) return chosen.Failure();
  if (auto origin = FindNear(chosen.Value(), part, request)) return origin;
  const auto others = RevisionsOf(store, stored, request, Revisions::Others);
  if (!others) return others.Failure();
  if (auto origin = FindFar(part, others.Value(), request)) return origin;
  return FindByType(store, stored.part, chosen.Value(), others.Value(), request);
}

}  // namespace

Result<StoredPart> EditedPart(Store& store, const StoredPart& stored, const PartData& request) {
  const auto origin = FindOrigin(store, stored, request);
  if (!origin) return origin.Failure();
  return origin.Value() ? WithMassTypesOf(*origin.Value(), stored) : stored;
}

}  // namespace lumira
