#pragma once

#include "lumira/model/Product.h"
#include "lumira/store/ProductContent.h"

namespace bench {

/// How much there is to show of one part.
struct PartSize {
  int massTypes = 200;
  int materials = 1'000;  ///< each of a part of its own below it
  int revisions = 500;
  int properties = 300;
};

/// A product whose root part "large" has as much as the size says.
struct LargePart {
  lumira::Product product;
  lumira::ProductContent content;
};

LargePart MakeLargePart(const PartSize& size);

}  // namespace bench
