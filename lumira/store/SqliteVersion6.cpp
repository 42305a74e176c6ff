#include "lumira/store/SqliteVersion6.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <SQLiteCpp/VariadicBind.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "lumira/model/Identifier.h"
#include "lumira/model/PropertyDefinition.h"
#include "lumira/model/PropertyMagnitudes.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Quoted;

// Counts of rows that could be lost without a sign, what was found when older tables were brought up to date,
// and what finds a record of a long history by the state of the part.
constexpr char kTables[] = R"sql(
ALTER TABLE parts ADD COLUMN details_count INTEGER NOT NULL DEFAULT 0;
UPDATE parts SET details_count = (SELECT count(*) FROM part_details WHERE part_details.part = parts.key);
ALTER TABLE parts ADD COLUMN precision_count INTEGER NOT NULL DEFAULT 0;
UPDATE parts SET precision_count = (SELECT count(*) FROM precisions WHERE precisions.part = parts.key);
ALTER TABLE revision_data ADD COLUMN precision_count INTEGER NOT NULL DEFAULT 0;
UPDATE revision_data SET precision_count =
  (SELECT count(*) FROM revision_precisions WHERE revision_precisions.revision = revision_data.key);

CREATE TABLE product_notes(
  product INTEGER NOT NULL REFERENCES products ON DELETE CASCADE, position INTEGER NOT NULL, text TEXT NOT NULL,
  PRIMARY KEY(product, position)) STRICT, WITHOUT ROWID;

CREATE INDEX history_by_state_before ON history(part, state_before);
CREATE INDEX history_by_state_after ON history(part, state_after);
)sql";

// A property as its row stands, which may be none that could be stored today.
struct Definition {
  std::int64_t product;
  std::int64_t position;
  std::string name;
  int type;
  std::string magnitude;
};

std::vector<Definition> Definitions(SQLite::Database& database) {
  std::vector<Definition> definitions;
  SQLite::Statement row(database,
                        "SELECT product, position, name, type, magnitude FROM property_definitions");
  while (row.executeStep())
    definitions.push_back({row.getColumn(0).getInt64(), row.getColumn(1).getInt64(),
                           row.getColumn(2).getString(), row.getColumn(3).getInt(),
                           row.getColumn(4).getString()});
  return definitions;
}

bool HasUnknownMagnitude(const Definition& definition) {
  return definition.type == static_cast<int>(PropertyType::Magnitude) &&
         FindMagnitude(definition.magnitude) == nullptr;
}

// Nobody knows the unit of such values, so that they are kept as they are.
void MakeTextsOfUnknownMagnitudes(SQLite::Database& database) {
  SQLite::Statement update(
      database,
      "UPDATE property_definitions SET type = ?, magnitude = '' WHERE product = ? AND position = ?");
  for (const Definition& definition : Definitions(database)) {
    if (!HasUnknownMagnitude(definition)) continue;
    SQLite::bind(update, static_cast<int>(PropertyType::Text), definition.product, definition.position);
    update.exec();
    update.reset();
    AddNote(database, definition.product, definition.position,
            "the extra property " + Quoted(definition.name) + " had the magnitude " +
                Quoted(definition.magnitude) +
                ", which is not known here; it is a text now, and its values are as they were");
  }
}

// Much like a name that could be none. It leaves room for a number behind it; a character that is cut in two
// counts as malformed.
std::string GoodName(std::string name) {
  name.resize(std::min(name.size(), kMaxIdentifierBytes - 20));
  const auto isBad = [](char c) { return c == '|' || static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
  std::ranges::replace_if(name, isBad, '_');
  while (const auto malformed = protocol::FindInvalidUtf8(name)) name[*malformed] = '_';
  return name.empty() ? "unnamed" : name;
}

bool HasProperty(SQLite::Database& database, std::int64_t product, const std::string& name) {
  SQLite::Statement query(database, "SELECT 1 FROM property_definitions WHERE product = ? AND name = ?");
  SQLite::bind(query, product, name);
  return query.executeStep();
}

std::string FreeName(SQLite::Database& database, std::int64_t product, const std::string& wanted) {
  std::string name = wanted;
  for (int number = 2; HasProperty(database, product, name); ++number)
    name = wanted + ' ' + std::to_string(number);
  return name;
}

// With such a name nobody could read the parts.
void RenameProperties(SQLite::Database& database) {
  SQLite::Statement update(database,
                           "UPDATE property_definitions SET name = ? WHERE product = ? AND position = ?");
  for (const auto& [product, position, name, type, magnitude] : Definitions(database)) {
    if (!FindIdentifierProblem(name)) continue;
    const std::string free = FreeName(database, product, GoodName(name));
    SQLite::bind(update, free, product, position);
    update.exec();
    update.reset();
    AddNote(database, product, position,
            "the name " + Quoted(name) + " of an extra property could not be a name here; it is " +
                Quoted(free) + " now");
  }
}

}  // namespace

void BringToVersion6(SQLite::Database& database) {
  database.exec(kTables);
  RenameProperties(database);
  MakeTextsOfUnknownMagnitudes(database);
}

void AddNote(SQLite::Database& database, std::int64_t product, std::int64_t position,
             const std::string& text) {
  SQLite::Statement insert(database,
                           "INSERT INTO product_notes(product, position, text) VALUES(?, ?, ?) "
                           "ON CONFLICT DO UPDATE SET text = text || '; ' || excluded.text");
  SQLite::bind(insert, product, position, text);
  insert.exec();
}

}  // namespace lumira
