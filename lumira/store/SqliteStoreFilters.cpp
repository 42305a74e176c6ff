#include <SQLiteCpp/VariadicBind.h>

#include "lumira/store/SqliteStore.h"
#include "lumira/store/SqliteTables.h"

namespace lumira {

using protocol::Result;

Result<std::vector<ConfigurationFilter>> SqliteStore::LoadFilters(std::string_view productId) {
  return Read([&]() -> Result<std::vector<ConfigurationFilter>> {
    const auto key = ProductKey(productId);
    if (!key) return key.Failure();
    std::vector<ConfigurationFilter> filters;
    SQLite::Statement query(_db, "SELECT key, name FROM filters WHERE product = ? ORDER BY name");
    SQLite::Statement excluded(
        _db, "SELECT filter, instance FROM filter_instances WHERE filter = ? ORDER BY position");
    query.bind(1, key.Value());
    while (query.executeStep()) {
      ConfigurationFilter& filter = filters.emplace_back();
      filter.name = TextIn(query, 1);
      excluded.reset();
      excluded.bind(1, query.getColumn(0).getInt64());
      while (excluded.executeStep()) filter.excludedInstances.push_back(TextIn(excluded, 1));
    }
    return filters;
  });
}

Result<void> SqliteStore::SaveFilter(std::string_view productId, const ConfigurationFilter& filter) {
  return Write([&]() -> Result<void> {
    const auto key = ProductKey(productId);
    if (!key) return key.Failure();
    SQLite::Statement remove(_db, "DELETE FROM filters WHERE product = ? AND name = ?");
    SQLite::bind(remove, key.Value(), filter.name);
    remove.exec();
    SQLite::Statement insert(_db, "INSERT INTO filters(product, name) VALUES(?, ?)");
    SQLite::bind(insert, key.Value(), filter.name);
    insert.exec();
    WriteList(_db, "INSERT INTO filter_instances(filter, position, instance) VALUES(?, ?, ?)",
              _db.getLastInsertRowid(), filter.excludedInstances,
              [](SQLite::Statement& row, const std::string& instance) { row.bind(3, instance); });
    _db.exec("UPDATE products SET state = state + 1 WHERE key = " + std::to_string(key.Value()));
    return {};
  });
}

}  // namespace lumira
