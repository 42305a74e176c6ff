#pragma once

#include <cmath>

namespace lumira {

/// Three coordinates in one frame; the unit is that of the quantity (points: m, first moments: kg·m).
struct Vec3 {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;

  friend bool operator==(const Vec3&, const Vec3&) = default;
};

constexpr Vec3 operator+(const Vec3& a, const Vec3& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
constexpr Vec3 operator-(const Vec3& a, const Vec3& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
constexpr Vec3 operator-(const Vec3& a) { return {-a.x, -a.y, -a.z}; }
constexpr Vec3 operator*(double k, const Vec3& a) { return {k * a.x, k * a.y, k * a.z}; }
constexpr double Dot(const Vec3& a, const Vec3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline double Norm(const Vec3& a) { return std::hypot(a.x, a.y, a.z); }
inline bool IsFinite(const Vec3& a) { return std::isfinite(a.x) && std::isfinite(a.y) && std::isfinite(a.z); }

}  // namespace lumira
