#include "lumira/engine/TopologicalOrder.h"

#include <algorithm>
#include <numeric>

namespace lumira {
namespace {

enum class Mark : std::uint8_t { New, Open, Done };

struct Step {
  std::uint32_t part;
  std::uint32_t next;  ///< position in the grouped edges
};

/// A depth-first walk with its own stack: products may be a million levels deep.
class Walk {
 public:
  Walk(const ProductGraph& graph, const EdgesByParent& byParent)
      : _graph(graph), _byParent(byParent), _marks(graph.parts.size(), Mark::New) {
    _result.order.reserve(graph.parts.size());
  }

  /// False when a cycle was met.
  bool From(std::uint32_t part) {
    Open(part);
    while (!_stack.empty()) {
      if (!Advance()) return false;
    }
    return true;
  }

  TopologicalOrder Take() { return std::move(_result); }

 private:
  void Open(std::uint32_t part) {
    if (_marks[part] != Mark::New) return;
    _marks[part] = Mark::Open;
    _stack.push_back({part, _byParent.begin[part]});
  }

  bool Advance() {
    Step& step = _stack.back();
    if (step.next == _byParent.begin[step.part + 1]) {
      _marks[step.part] = Mark::Done;
      _result.order.push_back(step.part);
      _stack.pop_back();
      return true;
    }
    const auto child = _graph.edges[_byParent.edges[step.next++]].child;
    if (_marks[child] == Mark::Open) return NameCycle(child);
    Open(child);
    return true;
  }

  bool NameCycle(std::uint32_t part) {
    const auto from =
        std::find_if(_stack.begin(), _stack.end(), [&](const Step& s) { return s.part == part; });
    for (auto step = from; step != _stack.end(); ++step) _result.cycle.push_back(step->part);
    _result.cycle.push_back(part);
    return false;
  }

  const ProductGraph& _graph;
  const EdgesByParent& _byParent;
  std::vector<Mark> _marks;
  std::vector<Step> _stack;
  TopologicalOrder _result;
};

}  // namespace

EdgesByParent GroupByParent(const ProductGraph& graph) {
  EdgesByParent grouped;
  grouped.begin.assign(graph.parts.size() + 1, 0);
  for (const auto& edge : graph.edges) ++grouped.begin[edge.parent + 1];
  std::partial_sum(grouped.begin.begin(), grouped.begin.end(), grouped.begin.begin());
  auto next = grouped.begin;
  grouped.edges.resize(graph.edges.size());
  for (std::uint32_t i = 0; i < graph.edges.size(); ++i) grouped.edges[next[graph.edges[i].parent]++] = i;
  return grouped;
}

TopologicalOrder OrderBottomUp(const ProductGraph& graph, const EdgesByParent& byParent) {
  std::vector<bool> isChild(graph.parts.size());
  for (const auto& edge : graph.edges) isChild[edge.child] = true;
  Walk walk(graph, byParent);
  // Roots first, so that a subtree lies in one piece; what remains after them hangs on cycles.
  for (const bool wanted : {false, true}) {
    for (std::uint32_t part = 0; part < graph.parts.size(); ++part) {
      if (isChild[part] == wanted && !walk.From(part)) return walk.Take();
    }
  }
  return walk.Take();
}

}  // namespace lumira
