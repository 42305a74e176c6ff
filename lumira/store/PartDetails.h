#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lumira/model/Precision.h"
#include "protocol/PartData.h"

namespace lumira {

/// What is kept of a part beside the data that enters a computation.
struct PartDetails {
  std::vector<Precision> precisions = {};
  std::string appliedOn = {};                   ///< where the material applies: instance or reference
  std::string referenceMaterial = {};           ///< material of the part reference
  std::optional<double> referenceDensity = {};  ///< kg/m³
  std::string documentId = {};         ///< of the part's document, unique in the store; empty: it has none
  protocol::Documents documents = {};  ///< its revisions, and which of them the user has chosen
  /// Those that the product defines, in its order, with the values of the part (empty: none). Saving takes
  /// name and value; properties that are not named keep no value.
  std::vector<protocol::ExtraProperty> properties = {};
};

}  // namespace lumira
