#include "lumira/commands/TreeSearch.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace lumira {
namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool Contains(std::string_view text, std::string_view lowerPiece) {
  return std::search(text.begin(), text.end(), lowerPiece.begin(), lowerPiece.end(),
                     [](char a, char b) { return Lower(a) == b; }) != text.end();
}

// Walks down the tree from a root, but only into parts that have a hit below, so that every step leads to
// one.
class Walk {
 public:
  using Wanted = std::function<bool(std::uint32_t part, const Instance* instance)>;

  Walk(const OpenProduct& product, Wanted wanted, std::size_t limit)
      : _product(product), _wanted(std::move(wanted)), _limit(limit) {
    MarkWhatLeadsToHits();
  }

  FoundOccurrences Run() {
    for (const std::string& id : _product.Data().roots) {
      const std::uint32_t root = _product.FindPart(id).value();
      _way = {root, {}};
      if (_wanted(root, nullptr)) Take();
      Descend(root);
    }
    return std::move(_found);
  }

 private:
  bool IsWanted(std::uint32_t instance) const {
    return _wanted(_product.ChildOf(instance), &_product.InstanceAt(instance));
  }

  // Bottom-up, with a stack of its own since structures may be deep. There are no cycles in an open product.
  void MarkWhatLeadsToHits() {
    const std::size_t count = _product.Data().parts.size();
    _leadsToHit.assign(count, false);
    std::vector<bool> seen(count);
    std::vector<std::pair<std::uint32_t, std::size_t>> stack;
    for (const std::string& id : _product.Data().roots) {
      stack.emplace_back(_product.FindPart(id).value(), 0);
      while (!stack.empty()) {
        auto& [part, next] = stack.back();
        const auto instances = _product.InstancesIn(part);
        if (next == instances.size() || seen[part]) {
          Mark(part);
          seen[part] = true;
          stack.pop_back();
          continue;
        }
        const std::uint32_t child = _product.ChildOf(instances[next++]);
        if (!seen[child]) stack.emplace_back(child, 0);
      }
    }
  }

  void Mark(std::uint32_t part) {
    for (std::uint32_t instance : _product.InstancesIn(part))
      if (_leadsToHit[_product.ChildOf(instance)] || IsWanted(instance)) _leadsToHit[part] = true;
  }

  void Descend(std::uint32_t root) {
    std::vector<std::pair<std::uint32_t, std::size_t>> stack = {{root, 0}};
    while (!stack.empty() && !_found.cut) {
      auto& [part, next] = stack.back();
      const auto instances = _product.InstancesIn(part);
      if (!_leadsToHit[part] || next == instances.size()) {
        stack.pop_back();
        if (!_way.instances.empty()) _way.instances.pop_back();
        continue;
      }
      const std::uint32_t instance = instances[next++];
      _way.instances.push_back(instance);
      if (IsWanted(instance)) Take();
      stack.emplace_back(_product.ChildOf(instance), 0);
    }
  }

  void Take() {
    if (_found.hits.size() == _limit)
      _found.cut = true;
    else
      _found.hits.push_back(_way);
  }

  const OpenProduct& _product;
  Wanted _wanted;
  std::size_t _limit;
  std::vector<bool> _leadsToHit;  ///< per part: something below it is wanted
  FoundOccurrence _way;
  FoundOccurrences _found;
};

}  // namespace

FoundOccurrences SearchOccurrences(const OpenProduct& product, std::string_view text, std::size_t limit) {
  std::string piece(text);
  std::transform(piece.begin(), piece.end(), piece.begin(), Lower);
  const auto wanted = [&](std::uint32_t part, const Instance* instance) {
    return Contains(product.PartAt(part).id, piece) || Contains(product.PartAt(part).name, piece) ||
           (instance != nullptr && Contains(instance->id, piece));
  };
  return Walk(product, wanted, limit).Run();
}

FoundOccurrences OccurrencesOf(const OpenProduct& product, std::uint32_t part, std::size_t limit) {
  return Walk(
             product, [&](std::uint32_t found, const Instance*) { return found == part; }, limit)
      .Run();
}

}  // namespace lumira
