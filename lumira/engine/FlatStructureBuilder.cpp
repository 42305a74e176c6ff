#include "lumira/engine/FlatStructureBuilder.h"

#include <algorithm>
#include <bit>
#include <numeric>

namespace lumira {
namespace {

/// Where `count` lists begin when they are laid one after the other; `key` says into which list an element
/// goes, `kNone` into none.
template <class Keys, class Key>
std::vector<std::uint32_t> ListBegins(std::size_t count, const Keys& keys, Key key) {
  std::vector<std::uint32_t> begin(count + 1, 0);
  for (const auto& each : keys) {
    if (key(each) != kNone) ++begin[key(each) + 1];
  }
  std::partial_sum(begin.begin(), begin.end(), begin.begin());
  return begin;
}

}  // namespace

std::size_t FlatStructureBuilder::BitsHash::operator()(const std::array<std::uint64_t, 9>& bits) const {
  std::uint64_t hash = 0x9e3779b97f4a7c15u;
  for (const auto value : bits) hash = (std::rotl(hash, 23) ^ value) * 0xff51afd7ed558ccdu;
  return static_cast<std::size_t>(hash ^ (hash >> 32));
}

void FlatStructureBuilder::Build(const std::vector<std::uint32_t>& order) {
  Reserve();
  for (const auto part : order) {
    if (!_byParent.Of(part).empty()) AddPart(part);
  }
  LinkLanes();
  LinkParents();
}

void FlatStructureBuilder::Reserve() {
  _flat._nodeOfPart.assign(_graph.parts.size(), kNone);
  _flat._coverageOfPart.reserve(_graph.parts.size());
  for (const auto& part : _graph.parts) {
    _flat._coverageOfPart.push_back(CoverageOf(part));
  }
  RotationIndex({});
}

void FlatStructureBuilder::AddPart(std::uint32_t part) {
  _items.clear();
  _nodes.clear();
  for (const auto index : _byParent.Of(part)) {
    const auto& edge = _graph.edges[index];
    const auto node = _flat._nodeOfPart[edge.child];
    const bool isItem = node == kNone || _graph.parts[edge.child].replacesChildren;
    (isItem ? _items : _nodes).push_back({isItem ? edge.child : node, &edge});
  }
  Bundle(_items, _nodes);
  _flat._nodeOfPart[part] = AddNode(_items.data(), _items.size(), _nodes.data(), _nodes.size());
}

void FlatStructureBuilder::Bundle(std::vector<Child>& items, std::vector<Child>& nodes) {
  std::vector<Child> bundles;
  if (items.size() > kMaxFanOut) BundleChunks(items, true, bundles);
  nodes.insert(nodes.begin(), bundles.begin(), bundles.end());
  while (nodes.size() > kMaxFanOut) {
    bundles.clear();
    BundleChunks(nodes, false, bundles);
    nodes = bundles;
  }
}

void FlatStructureBuilder::BundleChunks(std::vector<Child>& children, bool areItems,
                                        std::vector<Child>& bundles) {
  for (std::size_t from = 0; from < children.size(); from += kMaxFanOut) {
    const auto count = std::min<std::size_t>(kMaxFanOut, children.size() - from);
    const auto* first = children.data() + from;
    bundles.push_back(
        {areItems ? AddNode(first, count, nullptr, 0) : AddNode(nullptr, 0, first, count), nullptr});
  }
  children.clear();
}

std::uint32_t FlatStructureBuilder::AddNode(const Child* items, std::size_t itemCount, const Child* nodes,
                                            std::size_t nodeCount) {
  const auto node = _flat.NodeCount();
  AddBlocks(items, itemCount);
  for (std::size_t i = 0; i < nodeCount; ++i) AddNodeEdge(nodes[i]);
  _flat._leafBegin.push_back(static_cast<std::uint32_t>(_flat._leafBlocks.size()));
  _flat._edgeBegin.push_back(static_cast<std::uint32_t>(_flat._nodeEdges.size()));
  _flat._ownCoverage.emplace_back();
  _flat.RefreshCoverage(node);
  return node;
}

void FlatStructureBuilder::AddBlocks(const Child* items, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) AddLane(items[i]);
  while (_flat._partOfLane.size() % kLanes != 0) PadBlock();
}

void FlatStructureBuilder::AddLane(const Child& item) {
  const auto lane = static_cast<std::uint32_t>(_flat._partOfLane.size());
  const auto k = lane % kLanes;
  if (k == 0) {
    _flat._leafBlocks.emplace_back();
    _flat._deviationBlocks.emplace_back();
  }
  _flat._partOfLane.push_back(item.index);
  _flat._quantityOfLane.push_back(item.edge->quantity);
  auto& block = _flat._leafBlocks.back();
  const auto& [x, y, z] = item.edge->placement.translation;
  for (std::size_t i = 0; const double value : {x, y, z}) block.translation[i++][k] = value;
  block.rotation[k] = RotationIndex(item.edge->placement.rotation);
  _flat.WriteLane(lane, _graph.parts[item.index].item);
}

void FlatStructureBuilder::PadBlock() {
  const auto k = _flat._partOfLane.size() % kLanes;
  auto& block = _flat._leafBlocks.back();
  for (std::size_t i = 0; i < 3; ++i) {
    block.translation[i][k] = block.translation[i][0];
    block.cg[i][k] = block.cg[i][0];
  }
  block.rotation[k] = block.rotation[0];
  _flat._partOfLane.push_back(kNone);
  _flat._quantityOfLane.push_back(0.0);
}

void FlatStructureBuilder::AddNodeEdge(const Child& child) {
  NodeEdge edge;
  edge.child = child.index;
  if (child.edge != nullptr) {
    edge.rotation = RotationIndex(child.edge->placement.rotation);
    edge.quantity = child.edge->quantity;
    edge.translation = child.edge->placement.translation;
  }
  _flat._nodeEdges.push_back(edge);
}

std::uint32_t FlatStructureBuilder::RotationIndex(const Rotation& rotation) {
  std::array<std::uint64_t, 9> bits;
  for (std::size_t i = 0; i < 9; ++i) bits[i] = std::bit_cast<std::uint64_t>(rotation.m[i] + 0.0);
  const auto [found, isNew] = _rotationIndex.try_emplace(bits, _flat.RotationCount());
  if (isNew) _flat._rotations.insert(_flat._rotations.end(), rotation.m.begin(), rotation.m.end());
  return found->second;
}

void FlatStructureBuilder::LinkLanes() {
  const auto& parts = _flat._partOfLane;
  _flat._laneBegin = ListBegins(_graph.parts.size(), parts, [](std::uint32_t part) { return part; });
  _flat._lanes.resize(_flat._laneBegin.back());
  auto next = _flat._laneBegin;
  for (std::uint32_t lane = 0; lane < parts.size(); ++lane) {
    if (parts[lane] != kNone) _flat._lanes[next[parts[lane]]++] = lane;
  }
}

void FlatStructureBuilder::LinkParents() {
  _flat._parentBegin =
      ListBegins(_flat.NodeCount(), _flat._nodeEdges, [](const NodeEdge& e) { return e.child; });
  _flat._parents.resize(_flat._parentBegin.back());
  auto next = _flat._parentBegin;
  for (std::uint32_t node = 0; node < _flat.NodeCount(); ++node) {
    for (auto edge = _flat._edgeBegin[node]; edge < _flat._edgeBegin[node + 1]; ++edge) {
      _flat._parents[next[_flat._nodeEdges[edge].child]++] = node;
    }
  }
}

}  // namespace lumira
