#include "lumira/engine/Compile.h"

#include <utility>

#include "lumira/model/Counted.h"

namespace lumira {
namespace {

protocol::Error CycleError(const std::vector<std::uint32_t>& cycle, const std::vector<std::string>& names) {
  constexpr std::size_t kShown = 12;  // of a chain that may be a million parts long
  std::string text =
      "the structure contains a cycle of " + Counted(cycle.size() - 1, {"part", "parts"}) + ": ";
  for (std::size_t i = 0; i < cycle.size(); ++i) {
    if (i >= kShown && i + 1 < cycle.size()) continue;
    text += (i == 0 ? "" : i > kShown ? " > ... > " : " > ") + ("'" + names[cycle[i]] + "'");
  }
  return {protocol::ErrorKind::Conflict, text};
}

// A product that has passed all checks.
struct OrderedGraph {
  NamedGraph named;
  EdgesByParent byParent;
  std::vector<std::uint32_t> bottomUp;
};

protocol::Result<OrderedGraph> Order(const Product& product, const CompileOptions& options) {
  auto named = GraphFromProduct(product, options);
  if (!named) return named.Failure();
  auto byParent = GroupByParent(named.Value().graph);
  auto [order, cycle] = OrderBottomUp(named.Value().graph, byParent);
  if (!cycle.empty()) return CycleError(cycle, named.Value().partIds);
  return OrderedGraph{std::move(named).Value(), std::move(byParent), std::move(order)};
}

ChildIndex ChildrenOf(const ProductGraph& graph, EdgesByParent byParent) {
  for (auto& edge : byParent.edges) edge = graph.edges[edge].child;
  return {std::move(byParent.begin), std::move(byParent.edges)};
}

}  // namespace

protocol::Result<void> CheckCompiles(const Product& product) {
  const auto ordered = Order(product, {});
  if (!ordered) return ordered.Failure();
  return {};
}

protocol::Result<CompiledProduct> Compile(const Product& product, const CompileOptions& options) {
  auto ordered = Order(product, options);
  if (!ordered) return ordered.Failure();
  auto& [named, byParent, order] = ordered.Value();
  auto& [graph, partIds, partIndex] = named;
  FlatStructure structure(graph, byParent, order);
  FingerprintIndex fingerprints(graph, order);
  auto children = ChildrenOf(graph, std::move(byParent));
  return CompiledProduct{.partIds = std::move(partIds),
                         .partIndex = std::move(partIndex),
                         .parts = std::move(graph.parts),
                         .children = std::move(children),
                         .massType = options.massType,
                         .structure = std::move(structure),
                         .fingerprints = std::move(fingerprints)};
}

}  // namespace lumira
