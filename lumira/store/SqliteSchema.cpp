#include "lumira/store/SqliteSchema.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include "lumira/store/SqliteLengths.h"
#include "lumira/store/SqliteVersion6.h"

namespace lumira {
namespace {

// `key` columns are internal; identifiers of the PDM are texts. Units as in the model: kg, m, kg·m².
// Rows of a list carry their position, since order matters to whoever typed them. Where nothing else
// would tell that rows of a list are missing, its owner carries their count, since a damaged page can lose
// rows without a sign.
constexpr char kTables[] = R"sql(
CREATE TABLE products(
  key INTEGER PRIMARY KEY, product TEXT NOT NULL UNIQUE, state INTEGER NOT NULL,
  result_state INTEGER NOT NULL DEFAULT 0,
  part_count INTEGER NOT NULL, instance_count INTEGER NOT NULL,
  attribute_count INTEGER NOT NULL DEFAULT 0, handler TEXT) STRICT;

CREATE TABLE roots(
  product INTEGER NOT NULL REFERENCES products ON DELETE CASCADE, position INTEGER NOT NULL, part TEXT NOT NULL,
  PRIMARY KEY(product, position)) STRICT, WITHOUT ROWID;

CREATE TABLE parts(
  key INTEGER PRIMARY KEY, product INTEGER NOT NULL REFERENCES products ON DELETE CASCADE,
  part TEXT NOT NULL UNIQUE, revision TEXT NOT NULL, name TEXT NOT NULL, active_mass_type TEXT NOT NULL,
  material TEXT NOT NULL, density REAL, cad_material TEXT NOT NULL, cad_density REAL,
  density_priority INTEGER NOT NULL, standard_part INTEGER NOT NULL,
  volume REAL, centroid_x REAL, centroid_y REAL, centroid_z REAL,
  unit_inertia_xx REAL, unit_inertia_yy REAL, unit_inertia_zz REAL,
  unit_inertia_xy REAL, unit_inertia_xz REAL, unit_inertia_yz REAL,
  mass_type_count INTEGER NOT NULL DEFAULT 0) STRICT;
CREATE INDEX parts_of_product ON parts(product);

CREATE TABLE mass_types(
  part INTEGER NOT NULL REFERENCES parts ON DELETE CASCADE, position INTEGER NOT NULL, name TEXT NOT NULL,
  mass REAL, cg_x REAL, cg_y REAL, cg_z REAL,
  inertia_xx REAL, inertia_yy REAL, inertia_zz REAL, inertia_xy REAL, inertia_xz REAL, inertia_yz REAL,
  sd_mass REAL NOT NULL, sd_cg_x REAL NOT NULL, sd_cg_y REAL NOT NULL, sd_cg_z REAL NOT NULL,
  sd_inertia_xx REAL NOT NULL, sd_inertia_yy REAL NOT NULL, sd_inertia_zz REAL NOT NULL,
  sd_inertia_xy REAL NOT NULL, sd_inertia_xz REAL NOT NULL, sd_inertia_yz REAL NOT NULL,
  bound_lower REAL, bound_upper REAL,
  PRIMARY KEY(part, position), UNIQUE(part, name)) STRICT, WITHOUT ROWID;

CREATE TABLE instances(
  key INTEGER PRIMARY KEY, product INTEGER NOT NULL REFERENCES products ON DELETE CASCADE,
  instance TEXT NOT NULL, parent TEXT NOT NULL, child TEXT NOT NULL, quantity INTEGER NOT NULL,
  r_11 REAL NOT NULL, r_12 REAL NOT NULL, r_13 REAL NOT NULL, r_21 REAL NOT NULL, r_22 REAL NOT NULL,
  r_23 REAL NOT NULL, r_31 REAL NOT NULL, r_32 REAL NOT NULL, r_33 REAL NOT NULL,
  t_x REAL NOT NULL, t_y REAL NOT NULL, t_z REAL NOT NULL, effective_from TEXT, effective_until TEXT,
  UNIQUE(product, instance)) STRICT;

CREATE TABLE results(
  part INTEGER PRIMARY KEY REFERENCES parts ON DELETE CASCADE, fingerprint TEXT NOT NULL, state INTEGER NOT NULL, name TEXT NOT NULL,
  mass REAL, cg_x REAL, cg_y REAL, cg_z REAL,
  inertia_xx REAL, inertia_yy REAL, inertia_zz REAL, inertia_xy REAL, inertia_xz REAL, inertia_yz REAL,
  sd_mass REAL NOT NULL, sd_cg_x REAL NOT NULL, sd_cg_y REAL NOT NULL, sd_cg_z REAL NOT NULL,
  sd_inertia_xx REAL NOT NULL, sd_inertia_yy REAL NOT NULL, sd_inertia_zz REAL NOT NULL,
  sd_inertia_xy REAL NOT NULL, sd_inertia_xz REAL NOT NULL, sd_inertia_yz REAL NOT NULL,
  bound_lower REAL, bound_upper REAL) STRICT;

CREATE TABLE part_details(
  part INTEGER PRIMARY KEY REFERENCES parts ON DELETE CASCADE, applied_on TEXT NOT NULL,
  reference_material TEXT NOT NULL, reference_density REAL,
  documents_used INTEGER NOT NULL, active_document TEXT NOT NULL, active_version TEXT NOT NULL,
  auto_mode INTEGER NOT NULL, used_specific_revision INTEGER NOT NULL, attached_version TEXT NOT NULL,
  properties_requested INTEGER NOT NULL, date_format TEXT NOT NULL) STRICT;

CREATE TABLE precisions(
  part INTEGER NOT NULL REFERENCES parts ON DELETE CASCADE, position INTEGER NOT NULL, mass_type TEXT NOT NULL,
  precision_type INTEGER NOT NULL, value_type INTEGER NOT NULL, lower REAL NOT NULL, upper REAL NOT NULL,
  type_lower REAL NOT NULL, type_upper REAL NOT NULL,
  PRIMARY KEY(part, position)) STRICT, WITHOUT ROWID;

CREATE TABLE document_revisions(
  part INTEGER NOT NULL REFERENCES parts ON DELETE CASCADE, position INTEGER NOT NULL, revision TEXT NOT NULL,
  check_in_time TEXT NOT NULL, check_in_user TEXT NOT NULL, check_out_user TEXT, mass_types TEXT NOT NULL,
  mass REAL NOT NULL,
  PRIMARY KEY(part, position)) STRICT, WITHOUT ROWID;

CREATE TABLE properties(
  part INTEGER NOT NULL REFERENCES parts ON DELETE CASCADE, position INTEGER NOT NULL, name TEXT NOT NULL,
  value TEXT NOT NULL, type INTEGER NOT NULL, is_date INTEGER NOT NULL, is_magnitude INTEGER NOT NULL,
  magnitude TEXT NOT NULL,
  PRIMARY KEY(part, position)) STRICT, WITHOUT ROWID;

CREATE TABLE filters(
  key INTEGER PRIMARY KEY, product INTEGER NOT NULL REFERENCES products ON DELETE CASCADE, name TEXT NOT NULL,
  description TEXT NOT NULL DEFAULT '', value_count INTEGER NOT NULL DEFAULT 0,
  UNIQUE(product, name)) STRICT;
)sql";

// What version 3 did not have. `condition` is the position of a condition in its filter.
constexpr char kTablesOfVersion4[] = R"sql(
CREATE TABLE instance_attributes(
  instance INTEGER NOT NULL REFERENCES instances ON DELETE CASCADE, position INTEGER NOT NULL,
  name TEXT NOT NULL, value TEXT NOT NULL,
  PRIMARY KEY(instance, position)) STRICT, WITHOUT ROWID;

CREATE TABLE filter_conditions(
  filter INTEGER NOT NULL REFERENCES filters ON DELETE CASCADE, position INTEGER NOT NULL,
  kind INTEGER NOT NULL, sense INTEGER NOT NULL, name TEXT NOT NULL,
  PRIMARY KEY(filter, position)) STRICT, WITHOUT ROWID;

CREATE TABLE filter_values(
  filter INTEGER NOT NULL REFERENCES filters ON DELETE CASCADE, condition INTEGER NOT NULL,
  position INTEGER NOT NULL, value TEXT NOT NULL,
  PRIMARY KEY(filter, condition, position)) STRICT, WITHOUT ROWID;
)sql";

