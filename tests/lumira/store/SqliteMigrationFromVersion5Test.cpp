#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>

#include "DatabaseFiles.h"
#include "StoreContract.h"
#include "lumira/store/OpenSqliteStore.h"

namespace lumira::test {
namespace {

// Takes away what version 5 did not have.
constexpr char kToVersion5[] = R"sql(
DROP TABLE product_notes;
DROP INDEX history_by_state_before;
DROP INDEX history_by_state_after;
ALTER TABLE parts DROP COLUMN details_count;
ALTER TABLE parts DROP COLUMN precision_count;
ALTER TABLE revision_data DROP COLUMN precision_count;
PRAGMA user_version = 5;
)sql";

/// A file of version 5 with details, precisions, data of a revision and one save in the history of a part.
class SqliteMigrationFromVersion5 : public testing::Test {
 protected:
  SqliteMigrationFromVersion5() {
    PartContent leaf{"leaf", {}, {{"B", {{"Weighed", {2.0, {}, {}}, {}, {}}}, "Weighed", {}, 7200, {}}}};
    leaf.details.documentId = "D-1";
    leaf.details.documents.revisions = {{"B", {}, {}, {}, {}, 0}};
    leaf.details.precisions = {{"Weighed"}, {"Computed"}};
    leaf.details.properties = {{"pull", "1.5"}};
    leaf.revisions[0].precisions = {{"Weighed"}};
    auto store = CreateSqliteStore(file).Value();
    const ProductContent content{{{"pull", PropertyType::Magnitude, "FORCE"}}, {leaf}};
    EXPECT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse, {}, {}, content).Ok());
    EXPECT_TRUE(
        store->SavePart({store->LoadPart("leaf").Value(), {"eva", "2026-01-02T03:04:05Z"}, "before", "after"})
            .Ok());
    store.reset();
    Change(kToVersion5);
  }

  void Change(const char* sql) { SQLite::Database(file, SQLite::OPEN_READWRITE).exec(sql); }

  TemporaryFolder folder;
  std::string file = folder.File("old.lumira");
};

TEST_F(SqliteMigrationFromVersion5, MakesTheTablesOfANewFile) {
  ExpectOpeningMakesTheTablesOf(folder.File("new.lumira"), file);
}

TEST_F(SqliteMigrationFromVersion5, KeepsWhatIsKnownOfAPartWithTheCountsOfItsRows) {
  const auto store = OpenSqliteStore(file).Value();
  const auto leaf = store->LoadPart("leaf");
  ASSERT_TRUE(leaf.Ok()) << leaf.Failure().message;
  EXPECT_EQ(leaf.Value().details.precisions.size(), 2u);
  EXPECT_EQ(leaf.Value().details.properties.at(0).value, "1.5");
  EXPECT_EQ(store->LoadRevision("leaf", "B").Value().precisions.size(), 1u);
  Change("DELETE FROM precisions WHERE position = 1");
  EXPECT_THAT(OpenSqliteStore(file).Value()->LoadPart("leaf").Failure().message,
              testing::HasSubstr("part \"leaf\" has 1 precision instead of 2"));
}

TEST_F(SqliteMigrationFromVersion5, FindsAStateOfItsHistory) {
  const auto store = OpenSqliteStore(file).Value();
  const std::int64_t state = store->LoadHistory("leaf", 0, 1).Value().records.at(0).stateAfter;
  EXPECT_EQ(store->FindStateText("leaf", state).Value(), "after");
}

TEST_F(SqliteMigrationFromVersion5, MendsAMagnitudeThatIsNotKnown) {
  Change("UPDATE property_definitions SET magnitude = 'FORCE_X'");
  const auto store = OpenSqliteStore(file).Value();
  EXPECT_EQ(store->LoadProperties("PRC").Value().at(0), PropertyDefinition{"pull"});
  EXPECT_EQ(store->LoadDetails("leaf").Value().properties.at(0).value, "1.5");
  EXPECT_EQ(store->Survey("PRC").Value().notes.size(), 1u);
}

}  // namespace
}  // namespace lumira::test
