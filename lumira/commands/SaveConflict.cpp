#include "lumira/commands/SaveConflict.h"

#include <algorithm>
#include <string>
#include <vector>

#include "lumira/commands/SavedValues.h"
#include "protocol/Numbers.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::FieldChange;
using protocol::Quoted;
using protocol::Result;

constexpr std::int64_t kMostPeople = 5;
constexpr std::size_t kMostFields = 20;

Error BadToken(const protocol::PartData& request, const std::string& problem) {
  return {ErrorKind::BadValue, "PartData: stateToken: " + Quoted(request.stateToken) + " " + problem +
                                   ", the one that the part was read with expected; read the part again"};
}

// "by "eva" on 2026-01-02T03:04:05Z and by ...", the latest first.
Result<std::string> WhoChanged(Store& store, const std::string& part, std::int64_t since) {
  const auto page = store.LoadHistory(part, 0, kMostPeople);
  if (!page) return page.Failure();
  std::string people;
  for (const HistoryRecord& record : page.Value().records)
    if (record.stateAfter > since)
      people += (people.empty() ? "by " : " and by ") + Quoted(record.by.user) + " on " + record.by.time;
  return people.empty() ? "by a program that left no name" : people;
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

Result<void> Refuse(Store& store, const std::string& part, std::int64_t state, const std::string& fields) {
  const auto people = WhoChanged(store, part, state);
  if (!people) return people.Failure();
  return Error{ErrorKind::Conflict,
               "part " + Quoted(part) + " was changed " + people.Value() +
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
  if (!text.Value()) return Refuse(store, part, state, "not known, since nothing is kept of what was read");
  const auto values = FromHistoryText(*text.Value());
  if (!values) return store.Damage("the history of part " + Quoted(part) + ": " + values.Failure().message);
  const auto changes = DifferencesOf(values.Value(), SavedValuesOf(stored.part, stored.details));
  // Changed and changed back: nobody's work would be lost.
  if (changes.empty()) return {};
  return Refuse(store, part, state, ToText(changes));
}

}  // namespace lumira
