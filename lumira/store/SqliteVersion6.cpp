#include "lumira/store/SqliteVersion6.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <SQLiteCpp/VariadicBind.h>

#include <cstdint>
#include <string>
#include <vector>

#include "lumira/model/PropertyDefinition.h"
#include "lumira/model/PropertyMagnitudes.h"
#include "lumira/store/MassTypesKey.h"
#include "protocol/Codec.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Quoted;

// Counts of rows that could be lost without a sign, what was found when older tables were brought up to date,
// and what finds a record of a long history: by the state of the part, and by the mass types that it had.
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

ALTER TABLE history ADD COLUMN mass_types_before INTEGER;
ALTER TABLE history ADD COLUMN mass_types_after INTEGER;
CREATE INDEX history_by_mass_types_before ON history(part, mass_types_before, number);
CREATE INDEX history_by_mass_types_after ON history(part, mass_types_after, number);
CREATE INDEX history_by_state_before ON history(part, state_before);
CREATE INDEX history_by_state_after ON history(part, state_after);
)sql";

// A property as its row stands, which may be none that could be stored today.
struct Definition {
  std::int64_t product;
  std::int64_t position;
  std::string name;
  std::string magnitude;
};

std::vector<Definition> UnknownMagnitudes(SQLite::Database& database) {
  std::vector<Definition> unknown;
  SQLite::Statement query(
      database, "SELECT product, position, name, magnitude FROM property_definitions WHERE type = ?");
  query.bind(1, static_cast<int>(PropertyType::Magnitude));
  while (query.executeStep()) {
    std::string magnitude = query.getColumn(3).getString();
    if (FindMagnitude(magnitude) == nullptr)
      unknown.push_back({query.getColumn(0).getInt64(), query.getColumn(1).getInt64(),
                         query.getColumn(2).getString(), std::move(magnitude)});
  }
  return unknown;
}

// Nobody knows the unit of such values, so that they are kept as they are.
void MakeTextsOfUnknownMagnitudes(SQLite::Database& database) {
  SQLite::Statement update(
      database,
      "UPDATE property_definitions SET type = ?, magnitude = '' WHERE product = ? AND position = ?");
  for (const Definition& definition : UnknownMagnitudes(database)) {
    SQLite::bind(update, static_cast<int>(PropertyType::Text), definition.product, definition.position);
    update.exec();
    update.reset();
    AddNote(database, definition.product, definition.position,
            "the extra property " + Quoted(definition.name) + " had the magnitude " +
                Quoted(definition.magnitude) +
                ", which is not known here; it is a text now, and its values are as they were");
  }
}

// A text that cannot be read has no key, and is found by its number only.
void BindKey(SQLite::Statement& update, int parameter, const std::string& text) {
  if (const auto values = protocol::ReadPartData(text))
    update.bind(parameter, MassTypesKey(values.Value()));
  else
    update.bind(parameter);
}

void AddKeysToHistory(SQLite::Database& database) {
  SQLite::Statement records(database, "SELECT key, before, after FROM history");
  SQLite::Statement update(database,
                           "UPDATE history SET mass_types_before = ?, mass_types_after = ? WHERE key = ?");
  while (records.executeStep()) {
    BindKey(update, 1, records.getColumn(1).getString());
    BindKey(update, 2, records.getColumn(2).getString());
    update.bind(3, records.getColumn(0).getInt64());
    update.exec();
    update.reset();
  }
}

}  // namespace

void BringToVersion6(SQLite::Database& database) {
  database.exec(kTables);
  MakeTextsOfUnknownMagnitudes(database);
  AddKeysToHistory(database);
}

void AddNote(SQLite::Database& database, std::int64_t product, std::int64_t position,
             const std::string& text) {
  SQLite::Statement insert(database, "INSERT INTO product_notes(product, position, text) VALUES(?, ?, ?)");
  SQLite::bind(insert, product, position, text);
  insert.exec();
}

}  // namespace lumira
