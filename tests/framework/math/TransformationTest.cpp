#include <gtest/gtest.h>

#include "framework/math/KorMathTransformation.h"

namespace {

TEST(Point, AddsSubtractsAndScales) {
  constexpr KorMathPoint a(1, 2, 3), b(4, 6, 8);
  EXPECT_EQ(a + b, KorMathPoint(5, 8, 11));
  EXPECT_EQ(b - a, KorMathPoint(3, 4, 5));
  EXPECT_EQ(0.5 * b, KorMathPoint(2, 3, 4));
  EXPECT_EQ(KorMathO, KorMathPoint(0, 0, 0));
}

TEST(Transformation, IsTheIdentityAtTheStart) {
  EXPECT_EQ(KorMathTransformation() * KorMathPoint(1, 2, 3), KorMathPoint(1, 2, 3));
}

TEST(Transformation, TakesNineCoefficientsByRowsThenTheTranslation) {
  // A quarter turn about z, then a shift.
  const KorMathTransformation map({0, -1, 0, 1, 0, 0, 0, 0, 1, 10, 20, 30});
  EXPECT_EQ(map.GetMatrix(), KorMath3x3Matrix(0, -1, 0, 1, 0, 0, 0, 0, 1));
  EXPECT_EQ(map.GetVector(), KorMathPoint(10, 20, 30));
  EXPECT_EQ(map * KorMathPoint(1, 2, 3), KorMathPoint(8, 21, 33));
}

TEST(Transformation, LeavesCoefficientsThatAreNotGivenAtZero) {
  EXPECT_EQ(KorMathTransformation({1}) * KorMathPoint(5, 6, 7), KorMathPoint(5, 0, 0));
}

}  // namespace
