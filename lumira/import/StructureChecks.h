#pragma once

#include <vector>

#include "lumira/import/ImportLog.h"
#include "lumira/import/StructureTable.h"

namespace lumira {

/// Reports every part that would contain itself, with the chain of parts and the place of an instance that
/// closes it.
void CheckCycles(const StructureRows& structure, ImportLog& log);

/// The rows that are the first to name a part that is no child of another, as their parent; one for each such
/// part, in their order. They belong to `rows`.
std::vector<const InstanceRow*> FindRoots(const std::vector<InstanceRow>& rows);

}  // namespace lumira
