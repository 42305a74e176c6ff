#pragma once

#include <string>

namespace SQLite {
class Database;
}

namespace lumira {

/// Marks our files among other SQLite files ("LUMI").
inline constexpr int kApplicationId = 0x4C554D49;

/// Version of the tables. A program works on files of this version only, and brings older ones up to it.
inline constexpr int kSchemaVersion = 6;

/// The oldest version that can be brought up to date.
inline constexpr int kOldestSchemaVersion = 3;

/// Makes all tables in an empty database, in one transaction. Throws SQLite::Exception.
void CreateSchema(SQLite::Database& database);

/// Why this database is not one that the store can work on, once its tables are up to date; empty when it is.
/// Throws SQLite::Exception.
std::string SchemaProblem(SQLite::Database& database);

/// Brings the tables of a database that has passed `SchemaProblem` up to `kSchemaVersion`, in one
/// transaction; nothing that is stored is lost. Does nothing when they are. Throws SQLite::Exception.
void BringUpToDate(SQLite::Database& database);

}  // namespace lumira
