#include <gmock/gmock.h>

#include <limits>

#include "StoreContract.h"

namespace lumira::test {
namespace {

using protocol::ErrorKind;
using testing::ElementsAre;

constexpr char kTime[] = "2026-01-02T03:04:05Z";

/// A store with the sample product.
class PartHistoryContract : public StoreContract {
 protected:
  PartHistoryContract() { EXPECT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok()); }

  PartSaving Saving(const std::string& part = "leaf", const std::string& user = "eva") {
    return {store->LoadPart(part).Value(), {user, kTime}, "before", "after"};
  }

  std::int64_t StateOf(const std::string& part) { return store->LoadPart(part).Value().state; }
  std::int64_t ProductState() { return store->Products().Value().at(0).state; }

  /// Saves the leaf with another material and texts of its own.
  SavedState SaveMaterial(const std::string& material, const std::string& before, const std::string& after) {
    PartSaving saving = Saving();
    saving.saved.part.material = material;
    saving.before = before;
    saving.after = after;
    return store->SavePart(saving).Value();
  }
};

TEST_P(PartHistoryContract, GivesAPartWithItsDetails) {
  PartDetails details;
  details.appliedOn = "Part Instance";
  ASSERT_TRUE(store->SaveDetails("leaf", details).Ok());
  const auto stored = Reopened().LoadPart("leaf");
  ASSERT_TRUE(stored.Ok()) << stored.Failure().message;
  EXPECT_EQ(stored.Value().part, SampleProduct().parts[1]);
  EXPECT_EQ(stored.Value().details.appliedOn, "Part Instance");
}

TEST_P(PartHistoryContract, SavesPartDetailsAndARecordAtOnce) {
  PartSaving saving = Saving();
  saving.saved.part.material = "Lead";
  saving.saved.part.massTypes.pop_back();
  saving.saved.details.appliedOn = "Part Reference";
  const auto saved = store->SavePart(saving);
  ASSERT_TRUE(saved.Ok()) << saved.Failure().message;
  const StoredPart back = Reopened().LoadPart("leaf").Value();
  EXPECT_EQ(back.part, saving.saved.part);
  EXPECT_EQ(back.details.appliedOn, "Part Reference");
  EXPECT_EQ(back.state, saved.Value().state);
  EXPECT_EQ(store->LoadProduct("PRC").Value().parts.at(1), saving.saved.part);
  const HistoryPage page = store->LoadHistory("leaf", 0, 10).Value();
  EXPECT_EQ(page.total, 1);
  EXPECT_THAT(page.records,
              ElementsAre(HistoryRecord{1, {"eva", kTime}, saving.saved.state, saved.Value().state}));
  EXPECT_EQ(store->LoadHistoryTexts("leaf", 1).Value(), (HistoryTexts{"before", "after"}));
}

TEST_P(PartHistoryContract, CountsTheProductAsChangedOnlyWhenDataOfAComputationChange) {
  const std::int64_t before = ProductState();
  PartSaving saving = Saving();
  saving.saved.details.appliedOn = "Part Reference";
  const SavedState details = store->SavePart(saving).Value();
  EXPECT_EQ(details.product, "PRC");
  EXPECT_EQ(details.productBefore, before);
  EXPECT_EQ(details.productAfter, before);
  EXPECT_EQ(ProductState(), before);
  const SavedState data = SaveMaterial("Lead", "b", "a");
  EXPECT_EQ(data.productBefore, before);
  EXPECT_EQ(data.productAfter, before + 1);
  EXPECT_EQ(ProductState(), before + 1);
}

TEST_P(PartHistoryContract, RefusesASavingThatStandsOnAnotherState) {
  const PartSaving first = Saving(), second = Saving("leaf", "bob");
  ASSERT_TRUE(store->SavePart(first).Ok());
  const auto refused = store->SavePart(second);
  ASSERT_FALSE(refused.Ok());
  EXPECT_EQ(refused.Failure().kind, ErrorKind::Conflict);
  EXPECT_EQ(refused.Failure().message, "part \"leaf\" has been changed in between");
  EXPECT_EQ(Reopened().LoadHistory("leaf", 0, 10).Value().total, 1);
}

TEST_P(PartHistoryContract, GivesAPartAnotherStateWithEveryChangeOfIt) {
  const std::int64_t first = StateOf("leaf");
  ASSERT_TRUE(store->UpdatePart(SampleProduct().parts[1]).Ok());
  const std::int64_t second = StateOf("leaf");
  ASSERT_TRUE(store->SaveDetails("leaf", {}).Ok());
  const std::int64_t third = StateOf("leaf");
  const std::int64_t fourth = store->SavePart(Saving()).Value().state;
  EXPECT_LT(first, second);
  EXPECT_LT(second, third);
  EXPECT_LT(third, fourth);
}

TEST_P(PartHistoryContract, KeepsTheStateOfAPartWhenAnotherOrAResultIsSaved) {
  const std::int64_t before = StateOf("bare");
  ASSERT_TRUE(store->SavePart(Saving("leaf")).Ok());
  ASSERT_TRUE(store->SaveResults({{"bare", "f", {}}}).Ok());
  EXPECT_EQ(StateOf("bare"), before);
}

TEST_P(PartHistoryContract, NeverGivesAStateAgainWhenAProductIsReplaced) {
  const std::int64_t last = SaveMaterial("Lead", "b", "a").state;
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Replace).Ok());
  EXPECT_GT(StateOf("leaf"), last);
  EXPECT_EQ(store->LoadHistory("leaf", 0, 10).Value().total, 0) << "the history went with the part";
}

