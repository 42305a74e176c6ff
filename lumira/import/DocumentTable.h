#pragma once

#include <set>
#include <vector>

#include "lumira/import/CsvTable.h"
#include "lumira/import/ImportLog.h"
#include "lumira/store/ProductContent.h"

namespace lumira {

/// The document of a part, with the data of its revisions, and the first row that tells of it.
struct DocumentOfPart {
  PartContent content;
  Place part;      ///< the cell that names the part
  Place document;  ///< the cell that names the document; that of the part when none does
  std::vector<std::size_t> massTypeBytes = {};  ///< of each revision, as they will be told
};

struct DocumentRows {
  std::vector<DocumentOfPart> documents = {};
  std::set<std::size_t> usedColumns = {};  ///< positions in the table
};

/// Reads the document revisions of parts. A row is one mass type of a revision; what belongs to the revision
/// or to the document itself may stand on any of their rows, but not differently on two. What is wrong goes
/// to the log.
DocumentRows ReadDocumentTable(const CsvTable& table, ImportLog& log);

}  // namespace lumira
