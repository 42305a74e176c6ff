#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "lumira/import/ImportLog.h"
#include "lumira/import/TableColumns.h"
#include "lumira/model/MassTypeData.h"

namespace lumira {

/// Reads the mass type of a row of the mass table: inertia about the own centre of gravity, in part axes, as
/// the tensor, whatever the row says it is given as. None when the row has no mass data. What no body can
/// have is warned of, with the name of the part.
std::optional<MassTypeData> ReadMassType(const TableColumns& columns, std::size_t row,
                                         const std::string& partId, ImportLog& log);

}  // namespace lumira
