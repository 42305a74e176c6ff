#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>

#include "DatabaseFiles.h"
#include "Filters.h"
#include "StoreContract.h"
#include "lumira/store/OpenSqliteStore.h"

namespace lumira::test {
namespace {

// The tables of version 3, with which filters were lists of instances to leave out, and instances had neither
// attributes nor dates.
constexpr char kVersion3[] = R"sql(
CREATE TABLE products(
  key INTEGER PRIMARY KEY, product TEXT NOT NULL UNIQUE, state INTEGER NOT NULL,
  result_state INTEGER NOT NULL DEFAULT 0,
  part_count INTEGER NOT NULL, instance_count INTEGER NOT NULL) STRICT;

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
  unit_inertia_xy REAL, unit_inertia_xz REAL, unit_inertia_yz REAL) STRICT;
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
  t_x REAL NOT NULL, t_y REAL NOT NULL, t_z REAL NOT NULL,
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
  UNIQUE(product, name)) STRICT;

CREATE TABLE filter_instances(
  filter INTEGER NOT NULL REFERENCES filters ON DELETE CASCADE, position INTEGER NOT NULL, instance TEXT NOT NULL,
  PRIMARY KEY(filter, position)) STRICT, WITHOUT ROWID;
)sql";

// A product of two levels with a mass, a result, and three filters: of two instances, of one, and of none.
constexpr char kContent[] = R"sql(
INSERT INTO products VALUES(7, 'PRC', 5, 2, 2, 2);
INSERT INTO roots VALUES(7, 0, 'root');
INSERT INTO parts(key, product, part, revision, name, active_mass_type, material, cad_material,
                  density_priority, standard_part)
  VALUES(1, 7, 'root', 'A', 'Root', 'Computed', '', '', 1, 0), (2, 7, 'leaf', 'B', 'Leaf', 'Weighed', '', '', 1, 0);
INSERT INTO mass_types VALUES(2, 0, 'Weighed', 2.5, 1, 2, 3, NULL, NULL, NULL, NULL, NULL, NULL,
                              0, 0, 0, 0, 0, 0, 0, 0, 0, 0, NULL, NULL);
INSERT INTO instances VALUES(1, 7, 'i1', 'root', 'leaf', 3, 1, 0, 0, 0, 1, 0, 0, 0, 1, 4, 5, 6),
                            (2, 7, 'i2', 'root', 'leaf', 1, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0);
INSERT INTO results VALUES(1, 'f', 5, 'Computed', 10, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL,
                           0, 0, 0, 0, 0, 0, 0, 0, 0, 0, NULL, NULL);
INSERT INTO filters VALUES(1, 7, 'Both'), (2, 7, 'None'), (3, 7, 'One');
INSERT INTO filter_instances VALUES(1, 0, 'i2'), (1, 1, 'i1'), (3, 0, 'i1');
INSERT INTO part_details VALUES(1, '', '', NULL, 1, '__EXCEPTION__', '', 0, 0, '', 0, ''),
  (2, 'Part Instance', 'Lead', 11340, 1, 'D-1', 'B', 1, 1, 'A', 1, 'YYYY-MM-DD');
INSERT INTO precisions VALUES(2, 0, 'Weighed', 1, 0, 0.1, 0.2, 0.3, 0.4);
INSERT INTO document_revisions VALUES(2, 0, 'A', '', 'eva', NULL, 'Weighed', 2.5), (2, 1, 'B', '', '', 'max', '', 0);
INSERT INTO properties VALUES
  (1, 0, 'finish', 'painted', 0, 0, 0, ''), (1, 1, 'length', '', 2, 0, 1, 'LENGTH'),
  (2, 0, 'length', '12.5', 2, 0, 1, 'LENGTH'), (2, 1, 'checked', '2020-02-29', 1, 1, 0, ''),
  (2, 2, 'count', '7', 1, 0, 0, ''), (2, 3, 'factor', '0.5', 2, 0, 0, '');
PRAGMA application_id = 0x4C554D49;
PRAGMA user_version = 3;
)sql";

