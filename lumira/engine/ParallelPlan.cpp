#include "lumira/engine/ParallelPlan.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>

#include "lumira/engine/FlatStructure.h"

namespace lumira {
namespace {

/// Where the smallest range that ends with each node begins, such that no node in the range uses one outside
/// of it.
std::vector<std::uint32_t> ClosedBegin(const FlatStructure& structure) {
  std::vector<std::uint32_t> begin(structure.NodeCount());
  for (std::uint32_t node = 0; node < begin.size(); ++node) {
    auto first = node;
    for (auto i = structure.EdgeBegin()[node]; i < structure.EdgeBegin()[node + 1]; ++i) {
      first = std::min(first, begin[structure.NodeEdges()[i].child]);
    }
    // Between the node and its smallest child others may stand that use still smaller ones.
    for (auto covered = node; covered > first; covered = begin[covered - 1]) {
      first = std::min(first, begin[covered - 1]);
    }
    begin[node] = first;
  }
  return begin;
}

}  // namespace

ParallelPlan::ParallelPlan(const FlatStructure& structure, std::uint32_t maxNodes) {
  const auto begin = ClosedBegin(structure);
  for (std::uint32_t last = structure.NodeCount(); last > 0;) {
    auto first = begin[last - 1];
    if (last - first > maxNodes) {
      _above.push_back(--last);
      continue;
    }
    while (first > 0 && last - begin[first - 1] <= maxNodes) first = begin[first - 1];
    _pieces.push_back({first, last});
    last = first;
  }
  std::ranges::reverse(_above);
}

void ParallelPlan::Run(unsigned threads, const std::function<void(NodeRange)>& compute) const {
  std::atomic<std::size_t> next{0};
  const auto work = [&] {
    for (auto i = next++; i < _pieces.size(); i = next++) compute(_pieces[i]);
  };
  {
    std::vector<std::jthread> helpers;
    try {
      while (helpers.size() + 1 < threads) helpers.emplace_back(work);
    } catch (const std::system_error&) {
      // No more threads to be had: the ones that run take all the work.
    }
    work();
  }
  for (const auto node : _above) compute({node, node + 1});
}

}  // namespace lumira
