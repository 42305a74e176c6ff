#include <SQLiteCpp/VariadicBind.h>

#include "lumira/model/Counted.h"
#include "lumira/store/ContentRules.h"
#include "lumira/store/ProductRules.h"
#include "lumira/store/SqliteArchives.h"
#include "lumira/store/SqliteContent.h"
#include "lumira/store/SqliteStore.h"
#include "lumira/store/SqliteTables.h"
#include "protocol/Utf8.h"

namespace lumira {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Quoted;
using protocol::Result;

namespace {

// Seldom enough to cost nothing.
void ReportRow(const Progress& progress, std::string_view what, std::size_t row, std::size_t rows) {
  constexpr std::size_t kRowsBetweenReports = 10'000;
  if (row % kRowsBetweenReports == 0 || row == rows) Report(progress, what, row, rows);
}

constexpr std::string_view kLoading = "Loading the product";
constexpr std::string_view kWriting = "Writing the product";

// The first row that has mass data answers the first question. Keys of the parts of a product follow each
// other, so that the mass types are asked for once and not part by part.
constexpr char kSurvey[] = R"sql(
SELECT
  EXISTS(SELECT 1 FROM mass_types WHERE mass IS NOT NULL AND part BETWEEN
    (SELECT min(key) FROM parts WHERE product = ?1) AND (SELECT max(key) FROM parts WHERE product = ?1))
  OR EXISTS(SELECT 1 FROM parts WHERE product = ?1 AND volume IS NOT NULL
    AND (density IS NOT NULL OR cad_density IS NOT NULL)),
  (SELECT count(*) FROM results JOIN parts ON parts.key = results.part
    WHERE parts.product = ?1 AND results.state <> (SELECT state FROM products WHERE key = ?1))
)sql";

bool IsRoot(SQLite::Database& database, std::string_view partId) {
  SQLite::Statement query(database, "SELECT 1 FROM roots WHERE part = ?");
  query.bind(1, std::string(partId));
  return query.executeStep();
}

std::size_t RowsOf(const Product& product) { return product.parts.size() + product.instances.size(); }

std::int64_t AttributeCount(const Product& product) {
  std::int64_t count = 0;
  for (const Instance& instance : product.instances) count += std::ssize(instance.attributes);
  return count;
}

}  // namespace

Result<std::vector<ProductInfo>> SqliteStore::Products() {
  return Read([&]() -> Result<std::vector<ProductInfo>> {
    std::vector<ProductInfo> products;
    SQLite::Statement query(_db,
                            "SELECT key, product, state, result_state, part_count, instance_count "
                            "FROM products ORDER BY product");
    while (query.executeStep()) products.push_back(InfoIn(query));
    return products;
  });
}

ProductInfo SqliteStore::InfoIn(SQLite::Statement& row) {
  ProductInfo info;
  info.state = row.getColumn(2).getInt64();
  info.resultState = row.getColumn(3).getInt64();
  info.partCount = row.getColumn(4).getInt64();
  info.instanceCount = row.getColumn(5).getInt64();
  try {
    info.id = IdentifierIn(row, 1);
    info.roots = Roots(row.getColumn(0).getInt64());
  } catch (const DamagedContent& damage) {
    info.damage = DamageError(_file, damage.what());
  }
  return info;
}

Result<std::string> SqliteStore::ProductOfPart(std::string_view partId) {
  return Read([&]() -> Result<std::string> {
    SQLite::Statement query(
        _db,
        "SELECT products.key, products.product FROM parts JOIN products ON parts.product = "
        "products.key WHERE parts.part = ?");
    query.bind(1, std::string(partId));
    if (query.executeStep()) return TextIn(query, 1);
    if (IsRoot(_db, partId)) return DamageError(_file, "the root part " + Quoted(partId) + " is missing");
    return Error{ErrorKind::NotFound, "there is no part " + Quoted(partId)};
  });
}

Result<Product> SqliteStore::LoadProduct(std::string_view productId, const Progress& progress) {
  return Read([&]() -> Result<Product> {
    const auto key = ProductKey(productId);
    if (!key) return key.Failure();
    const std::size_t rows = RowCount(key.Value());
    Product product{.id = std::string(productId), .parts = {}, .instances = {}, .roots = Roots(key.Value())};

    StoredParts stored;
    SQLite::Statement parts(
        _db, SelectSql<Part>("key, mass_type_count", "parts", "WHERE product = ? ORDER BY key"));
    parts.bind(1, key.Value());
    while (parts.executeStep()) {
      stored.indices.emplace(parts.getColumn(0).getInt64(), product.parts.size());
      stored.massTypeCounts.push_back(parts.getColumn(1).getInt64());
      product.parts.push_back(ReadRow<Part>(parts, 2));
      ReportRow(progress, kLoading, product.parts.size(), rows);
    }
    LoadMassTypes(key.Value(), product.parts, stored);

    SQLite::Statement instances(_db,
                                SelectSql<Instance>("key", "instances", "WHERE product = ? ORDER BY key"));
    instances.bind(1, key.Value());
    std::vector<std::int64_t> keys;
    while (instances.executeStep()) {
      keys.push_back(instances.getColumn(0).getInt64());
      product.instances.push_back(ReadRow<Instance>(instances, 1));
      ReportRow(progress, kLoading, RowsOf(product), rows);
    }
    LoadAttributes(keys, product.instances);

    if (auto counts = CheckCounts(key.Value(), product); !counts) return counts.Failure();
    if (auto good = CheckRoots(product); !good) return DamageError(_file, good.Failure().message);
    return product;
  });
}

