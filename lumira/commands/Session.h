#pragma once

#include <string>

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
  std::string user;                        ///< who works in it
  protocol::PendingWarnings findings;      ///< what there was to say when the session began
  protocol::PendingWarnings pending = {};  ///< of the last compute, until fetched
  std::string currentRoot = {};            ///< product; empty: none
};

}  // namespace lumira
