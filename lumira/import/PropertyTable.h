#pragma once

#include <set>
#include <string>
#include <vector>

#include "lumira/import/CsvTable.h"
#include "lumira/import/ImportLog.h"
#include "lumira/model/PropertyDefinition.h"
#include "protocol/PartData.h"

namespace lumira {

/// A value of one part.
struct PropertyOfPart {
  std::string partId;
  protocol::ExtraProperty property;  ///< name and value, in the storage unit
  Place part;                        ///< the cell that names the part
  Place value;                       ///< the cell that has the value
};

struct PropertyRows {
  std::vector<PropertyDefinition> definitions = {};
  std::vector<PropertyOfPart> values = {};
  std::set<std::size_t> usedColumns = {};  ///< positions in the table
};

/// Reads the extra properties of a product and the values that parts have for them. A row defines a property,
/// or gives the value of a part, or both; type and magnitude may stand on any row of the property, but not
/// differently on two. What is wrong goes to the log.
PropertyRows ReadPropertyTable(const CsvTable& table, ImportLog& log);

}  // namespace lumira
