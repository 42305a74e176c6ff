#include "lumira/engine/FlatStructure.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "lumira/engine/FlatStructureBuilder.h"

namespace lumira {

FlatStructure::FlatStructure(const ProductGraph& graph, const EdgesByParent& byParent,
                             const std::vector<std::uint32_t>& order) {
  FlatStructureBuilder(graph, byParent, *this).Build(order);
}

std::span<const std::uint32_t> FlatStructure::ParentsOf(std::uint32_t node) const {
  return {_parents.data() + _parentBegin[node], _parents.data() + _parentBegin[node + 1]};
}

std::uint32_t FlatStructure::NodeOfLane(std::uint32_t lane) const {
  const auto after = std::upper_bound(_leafBegin.begin(), _leafBegin.end(), lane / kLanes);
  return static_cast<std::uint32_t>(after - _leafBegin.begin()) - 1;
}

void FlatStructure::WriteLane(std::uint32_t lane, const Item& item) {
  const auto k = lane % kLanes;
  const double quantity = _quantityOfLane[lane];
  const auto& [x, y, z] = item.cg;
  const auto& [xx, yy, zz, xy, xz, yz] = item.inertia;
  auto& block = _leafBlocks[lane / kLanes];
  block.mass[k] = item.cgKnown ? quantity * item.mass : 0.0;
  for (std::size_t i = 0; const double value : {x, y, z}) block.cg[i++][k] = value;
  for (std::size_t i = 0; const double value : {xx, yy, zz, xy, xz, yz})
    block.inertia[i++][k] = quantity * value;

  const auto& [massDeviation, cgDeviation, inertiaDeviation] = item.deviations;
  const auto& s = inertiaDeviation;
  const double copies = std::sqrt(quantity);
  auto& deviations = _deviationBlocks[lane / kLanes];
  deviations.mass[k] = item.cgKnown ? copies * massDeviation : 0.0;
  for (std::size_t i = 0; const double value : {cgDeviation.x, cgDeviation.y, cgDeviation.z}) {
    deviations.cg[i++][k] = value / copies;
  }
  for (std::size_t i = 0; const double value : {s.xx, s.yy, s.zz, s.xy, s.xz, s.yz}) {
    deviations.inertia[i++][k] = copies * value;
  }
  _hasDeviations = _hasDeviations || item.deviations != Deviations{};
}

void FlatStructure::RefreshCoverage(std::uint32_t node) {
  Coverage sum;
  for (auto lane = kLanes * _leafBegin[node]; lane < kLanes * _leafBegin[node + 1]; ++lane) {
    if (_partOfLane[lane] != kNone) sum.Add(_coverageOfPart[_partOfLane[lane]], _quantityOfLane[lane]);
  }
  _ownCoverage[node] = sum;
}

std::vector<std::uint32_t> FlatStructure::ChangeItem(std::uint32_t part, const GraphPart& changed) {
  _coverageOfPart[part] = CoverageOf(changed);
  std::vector<std::uint32_t> outOfDate;
  for (auto i = _laneBegin[part]; i < _laneBegin[part + 1]; ++i) {
    WriteLane(_lanes[i], changed.item);
    const auto node = NodeOfLane(_lanes[i]);
    if (outOfDate.empty() || outOfDate.back() != node) outOfDate.push_back(node);
  }
  for (const auto node : outOfDate) RefreshCoverage(node);
  return outOfDate;
}

}  // namespace lumira
