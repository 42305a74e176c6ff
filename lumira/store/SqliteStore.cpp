#include "lumira/store/SqliteStore.h"

#include <filesystem>
#include <optional>
#include <unordered_map>
#include <utility>

#include <SQLiteCpp/SQLiteCpp.h>
#include <SQLiteCpp/VariadicBind.h>
#include <sqlite3.h>

#include "lumira/store/ProductRules.h"
#include "lumira/store/SqliteArchives.h"
#include "lumira/store/SqliteErrors.h"
#include "lumira/store/SqliteSchema.h"
#include "lumira/store/SqliteTables.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Quoted;
using protocol::Result;

// Seldom enough to cost nothing.
void ReportRow(const Progress& progress, std::size_t row, std::size_t rows) {
  constexpr std::size_t kRowsBetweenReports = 10'000;
  if (row % kRowsBetweenReports == 0 || row == rows) Report(progress, "Loading the product", row, rows);
}

class SqliteStore final : public Store {
 public:
  /// Takes a database that has passed all checks.
  SqliteStore(std::string file, SQLite::Database database) : _file(std::move(file)), _db(std::move(database)) {}

  Result<std::vector<ProductInfo>> Products() override;
  Result<std::string> ProductOfPart(std::string_view partId) override;
  Result<Product> LoadProduct(std::string_view productId, const Progress& progress) override;
  Result<ProductRoot> LoadRoot(std::string_view productId) override;
  Error Damage(const std::string& what) const override { return DamageError(_file, what); }
  Result<void> AddProduct(const Product& product, Existing existing) override;
  Result<void> UpdatePart(const Part& part) override;
  Result<PartDetails> LoadDetails(std::string_view partId) override;
  Result<void> SaveDetails(std::string_view partId, const PartDetails& details) override;
  Result<std::vector<StoredResult>> LoadResults(std::string_view productId) override;
  Result<void> SaveResults(const std::vector<StoredResult>& results) override;
  Result<std::vector<ConfigurationFilter>> LoadFilters(std::string_view productId) override;
  Result<void> SaveFilter(std::string_view productId, const ConfigurationFilter& filter) override;

 private:
  // Runs the work in one transaction that is committed when it succeeds. The lock for writing is taken at once,
  // so that what the work reads first cannot change before it writes.
  template <class Work>
  Result<void> Write(Work&& work) {
    return Guarded(_file, [&]() -> Result<void> {
      SQLite::Transaction transaction(_db, SQLite::TransactionBehavior::IMMEDIATE);
      Result<void> done = work();
      if (done) transaction.commit();
      return done;
    });
  }

  // Runs the work on one state of the database, whatever others write meanwhile.
  template <class Work>
  auto Read(Work&& work) -> decltype(work()) {
    return Guarded(_file, [&]() -> decltype(work()) {
      SQLite::Transaction snapshot(_db);
      return work();
    });
  }

  std::optional<std::int64_t> Key(const char* sql, std::string_view id);
  Result<std::int64_t> ProductKey(std::string_view productId);
  Result<std::int64_t> PartKey(std::string_view partId);
  std::size_t RowCount(std::int64_t productKey);
  Result<void> CheckPartsAreFree(const Product& product);
  std::int64_t InsertProduct(const Product& product, std::int64_t state);
  void InsertParts(const Product& product, std::int64_t key);
  void InsertInstances(const Product& product, std::int64_t key);
  void LoadMassTypes(std::int64_t productKey, std::vector<Part>& parts,
                     const std::unordered_map<std::int64_t, std::size_t>& indices);
  std::vector<std::string> Roots(std::int64_t productKey);
  Result<void> CheckCounts(std::int64_t productKey, const Product& product);

  std::string _file;
  SQLite::Database _db;
};

std::optional<std::int64_t> SqliteStore::Key(const char* sql, std::string_view id) {
  SQLite::Statement query(_db, sql);
  query.bind(1, std::string(id));
  return query.executeStep() ? std::optional(query.getColumn(0).getInt64()) : std::nullopt;
}

