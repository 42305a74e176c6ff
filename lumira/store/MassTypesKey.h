#pragma once

#include <cstdint>

#include "protocol/PartData.h"

namespace lumira {

/// A number that stands for which user mass types there are: their names and the precisions that come with
/// each, in any order. Their values do not matter, nor does the computed mass type. Equal ones give equal
/// keys on every machine; different ones differ, but for odds of 2^-64. Keys are stored with the history of a
/// part.
std::int64_t MassTypesKey(const protocol::PartData& data);

}  // namespace lumira
