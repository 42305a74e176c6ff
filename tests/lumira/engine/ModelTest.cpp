#include <gtest/gtest.h>

#include <limits>
#include <numbers>

#include "lumira/model/Effectivity.h"
#include "lumira/model/Product.h"
#include "tests/lumira/engine/Products.h"

namespace lumira::test {
namespace {

TEST(Model, APlacementTurnsFirstAndMovesThen) {
  const Placement quarterAboutZ = {{{0, -1, 0, 1, 0, 0, 0, 0, 1}}, {10, 20, 30}};
  EXPECT_EQ(quarterAboutZ * Vec3({1, 0, 0}), (Vec3{10, 21, 30}));
  EXPECT_EQ(quarterAboutZ * Vec3({0, 1, 5}), (Vec3{9, 20, 35}));
}

TEST(Model, TwoPlacementsMultiplyFromTheInsideOut) {
  const Placement quarterAboutZ = {{{0, -1, 0, 1, 0, 0, 0, 0, 1}}, {10, 0, 0}};
  const Placement up = {{}, {0, 0, 3}};
  EXPECT_EQ((up * quarterAboutZ) * Vec3({1, 2, 3}), up * (quarterAboutZ * Vec3({1, 2, 3})));
}

TEST(Model, ARotationAboutYTurnsZTowardsX) {
  const auto turned = RotationAboutY(std::numbers::pi / 2) * Vec3{0, 0, 1};
  ExpectNear(turned, {1, 0, 0}, 1e-15);
}

TEST(Model, MirrorsScalingsAndNotANumberAreNoRotations) {
  EXPECT_TRUE(IsRotation(RotationAboutY(0.3)));
  EXPECT_FALSE(IsRotation({{-1, 0, 0, 0, 1, 0, 0, 0, 1}}));
  EXPECT_FALSE(IsRotation({{1, 0, 0, 0, 1.00001, 0, 0, 0, 1}}));
  EXPECT_FALSE(IsRotation({{0, 0, 0, 0, 0, 0, 0, 0, 0}}));
  EXPECT_FALSE(IsRotation({{std::numeric_limits<double>::quiet_NaN(), 0, 0, 0, 1, 0, 0, 0, 1}}));
}

TEST(Model, AxesPrintedWithSevenDigitsAreARotation) {
  EXPECT_TRUE(IsRotation({{0.9945219, 0, 0.1045285, 0, 1, 0, -0.1045285, 0, 0.9945219}}));
}

TEST(Model, APointMassHasItsProductsNegatedInTheTensor) {
  EXPECT_EQ(PointInertia({1, 2, 3}), (InertiaTensor{13, 10, 5, -2, -3, -6}));
}

TEST(Model, ParallelAxesGoThereAndBack) {
  const InertiaTensor own = {4, 5, 6, 1, 2, 3};
  const auto moved = ShiftedFromCg(own, 2.0, {1, 2, 3});
  EXPECT_EQ(moved, (InertiaTensor{30, 25, 16, -3, -4, -9}));
  EXPECT_EQ(ShiftedToCg(moved, 2.0, {1, 2, 3}), own);
}

TEST(Model, AQuarterTurnAboutZExchangesTheMoments) {
  const Rotation quarter = {{0, -1, 0, 1, 0, 0, 0, 0, 1}};
  EXPECT_EQ(Rotated({1, 2, 3, 4, 5, 6}, quarter), (InertiaTensor{2, 1, 3, -4, -6, 5}));
}

TEST(Model, ChangingTheSignConventionTwiceChangesNothing) {
  const InertiaTensor t = {1, 2, 3, 4, 5, 6};
  EXPECT_EQ(WithProductsNegated(t), (InertiaTensor{1, 2, 3, -4, -5, -6}));
  EXPECT_EQ(WithProductsNegated(WithProductsNegated(t)), t);
}

TEST(Model, ReadsDaysOfTheCalendarAndNothingElse) {
  using namespace std::chrono;
  EXPECT_EQ(ParseDate("2024-02-29"), year(2024) / February / 29);
  EXPECT_EQ(FormatDate(*ParseDate("0007-01-02")), "0007-01-02");
  for (const char* text :
       {"", "2023-02-29", "2024-13-01", "2024-00-10", "2024-01-00", "2024-1-1", "24-01-01", "2024/01/01",
        "2024-01-01 ", "-024-01-01", "2024-01-0x", "20240101", "0000-01-01", "0000-12-31"})
    EXPECT_FALSE(ParseDate(text).has_value()) << text;
}

TEST(Model, TakesTheFirstYearForTheEarliest) {
  EXPECT_EQ(FormatDate(*ParseDate("0001-01-01")), "0001-01-01");
  EXPECT_EQ(FormatDate(*ParseStoredDate("0000-02-29")), "0000-02-29");
}

TEST(Model, AnEffectivityWithOneDateIsOpenAtTheOtherEnd) {
  const Effectivity from{ParseDate("2020-05-01"), {}}, until{{}, ParseDate("2020-05-01")};
  EXPECT_FALSE(from.Covers(*ParseDate("2020-04-30")));
  EXPECT_TRUE(from.Covers(*ParseDate("9999-12-31")));
  EXPECT_TRUE(until.Covers(*ParseDate("0001-01-01")));
  EXPECT_FALSE(until.Covers(*ParseDate("2020-05-02")));
}

}  // namespace
}  // namespace lumira::test
