#pragma once

#include <vector>

#include "lumira/commands/Session.h"
#include "lumira/model/MassTypeData.h"
#include "lumira/model/Precision.h"
#include "protocol/PartData.h"
#include "protocol/Requests.h"
#include "protocol/Result.h"

namespace lumira {

/// Everything known of the part that a request means, as "WBGetPartData" answers it.
protocol::Result<protocol::PartData> DescribePart(Session& session, const protocol::PartDataRequest& request);

/// User mass types as they go over the wire.
std::vector<protocol::MassType> ToWire(const std::vector<MassTypeData>& types,
                                       const std::vector<Precision>& precisions);

}  // namespace lumira
