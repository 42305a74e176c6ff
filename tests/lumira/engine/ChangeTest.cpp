#include <gtest/gtest.h>

#include "lumira/engine/NodeRollup.h"
#include "tests/lumira/engine/Products.h"

namespace lumira::test {
namespace {

void ExpectLikeFresh(const Rollup& rollup, const Product& product) {
  const auto fresh = RollUp(product);
  for (const auto& part : product.parts) {
    SCOPED_TRACE(part.id);
    ExpectSameBits(rollup.ResultOf(part.id).Value(), fresh.ResultOf(part.id).Value());
  }
}

TEST(Change, GivesBitForBitWhatAFreshRollupGives) {
  Dice dice(51);
  for (int round = 0; round < 15; ++round) {
    auto product = RandomProduct(dice, 4, 4, 6);
    auto rollup = RollUp(product);
    for (int change = 0; change < 4; ++change) {
      auto& part = product.parts[dice.Below(4)];
      part = dice.Item(part.id);
      ASSERT_EQ(rollup.ChangePart(part).Value(), Changed::PathComputed);
      ExpectLikeFresh(rollup, product);
    }
  }
}

TEST(Change, OfDataThatAppearAndVanishIsFollowed) {
  Dice dice(52);
  auto product = RandomProduct(dice, 3, 4, 6);
  auto rollup = RollUp(product);
  const MassProperties kinds[] = {{},
                                  {3.0, {}, {}},
                                  {3.0, Vec3{1, 2, 3}, {}},
                                  {-3.0, Vec3{1, 2, 3}, InertiaTensor{1, 1, 1}},
                                  {0.0, Vec3{1, 2, 3}, {}}};
  for (const auto& kind : kinds) {
    product.parts[0].massTypes[0].properties = kind;
    ASSERT_EQ(rollup.ChangePart(product.parts[0]).Value(), Changed::PathComputed);
    ExpectLikeFresh(rollup, product);
  }
}

TEST(Change, TheFirstDeviationInAProductBringsTheCovarianceOfAll) {
  Product product;
  product.parts = {Plain("root"), Weighed("a", {1.0, Vec3{}, InertiaTensor{}}),
                   Weighed("b", {1.0, Vec3{2, 0, 0}, InertiaTensor{}})};
  for (const auto* id : {"a", "b"}) Place(product, "root", id);
  auto rollup = RollUp(product);
  EXPECT_FALSE(rollup.ResultOf("root").Value().deviations);
  product.parts[1].massTypes[0].deviations.mass = 0.2;
  ASSERT_EQ(rollup.ChangePart(product.parts[1]).Value(), Changed::PathComputed);
  EXPECT_DOUBLE_EQ(rollup.ResultOf("root").Value().deviations->cg.x, 0.1);
}

TEST(Change, WhatDecidesBetweenAPartAndItsChildrenNeedsACompile) {
  Product product;
  product.parts = {Plain("root"), Weighed("a", {1.0, Vec3{}, InertiaTensor{}})};
  Place(product, "root", "a");
  auto rollup = RollUp(product);
  const auto own = Weighed("root", {5.0, Vec3{}, InertiaTensor{}});
  EXPECT_EQ(rollup.ChangePart(own).Value(), Changed::NeedsCompile);
  EXPECT_EQ(*rollup.ContributionOf("root").Value().mass, 1.0) << "nothing may change half";
  product.parts[0] = own;
  auto replaced = RollUp(product);
  EXPECT_EQ(replaced.ChangePart(Plain("root")).Value(), Changed::NeedsCompile);
}

TEST(Change, OfAnAssemblysOwnNumbersReachesItsParents) {
  Product product;
  product.parts = {Plain("root"), Weighed("sub", {5.0, Vec3{}, InertiaTensor{}}),
                   Weighed("a", {1.0, Vec3{}, InertiaTensor{}})};
  Place(product, "root", "sub");
  Place(product, "sub", "a");
  auto rollup = RollUp(product);
  product.parts[1].massTypes[0].properties.mass = 6.0;
  ASSERT_EQ(rollup.ChangePart(product.parts[1]).Value(), Changed::PathComputed);
  EXPECT_EQ(*rollup.ResultOf("root").Value().mass, 6.0);
  EXPECT_EQ(*rollup.ResultOf("sub").Value().mass, 1.0);
}

TEST(Change, IsCountedByTheNodesThatItComputes) {
  Product product;
  product.parts = {Plain("root"), Plain("left"), Plain("right"), Weighed("a", {1.0, Vec3{}, InertiaTensor{}}),
                   Weighed("b", {2.0, Vec3{}, InertiaTensor{}})};
  Place(product, "root", "left");
  Place(product, "root", "right");
  Place(product, "left", "a");
  Place(product, "right", "b");
  auto rollup = RollUp(product);
  EXPECT_EQ(rollup.ComputedNodes(), 3u) << "each assembly once";
  product.parts[3].massTypes[0].properties.mass = 5.0;
  ASSERT_EQ(rollup.ChangePart(product.parts[3]).Value(), Changed::PathComputed);
  EXPECT_EQ(rollup.ComputedNodes(), 5u) << "left and root";
  EXPECT_EQ(*rollup.ResultOf("root").Value().mass, 7.0);
}

TEST(Change, ToABadNumberIsRefusedAndChangesNothing) {
  Dice dice(53);
  auto product = RandomProduct(dice, 2, 3, 4);
  auto rollup = RollUp(product);
  auto bad = product.parts[0];
  bad.massTypes[0].properties.mass = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(rollup.ChangePart(bad).Failure().kind, protocol::ErrorKind::BadValue);
  ExpectLikeFresh(rollup, product);
}

TEST(Change, TouchesThePathToTheRootAndNothingElse) {
  // Ten thousand parts right below one root stand in bundles of 64: three levels of nodes, one computed on
  // each.
  Dice dice(54);
  ProductGraph graph;
  graph.parts.resize(10001);
  for (std::uint32_t i = 0; i < 10000; ++i) {
    graph.parts[i].item.mass = 1.0;
    graph.parts[i].item.massKnown = graph.parts[i].item.cgKnown = true;
    graph.edges.push_back({10000, i, 1.0, dice.Pose(5.0)});
  }
  const auto byParent = GroupByParent(graph);
  NodeRollup rollup(FlatStructure(graph, byParent, OrderBottomUp(graph, byParent).order), Spread::Ignore);
  EXPECT_EQ(rollup.Structure().NodeCount(), 157u + 3u + 1u);
  graph.parts[5000].item.mass = 2.0;
  EXPECT_EQ(rollup.Change(5000, graph.parts[5000]), 3u);
  EXPECT_EQ(rollup.SumsOf(rollup.Structure().NodeOf(10000)).state.mass, 10001.0);
}

TEST(Change, OfASharedPartTouchesEachNodeAboveItOnce) {
  ProductGraph graph;  // a diamond: 3 holds 1 and 2, both hold 0
  graph.parts.resize(4);
  graph.parts[0].item.massKnown = graph.parts[0].item.cgKnown = true;
  for (const auto& [parent, child] : {std::pair{1u, 0u}, {1u, 0u}, {2u, 0u}, {3u, 1u}, {3u, 2u}}) {
    graph.edges.push_back({parent, child, 1.0, {}});
  }
  const auto byParent = GroupByParent(graph);
  NodeRollup rollup(FlatStructure(graph, byParent, OrderBottomUp(graph, byParent).order), Spread::Ignore);
  graph.parts[0].item.mass = 2.0;
  EXPECT_EQ(rollup.Change(0, graph.parts[0]), 3u);
  EXPECT_EQ(rollup.SumsOf(rollup.Structure().NodeOf(3)).state.mass, 6.0);
}

}  // namespace
}  // namespace lumira::test
