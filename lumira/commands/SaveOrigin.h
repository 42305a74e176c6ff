#pragma once

#include "lumira/store/Store.h"
#include "protocol/PartData.h"
#include "protocol/Result.h"

namespace lumira {

/// What a client has edited: the part as it stands, or with the mass types that the client read instead,
/// those of a revision of its document or of an earlier state. BadValue when the part has no such revision or
/// state, and otherwise as the store fails.
protocol::Result<StoredPart> EditedPart(Store& store, const StoredPart& stored,
                                        const protocol::Origin& origin);

}  // namespace lumira