// A filter of version 3 was a list of instances to leave out: kind 3, sense 1 (model/FilterCondition.h).
constexpr char kFromVersion3[] = R"sql(
ALTER TABLE products ADD COLUMN attribute_count INTEGER NOT NULL DEFAULT 0;
ALTER TABLE products ADD COLUMN handler TEXT;
ALTER TABLE instances ADD COLUMN effective_from TEXT;
ALTER TABLE instances ADD COLUMN effective_until TEXT;
ALTER TABLE parts ADD COLUMN mass_type_count INTEGER NOT NULL DEFAULT 0;
UPDATE parts SET mass_type_count = (SELECT count(*) FROM mass_types WHERE mass_types.part = parts.key);
ALTER TABLE filters ADD COLUMN description TEXT NOT NULL DEFAULT '';
ALTER TABLE filters ADD COLUMN value_count INTEGER NOT NULL DEFAULT 0;
UPDATE filters SET value_count = (SELECT count(*) FROM filter_instances WHERE filter = filters.key);
INSERT INTO filter_conditions(filter, position, kind, sense, name)
  SELECT DISTINCT filter, 0, 3, 1, '' FROM filter_instances;
INSERT INTO filter_values(filter, condition, position, value)
  SELECT filter, 0, position, instance FROM filter_instances;