Result<std::int64_t> SqliteStore::ProductKey(std::string_view productId) {
  if (const auto key = Key("SELECT key FROM products WHERE product = ?", productId)) return *key;
  return Error{ErrorKind::NotFound, "there is no product " + Quoted(productId)};
}

Result<std::int64_t> SqliteStore::PartKey(std::string_view partId) {
  if (const auto key = Key("SELECT key FROM parts WHERE part = ?", partId)) return *key;
  return Error{ErrorKind::NotFound, "there is no part " + Quoted(partId)};
}

std::vector<std::string> SqliteStore::Roots(std::int64_t productKey) {
  std::vector<std::string> roots;
  SQLite::Statement query(_db, "SELECT part FROM roots WHERE product = ? ORDER BY position");
  query.bind(1, productKey);
  while (query.executeStep()) roots.push_back(query.getColumn(0).getString());
  return roots;
}

Result<std::vector<ProductInfo>> SqliteStore::Products() {
  return Read([&]() -> Result<std::vector<ProductInfo>> {
    std::vector<ProductInfo> products;
    SQLite::Statement query(
        _db, "SELECT product, key, state, part_count, instance_count FROM products ORDER BY product");
    while (query.executeStep())
      products.push_back({query.getColumn(0).getString(), Roots(query.getColumn(1).getInt64()),
                          query.getColumn(2).getInt64(), query.getColumn(3).getInt64(),
                          query.getColumn(4).getInt64()});
    return products;
  });
}

Result<std::string> SqliteStore::ProductOfPart(std::string_view partId) {
  return Read([&]() -> Result<std::string> {
    SQLite::Statement query(
        _db, "SELECT products.product FROM parts JOIN products ON parts.product = products.key WHERE parts.part = ?");
    query.bind(1, std::string(partId));
    if (query.executeStep()) return query.getColumn(0).getString();
    return Error{ErrorKind::NotFound, "there is no part " + Quoted(partId)};
  });
}

Result<Product> SqliteStore::LoadProduct(std::string_view productId, const Progress& progress) {
  return Read([&]() -> Result<Product> {
    const auto key = ProductKey(productId);
    if (!key) return key.Failure();
    const std::size_t rows = RowCount(key.Value());
    Product product{.id = std::string(productId), .parts = {}, .instances = {}, .roots = Roots(key.Value())};

    std::unordered_map<std::int64_t, std::size_t> indices;
    SQLite::Statement parts(_db, SelectSql<Part>("key", "parts", "WHERE product = ? ORDER BY key"));
    parts.bind(1, key.Value());
    while (parts.executeStep()) {
      indices.emplace(parts.getColumn(0).getInt64(), product.parts.size());
      product.parts.push_back(ReadRow<Part>(parts, 1));
      ReportRow(progress, product.parts.size(), rows);
    }
    LoadMassTypes(key.Value(), product.parts, indices);

    SQLite::Statement instances(_db, SelectSql<Instance>("key", "instances", "WHERE product = ? ORDER BY key"));
    instances.bind(1, key.Value());
    while (instances.executeStep()) {
      product.instances.push_back(ReadRow<Instance>(instances, 1));
      ReportRow(progress, product.parts.size() + product.instances.size(), rows);
    }

    if (auto counts = CheckCounts(key.Value(), product); !counts) return counts.Failure();
    return product;
  });
}

std::size_t SqliteStore::RowCount(std::int64_t productKey) {
  return static_cast<std::size_t>(
      _db.execAndGet("SELECT part_count + instance_count FROM products WHERE key = " + std::to_string(productKey))
          .getInt64());
}

