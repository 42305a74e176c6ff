#pragma once

#include <cstddef>
#include <optional>

#include "lumira/import/TableColumns.h"
#include "lumira/model/InertiaTensor.h"
#include "lumira/model/Vec3.h"

/// Cells of columns that follow each other and belong together; SI units as in the table's columns.
namespace lumira {

/// Three coordinates: none when all cells are empty; one or two of them are an error.
std::optional<Vec3> ReadVector(const TableColumns& columns, std::size_t row, std::size_t first);

/// Three moments and three products. Moments must all be there when one is; products that are not given are
/// zero, and an error without moments.
std::optional<InertiaTensor> ReadTensor(const TableColumns& columns, std::size_t row, std::size_t first);

/// How much the numbers may be off because they are rounded as they are written.
Vec3 VectorRounding(const TableColumns& columns, std::size_t row, std::size_t first);
InertiaTensor TensorRounding(const TableColumns& columns, std::size_t row, std::size_t first);

}  // namespace lumira
