#include "lumira/store/OpenSqliteStore.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "lumira/store/SqliteErrors.h"
#include "lumira/store/SqliteSchema.h"
#include "lumira/store/SqliteStore.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Result;
using protocol::StoredData;

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

Error FileError(ErrorKind kind, const std::string& file, const std::string& reason,
                StoredData storedData = StoredData::NotToBlame) {
  return {kind, "database \"" + file + "\": " + reason, storedData};
}

/// What SQLite keeps beside a database while it works, by what stands behind its name.
constexpr const char* kCompanions[] = {"-wal", "-shm", "-journal"};

// Makes an empty file, which SQLite takes for a new database. Of two that make the same file at once, one is
// told that it exists, so that none takes that of the other for its own.
Result<void> MakeFile(const std::string& file) {
  if (std::FILE* const made = std::fopen(PathFor(file).c_str(), "wbx")) {
    std::fclose(made);
    return {};
  }
  if (errno == EEXIST) return FileError(ErrorKind::Conflict, file, "the file exists already");
  return FileError(ErrorKind::Storage, file,
                   "the file cannot be opened (" + std::generic_category().message(errno) + ")");
}

}  // namespace

Result<std::unique_ptr<Store>> CreateSqliteStore(const std::string& file, int lockPatience) {
  if (file.empty()) return FileError(ErrorKind::BadValue, file, "a file name expected");
  std::vector<std::string> made = {file};
  std::error_code ignored;
  for (const char* suffix : kCompanions)
    if (!std::filesystem::exists(file + suffix, ignored)) made.push_back(file + suffix);
  if (auto own = MakeFile(file); !own) return own.Failure();
  auto store = Guarded(file, [&]() -> Result<std::unique_ptr<Store>> {
    SQLite::Database database(PathFor(file), OpenFlags(), lockPatience);
    SetModes(database);
    CreateSchema(database);
    return std::unique_ptr<Store>(new SqliteStore(file, std::move(database)));
  });
  // Half a database would stand in the way of the next try.
  if (!store)
    for (const std::string& own : made) std::filesystem::remove(own, ignored);
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
      return FileError(ErrorKind::Storage, file, problem, StoredData::Unusable);
    SetModes(database);
    BringUpToDate(database);
    return std::unique_ptr<Store>(new SqliteStore(file, std::move(database)));
  });
}

}  // namespace lumira
