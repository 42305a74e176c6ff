#include "lumira/commands/SaveConflict.h"

#include <algorithm>
#include <string>
#include <vector>

#include "lumira/commands/HistoryText.h"
#include "lumira/model/Counted.h"
#include "protocol/Limits.h"
#include "protocol/Numbers.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::FieldChange;
using protocol::Quoted;
using protocol::Result;

constexpr std::size_t kMostPeople = 5;
constexpr std::size_t kMostFields = 20;

Error BadToken(const protocol::PartData& request, const std::string& problem) {
  return {ErrorKind::BadValue, "PartData: stateToken: " + Quoted(request.stateToken) + " " + problem +
                                   ", the one that the part was read with expected; read the part again"};
}

// Who has changed a part, each once with the last time, the latest first.
struct Changers {
  std::vector<Signature> people;
  bool leftNoName = false;  ///< a change stands in no history

  void Add(const Signature& by) {
    if (std::ranges::find(people, by.user, &Signature::user) == people.end()) people.push_back(by);
  }
};

// Each record of a history stands on the state that the one before it led to, but for changes without a name.
Result<Changers> ChangersOf(Store& store, const StoredPart& stored, std::int64_t since) {
  // States are numbered, so that there are not more records than that.
  const auto page = store.LoadHistory(stored.part.id, 0, stored.state - since);
  if (!page) return page.Failure();
  Changers changers;
  std::int64_t state = stored.state;
  for (const HistoryRecord& record : page.Value().records) {
    if (record.stateAfter <= since) break;
    changers.Add(record.by);
    changers.leftNoName |= record.stateAfter != state;
    state = record.stateBefore;
  }
  changers.leftNoName |= state != since;
  return changers;
}

// "by "eva" on 2026-01-02T03:04:05Z and by ...".
std::string ToText(const Changers& changers) {
  std::string text;
  const auto add = [&text](const std::string& who) { text += (text.empty() ? "" : " and ") + who; };
  const std::size_t shown = std::min(changers.people.size(), kMostPeople);
  for (std::size_t i = 0; i < shown; ++i)
    add("by " + Quoted(changers.people[i].user) + " on " + changers.people[i].time);
  if (shown < changers.people.size())
    add("by " + Counted(changers.people.size() - shown, {"more person", "more people"}));
  if (changers.leftNoName) add("by a program that left no name");
  return text;
}

std::string ToText(const std::optional<std::string>& value) { return value ? Quoted(*value) : "none"; }

std::string ToText(const std::vector<FieldChange>& changes) {
  std::string text;
  for (std::size_t i = 0; i < changes.size() && i < kMostFields; ++i)
    text += (i == 0 ? "" : ", ") + changes[i].field + " (" + ToText(changes[i].before) + ", now " +
            ToText(changes[i].after) + ")";
  const std::size_t shown = std::min(changes.size(), kMostFields);
  return shown < changes.size() ? text + " and " + std::to_string(changes.size() - shown) + " more" : text;
}

Result<void> Refuse(Store& store, const StoredPart& stored, std::int64_t state, const std::string& fields) {
  const auto changers = ChangersOf(store, stored, state);
  if (!changers) return changers.Failure();
  return Error{ErrorKind::Conflict,
               "part " + Quoted(stored.part.id) + " was changed " + ToText(changers.Value()) +
                   " since it was read, nothing was saved; fields that differ: " + fields};
}

}  // namespace

std::string ToToken(std::int64_t state) { return std::to_string(state); }

Result<std::int64_t> StateIn(const protocol::PartData& request) {
  const auto state = protocol::ParseInteger(request.stateToken);
  if (!state || *state <= 0) return BadToken(request, "is no state token");
  return std::int64_t{*state};
}

Result<void> CheckStillStored(Store& store, const StoredPart& stored, std::int64_t state) {
  if (state == stored.state) return {};
  const std::string& part = stored.part.id;
  if (state > stored.state)
    return Error{ErrorKind::BadValue, "PartData: stateToken: " + Quoted(ToToken(state)) +
                                          " is no state of part " + Quoted(part) + "; read the part again"};
  const auto text = store.FindStateText(part, state);
  if (!text) return text.Failure();
  if (!text.Value()) return Refuse(store, stored, state, "not known, since nothing is kept of what was read");
  const auto values = FromHistoryText(*text.Value());
  if (!values) return store.Damage("the history of part " + Quoted(part) + ": " + values.Failure().message);
  const auto changes = DifferencesOf(values.Value(), SavedValuesOf(stored.part, stored.details));
  // Changed and changed back: nobody's work would be lost.
  if (changes.empty()) return {};
  return Refuse(store, stored, state, ToText(changes));
}

}  // namespace lumira
