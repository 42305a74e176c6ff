#include "lumira/engine/Warnings.h"

#include <algorithm>
#include <cmath>

namespace lumira {
namespace {

bool WithoutMass(const GraphPart& part) { return !part.item.massKnown; }
bool WithoutCg(const GraphPart& part) { return part.item.massKnown && !part.item.cgKnown; }
bool WithoutInertia(const GraphPart& part) { return part.item.cgKnown && !part.item.inertiaKnown; }
bool Negative(const GraphPart& part) { return part.item.mass < 0.0; }
bool WithoutBounds(const GraphPart& part) { return part.item.massKnown && !part.item.boundsKnown; }
bool Replaces(const GraphPart& part) { return part.replacesChildren; }

using Predicate = bool (*)(const GraphPart&);

/// Looks at each part below one part once, as far as it counts in the result.
class Search {
 public:
  Search(const CompiledProduct& product, std::uint32_t root) : _product(product), _root(root) {}

  /// The first parts that bring own numbers and meet the predicate.
  std::vector<std::string> Items(Predicate wanted, std::size_t limit) const {
    return Find(limit, [&](std::uint32_t part) { return IsItem(part) && wanted(_product.parts[part]); });
  }

  /// Assemblies below the root of which a filter has taken something. The root's own data would not count in
  /// its result anyway.
  std::vector<std::string> PartlyKept() const {
    return Find(_product.parts.size(),
                [&](std::uint32_t part) { return part != _root && _product.parts[part].isPartlyKept; });
  }

  /// The parts whose own shape is not added to their children.
  std::vector<std::string> UnusedShapes() const {
    return Find(_product.parts.size(), [&](std::uint32_t part) {
      return !IsItem(part) && !_product.parts[part].replacesChildren && _product.parts[part].item.massKnown;
    });
  }

 private:
  /// The root's result is that of its children, even where its own numbers replace them in its parents.
  bool IsItem(std::uint32_t part) const {
    if (_product.children.Of(part).empty()) return true;
    return part != _root && _product.parts[part].replacesChildren;
  }

  template <class Wanted>
  std::vector<std::string> Find(std::size_t limit, Wanted wanted) const {
    std::vector<std::string> found;
    std::vector<bool> seen(_product.parts.size());
    std::vector<std::uint32_t> next{_root};
    while (!next.empty() && found.size() < limit) {
      const auto part = next.back();
      next.pop_back();
      if (seen[part]) continue;
      seen[part] = true;
      if (wanted(part)) found.push_back(_product.partIds[part]);
      if (IsItem(part)) continue;
      const auto children = _product.children.Of(part);
      next.insert(next.end(), children.rbegin(), children.rend());
    }
    return found;
  }

  const CompiledProduct& _product;
  std::uint32_t _root;
};

bool IsFinite(const Deviations& deviations) {
  return std::isfinite(deviations.mass) && IsFinite(deviations.cg) && IsFinite(deviations.inertia);
}

/// The bounds as they are told: the worst case, and on top of it the spread of what has no limits.
bool HasFiniteBounds(const Coverage& coverage) {
  return std::isfinite(coverage.lower + coverage.spreadWithoutBounds) &&
         std::isfinite(coverage.upper + coverage.spreadWithoutBounds);
}

bool IsFinite(const MassResult& result) {
  return std::isfinite(result.mass.value_or(0.0)) && IsFinite(result.cg.value_or(Vec3{})) &&
         IsFinite(result.inertiaAtCg.value_or(InertiaTensor{})) && IsFinite(result.firstMoment) &&
         IsFinite(result.inertiaAtOrigin) && IsFinite(result.deviations.value_or(Deviations{})) &&
         HasFiniteBounds(result.coverage);
}

bool AnyPartlyKept(const CompiledProduct& product) {
  return std::ranges::any_of(product.parts, &GraphPart::isPartlyKept);
}

/// Parts whose shape is not added are rare and known without a search when there are none at all.
bool AnyUnusedShape(const CompiledProduct& product) {
  for (std::uint32_t part = 0; part < product.parts.size(); ++part) {
    if (product.parts[part].item.massKnown && !product.parts[part].replacesChildren &&
        !product.children.Of(part).empty()) {
      return true;
    }
  }
  return false;
}

}  // namespace

std::vector<Warning> CollectWarnings(const CompiledProduct& product, std::uint32_t part,
                                     const MassResult& result, std::size_t maxExamples) {
  const auto& c = result.coverage;
  const bool isFinite = IsFinite(result);
  const double massWithCg = result.mass.value_or(0.0) - c.massWithoutCg;
  const struct {
    WarningKind kind;
    double occurrences;
    double mass;
    Predicate predicate;
  } counted[] = {
      {WarningKind::WithoutMass, c.withoutMass, 0.0, WithoutMass},
      {WarningKind::WithoutCg, c.withoutCg, c.massWithoutCg, WithoutCg},
      {WarningKind::WithoutInertia, c.withoutInertia, massWithCg - c.massWithInertia, WithoutInertia},
      {WarningKind::NegativeMass, c.negative, 0.0, Negative},
      {WarningKind::ZeroMass,
       isFinite && result.mass && !result.cg && c.withoutCg + c.withoutMass < c.items ? c.items : 0.0, 0.0,
       nullptr},
      {WarningKind::WithoutBounds, c.withBounds > 0.0 ? c.withoutBounds : 0.0, 0.0, WithoutBounds},
      {WarningKind::ReplacesChildren, c.replacing, 0.0, Replaces},
  };
  const Search search(product, part);
  std::vector<Warning> warnings;
  for (const auto& [kind, occurrences, mass, predicate] : counted) {
    if (occurrences == 0.0) continue;
    auto examples = predicate != nullptr ? search.Items(predicate, maxExamples) : std::vector<std::string>{};
    warnings.push_back({kind, occurrences, mass, std::move(examples)});
  }
  const auto addParts = [&](WarningKind kind, std::vector<std::string> parts) {
    const auto count = static_cast<double>(parts.size());
    if (parts.size() > maxExamples) parts.resize(maxExamples);
    if (count > 0.0) warnings.push_back({kind, count, 0.0, std::move(parts)});
  };
  if (AnyUnusedShape(product)) addParts(WarningKind::ShapeNotAdded, search.UnusedShapes());
  if (AnyPartlyKept(product)) addParts(WarningKind::PartlyKept, search.PartlyKept());
  if (!isFinite) warnings.push_back({WarningKind::NotFinite, c.items, 0.0, {}});
  return warnings;
}

}  // namespace lumira