Result<ProductSurvey> SqliteStore::Survey(std::string_view productId) {
  return Read([&]() -> Result<ProductSurvey> {
    const auto key = ProductKey(productId);
    if (!key) return key.Failure();
    SQLite::Statement query(_db, kSurvey);
    query.bind(1, key.Value());
    query.executeStep();
    ProductSurvey survey{query.getColumn(0).getInt() != 0, query.getColumn(1).getInt64(), {}};
    SQLite::Statement notes(_db,
                            "SELECT position, text FROM product_notes WHERE product = ? ORDER BY position");
    notes.bind(1, key.Value());
    while (notes.executeStep()) survey.notes.push_back(TextIn(notes, 1));
    return survey;
  });
}

Result<ProductRoot> SqliteStore::LoadRoot(std::string_view productId) {
  return Read([&]() -> Result<ProductRoot> {
    const auto product = ProductKey(productId);
    if (!product) return product.Failure();
    SQLite::Statement query(_db, SelectSql<Part>("key, mass_type_count", "parts",
                                                 "WHERE part = (SELECT part FROM roots WHERE product = ? "
                                                 "ORDER BY position LIMIT 1)"));
    query.bind(1, product.Value());
    if (!query.executeStep()) return DamageError(_file, "product " + Quoted(productId) + " has no root part");
    ProductRoot root{ReadRow<Part>(query, 2), false, std::nullopt};
    const std::int64_t key = query.getColumn(0).getInt64();
    root.part.massTypes = ReadRows<MassTypeData>(_db, "mass_types", key);
    CheckMassTypeCount(root.part, query.getColumn(1).getInt64());
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

std::vector<std::string> SqliteStore::Roots(std::int64_t productKey) {
  std::vector<std::string> roots;
  SQLite::Statement query(_db, "SELECT product, part FROM roots WHERE product = ? ORDER BY position");
  query.bind(1, productKey);
  while (query.executeStep()) roots.push_back(IdentifierIn(query, 1));
  return roots;
}

std::size_t SqliteStore::RowCount(std::int64_t productKey) {
  return static_cast<std::size_t>(
      _db.execAndGet("SELECT part_count + instance_count FROM products WHERE key = " +
                     std::to_string(productKey))
          .getInt64());
}

void SqliteStore::LoadMassTypes(std::int64_t productKey, std::vector<Part>& parts,
                                const StoredParts& stored) {
  SQLite::Statement types(_db,
                          SelectSql<MassTypeData>("part", "mass_types",
                                                  "WHERE part IN (SELECT key FROM parts WHERE product = ?) "
                                                  "ORDER BY part, position"));
  types.bind(1, productKey);
  while (types.executeStep()) {
    const auto owner = stored.indices.find(types.getColumn(0).getInt64());
    if (owner == stored.indices.end()) RefuseColumn(types, 0, "there is no such part");
    parts[owner->second].massTypes.push_back(ReadRow<MassTypeData>(types, 1));
  }
  for (std::size_t i = 0; i < parts.size(); ++i) CheckMassTypeCount(parts[i], stored.massTypeCounts[i]);
}

// Both are in the order of the keys, so that one walk through the table is enough. Keys of a product follow
// each other, and rows of others that lie between are passed by.
void SqliteStore::LoadAttributes(const std::vector<std::int64_t>& keys, std::vector<Instance>& instances) {
  if (keys.empty()) return;
  SQLite::Statement rows(
      _db, SelectSql<InstanceAttribute>("instance", "instance_attributes",
                                        "WHERE instance BETWEEN ? AND ? ORDER BY instance, position"));
  SQLite::bind(rows, keys.front(), keys.back());
  std::size_t at = 0;
  while (rows.executeStep()) {
    const std::int64_t key = rows.getColumn(0).getInt64();
    while (keys[at] < key) ++at;
    if (keys[at] == key) instances[at].attributes.push_back(ReadRow<InstanceAttribute>(rows, 1));
  }
}

// A damaged index or table can lose rows without any other sign.
Result<void> SqliteStore::CheckCounts(std::int64_t productKey, const Product& product) {
  SQLite::Statement counts(
      _db, "SELECT key, product, part_count, instance_count, attribute_count FROM products WHERE key = ?");
  counts.bind(1, productKey);
  counts.executeStep();
  IdentifierIn(counts, 1);
  const auto parts = counts.getColumn(2).getInt64();
  const auto instances = counts.getColumn(3).getInt64();
  const auto attributes = counts.getColumn(4).getInt64();
  const std::string whose = "product " + Quoted(product.id) + " has ";
  if (parts != std::ssize(product.parts) || instances != std::ssize(product.instances))
    return DamageError(_file, whose + Counted(product.parts.size(), {"part", "parts"}) + " and " +
                                  Counted(product.instances.size(), {"instance", "instances"}) +
                                  " instead of " + std::to_string(parts) + " and " +
                                  std::to_string(instances));
  if (attributes != AttributeCount(product))
    return DamageError(
        _file, whose +
                   Counted(AttributeCount(product), {"attribute of instances", "attributes of instances"}) +
                   " instead of " + std::to_string(attributes));
  return {};
}

Result<void> SqliteStore::AddProduct(const Product& product, Existing existing, const Progress& progress,
                                     const ProductFilters& filters, const ProductContent& content) {
  if (auto good = CheckProduct(product); !good) return good;
  if (auto good = CheckContent(product, content); !good) return good;
  if (!filters.filters.empty() || filters.handler)
    if (auto good = CheckFilters(product, filters); !good) return good;
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
    for (const PartOwner& taken : FindOtherOwners(product, 1))
      return Error{ErrorKind::Conflict, ToText(taken)};
    for (const PartContent& part : content.parts)
      for (const PartOwner& owner : FindDocumentOwners(part.details.documentId))
        return Error{ErrorKind::Conflict, DocumentTaken(part.details.documentId, owner)};
    const std::int64_t key = InsertProduct(product, state);
    InsertParts(product, key, content, progress);
    InsertInstances(product, key, progress);
    InsertFilters(key, filters);
    return {};
  });
}

Result<std::vector<PartOwner>> SqliteStore::OtherOwners(const Product& product) {
  return Read(
      [&]() -> Result<std::vector<PartOwner>> { return FindOtherOwners(product, product.parts.size()); });
}

std::vector<PartOwner> SqliteStore::FindOtherOwners(const Product& product, std::size_t most) {
  SQLite::Statement query(_db,
                          "SELECT products.key, products.product FROM parts JOIN products ON parts.product = "
                          "products.key WHERE parts.part = ?");
  std::vector<PartOwner> owners;
  for (const Part& part : product.parts) {
    if (owners.size() == most) break;
    query.reset();
    query.bind(1, part.id);
    if (!query.executeStep()) continue;
    std::string owner = TextIn(query, 1);
    if (owner != product.id) owners.push_back({part.id, std::move(owner)});
  }
  return owners;
}

std::int64_t SqliteStore::InsertProduct(const Product& product, std::int64_t state) {
  SQLite::Statement insert(_db,
                           "INSERT INTO products(product, state, part_count, instance_count, "
                           "attribute_count) VALUES(?, ?, ?, ?, ?)");
  SQLite::bind(insert, product.id, state, std::int64_t(product.parts.size()),
               std::int64_t(product.instances.size()), AttributeCount(product));
  insert.exec();
  const std::int64_t key = _db.getLastInsertRowid();
  WriteList(_db, "INSERT INTO roots(product, position, part) VALUES(?, ?, ?)", key, product.roots,
            [](SQLite::Statement& row, const std::string& root) { row.bind(3, root); });
  return key;
}

void SqliteStore::InsertParts(const Product& product, std::int64_t key, const ProductContent& content,
                              const Progress& progress) {
  WriteDefinitions(_db, key, content.properties);
  SqliteContentWriter contentWriter(_db, content.properties);
  std::unordered_map<std::string_view, const PartContent*> contents;
  for (const PartContent& part : content.parts) contents.emplace(part.partId, &part);
  SQLite::Statement insert(_db, InsertSql<Part>("parts", {"product", "mass_type_count", "state"}));
  SQLite::Statement insertType(_db, InsertListSql<MassTypeData>("mass_types"));
  const std::int64_t state = NextPartState();
  std::size_t written = 0;
  for (const Part& part : product.parts) {
    SQLite::bind(insert, key, std::int64_t(part.massTypes.size()), state);
    InsertRow(insert, 4, part);
    const std::int64_t partKey = _db.getLastInsertRowid();
    WriteRows(insertType, partKey, part.massTypes);
    if (const auto found = contents.find(part.id); found != contents.end())
      contentWriter.Write(partKey, *found->second);
    ReportRow(progress, kWriting, ++written, RowsOf(product));
  }
}

void SqliteStore::InsertInstances(const Product& product, std::int64_t key, const Progress& progress) {
  SQLite::Statement insert(_db, InsertSql<Instance>("instances", {"product"}));
  SQLite::Statement insertAttribute(_db, InsertListSql<InstanceAttribute>("instance_attributes", "instance"));
  std::size_t written = product.parts.size();
  for (const Instance& instance : product.instances) {
    insert.bind(1, key);
    InsertRow(insert, 2, instance);
    WriteRows(insertAttribute, _db.getLastInsertRowid(), instance.attributes);
    ReportRow(progress, kWriting, ++written, RowsOf(product));
  }
}

}  // namespace lumira
