#pragma once

#include <set>
#include <string>
#include <vector>

#include "lumira/import/CsvTable.h"
#include "lumira/import/ImportLog.h"
#include "lumira/model/Part.h"
#include "lumira/model/Progress.h"
#include "lumira/store/PartDetails.h"

namespace lumira {

/// A part of the mass table and the line that names it first.
struct PartRow {
  Part part;
  std::size_t line = 0;
  PartDetails details = {};
  std::size_t massTypeBytes = 0;  ///< as they will be told
};

struct MassRows {
  std::vector<PartRow> parts;
  std::set<std::size_t> usedColumns;  ///< positions in the table
  Place partColumn;                   ///< in the header

  Place PartOf(const PartRow& row) const { return At(partColumn, row.line); }
};

/// Reads the parts with their mass types. A row is one mass type of a part; what belongs to the part itself
/// (name, material, shape) may stand on any of its rows, but not differently on two. A part has the computed
/// mass type active unless a row says otherwise. A table without a needed column has no parts.
MassRows ReadMassTable(const CsvTable& table, ImportLog& log, const Progress& progress = {});

}  // namespace lumira
