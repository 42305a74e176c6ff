#pragma once

#include "lumira/store/Store.h"
#include "protocol/Warnings.h"

namespace lumira {

/// What users should know about the products of a store before they open one: products that cannot be read,
/// products without any mass data, results that are older than the last change of their product, and
/// configuration filters that are set but not there. Asks the store about each product and loads none, so
/// that it takes no longer for large ones; what only loading could tell (whether an older result still holds,
/// what is damaged inside) is not among it.
protocol::PendingWarnings CollectFindings(Store& store);

}  // namespace lumira