DROP TABLE filter_instances;
)sql";

// Part of version 5. The state of a part is taken from one counter for all parts, so that no state comes back
// when a product is replaced or a part goes to another product. A record of the history carries the values
// before and after it as texts, since details may change without one in between.
constexpr char kHistoryTables[] = R"sql(
ALTER TABLE parts ADD COLUMN state INTEGER NOT NULL DEFAULT 1;

CREATE TABLE part_states(
  key INTEGER PRIMARY KEY CHECK(key = 1), last INTEGER NOT NULL) STRICT;
INSERT INTO part_states(key, last) VALUES(1, 1);

CREATE TABLE history(
  key INTEGER PRIMARY KEY, part INTEGER NOT NULL REFERENCES parts ON DELETE CASCADE, number INTEGER NOT NULL,
  user TEXT NOT NULL, time TEXT NOT NULL, state_before INTEGER NOT NULL, state_after INTEGER NOT NULL,
  before TEXT NOT NULL, after TEXT NOT NULL,
  UNIQUE(part, number)) STRICT;
)sql";

// Part of version 5, run on the tables of version 4 in a new file as in an older one, so that both end up the
// same. Extra properties, document revisions with data of their own, and sheet material. A value of a
// property names its definition by position; keys of two tables would have to be looked for with each
// deletion.
constexpr char kContentTables[] = R"sql(
CREATE TABLE property_definitions(
  product INTEGER NOT NULL REFERENCES products ON DELETE CASCADE, position INTEGER NOT NULL,
  name TEXT NOT NULL, type INTEGER NOT NULL, magnitude TEXT NOT NULL,
  PRIMARY KEY(product, position), UNIQUE(product, name)) STRICT, WITHOUT ROWID;

CREATE TABLE property_values(
  part INTEGER NOT NULL REFERENCES parts ON DELETE CASCADE, definition INTEGER NOT NULL, value TEXT NOT NULL,
  PRIMARY KEY(part, definition)) STRICT, WITHOUT ROWID;

CREATE TABLE revision_data(
  key INTEGER PRIMARY KEY, part INTEGER NOT NULL REFERENCES parts ON DELETE CASCADE, revision TEXT NOT NULL,
  active_mass_type TEXT NOT NULL, material TEXT NOT NULL, density REAL, mass_type_count INTEGER NOT NULL,
  UNIQUE(part, revision)) STRICT;

CREATE TABLE revision_mass_types(
  revision INTEGER NOT NULL REFERENCES revision_data ON DELETE CASCADE, position INTEGER NOT NULL,
  name TEXT NOT NULL, mass REAL, cg_x REAL, cg_y REAL, cg_z REAL,
  inertia_xx REAL, inertia_yy REAL, inertia_zz REAL, inertia_xy REAL, inertia_xz REAL, inertia_yz REAL,
  sd_mass REAL NOT NULL, sd_cg_x REAL NOT NULL, sd_cg_y REAL NOT NULL, sd_cg_z REAL NOT NULL,
  sd_inertia_xx REAL NOT NULL, sd_inertia_yy REAL NOT NULL, sd_inertia_zz REAL NOT NULL,
  sd_inertia_xy REAL NOT NULL, sd_inertia_xz REAL NOT NULL, sd_inertia_yz REAL NOT NULL,
  bound_lower REAL, bound_upper REAL,
  PRIMARY KEY(revision, position), UNIQUE(revision, name)) STRICT, WITHOUT ROWID;

CREATE TABLE revision_precisions(
  revision INTEGER NOT NULL REFERENCES revision_data ON DELETE CASCADE, position INTEGER NOT NULL,
  mass_type TEXT NOT NULL, precision_type INTEGER NOT NULL, value_type INTEGER NOT NULL,
  lower REAL NOT NULL, upper REAL NOT NULL, type_lower REAL NOT NULL, type_upper REAL NOT NULL,
  PRIMARY KEY(revision, position)) STRICT, WITHOUT ROWID;

