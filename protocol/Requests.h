#pragma once

#include <string>
#include <vector>

#include "protocol/PartData.h"

namespace protocol {

/// The whole request of "WBComputeNymValues": flag "|" part identifier "|" options.
struct ComputeRequest {
  bool hasInstance = false;  ///< the selected object has an instance in the PDM
  std::string partId = {};
  ComputeOptions options;  ///< the defaults when the third field is empty
};

/// Asks for all data of one part. Either `partId` or `instancePath` may be empty; with both, the path must
/// lead to that part. With neither, the root part of the product is meant.
struct PartDataRequest {
  std::string product = {};  ///< identifier of the product root; empty when the part alone matters
  std::string partId = {};
  std::vector<std::string> instancePath = {};  ///< instance identifiers from the root part down
  std::string filter = "0|No Filter";
};

/// The whole request of "WBGetActiveDocInfo": document identifier "|" revision.
struct DocumentRequest {
  std::string documentId = {};
  std::string revision = {};
};

/// Asks for the children of a part, one page at a time.
struct ChildrenRequest {
  std::string partId = {};
  int first = 0;     ///< index of the first child wanted
  int limit = 1000;  ///< most children in the reply
};

/// Asks for the occurrences whose part identifier, part name or instance identifier contains a text.
struct SearchRequest {
  std::string product = {};
  std::string text = {};  ///< compared without regard to the case of ASCII letters
  int limit = 1000;       ///< most hits in the reply
};

}  // namespace protocol
