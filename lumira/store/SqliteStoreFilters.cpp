#include <SQLiteCpp/VariadicBind.h>

#include "lumira/store/ProductRules.h"
#include "lumira/store/SqliteStore.h"
#include "lumira/store/SqliteTables.h"
#include "protocol/Utf8.h"

namespace lumira {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Quoted;
using protocol::Result;

namespace {

std::int64_t ValueCount(const ConfigurationFilter& filter) {
  std::int64_t count = 0;
  for (const FilterCondition& condition : filter.conditions) count += std::ssize(condition.values);
  return count;
}

}  // namespace

Result<std::vector<ConfigurationFilter>> SqliteStore::LoadFilters(std::string_view productId) {
  return Read([&]() -> Result<std::vector<ConfigurationFilter>> {
    const auto key = ProductKey(productId);
    if (!key) return key.Failure();
    std::vector<ConfigurationFilter> filters;
    SQLite::Statement query(
        _db, "SELECT key, name, description, value_count FROM filters WHERE product = ? ORDER BY name");
    query.bind(1, key.Value());
    while (query.executeStep()) {
      filters.push_back({.name = TextIn(query, 1),
                         .description = TextIn(query, 2),
                         .conditions = LoadConditions(query.getColumn(0).getInt64())});
      CheckRowCount([&] { return "filter " + Quoted(filters.back().name); },
                    {"value of its conditions", "values of its conditions"},
                    static_cast<std::size_t>(ValueCount(filters.back())), query.getColumn(3).getInt64());
    }
    return filters;
  });
}

std::vector<FilterCondition> SqliteStore::LoadConditions(std::int64_t filterKey) {
  auto conditions = ReadRows<FilterCondition>(_db, "filter_conditions", filterKey, "filter");
  SQLite::Statement values(
      _db,
      "SELECT filter, condition, value FROM filter_values WHERE filter = ? ORDER BY condition, position");
  values.bind(1, filterKey);
  while (values.executeStep()) {
    const auto condition = static_cast<std::size_t>(values.getColumn(1).getInt64());
    if (condition >= conditions.size()) RefuseColumn(values, 1, "there is no such condition");
    conditions[condition].values.push_back(TextIn(values, 2));
  }
  return conditions;
}

Result<void> SqliteStore::SaveFilter(std::string_view productId, const ConfigurationFilter& filter) {
  if (auto good = CheckFilter(filter); !good) return good;
  return Write([&]() -> Result<void> {
    const auto key = ProductKey(productId);
    if (!key) return key.Failure();
    if (auto good = CheckInstancesOf(key.Value(), filter); !good) return good;
    SQLite::Statement remove(_db, "DELETE FROM filters WHERE product = ? AND name = ?");
    SQLite::bind(remove, key.Value(), filter.name);
    remove.exec();
    InsertFilter(key.Value(), filter);
    _db.exec("UPDATE products SET state = state + 1 WHERE key = " + std::to_string(key.Value()));
    return {};
  });
}

Result<void> SqliteStore::CheckInstancesOf(std::int64_t productKey, const ConfigurationFilter& filter) {
  SQLite::Statement query(_db, "SELECT 1 FROM instances WHERE product = ? AND instance = ?");
  for (const FilterCondition& condition : filter.conditions) {
    if (condition.kind != ConditionKind::Instances) continue;
    for (const std::string& id : condition.values) {
      query.reset();
      SQLite::bind(query, productKey, id);
      if (!query.executeStep())
        return Error{ErrorKind::NotFound,
                     "configuration filter " + Quoted(filter.name) + ": there is no instance " + Quoted(id)};
    }
  }
  return {};
}

void SqliteStore::InsertFilters(std::int64_t productKey, const ProductFilters& filters) {
  for (const ConfigurationFilter& filter : filters.filters) InsertFilter(productKey, filter);
  WriteHandler(productKey, filters.handler);
}

void SqliteStore::InsertFilter(std::int64_t productKey, const ConfigurationFilter& filter) {
  SQLite::Statement insert(_db,
                           "INSERT INTO filters(product, name, description, value_count) VALUES(?, ?, ?, ?)");
  SQLite::bind(insert, productKey, filter.name, filter.description, ValueCount(filter));
  insert.exec();
  const std::int64_t key = _db.getLastInsertRowid();
  SQLite::Statement insertCondition(_db, InsertListSql<FilterCondition>("filter_conditions", "filter"));
  WriteRows(insertCondition, key, filter.conditions);
  SQLite::Statement insertValue(
      _db, "INSERT INTO filter_values(filter, condition, position, value) VALUES(?, ?, ?, ?)");
  for (std::size_t condition = 0; condition < filter.conditions.size(); ++condition) {
    const auto& values = filter.conditions[condition].values;
    for (std::size_t position = 0; position < values.size(); ++position) {
      SQLite::bind(insertValue, key, static_cast<std::int64_t>(condition),
                   static_cast<std::int64_t>(position), values[position]);
      insertValue.exec();
      insertValue.reset();
    }
  }
}

Result<std::optional<std::string>> SqliteStore::LoadHandler(std::string_view productId) {
  return Read([&]() -> Result<std::optional<std::string>> {
    SQLite::Statement query(_db, "SELECT key, handler FROM products WHERE product = ?");
    query.bind(1, std::string(productId));
    if (!query.executeStep()) return Error{ErrorKind::NotFound, "there is no product " + Quoted(productId)};
    if (query.isColumnNull(1)) return std::optional<std::string>();
    return std::optional(TextIn(query, 1));
  });
}

// Filters are no part of what a result is computed from, so the state stays as it is.
Result<void> SqliteStore::SaveHandler(std::string_view productId, const std::optional<std::string>& name) {
  return Write([&]() -> Result<void> {
    const auto key = ProductKey(productId);
    if (!key) return key.Failure();
    SQLite::Statement query(_db, "SELECT 1 FROM filters WHERE product = ? AND name = ?");
    SQLite::bind(query, key.Value(), name.value_or(""));
    if (name && !query.executeStep()) return UnknownFilter(productId, *name);
    WriteHandler(key.Value(), name);
    return {};
  });
}

void SqliteStore::WriteHandler(std::int64_t productKey, const std::optional<std::string>& name) {
  SQLite::Statement update(_db, "UPDATE products SET handler = ? WHERE key = ?");
  if (name) update.bind(1, *name);
  update.bind(2, productKey);
  update.exec();
}

}  // namespace lumira
