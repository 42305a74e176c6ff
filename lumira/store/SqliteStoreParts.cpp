#include <set>

#include "lumira/model/StatisticsMaterial.h"
#include "lumira/store/ActiveDocument.h"
#include "lumira/store/ContentRules.h"
#include "lumira/store/ProductRules.h"
#include "lumira/store/SizeRules.h"
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

namespace {

std::optional<double> OptionalIn(SQLite::Statement& row, int column) {
  return row.isColumnNull(column) ? std::nullopt : std::optional(NumberIn(row, column));
}

// A part of which nothing else is known.
Part MaterialsIn(SQLite::Statement& row) {
  Part part;
  part.material = TextIn(row, 0);
  part.density = OptionalIn(row, 1);
  part.cadMaterial = TextIn(row, 2);
  part.cadDensity = OptionalIn(row, 3);
  part.densityPriority = static_cast<DensityPriority>(IntegerIn(row, 4, kZeroOrOne));
  part.surfaceMass = OptionalIn(row, 5);
  return part;
}

}  // namespace

Result<void> SqliteStore::UpdatePart(const Part& part) {
  if (auto good = CheckPart(part); !good) return good;
  return Write([&]() -> Result<void> {
    const auto key = PartKey(part.id);
    if (!key) return key.Failure();
    const Part present = PartAt(key.Value()).part;
    WritePart(key.Value(), part);
    if (auto good = CheckMaterials(key.Value(), present, part); !good) return good;
    SetPartState(key.Value(), NextPartState());
    return {};
  });
}

// A material that was there before needs no more room. To be asked when the part is written.
Result<void> SqliteStore::CheckMaterials(std::int64_t partKey, const Part& present, const Part& part) {
  if (!MaterialOf(part) || MaterialOf(part) == MaterialOf(present)) return {};
  SQLite::Statement query(_db,
                          "SELECT DISTINCT material, density, cad_material, cad_density, density_priority, "
                          "surface_mass FROM parts WHERE product = ?");
  query.bind(1, ProductOf(partKey));
  MaterialBytes materials;
  while (query.executeStep()) {
    const auto problem = FindTooMany(materials.Add(MaterialsIn(query)), kMaxMaterialBytes);
    if (problem)
      return Error{ErrorKind::BadValue, "part " + Quoted(part.id) + ": " + TooManyMaterials(part, *problem)};
  }
  return {};
}

void SqliteStore::WritePart(std::int64_t partKey, const Part& part) {
  SQLite::Statement update(_db, UpdateSql<Part>("parts", "WHERE key = ?"));
  update.bind(static_cast<int>(ColumnsOf<Part>().size()) + 1, partKey);
  InsertRow(update, 1, part);
  DeleteRows(_db, "mass_types", partKey);
  WriteRows(_db, "mass_types", partKey, part.massTypes);
  _db.exec("UPDATE parts SET mass_type_count = " + std::to_string(part.massTypes.size()) +
           " WHERE key = " + std::to_string(partKey));
  _db.exec("UPDATE products SET state = state + 1 WHERE key = " + std::to_string(ProductOf(partKey)));
}

Result<PartDetails> SqliteStore::LoadDetails(std::string_view partId) {
  return Read([&]() -> Result<PartDetails> {
    const auto key = PartKey(partId);
    if (!key) return key.Failure();
    return DetailsAt(key.Value());
  });
}

PartDetails SqliteStore::DetailsAt(std::int64_t partKey) {
  PartDetails details = ReadDetails(_db, partKey);
  details.documents = WithActiveDocument(details);
  details.properties = ReadProperties(_db, ProductOf(partKey), partKey);
  return details;
}

Result<void> SqliteStore::SaveDetails(std::string_view partId, const PartDetails& details) {
  return Write([&]() -> Result<void> {
    const auto key = PartKey(partId);
    if (!key) return key.Failure();
    if (auto good = WriteDetails(key.Value(), details); !good) return good;
    SetPartState(key.Value(), NextPartState());
    return {};
  });
}

Result<void> SqliteStore::WriteDetails(std::int64_t partKey, const PartDetails& details) {
  const auto properties = ReadDefinitions(_db, ProductOf(partKey));
  const PartDetails present = DetailsAt(partKey);
  if (auto good = CheckDetails(properties, details, present); !good) return good;
  // Older tables had documents of two parts; each may keep what it has.
  if (details.documentId != present.documentId)
    if (auto free = CheckDocument(details.documentId, partKey); !free) return free;
  for (const char* table : {"part_details", "precisions", "document_revisions", "property_values"})
    DeleteRows(_db, table, partKey);
  PartDetails kept = details;
  kept.documents.activeVersion = ChosenVersion(details.documents);
  SqliteContentWriter(_db, properties).WriteDetails(partKey, kept);
  return {};
}

Result<std::vector<StoredResult>> SqliteStore::LoadResults(std::string_view productId) {
  return Read([&]() -> Result<std::vector<StoredResult>> {
    const auto key = ProductKey(productId);
    if (!key) return key.Failure();
    std::vector<StoredResult> results;
    SQLite::Statement query(_db, SelectSql<StoredResult>("results.part, parts.part",
                                                         "results JOIN parts ON parts.key = results.part",
                                                         "WHERE parts.product = ?", "results."));
    query.bind(1, key.Value());
    while (query.executeStep()) {
      results.push_back(ReadRow<StoredResult>(query, 2));
      results.back().partId = TextIn(query, 1);
    }
    return results;
  });
}

std::int64_t SqliteStore::ProductOf(std::int64_t partKey) {
  return _db.execAndGet("SELECT product FROM parts WHERE key = " + std::to_string(partKey)).getInt64();
}

Result<void> SqliteStore::SaveResults(const std::vector<StoredResult>& results) {
  return Write([&]() -> Result<void> {
    SQLite::Statement insert(_db, InsertSql<StoredResult>("results", {"part"}));
    std::set<std::int64_t> products;
    for (const StoredResult& result : results) {
      const auto key = PartKey(result.partId);
      if (!key) return key.Failure();
      DeleteRows(_db, "results", key.Value());
      insert.bind(1, key.Value());
      InsertRow(insert, 2, result);
      products.insert(ProductOf(key.Value()));
    }
    for (const std::int64_t product : products)
      _db.exec("UPDATE products SET result_state = result_state + 1 WHERE key = " + std::to_string(product));
    return {};
  });
}

}  // namespace lumira
