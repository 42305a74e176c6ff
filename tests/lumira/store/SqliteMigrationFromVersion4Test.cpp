#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>

#include "DatabaseFiles.h"
#include "Filters.h"
#include "StoreContract.h"
#include "lumira/store/OpenSqliteStore.h"

namespace lumira::test {
namespace {

// The tables of version 4, with which nobody knew who had changed a part.
constexpr char kVersion4[] = R"sql(
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

// A product of two levels with a mass, a result, details and a filter that is set.
constexpr char kContent[] = R"sql(
INSERT INTO products VALUES(7, 'PRC', 5, 2, 2, 1, 1, 'Kit');
INSERT INTO roots VALUES(7, 0, 'root');
INSERT INTO parts(key, product, part, revision, name, active_mass_type, material, cad_material,
                  density_priority, standard_part, mass_type_count)
  VALUES(1, 7, 'root', 'A', 'Root', 'Computed', '', '', 1, 0, 0),
        (2, 7, 'leaf', 'B', 'Leaf', 'Weighed', 'Steel', '', 1, 0, 1);
INSERT INTO mass_types VALUES(2, 0, 'Weighed', 2.5, 1, 2, 3, NULL, NULL, NULL, NULL, NULL, NULL,
                              0, 0, 0, 0, 0, 0, 0, 0, 0, 0, NULL, NULL);
INSERT INTO instances VALUES(1, 7, 'i1', 'root', 'leaf', 3, 1, 0, 0, 0, 1, 0, 0, 0, 1, 4, 5, 6, NULL, NULL);
INSERT INTO instance_attributes VALUES(1, 0, 'zone', 'rear');
INSERT INTO results VALUES(1, 'f', 5, 'Computed', 7.5, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL,
                           0, 0, 0, 0, 0, 0, 0, 0, 0, 0, NULL, NULL);
INSERT INTO part_details VALUES(2, 'Part Instance', '', NULL, 1, 'D1', 'A', 0, 1, 'A', 1, 'YYYY-MM-DD');
INSERT INTO precisions VALUES(2, 0, 'Weighed', 1, 0, 0.01, 0.02, 0, 0);
INSERT INTO document_revisions VALUES(2, 0, 'A', '2024-05-01 12:30:00', 'eva', NULL, 'Weighed', 2.5);
INSERT INTO properties VALUES(2, 0, 'colour', 'red', 0, 0, 0, '');
INSERT INTO filters VALUES(1, 7, 'Kit', 'For service', 1);
INSERT INTO filter_conditions VALUES(1, 0, 3, 1, '');
INSERT INTO filter_values VALUES(1, 0, 0, 'i1');
PRAGMA application_id = 0x4C554D49;
PRAGMA user_version = 4;
)sql";

class SqliteMigrationFromVersion4 : public testing::Test {
 protected:
  SqliteMigrationFromVersion4() {
    SQLite::Database database(file, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    database.exec(kVersion4);
    database.exec(kContent);
  }

  TemporaryFolder folder;
  std::string file = folder.File("old.lumira");
};

TEST_F(SqliteMigrationFromVersion4, KeepsEverythingThatIsStored) {
  auto opened = OpenSqliteStore(file);
  ASSERT_TRUE(opened.Ok()) << opened.Failure().message;
  Store& store = *opened.Value();
  const auto product = store.LoadProduct("PRC");
  ASSERT_TRUE(product.Ok()) << product.Failure().message;
  EXPECT_EQ(product.Value().parts.at(1).massTypes.at(0).properties.mass, 2.5);
  EXPECT_EQ(product.Value().instances.at(0).attributes, (std::vector<InstanceAttribute>{{"zone", "rear"}}));
  EXPECT_EQ(store.LoadResults("PRC").Value().at(0).computed.properties.mass, 7.5);
  EXPECT_EQ(store.Products().Value().at(0).state, 5) << "what was computed stays up to date";
  EXPECT_THAT(
      store.LoadFilters("PRC").Value(),
      testing::ElementsAre(ConfigurationFilter{"Kit", "For service", LeavingOut("", {"i1"}).conditions}));
  EXPECT_EQ(store.LoadHandler("PRC").Value(), "Kit");
  const auto details = store.LoadDetails("leaf").Value();
  EXPECT_EQ(details.precisions.at(0).upperPrecision, 0.02);
  EXPECT_EQ(details.documents.revisions.at(0).checkInUser, "eva");
  EXPECT_EQ(details.properties.at(0).value, "red");
}

TEST_F(SqliteMigrationFromVersion4, LeavesADocumentOfTwoPartsToBothAndLetsBothBeSaved) {
  SQLite::Database(file, SQLite::OPEN_READWRITE)
      .exec("INSERT INTO part_details VALUES(1, '', '', NULL, 1, 'D1', 'A', 0, 0, 'A', 1, 'YYYY-MM-DD')");
  auto store = OpenSqliteStore(file).Value();
  for (const char* part : {"root", "leaf"}) {
    PartSaving saving{store->LoadPart(part).Value(), {"eva", "2026-01-02T03:04:05Z"}, "b", "a"};
    saving.saved.part.material = "Brass";
    const auto saved = store->SavePart(saving);
    EXPECT_TRUE(saved.Ok()) << saved.Failure().message;
    EXPECT_EQ(store->LoadDetails(part).Value().documentId, "D1");
  }
}

TEST_F(SqliteMigrationFromVersion4, MakesATextOfAPropertyWhoseMagnitudeIsNotKnownAndSaysSo) {
  SQLite::Database(file, SQLite::OPEN_READWRITE)
      .exec("INSERT INTO properties VALUES(2, 1, 'pull', '12.50', 2, 0, 1, 'FORCE_X')");
  auto store = OpenSqliteStore(file).Value();
  EXPECT_THAT(store->LoadProperties("PRC").Value(),
              testing::ElementsAre(PropertyDefinition{"colour"}, PropertyDefinition{"pull"}));
  PartSaving saving{store->LoadPart("leaf").Value(), {"eva", "2026-01-02T03:04:05Z"}, "b", "a"};
  EXPECT_EQ(saving.saved.details.properties.at(1).value, "12.50");
  saving.saved.details.properties.at(1).value = "13 kN";
  const auto saved = store->SavePart(saving);
  ASSERT_TRUE(saved.Ok()) << saved.Failure().message;
  store = OpenSqliteStore(file).Value();
  EXPECT_EQ(store->LoadDetails("leaf").Value().properties.at(1).value, "13 kN");
  EXPECT_THAT(store->Survey("PRC").Value().notes,
              testing::ElementsAre("the extra property \"pull\" had the magnitude \"FORCE_X\", which is not "
                                   "known here; it is a text now, and its values are as they were"));
}

TEST_F(SqliteMigrationFromVersion4, LeavesPropertiesOfKnownMagnitudesAsTheyAre) {
  SQLite::Database(file, SQLite::OPEN_READWRITE)
      .exec("INSERT INTO properties VALUES(2, 1, 'pull', '12.50', 2, 0, 1, 'FORCE')");
  auto store = OpenSqliteStore(file).Value();
  EXPECT_EQ(store->LoadProperties("PRC").Value().at(1),
            (PropertyDefinition{"pull", PropertyType::Magnitude, "FORCE"}));
  EXPECT_TRUE(store->Survey("PRC").Value().notes.empty());
}

TEST_F(SqliteMigrationFromVersion4, LetsAPartBeSavedWhoseDocumentCouldNotBeStoredToday) {
  for (const char* change : {"INSERT INTO document_revisions VALUES(2, 1, 'A', '', 'max', NULL, '', 0)",
                             "INSERT INTO document_revisions VALUES(2, 2, '', '', 'max', NULL, '', 0)",
                             "INSERT INTO document_revisions VALUES(2, 3, 'A|B', '', 'max', NULL, '', 0)",
                             "UPDATE part_details SET active_document = 'D|1'"})
    SQLite::Database(file, SQLite::OPEN_READWRITE).exec(change);
  const auto store = OpenSqliteStore(file).Value();
  PartSaving saving{store->LoadPart("leaf").Value(), {"eva", "2026-01-02T03:04:05Z"}, "b", "a"};
  saving.saved.part.material = "Brass";
  const auto saved = store->SavePart(saving);
  ASSERT_TRUE(saved.Ok()) << saved.Failure().message;
  const PartDetails details = store->LoadDetails("leaf").Value();
  EXPECT_EQ(details.documentId, "D|1");
  EXPECT_EQ(details.documents.revisions.size(), 4u);
  PartDetails other = details;
  other.documents.revisions.pop_back();
  EXPECT_THAT(store->SaveDetails("leaf", other).Failure().message, testing::HasSubstr("\"D|1\""))
      << "a list that is new is checked";
}

TEST_F(SqliteMigrationFromVersion4, RenamesPropertiesWhoseNameCouldNotBeReadAndSaysSo) {
  std::string malformed = "(2, 7, CAST(x'";
  for (int i = 0; i < 300; ++i) malformed += "80";
  malformed += "' AS TEXT), '7', 0, 0, 0, '')";
  for (const char* property :
       {"(2, 1, '', '1', 0, 0, 0, '')", "(2, 2, 'a|b', '2', 0, 0, 0, '')", "(2, 3, 'a_b', '3', 0, 0, 0, '')",
        "(2, 4, 'a' || char(9) || 'b', '4000', 2, 0, 1, 'LENGTH_X')",
        "(2, 5, hex(zeroblob(117)) || char(228) || hex(zeroblob(15)), '5', 0, 0, 0, '')",
        "(2, 6, CAST(x'61FF' AS TEXT), '6', 0, 0, 0, '')", malformed.c_str()})
    SQLite::Database(file, SQLite::OPEN_READWRITE)
        .exec(std::string("INSERT INTO properties VALUES") + property);
  const auto store = OpenSqliteStore(file).Value();
  const PartDetails details = store->LoadDetails("leaf").Value();
  std::vector<std::string> values;
  for (const auto& property : details.properties) values.push_back(property.name + "=" + property.value);
  EXPECT_THAT(values,
              testing::ElementsAre("colour=red", "unnamed=1", "a_b 2=2", "a_b=3", "a_b 3=4000",
                                   std::string(234, '0') + "_=5", "a_=6", std::string(235, '_') + "=7"));
  EXPECT_THAT(
      store->Survey("PRC").Value().notes,
      testing::ElementsAre(
          "the name \"\" of an extra property could not be a name here; it is \"unnamed\" now",
          "the name \"a|b\" of an extra property could not be a name here; it is \"a_b 2\" now",
          testing::AllOf(testing::HasSubstr("it is \"a_b 3\" now; "), testing::HasSubstr("\"LENGTH_X\"")),
          testing::_, testing::EndsWith("it is \"a_\" now"), testing::_));
}

struct Length {
  const char* name;
  const char* millimetres;
  const char* metres;
};

class MigratedLength : public SqliteMigrationFromVersion4, public testing::WithParamInterface<Length> {
 protected:
  /// What becomes of a length of the part "leaf".
  std::string Migrated(const std::string& value) {
    SQLite::Database(file, SQLite::OPEN_READWRITE)
        .exec("INSERT INTO properties VALUES(2, 1, 'reach', '" + value + "', 2, 0, 1, 'LENGTH')");
    store = OpenSqliteStore(file).Value();
    return store->LoadDetails("leaf").Value().properties.at(1).value;
  }

