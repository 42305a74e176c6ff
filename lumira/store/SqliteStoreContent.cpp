#include <SQLiteCpp/VariadicBind.h>

#include "lumira/store/SqliteArchives.h"
#include "lumira/store/SqliteContent.h"
#include "lumira/store/SqliteStore.h"
#include "lumira/store/SqliteTables.h"
#include "protocol/Utf8.h"

namespace lumira {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Quoted;
using protocol::Result;

Result<std::vector<PropertyDefinition>> SqliteStore::LoadProperties(std::string_view productId) {
  return Read([&]() -> Result<std::vector<PropertyDefinition>> {
    const auto key = ProductKey(productId);
    if (!key) return key.Failure();
    return ReadDefinitions(_db, key.Value());
  });
}

Result<PartOwner> SqliteStore::PartOfDocument(std::string_view documentId) {
  return Read([&]() -> Result<PartOwner> {
    if (auto owner = FindDocumentOwner(documentId)) return *std::move(owner);
    return Error{ErrorKind::NotFound, "there is no document " + Quoted(documentId)};
  });
}

// The empty identifier is that of parts without a document.
std::optional<PartOwner> SqliteStore::FindDocumentOwner(std::string_view documentId) {
  if (documentId.empty()) return std::nullopt;
  SQLite::Statement query(_db,
                          "SELECT parts.key, parts.part, products.product FROM part_details "
                          "JOIN parts ON parts.key = part_details.part "
                          "JOIN products ON products.key = parts.product "
                          "WHERE part_details.document = ? AND part_details.document <> '' LIMIT 1");
  query.bind(1, std::string(documentId));
  if (!query.executeStep()) return std::nullopt;
  return PartOwner{TextIn(query, 1), TextIn(query, 2)};
}

Result<void> SqliteStore::CheckDocument(const std::string& documentId, std::int64_t partKey) {
  const auto owner = FindDocumentOwner(documentId);
  if (!owner || PartKey(owner->part).Value() == partKey) return {};
  return Error{ErrorKind::Conflict, DocumentTaken(documentId, *owner)};
}

Result<RevisionData> SqliteStore::LoadRevision(std::string_view partId, std::string_view revision) {
  return Read([&]() -> Result<RevisionData> {
    const auto part = PartKey(partId);
    if (!part) return part.Failure();
    SQLite::Statement query(_db, SelectSql<RevisionData>("key, mass_type_count", "revision_data",
                                                         "WHERE part = ? AND revision = ?"));
    SQLite::bind(query, part.Value(), std::string(revision));
    if (!query.executeStep())
      return Error{ErrorKind::NotFound,
                   "part " + Quoted(partId) + " has no data of revision " + Quoted(revision)};
    auto data = ReadRow<RevisionData>(query, 2);
    const std::int64_t key = query.getColumn(0).getInt64();
    data.massTypes = ReadRows<MassTypeData>(_db, "revision_mass_types", key, "revision");
    CheckRowCount([&] { return "revision " + Quoted(revision) + " of part " + Quoted(partId); },
                  {"mass type", "mass types"}, data.massTypes.size(), query.getColumn(1).getInt64());
    data.precisions = ReadRows<Precision>(_db, "revision_precisions", key, "revision");
    return data;
  });
}

}  // namespace lumira
