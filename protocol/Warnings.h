#pragma once

#include <string>
#include <vector>

namespace protocol {

enum class Severity : int {
  Information = 0,
  Warning = 1,
  Error = 2,  ///< the command went on, but what it gives must not be relied on
};

/// What the server has to say about the last command, for people.
struct Warning {
  Severity severity = Severity::Warning;
  std::string text = {};
};

/// Answers "WBGetPendingWarnings". Fetching empties the list.
struct PendingWarnings {
  std::vector<Warning> warnings = {};
};

}  // namespace protocol
