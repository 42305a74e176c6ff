#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "tests/lumira/engine/Products.h"

namespace lumira::test {
namespace {

struct PlacedItem {
  Part part;
  Placement placement;  ///< in the root
};

std::vector<PlacedItem> RandomItems(Dice& dice, int count, double reach) {
  std::vector<PlacedItem> items;
  for (int i = 0; i < count; ++i) items.push_back({dice.Item("leaf" + std::to_string(i)), dice.Pose(reach)});
  return items;
}

Product Flat(const std::vector<PlacedItem>& items) {
  Product product;
  product.parts.push_back(Plain("root"));
  for (const auto& [part, placement] : items) {
    product.parts.push_back(part);
    Place(product, "root", part.id, placement);
  }
  return product;
}

/// The same items in the same places, below a random tree of groups, each turned and moved.
Product Grouped(Dice& dice, const std::vector<PlacedItem>& items, int groups) {
  Product product;
  product.parts.push_back(Plain("root"));
  std::vector<std::pair<std::string, Placement>> frames{{"root", {}}};
  for (int g = 0; g < groups; ++g) {
    const auto [parent, parentFrame] = frames[dice.Below(frames.size())];
    const auto own = dice.Pose(20.0);
    const auto id = "group" + std::to_string(g);
    product.parts.push_back(Plain(id));
    Place(product, parent, id, own);
    frames.emplace_back(id, parentFrame * own);
  }
  for (const auto& [part, placement] : items) {
    const auto& [parent, frame] = frames[dice.Below(frames.size())];
    product.parts.push_back(part);
    Place(product, parent, part.id, Inverse(frame) * placement);
  }
  return product;
}

TEST(Covariance, DoesNotDependOnHowTheSameLeavesAreGrouped) {
  Dice dice(11);
  for (int round = 0; round < 40; ++round) {
    const auto items = RandomItems(dice, 3 + static_cast<int>(dice.Below(40)), 8.0);
    const auto flat = ResultOf(Flat(items), "root");
    const auto grouped = ResultOf(Grouped(dice, items, 1 + static_cast<int>(dice.Below(12))), "root");
    ExpectNear(*flat.cg, *grouped.cg, 1e-11);
    ExpectRelative(*grouped.deviations, *flat.deviations, 1e-10);
  }
}

TEST(Covariance, KnowsWhatRootSumSquareLevelByLevelForgets) {
  // Two items 4 m apart whose masses deviate by 1 kg, in a pair; beside it a third item without deviation.
  const Deviations oneKilogram = {1.0, {}, {}};
  Product product;
  product.parts = {Plain("root"), Plain("pair"),
                   Weighed("a", {10.0, Vec3{0, 0, 0}, InertiaTensor{}}, oneKilogram),
                   Weighed("b", {10.0, Vec3{4, 0, 0}, InertiaTensor{}}, oneKilogram),
                   Weighed("c", {20.0, Vec3{10, 0, 0}, InertiaTensor{}})};
  for (const auto* id : {"a", "b"}) Place(product, "pair", id);
  for (const auto* id : {"pair", "c"}) Place(product, "root", id);
  const auto rollup = RollUp(product);
  const auto pair = *rollup.ResultOf("pair").Value().deviations;
  EXPECT_DOUBLE_EQ(pair.mass, std::sqrt(2.0));
  EXPECT_DOUBLE_EQ(pair.cg.x, std::sqrt(8.0) / 20.0);
  EXPECT_DOUBLE_EQ(pair.inertia.yy, std::sqrt(32.0));
  // From these alone, as if they were independent, the pair 4 m from the centre of all would give
  const double forgetful =
      std::sqrt(32.0 + std::pow(16.0 * std::sqrt(2.0), 2) + std::pow(2 * 20 * 4 * pair.cg.x, 2));
  EXPECT_NEAR(forgetful, std::sqrt(1056.0), 1e-12);
  // while the items stand 6 m and 2 m from it:
  EXPECT_DOUBLE_EQ(rollup.ResultOf("root").Value().deviations->inertia.yy,
                   std::sqrt(36.0 * 36.0 + 4.0 * 4.0));
}

TEST(Covariance, TheMassOfOneItemMovesTheCentreByItsLeverArm) {
  Product product;
  product.parts = {Plain("root"), Weighed("a", {3.0, Vec3{}, InertiaTensor{}}, {0.3, {}, {}}),
                   Weighed("b", {1.0, Vec3{}, InertiaTensor{}})};
  Place(product, "root", "a", {{}, {0, 0, 0}});
  Place(product, "root", "b", {{}, {4, 0, 0}});
  const auto deviations = *ResultOf(product, "root").deviations;
  EXPECT_DOUBLE_EQ(deviations.mass, 0.3);
  EXPECT_DOUBLE_EQ(deviations.cg.x, 0.3 * 1.0 / 4.0);  // a stands 1 m from the centre of 4 kg
  EXPECT_EQ(deviations.cg.y, 0.0);
  EXPECT_DOUBLE_EQ(deviations.inertia.yy, 0.3 * 1.0);  // d²
  EXPECT_EQ(deviations.inertia.xx, 0.0);
}

TEST(Covariance, ThePlaceOfOneItemMovesTheInertiaByTwiceMassTimesLeverArm) {
  Product product;
  product.parts = {Plain("root"), Weighed("a", {3.0, Vec3{}, InertiaTensor{}}, {0, {0.01, 0, 0}, {}}),
                   Weighed("b", {1.0, Vec3{}, InertiaTensor{}})};
  Place(product, "root", "a", {{}, {0, 0, 0}});
  Place(product, "root", "b", {{}, {4, 0, 0}});
  const auto deviations = *ResultOf(product, "root").deviations;
  EXPECT_DOUBLE_EQ(deviations.cg.x, 3.0 * 0.01 / 4.0);
  EXPECT_DOUBLE_EQ(deviations.inertia.zz, 2.0 * 3.0 * 1.0 * 0.01);
  EXPECT_DOUBLE_EQ(deviations.inertia.xy, 0.0);
}

TEST(Covariance, ATurnedItemTakesItsDeviationsWithIt) {
  Product product;
  product.parts = {Plain("root"), Weighed("a", {2.0, Vec3{}, InertiaTensor{1, 1, 1}},
                                          {0, {0.1, 0.2, 0.3}, {1, 2, 3, 4, 5, 6}})};
  Place(product, "root", "a", {{{0, -1, 0, 1, 0, 0, 0, 0, 1}}, {5, 6, 7}});  // x to y, y to -x
  const auto deviations = *ResultOf(product, "root").deviations;
  ExpectNear(deviations.cg, {0.2, 0.1, 0.3}, 1e-15);
  ExpectNear(deviations.inertia, {2, 1, 3, 4, 6, 5}, 1e-12);
}

TEST(Covariance, CopiesAreIndependentItemsSoTheirVariancesAdd) {
  Dice dice(12);
  const auto part = dice.Item("leaf");
  const auto pose = dice.Pose(4.0);
  Product nine, listed;
  nine.parts = listed.parts = {Plain("root"), part};
  Place(nine, "root", "leaf", pose, 9);
  for (int i = 0; i < 9; ++i) Place(listed, "root", "leaf", pose);
  const auto result = ResultOf(nine, "root");
  EXPECT_DOUBLE_EQ(result.deviations->mass, 3.0 * part.massTypes[0].deviations.mass);
  ExpectNear(result, ResultOf(listed, "root"), 1e-12);
}

TEST(Covariance, CopiesOfAnAssemblyAreIndependentToo) {
  Dice dice(13);
  Product nine, listed;
  nine.parts = listed.parts = {Plain("root"), Plain("sub"), dice.Item("a"), dice.Item("b")};
  const Placement poses[] = {dice.Pose(4.0), dice.Pose(4.0), dice.Pose(4.0)};
  for (auto* product : {&nine, &listed}) {
    Place(*product, "sub", "a", poses[0]);
    Place(*product, "sub", "b", poses[1], 2);
  }
  Place(nine, "root", "sub", poses[2], 9);
  for (int i = 0; i < 9; ++i) Place(listed, "root", "sub", poses[2]);
  ExpectNear(ResultOf(nine, "root"), ResultOf(listed, "root"), 1e-12);
}

TEST(Covariance, AMassWithoutCentreDeviatesTheTotalMassOnly) {
  Product product;
  product.parts = {Plain("root"), Weighed("a", {3.0, Vec3{1, 2, 3}, InertiaTensor{}}, {0.3, {}, {}}),
                   Weighed("loose", {5.0, {}, {}}, {0.4, {9, 9, 9}, {9, 9, 9, 9, 9, 9}})};
  for (const auto* id : {"a", "loose"}) Place(product, "root", id);
  const auto deviations = *ResultOf(product, "root").deviations;
  EXPECT_DOUBLE_EQ(deviations.mass, 0.5);
  EXPECT_EQ(deviations.cg, (Vec3{}));
}

TEST(Covariance, AProductWithoutAnyDeviationAnswersNone) {
  Product product;
  product.parts = {Plain("root"), Weighed("a", {3.0, Vec3{1, 2, 3}, InertiaTensor{}})};
  Place(product, "root", "a");
  EXPECT_FALSE(ResultOf(product, "root").deviations);
}

TEST(Covariance, IsNotComputedWhenItIsNotAskedFor) {
  Dice dice(14);
  auto compiled = Compile(Flat(RandomItems(dice, 3, 2.0)));
  ASSERT_TRUE(compiled);
  const Rollup rollup(std::move(compiled).Value(), Spread::Ignore);
  EXPECT_FALSE(rollup.ResultOf("root").Value().deviations);
  EXPECT_TRUE(rollup.ResultOf("leaf0").Value().deviations) << "those of a part itself need no computation";
}

/// A random variable's sample variance over n runs has a relative standard error of √(2/(n-1)).
class MonteCarlo {
 public:
  void Add(const std::array<double, 10>& sample) {
    ++_count;
    for (std::size_t i = 0; i < sample.size(); ++i) {  // Welford (1962)
      const double delta = sample[i] - _mean[i];
      _mean[i] += delta / _count;
      _squares[i] += delta * (sample[i] - _mean[i]);
    }
  }

