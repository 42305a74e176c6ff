#pragma once

#include <cstdint>
#include <functional>
#include <vector>

namespace lumira {

class FlatStructure;

/// A piece of a flat structure: the nodes from `first` up to but not including `last`.
struct NodeRange {
  std::uint32_t first = 0;
  std::uint32_t last = 0;

  friend bool operator==(const NodeRange&, const NodeRange&) = default;
};

/// How several threads share a roll-up: pieces that use nothing outside of themselves, which may be
/// computed in any order and at the same time, and what stands above them, which comes last, from the bottom
/// up. Since no node's sums depend on another thread's progress, the number of threads does not show in any
/// bit.
class ParallelPlan {
 public:
  /// Pieces of at most `maxNodes` nodes, each as large as that allows.
  ParallelPlan(const FlatStructure& structure, std::uint32_t maxNodes);

  const std::vector<NodeRange>& Pieces() const { return _pieces; }
  const std::vector<std::uint32_t>& Above() const { return _above; }

  /// Calls `compute` for all pieces on `threads` threads (the calling one included), then for the rest on
  /// the calling one. When the system gives fewer threads the work is done by those that there are.
  void Run(unsigned threads, const std::function<void(NodeRange)>& compute) const;

 private:
  std::vector<NodeRange> _pieces;
  std::vector<std::uint32_t> _above;
};

}  // namespace lumira
