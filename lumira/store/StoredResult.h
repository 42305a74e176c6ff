#pragma once

#include <cstdint>
#include <string>

#include "lumira/model/MassTypeData.h"

namespace lumira {

/// What was computed for a part, without any filter, and from what.
struct StoredResult {
  std::string partId;
  std::string fingerprint;  ///< of the structure and data below the part when it was computed
  MassTypeData computed;    ///< in the part's own frame
  std::int64_t state = 0;   ///< of the product when it was computed

  friend bool operator==(const StoredResult&, const StoredResult&) = default;
};

}  // namespace lumira
