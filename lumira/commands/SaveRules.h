#pragma once

#include "lumira/store/PartHistory.h"
#include "protocol/PartData.h"
#include "protocol/Result.h"

namespace lumira {

/// What a part becomes when a client saves `request` over it; `stored` stays what the state is counted from.
/// Only what users edit is taken (docs/server.md): the values of a mass type that is not defined any more are
/// dropped, those of the computed one are not stored. Fails with BadValue; the message names the field, its
/// value and what was expected.
protocol::Result<StoredPart> ApplySave(const StoredPart& stored, const protocol::PartData& request);

}  // namespace lumira
