#pragma once

#include <string>
#include <utility>
#include <vector>

#include "lumira/model/ConfigurationFilter.h"

namespace lumira::test {

/// A filter that leaves instances out by name.
inline ConfigurationFilter LeavingOut(std::string name, std::vector<std::string> instances) {
  return {
      std::move(name), {}, {{ConditionKind::Instances, ConditionSense::LeaveOut, {}, std::move(instances)}}};
}

/// One of each kind of condition, for the product of the store tests.
inline ConfigurationFilter FilterOfAllKinds() {
  return {"Everything",
          "What it is for",
          {{ConditionKind::Attribute, ConditionSense::Keep, "system", {"drive train", "structure"}},
           {ConditionKind::Revision, ConditionSense::LeaveOut, "leaf", {"A"}},
           {ConditionKind::Effectivity, ConditionSense::Keep, {}, {"2021-06-30"}},
           {ConditionKind::Instances, ConditionSense::Keep, {}, {"i2", "i1"}}}};
}

}  // namespace lumira::test
