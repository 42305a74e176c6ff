#include <gtest/gtest.h>

#include <limits>

#include "framework/math/KorMath3x3Matrix.h"

namespace {

constexpr KorMath3x3Matrix kCounting = {1, 2, 3, 4, 5, 6, 7, 8, 9};
constexpr KorMath3x3Matrix kRegular = {2, 0, 1, 0, 4, 0, 1, 0, 1};  // determinant 4·(2 − 1) = 4

TEST(Matrix, CountsRowsAndColumnsFromOne) {
  EXPECT_EQ(kCounting.GetCoef(1, 1), 1);
  EXPECT_EQ(kCounting.GetCoef(2, 3), 6);
  KorMath3x3Matrix m;
  m.SetCoef(3, 2, 5);
  EXPECT_EQ(m, KorMath3x3Matrix(0, 0, 0, 0, 0, 0, 0, 5, 0));
}

TEST(Matrix, HasItsDeterminant) {
  EXPECT_EQ(kRegular.Determinant(), 4);
  EXPECT_EQ(KorMath3x3Matrix::Identity().Determinant(), 1);
  EXPECT_EQ(KorMath3x3Matrix(0, 1, 0, 1, 0, 0, 0, 0, 1).Determinant(), -1);
}

TEST(Matrix, HasADeterminantOfExactlyZeroWhenRowsAreMultiples) {
  EXPECT_EQ(kCounting.Determinant(), 0);
  EXPECT_EQ(KorMath3x3Matrix(1, 0, 0, 2, 0, 0, 0, 0, 1).Determinant(), 0);
  EXPECT_EQ(KorMath3x3Matrix().Determinant(), 0);
}

TEST(Matrix, TransposesRowsToColumns) {
  EXPECT_EQ(kCounting.Transpose(), KorMath3x3Matrix(1, 4, 7, 2, 5, 8, 3, 6, 9));
}

TEST(Matrix, MultipliesRowsByColumns) {
  EXPECT_EQ(kCounting * kRegular, KorMath3x3Matrix(5, 8, 4, 14, 20, 10, 23, 32, 16));
  EXPECT_EQ(kCounting * KorMathPoint(1, 0, -1), KorMathPoint(-2, -2, -2));
}

TEST(Matrix, Inverts) {
  KorMath3x3Matrix inverse;
  ASSERT_TRUE(kRegular.Invert(inverse));
  EXPECT_EQ(inverse, KorMath3x3Matrix(1, 0, -1, 0, 0.25, 0, -1, 0, 2));
  EXPECT_EQ(kRegular * inverse, KorMath3x3Matrix::Identity());
}

TEST(Matrix, LeavesTheInverseAloneWhenThereIsNone) {
  const double tiny = std::numeric_limits<double>::denorm_min();  // its reciprocal overflows
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const KorMath3x3Matrix before(9, 9, 9, 9, 9, 9, 9, 9, 9);
  for (const KorMath3x3Matrix& m : {kCounting, KorMath3x3Matrix(tiny, 0, 0, 0, 1, 0, 0, 0, 1),
                                    KorMath3x3Matrix(nan, 0, 0, 0, 1, 0, 0, 0, 1)}) {
    KorMath3x3Matrix inverse = before;
    EXPECT_FALSE(m.Invert(inverse));
    EXPECT_EQ(inverse, before);
  }
}

TEST(Matrix, InvertsCoefficientsOfAnySizeExactly) {
  for (const double scale : {1e103, 1e-108, 1.6e-108, 1e200, 5e-107}) {
    KorMath3x3Matrix scaled, inverse;
    for (int i = 1; i <= 3; ++i) scaled.SetCoef(i, i, i * scale);
    if (scaled.Determinant() == 0.0) continue;
    ASSERT_TRUE(scaled.Invert(inverse)) << scale;
    for (int row = 1; row <= 3; ++row)
      for (int column = 1; column <= 3; ++column)
        EXPECT_DOUBLE_EQ(inverse.GetCoef(row, column) * scale, row == column ? 1.0 / row : 0.0) << scale;
  }
}

TEST(Matrix, InvertsRowsAndColumnsOfVeryDifferentSizesExactly) {
  for (const double s : {1e105, 1e108, 1e150, 1e-150}) {
    KorMath3x3Matrix inverse;
    ASSERT_TRUE(KorMath3x3Matrix(1 / s, 0, 0, 0, s, 0, 0, 0, 1).Invert(inverse)) << s;
    EXPECT_DOUBLE_EQ(inverse.GetCoef(1, 1) / s, 1) << s;
    EXPECT_DOUBLE_EQ(inverse.GetCoef(2, 2) * s, 1) << s;
    EXPECT_EQ(inverse.GetCoef(3, 3), 1) << s;
    // The columns of kRegular, one of them s times as large: a row of the inverse is divided by it.
    ASSERT_TRUE(KorMath3x3Matrix(2 * s, 0, 1, 0, 4, 0, 1 * s, 0, 1).Invert(inverse)) << s;
    EXPECT_DOUBLE_EQ(inverse.GetCoef(1, 1) * s, 1) << s;
    EXPECT_DOUBLE_EQ(inverse.GetCoef(1, 3) * s, -1) << s;
    EXPECT_DOUBLE_EQ(inverse.GetCoef(3, 1), -1) << s;
    EXPECT_DOUBLE_EQ(inverse.GetCoef(3, 3), 2) << s;
  }
}

}  // namespace
