#include <algorithm>
#include <utility>

#include "lumira/commands/Commands.h"
#include "lumira/commands/HistoryText.h"
#include "lumira/commands/SaveConflict.h"
#include "lumira/commands/SaveOrigin.h"
#include "lumira/commands/SaveRules.h"
#include "lumira/commands/UtcTime.h"
#include "lumira/store/SizeRules.h"
#include "protocol/Codec.h"
#include "protocol/Limits.h"
#include "protocol/Utf8.h"

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

Result<void> CheckSize(const std::string& part, std::size_t bytes, std::size_t most) {
  const auto problem = FindTooMany(bytes, most);
  if (!problem) return {};
  return protocol::Error{ErrorKind::BadValue, "PartData: with what is sent the values of part " +
                                                  protocol::Quoted(part) + " " + *problem};
}

// What is told has its limit, and what a history keeps has to be readable.
Result<void> CheckSizes(const std::string& part, const SavedValues& values, const std::string& text) {
  if (text.size() <= kMaxValueBytes) return {};
  if (auto good = CheckSize(part, protocol::WritePartData(values.data).size(), kMaxValueBytes); !good)
    return good;
  return CheckSize(part, text.size(), protocol::kMaxTextBytes);
}

// The order is no field, and nothing else makes another text of the same fields.
bool AreReordered(const SavedValues& before, const SavedValues& after) {
  const bool isSameOrder = std::ranges::equal(before.data.massTypes, after.data.massTypes, {},
                                              &protocol::MassType::name, &protocol::MassType::name);
  return !isSameOrder && DifferencesOf(before, after).empty();
}

// Writes what is new; a save that changes nothing leaves no trace.
Result<std::string> Write(Session& session, const StoredPart& stored, StoredPart saved) {
  const SavedValues before = SavedValuesOf(stored.part, stored.details);
  const SavedValues after = SavedValuesOf(saved.part, saved.details);
  const PartSaving saving{.saved = std::move(saved),
                          .by = {session.user, UtcTime()},
                          .before = ToHistoryText(before),
                          .after = ToHistoryText(after)};
  const Part& part = saving.saved.part;
  if (saving.before == saving.after || AreReordered(before, after)) return ReplyFor(part.id, stored.state);
  if (auto good = CheckSizes(part.id, after, saving.after); !good) return good.Failure();
  const auto state = session.store.SavePart(saving);
  if (!state) return state.Failure();
  session.products.TakeSaved(part, state.Value());
  return ReplyFor(part.id, state.Value().state);
}

Result<std::string> Save(Session& session, const PartData& request, std::int64_t state) {
  const auto stored = session.store.LoadPart(request.partId);
  if (!stored) return InField("partId", stored.Failure());
  if (const auto good = CheckStillStored(session.store, stored.Value(), state); !good) return good.Failure();
  const auto edited = EditedPart(session.store, stored.Value(), request.massTypesOrigin);
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
