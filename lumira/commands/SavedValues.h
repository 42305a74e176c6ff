#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lumira/store/PartHistory.h"
#include "protocol/History.h"
#include "protocol/PartData.h"
#include "protocol/Result.h"

/// What a save stores of a part, as part data in which everything else is left at its default. The first mass
/// type is the computed one, of which a save stores the precision only.
namespace lumira {

protocol::PartData SavedValuesOf(const Part& part, const PartDetails& details);

/// The precision as it is stored beside a mass type.
Precision PrecisionOf(const protocol::MassType& type);

/// The values as they stand in a history: in the form that clients get, version and all, so that a later
/// version of the form needs a reader for this one. What is read back has the computed mass type at least.
std::string ToHistoryText(const protocol::PartData& values);
protocol::Result<protocol::PartData> FromHistoryText(std::string_view text);

/// The fields in which two sets of values differ, in the order of the form. Values are cut to
/// `protocol::kMaxShownValueBytes`.
std::vector<protocol::FieldChange> DifferencesOf(const protocol::PartData& before,
                                                 const protocol::PartData& after);

/// Puts saved values into part data. The user mass types are the saved ones; the computed one keeps its
/// values. Properties are those that the part data has: what the values do not know stays as it is, what is
/// no longer there is left out, as is the choice of a document or revision that is not there any more.
void PutSavedValues(protocol::PartData& data, const protocol::PartData& values);

}  // namespace lumira
