#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lumira {

/// What a condition looks at. The values are those of the store.
enum class ConditionKind {
  Attribute = 0,    ///< an attribute of the instance
  Revision = 1,     ///< the revision of the part that it places
  Effectivity = 2,  ///< whether it is built in on a day
  Instances = 3,    ///< the instance itself
};

/// What becomes of the instances that meet a condition. The values are those of the store.
enum class ConditionSense {
  Keep = 0,      ///< of the instances that the condition is about, only those pass that meet it
  LeaveOut = 1,  ///< those that meet it do not pass
};

/// One condition of a configuration filter. It is about some instances; all others pass:
/// - Attribute: about instances that have the attribute `name`; met by one of `values`.
/// - Revision: about instances of parts that have a revision, or of the part `name` only, unless that is
///   empty; met by one of `values`.
/// - Effectivity: about instances with dates; met when they cover the day in `values`, "YYYY-MM-DD".
/// - Instances: about all but those above and below the ones in `values`, so that "keep" keeps the way to
///   them and what they consist of; met by the ones in `values`.
struct FilterCondition {
  ConditionKind kind = ConditionKind::Attribute;
  ConditionSense sense = ConditionSense::Keep;
  std::string name = {};
  std::vector<std::string> values = {};  ///< one or more

  friend bool operator==(const FilterCondition&, const FilterCondition&) = default;
};

}  // namespace lumira
