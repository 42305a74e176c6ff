#include "lumira/engine/NodeRollup.h"

#include <algorithm>
#include <functional>
#include <queue>
#include <thread>
#include <utility>

namespace lumira {
namespace {

/// A share of the work that is worth a thread, in nodes; and how many shares each gets, to even out their
/// sizes.
constexpr std::uint32_t kSmallestShare = 1024;
constexpr std::uint32_t kSharesPerThread = 8;

/// Hands out the smallest node first, each once: below before above.
class BottomUpQueue {
 public:
  template <class Nodes>
  void Push(const Nodes& nodes) {
    for (const std::uint32_t node : nodes) _queue.push(node);
  }

  bool Pop(std::uint32_t& node) {
    if (_queue.empty()) return false;
    node = _queue.top();
    while (!_queue.empty() && _queue.top() == node) _queue.pop();
    return true;
  }

 private:
  std::priority_queue<std::uint32_t, std::vector<std::uint32_t>, std::greater<>> _queue;
};

}  // namespace

NodeRollup::NodeRollup(FlatStructure structure, Spread spread, unsigned threads, RollupKernel kernel)
    : _structure(std::move(structure)),
      _spread(spread),
      _threads(threads != 0 ? threads : std::max(1u, std::thread::hardware_concurrency())),
      _kernel(kernel),
      _plan(_structure, std::max(kSmallestShare, _structure.NodeCount() / (kSharesPerThread * _threads))),
      _states(_structure.NodeCount()),
      _coverages(_structure.NodeCount()) {
  Compute();
}

void NodeRollup::Compute() {
  if (CarriesCovariance()) _covariances.resize(_structure.NodeCount());
  if (_threads > 1 && _plan.Pieces().size() > 1) {
    _plan.Run(_threads, [this](NodeRange nodes) { Compute(nodes); });
  } else {
    Compute({0, _structure.NodeCount()});
  }
}

void NodeRollup::Compute(NodeRange nodes) {
  const KernelArrays arrays{.leafBlocks = _structure.LeafBlocks(),
                            .deviationBlocks = _structure.DeviationBlocks(),
                            .nodeEdges = _structure.NodeEdges(),
                            .leafBegin = _structure.LeafBegin(),
                            .edgeBegin = _structure.EdgeBegin(),
                            .rotations = _structure.Rotations(),
                            .states = _states.data(),
                            .covariances = CarriesCovariance() ? _covariances.data() : nullptr};
  _kernel(arrays, nodes.first, nodes.last);
  for (auto node = nodes.first; node < nodes.last; ++node) AddUpCoverage(node);
}

void NodeRollup::AddUpCoverage(std::uint32_t node) {
  Coverage sum = _structure.OwnCoverage(node);
  for (auto i = _structure.EdgeBegin()[node]; i < _structure.EdgeBegin()[node + 1]; ++i) {
    const auto& edge = _structure.NodeEdges()[i];
    sum.Add(_coverages[edge.child], edge.quantity);
  }
  _coverages[node] = sum;
}

std::size_t NodeRollup::Change(std::uint32_t part, const GraphPart& changed) {
  const bool carried = CarriesCovariance();
  BottomUpQueue outOfDate;
  outOfDate.Push(_structure.ChangeItem(part, changed));
  if (CarriesCovariance() != carried) {  // the first deviation in the product: no node has a covariance yet
    Compute();
    return _structure.NodeCount();
  }
  std::size_t computed = 0;
  for (std::uint32_t node = 0; outOfDate.Pop(node); ++computed) {
    Compute({node, node + 1});
    outOfDate.Push(_structure.ParentsOf(node));
  }
  return computed;
}

NodeSums NodeRollup::SumsOf(std::uint32_t node) const {
  return {_states[node], _coverages[node], CarriesCovariance() ? &_covariances[node] : nullptr};
}

}  // namespace lumira