  std::unique_ptr<Store> store;
};

class LengthOfVersion4 : public MigratedLength {};

TEST_P(LengthOfVersion4, IsInMetresWithAllItsDigits) {
  EXPECT_EQ(Migrated(GetParam().millimetres), GetParam().metres);
  EXPECT_TRUE(store->Survey("PRC").Value().notes.empty());
}
INSTANTIATE_TEST_SUITE_P(
    Of, LengthOfVersion4,
    testing::Values(Length{"AWholeNumber", "1500", "1.5"}, Length{"AFraction", "12.5", "0.0125"},
                    Length{"SeventeenDigits", "1234.5678901234567", "1.2345678901234567"},
                    Length{"MoreDigitsThanADoubleHas", "1.00000000000000000001", "0.00100000000000000000001"},
                    Length{"BlanksAroundIt", " 1500 ", "1.5"}, Length{"APlusBeforeIt", "+7", "0.007"},
                    Length{"AMinus", "-0012.50", "-0.0125"}, Length{"AnExponent", "2.5e3", "0.0025e3"},
                    Length{"Zero", "0", "0"}, Length{"APointAtItsEnd", "1000.", "1"},
                    Length{"NothingButBlanks", "  ", "  "}),
    [](const auto& length) { return std::string(length.param.name); });

class TextInALengthOfVersion4 : public MigratedLength {};

TEST_P(TextInALengthOfVersion4, StaysAndIsTold) {
  const std::string text = GetParam().millimetres;
  EXPECT_EQ(Migrated(text), text);
  EXPECT_THAT(
      store->Survey("PRC").Value().notes,
      testing::ElementsAre("the extra property \"reach\" had 1 value that is no length, the first \"" + text +
                           "\" of part \"leaf\"; what is no length is as it was, the others are in "
                           "metres now"));
}
INSTANTIATE_TEST_SUITE_P(Of, TextInALengthOfVersion4,
                         testing::Values(Length{"TwoNumbers", "10-20", ""}, Length{"ADate", "2024-05-01", ""},
                                         Length{"ANumberThatIsTooLarge", "1e400", ""},
                                         Length{"ANumberTooSmallForMetres", "5e-324", ""},
                                         Length{"AUnit", "12 mm", ""}),
                         [](const auto& length) { return std::string(length.param.name); });

TEST_F(SqliteMigrationFromVersion4, CountsTheTextsInALengthAndNamesTheFirst) {
  SQLite::Database(file, SQLite::OPEN_READWRITE)
      .exec(
          "INSERT INTO properties VALUES(1, 0, 'reach', 'far', 2, 0, 1, 'LENGTH'),"
          " (2, 1, 'reach', 'near', 2, 0, 1, 'LENGTH')");
  EXPECT_THAT(
      OpenSqliteStore(file).Value()->Survey("PRC").Value().notes,
      testing::ElementsAre(testing::HasSubstr("had 2 values that are no lengths, the first \"far\" of "
                                              "part \"root\"")));
}

TEST_F(SqliteMigrationFromVersion4, KeepsItsNotesUntilTheProductIsReplaced) {
  SQLite::Database(file, SQLite::OPEN_READWRITE)
      .exec("INSERT INTO properties VALUES(2, 1, 'pull', '12.50', 2, 0, 1, 'FORCE_X')");
  auto store = OpenSqliteStore(file).Value();
  ASSERT_TRUE(store->AddProduct(store->LoadProduct("PRC").Value(), Existing::Replace).Ok());
  EXPECT_TRUE(store->Survey("PRC").Value().notes.empty());
}

TEST_F(SqliteMigrationFromVersion4, TellsAllPartsOfADocumentThatTwoShare) {
  SQLite::Database(file, SQLite::OPEN_READWRITE)
      .exec("INSERT INTO part_details VALUES(1, '', '', NULL, 1, 'D1', 'A', 0, 0, 'A', 1, 'YYYY-MM-DD')");
  const auto owners = OpenSqliteStore(file).Value()->PartsOfDocument("D1").Value();
  ASSERT_EQ(owners.size(), 2u);
  EXPECT_EQ(owners[0].part, "root");
  EXPECT_EQ(owners[1].part, "leaf");
}

TEST_F(SqliteMigrationFromVersion4, MakesTheTablesOfANewFile) {
  ExpectOpeningMakesTheTablesOf(folder.File("new.lumira"), file);
}

TEST_F(SqliteMigrationFromVersion4, BeginsAnEmptyHistoryThatSavesGoInto) {
  {
    auto store = OpenSqliteStore(file).Value();
    EXPECT_EQ(store->LoadHistory("leaf", 0, 10).Value().total, 0);
    PartSaving saving{store->LoadPart("leaf").Value(), {"eva", "2026-01-02T03:04:05Z"}, "b", "a"};
    saving.saved.part.material = "Brass";
    ASSERT_TRUE(store->SavePart(saving).Ok());
  }
  auto store = OpenSqliteStore(file).Value();
  EXPECT_EQ(store->LoadPart("leaf").Value().part.material, "Brass");
  EXPECT_EQ(store->LoadHistory("leaf", 0, 10).Value().total, 1);
  EXPECT_NE(store->LoadPart("leaf").Value().state, store->LoadPart("root").Value().state);
}

TEST_F(SqliteMigrationFromVersion4, ThatFailsLeavesTheFileAtVersion4) {
  SQLite::Database(file, SQLite::OPEN_READWRITE).exec("CREATE TABLE history(key INTEGER)");
  const auto refused = OpenSqliteStore(file);
  ASSERT_FALSE(refused.Ok());
  EXPECT_EQ(refused.Failure().kind, protocol::ErrorKind::Storage);
  EXPECT_EQ(VersionOf(file), 4);
  SQLite::Database database(file, SQLite::OPEN_READWRITE);
  EXPECT_FALSE(database.tableExists("part_states"));
  database.exec("DROP TABLE history");
  EXPECT_TRUE(OpenSqliteStore(file).Ok());
}

}  // namespace
}  // namespace lumira::test