ALTER TABLE parts ADD COLUMN surface_mass REAL;

ALTER TABLE part_details ADD COLUMN document TEXT NOT NULL DEFAULT '';
UPDATE part_details SET document = active_document WHERE active_document NOT IN ('', '0', '__EXCEPTION__');
CREATE INDEX parts_of_document ON part_details(document) WHERE document <> '';
ALTER TABLE part_details DROP COLUMN properties_requested;
ALTER TABLE part_details DROP COLUMN date_format;

-- Properties were defined by each part for itself; types as in model/PropertyDefinition.h.
INSERT INTO property_definitions(product, position, name, type, magnitude)
  SELECT parts.product, row_number() OVER (PARTITION BY parts.product ORDER BY min(properties.position), properties.name) - 1,
    properties.name,
    CASE WHEN max(is_magnitude) THEN 4 WHEN max(type) = 1 THEN 1 + max(is_date) WHEN max(type) = 2 THEN 3 ELSE 0 END,
    CASE WHEN max(is_magnitude) THEN max(properties.magnitude) ELSE '' END
  FROM properties JOIN parts ON parts.key = properties.part GROUP BY parts.product, properties.name;
INSERT INTO property_values(part, definition, value)
  SELECT properties.part, property_definitions.position, max(value) FROM properties
  JOIN parts ON parts.key = properties.part
  JOIN property_definitions ON property_definitions.product = parts.product
    AND property_definitions.name = properties.name
  WHERE value <> '' GROUP BY properties.part, property_definitions.position;
DROP TABLE properties;

ALTER TABLE products ADD COLUMN property_count INTEGER NOT NULL DEFAULT 0;
UPDATE products SET property_count =
  (SELECT count(*) FROM property_definitions WHERE property_definitions.product = products.key);
ALTER TABLE parts ADD COLUMN property_value_count INTEGER NOT NULL DEFAULT 0;
UPDATE parts SET property_value_count =
  (SELECT count(*) FROM property_values WHERE property_values.part = parts.key);
ALTER TABLE parts ADD COLUMN document_revision_count INTEGER NOT NULL DEFAULT 0;
UPDATE parts SET document_revision_count =
  (SELECT count(*) FROM document_revisions WHERE document_revisions.part = parts.key);
)sql";

// What version 4 did not have; run in this order.
constexpr const char* kTablesOfVersion5[] = {kContentTables, kHistoryTables};

void AddTablesOfVersion5(SQLite::Database& database) {
  for (const char* tables : kTablesOfVersion5) database.exec(tables);
}

int Pragma(SQLite::Database& database, const char* name) {
  return database.execAndGet(std::string("PRAGMA ") + name).getInt();
}

void SetVersion(SQLite::Database& database) {
  database.exec("PRAGMA user_version = " + std::to_string(kSchemaVersion));
}

}  // namespace

void CreateSchema(SQLite::Database& database) {
  SQLite::Transaction transaction(database);
  database.exec(kTables);
  database.exec(kTablesOfVersion4);
  AddTablesOfVersion5(database);
  BringToVersion6(database);
  database.exec("PRAGMA application_id = " + std::to_string(kApplicationId));
  SetVersion(database);
  transaction.commit();
}

std::string SchemaProblem(SQLite::Database& database) {
  if (Pragma(database, "application_id") != kApplicationId) return "the file is no Lumira database";
  const int version = Pragma(database, "user_version");
  if (version > kSchemaVersion)
    return "the file was written by a newer version (tables of version " + std::to_string(version) +
           ", this program knows " + std::to_string(kSchemaVersion) + ")";
  if (version < kOldestSchemaVersion)
    return "the file has tables of version " + std::to_string(version) +
           ", this program reads versions from " + std::to_string(kOldestSchemaVersion) +
           " on; import the product anew";
  return {};
}

void BringUpToDate(SQLite::Database& database) {
  if (Pragma(database, "user_version") == kSchemaVersion) return;
  SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
  const int version = Pragma(database, "user_version");
  if (version == kSchemaVersion) return;  // another program has been faster
  if (version < 4) {
    database.exec(kTablesOfVersion4);
    database.exec(kFromVersion3);
  }
  if (version < 5) AddTablesOfVersion5(database);
  BringToVersion6(database);
  if (version < 5) BringLengthsToMetres(database);
  SetVersion(database);
  transaction.commit();
}

}  // namespace lumira
