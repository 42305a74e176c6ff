#pragma once

#include <string>
#include <vector>

#include "lumira/import/ImportLog.h"
#include "lumira/import/StructureTable.h"

namespace lumira {

/// Reports every part that would contain itself, with the chain of parts and the line of an instance that
/// closes it. `file` names the table in messages.
void CheckCycles(const std::vector<InstanceRow>& rows, const std::string& file, ImportLog& log);

/// The parts that are no child of another, in the order in which the rows first name them.
std::vector<std::string> FindRoots(const std::vector<InstanceRow>& rows);

}  // namespace lumira
