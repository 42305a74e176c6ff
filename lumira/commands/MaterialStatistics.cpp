#include "lumira/commands/MaterialStatistics.h"

#include <ranges>
#include <set>

#include "lumira/model/StatisticsMaterial.h"

namespace lumira {

std::vector<protocol::MaterialStatistic> MaterialStatistics(const StructureIndex& structure,
                                                            std::uint32_t part) {
  std::vector<protocol::MaterialStatistic> statistics;
  std::set<StatisticsMaterial> met;
  std::vector<bool> seen(structure.Data().parts.size());
  std::vector<std::uint32_t> next = {part};
  while (!next.empty()) {
    const std::uint32_t index = next.back();
    next.pop_back();
    if (seen[index]) continue;
    seen[index] = true;
    const auto material = MaterialOf(structure.PartAt(index));
    if (material && met.insert(*material).second)
      statistics.push_back({std::string(material->name), material->density, material->kind});
    // The last one first, so that the first one is on top.
    for (const std::uint32_t instance : structure.InstancesIn(index) | std::views::reverse)
      next.push_back(structure.ChildOf(instance));
  }
  return statistics;
}

}  // namespace lumira
