#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "lumira/import/ImportLog.h"
#include "lumira/import/TableColumns.h"
#include "lumira/model/MassTypeData.h"
#include "lumira/model/Precision.h"

namespace lumira {

/// Who gets the mass type of a row: a part, or a revision of its document.
struct MassTypeOwner {
  std::string partId;
  std::string name;  ///< as messages call it
  std::vector<MassTypeData>& massTypes;
  std::string& active;
  std::vector<Precision>& precisions;
  std::size_t& bytes;  ///< of its mass types so far, as they will be told (store/SizeRules.h)
};

/// Reads the mass type of a row (import/MassTypeColumns.h), with its precision and whether it is active. A
/// row without mass data gives none.
void ReadMassTypeRow(const TableColumns& columns, std::size_t row, const MassTypeOwner& owner,
                     ImportLog& log);

/// Says so when a table has products of inertia but no column that tells their sign.
void CheckSignColumn(const TableColumns& columns, ImportLog& log);

}  // namespace lumira
