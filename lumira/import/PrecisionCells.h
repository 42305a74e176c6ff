#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "lumira/import/TableColumns.h"
#include "lumira/model/Precision.h"

namespace lumira {

/// Reads the precision of the mass type of a row; none when the row says nothing of one. Relative and
/// absolute bounds cannot stand on the same row.
std::optional<Precision> ReadPrecision(const TableColumns& columns, std::size_t row,
                                       const std::string& massType);

}  // namespace lumira
