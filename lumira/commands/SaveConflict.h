#pragma once

#include <cstdint>
#include <string>

#include "lumira/store/Store.h"
#include "protocol/PartData.h"
#include "protocol/Result.h"

namespace lumira {

/// The state of a part as clients are told it, and send it back.
std::string ToToken(std::int64_t state);

/// The state that a client has read the part in: BadValue for a token that is none of ours, an empty one
/// among them; who has read nothing has nothing to save.
protocol::Result<std::int64_t> StateIn(const protocol::PartData& request);

/// Whether what a client has read in `state` is still what is stored: Conflict when a value has changed that
/// a save stores. The message names who has changed it, when, and the fields that differ.
protocol::Result<void> CheckStillStored(Store& store, const StoredPart& stored, std::int64_t state);

}  // namespace lumira
