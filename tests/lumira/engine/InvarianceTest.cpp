#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/lumira/engine/Products.h"

namespace lumira::test {
namespace {

/// A structure without sharing: every occurrence gets a part of its own. Quantities become single instances.
class Flattener {
 public:
  explicit Flattener(const Product& shared) : _shared(shared) {}

  Product Flatten(const std::string& root) {
    Copy(root, root);
    return _flat;
  }

 private:
  void Copy(const std::string& id, const std::string& as) {
    const auto part = std::ranges::find(_shared.parts, id, &Part::id);
    _flat.parts.push_back(*part);
    _flat.parts.back().id = as;
    for (const auto& instance : _shared.instances) {
      for (std::int64_t copy = 0; instance.parent == id && copy < instance.quantity; ++copy) {
        const auto child = as + "/" + instance.id + "." + std::to_string(copy);
        Place(_flat, as, child, instance.placement);
        Copy(instance.child, child);
      }
    }
  }

  const Product& _shared;
  Product _flat;
};

TEST(Invariance, ASharedStructureGivesWhatItsFlattenedCopyGives) {
  Dice dice(21);
  for (int round = 0; round < 6; ++round) {
    const auto shared = RandomProduct(dice, 3, 3, 3);
    const auto flat = Flattener(shared).Flatten("root");
    ASSERT_GT(flat.parts.size(), shared.parts.size());
    ExpectNear(ResultOf(shared, "root"), ResultOf(flat, "root"), 1e-11);
  }
}

TEST(Invariance, TheOrderOfStorageShowsInNoBit) {
  Dice dice(22);
  for (int round = 0; round < 10; ++round) {
    auto product = RandomProduct(dice, 4, 5, 20);
    const auto before = RollUp(product);
    std::ranges::shuffle(product.parts, dice.Source());
    std::ranges::shuffle(product.instances, dice.Source());
    const auto after = RollUp(product);
    for (const auto& part : product.parts) {
      ExpectSameBits(before.ResultOf(part.id).Value(), after.ResultOf(part.id).Value());
    }
  }
}

TEST(Invariance, TheOrderOfStorageShowsInNoBitWithMoreChildrenThanOneBundle) {
  Dice dice(23);
  Product product;
  product.parts.push_back(Plain("root"));
  for (int i = 0; i < 10; ++i) product.parts.push_back(dice.Item("leaf" + std::to_string(i)));
  for (int i = 0; i < 5000; ++i)
    Place(product, "root", "leaf" + std::to_string(dice.Below(10)), dice.Pose(50.0));
  const auto before = ResultOf(product, "root");
  std::ranges::shuffle(product.instances, dice.Source());
  ExpectSameBits(before, ResultOf(product, "root"));
}

TEST(Invariance, MovingTheWholeProductMovesTheCentreAndTurnsTheInertia) {
  Dice dice(24);
  for (int round = 0; round < 10; ++round) {
    auto product = RandomProduct(dice, 2, 3, 4);
    const auto pose = dice.Pose(30.0);
    product.parts.push_back(Plain("world"));
    Place(product, "world", "root", pose);
    const auto rollup = RollUp(product);
    const auto inside = rollup.ResultOf("root").Value(), outside = rollup.ResultOf("world").Value();
    EXPECT_DOUBLE_EQ(*inside.mass, *outside.mass);
    ExpectNear(pose * *inside.cg, *outside.cg, 1e-13 * (1.0 + Norm(*outside.cg)));
    const auto turned = Rotated(*inside.inertiaAtCg, pose.rotation);
    ExpectNear(turned, *outside.inertiaAtCg, 1e-13 * Trace(turned));
    EXPECT_DOUBLE_EQ(inside.deviations->mass, outside.deviations->mass);
    // The spread of the centre turns as a vector: its squared length stays.
    const auto& a = inside.deviations->cg;
    const auto& b = outside.deviations->cg;
    EXPECT_NEAR(Dot(a, a), Dot(b, b), 1e-10 * Dot(a, a));
  }
}

TEST(Invariance, AnAssemblyFarFromTheOriginKeepsItsDigits) {
  // A cube of eight balls, first near, then 10 000 km away along each axis. The shift is a sum of powers of
  // two, and so are the places: nothing is lost by writing them down, so nothing may be lost by adding them
  // up.
  const auto cubeAt = [](double far) {
    Product product;
    product.parts = {Plain("cube"), Weighed("ball", {3.0, Vec3{}, InertiaTensor{0.5, 0.5, 0.5}},
                                            {0.1, {0.01, 0.01, 0.01}, {0.1, 0.1, 0.1, 0.1, 0.1, 0.1}})};
    for (int i = 0; i < 8; ++i) {
      const Vec3 corner = {i & 1 ? 0.5 : -0.5, i & 2 ? 0.5 : -0.5, i & 4 ? 0.5 : -0.5};
      Place(product, "cube", "ball", {{}, corner + Vec3{far, far, far}});
    }
    return ResultOf(product, "cube");
  };
  const auto near = cubeAt(0.0), far = cubeAt(8388608.0);
  EXPECT_EQ(*far.cg, (Vec3{8388608.0, 8388608.0, 8388608.0}));
  EXPECT_EQ(*near.inertiaAtCg, *far.inertiaAtCg);
  EXPECT_EQ(near.inertiaAtCg->xx, 8 * (0.5 + 3.0 * 0.5));
  EXPECT_EQ(near.inertiaAtCg->xy, 0.0);
  ExpectRelative(*far.deviations, *near.deviations, 1e-14);
}

TEST(Invariance, AMillionEqualItemsAddUpWithoutDrift) {
  Product product;
  product.parts = {Plain("root"), Weighed("screw", {0.1, Vec3{}, InertiaTensor{}})};
  for (int i = 0; i < 100000; ++i)
    Place(product, "root", "screw", {{}, {static_cast<double>(i % 10), 0, 0}}, 10);
  const auto result = ResultOf(product, "root");
  EXPECT_NEAR(*result.mass, 1e5, 1e5 * 1e-15);
  EXPECT_NEAR(result.cg->x, 4.5, 4.5 * 2e-15);
  // Σ (x - 4.5)² over 0…9 is 82.5: 1e5 kg times 8.25 m².
  EXPECT_NEAR(result.inertiaAtCg->yy, 8.25e5, 8.25e5 * 2e-15);
}

TEST(Invariance, AChainOfAHundredThousandLevelsIsNotTooDeep) {
  Product product;
  product.parts = {Weighed("link0", {1.0, Vec3{}, InertiaTensor{}})};
  for (int i = 1; i <= 100000; ++i) {
    const auto id = "link" + std::to_string(i);
    product.parts.push_back(Plain(id));
    Place(product, id, "link" + std::to_string(i - 1), {{}, {1, 0, 0}});
  }
  const auto result = ResultOf(product, "link100000");
  EXPECT_EQ(*result.mass, 1.0);
  EXPECT_EQ(*result.cg, (Vec3{100000, 0, 0}));
}

TEST(Invariance, AStructureWithMoreOccurrencesThanAtomsIsComputedAtOnce) {
  Product product;
  product.parts = {Weighed("level0", {1.0, Vec3{}, InertiaTensor{}}, {0.5, {}, {}})};
  for (int i = 1; i <= 100; ++i) {
    const auto id = "level" + std::to_string(i), below = "level" + std::to_string(i - 1);
    product.parts.push_back(Plain(id));
    for (int k = 0; k < 8; ++k) Place(product, id, below);
  }
  const auto result = ResultOf(product, "level100");
  EXPECT_EQ(*result.mass, std::exp2(300));
  EXPECT_EQ(result.coverage.items, std::exp2(300));
  EXPECT_EQ(result.deviations->mass, 0.5 * std::exp2(150)) << "every occurrence is an item of its own";
}

}  // namespace
}  // namespace lumira::test
