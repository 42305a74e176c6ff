#pragma once

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "lumira/store/OpenSqliteStore.h"

namespace lumira::test {

/// The version of the tables in a database file.
inline int VersionOf(const std::string& file) {
  return SQLite::Database(file).execAndGet("PRAGMA user_version").getInt();
}

/// Every table and column there is, in a text that does not depend on the order of the columns.
inline std::vector<std::string> ColumnsOf(const std::string& file) {
  SQLite::Database database(file);
  SQLite::Statement query(database,
                          "SELECT m.name || '.' || c.name || ' ' || c.type || ' ' || c.\"notnull\" || ' ' || "
                          "c.pk || ' ' || coalesce(c.dflt_value, '-') FROM sqlite_master m "
                          "JOIN pragma_table_info(m.name) c WHERE m.type = 'table' ORDER BY 1");
  std::vector<std::string> columns;
  while (query.executeStep()) columns.push_back(query.getColumn(0).getString());
  return columns;
}

/// That opening a file of an older version gives it the tables that a new one has. `fresh`: a file to make.
inline void ExpectOpeningMakesTheTablesOf(const std::string& fresh, const std::string& file) {
  ASSERT_TRUE(CreateSqliteStore(fresh).Ok());
  ASSERT_NE(ColumnsOf(file), ColumnsOf(fresh));
  ASSERT_TRUE(OpenSqliteStore(file).Ok());
  EXPECT_EQ(ColumnsOf(file), ColumnsOf(fresh));
  EXPECT_EQ(VersionOf(file), 6);
}

}  // namespace lumira::test
