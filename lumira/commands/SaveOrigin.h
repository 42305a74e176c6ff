#pragma once

#include "lumira/store/Store.h"
#include "protocol/PartData.h"
#include "protocol/Result.h"

namespace lumira {

/// What a client has edited: the part as it stands, or with the mass types of a revision of its document or
/// of an earlier state that the client was told. The part as it stands when the mass types of the request are
/// none of these. Fails when the store does.
protocol::Result<StoredPart> EditedPart(Store& store, const StoredPart& stored,
                                        const protocol::PartData& request);

}  // namespace lumira
