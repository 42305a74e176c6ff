#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lumira/commands/SavedValues.h"
#include "protocol/History.h"
#include "protocol/Result.h"

namespace lumira {

/// The values as they stand in a history: the deviations and then the form that clients get, so that a later
/// version of the form needs a reader for this one. Older programs have written that form alone. What is read
/// back has the computed mass type at least.
std::string ToHistoryText(const SavedValues& values);
protocol::Result<SavedValues> FromHistoryText(std::string_view text);

/// The fields in which two sets of values differ, in the order of the form; deviations come last, and are
/// left out when one of the two does not have them. Values are cut to `protocol::kMaxShownValueBytes`.
std::vector<protocol::FieldChange> DifferencesOf(const SavedValues& before, const SavedValues& after);

}  // namespace lumira
