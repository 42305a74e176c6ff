#pragma once

#include <cstdint>
#include <string>

namespace SQLite {
class Database;
}

namespace lumira {

/// Adds what version 5 of the tables did not have, and mends what older programs have taken and nobody could
/// save again: each such property is told among the notes of its product. Part of a transaction. Throws
/// SQLite::Exception.
void BringToVersion6(SQLite::Database& database);

/// Says what was found at an extra property, by its position, among the notes of a product.
/// Part of a transaction. Throws SQLite::Exception.
void AddNote(SQLite::Database& database, std::int64_t product, std::int64_t position,
             const std::string& text);

}  // namespace lumira
