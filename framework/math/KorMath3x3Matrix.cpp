#include "framework/math/KorMath3x3Matrix.h"

#include <algorithm>
#include <cmath>

namespace {

// Adjugate: transposed matrix of cofactors, so that a · adjugate = determinant · identity.
std::array<double, 9> Adjugate(const std::array<double, 9>& a) {
  return {a[4] * a[8] - a[5] * a[7], a[2] * a[7] - a[1] * a[8], a[1] * a[5] - a[2] * a[4],
          a[5] * a[6] - a[3] * a[8], a[0] * a[8] - a[2] * a[6], a[2] * a[3] - a[0] * a[5],
          a[3] * a[7] - a[4] * a[6], a[1] * a[6] - a[0] * a[7], a[0] * a[4] - a[1] * a[3]};
}

/// Powers of two for the rows and columns of a matrix.
struct Scales {
  std::array<int, 3> rows{}, columns{};
};

int ExponentOf(double number) {
  int exponent = 0;
  std::frexp(number, &exponent);
  return exponent;
}

double Largest(double a, double b, double c) { return std::max({std::abs(a), std::abs(b), std::abs(c)}); }

std::array<double, 9> Divided(std::array<double, 9> a, const Scales& by) {
  for (std::size_t i = 0; i < a.size(); ++i) a[i] = std::ldexp(a[i], -by.rows[i / 3] - by.columns[i % 3]);
  return a;
}

// Divided by these, the largest coefficient of each row, and then of each column, lies in [0.5, 1): products
// of three coefficients neither overflow nor lose digits for their size alone.
Scales ScalesOf(const std::array<double, 9>& a) {
  Scales scales;
  for (std::size_t i = 0; i < 3; ++i)
    scales.rows[i] = ExponentOf(Largest(a[3 * i], a[3 * i + 1], a[3 * i + 2]));
  const std::array<double, 9> byRows = Divided(a, scales);
  for (std::size_t i = 0; i < 3; ++i)
    scales.columns[i] = ExponentOf(Largest(byRows[i], byRows[3 + i], byRows[6 + i]));
  return scales;
}

}  // namespace

bool KorMath3x3Matrix::IsFinite() const {
  return std::all_of(_a.begin(), _a.end(), [](double coefficient) { return std::isfinite(coefficient); });
}

double KorMath3x3Matrix::Determinant() const {
  return _a[0] * (_a[4] * _a[8] - _a[5] * _a[7]) - _a[1] * (_a[3] * _a[8] - _a[5] * _a[6]) +
         _a[2] * (_a[3] * _a[7] - _a[4] * _a[6]);
}

KorMath3x3Matrix KorMath3x3Matrix::Transpose() const {
  return {_a[0], _a[3], _a[6], _a[1], _a[4], _a[7], _a[2], _a[5], _a[8]};
}

bool KorMath3x3Matrix::Invert(KorMath3x3Matrix& inverse) const {
  if (Determinant() == 0.0) return false;
  const Scales scales = ScalesOf(_a);
  KorMath3x3Matrix scaled;
  scaled.SetCoefficients(Divided(_a, scales));
  const double determinant = scaled.Determinant();
  std::array<double, 9> coefficients = Adjugate(scaled._a);
  for (double& coefficient : coefficients) coefficient /= determinant;
  // What scaled a row scales a column of the inverse.
  KorMath3x3Matrix result;
  result.SetCoefficients(Divided(coefficients, {scales.columns, scales.rows}));
  if (!result.IsFinite()) return false;
  inverse = result;
  return true;
}

KorMath3x3Matrix operator*(const KorMath3x3Matrix& a, const KorMath3x3Matrix& b) {
  KorMath3x3Matrix product;
  for (int row = 1; row <= 3; ++row)
    for (int column = 1; column <= 3; ++column)
      product.SetCoef(row, column,
                      a.GetCoef(row, 1) * b.GetCoef(1, column) + a.GetCoef(row, 2) * b.GetCoef(2, column) +
                          a.GetCoef(row, 3) * b.GetCoef(3, column));
  return product;
}

KorMathPoint operator*(const KorMath3x3Matrix& a, const KorMathPoint& p) {
  const auto row = [&](int r) {
    return a.GetCoef(r, 1) * p.GetX() + a.GetCoef(r, 2) * p.GetY() + a.GetCoef(r, 3) * p.GetZ();
  };
  return {row(1), row(2), row(3)};
}
