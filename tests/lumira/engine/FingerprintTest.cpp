#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "tests/lumira/engine/Products.h"

namespace lumira::test {
namespace {

Product Nested() {
  Product product;
  product.parts = {Plain("root"), Plain("sub"), Weighed("a", {1.0, Vec3{1, 2, 3}, InertiaTensor{1, 1, 1}}),
                   Weighed("b", {2.0, Vec3{}, {}})};
  Place(product, "root", "sub", {RotationAboutY(0.5), {1, 2, 3}}, 2);
  Place(product, "sub", "a", {{}, {5, 0, 0}});
  Place(product, "sub", "b");
  return product;
}

std::string Print(const Product& product, const std::string& part = "root") {
  return ToText(RollUp(product).FingerprintOf(part).Value());
}

std::string PrintAfter(const std::function<void(Product&)>& change, const std::string& part = "root") {
  auto product = Nested();
  change(product);
  return Print(product, part);
}

TEST(Fingerprints, AreTheSameForTheSameNumbersInAnyOrder) {
  EXPECT_EQ(Print(Nested()), PrintAfter([](Product& p) {
              std::ranges::reverse(p.parts);
              std::ranges::reverse(p.instances);
            }));
}

TEST(Fingerprints, DoNotDependOnNames) {
  EXPECT_EQ(Print(Nested()), PrintAfter([](Product& p) {
              p.instances[1].id = "renamed";
              p.parts[2].name = "renamed";
            }));
}

TEST(Fingerprints, AnswerToEveryNumberBelow) {
  const std::function<void(Product&)> changes[] = {
      [](Product& p) { *p.parts[2].massTypes[0].properties.mass += 1e-15; },
      [](Product& p) { p.parts[2].massTypes[0].properties.cg->z = 4.0; },
      [](Product& p) { p.parts[2].massTypes[0].properties.inertia->yz = 0.1; },
      [](Product& p) { p.parts[2].massTypes[0].properties.inertia.reset(); },
      [](Product& p) { p.parts[2].massTypes[0].deviations.cg.x = 0.1; },
      [](Product& p) { p.parts[2].massTypes[0].bounds = MassBounds{}; },
      [](Product& p) { p.instances[1].placement.translation.x = 6.0; },
      [](Product& p) { p.instances[0].placement.rotation = RotationAboutY(0.25); },
      [](Product& p) { p.instances[2].quantity = 2; },
      [](Product& p) { p.instances.pop_back(); },
      [](Product& p) { Place(p, "sub", "b"); },
      [](Product& p) { std::swap(p.instances[1].child, p.instances[2].child); },
  };
  std::vector<std::string> prints{Print(Nested())};
  for (const auto& change : changes) prints.push_back(PrintAfter(change));
  for (std::size_t i = 0; i < prints.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) EXPECT_NE(prints[i], prints[j]) << "changes " << i << " and " << j;
  }
}

TEST(Fingerprints, OfOtherBranchesStay) {
  EXPECT_EQ(Print(Nested(), "b"),
            PrintAfter([](Product& p) { *p.parts[2].massTypes[0].properties.mass = 9; }, "b"));
  EXPECT_EQ(Print(Nested(), "sub"), PrintAfter([](Product& p) { p.instances[0].quantity = 9; }, "sub"));
}

TEST(Fingerprints, BelowAnAssemblyThatCountsWithItsOwnDataDoNotReachItsParents) {
  const auto own = [](Product& p) { p.parts[1] = Weighed("sub", {5.0, Vec3{}, {}}); };
  const auto ownAndChanged = [&](Product& p) {
    own(p);
    *p.parts[2].massTypes[0].properties.mass = 9.0;
  };
  EXPECT_EQ(PrintAfter(own), PrintAfter(ownAndChanged));
  EXPECT_NE(PrintAfter(own, "sub"), PrintAfter(ownAndChanged, "sub"));
}

TEST(Fingerprints, ZeroHasNoSign) {
  EXPECT_EQ(PrintAfter([](Product& p) { p.instances[2].placement.translation.x = -0.0; }), Print(Nested()));
}

TEST(Fingerprints, StayTheSameFromVersionToVersion) {
  // Worked out from the definition in another language: a result stored long ago has to be found up to date.
  EXPECT_EQ(ToText(Combine({1, 2}, {3, 4})), "ba1e65dd0b2198c1ffb186540a41069c");
}

TEST(Fingerprints, AreWrittenAsThirtyTwoDigits) {
  EXPECT_EQ(ToText({0x0123456789abcdefu, 0xfedcba9876543210u}), "0123456789abcdeffedcba9876543210");
}

TEST(Fingerprints, AfterAChangeAreThoseOfAFreshCompile) {
  Dice dice(41);
  for (int round = 0; round < 20; ++round) {
    auto product = RandomProduct(dice, 4, 4, 5);
    auto rollup = RollUp(product);
    for (int change = 0; change < 5; ++change) {
      auto& part = product.parts[dice.Below(4)];
      part = dice.Item(part.id);
      ASSERT_EQ(rollup.ChangePart(part).Value(), Changed::PathComputed);
    }
    const auto fresh = RollUp(product);
    for (const auto& part : product.parts) {
      EXPECT_EQ(rollup.FingerprintOf(part.id).Value(), fresh.FingerprintOf(part.id).Value()) << part.id;
    }
  }
}

}  // namespace
}  // namespace lumira::test