TEST_P(PartHistoryContract, ListsTheLatestRecordsFirstPageByPage) {
  for (const char* material : {"A", "B", "C", "D", "E"}) SaveMaterial(material, "", material);
  const auto numbers = [&](std::int64_t before, std::int64_t limit) {
    std::vector<std::int64_t> found;
    const HistoryPage page = store->LoadHistory("leaf", before, limit).Value();
    for (const HistoryRecord& record : page.records) found.push_back(record.number);
    return found;
  };
  EXPECT_THAT(numbers(0, 2), ElementsAre(5, 4));
  EXPECT_THAT(numbers(4, 2), ElementsAre(3, 2));
  EXPECT_THAT(numbers(2, 2), ElementsAre(1));
  EXPECT_TRUE(numbers(1, 2).empty());
  EXPECT_EQ(store->LoadHistory("leaf", 1, 2).Value().total, 5);
  EXPECT_EQ(store->LoadHistory("bare", 0, 2).Value().total, 0);
}

// The later one may tell more than an older program has written.
TEST_P(PartHistoryContract, FindsTheLaterTextOfAStateThatTwoRecordsTellOf) {
  const std::int64_t second = SaveMaterial("A", "at first", "with A").state;
  SaveMaterial("B", "with A, and more", "with B");
  EXPECT_EQ(store->FindStateText("leaf", second).Value(), "with A, and more");
}

TEST_P(PartHistoryContract, FindsTheTextOfAStateThatARecordTellsOf) {
  const std::int64_t first = StateOf("leaf");
  const std::int64_t second = SaveMaterial("A", "at first", "with A").state;
  EXPECT_EQ(store->FindStateText("leaf", first).Value(), "at first");
  EXPECT_EQ(store->FindStateText("leaf", second).Value(), "with A");
  EXPECT_FALSE(store->FindStateText("leaf", second + 1).Value().has_value());
  EXPECT_FALSE(store->FindStateText("bare", second).Value().has_value());
}

TEST_P(PartHistoryContract, SavesNothingOfAPartThatCannotBeStored) {
  PartSaving badMass = Saving();
  badMass.saved.part.massTypes.at(0).properties.mass = std::numeric_limits<double>::infinity();
  PartSaving badDensity = Saving();
  badDensity.saved.part.cadDensity = std::numeric_limits<double>::quiet_NaN();
  PartSaving badDetails = Saving();
  badDetails.saved.part.material = "Lead";
  badDetails.saved.details.precisions = {{"Weighed", 2, 0, 0, 0, 0, 0}};
  for (const PartSaving& saving : {badMass, badDensity, badDetails}) {
    const auto refused = store->SavePart(saving);
    ASSERT_FALSE(refused.Ok());
    EXPECT_EQ(refused.Failure().kind, ErrorKind::BadValue) << refused.Failure().message;
  }
  EXPECT_EQ(Reopened().LoadPart("leaf").Value().part, SampleProduct().parts[1]);
  EXPECT_EQ(store->LoadHistory("leaf", 0, 10).Value().total, 0);
}

TEST_P(PartHistoryContract, SaysThatAPartOrARecordIsNotThere) {
  PartSaving unknown = Saving();
  unknown.saved.part.id = "x";
  EXPECT_EQ(store->SavePart(unknown).Failure().message, "there is no part \"x\"");
  EXPECT_EQ(store->LoadPart("x").Failure().kind, ErrorKind::NotFound);
  EXPECT_EQ(store->LoadHistory("x", 0, 1).Failure().kind, ErrorKind::NotFound);
  EXPECT_EQ(store->FindStateText("x", 1).Failure().kind, ErrorKind::NotFound);
  EXPECT_EQ(store->LoadHistoryTexts("x", 1).Failure().kind, ErrorKind::NotFound);
  const auto noRecord = store->LoadHistoryTexts("leaf", 3);
  EXPECT_EQ(noRecord.Failure().kind, ErrorKind::NotFound);
  EXPECT_EQ(noRecord.Failure().message, "part \"leaf\" has no entry 3 in its history, which has 0");
}

INSTANTIATE_TEST_SUITE_P(All, PartHistoryContract, testing::ValuesIn(StoreKinds()),
                         [](const auto& kind) { return kind.param.name; });

}  // namespace
}  // namespace lumira::test
