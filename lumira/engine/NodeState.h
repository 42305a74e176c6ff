#pragma once

#include <cstddef>

namespace lumira {

/// The additive sums of one node, in the frame of its part, about a reference point close to its centre of
/// gravity. The point is as good as any for exactness, but a close one keeps the digits: nothing is ever
/// added about a far origin. Only items with a known centre of gravity are in here.
struct NodeState {
  double reference[3] = {};  ///< mean of the centres below, weighted with |mass|; m
  double mass = 0.0;         ///< kg
  double absMass = 0.0;      ///< sum of |mass|, kg
  double moment[3] = {};     ///< first moments about the reference, kg·m; close to zero unless masses cancel
  double inertia[6] = {};    ///< tensor xx yy zz xy xz yz about the reference, kg·m²
};

/// Number of entries on and above the diagonal of the 10x10 covariance.
inline constexpr std::size_t kCovarianceSize = 55;

/// Where the blocks of a packed covariance of the ten additive sums stand: mass m, first moments s (3),
/// inertia J (6, order xx yy zz xy xz yz).
struct CovarianceLayout {
  static constexpr std::size_t mm = 0;
  static constexpr std::size_t ms = 1;   ///< 3
  static constexpr std::size_t mj = 4;   ///< 6
  static constexpr std::size_t ss = 10;  ///< 6: xx yy zz xy xz yz
  static constexpr std::size_t sj = 16;  ///< 18: row i, column a at 6i + a
  static constexpr std::size_t jj = 34;  ///< 21: upper triangle, row by row
};

/// Covariance of the sums of a node about its (fixed) reference point; units follow from the sums.
struct alignas(64) NodeCovariance {
  double packed[kCovarianceSize] = {};
};

}  // namespace lumira
