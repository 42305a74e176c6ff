#pragma once

#include <set>
#include <string>
#include <vector>

#include "lumira/import/CsvTable.h"
#include "lumira/import/ImportLog.h"
#include "lumira/model/Instance.h"
#include "lumira/model/Progress.h"

namespace lumira {

/// An instance and the line that it comes from.
struct InstanceRow {
  Instance instance;
  std::size_t line = 0;
};

/// Which table holds the structure: one of its own, with a "child" column, or the mass table, where a row
/// with a parent places its part.
enum class StructureForm { OwnTable, InMassTable };

struct StructureRows {
  std::vector<InstanceRow> rows;
  std::set<std::size_t> usedColumns;  ///< positions in the table
  bool hasParentColumn = false;
  Place parentColumn;  ///< in the header
  Place childColumn;

  Place ParentOf(const InstanceRow& row) const { return At(parentColumn, row.line); }
  Place ChildOf(const InstanceRow& row) const { return At(childColumn, row.line); }
};

/// Reads the instances: parent, child, instance, quantity, translation, a rotation as nine coefficients or as
/// three tilts, dates, and attributes. A table without a needed column has no rows. Instances without an
/// identifier get one: the child, a dot and a number.
StructureRows ReadStructure(const CsvTable& table, StructureForm form, ImportLog& log,
                            const Progress& progress = {});

}  // namespace lumira
