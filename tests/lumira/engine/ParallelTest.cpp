#include <gtest/gtest.h>

#include <cstring>
#include <mutex>
#include <set>

#include "lumira/engine/NodeRollup.h"
#include "tests/lumira/engine/Products.h"

namespace lumira::test {
namespace {

ProductGraph EightEach(Dice& dice, std::uint32_t items) {
  ProductGraph graph;
  for (std::uint32_t i = 0; i < items; ++i) {
    auto& item = graph.parts.emplace_back().item;
    item = {dice.Between(1, 2),
            dice.Point(1),
            {1, 2, 3, 0, 0, 0},
            {0.1, {0.1, 0.1, 0.1}, {1, 1, 1, 1, 1, 1}},
            {},
            true,
            true,
            true,
            false};
  }
  for (std::uint32_t from = 0, to = items; to - from > 1;
       from = to, to = static_cast<std::uint32_t>(graph.parts.size())) {
    for (auto child = from; child < to; ++child) {
      if ((child - from) % 8 == 0) graph.parts.emplace_back();
      graph.edges.push_back({static_cast<std::uint32_t>(graph.parts.size()) - 1, child, 1.0, dice.Pose(5.0)});
    }
  }
  return graph;
}

FlatStructure Flatten(const ProductGraph& graph) {
  const auto byParent = GroupByParent(graph);
  return {graph, byParent, OrderBottomUp(graph, byParent).order};
}

void ExpectSameSums(const NodeRollup& a, const NodeRollup& b) {
  for (std::uint32_t node = 0; node < a.Structure().NodeCount(); ++node) {
    const auto x = a.SumsOf(node), y = b.SumsOf(node);
    ASSERT_EQ(0, std::memcmp(&x.state, &y.state, sizeof x.state)) << node;
    ASSERT_EQ(x.coverage, y.coverage) << node;
    ASSERT_EQ(0, std::memcmp(x.covariance->packed, y.covariance->packed, sizeof x.covariance->packed))
        << node;
  }
}

TEST(Parallel, TheNumberOfThreadsShowsInNoBit) {
  Dice dice(61);
  const auto graph = EightEach(dice, 60000);
  const NodeRollup alone(Flatten(graph), Spread::Carry, 1);
  for (const unsigned threads : {2u, 3u, 7u})
    ExpectSameSums(alone, NodeRollup(Flatten(graph), Spread::Carry, threads));
}

TEST(Parallel, TheProcessorTypeShowsInNoBit) {
  Dice dice(62);
  const auto graph = EightEach(dice, 3000);
  ExpectSameSums(NodeRollup(Flatten(graph), Spread::Carry, 1, RollUpNodesBaseline),
                 NodeRollup(Flatten(graph), Spread::Carry, 1, BestKernel()));
}

/// 30 000 items right below one root, so many that they stand in bundles of bundles; and an assembly beside
/// them.
ProductGraph Wide(Dice& dice) {
  auto graph = EightEach(dice, 2000);
  const auto assembly = static_cast<std::uint32_t>(graph.parts.size()) - 1;
  graph.parts.emplace_back();
  for (std::uint32_t i = 0; i < 30000; ++i)
    graph.edges.push_back({assembly + 1, i % 2000, 1.0, dice.Pose(5.0)});
  graph.edges.push_back({assembly + 1, assembly, 1.0, {}});
  return graph;
}

void ExpectSoundPlan(const FlatStructure& flat, const ParallelPlan& plan, std::uint32_t maxNodes) {
  std::set<std::uint32_t> seen(plan.Above().begin(), plan.Above().end());
  for (const auto& [first, last] : plan.Pieces()) {
    EXPECT_LE(last - first, maxNodes);
    for (auto node = first; node < last; ++node) {
      EXPECT_TRUE(seen.insert(node).second) << node;
      for (auto e = flat.EdgeBegin()[node]; e < flat.EdgeBegin()[node + 1]; ++e) {
        EXPECT_GE(flat.NodeEdges()[e].child, first) << "a piece uses nothing outside of itself";
      }
    }
  }
  EXPECT_EQ(seen.size(), flat.NodeCount());
}

TEST(Parallel, EveryNodeIsInOnePieceOrAboveThemAll) {
  Dice dice(63);
  const auto flat = Flatten(EightEach(dice, 20000));
  const ParallelPlan plan(flat, 100);
  ExpectSoundPlan(flat, plan, 100);
  EXPECT_GT(plan.Pieces().size(), 20u);
}

TEST(Parallel, BundlesOfBundlesAreSharedOutToo) {
  Dice dice(65);
  const auto graph = Wide(dice);
  const auto flat = Flatten(graph);
  const ParallelPlan plan(flat, 50);
  ExpectSoundPlan(flat, plan, 50);
  EXPECT_GT(plan.Pieces().size(), 5u);
  std::vector<bool> done(flat.NodeCount());
  plan.Run(1, [&](NodeRange nodes) {
    for (auto node = nodes.first; node < nodes.last; ++node) {
      for (auto e = flat.EdgeBegin()[node]; e < flat.EdgeBegin()[node + 1]; ++e) {
        EXPECT_TRUE(done[flat.NodeEdges()[e].child]) << "below comes before above";
      }
      done[node] = true;
    }
  });
  ExpectSameSums(NodeRollup(Flatten(graph), Spread::Carry, 1), NodeRollup(Flatten(graph), Spread::Carry, 4));
}

TEST(Parallel, NodesThatManyShareAreNotComputedTwiceAtOnce) {
  ProductGraph graph;  // each level holds the one below twice
  graph.parts.resize(50);
  graph.parts[0].item.massKnown = true;
  for (std::uint32_t i = 1; i < 50; ++i) {
    for (int k = 0; k < 2; ++k) graph.edges.push_back({i, i - 1, 1.0, {}});
  }
  const auto flat = Flatten(graph);
  const ParallelPlan plan(flat, 10);
  ASSERT_EQ(plan.Pieces().size(), 1u);
  EXPECT_EQ(plan.Pieces()[0], (NodeRange{0, 10}));
  EXPECT_EQ(plan.Above().size(), 39u);
}

TEST(Parallel, ThePlanRunsEveryPieceOnceAndThenTheRestInOrder) {
  Dice dice(64);
  const ParallelPlan plan(Flatten(EightEach(dice, 20000)), 100);
  std::mutex mutex;
  std::vector<NodeRange> ran;
  plan.Run(4, [&](NodeRange nodes) {
    const std::lock_guard lock(mutex);
    ran.push_back(nodes);
  });
  ASSERT_EQ(ran.size(), plan.Pieces().size() + plan.Above().size());
  for (std::size_t i = 0; i < plan.Above().size(); ++i) {
    EXPECT_EQ(ran[plan.Pieces().size() + i].first, plan.Above()[i]);
  }
}

}  // namespace
}  // namespace lumira::test
