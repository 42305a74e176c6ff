#include <SQLiteCpp/SQLiteCpp.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <barrier>
#include <csignal>
#include <fstream>
#include <thread>

#include "Filters.h"
#include "StoreContract.h"
#include "lumira/store/OpenSqliteStore.h"

namespace lumira::test {
namespace {

using protocol::ErrorKind;
using testing::Test;

constexpr int kNoPatience = 0;

std::string Content(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void Overwrite(const std::string& file, const std::string& content) {
  std::ofstream(file, std::ios::binary | std::ios::trunc) << content;
}

constexpr std::size_t kPage = 4096;

std::string WithPage(std::string whole, std::size_t page, const std::string& content) {
  return whole.replace(page * kPage, kPage, content);
}

class SqliteFaults : public Test {
 protected:
  std::string MakeStore(const ProductContent& content = {}) {
    auto store = CreateSqliteStore(file).Value();
    EXPECT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse, {}, {}, content).Ok());
    return file;
  }

  std::string OpeningFails(ErrorKind kind) {
    const auto store = OpenSqliteStore(file, kNoPatience);
    if (store.Ok()) return "opened";
    EXPECT_EQ(store.Failure().kind, kind);
    EXPECT_NE(store.Failure().message.find("\"" + file + "\""), std::string::npos) << store.Failure().message;
    return store.Failure().message;
  }

  void ExpectReason(const std::string& message, const std::string& reason) {
    EXPECT_NE(message.find(reason), std::string::npos) << message;
  }

  /// Content that our tables never hold, written by an SQL statement, and why it is refused.
  struct Damage {
    const char* sql;
    const char* reason;
  };

  /// Damages the store, each time on top of the times before, and loads from it as `load` does.
  template <class Load>
  void ExpectRefusals(std::initializer_list<Damage> damages, Load load) {
    for (const auto& [sql, reason] : damages) {
      SQLite::Database(file, SQLite::OPEN_READWRITE).exec(sql);
      const auto loaded = load(*OpenSqliteStore(file).Value());
      ASSERT_FALSE(loaded.Ok()) << reason;
      EXPECT_EQ(loaded.Failure().kind, ErrorKind::Storage);
      ExpectReason(loaded.Failure().message, reason);
    }
  }