Result<ProductRoot> SqliteStore::LoadRoot(std::string_view productId) {
  return Read([&]() -> Result<ProductRoot> {
    const auto product = ProductKey(productId);
    if (!product) return product.Failure();
    SQLite::Statement query(_db, SelectSql<Part>("key", "parts",
                                                 "WHERE part = (SELECT part FROM roots WHERE product = ? "
                                                 "ORDER BY position LIMIT 1)"));
    query.bind(1, product.Value());
    if (!query.executeStep()) return DamageError(_file, "product " + Quoted(productId) + " has no root part");
    ProductRoot root{ReadRow<Part>(query, 1), false, std::nullopt};
    const std::int64_t key = query.getColumn(0).getInt64();
    root.part.massTypes = ReadRows<MassTypeData>(_db, "mass_types", key);
    SQLite::Statement children(_db, "SELECT 1 FROM instances WHERE product = ? AND parent = ? LIMIT 1");
    SQLite::bind(children, product.Value(), root.part.id);
    root.hasChildren = children.executeStep();
    SQLite::Statement result(_db, SelectSql<StoredResult>("part", "results", "WHERE part = ?"));
    result.bind(1, key);
    if (result.executeStep()) root.result = ReadRow<StoredResult>(result, 1);
    if (root.result) root.result->partId = root.part.id;
    return root;
  });
}

void SqliteStore::LoadMassTypes(std::int64_t productKey, std::vector<Part>& parts,
                                const std::unordered_map<std::int64_t, std::size_t>& indices) {
  SQLite::Statement types(_db, SelectSql<MassTypeData>("part", "mass_types",
                                                       "WHERE part IN (SELECT key FROM parts WHERE product = ?) "
                                                       "ORDER BY part, position"));
  types.bind(1, productKey);
  while (types.executeStep()) {
    Part& part = parts[indices.at(types.getColumn(0).getInt64())];
    part.massTypes.push_back(ReadRow<MassTypeData>(types, 1));
  }
}

// A damaged index or table can lose rows without any other sign.
Result<void> SqliteStore::CheckCounts(std::int64_t productKey, const Product& product) {
  SQLite::Statement counts(_db, "SELECT part_count, instance_count FROM products WHERE key = ?");
  counts.bind(1, productKey);
  counts.executeStep();
  const auto parts = counts.getColumn(0).getInt64();
  const auto instances = counts.getColumn(1).getInt64();
  if (parts == std::ssize(product.parts) && instances == std::ssize(product.instances)) return {};
  return DamageError(_file, "product " + Quoted(product.id) + " has " + std::to_string(product.parts.size()) +
                                " parts and " + std::to_string(product.instances.size()) + " instances instead of " +
                                std::to_string(parts) + " and " + std::to_string(instances));
}

Result<void> SqliteStore::CheckPartsAreFree(const Product& product) {
  SQLite::Statement query(
      _db, "SELECT products.product FROM parts JOIN products ON parts.product = products.key WHERE parts.part = ?");
  for (const Part& part : product.parts) {
    query.reset();
    query.bind(1, part.id);
    if (query.executeStep())
      return Error{ErrorKind::Conflict, "part " + Quoted(part.id) + " belongs to product " +
                                            Quoted(query.getColumn(0).getString()) + " already"};
  }
  return {};
}

Result<void> SqliteStore::AddProduct(const Product& product, Existing existing) {
  if (auto good = CheckProduct(product); !good) return good;
  return Write([&]() -> Result<void> {
    const auto old = Key("SELECT key FROM products WHERE product = ?", product.id);
    if (old && existing == Existing::Refuse)
      return Error{ErrorKind::Conflict, "product " + Quoted(product.id) + " exists already"};
    std::int64_t state = 1;
    if (old) {
      // A client that still holds the replaced product must see that its state is gone.
      state = _db.execAndGet("SELECT state FROM products WHERE key = " + std::to_string(*old)).getInt64() + 1;
      _db.exec("DELETE FROM products WHERE key = " + std::to_string(*old));
    }
    if (auto free = CheckPartsAreFree(product); !free) return free;
    const std::int64_t key = InsertProduct(product, state);
    InsertParts(product, key);
    InsertInstances(product, key);
    return {};
  });
}

