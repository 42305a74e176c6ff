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

Result<std::vector<PartOwner>> SqliteStore::PartsOfDocument(std::string_view documentId) {
  return Read([&]() -> Result<std::vector<PartOwner>> { return FindDocumentOwners(documentId); });
}

// The empty identifier is that of parts without a document.
std::vector<PartOwner> SqliteStore::FindDocumentOwners(std::string_view documentId) {
  if (documentId.empty()) return {};
  SQLite::Statement query(
      _db,
      "SELECT parts.key, parts.part, products.product FROM part_details "
      "JOIN parts ON parts.key = part_details.part "
      "JOIN products ON products.key = parts.product "
      "WHERE part_details.document = ? AND part_details.document <> '' ORDER BY parts.key");
  query.bind(1, std::string(documentId));
  std::vector<PartOwner> owners;
  while (query.executeStep()) owners.push_back({TextIn(query, 1), TextIn(query, 2)});
  return owners;
}

Result<void> SqliteStore::CheckDocument(const std::string& documentId, std::int64_t partKey) {
  for (const PartOwner& owner : FindDocumentOwners(documentId))
    if (PartKey(owner.part).Value() != partKey)
      return Error{ErrorKind::Conflict, DocumentTaken(documentId, owner)};
  return {};
}

Result<RevisionData> SqliteStore::LoadRevision(std::string_view partId, std::string_view revision) {
  return Read([&]() -> Result<RevisionData> {
    const auto part = PartKey(partId);
    if (!part) return part.Failure();
    SQLite::Statement query(_db, SelectSql<RevisionData>("key, mass_type_count, precision_count",
                                                         "revision_data", "WHERE part = ? AND revision = ?"));
    SQLite::bind(query, part.Value(), std::string(revision));
    if (!query.executeStep())
      return Error{ErrorKind::NotFound,
                   "part " + Quoted(partId) + " has no data of revision " + Quoted(revision)};
    auto data = ReadRow<RevisionData>(query, 3);
    const std::int64_t key = query.getColumn(0).getInt64();
    data.massTypes = ReadRows<MassTypeData>(_db, "revision_mass_types", key, "revision");
    const auto whose = [&] { return "revision " + Quoted(revision) + " of part " + Quoted(partId); };
    CheckRowCount(whose, {"mass type", "mass types"}, data.massTypes.size(), query.getColumn(1).getInt64());
    data.precisions = ReadRows<Precision>(_db, "revision_precisions", key, "revision");
    CheckRowCount(whose, kPrecisions, data.precisions.size(), query.getColumn(2).getInt64());
    return data;
  });
}

}  // namespace lumira
