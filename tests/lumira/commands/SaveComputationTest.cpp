#include <gmock/gmock.h>

#include "SaveFixture.h"
#include "lumira/commands/OpenProduct.h"

namespace lumira::test {
namespace {

using protocol::MassTypeStatus;
using testing::ElementsAre;

class SaveComputation : public SaveFixture {
 protected:
  void SaveMass(const std::string& part, double mass) {
    protocol::PartData data = PartDataOf(part);
    Type(data, "Weighed").mass = mass;
    SaveWell(data);
  }

  MassTypeStatus StatusOf(const std::string& part) { return PartDataOf(part).massTypes.at(0).status; }
};

TEST_F(SaveComputation, MakesTheResultsAboveThePartOutOfDateAndNoOthers) {
  for (const char* part : {"top", "arm", "a", "b", "c"}) Compute(part);
  SaveMass("a", 7);
  EXPECT_EQ(StatusOf("top"), MassTypeStatus::OutOfDate);
  EXPECT_EQ(StatusOf("arm"), MassTypeStatus::OutOfDate);
  EXPECT_EQ(StatusOf("a"), MassTypeStatus::OutOfDate);
  EXPECT_EQ(StatusOf("b"), MassTypeStatus::Defined);
  EXPECT_EQ(StatusOf("c"), MassTypeStatus::Defined);
  Restart();
  EXPECT_EQ(StatusOf("top"), MassTypeStatus::OutOfDate);
  EXPECT_EQ(StatusOf("c"), MassTypeStatus::Defined);
}

TEST_F(SaveComputation, GivesTheNewSumsAndTheOldOnesWhenTheOldValueIsSaved) {
  EXPECT_EQ(Compute("top").mass, 36);
  SaveMass("a", 7);
  EXPECT_EQ(Compute("top").mass, 37);
  EXPECT_EQ(Compute("arm").mass, 17);
  SaveMass("a", 6);
  EXPECT_EQ(StatusOf("top"), MassTypeStatus::OutOfDate) << "what is stored is of the other mass";
  EXPECT_EQ(Compute("top").mass, 36);
}

TEST_F(SaveComputation, KeepsResultsUpToDateWhenNothingOfAComputationChanges) {
  Compute("top");
  protocol::PartData data = PartDataOf("a");
  data.material.appliedOn = "Part Instance";
  Property(data, "colour").value = "blue";
  Type(data, "Planned").upperPrecision = 0.5;
  SaveWell(data);
  EXPECT_EQ(StatusOf("top"), MassTypeStatus::Defined);
  Type(data = PartDataOf("a"), "Estimated").mass = 99;  // it is not the active one
  SaveWell(data);
  EXPECT_EQ(StatusOf("top"), MassTypeStatus::Defined);
}

TEST_F(SaveComputation, TakesTheActiveMassTypeOfTheSave) {
  protocol::PartData data = PartDataOf("a");
  data.activeMassType = "Estimated";
  SaveWell(data);
  EXPECT_EQ(Compute("top").mass, 35);
}

TEST_F(SaveComputation, DoesNotLoadTheProductAgain) {
  std::vector<std::string> steps;
  server = std::make_unique<Server>(
      *store, [&](std::string_view what, std::size_t, std::size_t) { steps.emplace_back(what); }, "eva");
  EXPECT_EQ(Compute("top").mass, 36);
  steps.clear();
  SaveMass("a", 7);
  EXPECT_EQ(Compute("top").mass, 37);
  SaveMass("c", 21);
  EXPECT_EQ(Compute("top").mass, 38);
  EXPECT_TRUE(steps.empty()) << steps.front();
}

TEST_F(SaveComputation, LoadsTheProductAgainWhenSomebodyElseHasChangedIt) {
  EXPECT_EQ(Compute("top").mass, 36);
  protocol::PartData mine = PartDataOf("a");
  const auto other = ServerFor("bob");
  protocol::PartData theirs = PartDataOf("c");
  Type(theirs, "Weighed").mass = 30;
  ASSERT_TRUE(other->Execute(protocol::kCommandSavePart, protocol::WritePartData(theirs)).Ok());
  Type(mine, "Weighed").mass = 7;
  SaveWell(mine);
  EXPECT_EQ(Compute("top").mass, 47);
}

TEST_F(SaveComputation, IsSeenUnderAFilterToo) {
  EXPECT_EQ(MassUnder("top", "1|1|arm.1|arm||0"), 16);
  SaveMass("a", 7);
  EXPECT_EQ(MassUnder("top", "1|1|arm.1|arm||0"), 17);
}

TEST_F(SaveComputation, OfAnAssemblyThatIsWeighedCountsInsteadOfItsChildren) {
  Part arm = store->LoadPart("arm").Value().part;
  arm.massTypes.push_back({"Weighed", {}, {}, {}});
  ASSERT_TRUE(store->UpdatePart(arm).Ok());
  EXPECT_EQ(Compute("top").mass, 36);
  protocol::PartData data = PartDataOf("arm");
  Type(data, "Weighed").status = MassTypeStatus::Defined;
  Type(data, "Weighed").mass = 100;
  data.activeMassType = "Weighed";
  SaveWell(data);
  EXPECT_EQ(Compute("top").mass, 120);
  Type(data = PartDataOf("arm"), "Weighed").status = MassTypeStatus::Undefined;
  SaveWell(data);
  EXPECT_EQ(Compute("top").mass, 36);
}

TEST_F(SaveComputation, ShowsInTheTree) {
  Compute("top");
  SaveMass("a", 7);
  const auto nodes =
      protocol::ReadTreeNodes(Run("LumGetChildren", "ChildrenRequest/1|arm|0|10|end")).Value().nodes;
  EXPECT_EQ(nodes.at(0).mass, 7);
  const auto products = protocol::ReadProductList(Run("LumGetProducts")).Value().products;
  EXPECT_EQ(products.at(0).root.computedStatus, MassTypeStatus::OutOfDate);
}

// ---- What a change costs

constexpr std::size_t kArms = 50;
constexpr std::size_t kPartsInAnArm = 20;

Part Weighing(const std::string& id, double mass) {
  Part part;
  part.id = id;
  part.massTypes = {{"Weighed", {mass, Vec3{}, {}}, {}, {}}};
  part.activeMassType = "Weighed";
  return part;
}

Part Assembly(const std::string& id) {
  Part part;
  part.id = id;
  return part;
}

// top > 50 arms > 20 parts of 1 kg each.
Product Arms() {
  Product product{"P", {Assembly("top")}, {}, {"top"}};
  for (std::size_t arm = 0; arm < kArms; ++arm) {
    const std::string name = "arm" + std::to_string(arm);
    product.parts.push_back(Assembly(name));
    product.instances.push_back({name + ".1", "top", name, 1, {}});
    for (std::size_t i = 0; i < kPartsInAnArm; ++i) {
      const std::string part = name + "-" + std::to_string(i);
      product.parts.push_back(Weighing(part, 1));
      product.instances.push_back({part + ".1", name, part, 1, {}});
    }
  }
  return product;
}

double MassOf(const OpenProduct& product, const std::string& part) {
  return product.Computation().Value().ResultOf(part).Value().mass.value_or(-1);
}

TEST(OpenProductAfterASave, ComputesOnlyThePathToTheRoot) {
  OpenProduct product(Arms(), {1, 0}, {}, {});
  const std::size_t all = product.Computation().Value().ComputedNodes();
  EXPECT_EQ(all, kArms + 1);
  product.TakeSaved(*product.FindPart("arm7-3"), Weighing("arm7-3", 5), 2);
  EXPECT_EQ(product.Computation().Value().ComputedNodes(), all + 2) << "the arm and the top";
  EXPECT_EQ(MassOf(product, "arm7"), 24);
  EXPECT_EQ(MassOf(product, "top"), 1'004);
  EXPECT_EQ(product.State().data, 2);
}

TEST(OpenProductAfterASave, IsTheSameAsOneThatWasLoaded) {
  Product changed = Arms();
  changed.parts[2] = Weighing(changed.parts[2].id, 2.5);
  changed.parts[2].material = "Lead";
  OpenProduct product(Arms(), {1, 0}, {}, {});
  product.TakeSaved(2, changed.parts[2], 2);
  const OpenProduct loaded(changed, {2, 0}, {}, {});
  EXPECT_EQ(product.Data(), changed);
  for (const char* part : {"top", "arm0", "arm0-0", "arm1"})
    EXPECT_EQ(product.Computation().Value().FingerprintOf(part).Value(),
              loaded.Computation().Value().FingerprintOf(part).Value());
  EXPECT_EQ(product.FindPart("arm0-0"), 2u) << "parts are found by their names as before";
}

TEST(OpenProductAfterASave, ComputesAllWhenAnAssemblyCountsInsteadOfItsChildren) {
  OpenProduct product(Arms(), {1, 0}, {}, {});
  product.TakeSaved(*product.FindPart("arm7"), Weighing("arm7", 100), 2);
  EXPECT_EQ(MassOf(product, "top"), 1'080);
  EXPECT_EQ(MassOf(product, "arm7"), 20) << "asked for itself it is the sum of its children";
}

}  // namespace
}  // namespace lumira::test
