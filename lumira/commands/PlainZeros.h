#pragma once

#include "protocol/PartData.h"

namespace lumira {

/// What users type, with zero for negative zero, which is the same number, though not the same text.
protocol::PartData WithPlainZeros(protocol::PartData data);

}  // namespace lumira
