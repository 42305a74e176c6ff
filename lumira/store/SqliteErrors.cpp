#include "lumira/store/SqliteErrors.h"

#include <sqlite3.h>

namespace lumira {
namespace {

struct Meaning {
  int code;
  const char* text;
};

constexpr Meaning kMeanings[] = {
    {SQLITE_NOTADB, "the file is damaged or no database"},
    {SQLITE_CORRUPT, "the file is damaged"},
    {SQLITE_READONLY, "the file is read-only"},
    {SQLITE_BUSY, "the file is locked by another program"},
    {SQLITE_LOCKED, "the file is locked by another program"},
    {SQLITE_FULL, "the disk is full"},
    {SQLITE_IOERR, "the disk refused to read or write"},
    {SQLITE_CANTOPEN, "the file cannot be opened"},
    {SQLITE_PERM, "access to the file is denied"},
    {SQLITE_TOOBIG, "a value is too large for the database"},
    {SQLITE_CONSTRAINT, "the data does not fit the tables"},
    {SQLITE_MISMATCH, "the file is damaged (a value of the wrong type)"},
    // A table or column that should be there is missing although the version is right.
    {SQLITE_ERROR, "the file is damaged (its tables are not as expected)"},
};

std::string MeaningOf(int code) {
  for (const Meaning& meaning : kMeanings)
    if (meaning.code == code) return meaning.text;
  return "the database failed";
}

}  // namespace

protocol::Error DamageError(const std::string& file, const std::string& what) {
  return {protocol::ErrorKind::Storage, "database \"" + file + "\": the file is damaged (" + what + ")"};
}

protocol::Error StorageError(const std::string& file, const SQLite::Exception& exception) {
  return {protocol::ErrorKind::Storage, "database \"" + file + "\": " + MeaningOf(exception.getErrorCode()) +
                                            " (SQLite: " + exception.what() + ")"};
}

}  // namespace lumira
