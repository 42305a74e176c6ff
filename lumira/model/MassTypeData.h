#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "lumira/model/Deviations.h"
#include "lumira/model/MassBounds.h"
#include "lumira/model/MassProperties.h"

namespace lumira {

/// The mass type that the engine fills: rolled up from children, or volume times density for a shape.
inline constexpr std::string_view kComputedMassType = "Computed";

/// One set of mass properties of a part, such as "Estimated", "Calculated" or "Weighed".
struct MassTypeData {
  std::string name;
  MassProperties properties;
  Deviations deviations;
  std::optional<MassBounds> bounds;  ///< none: no worst-case limits are known

  friend bool operator==(const MassTypeData&, const MassTypeData&) = default;
};

}  // namespace lumira
