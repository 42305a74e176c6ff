#include "lumira/store/SqliteContent.h"

#include <SQLiteCpp/VariadicBind.h>

#include "lumira/model/PropertyOnWire.h"
#include "lumira/store/SqliteArchives.h"
#include "lumira/store/SqliteTables.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Quoted;

// Single columns of a row that is there.
struct Row {
  SQLite::Database& database;
  const char* table;
  std::int64_t key;

  std::int64_t Number(const std::string& column) const { return Column(column).getInt64(); }
  std::string Text(const std::string& column) const { return Column(column).getString(); }

 private:
  SQLite::Column Column(const std::string& column) const {
    return database.execAndGet("SELECT " + column + " FROM " + table + " WHERE key = " + std::to_string(key));
  }
};

// What a part has of each kind of row, against the count that its own row carries.
class PartCounts {
 public:
  PartCounts(SQLite::Database& database, std::int64_t part) : _part{database, "parts", part} {}

  void Check(Noun rows, std::size_t found, const char* countColumn) const {
    CheckRowCount([&] { return "part " + Quoted(_part.Text("part")); }, rows, found,
                  _part.Number(countColumn));
  }

 private:
  Row _part;
};

}  // namespace

void WriteDefinitions(SQLite::Database& database, std::int64_t product,
                      const std::vector<PropertyDefinition>& properties) {
  if (properties.empty()) return;
  SQLite::Statement insert(database, InsertListSql<PropertyDefinition>("property_definitions", "product"));
  WriteRows(insert, product, properties);
  SQLite::Statement count(database, "UPDATE products SET property_count = ? WHERE key = ?");
  SQLite::bind(count, std::int64_t(properties.size()), product);
  count.exec();
}

std::vector<PropertyDefinition> ReadDefinitions(SQLite::Database& database, std::int64_t product) {
  SQLite::Statement query(database, SelectSql<PropertyDefinition>("position", "property_definitions",
                                                                  "WHERE product = ? ORDER BY position"));
  query.bind(1, product);
  std::vector<PropertyDefinition> properties;
  while (query.executeStep()) {
    // Values name their property by position; with a row lost they would be those of another one.
    if (query.getColumn(0).getInt64() != std::ssize(properties))
      RefuseColumn(query, 0, "an extra property before it is missing");
    properties.push_back(ReadRow<PropertyDefinition>(query, 1));
  }
  const Row owner{database, "products", product};
  CheckRowCount([&] { return "product " + Quoted(owner.Text("product")); },
                {"extra property", "extra properties"}, properties.size(), owner.Number("property_count"));
  return properties;
}

std::vector<protocol::ExtraProperty> ReadProperties(SQLite::Database& database, std::int64_t product,
                                                    std::int64_t part) {
  std::vector<protocol::ExtraProperty> properties;
  for (const PropertyDefinition& property : ReadDefinitions(database, product))
    properties.push_back(ToWire(property));
  SQLite::Statement query(database, "SELECT definition, value FROM property_values WHERE part = ?");
  query.bind(1, part);
  std::size_t values = 0;
  for (; query.executeStep(); ++values) {
    const auto position = static_cast<std::uint64_t>(query.getColumn(0).getInt64());
    if (position >= properties.size()) RefuseColumn(query, 0, "the product has no such property");
    properties[position].value = TextIn(query, 1);
  }
  PartCounts(database, part)
      .Check({"value of extra properties", "values of extra properties"}, values, "property_value_count");
  return properties;
}

PartDetails ReadDetails(SQLite::Database& database, std::int64_t part) {
  SQLite::Statement query(database, SelectSql<PartDetails>("part", "part_details", "WHERE part = ?"));
  query.bind(1, part);
  const bool isThere = query.executeStep();
  const PartCounts counts(database, part);
  counts.Check({"row of details", "rows of details"}, isThere ? 1 : 0, "details_count");
  PartDetails details = isThere ? ReadRow<PartDetails>(query, 1) : PartDetails{};
  details.precisions = ReadRows<Precision>(database, "precisions", part);
  counts.Check(kPrecisions, details.precisions.size(), "precision_count");
  details.documents.revisions = ReadRows<protocol::DocumentRevision>(database, "document_revisions", part);
  counts.Check({"document revision", "document revisions"}, details.documents.revisions.size(),
               "document_revision_count");
  return details;
}

SqliteContentWriter::SqliteContentWriter(SQLite::Database& database,
                                         const std::vector<PropertyDefinition>& properties)
    : _database(database),
      _details(database, InsertSql<PartDetails>("part_details", {"part"})),
      _precisions(database, InsertListSql<Precision>("precisions")),
      _documents(database, InsertListSql<protocol::DocumentRevision>("document_revisions")),
      _values(database, "INSERT INTO property_values(part, definition, value) VALUES(?, ?, ?)"),
      _counts(database,
              "UPDATE parts SET details_count = 1, precision_count = ?, property_value_count = ?, "
              "document_revision_count = ? WHERE key = ?"),
      _revisions(database,
                 InsertSql<RevisionData>("revision_data", {"part", "mass_type_count", "precision_count"})),
      _revisionTypes(database, InsertListSql<MassTypeData>("revision_mass_types", "revision")),
      _revisionPrecisions(database, InsertListSql<Precision>("revision_precisions", "revision")) {
  for (const PropertyDefinition& property : properties)
    _positions.emplace(property.name, static_cast<std::int64_t>(_positions.size()));
}

void SqliteContentWriter::WriteDetails(std::int64_t part, const PartDetails& details) {
  _details.bind(1, part);
  InsertRow(_details, 2, details);
  WriteRows(_precisions, part, details.precisions);
  WriteRows(_documents, part, details.documents.revisions);
  const std::int64_t values = WriteValues(part, details.properties);
  SQLite::bind(_counts, std::int64_t(details.precisions.size()), values,
               std::int64_t(details.documents.revisions.size()), part);
  _counts.exec();
  _counts.reset();
}

// An empty value is as good as none.
std::int64_t SqliteContentWriter::WriteValues(std::int64_t part,
                                              const std::vector<protocol::ExtraProperty>& values) {
  std::int64_t written = 0;
  for (const protocol::ExtraProperty& value : values) {
    if (value.value.empty()) continue;
    SQLite::bind(_values, part, _positions.at(value.name), value.value);
    _values.exec();
    _values.reset();
    ++written;
  }
  return written;
}

void SqliteContentWriter::Write(std::int64_t part, const PartContent& content) {
  WriteDetails(part, content.details);
  for (const RevisionData& revision : content.revisions) WriteRevision(part, revision);
}

void SqliteContentWriter::WriteRevision(std::int64_t part, const RevisionData& revision) {
  SQLite::bind(_revisions, part, std::int64_t(revision.massTypes.size()),
               std::int64_t(revision.precisions.size()));
  InsertRow(_revisions, 4, revision);
  const std::int64_t key = _database.getLastInsertRowid();
  WriteRows(_revisionTypes, key, revision.massTypes);
  WriteRows(_revisionPrecisions, key, revision.precisions);
}

}  // namespace lumira
