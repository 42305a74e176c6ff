#pragma once

#include <algorithm>
#include <array>
#include <cmath>

#include "lumira/model/Vec3.h"

namespace lumira {

/// A 3x3 matrix, row by row, that turns part axes into parent axes: v_parent = R · v_part.
/// Its columns are the part's x, y and z axes seen from the parent.
struct Rotation {
  std::array<double, 9> m = {1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0};

  constexpr double operator()(int row, int column) const {
    return m[static_cast<std::size_t>(3 * row + column)];
  }
  friend bool operator==(const Rotation&, const Rotation&) = default;
};

/// How far RᵀR may be from the identity, in any entry. Tables printed with seven digits pass.
inline constexpr double kRotationTolerance = 1e-6;

constexpr Vec3 operator*(const Rotation& r, const Vec3& v) {
  return {r.m[0] * v.x + r.m[1] * v.y + r.m[2] * v.z, r.m[3] * v.x + r.m[4] * v.y + r.m[5] * v.z,
          r.m[6] * v.x + r.m[7] * v.y + r.m[8] * v.z};
}

constexpr Rotation operator*(const Rotation& a, const Rotation& b) {
  Rotation product;
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      product.m[static_cast<std::size_t>(3 * row + column)] =
          a(row, 0) * b(0, column) + a(row, 1) * b(1, column) + a(row, 2) * b(2, column);
    }
  }
  return product;
}

/// The inverse of a rotation.
constexpr Rotation Transposed(const Rotation& r) {
  return {{r.m[0], r.m[3], r.m[6], r.m[1], r.m[4], r.m[7], r.m[2], r.m[5], r.m[8]}};
}

constexpr double Determinant(const Rotation& r) {
  return r.m[0] * (r.m[4] * r.m[8] - r.m[5] * r.m[7]) - r.m[1] * (r.m[3] * r.m[8] - r.m[5] * r.m[6]) +
         r.m[2] * (r.m[3] * r.m[7] - r.m[4] * r.m[6]);
}

/// The largest entry of |RᵀR - E|: 0 for axes that are exactly orthonormal, not-a-number for such entries.
inline double OrthonormalityError(const Rotation& r) {
  const Rotation product = Transposed(r) * r;
  double worst = 0.0;
  for (int i = 0; i < 9; ++i) {
    const double error = std::abs(product.m[static_cast<std::size_t>(i)] - (i % 4 == 0 ? 1.0 : 0.0));
    if (!(error <= worst)) worst = error;
    if (std::isnan(worst)) return worst;
  }
  return worst;
}

/// True for a right-handed orthonormal matrix; scalings, mirrors and not-a-number are none.
inline bool IsRotation(const Rotation& r, double tolerance = kRotationTolerance) {
  return OrthonormalityError(r) <= tolerance && Determinant(r) > 0.0;
}

/// The right-handed rotation by `angle` (radians) about y: z turns towards x.
inline Rotation RotationAboutY(double angle) {
  const double c = std::cos(angle), s = std::sin(angle);
  return {{c, 0.0, s, 0.0, 1.0, 0.0, -s, 0.0, c}};
}

}  // namespace lumira
