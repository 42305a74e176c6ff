#include <gtest/gtest.h>

#include "tests/lumira/engine/Products.h"

namespace lumira::test {
namespace {

Part Block(std::string id) {  // a cube of 2 m, its centre at (1, 1, 1)
  Part part = Plain(std::move(id));
  part.geometry = Geometry{8.0, Vec3{1, 1, 1}, InertiaTensor{16.0 / 3, 16.0 / 3, 16.0 / 3, 0, 0, 0}};
  return part;
}

MassTypeData OfMass(std::string name, double mass) { return {std::move(name), {mass, Vec3{}, {}}, {}, {}}; }

/// "root" holds "sub", which holds a block of density 10 and a part of 7 kg.
Product Nested() {
  Product product;
  product.parts = {Plain("root"), Plain("sub"), Block("block"),
                   Weighed("pump", {7.0, Vec3{}, InertiaTensor{}})};
  product.parts[2].density = 10.0;
  Place(product, "root", "sub");
  Place(product, "sub", "block");
  Place(product, "sub", "pump");
  return product;
}

TEST(MassTypes, AShapeCountsWithVolumeTimesDensity) {
  const auto block = ResultOf(Nested(), "block");
  EXPECT_EQ(*block.mass, 80.0);
  EXPECT_EQ(*block.cg, (Vec3{1, 1, 1}));
  EXPECT_DOUBLE_EQ(block.inertiaAtCg->xx, 160.0 / 3);
  EXPECT_EQ(*ResultOf(Nested(), "root").mass, 87.0);
}

TEST(MassTypes, TheDensityOfThePrioritySideCountsFirst) {
  auto product = Nested();
  auto& block = product.parts[2];
  block.cadDensity = 20.0;
  block.densityPriority = DensityPriority::CadFirst;
  EXPECT_EQ(*ResultOf(product, "block").mass, 160.0);
  block.densityPriority = DensityPriority::WbFirst;
  EXPECT_EQ(*ResultOf(product, "block").mass, 80.0);
}

TEST(MassTypes, TheOtherDensityStandsInForAMissingOne) {
  auto product = Nested();
  auto& block = product.parts[2];
  block.densityPriority = DensityPriority::CadFirst;
  EXPECT_EQ(*ResultOf(product, "block").mass, 80.0);
  block.density.reset();
  block.cadDensity = 20.0;
  block.densityPriority = DensityPriority::WbFirst;
  EXPECT_EQ(*ResultOf(product, "block").mass, 160.0);
}

TEST(MassTypes, AShapeWithoutDensityIsAnItemWithoutData) {
  auto product = Nested();
  product.parts[2].density.reset();
  const auto result = ResultOf(product, "root");
  EXPECT_EQ(*result.mass, 7.0);
  EXPECT_EQ(result.coverage.withoutMass, 1.0);
}

TEST(MassTypes, AnActiveUserTypeCountsInsteadOfTheShape) {
  auto product = Nested();
  product.parts[2].massTypes = {OfMass("Estimated", 50.0)};
  EXPECT_EQ(*ResultOf(product, "root").mass, 87.0);
  product.parts[2].activeMassType = "Estimated";
  EXPECT_EQ(*ResultOf(product, "root").mass, 57.0);
}

TEST(MassTypes, AnActiveTypeOfAnAssemblyReplacesItsChildrenInItsParents) {
  auto product = Nested();
  product.parts[1].massTypes = {OfMass("Weighed", 90.0)};
  product.parts[1].activeMassType = "Weighed";
  const auto rollup = RollUp(product);
  EXPECT_EQ(*rollup.ResultOf("root").Value().mass, 90.0);
  EXPECT_EQ(*rollup.ContributionOf("sub").Value().mass, 90.0);
  EXPECT_EQ(*rollup.ResultOf("sub").Value().mass, 87.0) << "computing an assembly still adds up its children";
  EXPECT_EQ(rollup.ResultOf("root").Value().coverage.items, 1.0);
}

TEST(MassTypes, ATypeWithoutAMassReplacesNothing) {
  auto product = Nested();
  product.parts[1].massTypes = {{"Weighed", {std::nullopt, Vec3{1, 1, 1}, {}}, {}, {}}};
  product.parts[1].activeMassType = "Weighed";
  EXPECT_EQ(*ResultOf(product, "root").mass, 87.0);
}

TEST(MassTypes, AnActiveTypeThatThePartDoesNotHaveCountsAsTheComputedOne) {
  auto product = Nested();
  product.parts[2].activeMassType = "Lost";
  EXPECT_EQ(*ResultOf(product, "block").mass, 80.0);
}

TEST(MassTypes, ARequestedTypeIsTakenWhereverAPartHasIt) {
  auto product = Nested();
  product.parts[3].massTypes.push_back(OfMass("Estimated", 6.0));
  product.parts[2].massTypes.push_back(OfMass("Estimated", 70.0));
  EXPECT_EQ(*ResultOf(product, "root", {.massType = {"Estimated"}, .excludedInstances = {}}).mass, 76.0);
  EXPECT_EQ(*ResultOf(product, "root").mass, 87.0);
}

TEST(MassTypes, APartWithoutTheRequestedTypeIsAnItemWithoutData) {
  const auto result = ResultOf(Nested(), "root", {.massType = {"Weighed"}, .excludedInstances = {}});
  EXPECT_EQ(*result.mass, 7.0);
  EXPECT_EQ(result.coverage.withoutMass, 1.0)
      << "the block has a shape, but nobody asked for the computed type";
}

TEST(MassTypes, ARequestedTypeOfAnAssemblyReplacesItsChildrenToo) {
  auto product = Nested();
  product.parts[1].massTypes = {OfMass("Weighed", 90.0)};
  EXPECT_EQ(*ResultOf(product, "root", {.massType = {"Weighed"}, .excludedInstances = {}}).mass, 90.0);
}

TEST(MassTypes, TheShapeOfAPartWithChildrenIsNotAddedToThem) {
  auto product = Nested();
  product.parts[1].geometry = Block("").geometry;
  product.parts[1].density = 1000.0;
  EXPECT_EQ(*ResultOf(product, "root").mass, 87.0);
}

TEST(MassTypes, AShapeWithoutCentroidOrInertiaHasNoneOfThem) {
  auto product = Nested();
  product.parts[2].geometry->unitInertia.reset();
  auto coverage = ResultOf(product, "block").coverage;
  EXPECT_EQ(coverage.withoutCg, 0.0);
  EXPECT_EQ(coverage.withoutInertia, 1.0);
  product.parts[2].geometry = Geometry{8.0, {}, InertiaTensor{1, 1, 1, 0, 0, 0}};
  const auto result = ResultOf(product, "block");
  EXPECT_EQ(*result.mass, 80.0);
  EXPECT_FALSE(result.cg.has_value());
  EXPECT_EQ(result.coverage.withoutCg, 1.0);
  EXPECT_EQ(result.coverage.massWithoutCg, 80.0);
  EXPECT_EQ(result.coverage.massWithInertia, 0.0);
}

TEST(MassTypes, AStandardPartKnownByItsMassAloneCountsInTheMassOnly) {
  auto product = Nested();
  product.parts[3].standardPart = true;
  product.parts[3].massTypes[0].properties = {7.0, {}, {}};
  const auto result = ResultOf(product, "root");
  EXPECT_EQ(*result.mass, 87.0);
  EXPECT_EQ(*result.cg, (Vec3{1, 1, 1}));
  EXPECT_EQ(result.coverage.massWithoutCg, 7.0);
}

TEST(LeftOut, AnExcludedInstanceTakesItsSubtreeWithItThereAndNowhereElse) {
  auto product = Nested();
  Place(product, "root", "sub");
  EXPECT_EQ(*ResultOf(product, "root").mass, 174.0);
  EXPECT_EQ(*ResultOf(product, "root", {.massType = {}, .excludedInstances = {"i3"}}).mass, 87.0);
  EXPECT_EQ(*ResultOf(product, "root", {.massType = {}, .excludedInstances = {"i2"}}).mass, 160.0)
      << "i2 places the pump in the sub-assembly, which is there twice";
}

TEST(LeftOut, AnAssemblyOfWhichEverythingIsExcludedIsNothingRatherThanUnknown) {
  const auto result = ResultOf(Nested(), "root", {.massType = {}, .excludedInstances = {"i1", "i2"}});
  EXPECT_FALSE(result.mass);
  EXPECT_EQ(result.coverage, Coverage{});
}

TEST(LeftOut, ExcludingAnInstanceCanBreakACycle) {
  auto product = Nested();
  Place(product, "sub", "root");
  EXPECT_FALSE(Compile(product).Ok());
  EXPECT_TRUE(Compile(product, {.massType = {}, .excludedInstances = {"i3"}}).Ok());
}

}  // namespace
}  // namespace lumira::test
