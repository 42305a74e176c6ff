#pragma once

#include <functional>
#include <set>
#include <string>

#include "lumira/commands/ProductCache.h"
#include "lumira/model/Progress.h"
#include "lumira/store/Store.h"
#include "protocol/Filter.h"
#include "protocol/Warnings.h"

namespace lumira {

/// What a client's session keeps between commands.
struct Session {
  Store& store;
  Progress progress;
  ProductCache products;
  std::string user;                                  ///< who works in it
  protocol::PendingWarnings findings;                ///< what there was to say when the session began
  protocol::PendingWarnings pending = {};            ///< of the last compute, until fetched
  std::set<std::string, std::less<>> filtered = {};  ///< parts that the client looks at under a filter
  std::string currentRoot = {};                      ///< product; empty: none
};

/// Remembers whether the client looks at a part under a filter.
inline void LookAt(Session& session, const std::string& part, const protocol::Filter& filter) {
  if (filter.LetsAllPass())
    session.filtered.erase(part);
  else
    session.filtered.insert(part);
}

}  // namespace lumira
