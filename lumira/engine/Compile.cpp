#include "lumira/engine/Compile.h"

#include <utility>

namespace lumira {
namespace {

protocol::Error CycleError(const std::vector<std::uint32_t>& cycle, const std::vector<std::string>& names) {
  constexpr std::size_t kShown = 12;  // of a chain that may be a million parts long
  std::string text = "the structure contains a cycle of " + std::to_string(cycle.size() - 1) + " part(s): ";
  for (std::size_t i = 0; i < cycle.size(); ++i) {
    if (i >= kShown && i + 1 < cycle.size()) continue;
    text += (i == 0 ? "" : i > kShown ? " > ... > " : " > ") + ("'" + names[cycle[i]] + "'");
  }
  return {protocol::ErrorKind::Conflict, text};
}

ChildIndex ChildrenOf(const ProductGraph& graph, EdgesByParent byParent) {
  for (auto& edge : byParent.edges) edge = graph.edges[edge].child;
  return {std::move(byParent.begin), std::move(byParent.edges)};
}

}  // namespace

protocol::Result<CompiledProduct> Compile(const Product& product, const CompileOptions& options) {
  auto built = GraphFromProduct(product, options);
  if (!built) return built.Failure();
  auto& [graph, partIds, partIndex] = built.Value();
  auto byParent = GroupByParent(graph);
  const auto [order, cycle] = OrderBottomUp(graph, byParent);
  if (!cycle.empty()) return CycleError(cycle, partIds);
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
