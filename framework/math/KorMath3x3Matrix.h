#pragma once

#include <array>

#include "framework/math/KorMathPoint.h"
#include "framework/system/KorExport.h"

/// A 3×3 matrix of doubles, coefficients by rows.
class KOR_FRAMEWORK_API KorMath3x3Matrix {
 public:
  /// The zero matrix.
  constexpr KorMath3x3Matrix() = default;
  constexpr KorMath3x3Matrix(double a11, double a12, double a13, double a21, double a22, double a23,
                             double a31, double a32, double a33)
      : _a{a11, a12, a13, a21, a22, a23, a31, a32, a33} {}
  static constexpr KorMath3x3Matrix Identity() { return {1, 0, 0, 0, 1, 0, 0, 0, 1}; }

  /// Row and column from 1 to 3.
  double GetCoef(int row, int column) const { return _a[3 * (row - 1) + column - 1]; }
  void SetCoef(int row, int column, double value) { _a[3 * (row - 1) + column - 1] = value; }
  const std::array<double, 9>& Coefficients() const { return _a; }
  void SetCoefficients(const std::array<double, 9>& byRows) { _a = byRows; }

  /// Whether no coefficient is infinite or not a number.
  bool IsFinite() const;
  double Determinant() const;
  KorMath3x3Matrix Transpose() const;
  /// False, with `inverse` left alone, when the determinant is zero or the inverse is not finite.
  bool Invert(KorMath3x3Matrix& inverse) const;

  friend KOR_FRAMEWORK_API KorMath3x3Matrix operator*(const KorMath3x3Matrix& a, const KorMath3x3Matrix& b);
  friend KOR_FRAMEWORK_API KorMathPoint operator*(const KorMath3x3Matrix& a, const KorMathPoint& p);
  friend bool operator==(const KorMath3x3Matrix&, const KorMath3x3Matrix&) = default;

 private:
  std::array<double, 9> _a{};
};
