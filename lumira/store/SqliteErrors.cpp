#include "lumira/store/SqliteErrors.h"

#include <sqlite3.h>

namespace lumira {
namespace {

using protocol::StoredData;

struct Meaning {
  int code;
  const char* text;
  StoredData storedData;
};

constexpr Meaning kMeanings[] = {
    {SQLITE_NOTADB, "the file is damaged or no database", StoredData::Unusable},
    {SQLITE_CORRUPT, "the file is damaged", StoredData::Unusable},
    {SQLITE_READONLY, "the file is read-only", StoredData::NotToBlame},
    {SQLITE_BUSY, "the file is locked by another program", StoredData::NotToBlame},
    {SQLITE_LOCKED, "the file is locked by another program", StoredData::NotToBlame},
    {SQLITE_FULL, "the disk is full", StoredData::NotToBlame},
    {SQLITE_IOERR, "the disk refused to read or write", StoredData::NotToBlame},
    {SQLITE_CANTOPEN, "the file cannot be opened", StoredData::NotToBlame},
    {SQLITE_PERM, "access to the file is denied", StoredData::NotToBlame},
    {SQLITE_TOOBIG, "a value is too large for the database", StoredData::NotToBlame},
    {SQLITE_CONSTRAINT, "the data does not fit the tables", StoredData::NotToBlame},
    {SQLITE_MISMATCH, "the file is damaged (a value of the wrong type)", StoredData::Unusable},
    // A table or column that should be there is missing although the version is right.
    {SQLITE_ERROR, "the file is damaged (its tables are not as expected)", StoredData::Unusable},
};

constexpr Meaning kUnknown = {SQLITE_OK, "the database failed", StoredData::NotToBlame};

const Meaning& MeaningOf(int code) {
  for (const Meaning& meaning : kMeanings)
    if (meaning.code == code) return meaning;
  return kUnknown;
}

}  // namespace

protocol::Error DamageError(const std::string& file, const std::string& what) {
  return {protocol::ErrorKind::Storage, "database \"" + file + "\": the file is damaged (" + what + ")",
          StoredData::Unusable};
}

protocol::Error StorageError(const std::string& file, const SQLite::Exception& exception) {
  const Meaning& meaning = MeaningOf(exception.getErrorCode());
  return {protocol::ErrorKind::Storage,
          "database \"" + file + "\": " + meaning.text + " (SQLite: " + exception.what() + ")",
          meaning.storedData};
}

}  // namespace lumira
