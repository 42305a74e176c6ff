#pragma once

#include <array>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "lumira/engine/FlatStructure.h"

namespace lumira {

/// Fills a `FlatStructure`; lives only as long as that takes.
class FlatStructureBuilder {
 public:
  FlatStructureBuilder(const ProductGraph& graph, const EdgesByParent& byParent, FlatStructure& flat)
      : _graph(graph), _byParent(byParent), _flat(flat) {}

  void Build(const std::vector<std::uint32_t>& order);

 private:
  /// One child of a node to be: an item, or a node.
  struct Child {
    std::uint32_t index;    ///< part of an item, or node
    const GraphEdge* edge;  ///< nullptr: a bundle, placed where its part is
  };

  void Reserve();
  void AddPart(std::uint32_t part);
  void Bundle(std::vector<Child>& items, std::vector<Child>& nodes);
  void BundleChunks(std::vector<Child>& children, bool areItems, std::vector<Child>& bundles);
  std::uint32_t AddNode(const Child* items, std::size_t itemCount, const Child* nodes, std::size_t nodeCount);
  void AddBlocks(const Child* items, std::size_t count);
  void AddLane(const Child& item);
  void PadBlock();
  void AddNodeEdge(const Child& child);
  std::uint32_t RotationIndex(const Rotation& rotation);
  void LinkLanes();
  void LinkParents();

  struct BitsHash {
    std::size_t operator()(const std::array<std::uint64_t, 9>& bits) const;
  };

  const ProductGraph& _graph;
  const EdgesByParent& _byParent;
  FlatStructure& _flat;
  std::vector<Child> _items, _nodes;
  std::unordered_map<std::array<std::uint64_t, 9>, std::uint32_t, BitsHash> _rotationIndex;
};

}  // namespace lumira
