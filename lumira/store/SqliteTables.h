#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "lumira/store/SqliteArchives.h"

/// SQL written from the column lists, and rows moved in and out by them. Everything throws SQLite::Exception.
namespace lumira {

template <class T>
const std::vector<std::string>& ColumnsOf() {
  static const std::vector<std::string> names = [] {
    ColumnNames collector;
    const T sample{};
    Columns<T>::List(collector, sample);
    return collector.Names();
  }();
  return names;
}

/// "INSERT INTO table(leading..., columns...) VALUES(?, ...)".
template <class T>
std::string InsertSql(const std::string& table, std::vector<std::string> leading) {
  leading.insert(leading.end(), ColumnsOf<T>().begin(), ColumnsOf<T>().end());
  std::string columns, values;
  for (const std::string& name : leading) {
    columns += (columns.empty() ? "" : ", ") + name;
    values += values.empty() ? "?" : ", ?";
  }
  return "INSERT INTO " + table + "(" + columns + ") VALUES(" + values + ")";
}

/// "UPDATE table SET column = ?, ... where".
template <class T>
std::string UpdateSql(const std::string& table, const std::string& where) {
  std::string assignments;
  for (const std::string& name : ColumnsOf<T>())
    assignments += (assignments.empty() ? "" : ", ") + name + " = ?";
  return "UPDATE " + table + " SET " + assignments + " " + where;
}

/// "SELECT leading, columns... FROM table where"; `prefix` stands before every column of T.
template <class T>
std::string SelectSql(const std::string& leading, const std::string& table, const std::string& where,
                      const std::string& prefix = {}) {
  std::string columns = leading;
  for (const std::string& name : ColumnsOf<T>()) columns += ", " + prefix + name;
  return "SELECT " + columns + " FROM " + table + " " + where;
}

/// Binds the members of `x` from parameter `first` on, runs the statement and leaves it ready for the next
/// row.
template <class T>
void InsertRow(SQLite::Statement& statement, int first, const T& x) {
  Binder binder(statement, first);
  Columns<T>::List(binder, x);
  statement.exec();
  statement.reset();
  statement.clearBindings();
}

template <class T>
T ReadRow(SQLite::Statement& row, int first) {
  T x{};
  RowReader reader(row, first);
  Columns<T>::List(reader, x);
  return x;
}

/// "INSERT INTO table(owner, position, columns...)", for lists that belong to a row of another table.
template <class T>
std::string InsertListSql(const std::string& table, const std::string& owner = "part") {
  return InsertSql<T>(table, {owner, "position"});
}

/// Writes a list that belongs to a row, each entry with its position, by a statement of `InsertListSql`.
template <class T>
void WriteRows(SQLite::Statement& insert, std::int64_t owner, const std::vector<T>& list) {
  std::int64_t position = 0;
  for (const T& entry : list) {
    insert.bind(1, owner);
    insert.bind(2, position++);
    InsertRow(insert, 3, entry);
  }
}

template <class T>
void WriteRows(SQLite::Database& database, const std::string& table, std::int64_t part,
               const std::vector<T>& list) {
  SQLite::Statement insert(database, InsertListSql<T>(table));
  WriteRows(insert, part, list);
}

/// Throws DamagedContent when a part has lost mass types.
inline void CheckMassTypeCount(const Part& part, std::int64_t stored) {
  CheckRowCount([&] { return "part " + protocol::Quoted(part.id); }, {"mass type", "mass types"},
                part.massTypes.size(), stored);
}

template <class T>
std::vector<T> ReadRows(SQLite::Database& database, const std::string& table, std::int64_t owner,
                        const std::string& ownerColumn = "part") {
  SQLite::Statement query(database,
                          SelectSql<T>("position", table, "WHERE " + ownerColumn + " = ? ORDER BY position"));
  query.bind(1, owner);
  std::vector<T> list;
  while (query.executeStep()) list.push_back(ReadRow<T>(query, 1));
  return list;
}

inline void DeleteRows(SQLite::Database& database, const std::string& table, std::int64_t part) {
  SQLite::Statement remove(database, "DELETE FROM " + table + " WHERE part = ?");
  remove.bind(1, part);
  remove.exec();
}

/// Writes a list whose rows are an owner, a position and what `bindEntry` binds.
template <class T, class BindEntry>
void WriteList(SQLite::Database& database, const std::string& sql, std::int64_t owner,
               const std::vector<T>& list, BindEntry bindEntry) {
  SQLite::Statement insert(database, sql);
  std::int64_t position = 0;
  for (const T& entry : list) {
    insert.bind(1, owner);
    insert.bind(2, position++);
    bindEntry(insert, entry);
    insert.exec();
    insert.reset();
  }
}

}  // namespace lumira
