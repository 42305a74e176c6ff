#pragma once

#include <cstdint>
#include <vector>

#include "lumira/engine/Fingerprint.h"
#include "lumira/engine/TopologicalOrder.h"

namespace lumira {

/// The fingerprint of every part of a product, kept up to date along the path of a change.
class FingerprintIndex {
 public:
  /// `order` is a valid bottom-up order of the graph's parts.
  FingerprintIndex(const ProductGraph& graph, const std::vector<std::uint32_t>& order);

  /// What the computed result of a part depends on: of what is below it, or of its own numbers when there is
  /// nothing.
  Fingerprint Of(std::uint32_t part) const;

  /// The part's own numbers changed: takes the change up to the roots.
  void Change(std::uint32_t part, const GraphPart& changed);

 private:
  struct Link {
    std::uint32_t parent = 0;
    Fingerprint place;
  };
  struct Entry {
    Fingerprint own;    ///< of the part's own numbers
    Fingerprint below;  ///< sum over its children in their places; order-free
    bool hasChildren = false;
    bool replacesChildren = false;
  };

  /// What parents see of a part.
  Fingerprint Seen(std::uint32_t part) const;
  void TakeUp(std::uint32_t part, const Fingerprint& before);

  std::vector<Entry> _entries;
  std::vector<std::uint32_t> _begin;  ///< per part, into `_links`: its uses
  std::vector<Link> _links;
  std::vector<std::uint32_t> _order, _position;
};

}  // namespace lumira
