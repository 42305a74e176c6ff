#include <gtest/gtest.h>

#include <random>

#include "services/KorWBServices.h"

namespace {

constexpr bool kFromCentreOfGravity = true;
constexpr bool kToCentreOfGravity = false;

TEST(ConvertInertiaMatrix, AddsThePointMassOnTheWayFromTheCentreOfGravity) {
  // 2 kg at (1, 2, 3) m seen from the origin: Ixx = 2·(4 + 9), Ixy (tensor) = −2·1·2, and so on.
  KorMath3x3Matrix inertia;
  KorWBServices::ConvertInertiaMatrix(inertia, 2, {1, 2, 3}, KorMathO, kFromCentreOfGravity);
  EXPECT_EQ(inertia, KorMath3x3Matrix(26, -4, -6, -4, 20, -12, -6, -12, 10));
}

TEST(ConvertInertiaMatrix, TakesThePointMassOffOnTheWayToTheCentreOfGravity) {
  KorMath3x3Matrix inertia(126, -4, -6, -4, 220, -12, -6, -12, 310);
  KorWBServices::ConvertInertiaMatrix(inertia, 2, {1, 2, 3}, KorMathO, kToCentreOfGravity);
  EXPECT_EQ(inertia, KorMath3x3Matrix(100, 0, 0, 0, 200, 0, 0, 0, 300));
}

TEST(ConvertInertiaMatrix, CountsOnlyTheWayBetweenThePoints) {
  KorMath3x3Matrix near, far;
  KorWBServices::ConvertInertiaMatrix(near, 3, {1, 0, -2}, {0, 4, 0}, kFromCentreOfGravity);
  KorWBServices::ConvertInertiaMatrix(far, 3, {101, 100, 98}, {100, 104, 100}, kFromCentreOfGravity);
  EXPECT_EQ(near, far);
}

TEST(ConvertInertiaMatrix, LeavesTheTensorWhenThePointsAreOneOrThereIsNoMass) {
  const KorMath3x3Matrix before(1, -4, -5, -4, 2, -6, -5, -6, 3);
  for (bool direction : {kFromCentreOfGravity, kToCentreOfGravity}) {
    KorMath3x3Matrix inertia = before;
    KorWBServices::ConvertInertiaMatrix(inertia, 7, {1, 2, 3}, {1, 2, 3}, direction);
    EXPECT_EQ(inertia, before);
    KorWBServices::ConvertInertiaMatrix(inertia, 0, {1, 2, 3}, KorMathO, direction);
    EXPECT_EQ(inertia, before);
  }
}

TEST(ConvertInertiaMatrix, UndoesInOneDirectionWhatItDidInTheOther) {
  std::mt19937 random(20240601);
  std::uniform_real_distribution<double> number(-5, 5);
  const auto point = [&] { return KorMathPoint(number(random), number(random), number(random)); };
  for (int trial = 0; trial < 1000; ++trial) {
    const double xy = number(random), xz = number(random), yz = number(random);
    const KorMath3x3Matrix before(number(random), xy, xz, xy, number(random), yz, xz, yz, number(random));
    const KorMathPoint cg = point(), reference = point();
    const double mass = number(random);
    KorMath3x3Matrix inertia = before;
    KorWBServices::ConvertInertiaMatrix(inertia, mass, cg, reference, kFromCentreOfGravity);
    KorWBServices::ConvertInertiaMatrix(inertia, mass, cg, reference, kToCentreOfGravity);
    for (std::size_t i = 0; i < 9; ++i)
      ASSERT_NEAR(inertia.Coefficients()[i], before.Coefficients()[i], 5e-13) << trial;
  }
}

// Moment of inertia of a thin rod of 3 kg and 2 m: m·l²/12 = 1 about its middle, m·l²/3 = 4 about its end.
TEST(ConvertInertiaMatrix, MovesARodFromItsMiddleToItsEnd) {
  KorMath3x3Matrix inertia(0, 0, 0, 0, 1, 0, 0, 0, 1);
  KorWBServices::ConvertInertiaMatrix(inertia, 3, {1, 0, 0}, KorMathO, kFromCentreOfGravity);
  EXPECT_EQ(inertia, KorMath3x3Matrix(0, 0, 0, 0, 4, 0, 0, 0, 4));
}

}  // namespace