  double Deviation(std::size_t i) const { return std::sqrt(_squares[i] / (_count - 1)); }
  double RelativeError() const { return std::sqrt(0.5 / (_count - 1)); }

 private:
  double _count = 0.0;
  std::array<double, 10> _mean{}, _squares{};
};

/// Total by its definition, without the engine: sums about the root's origin, then about the centre.
std::array<double, 10> TotalOf(const std::vector<PlacedItem>& items) {
  double mass = 0.0;
  Vec3 moment;
  InertiaTensor inertia;
  for (const auto& [part, placement] : items) {
    const auto& p = part.massTypes[0].properties;
    const Vec3 at = placement * *p.cg;
    mass += *p.mass;
    moment = moment + *p.mass * at;
    inertia = inertia + ShiftedFromCg(Rotated(*p.inertia, placement.rotation), *p.mass, at);
  }
  const Vec3 cg = (1.0 / mass) * moment;
  const auto i = ShiftedToCg(inertia, mass, cg);
  return {mass, cg.x, cg.y, cg.z, i.xx, i.yy, i.zz, i.xy, i.xz, i.yz};
}

void Shake(Dice& dice, Part& part) {
  auto& [mass, cg, inertia] = part.massTypes[0].properties;
  const auto& deviations = part.massTypes[0].deviations;
  *mass += deviations.mass * dice.Normal();
  *cg = *cg + Vec3{deviations.cg.x * dice.Normal(), deviations.cg.y * dice.Normal(),
                   deviations.cg.z * dice.Normal()};
  const auto& s = deviations.inertia;
  *inertia = *inertia + InertiaTensor{s.xx * dice.Normal(), s.yy * dice.Normal(), s.zz * dice.Normal(),
                                      s.xy * dice.Normal(), s.xz * dice.Normal(), s.yz * dice.Normal()};
}

TEST(Covariance, AgreesWithAMonteCarloRunWithinItsOwnError) {
  Dice dice(15);
  auto items = RandomItems(dice, 12, 6.0);
  for (auto& item : items) {  // small, so that the first order is all there is
    auto& d = item.part.massTypes[0].deviations;
    d = {0.01 * d.mass, 0.01 * d.cg, 0.01 * d.inertia};
  }
  const auto expected = *ResultOf(Grouped(dice, items, 4), "root").deviations;
  MonteCarlo samples;
  for (int run = 0; run < 20000; ++run) {
    auto shaken = items;
    for (auto& item : shaken) Shake(dice, item.part);
    samples.Add(TotalOf(shaken));
  }
  const auto& i = expected.inertia;
  const double engine[10] = {expected.mass, expected.cg.x, expected.cg.y, expected.cg.z, i.xx,
                             i.yy,          i.zz,          i.xy,          i.xz,          i.yz};
  for (std::size_t k = 0; k < 10; ++k) {
    EXPECT_NEAR(engine[k], samples.Deviation(k), 4.0 * samples.RelativeError() * engine[k])
        << "quantity " << k;
  }
}

}  // namespace
}  // namespace lumira::test