// What version 4 had instead of the lists of instances.
constexpr char kToVersion4[] = R"sql(
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
ALTER TABLE products ADD COLUMN attribute_count INTEGER NOT NULL DEFAULT 0;
ALTER TABLE products ADD COLUMN handler TEXT;
ALTER TABLE instances ADD COLUMN effective_from TEXT;
ALTER TABLE instances ADD COLUMN effective_until TEXT;
ALTER TABLE parts ADD COLUMN mass_type_count INTEGER NOT NULL DEFAULT 0;
UPDATE parts SET mass_type_count = 1 WHERE part = 'leaf';
ALTER TABLE filters ADD COLUMN description TEXT NOT NULL DEFAULT '';
ALTER TABLE filters ADD COLUMN value_count INTEGER NOT NULL DEFAULT 0;
UPDATE filters SET value_count = 1 WHERE name = 'One';
DELETE FROM filters WHERE name <> 'One';
INSERT INTO filter_conditions VALUES(3, 0, 3, 1, '');
INSERT INTO filter_values VALUES(3, 0, 0, 'i1');
UPDATE products SET handler = 'One';
DROP TABLE filter_instances;
PRAGMA user_version = 4;
)sql";

class SqliteMigration : public testing::Test {
 protected:
  SqliteMigration() {
    SQLite::Database database(file, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    database.exec(kVersion3);
    database.exec(kContent);
  }

  void MakeVersion4() { SQLite::Database(file, SQLite::OPEN_READWRITE).exec(kToVersion4); }

  // What was kept of parts beside the structure, whichever version it comes from.
  void ExpectContent() {
    const auto store = OpenSqliteStore(file);
    ASSERT_TRUE(store.Ok()) << store.Failure().message;
    const std::vector<PropertyDefinition> properties = {{"finish"},
                                                        {"length", PropertyType::Magnitude, "LENGTH"},
                                                        {"checked", PropertyType::Date},
                                                        {"count", PropertyType::Integer},
                                                        {"factor", PropertyType::Real}};
    EXPECT_THAT(store.Value()->LoadProperties("PRC").Value(), testing::UnorderedElementsAreArray(properties));
    const auto leaf = store.Value()->LoadDetails("leaf");
    ASSERT_TRUE(leaf.Ok()) << leaf.Failure().message;
    std::vector<std::string> values;
    for (const auto& property : leaf.Value().properties)
      values.push_back(property.name + "=" + property.value);
    EXPECT_THAT(values, testing::UnorderedElementsAre("finish=", "length=0.0125", "checked=2020-02-29",
                                                      "count=7", "factor=0.5"));
    EXPECT_EQ(leaf.Value().documentId, "D-1");
    EXPECT_EQ(leaf.Value().documents.activeVersion, "B");
    EXPECT_EQ(leaf.Value().documents.revisions.at(1).checkOutUser, "max");
    EXPECT_EQ(leaf.Value().referenceDensity, 11340);
    EXPECT_EQ(leaf.Value().precisions.at(0).massTypeUpperPrecision, 0.4);
    EXPECT_EQ(store.Value()->PartsOfDocument("D-1").Value().at(0).part, "leaf");
    EXPECT_EQ(store.Value()->LoadDetails("root").Value().documentId, "") << "that of nothing found";
    EXPECT_TRUE(store.Value()->SaveDetails("leaf", leaf.Value()).Ok());
  }

  TemporaryFolder folder;
  std::string file = folder.File("old.lumira");
};

TEST_F(SqliteMigration, KeepsProductsResultsAndFiltersOfVersion3) {
  auto store = OpenSqliteStore(file);
  ASSERT_TRUE(store.Ok()) << store.Failure().message;
  const auto product = store.Value()->LoadProduct("PRC");
  ASSERT_TRUE(product.Ok()) << product.Failure().message;
  EXPECT_EQ(product.Value().parts.size(), 2u);
  EXPECT_EQ(product.Value().parts[1].massTypes.at(0).properties.mass, 2.5);
  const std::vector<Instance> instances = {{"i1", "root", "leaf", 3, {{}, {4, 5, 6}}},
                                           {"i2", "root", "leaf", 1, {}}};
  EXPECT_EQ(product.Value().instances, instances);
  EXPECT_EQ(store.Value()->LoadResults("PRC").Value().at(0).computed.properties.mass, 10);
  EXPECT_EQ(store.Value()->Products().Value().at(0).state, 5) << "what was computed stays up to date";
  EXPECT_THAT(store.Value()->LoadFilters("PRC").Value(),
              testing::ElementsAre(LeavingOut("Both", {"i2", "i1"}), ConfigurationFilter{"None"},
                                   LeavingOut("One", {"i1"})));
  EXPECT_FALSE(store.Value()->LoadHandler("PRC").Value().has_value());
}

TEST_F(SqliteMigration, KeepsWhatIsKnownOfPartsInVersion3) { ExpectContent(); }

TEST_F(SqliteMigration, KeepsWhatIsKnownOfPartsInVersion4) {
  MakeVersion4();
  ExpectContent();
  EXPECT_EQ(VersionOf(file), 6);
}

TEST_F(SqliteMigration, KeepsProductsResultsAndFiltersOfVersion4) {
  MakeVersion4();
  const auto store = OpenSqliteStore(file);
  ASSERT_TRUE(store.Ok()) << store.Failure().message;
  EXPECT_EQ(store.Value()->LoadProduct("PRC").Value().parts[1].massTypes.at(0).properties.mass, 2.5);
  EXPECT_EQ(store.Value()->LoadResults("PRC").Value().at(0).computed.properties.mass, 10);
  EXPECT_THAT(store.Value()->LoadFilters("PRC").Value(), testing::ElementsAre(LeavingOut("One", {"i1"})));
  EXPECT_EQ(store.Value()->LoadHandler("PRC").Value(), "One");
}

TEST_F(SqliteMigration, MakesTheTablesOfANewFileFromVersion4) {
  MakeVersion4();
  const std::string fresh = folder.File("new.lumira");
  ASSERT_TRUE(CreateSqliteStore(fresh).Ok());
  ASSERT_TRUE(OpenSqliteStore(file).Ok());
  EXPECT_EQ(ColumnsOf(file), ColumnsOf(fresh));
}

TEST_F(SqliteMigration, ThatFailsLeavesTheFileAtVersion4) {
  MakeVersion4();
  SQLite::Database(file, SQLite::OPEN_READWRITE).exec("DROP TABLE properties");
  const auto refused = OpenSqliteStore(file);
  ASSERT_FALSE(refused.Ok());
  EXPECT_EQ(refused.Failure().kind, protocol::ErrorKind::Storage);
  EXPECT_EQ(VersionOf(file), 4);
  EXPECT_FALSE(SQLite::Database(file).tableExists("property_values"));
}

TEST_F(SqliteMigration, MakesTheTablesOfANewFile) {
  ExpectOpeningMakesTheTablesOf(folder.File("new.lumira"), file);
}

TEST_F(SqliteMigration, HappensOnceAndWhatIsWrittenThenStays) {
  ASSERT_TRUE(OpenSqliteStore(file).Value()->SaveHandler("PRC", "One").Ok());
  ASSERT_TRUE(OpenSqliteStore(file).Value()->SaveFilter("PRC", LeavingOut("New", {"i2"})).Ok());
  const auto store = OpenSqliteStore(file);
  EXPECT_EQ(store.Value()->LoadHandler("PRC").Value(), "One");
  EXPECT_EQ(store.Value()->LoadFilters("PRC").Value().size(), 4u);
}

TEST_F(SqliteMigration, ThatFailsLeavesTheFileAtVersion3) {
  SQLite::Database(file, SQLite::OPEN_READWRITE).exec("DROP TABLE filter_instances");
  const auto refused = OpenSqliteStore(file);
  ASSERT_FALSE(refused.Ok());
  EXPECT_EQ(refused.Failure().kind, protocol::ErrorKind::Storage);
  EXPECT_EQ(VersionOf(file), 3);
  SQLite::Database database(file, SQLite::OPEN_READWRITE);
  EXPECT_FALSE(database.tableExists("filter_conditions"));
  EXPECT_FALSE(database.tableExists("history"));
  database.exec("CREATE TABLE filter_instances(filter INTEGER, position INTEGER, instance TEXT)");
  EXPECT_TRUE(OpenSqliteStore(file).Ok());
}

TEST_F(SqliteMigration, WaitsForNobodyWhoHoldsTheFileAndLeavesItAsItIs) {
  SQLite::Database other(file, SQLite::OPEN_READWRITE);
  other.exec("PRAGMA journal_mode = WAL");
  {
    SQLite::Transaction writing(other, SQLite::TransactionBehavior::IMMEDIATE);
    const auto refused = OpenSqliteStore(file, 0);
    ASSERT_FALSE(refused.Ok());
    EXPECT_NE(refused.Failure().message.find("locked by another program"), std::string::npos)
        << refused.Failure().message;
  }
  EXPECT_EQ(VersionOf(file), 3);
  EXPECT_TRUE(OpenSqliteStore(file).Ok());
}

}  // namespace
}  // namespace lumira::test
