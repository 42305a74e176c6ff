// What keeps the content of a product file back, and whether the file is to blame.
#include <gtest/gtest.h>

#include <map>

#include "desktop/app/ContentCheck.h"

namespace desktop::test {
namespace {

using lumira::ProductInfo;
using protocol::Error;
using protocol::ErrorKind;
using protocol::Result;
using protocol::StoredData;

const Error kLocked{ErrorKind::Storage, "the file is locked by another program", StoredData::NotToBlame};
const Error kDamaged{ErrorKind::Storage, "the file is damaged (row 7)", StoredData::Unusable};

/// A store of products with one part each, of the product's own name, that fails as told and only then.
class FailingStore final : public lumira::Store {
 public:
  void Add(const std::string& product) { _infos.push_back({.id = product, .roots = {product}}); }
  void AddWithoutRoot(const std::string& product, const Error& damage) {
    _infos.push_back({.id = product, .roots = {}, .damage = damage});
    FailToLoad(product, damage);
  }
  void FailToList(const Error& error) { _listing = error; }
  void FailToFind(const std::string& root, const Error& error) { _finding.insert_or_assign(root, error); }
  void FailToLoad(const std::string& product, const Error& error, int times = 1000) {
    _loading.insert_or_assign(product, Trouble{error, times});
  }

  Result<std::vector<ProductInfo>> Products() override {
    if (_listing) return *_listing;
    return _infos;
  }
  Result<std::string> ProductOfPart(std::string_view part) override {
    if (const auto found = _finding.find(std::string(part)); found != _finding.end()) return found->second;
    return std::string(part);
  }
  Result<lumira::Product> LoadProduct(std::string_view id, const lumira::Progress&) override {
    if (const auto found = _loading.find(std::string(id)); found != _loading.end())
      if (found->second.times-- > 0) return found->second.error;
    return ProductOf(id);
  }
  Result<lumira::ProductRoot> LoadRoot(std::string_view id) override {
    return lumira::ProductRoot{.part = ProductOf(id).parts.front(), .result = {}};
  }
  Error Damage(const std::string& what) const override {
    return {ErrorKind::Storage, what, StoredData::Unusable};
  }
  Result<std::vector<lumira::PartOwner>> OtherOwners(const lumira::Product&) override { return kNotAsked; }
  Result<void> AddProduct(const lumira::Product&, lumira::Existing, const lumira::Progress&,
                          const lumira::ProductFilters&, const lumira::ProductContent&) override {
    return kNotAsked;
  }
  Result<void> UpdatePart(const lumira::Part&) override { return kNotAsked; }
  Result<lumira::PartDetails> LoadDetails(std::string_view) override { return kNotAsked; }
  Result<void> SaveDetails(std::string_view, const lumira::PartDetails&) override { return kNotAsked; }
  Result<std::vector<lumira::PropertyDefinition>> LoadProperties(std::string_view) override {
    return kNotAsked;
  }
  Result<std::vector<lumira::PartOwner>> PartsOfDocument(std::string_view) override { return kNotAsked; }
  Result<lumira::RevisionData> LoadRevision(std::string_view, std::string_view) override { return kNotAsked; }
  Result<lumira::StoredPart> LoadPart(std::string_view) override { return kNotAsked; }
  Result<lumira::SavedState> SavePart(const lumira::PartSaving&) override { return kNotAsked; }
  Result<lumira::HistoryPage> LoadHistory(std::string_view, std::int64_t, std::int64_t) override {
    return kNotAsked;
  }
  Result<lumira::HistoryTexts> LoadHistoryTexts(std::string_view, std::int64_t) override { return kNotAsked; }
  Result<std::optional<std::string>> FindStateText(std::string_view, std::int64_t) override {
    return kNotAsked;
  }
  Result<std::vector<lumira::StoredResult>> LoadResults(std::string_view) override {
    return std::vector<lumira::StoredResult>();
  }
  Result<void> SaveResults(const std::vector<lumira::StoredResult>&) override { return kNotAsked; }
  Result<std::vector<lumira::ConfigurationFilter>> LoadFilters(std::string_view) override {
    return std::vector<lumira::ConfigurationFilter>();
  }
  Result<void> SaveFilter(std::string_view, const lumira::ConfigurationFilter&) override { return kNotAsked; }
  Result<std::optional<std::string>> LoadHandler(std::string_view) override {
    return std::optional<std::string>();
  }
  Result<void> SaveHandler(std::string_view, const std::optional<std::string>&) override { return kNotAsked; }
  Result<lumira::ProductSurvey> Survey(std::string_view) override { return lumira::ProductSurvey{}; }

