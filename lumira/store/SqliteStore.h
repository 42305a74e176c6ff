#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "lumira/store/SqliteErrors.h"
#include "lumira/store/Store.h"

namespace lumira {

/// The store in an SQLite file, one thread at a time. Only files of this folder include this header.
class SqliteStore final : public Store {
 public:
  /// Takes a database that has passed all checks.
  SqliteStore(std::string file, SQLite::Database database)
      : _file(std::move(file)), _db(std::move(database)) {}

  protocol::Result<std::vector<ProductInfo>> Products() override;
  protocol::Result<std::string> ProductOfPart(std::string_view partId) override;
  protocol::Result<Product> LoadProduct(std::string_view productId, const Progress& progress) override;
  protocol::Result<ProductRoot> LoadRoot(std::string_view productId) override;
  protocol::Error Damage(const std::string& what) const override { return DamageError(_file, what); }
  protocol::Result<void> AddProduct(const Product& product, Existing existing, const Progress& progress,
                                    const ProductFilters& filters, const ProductContent& content) override;
  protocol::Result<std::vector<PartOwner>> OtherOwners(const Product& product) override;
  protocol::Result<void> UpdatePart(const Part& part) override;
  protocol::Result<PartDetails> LoadDetails(std::string_view partId) override;
  protocol::Result<void> SaveDetails(std::string_view partId, const PartDetails& details) override;
  protocol::Result<StoredPart> LoadPart(std::string_view partId) override;
  protocol::Result<SavedState> SavePart(const PartSaving& saving) override;
  protocol::Result<HistoryPage> LoadHistory(std::string_view partId, std::int64_t before,
                                            std::int64_t limit) override;
  protocol::Result<HistoryTexts> LoadHistoryTexts(std::string_view partId, std::int64_t number) override;
  protocol::Result<std::optional<std::string>> FindStateText(std::string_view partId,
                                                             std::int64_t state) override;
  protocol::Result<std::vector<PropertyDefinition>> LoadProperties(std::string_view productId) override;
  protocol::Result<std::vector<PartOwner>> PartsOfDocument(std::string_view documentId) override;
  protocol::Result<RevisionData> LoadRevision(std::string_view partId, std::string_view revision) override;
  protocol::Result<std::vector<StoredResult>> LoadResults(std::string_view productId) override;
  protocol::Result<void> SaveResults(const std::vector<StoredResult>& results) override;
  protocol::Result<std::vector<ConfigurationFilter>> LoadFilters(std::string_view productId) override;
  protocol::Result<void> SaveFilter(std::string_view productId, const ConfigurationFilter& filter) override;
  protocol::Result<std::optional<std::string>> LoadHandler(std::string_view productId) override;
  protocol::Result<void> SaveHandler(std::string_view productId,
                                     const std::optional<std::string>& name) override;
  protocol::Result<ProductSurvey> Survey(std::string_view productId) override;

 private:
  // Runs the work in one transaction that is committed when it succeeds. The lock for writing is taken at
  // once, so that what the work reads first cannot change before it writes.
  template <class Work>
  protocol::Result<void> Write(Work&& work) {
    return Guarded(_file, [&]() -> protocol::Result<void> {
      SQLite::Transaction transaction(_db, SQLite::TransactionBehavior::IMMEDIATE);
      protocol::Result<void> done = work();
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

  // What else the rows of parts tell.
  struct StoredParts {
    std::unordered_map<std::int64_t, std::size_t> indices;  // of parts by key
    std::vector<std::int64_t> massTypeCounts;               // in the order of the parts
  };

  std::optional<std::int64_t> Key(const char* sql, std::string_view id);
  protocol::Result<std::int64_t> ProductKey(std::string_view productId);
  protocol::Result<std::int64_t> PartKey(std::string_view partId);
  StoredPart PartAt(std::int64_t partKey);
  PartDetails DetailsAt(std::int64_t partKey);
  void WritePart(std::int64_t partKey, const Part& part);
  protocol::Result<void> CheckMaterials(std::int64_t partKey, const Part& present, const Part& part);
  protocol::Result<void> WriteDetails(std::int64_t partKey, const PartDetails& details);
  std::int64_t NextPartState();
  void SetPartState(std::int64_t partKey, std::int64_t state);
  std::string ProductNameOf(std::int64_t partKey);
  std::int64_t ProductStateOf(std::int64_t partKey);
  void AddRecord(std::int64_t partKey, const PartSaving& saving, std::int64_t stateAfter);
  std::int64_t HistorySize(std::int64_t partKey);
  std::int64_t ProductOf(std::int64_t partKey);
  std::size_t RowCount(std::int64_t productKey);
  ProductInfo InfoIn(SQLite::Statement& row);
  std::vector<PartOwner> FindOtherOwners(const Product& product, std::size_t most);
  std::int64_t InsertProduct(const Product& product, std::int64_t state);
  void InsertParts(const Product& product, std::int64_t key, const ProductContent& content,
                   const Progress& progress);
  void InsertInstances(const Product& product, std::int64_t key, const Progress& progress);
  void InsertFilters(std::int64_t productKey, const ProductFilters& filters);
  void InsertFilter(std::int64_t productKey, const ConfigurationFilter& filter);
  void WriteHandler(std::int64_t productKey, const std::optional<std::string>& name);
  std::vector<FilterCondition> LoadConditions(std::int64_t filterKey);
  protocol::Result<void> CheckInstancesOf(std::int64_t productKey, const ConfigurationFilter& filter);
  void LoadAttributes(const std::vector<std::int64_t>& keys, std::vector<Instance>& instances);
  void LoadMassTypes(std::int64_t productKey, std::vector<Part>& parts, const StoredParts& stored);
  protocol::Result<void> CheckDocument(const std::string& documentId, std::int64_t partKey);
  std::vector<PartOwner> FindDocumentOwners(std::string_view documentId);
  std::vector<std::string> Roots(std::int64_t productKey);
  protocol::Result<void> CheckCounts(std::int64_t productKey, const Product& product);

  std::string _file;
  SQLite::Database _db;
};

}  // namespace lumira
