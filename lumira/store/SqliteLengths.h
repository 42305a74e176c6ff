#pragma once

namespace SQLite {
class Database;
}

namespace lumira {

/// Brings the values of extra properties that are lengths from millimetres, in which version 4 of the tables
/// had them, to metres, digit by digit. What is no number as a whole, or none any more in metres, stays as it
/// is and is told among the notes of its product. Part of a transaction, after `BringToVersion6`. Throws
/// SQLite::Exception.
void BringLengthsToMetres(SQLite::Database& database);

}  // namespace lumira
