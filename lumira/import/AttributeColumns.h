#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "lumira/import/CsvTable.h"
#include "lumira/import/ImportLog.h"
#include "lumira/model/InstanceAttribute.h"

namespace lumira {

/// The columns "attribute NAME" of a structure table; the name stands as it is written.
class AttributeColumns {
 public:
  /// A name that is no identifier, and one that is there twice, go to the log.
  AttributeColumns(const CsvTable& table, ImportLog& log);

  /// The attributes of a row, in the order of the columns; an empty cell is none.
  std::vector<InstanceAttribute> Read(std::size_t row) const;

  /// Adds the positions (from 0) of the columns.
  void AddFound(std::set<std::size_t>& positions) const;

 private:
  struct Column {
    std::size_t position;
    std::string name;
  };

  void Add(std::size_t position, std::string name);

  const CsvTable& _table;
  ImportLog& _log;
  std::vector<Column> _columns;
};

}  // namespace lumira
