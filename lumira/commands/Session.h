#pragma once

#include "lumira/commands/ProductCache.h"
#include "lumira/model/Progress.h"
#include "lumira/store/Store.h"
#include "protocol/Warnings.h"

namespace lumira {

/// What a client's session keeps between commands.
struct Session {
  Store& store;
  Progress progress;
  ProductCache products;
  protocol::PendingWarnings pending;  ///< of the last compute, until fetched
};

}  // namespace lumira
