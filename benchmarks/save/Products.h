#pragma once

#include "lumira/model/Product.h"
#include "lumira/store/ProductContent.h"

namespace bench {

/// `items` parts of one mass type, eight to an assembly, eight assemblies to the next, up to the root "top".
/// The part "P0" has `massTypes` mass types.
lumira::Product EightEach(int items, int massTypes);

/// Document revisions and properties of the part "P0", which has a long life behind it.
lumira::ProductContent LongContent(int revisions, int properties);

}  // namespace bench
