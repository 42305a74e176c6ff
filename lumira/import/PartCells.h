#pragma once

#include <cstddef>

#include "lumira/import/ImportLog.h"
#include "lumira/import/TableColumns.h"
#include "lumira/model/Part.h"

namespace lumira {

/// Reads what a row of the mass table says of the part itself (name, material, shape) into the part. It may
/// stand on any row of the part; what another row has said differently is an error.
void ReadPartCells(const TableColumns& columns, std::size_t row, Part& part, ImportLog& log);

/// Says so when the mass or the inertia of the part's shape with its density is too large for a number. To be
/// asked when all rows of the part are read; `row` is the one that has the shape.
void CheckShapeWithDensity(const TableColumns& columns, std::size_t row, const Part& part);

}  // namespace lumira
