#include <algorithm>
#include <utility>

#include "lumira/commands/Commands.h"
#include "lumira/commands/ComputedMassType.h"
#include "lumira/commands/SaveConflict.h"
#include "lumira/commands/SaveRules.h"
#include "lumira/commands/SavedValues.h"
#include "lumira/commands/UtcTime.h"
#include "protocol/Codec.h"

namespace lumira {
namespace {

using protocol::ErrorKind;
using protocol::PartData;
using protocol::Result;

std::string ReplyFor(const std::string& part, std::int64_t state) {
  return protocol::WriteSaveReply({part, ToToken(state)});
}

protocol::Error InField(const char* field, protocol::Error error) {
  error.message = "PartData: " + std::string(field) + ": " + error.message;
  return error;
}

// Writes what is new; a save that changes nothing leaves no trace.
Result<std::string> Write(Session& session, const StoredPart& stored, StoredPart saved) {
  PartSaving saving{.saved = std::move(saved),
                    .by = {session.user, UtcTime()},
                    .before = ToHistoryText(SavedValuesOf(stored.part, stored.details)),
                    .after = {}};
  const Part& part = saving.saved.part;
  saving.after = ToHistoryText(SavedValuesOf(part, saving.saved.details));
  if (saving.before == saving.after) return ReplyFor(part.id, stored.state);
  const auto state = session.store.SavePart(saving);
  if (!state) return state.Failure();
  session.products.TakeSaved(part, state.Value());
  return ReplyFor(part.id, state.Value().state);
}

// A client that has taken over a revision of the document sends the mass types of that revision, which are
// those of the part from then on; the precision of the computed one belongs to the part.
StoredPart WithMassTypesOf(const RevisionData& revision, StoredPart part) {
  part.part.massTypes = revision.massTypes;
  auto& precisions = part.details.precisions;
  std::erase_if(precisions,
                [](const Precision& precision) { return precision.massType != kComputedMassType; });
  for (const Precision& precision : revision.precisions)
    if (precision.massType != kComputedMassType) precisions.push_back(precision);
  return part;
}

// What the request is an edition of: the part as it stands, or as the chosen revision has it.
Result<StoredPart> EditedPart(Store& store, const StoredPart& stored, const PartData& request) {
  const std::string& version = request.documents.activeVersion;
  const auto& listed = stored.details.documents.revisions;
  if (ListsMassTypes(request, stored.part.massTypes) ||
      std::ranges::find(listed, version, &protocol::DocumentRevision::revision) == listed.end())
    return stored;
  const auto revision = store.LoadRevision(stored.part.id, version);
  if (!revision && revision.Failure().kind == ErrorKind::NotFound) return stored;
  if (!revision) return revision.Failure();
  if (!ListsMassTypes(request, revision.Value().massTypes)) return stored;
  return WithMassTypesOf(revision.Value(), stored);
}

Result<std::string> Save(Session& session, const PartData& request, std::int64_t state) {
  const auto stored = session.store.LoadPart(request.partId);
  if (!stored) return InField("partId", stored.Failure());
  if (const auto good = CheckStillStored(session.store, stored.Value(), state); !good) return good.Failure();
  const auto edited = EditedPart(session.store, stored.Value(), request);
  if (!edited) return edited.Failure();
  auto saved = ApplySave(edited.Value(), request);
  if (!saved) return saved.Failure();
  return Write(session, stored.Value(), std::move(saved).Value());
}

}  // namespace

Result<std::string> SavePart(Session& session, std::string_view text) {
  const auto request = protocol::ReadPartData(text);
  if (!request) return request.Failure();
  const auto state = StateIn(request.Value());
  if (!state) return state.Failure();
  const auto saved = Save(session, request.Value(), state.Value());
  // Another session may come between looking and writing; the second look says who it was.
  if (saved || saved.Failure().kind != ErrorKind::Conflict) return saved;
  return Save(session, request.Value(), state.Value());
}

}  // namespace lumira
