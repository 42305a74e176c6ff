#pragma once

#include <string>

namespace SQLite {
class Database;
}

namespace lumira {

/// Marks our files among other SQLite files ("LUMI").
inline constexpr int kApplicationId = 0x4C554D49;

/// Version of the tables. A program opens files of this version only.
inline constexpr int kSchemaVersion = 3;

/// Makes all tables in an empty database, in one transaction. Throws SQLite::Exception.
void CreateSchema(SQLite::Database& database);

/// Why this database is not one that the store can work on; empty when it is. Throws SQLite::Exception.
std::string SchemaProblem(SQLite::Database& database);

}  // namespace lumira
