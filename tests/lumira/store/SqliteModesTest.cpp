#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

#include "StoreContract.h"
#include "lumira/store/OpenSqliteStore.h"

namespace lumira::test {
namespace {

sqlite3* lastOpened = nullptr;

int RememberConnection(sqlite3* connection, char**, const sqlite3_api_routines*) {
  lastOpened = connection;
  return SQLITE_OK;
}

// SQLite calls an automatic extension with each connection that is opened; modes are those of a connection.
using Extension = void (*)();

/// Looks at the connections that stores open for themselves.
class SqliteModes : public testing::Test {
 protected:
  SqliteModes() { sqlite3_auto_extension(reinterpret_cast<Extension>(RememberConnection)); }
  ~SqliteModes() override { sqlite3_cancel_auto_extension(reinterpret_cast<Extension>(RememberConnection)); }

  static std::string Pragma(const char* name) {
    std::string value;
    const auto take = [](void* to, int, char** texts, char**) {
      *static_cast<std::string*>(to) = texts[0];
      return 0;
    };
    sqlite3_exec(lastOpened, (std::string("PRAGMA ") + name).c_str(), take, &value, nullptr);
    return value;
  }

  TemporaryFolder folder;
  std::string file = folder.File("modes.lumira");
};

constexpr char kFull[] = "2";

TEST_F(SqliteModes, WaitForTheDiskWithEachCommitOfANewFile) {
  const auto store = CreateSqliteStore(file).Value();
  EXPECT_EQ(Pragma("synchronous"), kFull);
  EXPECT_EQ(Pragma("journal_mode"), "wal");
}

TEST_F(SqliteModes, WaitForTheDiskWithEachCommitOfAFileThatIsOpenedAgain) {
  CreateSqliteStore(file).Value().reset();
  const auto store = OpenSqliteStore(file).Value();
  EXPECT_EQ(Pragma("synchronous"), kFull);
  EXPECT_EQ(Pragma("journal_mode"), "wal");
}

}  // namespace
}  // namespace lumira::test
