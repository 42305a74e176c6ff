#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "lumira/model/Counted.h"
#include "lumira/store/ProductContent.h"

/// Rows of what is kept of parts beside the structure. Lists whose rows are lost are damage; everything
/// throws as SqliteTables.h does.
namespace lumira {

void WriteDefinitions(SQLite::Database& database, std::int64_t product,
                      const std::vector<PropertyDefinition>& properties);

std::vector<PropertyDefinition> ReadDefinitions(SQLite::Database& database, std::int64_t product);

/// The properties of the product with the values of one of its parts.
std::vector<protocol::ExtraProperty> ReadProperties(SQLite::Database& database, std::int64_t product,
                                                    std::int64_t part);

/// The details of a part as they are stored, without its properties.
PartDetails ReadDetails(SQLite::Database& database, std::int64_t part);

inline constexpr Noun kPrecisions = {"precision", "precisions"};

/// Writes parts one after the other; statements are made once. The content has passed its rules.
class SqliteContentWriter {
 public:
  /// `properties` are those of the product, and outlive the writer.
  SqliteContentWriter(SQLite::Database& database, const std::vector<PropertyDefinition>& properties);

  /// Of a part that has no details yet.
  void WriteDetails(std::int64_t part, const PartDetails& details);
  /// Details, and the data of document revisions.
  void Write(std::int64_t part, const PartContent& content);

 private:
  /// Returns how many were written.
  std::int64_t WriteValues(std::int64_t part, const std::vector<protocol::ExtraProperty>& values);
  void WriteRevision(std::int64_t part, const RevisionData& revision);

  SQLite::Database& _database;
  std::unordered_map<std::string_view, std::int64_t> _positions;  ///< of properties by name
  SQLite::Statement _details, _precisions, _documents, _values, _counts;
  SQLite::Statement _revisions, _revisionTypes, _revisionPrecisions;
};

}  // namespace lumira