 private:
  struct Trouble {
    Error error;
    int times;
  };

  static lumira::Product ProductOf(std::string_view id) {
    lumira::Part part;
    part.id = id;
    return {.id = part.id, .parts = {part}, .instances = {}, .roots = {part.id}};
  }

  static inline const Error kNotAsked{ErrorKind::Internal, "nobody asks for this"};

  std::vector<ProductInfo> _infos;
  std::optional<Error> _listing;
  std::map<std::string, Error> _finding;
  std::map<std::string, Trouble> _loading;
};

struct ContentCheckTest : testing::Test {
  Result<void> Check() {
    lumira::Server server(store);
    return CheckContent(server);
  }
  void ExpectFailure(const Error& expected) {
    const auto checked = Check();
    ASSERT_FALSE(checked.Ok());
    EXPECT_EQ(checked.Failure().message, expected.message);
    EXPECT_EQ(checked.Failure().storedData, expected.storedData);
  }
  FailingStore store;
};

TEST_F(ContentCheckTest, AStoreWithoutProductsIsOfUse) { EXPECT_TRUE(Check().Ok()); }

TEST_F(ContentCheckTest, OneProductThatCanBeShownIsEnough) {
  store.Add("Crane");
  store.Add("Mast");
  store.FailToLoad("Crane", kDamaged);
  EXPECT_TRUE(Check().Ok());
}

TEST_F(ContentCheckTest, DamageIsToldAsDamage) {
  store.Add("Crane");
  store.FailToLoad("Crane", kDamaged);
  ExpectFailure(kDamaged);
}

TEST_F(ContentCheckTest, ALockThatKeepsTheListBackIsNoDamage) {
  store.FailToList(kLocked);
  ExpectFailure(kLocked);
}

TEST_F(ContentCheckTest, ALockThatKeepsAProductBackIsNoDamage) {
  store.Add("Crane");
  store.FailToLoad("Crane", kLocked);
  ExpectFailure(kLocked);
}

// Whoever asked again to find out what it was would see a file that is whole.
TEST_F(ContentCheckTest, ALockThatIsGoneAMomentLaterIsNoDamageEither) {
  store.Add("Crane");
  store.FailToLoad("Crane", kLocked, 1);
  ExpectFailure(kLocked);
}

TEST_F(ContentCheckTest, ALockOnOneProductIsToldRatherThanTheDamageOfAnother) {
  for (const char* product : {"Crane", "Mast", "Pier"}) store.Add(product);
  store.FailToLoad("Crane", kDamaged);
  store.FailToLoad("Mast", kLocked);
  store.FailToLoad("Pier", kDamaged);
  ExpectFailure(kLocked);
}

TEST_F(ContentCheckTest, OfSeveralDamagedProductsTheFirstIsTold) {
  for (const char* product : {"Crane", "Mast"}) store.Add(product);
  store.FailToLoad("Crane", kDamaged);
  store.FailToLoad("Mast", {ErrorKind::Storage, "another row", StoredData::Unusable});
  ExpectFailure(kDamaged);
}

TEST_F(ContentCheckTest, ARootPartThatIsGoneIsDamage) {
  store.Add("Crane");
  store.FailToFind("Crane", kDamaged);
  ExpectFailure(kDamaged);
}

TEST_F(ContentCheckTest, AProductWhoseRootCannotBeToldIsDamagedForItsOwnReason) {
  store.AddWithoutRoot("Crane", kDamaged);
  ExpectFailure(kDamaged);
}

}  // namespace
}  // namespace desktop::test
