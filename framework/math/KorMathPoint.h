#pragma once

/// A point or vector of three doubles. The unit is the caller's.
class KorMathPoint {
 public:
  constexpr KorMathPoint() = default;
  constexpr KorMathPoint(double x, double y, double z) : _x(x), _y(y), _z(z) {}

  constexpr double GetX() const { return _x; }
  constexpr double GetY() const { return _y; }
  constexpr double GetZ() const { return _z; }
  constexpr void SetCoord(double x, double y, double z) { *this = KorMathPoint(x, y, z); }

  friend constexpr KorMathPoint operator+(const KorMathPoint& a, const KorMathPoint& b) {
    return {a._x + b._x, a._y + b._y, a._z + b._z};
  }
  friend constexpr KorMathPoint operator-(const KorMathPoint& a, const KorMathPoint& b) {
    return {a._x - b._x, a._y - b._y, a._z - b._z};
  }
  friend constexpr KorMathPoint operator*(double factor, const KorMathPoint& p) {
    return {factor * p._x, factor * p._y, factor * p._z};
  }
  friend constexpr bool operator==(const KorMathPoint&, const KorMathPoint&) = default;

 private:
  double _x = 0, _y = 0, _z = 0;
};

/// The origin.
inline constexpr KorMathPoint KorMathO{};
