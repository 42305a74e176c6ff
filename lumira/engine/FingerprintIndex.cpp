#include "lumira/engine/FingerprintIndex.h"

#include <map>
#include <numeric>

namespace lumira {

FingerprintIndex::FingerprintIndex(const ProductGraph& graph, const std::vector<std::uint32_t>& order)
    : _entries(graph.parts.size()),
      _begin(graph.parts.size() + 1, 0),
      _links(graph.edges.size()),
      _order(order),
      _position(order.size()) {
  for (std::uint32_t i = 0; i < order.size(); ++i) _position[order[i]] = i;
  for (const auto& edge : graph.edges) ++_begin[edge.child + 1];
  std::partial_sum(_begin.begin(), _begin.end(), _begin.begin());
  auto next = _begin;
  for (const auto& edge : graph.edges) {
    _links[next[edge.child]++] = {edge.parent, FingerprintOf(edge.placement, edge.quantity)};
    _entries[edge.parent].hasChildren = true;
  }
  for (const auto part : order) {
    auto& entry = _entries[part];
    entry.own = FingerprintOf(graph.parts[part]);
    entry.replacesChildren = graph.parts[part].replacesChildren;
    const auto seen = Seen(part);
    for (auto i = _begin[part]; i < _begin[part + 1]; ++i) {
      auto& below = _entries[_links[i].parent].below;
      below = below + Combine(seen, _links[i].place);
    }
  }
}

Fingerprint FingerprintIndex::Of(std::uint32_t part) const {
  const auto& entry = _entries[part];
  return entry.hasChildren ? entry.below : entry.own;
}

Fingerprint FingerprintIndex::Seen(std::uint32_t part) const {
  return _entries[part].replacesChildren ? _entries[part].own : Of(part);
}

void FingerprintIndex::Change(std::uint32_t part, const GraphPart& changed) {
  const auto before = Seen(part);
  _entries[part].own = FingerprintOf(changed);
  if (Seen(part) != before) TakeUp(part, before);
}

void FingerprintIndex::TakeUp(std::uint32_t part, const Fingerprint& before) {
  std::map<std::uint32_t, Fingerprint> changed{{_position[part], before}};  // by position: below before above
  while (!changed.empty()) {
    const auto [position, old] = *changed.begin();
    changed.erase(changed.begin());
    const auto child = _order[position];
    const auto now = Seen(child);
    if (now == old) continue;
    for (auto i = _begin[child]; i < _begin[child + 1]; ++i) {
      const auto& link = _links[i];
      changed.try_emplace(_position[link.parent], Seen(link.parent));
      auto& below = _entries[link.parent].below;
      below = below - Combine(old, link.place) + Combine(now, link.place);
    }
  }
}

}  // namespace lumira
