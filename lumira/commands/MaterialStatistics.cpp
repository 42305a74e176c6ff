#include "lumira/commands/MaterialStatistics.h"

#include <optional>
#include <ranges>
#include <set>
#include <string_view>
#include <tuple>

namespace lumira {
namespace {

constexpr int kDensityKind = 1, kSurfaceMassKind = 2;

struct Material {
  std::string_view name;
  double density;  ///< kg/m³, or kg/m² of sheet material
  int kind;

  friend auto operator<=>(const Material&, const Material&) = default;
};

// The name that goes with the density that counts.
std::string_view NameOf(const Part& part) {
  const bool isCad = part.densityPriority == DensityPriority::CadFirst && part.cadDensity;
  return isCad || part.material.empty() ? part.cadMaterial : part.material;
}

std::optional<Material> MaterialOf(const Part& part) {
  const std::string_view name = NameOf(part);
  if (name.empty()) return std::nullopt;
  if (part.surfaceMass) return Material{name, *part.surfaceMass, kSurfaceMassKind};
  const auto density = EffectiveDensity(part);
  return density ? std::optional(Material{name, *density, kDensityKind}) : std::nullopt;
}

}  // namespace

std::vector<protocol::MaterialStatistic> MaterialStatistics(const StructureIndex& structure,
                                                            std::uint32_t part) {
  std::vector<protocol::MaterialStatistic> statistics;
  std::set<Material> met;
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
