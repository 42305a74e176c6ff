#pragma once

#include "lumira/commands/Session.h"
#include "protocol/PartData.h"
#include "protocol/Requests.h"
#include "protocol/Result.h"

namespace lumira {

/// Everything known of the part that a request means, with the token of the state that it is in. Fails as
/// "WBGetPartData" does.
protocol::Result<protocol::PartData> PartDataOf(Session& session, const protocol::PartDataRequest& request);

}  // namespace lumira
