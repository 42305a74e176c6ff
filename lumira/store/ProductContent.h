#pragma once

#include <string>
#include <vector>

#include "lumira/model/PropertyDefinition.h"
#include "lumira/model/RevisionData.h"
#include "lumira/store/PartDetails.h"

namespace lumira {

/// What is kept of one part beside the product structure.
struct PartContent {
  std::string partId;
  PartDetails details = {};
  std::vector<RevisionData> revisions = {};  ///< data of the document revisions in `details`
};

/// What is kept with a product beside its structure. Parts that are not named have no content.
struct ProductContent {
  std::vector<PropertyDefinition> properties = {};
  std::vector<PartContent> parts = {};
};

}  // namespace lumira