std::int64_t SqliteStore::InsertProduct(const Product& product, std::int64_t state) {
  SQLite::Statement insert(
      _db, "INSERT INTO products(product, state, part_count, instance_count) VALUES(?, ?, ?, ?)");
  SQLite::bind(insert, product.id, state, std::int64_t(product.parts.size()), std::int64_t(product.instances.size()));
  insert.exec();
  const std::int64_t key = _db.getLastInsertRowid();
  WriteList(_db, "INSERT INTO roots(product, position, part) VALUES(?, ?, ?)", key, product.roots,
            [](SQLite::Statement& row, const std::string& root) { row.bind(3, root); });
  return key;
}

void SqliteStore::InsertParts(const Product& product, std::int64_t key) {
  SQLite::Statement insert(_db, InsertSql<Part>("parts", {"product"}));
  SQLite::Statement insertType(_db, InsertListSql<MassTypeData>("mass_types"));
  for (const Part& part : product.parts) {
    insert.bind(1, key);
    InsertRow(insert, 2, part);
    WriteRows(insertType, _db.getLastInsertRowid(), part.massTypes);
  }
}

void SqliteStore::InsertInstances(const Product& product, std::int64_t key) {
  SQLite::Statement insert(_db, InsertSql<Instance>("instances", {"product"}));
  for (const Instance& instance : product.instances) {
    insert.bind(1, key);
    InsertRow(insert, 2, instance);
  }
}

Result<void> SqliteStore::UpdatePart(const Part& part) {
  return Write([&]() -> Result<void> {
    const auto key = PartKey(part.id);
    if (!key) return key.Failure();
    SQLite::Statement update(_db, UpdateSql<Part>("parts", "WHERE key = ?"));
    update.bind(static_cast<int>(ColumnsOf<Part>().size()) + 1, key.Value());
    InsertRow(update, 1, part);
    DeleteRows(_db, "mass_types", key.Value());
    WriteRows(_db, "mass_types", key.Value(), part.massTypes);
    _db.exec("UPDATE products SET state = state + 1 WHERE key = (SELECT product FROM parts WHERE key = " +
             std::to_string(key.Value()) + ")");
    return {};
  });
}

Result<PartDetails> SqliteStore::LoadDetails(std::string_view partId) {
  return Read([&]() -> Result<PartDetails> {
    const auto key = PartKey(partId);
    if (!key) return key.Failure();
    SQLite::Statement query(_db, SelectSql<PartDetails>("part", "part_details", "WHERE part = ?"));
    query.bind(1, key.Value());
    if (!query.executeStep()) return PartDetails{};
    auto details = ReadRow<PartDetails>(query, 1);
    details.precisions = ReadRows<Precision>(_db, "precisions", key.Value());
    details.documents.revisions = ReadRows<protocol::DocumentRevision>(_db, "document_revisions", key.Value());
    details.properties = ReadRows<protocol::ExtraProperty>(_db, "properties", key.Value());
    return details;
  });
}

Result<void> SqliteStore::SaveDetails(std::string_view partId, const PartDetails& details) {
  return Write([&]() -> Result<void> {
    const auto key = PartKey(partId);
    if (!key) return key.Failure();
    for (const char* table : {"part_details", "precisions", "document_revisions", "properties"})
      DeleteRows(_db, table, key.Value());
    SQLite::Statement insert(_db, InsertSql<PartDetails>("part_details", {"part"}));
    insert.bind(1, key.Value());
    InsertRow(insert, 2, details);
    WriteRows(_db, "precisions", key.Value(), details.precisions);
    WriteRows(_db, "document_revisions", key.Value(), details.documents.revisions);
    WriteRows(_db, "properties", key.Value(), details.properties);
    return {};
  });
}

