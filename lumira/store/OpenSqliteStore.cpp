#include "lumira/store/OpenSqliteStore.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <filesystem>
#include <utility>

#include "lumira/store/SqliteErrors.h"
#include "lumira/store/SqliteSchema.h"
#include "lumira/store/SqliteStore.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Result;

// Readers never wait for a writer in this mode, and a commit is on the disk when it returns.
void SetModes(SQLite::Database& database) {
  database.exec("PRAGMA foreign_keys = ON");
  database.exec("PRAGMA journal_mode = WAL");
  database.exec("PRAGMA synchronous = FULL");
}

// One thread at a time, as the interface says; SQLite need not lock against others.
int OpenFlags() { return SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX; }

// SQLite takes some names for something else than a file: "file:..." for an address, ":memory:" for no file
// at all. None of them begins with a dot or a slash.
std::string PathFor(const std::string& file) {
  return std::filesystem::path(file).is_absolute() ? file : "./" + file;
}

Error FileError(ErrorKind kind, const std::string& file, const std::string& reason) {
  return {kind, "database \"" + file + "\": " + reason};
}

}  // namespace

Result<std::unique_ptr<Store>> CreateSqliteStore(const std::string& file, int lockPatience) {
  if (file.empty()) return FileError(ErrorKind::BadValue, file, "a file name expected");
  std::error_code ignored;
  if (std::filesystem::exists(file, ignored))
    return FileError(ErrorKind::Conflict, file, "the file exists already");
  auto store = Guarded(file, [&]() -> Result<std::unique_ptr<Store>> {
    SQLite::Database database(PathFor(file), OpenFlags() | SQLite::OPEN_CREATE, lockPatience);
    SetModes(database);
    CreateSchema(database);
    return std::unique_ptr<Store>(new SqliteStore(file, std::move(database)));
  });
  // Half a database would stand in the way of the next try.
  if (!store)
    for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(file + suffix, ignored);
  return store;
}

Result<std::unique_ptr<Store>> OpenSqliteStore(const std::string& file, int lockPatience) {
  std::error_code ignored;
  if (!std::filesystem::exists(file, ignored))
    return FileError(ErrorKind::NotFound, file, "there is no such file");
  return Guarded(file, [&]() -> Result<std::unique_ptr<Store>> {
    SQLite::Database database(PathFor(file), OpenFlags(), lockPatience);
    if (sqlite3_db_readonly(database.getHandle(), "main") == 1)
      return FileError(ErrorKind::Storage, file, "the file is read-only");
    if (const std::string problem = SchemaProblem(database); !problem.empty())
      return FileError(ErrorKind::Storage, file, problem);
    SetModes(database);
    BringUpToDate(database);
    return std::unique_ptr<Store>(new SqliteStore(file, std::move(database)));
  });
}

}  // namespace lumira
