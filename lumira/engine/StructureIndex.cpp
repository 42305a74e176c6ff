#include "lumira/engine/StructureIndex.h"

#include <limits>
#include <numeric>

namespace lumira {
namespace {

constexpr std::uint32_t kUnknown = std::numeric_limits<std::uint32_t>::max();

std::optional<std::uint32_t> Find(const std::unordered_map<std::string_view, std::uint32_t>& indices,
                                  std::string_view id) {
  const auto found = indices.find(id);
  return found == indices.end() ? std::nullopt : std::optional(found->second);
}

// Visits each part that `next` leads to from these, once.
template <class Next>
std::vector<bool> Reach(std::vector<std::uint32_t> parts, std::size_t count, Next next) {
  std::vector<bool> reached(count);
  while (!parts.empty()) {
    const std::uint32_t part = parts.back();
    parts.pop_back();
    if (reached[part]) continue;
    reached[part] = true;
    next(part, parts);
  }
  return reached;
}

}  // namespace

StructureIndex::StructureIndex(const Product& product) : _product(product) {
  _parts.reserve(product.parts.size());
  for (std::uint32_t part = 0; part < product.parts.size(); ++part)
    _parts.emplace(product.parts[part].id, part);
  _ends.reserve(product.instances.size());
  for (const Instance& instance : product.instances) {
    const auto parent = FindPart(instance.parent), child = FindPart(instance.child);
    _ends.push_back(parent && child ? Ends{*parent, *child} : Ends{kUnknown, kUnknown});
  }
  _in = GroupBy(&Ends::parent);
  _of = GroupBy(&Ends::child);
}

StructureIndex::Groups StructureIndex::GroupBy(std::uint32_t Ends::*end) const {
  Groups groups{std::vector<std::uint32_t>(_product.parts.size() + 1), {}};
  for (const Ends& ends : _ends)
    if (ends.*end != kUnknown) ++groups.begin[ends.*end + 1];
  std::partial_sum(groups.begin.begin(), groups.begin.end(), groups.begin.begin());
  groups.instances.resize(groups.begin.back());
  auto next = groups.begin;
  for (std::uint32_t instance = 0; instance < _ends.size(); ++instance)
    if (const std::uint32_t part = _ends[instance].*end; part != kUnknown)
      groups.instances[next[part]++] = instance;
  return groups;
}

std::optional<std::uint32_t> StructureIndex::FindPart(std::string_view id) const { return Find(_parts, id); }

std::optional<std::uint32_t> StructureIndex::FindInstance(std::string_view id) const {
  if (_instances.empty()) {
    _instances.reserve(_product.instances.size());
    for (std::uint32_t i = 0; i < _product.instances.size(); ++i)
      _instances.emplace(_product.instances[i].id, i);
  }
  return Find(_instances, id);
}

std::vector<bool> StructureIndex::AtOrBelow(std::vector<std::uint32_t> parts,
                                            const std::vector<bool>& cut) const {
  return Reach(std::move(parts), _product.parts.size(), [&](std::uint32_t part, auto& next) {
    for (const std::uint32_t instance : InstancesIn(part))
      if (cut.empty() || !cut[instance]) next.push_back(ChildOf(instance));
  });
}

std::vector<bool> StructureIndex::AtOrAbove(std::vector<std::uint32_t> parts) const {
  return Reach(std::move(parts), _product.parts.size(), [&](std::uint32_t part, auto& next) {
    for (const std::uint32_t instance : InstancesOf(part)) next.push_back(ParentOf(instance));
  });
}

}  // namespace lumira
