#pragma once

#include <string>

#include "lumira/store/PartDetails.h"
#include "protocol/PartData.h"

namespace lumira {

/// The documents of a part with the active one worked out from what is stored. The identifier is that of the
/// part's document, the version the one that the user has chosen, or else the revision that the mode says:
/// the most recent one (by the time of check-in; of those without a time, the last) or the attached one. A
/// document of which no revision is known cannot be found, and has the identifier that says so.
protocol::Documents WithActiveDocument(const PartDetails& details);

/// The revision that a user has chosen by hand; empty for the automatic one, which is never stored: what it
/// is may change, and choosing just that one by hand has to be told from no choice.
std::string ChosenVersion(const protocol::Documents& documents);

}  // namespace lumira
