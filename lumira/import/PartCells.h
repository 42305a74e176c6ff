#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "lumira/import/ImportLog.h"
#include "lumira/import/TableColumns.h"
#include "lumira/model/Part.h"
#include "lumira/store/PartDetails.h"

namespace lumira {

/// Reads what a row of the mass table says of the part itself (name, material, shape) into the part. It may
/// stand on any row of the part; what another row has said differently is an error.
void ReadPartCells(const TableColumns& columns, std::size_t row, Part& part, ImportLog& log);

/// Likewise what it says of where the material applies and of the part reference.
void ReadReferenceCells(const TableColumns& columns, std::size_t row, PartDetails& details);

/// Takes the text of a cell over, where there is one. One that differs from what another row has said is an
/// error; `whose` is what has it, such as "part".
void SetText(const TableColumns& columns, std::size_t row, std::size_t column, std::string_view whose,
             std::string& member);

/// Likewise a number of 0 or above; `what` is its name in messages, such as "a density".
void SetAmount(const TableColumns& columns, std::size_t row, std::size_t column, std::string_view what,
               std::optional<double>& member);

/// Says so when the mass or the inertia of the part's shape with its density is too large for a number. To be
/// asked when all rows of the part are read; `row` is the one that has the shape.
void CheckShapeWithDensity(const TableColumns& columns, std::size_t row, const Part& part);

}  // namespace lumira
