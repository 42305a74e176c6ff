#pragma once

#include <array>

#include "framework/math/KorMath3x3Matrix.h"

/// An affine map p -> R·p + t. The twelve coefficients are the nine of R by rows, then t.
class KorMathTransformation {
 public:
  KorMathTransformation() : _matrix(KorMath3x3Matrix::Identity()) {}
  explicit KorMathTransformation(const std::array<double, 12>& c)
      : _matrix(c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[8]), _vector(c[9], c[10], c[11]) {}

  const KorMath3x3Matrix& GetMatrix() const { return _matrix; }
  const KorMathPoint& GetVector() const { return _vector; }
  friend KorMathPoint operator*(const KorMathTransformation& map, const KorMathPoint& p) {
    return map._matrix * p + map._vector;
  }

 private:
  KorMath3x3Matrix _matrix;
  KorMathPoint _vector;
};
