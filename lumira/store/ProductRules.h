#pragma once

#include "lumira/model/Product.h"
#include "protocol/Result.h"

namespace lumira {

/// Why a product cannot be stored: BadValue for an identifier of the product, a part or an instance that
/// breaks the rules of model/Identifier.h, and for a structure of more levels than a path can have elements
/// (protocol::kMaxPathDepth). Cycles are not looked for.
protocol::Result<void> CheckProduct(const Product& product);

}  // namespace lumira