Result<std::vector<StoredResult>> SqliteStore::LoadResults(std::string_view productId) {
  return Read([&]() -> Result<std::vector<StoredResult>> {
    const auto key = ProductKey(productId);
    if (!key) return key.Failure();
    std::vector<StoredResult> results;
    SQLite::Statement query(_db, SelectSql<StoredResult>("parts.part", "results JOIN parts ON parts.key = results.part",
                                                         "WHERE parts.product = ?", "results."));
    query.bind(1, key.Value());
    while (query.executeStep()) {
      results.push_back(ReadRow<StoredResult>(query, 1));
      results.back().partId = query.getColumn(0).getString();
    }
    return results;
  });
}

Result<void> SqliteStore::SaveResults(const std::vector<StoredResult>& results) {
  return Write([&]() -> Result<void> {
    SQLite::Statement insert(_db, InsertSql<StoredResult>("results", {"part"}));
    for (const StoredResult& result : results) {
      const auto key = PartKey(result.partId);
      if (!key) return key.Failure();
      DeleteRows(_db, "results", key.Value());
      insert.bind(1, key.Value());
      InsertRow(insert, 2, result);
    }
    return {};
  });
}

Result<std::vector<ConfigurationFilter>> SqliteStore::LoadFilters(std::string_view productId) {
  return Read([&]() -> Result<std::vector<ConfigurationFilter>> {
    const auto key = ProductKey(productId);
    if (!key) return key.Failure();
    std::vector<ConfigurationFilter> filters;
    SQLite::Statement query(_db, "SELECT key, name FROM filters WHERE product = ? ORDER BY name");
    SQLite::Statement excluded(_db, "SELECT instance FROM filter_instances WHERE filter = ? ORDER BY position");
    query.bind(1, key.Value());
    while (query.executeStep()) {
      ConfigurationFilter& filter = filters.emplace_back();
      filter.name = query.getColumn(1).getString();
      excluded.reset();
      excluded.bind(1, query.getColumn(0).getInt64());
      while (excluded.executeStep()) filter.excludedInstances.push_back(excluded.getColumn(0).getString());
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

// Readers never wait for a writer in this mode, and a commit is on the disk when it returns.
void SetModes(SQLite::Database& database) {
  database.exec("PRAGMA foreign_keys = ON");
  database.exec("PRAGMA journal_mode = WAL");
  database.exec("PRAGMA synchronous = FULL");
}

// One thread at a time, as the interface says; SQLite need not lock against others.
int OpenFlags() { return SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX; }

Error FileError(ErrorKind kind, const std::string& file, const std::string& reason) {
  return {kind, "database \"" + file + "\": " + reason};
}

}  // namespace

Result<std::unique_ptr<Store>> CreateSqliteStore(const std::string& file, int lockPatience) {
  std::error_code ignored;
  if (std::filesystem::exists(file, ignored)) return FileError(ErrorKind::Conflict, file, "the file exists already");
  auto store = Guarded(file, [&]() -> Result<std::unique_ptr<Store>> {
    SQLite::Database database(file, OpenFlags() | SQLite::OPEN_CREATE, lockPatience);
    SetModes(database);
    CreateSchema(database);
    return std::unique_ptr<Store>(new SqliteStore(file, std::move(database)));
  });
  // Half a database would stand in the way of the next try.
  if (!store)
    for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(file + suffix, ignored);
  return store;
}

Result<std::unique_ptr<Store>> OpenSqliteStore(const std::string& file, int lockPatience) {
  std::error_code ignored;
  if (!std::filesystem::exists(file, ignored)) return FileError(ErrorKind::NotFound, file, "there is no such file");
  return Guarded(file, [&]() -> Result<std::unique_ptr<Store>> {
    SQLite::Database database(file, OpenFlags(), lockPatience);
    if (sqlite3_db_readonly(database.getHandle(), "main") == 1)
      return FileError(ErrorKind::Storage, file, "the file is read-only");
    if (const std::string problem = SchemaProblem(database); !problem.empty())
      return FileError(ErrorKind::Storage, file, problem);
    SetModes(database);
    return std::unique_ptr<Store>(new SqliteStore(file, std::move(database)));
  });
}

}  // namespace lumira
