#pragma once

#include "lumira/engine/Warnings.h"
#include "protocol/Warnings.h"

namespace lumira {

/// What the engine has to say about a result, for people.
protocol::Warning ToWarning(const Warning& warning);

}  // namespace lumira