  TemporaryFolder folder;
  std::string file = folder.File("p.lumira");
};

TEST_F(SqliteFaults, MissingFileIsNotFoundAndNotMade) {
  ExpectReason(OpeningFails(ErrorKind::NotFound), "there is no such file");
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(SqliteFaults, CreatingOverAFileIsRefusedAndLeavesIt) {
  Overwrite(file, "my thesis");
  const auto store = CreateSqliteStore(file);
  ASSERT_FALSE(store.Ok());
  EXPECT_EQ(store.Failure().kind, ErrorKind::Conflict);
  EXPECT_EQ(Content(file), "my thesis");
}

TEST_F(SqliteFaults, CreatingOverALinkThatLeadsNowhereIsRefusedAndLeavesIt) {
  std::filesystem::create_symlink(folder.File("elsewhere"), file);
  const auto store = CreateSqliteStore(file);
  ASSERT_FALSE(store.Ok());
  EXPECT_EQ(store.Failure().kind, ErrorKind::Conflict);
  EXPECT_TRUE(std::filesystem::is_symlink(file));
  EXPECT_FALSE(std::filesystem::exists(folder.File("elsewhere")));
}

TEST_F(SqliteFaults, OfTwoThatCreateTheSameFileOneSucceedsAndKeepsIt) {
  for (int round = 0; round < 20; ++round) {
    const std::string name = folder.File("round" + std::to_string(round));
    std::barrier together(2);
    std::array<bool, 2> made{};
    const auto create = [&](bool& succeeded) {
      together.arrive_and_wait();
      const auto store = CreateSqliteStore(name);
      succeeded = store.Ok();
      EXPECT_TRUE(store.Ok() || store.Failure().kind == ErrorKind::Conflict);
    };
    std::thread first([&] { create(made[0]); });
    create(made[1]);
    first.join();
    EXPECT_NE(made[0], made[1]);
    EXPECT_TRUE(OpenSqliteStore(name).Ok());
  }
}

TEST_F(SqliteFaults, CreatingInAMissingFolderIsRefused) {
  const auto store = CreateSqliteStore(folder.File("no/such/p.lumira"));
  ASSERT_FALSE(store.Ok());
  EXPECT_EQ(store.Failure().kind, ErrorKind::Storage);
  ExpectReason(store.Failure().message, "the file cannot be opened");
}

TEST_F(SqliteFaults, TextFileIsNoDatabaseAndStaysAsItIs) {
  const std::string text(5000, 'x');
  Overwrite(file, text);
  ExpectReason(OpeningFails(ErrorKind::Storage), "damaged or no database");
  EXPECT_EQ(Content(file), text);
}

TEST_F(SqliteFaults, EmptyFileIsNoLumiraDatabase) {
  Overwrite(file, "");
  ExpectReason(OpeningFails(ErrorKind::Storage), "no Lumira database");
  EXPECT_EQ(Content(file), "");
}

TEST_F(SqliteFaults, DatabaseOfAnotherProgramIsRefusedAndStaysAsItIs) {
  SQLite::Database(file, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
      .exec("CREATE TABLE bookmarks(url TEXT)");
  const std::string before = Content(file);
  ExpectReason(OpeningFails(ErrorKind::Storage), "no Lumira database");
  EXPECT_EQ(Content(file), before);
}

TEST_F(SqliteFaults, NewerVersionIsRefusedAndStaysAsItIs) {
  MakeStore();
  SQLite::Database(file, SQLite::OPEN_READWRITE).exec("PRAGMA user_version = 7");
  const std::string before = Content(file);
  ExpectReason(OpeningFails(ErrorKind::Storage), "newer version (tables of version 7, this program knows 6)");
  EXPECT_EQ(Content(file), before);
}

TEST_F(SqliteFaults, OldVersionThatCannotBeReadIsRefusedAndStaysAsItIs) {
  MakeStore();
  SQLite::Database(file, SQLite::OPEN_READWRITE).exec("PRAGMA user_version = 2");
  const std::string before = Content(file);
  ExpectReason(OpeningFails(ErrorKind::Storage),
               "tables of version 2, this program reads versions from 3 on; import the product anew");
  EXPECT_EQ(Content(file), before);
}

TEST_F(SqliteFaults, CutOffFileIsDamaged) {
  MakeStore();
  const std::string whole = Content(file);
  Overwrite(file, whole.substr(0, whole.size() / 2));
  auto store = OpenSqliteStore(file, kNoPatience);
  const auto product = store.Ok() ? store.Value()->LoadProduct("PRC") : store.Failure();
  ASSERT_FALSE(product.Ok());
  EXPECT_EQ(product.Failure().kind, ErrorKind::Storage);
  ExpectReason(product.Failure().message, "the file is damaged");
}

TEST_F(SqliteFaults, EveryOverwrittenPageEndsInAnErrorOrTheRightProduct) {
  MakeStore();
  const std::string whole = Content(file);
  // Noise, and leaves of a table and of an index that are well formed and without any row.
  const std::string noRow("\0\0\0\0\0\x10\0\0", 8);  // none, and content that begins at the end of the page
  for (const std::string& begin : {std::string(8, '\xA5'), '\x0D' + noRow, '\x0A' + noRow}) {
    int refused = 0;
    for (std::size_t page = 0; page < whole.size() / kPage; ++page) {
      Overwrite(file, WithPage(whole, page, begin + std::string(kPage - begin.size(), begin.back())));
      auto store = OpenSqliteStore(file, kNoPatience);
      const auto product = store.Ok() ? store.Value()->LoadProduct("PRC") : store.Failure();
      refused += !product.Ok();
      if (product.Ok()) {
        EXPECT_EQ(product.Value(), SampleProduct()) << "page " << page;
      } else {
        // A list of products without any row does not show that there was one.
        EXPECT_TRUE(product.Failure().kind == ErrorKind::Storage ||
                    product.Failure().message == "there is no product \"PRC\"")
            << product.Failure().message;
      }
    }
    EXPECT_GE(refused, 6);  // at least the catalogue and the five tables that a product needs
  }
}

TEST_F(SqliteFaults, LostRowsAreNoticed) {
  const std::pair<const char*, const char*> cases[] = {
      {"DELETE FROM instances WHERE instance = 'i2'", "has 3 parts and 1 instance instead of 3 and 2"},
      {"DELETE FROM parts WHERE part = 'bare'", "has 2 parts and 2 instances instead of 3 and 2"},
      {"DELETE FROM mass_types WHERE name = 'Estimated'", "part \"leaf\" has 1 mass type instead of 2"},
      {"DELETE FROM mass_types", "part \"leaf\" has 0 mass types instead of 2"},
      {"UPDATE mass_types SET part = 3 WHERE name = 'Estimated'", "has 1 mass type instead of 2"},
      {"DELETE FROM roots", "product \"PRC\" has 0 root parts, not one"},
      {"DELETE FROM products", "there is no product \"PRC\""}};
  MakeStore();
  const std::string whole = Content(file);
  for (const auto& [damage, reason] : cases) {
    Overwrite(file, whole);
    SQLite::Database(file, SQLite::OPEN_READWRITE).exec(damage);
    const auto product = OpenSqliteStore(file).Value()->LoadProduct("PRC");
    ASSERT_FALSE(product.Ok()) << damage;
    ExpectReason(product.Failure().message, reason);
  }
}

// Older programs have stored it.
TEST_F(SqliteFaults, AnEffectivityOfTheYearZeroIsRead) {
  MakeStore();
  SQLite::Database(file, SQLite::OPEN_READWRITE)
      .exec("UPDATE instances SET effective_from = '0000-02-29', effective_until = '0000-12-31'");
  const auto product = OpenSqliteStore(file).Value()->LoadProduct("PRC");
  ASSERT_TRUE(product.Ok()) << product.Failure().message;
  EXPECT_EQ(FormatDate(product.Value().instances.at(0).effectivity.from.value()), "0000-02-29");
}

// Whoever asks for the top of a product asks for its root part first.
TEST_F(SqliteFaults, ARootPartThatIsGoneIsDamageAndNoUnknownPart) {
  const std::pair<const char*, const char*> cases[] = {
      {"DELETE FROM parts WHERE part = 'root'", "root"},
      {"UPDATE roots SET part = 'nobody'", "nobody"},
      {"PRAGMA foreign_keys = OFF; UPDATE parts SET product = 99", "root"}};
  MakeStore();
  const std::string whole = Content(file);
  for (const auto& [damage, root] : cases) {
    Overwrite(file, whole);
    SQLite::Database(file, SQLite::OPEN_READWRITE).exec(damage);
    const auto product = OpenSqliteStore(file).Value()->ProductOfPart(root);
    ASSERT_FALSE(product.Ok()) << damage;
    EXPECT_EQ(product.Failure().kind, ErrorKind::Storage);
    EXPECT_EQ(product.Failure().storedData, protocol::StoredData::Unusable);
    EXPECT_EQ(product.Failure().message,
              "database \"" + file + "\": the file is damaged (the root part \"" + root + "\" is missing)");
  }
}

TEST_F(SqliteFaults, LostMassTypesOfTheRootAreNoticedWithoutTheRestOfTheProduct) {
  Product product = SampleProduct();
  product.parts[0].massTypes = {{"Weighed", {3.0, {}, {}}, {}, {}}};
  ASSERT_TRUE(CreateSqliteStore(file).Value()->AddProduct(product, Existing::Refuse).Ok());
  SQLite::Database(file, SQLite::OPEN_READWRITE).exec("DELETE FROM mass_types WHERE part = 1");
  const auto root = OpenSqliteStore(file).Value()->LoadRoot("PRC");
  ASSERT_FALSE(root.Ok());
  ExpectReason(root.Failure().message, "part \"root\" has 0 mass types instead of 1");
}

TEST_F(SqliteFaults, LostValuesOfAFilterAreNoticed) {
  MakeStore();
  ASSERT_TRUE(OpenSqliteStore(file).Value()->SaveFilter("PRC", LeavingOut("Kit", {"i1", "i2"})).Ok());
  SQLite::Database(file, SQLite::OPEN_READWRITE).exec("DELETE FROM filter_values WHERE value = 'i2'");
  const auto filters = OpenSqliteStore(file).Value()->LoadFilters("PRC");
  ASSERT_FALSE(filters.Ok());
  EXPECT_EQ(filters.Failure().kind, ErrorKind::Storage);
  ExpectReason(filters.Failure().message, "filter \"Kit\" has 1 value of its conditions instead of 2");
}

// Each time in a file that is whole otherwise.
TEST_F(SqliteFaults, LostRowsOfWhatIsKeptBesideAPartAreNoticed) {
  PartContent leaf{"leaf", {}, {}};
  leaf.details.documentId = "D-1";
  leaf.details.documents.revisions = {{"A", {}, {}, {}, {}, 0}, {"B", {}, {}, {}, {}, 0}};
  leaf.details.properties = {{"colour", "red"}, {"finish", "matt"}};
  leaf.details.precisions = {{"Weighed"}, {"Computed"}};
  MakeStore({{{"colour"}, {"finish"}}, {leaf}});
  const std::pair<const char*, const char*> cases[] = {
      {"DELETE FROM property_values WHERE definition = 1",
       "part \"leaf\" has 1 value of extra properties instead of 2"},
      {"DELETE FROM document_revisions WHERE revision = 'A'",
       "part \"leaf\" has 1 document revision instead of 2"},
      {"DELETE FROM document_revisions", "part \"leaf\" has 0 document revisions instead of 2"},
      {"DELETE FROM property_definitions WHERE position = 1; DELETE FROM property_values",
       "product \"PRC\" has 1 extra property instead of 2"},
      {"DELETE FROM property_definitions", "product \"PRC\" has 0 extra properties instead of 2"},
      {"DELETE FROM part_details", "part \"leaf\" has 0 rows of details instead of 1"},
      {"DELETE FROM precisions WHERE position = 0", "part \"leaf\" has 1 precision instead of 2"},
      {"DELETE FROM precisions", "part \"leaf\" has 0 precisions instead of 2"}};
  const std::string whole = Content(file);
  for (const auto& [damage, reason] : cases) {
    Overwrite(file, whole);
    SQLite::Database(file, SQLite::OPEN_READWRITE).exec(damage);
    const auto store = OpenSqliteStore(file).Value();
    const auto details = store->LoadDetails("leaf");
    ASSERT_FALSE(details.Ok()) << damage;
    EXPECT_EQ(details.Failure().kind, ErrorKind::Storage);
    ExpectReason(details.Failure().message, reason);
    EXPECT_FALSE(store->LoadPart("leaf").Ok()) << damage;
  }
}

TEST_F(SqliteFaults, CountsOfWhatIsKeptBesideAPartFollowEachSave) {
  MakeStore({.properties = {{"colour"}, {"finish"}}});
  auto store = OpenSqliteStore(file).Value();
  PartDetails details;
  details.documentId = "D-1";
  details.documents.revisions = {{"A", {}, {}, {}, {}, 0}};
  details.properties = {{"colour", "red"}, {"finish", ""}};
  details.precisions = {{"Weighed"}};
  ASSERT_TRUE(store->SaveDetails("leaf", details).Ok());
  EXPECT_EQ(store->LoadDetails("leaf").Value().properties.at(0).value, "red");
  ASSERT_TRUE(store->SaveDetails("leaf", {}).Ok());
  const auto emptied = store->LoadDetails("leaf");
  ASSERT_TRUE(emptied.Ok()) << emptied.Failure().message;
  EXPECT_TRUE(emptied.Value().documents.revisions.empty());
  EXPECT_TRUE(emptied.Value().precisions.empty());
}

TEST_F(SqliteFaults, RevisionsWithLostOrDamagedRowsAreNoticed) {
  PartContent leaf{"leaf", {}, {{"B", {{"Weighed", {2.0, {}, {}}, {}, {}}}, "Weighed", {}, 7200, {}}}};
  leaf.details.documentId = "D-1";
  leaf.details.documents.revisions = {{"B", {}, {}, {}, {}, 0}};
  leaf.revisions[0].precisions = {{"Weighed"}};
  MakeStore({{}, {leaf}});
  const std::pair<const char*, const char*> cases[] = {
      {"DELETE FROM revision_mass_types", "revision \"B\" of part \"leaf\" has 0 mass types instead of 1"},
      {"DELETE FROM revision_precisions", "revision \"B\" of part \"leaf\" has 0 precisions instead of 1"},
      {"UPDATE revision_mass_types SET mass = 9e999", "column mass: inf is not a finite number"},
      {"UPDATE revision_data SET density = 9e999", "column density: inf is not a finite number"},
      {"UPDATE revision_precisions SET value_type = 2", "column value_type: 2 is neither 0 nor 1"}};
  const std::string whole = Content(file);
  for (const auto& [damage, reason] : cases) {
    Overwrite(file, whole);
    SQLite::Database(file, SQLite::OPEN_READWRITE).exec(damage);
    const auto revision = OpenSqliteStore(file).Value()->LoadRevision("leaf", "B");
    ASSERT_FALSE(revision.Ok()) << damage;
    EXPECT_EQ(revision.Failure().kind, ErrorKind::Storage);
    ExpectReason(revision.Failure().message, reason);
  }
}

TEST_F(SqliteFaults, IdentifiersAndRootsThatWereNeverStoredAreRefused) {
  const std::pair<const char*, const char*> cases[] = {
      {"UPDATE parts SET part = 'a|b' WHERE part = 'leaf'",
       "row key = \"2\", column part: \"a|b\" holds \"|\", which an identifier may not"},
      {"UPDATE mass_types SET name = '' WHERE name = 'Weighed'",
       "row part = \"2\", column name: is empty, an identifier expected"},
      {"UPDATE instances SET instance = char(9) WHERE instance = 'i2'",
       "row key = \"2\", column instance: \"\\x09\" holds a control character"},
      {"UPDATE instances SET parent = '' WHERE instance = 'i2'", "row key = \"2\", column parent: is empty"},
      {"UPDATE instances SET child = printf('%256d', 1) WHERE instance = 'i1'",
       "has 256 bytes, an identifier has at most 255"},
      {"UPDATE roots SET part = 'ro|ot'", "row product = \"1\", column part: \"ro|ot\" holds \"|\""},
      {"UPDATE roots SET part = 'leaf'", "product \"PRC\" has a root part \"leaf\" that is a child"},
      {"UPDATE roots SET part = 'nobody'",
       "product \"PRC\" has a part \"root\" that is neither the root nor a child"},
      {"INSERT INTO roots VALUES(1, 1, 'bare')", "product \"PRC\" has 2 root parts, not one"},
      {"UPDATE instances SET child = 'leaf' WHERE instance = 'i2'",
       "product \"PRC\" has a part \"bare\" that is neither the root nor a child"}};
  MakeStore();
  const std::string whole = Content(file);
  for (const auto& [damage, reason] : cases) {
    Overwrite(file, whole);
    SQLite::Database(file, SQLite::OPEN_READWRITE).exec(damage);
    const auto product = OpenSqliteStore(file).Value()->LoadProduct("PRC");
    ASSERT_FALSE(product.Ok()) << damage;
    EXPECT_EQ(product.Failure().kind, ErrorKind::Storage);
    ExpectReason(product.Failure().message, "\"" + file + "\": the file is damaged");
    ExpectReason(product.Failure().message, reason);
  }
}

TEST_F(SqliteFaults, NameOfAProductThatWasNeverStoredIsRefused) {
  MakeStore();
  SQLite::Database(file, SQLite::OPEN_READWRITE).exec("UPDATE products SET product = 'P|RC'");
  auto store = OpenSqliteStore(file).Value();
  const std::string reason = "row key = \"1\", column product: \"P|RC\" holds \"|\"";
  ExpectReason(store->LoadProduct("P|RC").Failure().message, reason);
  const auto products = store->Products();
  ASSERT_TRUE(products.Value().at(0).damage.has_value());
  ExpectReason(products.Value()[0].damage->message, reason);
}

TEST_F(SqliteFaults, ValuesOfWhichSomeNumbersAreMissingAreRefused) {
  const std::pair<const char*, const char*> cases[] = {
      {"UPDATE mass_types SET cg_x = NULL WHERE position = 0",
       "row part = \"2\", column cg_x: is NULL, but other numbers of the same value are not"},
      {"UPDATE mass_types SET cg_z = NULL WHERE position = 0",
       "row part = \"2\", column cg_z: is NULL, a number expected"},
      {"UPDATE mass_types SET inertia_yz = NULL WHERE position = 0",
       "row part = \"2\", column inertia_yz: is NULL"},
      {"UPDATE mass_types SET bound_lower = NULL WHERE position = 0",
       "row part = \"2\", column bound_lower: is NULL"},
      {"UPDATE parts SET volume = NULL WHERE part = 'leaf'", "row key = \"2\", column volume: is NULL"},
      {"UPDATE parts SET centroid_y = NULL WHERE part = 'leaf'",
       "row key = \"2\", column centroid_y: is NULL"},
      {"UPDATE parts SET unit_inertia_xx = NULL WHERE part = 'leaf'",
       "row key = \"2\", column unit_inertia_xx: is NULL"},
      {"UPDATE parts SET unit_inertia_yz = NULL WHERE part = 'leaf'",
       "row key = \"2\", column unit_inertia_yz: is NULL"}};
  MakeStore();
  const std::string whole = Content(file);
  for (const auto& [damage, reason] : cases) {
    Overwrite(file, whole);
    SQLite::Database(file, SQLite::OPEN_READWRITE).exec(damage);
    const auto product = OpenSqliteStore(file).Value()->LoadProduct("PRC");
    ASSERT_FALSE(product.Ok()) << damage;
    EXPECT_EQ(product.Failure().kind, ErrorKind::Storage);
    ExpectReason(product.Failure().message, reason);
  }
}

TEST_F(SqliteFaults, WritingWhileAnotherProgramWritesIsRefusedAndChangesNothing) {
  MakeStore();
  auto store = OpenSqliteStore(file, kNoPatience).Value();
  {
    SQLite::Database other(file, SQLite::OPEN_READWRITE);
    SQLite::Transaction writing(other, SQLite::TransactionBehavior::EXCLUSIVE);
    const auto result = store->SaveResults({{"leaf", "f", {}}});
    ASSERT_FALSE(result.Ok());
    EXPECT_EQ(result.Failure().kind, ErrorKind::Storage);
    ExpectReason(result.Failure().message, "locked by another program");
    EXPECT_TRUE(store->LoadProduct("PRC").Ok()) << "reading goes on";
  }
  EXPECT_TRUE(store->LoadResults("PRC").Value().empty());
  EXPECT_TRUE(store->SaveResults({{"leaf", "f", {}}}).Ok());
}

TEST_F(SqliteFaults, OpeningAFileThatIsHeldExclusivelyIsRefused) {
  MakeStore();
  SQLite::Database other(file, SQLite::OPEN_READWRITE);
  other.exec("PRAGMA locking_mode = EXCLUSIVE");
  other.exec("BEGIN EXCLUSIVE");
  ExpectReason(OpeningFails(ErrorKind::Storage), "locked by another program");
}

// Permissions mean nothing to the superuser; the tests give that up for a moment.
class OrdinaryUser {
 public:
  OrdinaryUser() : _was(geteuid()) {
    if (_was == 0) _dropped = seteuid(65534) == 0;
  }
  ~OrdinaryUser() {
    if (_dropped) _dropped = seteuid(_was) != 0;
  }

 private:
  uid_t _was;
  bool _dropped = false;
};

TEST_F(SqliteFaults, ReadOnlyFileIsRefusedAndStaysAsItIs) {
  MakeStore();
  const std::string before = Content(file);
  chmod(file.c_str(), 0444);
  chmod(folder.File("").c_str(), 0755);
  {
    OrdinaryUser user;
    ASSERT_NE(geteuid(), 0u);
    ExpectReason(OpeningFails(ErrorKind::Storage), "the file is read-only");
  }
  EXPECT_EQ(Content(file), before);
}

TEST_F(SqliteFaults, UnreadableFileIsRefused) {
  MakeStore();
  chmod(file.c_str(), 0000);
  chmod(folder.File("").c_str(), 0755);
  OrdinaryUser user;
  ASSERT_NE(geteuid(), 0u);
  ExpectReason(OpeningFails(ErrorKind::Storage), "cannot be opened");
}

// Files may not grow beyond a size while this lives; the signal that comes with it is ignored.
class SmallDisk {
 public:
  explicit SmallDisk(rlim_t bytes) : _handler(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &_was);
    const rlimit limit{bytes, _was.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~SmallDisk() {
    setrlimit(RLIMIT_FSIZE, &_was);
    std::signal(SIGXFSZ, _handler);
  }

 private:
  rlimit _was{};
  void (*_handler)(int);
};

TEST_F(SqliteFaults, CreatingOnAFullDiskLeavesNoFileBehind) {
  {
    SmallDisk disk(10'000);
    const auto store = CreateSqliteStore(file);
    ASSERT_FALSE(store.Ok());
    EXPECT_EQ(store.Failure().kind, ErrorKind::Storage);
    ExpectReason(store.Failure().message, "disk");
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder.File("")));
  EXPECT_TRUE(CreateSqliteStore(file).Ok());
}

TEST_F(SqliteFaults, CreatingOnAFullDiskLeavesWhatWasThereBefore) {
  for (const char* other : {"-shm", ".old"}) Overwrite(file + other, "mine");
  {
    SmallDisk disk(10);
    ASSERT_FALSE(CreateSqliteStore(file).Ok());
  }
  EXPECT_FALSE(std::filesystem::exists(file));
  for (const char* other : {"-shm", ".old"}) EXPECT_EQ(Content(file + other), "mine") << other;
}

TEST_F(SqliteFaults, FullDiskIsReportedAndLeavesTheDataAlone) {
  MakeStore();
  auto store = OpenSqliteStore(file).Value();
  Product big = SampleProduct();
  for (int i = 0; i < 20'000; ++i) {
    Part part;
    part.id = "p" + std::to_string(i);
    big.parts.push_back(part);
    big.instances.push_back({part.id + ".1", "root", part.id, 1, {}});
  }
  {
    SmallDisk disk(300'000);
    const auto added = store->AddProduct(big, Existing::Replace);
    ASSERT_FALSE(added.Ok());
    EXPECT_EQ(added.Failure().kind, ErrorKind::Storage);
    ExpectReason(added.Failure().message, "disk");
    EXPECT_EQ(store->LoadProduct("PRC").Value().parts.size(), 3u);
  }
  store.reset();
  EXPECT_EQ(OpenSqliteStore(file).Value()->LoadProduct("PRC").Value().parts.size(), 3u);
}

TEST_F(SqliteFaults, RowsThatWereNeverStoredAreRefusedByTheirKey) {
  MakeStore();
  ExpectRefusals(
      {{"UPDATE parts SET name = CAST(x'ff' AS TEXT) WHERE part = 'leaf'",
        "the file is damaged (row key = \"2\", column name: \"\\xFF\" is not UTF-8)"},
       {"UPDATE parts SET name = 'Leaf', density_priority = 7 WHERE part = 'leaf'",
        "the file is damaged (row key = \"2\", column density_priority: 7 is neither 0 nor 1)"},
       {"UPDATE parts SET density_priority = 4294967296 WHERE part = 'leaf'",
        "4294967296 is neither 0 nor 1"},
       {"UPDATE parts SET density_priority = 0; UPDATE instances SET instance = CAST(x'c3' AS TEXT) "
        "WHERE key = 1",
        "row key = \"1\", column instance: \"\\xC3\" is not UTF-8"},
       {"UPDATE instances SET instance = 'i1' WHERE key = 1; UPDATE instances SET t_y = 9e999 WHERE key = 2",
        "row key = \"2\", column t_y: inf is not a finite number"},
       {"UPDATE instances SET t_y = 0; UPDATE parts SET volume = -9e999 WHERE part = 'leaf'",
        "row key = \"2\", column volume: -inf is not a finite number"},
       {"UPDATE parts SET volume = 0, density = 9e999 WHERE part = 'leaf'",
        "row key = \"2\", column density: inf is not a finite number"},
       {"UPDATE parts SET density = 1, standard_part = 2 WHERE part = 'leaf'",
        "row key = \"2\", column standard_part: 2 is neither 0 nor 1"},
       {"UPDATE parts SET standard_part = 0; UPDATE roots SET part = CAST(x'ff' AS TEXT)",
        "row product = \"1\", column part: \"\\xFF\" is not UTF-8"},
       {"UPDATE roots SET part = 'root'; UPDATE instances SET effective_from = '2020-02-30' WHERE key = 2",
        "row key = \"2\", column effective_from: \"2020-02-30\" is no date"},
       {"UPDATE instances SET effective_from = NULL; UPDATE instance_attributes SET value = CAST(x'ff' AS "
        "TEXT) "
        "WHERE instance = 2",
        "row instance = \"2\", column value: \"\\xFF\" is not UTF-8"},
       {"DELETE FROM instance_attributes WHERE instance = 2", "has 2 attributes of instances instead of 3"}},
      [](Store& store) { return store.LoadProduct("PRC"); });
}

TEST_F(SqliteFaults, FiltersThatWereNeverStoredAreRefusedByTheirRow) {
  MakeStore();
  ASSERT_TRUE(OpenSqliteStore(file).Value()->SaveFilter("PRC", LeavingOut("Kit", {"i1"})).Ok());
  ExpectRefusals({{"UPDATE filter_conditions SET kind = 4",
                   "row position = \"0\", column kind: 4 is not an integer from 0 to 3"},
                  {"UPDATE filter_conditions SET kind = 3, sense = 2", "column sense: 2 is neither 0 nor 1"},
                  {"UPDATE filter_conditions SET sense = 1; UPDATE filter_values SET condition = 1",
                   "row filter = \"1\", column condition: there is no such condition"},
                  {"UPDATE filter_values SET condition = -1", "column condition: there is no such condition"},
                  {"UPDATE filter_values SET condition = 0, value = CAST(x'ff' AS TEXT)",
                   "column value: \"\\xFF\" is not UTF-8"}},
                 [](Store& store) { return store.LoadFilters("PRC"); });
}

TEST_F(SqliteFaults, DetailsThatWereNeverStoredAreRefusedByTheirRow) {
  MakeStore({.properties = {{"colour"}}});
  ASSERT_TRUE(OpenSqliteStore(file)
                  .Value()
                  ->SaveDetails("leaf", {.precisions = {{"Weighed", 1, 1, 0, 0, 0, 0}},
                                         .appliedOn = {},
                                         .referenceMaterial = {},
                                         .referenceDensity = 1,
                                         .documents = {},
                                         .properties = {{"colour", "red"}}})
                  .Ok());
  ExpectRefusals(
      {{"UPDATE precisions SET precision_type = 5",
        "the file is damaged (row position = \"0\", column precision_type: 5 is neither 0 nor 1)"},
       {"UPDATE precisions SET precision_type = 0, value_type = -1",
        "column value_type: -1 is neither 0 nor 1"},
       {"UPDATE precisions SET value_type = 0, upper = 9e999", "column upper: inf is not a finite number"},
       {"UPDATE precisions SET upper = 0; UPDATE part_details SET auto_mode = 7",
        "row part = \"2\", column auto_mode: 7 is neither 0 nor 1"},
       {"UPDATE part_details SET auto_mode = 0, documents_used = 2",
        "column documents_used: 2 is neither 0 nor 1"},
       {"UPDATE part_details SET documents_used = 0, reference_density = 9e999",
        "column reference_density: inf is not a finite number"},
       {"UPDATE part_details SET reference_density = NULL; UPDATE property_definitions SET type = 5",
        "column type: 5 is not an integer from 0 to 4"},
       {"UPDATE property_definitions SET type = 0, name = 'a|b'",
        "\"a|b\" holds \"|\", which an identifier may not"},
       {"UPDATE property_definitions SET name = 'colour', position = 1",
        "row position = \"1\", column position: an extra property before it is missing"},
       {"UPDATE property_definitions SET position = 0; UPDATE property_values SET definition = 7",
        "row definition = \"7\", column definition: the product has no such property"},
       {"UPDATE property_values SET definition = 0, value = CAST(x'FF' AS TEXT)",
        "column value: \"\\xFF\" is not UTF-8"}},
      [](Store& store) { return store.LoadDetails("leaf"); });
}

PartSaving SavingOf(Store& store, double mass) {
  PartSaving saving{store.LoadPart("leaf").Value(), {"eva", "2026-01-02T03:04:05Z"}, "before", "after"};
  saving.saved.part.massTypes.at(0).properties.mass = mass;
  saving.saved.details.appliedOn = std::to_string(mass);
  return saving;
}

TEST_F(SqliteFaults, HistoriesThatWereNeverStoredAreRefused) {
  const std::pair<const char*, const char*> cases[] = {
      {"UPDATE history SET user = CAST(x'ff' AS TEXT) WHERE number = 2",
       "row number = \"2\", column user: \"\\xFF\" is not UTF-8"},
      {"DELETE FROM history WHERE number = 1", "has 1 record instead of 2"}};
  MakeStore();
  auto store = OpenSqliteStore(file).Value();
  for (double mass : {1, 2}) ASSERT_TRUE(store->SavePart(SavingOf(*store, mass)).Ok());
  store.reset();
  for (const auto& [damage, reason] : cases) {
    SQLite::Database(file, SQLite::OPEN_READWRITE).exec(damage);
    const auto page = OpenSqliteStore(file).Value()->LoadHistory("leaf", 0, 10);
    ASSERT_FALSE(page.Ok()) << reason;
    EXPECT_EQ(page.Failure().kind, ErrorKind::Storage);
    ExpectReason(page.Failure().message, reason);
  }
}

TEST_F(SqliteFaults, SavingIntoADatabaseThatLostItsCounterIsRefusedAndChangesNothing) {
  MakeStore();
  SQLite::Database(file, SQLite::OPEN_READWRITE).exec("DELETE FROM part_states");
  auto store = OpenSqliteStore(file).Value();
  const auto saved = store->SavePart(SavingOf(*store, 5));
  ASSERT_FALSE(saved.Ok());
  EXPECT_EQ(saved.Failure().kind, ErrorKind::Storage);
  ExpectReason(saved.Failure().message, "the counter of the states of parts is missing");
  EXPECT_EQ(store->LoadProduct("PRC").Value(), SampleProduct());
}

TEST_F(SqliteFaults, SavingWhileAnotherProgramWritesIsRefusedAndChangesNothing) {
  MakeStore();
  auto store = OpenSqliteStore(file, kNoPatience).Value();
  const PartSaving saving = SavingOf(*store, 5);
  {
    SQLite::Database other(file, SQLite::OPEN_READWRITE);
    SQLite::Transaction writing(other, SQLite::TransactionBehavior::EXCLUSIVE);
    const auto refused = store->SavePart(saving);
    ASSERT_FALSE(refused.Ok());
    EXPECT_EQ(refused.Failure().kind, ErrorKind::Storage);
    ExpectReason(refused.Failure().message, "locked by another program");
  }
  EXPECT_EQ(store->LoadHistory("leaf", 0, 10).Value().total, 0);
  EXPECT_TRUE(store->SavePart(saving).Ok()) << "the same saving, once the other is done";
}

TEST_F(SqliteFaults, SavingOnAFullDiskIsRefusedAndLeavesPartDetailsAndHistoryAlone) {
  MakeStore();
  auto store = OpenSqliteStore(file).Value();
  PartSaving saving = SavingOf(*store, 5);
  saving.after = std::string(2'000'000, 'x');
  {
    SmallDisk disk(300'000);
    const auto refused = store->SavePart(saving);
    ASSERT_FALSE(refused.Ok());
    EXPECT_EQ(refused.Failure().kind, ErrorKind::Storage);
    ExpectReason(refused.Failure().message, "disk");
  }
  store = OpenSqliteStore(file).Value();
  EXPECT_EQ(store->LoadProduct("PRC").Value(), SampleProduct());
  EXPECT_EQ(store->LoadDetails("leaf").Value().appliedOn, "");
  EXPECT_EQ(store->LoadHistory("leaf", 0, 10).Value().total, 0);
  EXPECT_TRUE(store->SavePart(saving).Ok());
}

TEST_F(SqliteFaults, ProductThatCannotBeToldDoesNotHideTheOthers) {
  MakeStore();
  Part other;
  other.id = "other root";
  ASSERT_TRUE(OpenSqliteStore(file)
                  .Value()
                  ->AddProduct({"Another", {other}, {}, {"other root"}}, Existing::Refuse)
                  .Ok());
  SQLite::Database(file, SQLite::OPEN_READWRITE)
      .exec("UPDATE products SET product = CAST(x'ff' AS TEXT) WHERE product = 'PRC'");
  const auto products = OpenSqliteStore(file).Value()->Products();
  ASSERT_TRUE(products.Ok()) << products.Failure().message;
  ASSERT_EQ(products.Value().size(), 2u);
  EXPECT_EQ(products.Value()[0].id, "Another");
  EXPECT_FALSE(products.Value()[0].damage.has_value());
  EXPECT_EQ(products.Value()[1].id, "");
  ASSERT_TRUE(products.Value()[1].damage.has_value());
  EXPECT_EQ(products.Value()[1].damage->kind, ErrorKind::Storage);
  ExpectReason(
      products.Value()[1].damage->message,
      "\"" + file + "\": the file is damaged (row key = \"1\", column product: \"\\xFF\" is not UTF-8)");
}

TEST_F(SqliteFaults, NamesThatMeanNoFileToSqliteAreFilesAllTheSame) {
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.File(""));
  for (const char* name : {":memory:", "file:foo?mode=memory", "file:bar.lumira"}) {
    const auto made = CreateSqliteStore(name);
    EXPECT_TRUE(made.Ok()) << name;
    EXPECT_TRUE(std::filesystem::exists(name)) << name;
    EXPECT_TRUE(OpenSqliteStore(name).Ok()) << name;
    EXPECT_FALSE(CreateSqliteStore(name).Ok()) << name;
  }
  std::filesystem::current_path(before);
}

TEST_F(SqliteFaults, EmptyNameIsRefused) {
  const auto made = CreateSqliteStore("");
  ASSERT_FALSE(made.Ok());
  EXPECT_EQ(made.Failure().kind, ErrorKind::BadValue);
  EXPECT_EQ(made.Failure().message, "database \"\": a file name expected");
}

}  // namespace
}  // namespace lumira::test
