#include <algorithm>
#include <limits>
#include <utility>

#include "lumira/commands/Commands.h"
#include "lumira/commands/HistoryText.h"
#include "lumira/commands/Page.h"
#include "lumira/commands/PartDataOf.h"
#include "protocol/Codec.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::HistoryEntry;
using protocol::Quoted;
using protocol::Result;

Result<SavedValues> Read(Session& session, const std::string& part, const std::string& text) {
  auto values = FromHistoryText(text);
  if (values) return values;
  return session.store.Damage("the history of part " + Quoted(part) + ": " + values.Failure().message);
}

int ToInt(std::int64_t number) {
  return static_cast<int>(std::min<std::int64_t>(number, std::numeric_limits<int>::max()));
}

// An entry, and how much had to be read for it.
struct ReadEntry {
  HistoryEntry entry;
  std::size_t bytes = 0;
};

Result<ReadEntry> MakeEntry(Session& session, const std::string& part, const HistoryRecord& record) {
  const auto texts = session.store.LoadHistoryTexts(part, record.number);
  if (!texts) return texts.Failure();
  const auto before = Read(session, part, texts.Value().before);
  if (!before) return before.Failure();
  const auto after = Read(session, part, texts.Value().after);
  if (!after) return after.Failure();
  HistoryEntry entry{.number = ToInt(record.number),
                     .time = record.by.time,
                     .user = record.by.user,
                     .changeCount = 0,
                     .changes = DifferencesOf(before.Value(), after.Value())};
  entry.changeCount = ToInt(std::ssize(entry.changes));
  if (entry.changes.size() > protocol::kMaxHistoryChanges) entry.changes.resize(protocol::kMaxHistoryChanges);
  // The values of the changes stand in the texts; their names are of the same order.
  const std::size_t bytes = texts.Value().before.size() + texts.Value().after.size();
  return ReadEntry{std::move(entry), bytes};
}

}  // namespace

Result<std::string> GetHistory(Session& session, std::string_view text) {
  const auto request = protocol::ReadHistoryRequest(text);
  if (!request) return request.Failure();
  const auto& [part, before, limit] = request.Value();
  const auto records = session.store.LoadHistory(part, before, limit);
  if (!records) return records.Failure();
  protocol::History history{part, ToInt(records.Value().total), {}};
  Page<HistoryEntry> page(history.entries);
  for (const HistoryRecord& record : records.Value().records) {
    auto entry = MakeEntry(session, part, record);
    if (!entry) return entry.Failure();
    if (!page.Add(std::move(entry.Value().entry), entry.Value().bytes)) break;
  }
  return protocol::WriteHistory(history);
}

Result<std::string> GetHistoryState(Session& session, std::string_view text) {
  const auto request = protocol::ReadHistoryStateRequest(text);
  if (!request) return request.Failure();
  const auto& [part, number, moment] = request.Value();
  const auto texts = session.store.LoadHistoryTexts(part, number);
  if (!texts) return texts.Failure();
  const bool isBefore = moment == protocol::HistoryMoment::Before;
  const auto values = Read(session, part, isBefore ? texts.Value().before : texts.Value().after);
  if (!values) return values.Failure();
  auto data = PartDataOf(session, {.partId = part});
  if (!data) return data.Failure();
  PutSavedValues(data.Value(), values.Value().data);
  data.Value().massTypesOrigin = {
      isBefore ? protocol::OriginKind::BeforeSave : protocol::OriginKind::AfterSave, std::to_string(number)};
  data.Value().persisted = data.Value().massTypes.size() > 1;
  return protocol::WritePartData(data.Value());
}

}  // namespace lumira
