#include <gtest/gtest.h>

#include "tests/lumira/engine/Products.h"

namespace lumira::test {
namespace {

const InertiaTensor kUnit = {1, 1, 1, 0, 0, 0};

Product Under(std::vector<Part> parts) {
  Product product;
  product.parts.push_back(Plain("root"));
  for (auto& part : parts) {
    Place(product, "root", part.id);
    product.parts.push_back(std::move(part));
  }
  return product;
}

TEST(PartialData, AnItemWithoutMassIsCountedAndAddsNothing) {
  const auto result = ResultOf(Under({Weighed("a", {4.0, Vec3{1, 0, 0}, kUnit}), Plain("unknown")}), "root");
  EXPECT_EQ(*result.mass, 4.0);
  EXPECT_EQ(result.coverage.items, 2.0);
  EXPECT_EQ(result.coverage.withoutMass, 1.0);
}

TEST(PartialData, ACentreOrInertiaWithoutAMassIsNoData) {
  const auto result = ResultOf(Under({Weighed("odd", {std::nullopt, Vec3{1, 0, 0}, kUnit})}), "root");
  EXPECT_FALSE(result.mass);
  EXPECT_FALSE(result.cg);
  EXPECT_EQ(result.coverage.withoutMass, 1.0);
}

TEST(PartialData, NothingKnownBelowGivesNoMassRatherThanZero) {
  const auto result = ResultOf(Under({Plain("a"), Plain("b")}), "root");
  EXPECT_FALSE(result.mass);
  EXPECT_FALSE(result.cg);
  EXPECT_FALSE(result.inertiaAtCg);
  EXPECT_EQ(result.coverage.withoutMass, 2.0);
}

TEST(PartialData, AMassWithoutCentreCountsInTheMassAndNotInTheCentre) {
  const auto result =
      ResultOf(Under({Weighed("a", {4.0, Vec3{1, 0, 0}, kUnit}), Weighed("loose", {6.0, {}, {}})}), "root");
  EXPECT_EQ(*result.mass, 10.0);
  EXPECT_EQ(*result.cg, (Vec3{1, 0, 0}));
  EXPECT_EQ(*result.inertiaAtCg, kUnit);
  EXPECT_EQ(result.coverage.withoutCg, 1.0);
  EXPECT_EQ(result.coverage.massWithoutCg, 6.0);
}

TEST(PartialData, AnInertiaWithoutACentreIsNotUsed) {
  const auto result = ResultOf(Under({Weighed("odd", {4.0, {}, kUnit})}), "root");
  EXPECT_EQ(*result.mass, 4.0);
  EXPECT_FALSE(result.cg);
  EXPECT_EQ(result.inertiaAtOrigin, InertiaTensor{});
  EXPECT_EQ(result.coverage.massWithInertia, 0.0);
}

TEST(PartialData, AnItemWithoutInertiaCountsAsAPointMass) {
  const auto result = ResultOf(
      Under({Weighed("a", {2.0, Vec3{1, 0, 0}, kUnit}), Weighed("b", {2.0, Vec3{-1, 0, 0}, {}})}), "root");
  EXPECT_EQ(*result.inertiaAtCg, (InertiaTensor{1, 5, 5, 0, 0, 0}));
  EXPECT_EQ(result.coverage.withoutInertia, 1.0);
  EXPECT_EQ(result.coverage.massWithInertia, 2.0);
}

TEST(PartialData, AskedByItselfAnItemWithoutInertiaHasNone) {
  const auto result = ResultOf(Under({Weighed("b", {2.0, Vec3{-1, 0, 0}, {}})}), "b");
  EXPECT_EQ(*result.cg, (Vec3{-1, 0, 0}));
  EXPECT_FALSE(result.inertiaAtCg);
}

TEST(PartialData, CountsGoUpWithQuantities) {
  auto product = Under({Plain("unknown"), Weighed("loose", {6.0, {}, {}})});
  product.parts.push_back(Plain("top"));
  Place(product, "top", "root", {}, 5);
  product.instances[0].quantity = 3;
  const auto result = ResultOf(product, "top");
  EXPECT_EQ(result.coverage.items, 20.0);
  EXPECT_EQ(result.coverage.withoutMass, 15.0);
  EXPECT_EQ(result.coverage.massWithoutCg, 30.0);
}

TEST(NegativeMass, ACutOutTakesAwayMassMomentAndInertia) {
  const auto result = ResultOf(Under({Weighed("plate", {10.0, Vec3{0, 0, 0}, InertiaTensor{20, 20, 20}}),
                                      Weighed("hole", {-2.0, Vec3{4, 0, 0}, InertiaTensor{-1, -1, -1}})}),
                               "root");
  EXPECT_EQ(*result.mass, 8.0);
  ExpectNear(*result.cg, {-1, 0, 0}, 1e-15);
  // 20 - 1 about the origin, minus 2·16 for the hole, minus 8·1 to go to the centre.
  ExpectNear(*result.inertiaAtCg, {19, -21, -21, 0, 0, 0}, 1e-14);
  EXPECT_EQ(result.coverage.negative, 1.0);
}

TEST(NegativeMass, ATotalBelowZeroHasACentre) {
  const auto result = ResultOf(
      Under({Weighed("a", {1.0, Vec3{1, 0, 0}, {}}), Weighed("b", {-3.0, Vec3{5, 0, 0}, {}})}), "root");
  EXPECT_EQ(*result.mass, -2.0);
  EXPECT_EQ(*result.cg, (Vec3{7, 0, 0}));
}

TEST(ZeroMass, MassesThatCancelKeepTheirMoments) {
  const auto result = ResultOf(
      Under({Weighed("a", {3.0, Vec3{1, 2, 3}, kUnit}), Weighed("b", {-3.0, Vec3{0, 2, 3}, kUnit})}), "root");
  EXPECT_EQ(*result.mass, 0.0);
  EXPECT_FALSE(result.cg);
  EXPECT_FALSE(result.inertiaAtCg);
  EXPECT_EQ(result.firstMoment, (Vec3{3, 0, 0}));
  // The Steiner parts about the origin: 3·K(1,2,3) - 3·K(0,2,3).
  ExpectNear(result.inertiaAtOrigin, {2, 5, 5, -6, -9, 0}, 1e-14);
}

TEST(ZeroMass, AnAssemblyOfMassZeroBringsItsMomentsIntoItsParent) {
  auto product =
      Under({Weighed("a", {3.0, Vec3{1, 2, 3}, kUnit}), Weighed("b", {-3.0, Vec3{0, 2, 3}, kUnit})});
  product.parts.push_back(Plain("top"));
  product.parts.push_back(Weighed("weight", {6.0, Vec3{0, 0, 0}, {}}));
  Place(product, "top", "root", {{{0, -1, 0, 1, 0, 0, 0, 0, 1}}, {100, 0, 0}});  // x to y
  Place(product, "top", "weight");
  const auto result = ResultOf(product, "top");
  EXPECT_EQ(*result.mass, 6.0);
  ExpectNear(*result.cg, {0, 0.5, 0}, 1e-14);
}

TEST(ZeroMass, MassesThatCancelUpToRoundingAreZero) {
  const auto result =
      ResultOf(Under({Weighed("a", {0.1, Vec3{1, 0, 0}, {}}), Weighed("b", {0.2, Vec3{1, 0, 0}, {}}),
                      Weighed("c", {-0.3, Vec3{0, 0, 0}, {}})}),
               "root");
  EXPECT_FALSE(result.cg) << "0.1 + 0.2 - 0.3 is 5.6e-17 in binary: a centre from that would be noise";
  EXPECT_NEAR(result.firstMoment.x, 0.3, 1e-15);
}

TEST(ZeroMass, AnItemOfMassZeroMayHaveAPlaceAndAnInertia) {
  const auto result = ResultOf(Under({Weighed("ghost", {0.0, Vec3{50, 0, 0}, kUnit})}), "root");
  EXPECT_EQ(*result.mass, 0.0);
  EXPECT_FALSE(result.cg);
  EXPECT_EQ(result.inertiaAtOrigin, kUnit);
}

TEST(ZeroMass, ItemsOfMassZeroDoNotPullTheReferenceAway) {
  const auto result =
      ResultOf(Under({Weighed("far", {0.0, Vec3{1e9, 0, 0}, {}}), Weighed("a", {1.0, Vec3{1, 0, 0}, kUnit}),
                      Weighed("b", {1.0, Vec3{2, 0, 0}, kUnit})}),
               "root");
  EXPECT_EQ(*result.cg, (Vec3{1.5, 0, 0}));
  EXPECT_EQ(*result.inertiaAtCg, (InertiaTensor{2, 2.5, 2.5, 0, 0, 0}));
}

TEST(Bounds, WorstCasesAddUpWithQuantities) {
  auto product = Under({Weighed("a", {10.0, {}, {}}, {}, MassBounds{0.5, 1.0}),
                        Weighed("b", {4.0, {}, {}}, {}, MassBounds{0.25, 0.0})});
  product.instances[1].quantity = 4;
  const auto coverage = ResultOf(product, "root").coverage;
  EXPECT_EQ(coverage.lower, 1.5);
  EXPECT_EQ(coverage.upper, 1.0);
}

TEST(Bounds, OfANegativeMassChangePlaces) {
  // A cut-out of 10 kg that may be 0.5 kg smaller or 1 kg larger: the total may rise by 0.5 or fall by 1.
  const auto coverage =
      ResultOf(Under({Weighed("hole", {-10.0, {}, {}}, {}, MassBounds{0.5, 1.0})}), "root").coverage;
  EXPECT_EQ(coverage.lower, 1.0);
  EXPECT_EQ(coverage.upper, 0.5);
}

TEST(Bounds, DeviationsDoNotStandInForMissingBounds) {
  const auto coverage = ResultOf(Under({Weighed("a", {10.0, {}, {}}, {}, MassBounds{0.5, 1.0}),
                                        Weighed("b", {4.0, {}, {}}, {0.3, {}, {}})}),
                                 "root")
                            .coverage;
  EXPECT_EQ(coverage.lower, 0.5);
  EXPECT_EQ(coverage.upper, 1.0);
  EXPECT_EQ(coverage.withBounds, 1.0);
  EXPECT_EQ(coverage.withoutBounds, 1.0);
  EXPECT_EQ(coverage.spreadWithoutBounds, 0.3) << "told beside the bounds, for who wants to add it";
}

}  // namespace
}  // namespace lumira::test
