#pragma once

#include <cmath>

#include "lumira/model/Rotation.h"
#include "lumira/model/Vec3.h"

namespace lumira {

/// The six elements of an inertia tensor, kg·m², about the point that its holder names.
/// `xy`, `xz` and `yz` are tensor elements: the products of inertia with the sign turned.
struct InertiaTensor {
  double xx = 0.0;
  double yy = 0.0;
  double zz = 0.0;
  double xy = 0.0;
  double xz = 0.0;
  double yz = 0.0;

  friend bool operator==(const InertiaTensor&, const InertiaTensor&) = default;
};

constexpr InertiaTensor operator+(const InertiaTensor& a, const InertiaTensor& b) {
  return {a.xx + b.xx, a.yy + b.yy, a.zz + b.zz, a.xy + b.xy, a.xz + b.xz, a.yz + b.yz};
}

constexpr InertiaTensor operator-(const InertiaTensor& a, const InertiaTensor& b) {
  return {a.xx - b.xx, a.yy - b.yy, a.zz - b.zz, a.xy - b.xy, a.xz - b.xz, a.yz - b.yz};
}

constexpr InertiaTensor operator*(double k, const InertiaTensor& a) {
  return {k * a.xx, k * a.yy, k * a.zz, k * a.xy, k * a.xz, k * a.yz};
}

constexpr double Trace(const InertiaTensor& a) { return a.xx + a.yy + a.zz; }

inline bool IsFinite(const InertiaTensor& a) {
  return std::isfinite(a.xx) && std::isfinite(a.yy) && std::isfinite(a.zz) && std::isfinite(a.xy) &&
         std::isfinite(a.xz) && std::isfinite(a.yz);
}

/// The one place where the sign convention changes: from products of inertia ∫xy dm (the "+" convention)
/// to tensor elements -∫xy dm, and back. Moments stay.
constexpr InertiaTensor WithProductsNegated(const InertiaTensor& a) {
  return {a.xx, a.yy, a.zz, -a.xy, -a.xz, -a.yz};
}

/// The tensor of a point mass of 1 kg at `d` (m) about the origin: d²E - ddᵀ, m².
constexpr InertiaTensor PointInertia(const Vec3& d) {
  return {d.y * d.y + d.z * d.z,
          d.x * d.x + d.z * d.z,
          d.x * d.x + d.y * d.y,
          -d.x * d.y,
          -d.x * d.z,
          -d.y * d.z};
}

/// Parallel axes (Steiner): from the tensor about the own centre of gravity to the one about a point from
/// which that centre is seen at `d` (m). Mass in kg, may be negative.
constexpr InertiaTensor ShiftedFromCg(const InertiaTensor& aboutCg, double mass, const Vec3& d) {
  return aboutCg + mass * PointInertia(d);
}

/// The way back: from the tensor about that point to the one about the own centre of gravity.
constexpr InertiaTensor ShiftedToCg(const InertiaTensor& aboutPoint, double mass, const Vec3& d) {
  return aboutPoint - mass * PointInertia(d);
}

/// R·I·Rᵀ: the same tensor, about the same point, in the axes into which `r` turns.
constexpr InertiaTensor Rotated(const InertiaTensor& a, const Rotation& r) {
  const Vec3 rows[3] = {r * Vec3{a.xx, a.xy, a.xz}, r * Vec3{a.xy, a.yy, a.yz}, r * Vec3{a.xz, a.yz, a.zz}};
  const auto element = [&](int i, int j) {
    const auto at = [i](const Vec3& v) { return i == 0 ? v.x : i == 1 ? v.y : v.z; };
    return at(rows[0]) * r(j, 0) + at(rows[1]) * r(j, 1) + at(rows[2]) * r(j, 2);
  };
  return {element(0, 0), element(1, 1), element(2, 2), element(0, 1), element(0, 2), element(1, 2)};
}

}  // namespace lumira
