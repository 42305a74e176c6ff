#pragma once

namespace SQLite {
class Database;
}

namespace lumira {

/// Adds what version 5 of the tables did not have, and mends what older programs have taken and nobody could
/// save again: each such property is told among the notes of its product. Part of a transaction. Throws
/// SQLite::Exception.
void BringToVersion6(SQLite::Database& database);

}  // namespace lumira
