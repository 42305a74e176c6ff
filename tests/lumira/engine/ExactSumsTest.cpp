#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "tests/lumira/engine/Products.h"

namespace lumira::test {
namespace {

__extension__ using Exact = __int128;

/// Six numbers that add up without rounding.
using ExactTensor = std::array<Exact, 6>;

/// A point mass in integers: kilograms and metres in the root.
struct Point {
  Exact mass, x, y, z;
};

/// The total inertia about the centre times the total mass: M·Σ m·K(r) - K(Σ m·r), which is an integer.
ExactTensor InertiaTimesMass(const std::vector<Point>& points) {
  Exact m = 0, sx = 0, sy = 0, sz = 0, xx = 0, yy = 0, zz = 0, xy = 0, xz = 0, yz = 0;
  for (const auto& p : points) {
    m += p.mass;
    sx += p.mass * p.x, sy += p.mass * p.y, sz += p.mass * p.z;
    xx += p.mass * p.x * p.x, yy += p.mass * p.y * p.y, zz += p.mass * p.z * p.z;
    xy += p.mass * p.x * p.y, xz += p.mass * p.x * p.z, yz += p.mass * p.y * p.z;
  }
  const auto about = [m](Exact second, Exact a, Exact b) { return m * second - a * b; };
  const Exact vx = about(xx, sx, sx), vy = about(yy, sy, sy), vz = about(zz, sz, sz);
  return {vy + vz, vx + vz, vx + vy, -about(xy, sx, sy), -about(xz, sx, sz), -about(yz, sy, sz)};
}

/// One of the 24 rotations that map the axes on to each other.
Rotation AxisTurn(Dice& dice) {
  std::array<std::size_t, 3> axes = {0, 1, 2};
  std::ranges::shuffle(axes, dice.Source());
  Rotation turn;
  turn.m.fill(0.0);
  for (std::size_t row = 0; row < 3; ++row) turn.m[3 * row + axes[row]] = dice.Below(2) == 0 ? 1.0 : -1.0;
  if (Determinant(turn) < 0.0) {
    for (std::size_t i = 0; i < 3; ++i) turn.m[i] = -turn.m[i];
  }
  return turn;
}

Vec3 Whole(Dice& dice, int reach) {
  const auto one = [&] {
    return static_cast<double>(dice.Below(static_cast<std::size_t>(2 * reach + 1))) - reach;
  };
  return {one(), one(), one()};
}

class Tree {
 public:
  explicit Tree(Dice& dice) : _dice(dice) { product.parts.push_back(Plain("root")); }

  void Grow(const std::string& parent, const Placement& frame, int levels) {
    for (int i = 0; i < 6; ++i) {
      const auto id = parent + std::to_string(i);
      const Placement pose = {AxisTurn(_dice), Whole(_dice, 50)};
      if (levels > 0 && i < 3) {
        product.parts.push_back(Plain(id));
        Grow(id, frame * pose, levels - 1);
      } else {
        AddPoint(id, frame * pose);
      }
      Place(product, parent, id, pose);
    }
  }

  Product product;
  std::vector<Point> points;

 private:
  void AddPoint(const std::string& id, const Placement& frame) {
    const Vec3 own = Whole(_dice, 20);
    const auto mass = static_cast<double>(1 + _dice.Below(1000));
    product.parts.push_back(Weighed(id, {mass, own, InertiaTensor{}}));
    const auto at = frame * own;
    points.push_back({static_cast<Exact>(mass), static_cast<Exact>(at.x), static_cast<Exact>(at.y),
                      static_cast<Exact>(at.z)});
  }

  Dice& _dice;
};

TEST(ExactSums, IntegerTreesComeOutAsExactArithmeticHasThem) {
  Dice dice(31);
  for (int round = 0; round < 20; ++round) {
    Tree tree(dice);
    tree.Grow("root", {}, 3);
    Exact mass = 0, mx = 0, my = 0, mz = 0;
    for (const auto& p : tree.points)
      mass += p.mass, mx += p.mass * p.x, my += p.mass * p.y, mz += p.mass * p.z;
    const auto result = ResultOf(tree.product, "root");
    EXPECT_EQ(static_cast<Exact>(*result.mass), mass);
    const auto ratio = [mass](Exact a) {
      return static_cast<double>(static_cast<long double>(a) / static_cast<long double>(mass));
    };
    ExpectNear(*result.cg, {ratio(mx), ratio(my), ratio(mz)}, 3e-14);
    const auto exact = InertiaTimesMass(tree.points);
    const InertiaTensor expected = {ratio(exact[0]), ratio(exact[1]), ratio(exact[2]),
                                    ratio(exact[3]), ratio(exact[4]), ratio(exact[5])};
    ExpectNear(*result.inertiaAtCg, expected, 1e-15 * Trace(expected));
  }
}

TEST(ExactSums, NegativeItemsCutOutExactlyWhatPositiveOnesPutIn) {
  Dice dice(32);
  Tree tree(dice);
  tree.Grow("root", {}, 2);
  const auto before = ResultOf(tree.product, "root");
  tree.product.parts.push_back(Weighed("block", {64.0, Vec3{1, 2, 3}, InertiaTensor{8, 8, 8}}));
  tree.product.parts.push_back(Weighed("hole", {-64.0, Vec3{1, 2, 3}, InertiaTensor{-8, -8, -8}}));
  for (const auto* id : {"block", "hole"}) Place(tree.product, "root", id, {{}, {7, 8, 9}});
  ExpectNear(ResultOf(tree.product, "root"), before, 1e-14);
}

}  // namespace
}  // namespace lumira::test
