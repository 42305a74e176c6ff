#include "lumira/engine/ExcludedInstances.h"

#include <functional>
#include <string>
#include <unordered_set>

#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Quoted;
using protocol::Result;

enum class Match {
  Met,
  NotMet,
  NotConcerned,  ///< the condition is not about this instance
};

using Matcher = std::function<Match(std::uint32_t instance)>;

Match MatchIf(bool met) { return met ? Match::Met : Match::NotMet; }

std::unordered_set<std::string_view> SetOf(const std::vector<std::string>& values) {
  return {values.begin(), values.end()};
}

Result<Matcher> MatchAttribute(const StructureIndex& structure, const FilterCondition& condition) {
  return Matcher([&structure, name = std::string_view(condition.name),
                  values = SetOf(condition.values)](std::uint32_t instance) {
    for (const InstanceAttribute& attribute : structure.InstanceAt(instance).attributes)
      if (attribute.name == name) return MatchIf(values.contains(attribute.value));
    return Match::NotConcerned;
  });
}

Result<Matcher> MatchRevision(const StructureIndex& structure, const FilterCondition& condition) {
  const auto only = structure.FindPart(condition.name);
  if (!condition.name.empty() && !only)
    return Error{ErrorKind::NotFound, "there is no part " + Quoted(condition.name)};
  return Matcher([&structure, only, values = SetOf(condition.values)](std::uint32_t instance) {
    const std::uint32_t part = structure.ChildOf(instance);
    const std::string& revision = structure.PartAt(part).revision;
    if (only ? part != *only : revision.empty()) return Match::NotConcerned;
    return MatchIf(values.contains(revision));
  });
}

Result<Matcher> MatchEffectivity(const StructureIndex& structure, const FilterCondition& condition) {
  if (condition.values.size() != 1)
    return Error{ErrorKind::BadValue,
                 "one date expected, there are " + std::to_string(condition.values.size())};
  const auto date = ParseStoredDate(condition.values.front());
  if (!date) return Error{ErrorKind::BadValue, NoDate(Quoted(condition.values.front()))};
  return Matcher([&structure, date = *date](std::uint32_t instance) {
    const Effectivity& effectivity = structure.InstanceAt(instance).effectivity;
    return effectivity.HasDates() ? MatchIf(effectivity.Covers(date)) : Match::NotConcerned;
  });
}

Result<Matcher> MatchInstances(const StructureIndex& structure, const FilterCondition& condition) {
  std::vector<bool> listed(structure.Data().instances.size());
  std::vector<std::uint32_t> parents, children;
  for (const std::string& id : condition.values) {
    const auto instance = structure.FindInstance(id);
    if (!instance) return Error{ErrorKind::NotFound, "there is no instance " + Quoted(id)};
    listed[*instance] = true;
    parents.push_back(structure.ParentOf(*instance));
    children.push_back(structure.ChildOf(*instance));
  }
  return Matcher([&structure, listed = std::move(listed), above = structure.AtOrAbove(std::move(parents)),
                  below = structure.AtOrBelow(std::move(children))](std::uint32_t instance) {
    if (listed[instance]) return Match::Met;
    const bool isOnTheWay = above[structure.ChildOf(instance)] || below[structure.ParentOf(instance)];
    return isOnTheWay ? Match::NotConcerned : Match::NotMet;
  });
}

struct ConditionRule {
  ConditionKind kind;
  Result<Matcher> (*matcher)(const StructureIndex&, const FilterCondition&);
};

// The matchers refer to the structure and the condition.
constexpr ConditionRule kRules[] = {
    {ConditionKind::Attribute, MatchAttribute},
    {ConditionKind::Revision, MatchRevision},
    {ConditionKind::Effectivity, MatchEffectivity},
    {ConditionKind::Instances, MatchInstances},
};

Result<Matcher> MatcherFor(const StructureIndex& structure, const FilterCondition& condition) {
  if (condition.values.empty()) return Error{ErrorKind::BadValue, "there are no values"};
  for (const ConditionRule& rule : kRules)
    if (rule.kind == condition.kind) return rule.matcher(structure, condition);
  return Error{ErrorKind::BadValue, "its kind is not known"};
}

bool Passes(Match match, ConditionSense sense) {
  return match == Match::NotConcerned || (match == Match::Met) == (sense == ConditionSense::Keep);
}

Error InCondition(const ConfigurationFilter& filter, std::size_t index, const Error& error) {
  return {error.kind, "configuration filter " + Quoted(filter.name) + ", condition " +
                          std::to_string(index + 1) + ": " + error.message};
}

}  // namespace

Result<std::vector<bool>> ExcludedInstances(const StructureIndex& structure,
                                            const ConfigurationFilter& filter) {
  std::vector<bool> excluded(structure.Data().instances.size());
  for (std::size_t i = 0; i < filter.conditions.size(); ++i) {
    const FilterCondition& condition = filter.conditions[i];
    const auto matcher = MatcherFor(structure, condition);
    if (!matcher) return InCondition(filter, i, matcher.Failure());
    for (std::uint32_t instance = 0; instance < excluded.size(); ++instance)
      if (!Passes(matcher.Value()(instance), condition.sense)) excluded[instance] = true;
  }
  return excluded;
}

std::size_t CountLeftOut(const StructureIndex& structure, const std::vector<bool>& excluded) {
  const std::vector<bool> takesPart = structure.AtOrBelow({structure.Root()}, excluded);
  std::size_t count = 0;
  for (std::uint32_t instance = 0; instance < excluded.size(); ++instance)
    count += excluded[instance] || !takesPart[structure.ParentOf(instance)];
  return count;
}

}  // namespace lumira
