#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lumira/model/MassTypeData.h"
#include "lumira/model/Precision.h"

namespace lumira {

/// The weight-and-balance data of a part as one revision of its document has it.
struct RevisionData {
  std::string revision;                           ///< unique in the part
  std::vector<MassTypeData> massTypes = {};       ///< user mass types; names are unique in the revision
  std::string activeMassType{kComputedMassType};  ///< `kComputedMassType` or one of `massTypes`
  std::string material = {};
  std::optional<double> density = {};  ///< kg/m³
  std::vector<Precision> precisions = {};

  friend bool operator==(const RevisionData&, const RevisionData&) = default;
};

}  // namespace lumira
