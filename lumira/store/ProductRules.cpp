#include "lumira/store/ProductRules.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "lumira/engine/Compile.h"
#include "lumira/engine/ExcludedInstances.h"
#include "lumira/engine/Item.h"
#include "lumira/model/Identifier.h"
#include "lumira/store/SizeRules.h"
#include "protocol/Filter.h"
#include "protocol/Limits.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Quoted;
using protocol::Result;

Result<void> CheckIdentifier(const char* whose, std::string_view id) {
  const auto problem = FindIdentifierProblem(id);
  if (!problem) return {};
  return Error{ErrorKind::BadValue, "identifier of " + std::string(whose) + ": " + *problem};
}

Result<void> CheckIdentifiers(const Product& product) {
  if (auto good = CheckIdentifier("the product", product.id); !good) return good;
  for (const Instance& instance : product.instances)
    if (auto good = CheckIdentifier("an instance", instance.id); !good) return good;
  return {};
}

Error InInstance(const Instance& instance, const std::string& text) {
  return {ErrorKind::BadValue, "instance " + Quoted(instance.id) + ": " + text};
}

Result<void> CheckAttributes(const Instance& instance) {
  const auto& attributes = instance.attributes;
  for (auto attribute = attributes.begin(); attribute != attributes.end(); ++attribute) {
    if (const auto problem = FindIdentifierProblem(attribute->name))
      return InInstance(instance, "name of an attribute: " + *problem);
    if (const auto problem = FindIdentifierProblem(attribute->value))
      return InInstance(instance, "attribute " + Quoted(attribute->name) + ": " + *problem);
    if (std::find_if(attributes.begin(), attribute,
                     [&](const auto& other) { return other.name == attribute->name; }) != attribute)
      return InInstance(instance, "attribute " + Quoted(attribute->name) + " is there twice");
  }
  return {};
}

// The text of a date has four digits for the year.
Result<void> CheckDates(const Instance& instance) {
  for (const auto& date : {instance.effectivity.from, instance.effectivity.until})
    if (date && ParseDate(FormatDate(*date)) != date)
      return InInstance(instance, "a date of the effectivity is no day of the calendar from year 1 to 9999");
  const auto& [from, until] = instance.effectivity;
  if (from && until && *until < *from)
    return InInstance(instance, "effective until " + FormatDate(*until) + ", which is before it is from, " +
                                    FormatDate(*from));
  return {};
}

Result<void> CheckInstances(const Product& product) {
  for (const Instance& instance : product.instances) {
    if (auto good = CheckAttributes(instance); !good) return good;
    if (auto good = CheckDates(instance); !good) return good;
  }
  return {};
}

Error InFilter(const ConfigurationFilter& filter, const std::string& text) {
  return {ErrorKind::BadValue, "configuration filter " + Quoted(filter.name) + ": " + text};
}

Error RootError(const Product& product, const std::string& problem) {
  return {ErrorKind::BadValue, "product " + Quoted(product.id) + " " + problem};
}

// Who stands below whom, by index. Instances of unknown parts are left out.
struct Structure {
  struct Below {
    std::uint32_t part;
    std::uint32_t instance;
  };
  std::vector<std::vector<Below>> children;
  std::vector<std::uint32_t> parentCounts;
};

Structure StructureOf(const Product& product) {
  std::unordered_map<std::string_view, std::uint32_t> indices;
  indices.reserve(product.parts.size());
  for (const Part& part : product.parts) indices.emplace(part.id, static_cast<std::uint32_t>(indices.size()));
  Structure structure{std::vector<std::vector<Structure::Below>>(product.parts.size()),
                      std::vector<std::uint32_t>(product.parts.size())};
  for (std::uint32_t i = 0; i < product.instances.size(); ++i) {
    const auto parent = indices.find(product.instances[i].parent);
    const auto child = indices.find(product.instances[i].child);
    if (parent == indices.end() || child == indices.end()) continue;
    structure.children[parent->second].push_back({child->second, i});
    ++structure.parentCounts[child->second];
  }
  return structure;
}

// How far below the top a part stands on its longest path, and the last instance of that path.
struct Depth {
  std::size_t levels = 0;
  std::uint32_t instance = 0;
};

DepthProblem TooDeep(const Part& part, const Depth& depth) {
  return {depth.instance, "part " + Quoted(part.id) + " stands " + std::to_string(depth.levels) +
                              " levels below the top, the limit is " +
                              std::to_string(protocol::kMaxPathDepth)};
}

}  // namespace

// A part is visited after all its parents, when its longest path is known; parts on a cycle never are.
std::optional<DepthProblem> FindDepthProblem(const Product& product) {
  Structure structure = StructureOf(product);
  std::vector<Depth> depths(product.parts.size());
  std::vector<std::uint32_t> next;
  for (std::uint32_t part = 0; part < depths.size(); ++part)
    if (structure.parentCounts[part] == 0) next.push_back(part);
  while (!next.empty()) {
    const std::uint32_t part = next.back();
    next.pop_back();
    if (depths[part].levels > protocol::kMaxPathDepth) return TooDeep(product.parts[part], depths[part]);
    for (const auto& [child, instance] : structure.children[part]) {
      if (depths[part].levels + 1 > depths[child].levels) depths[child] = {depths[part].levels + 1, instance};
      if (--structure.parentCounts[child] == 0) next.push_back(child);
    }
  }
  return std::nullopt;
}

Result<void> CheckRoots(const Product& product) {
  if (product.roots.size() != 1)
    return RootError(product, "has " + std::to_string(product.roots.size()) + " root parts, not one");
  const std::string& root = product.roots[0];
  std::unordered_set<std::string_view> children;
  children.reserve(product.instances.size());
  for (const Instance& instance : product.instances) children.insert(instance.child);
  if (children.contains(root))
    return RootError(product, "has a root part " + Quoted(root) + " that is a child");
  bool hasRoot = false;
  for (const Part& part : product.parts) {
    hasRoot |= part.id == root;
    if (part.id != root && !children.contains(part.id))
      return RootError(product, "has a part " + Quoted(part.id) + " that is neither the root nor a child");
  }
  if (!hasRoot) return RootError(product, "has no part " + Quoted(root) + ", which is its root");
  return {};
}

Result<void> CheckPart(const Part& part) {
  if (auto good = CheckIdentifier("a part", part.id); !good) return good;
  for (const MassTypeData& type : part.massTypes)
    if (auto good = CheckIdentifier("a mass type", type.name); !good) return good;
  if (const auto problem = FindTooMany(BytesOf(part.massTypes), kMaxValueBytes))
    return Error{ErrorKind::BadValue, "part " + Quoted(part.id) + ": its mass types " + *problem};
  for (const MassTypeData& type : part.massTypes)
    if (auto own = ResolveOwnData(part, {type.name}); !own) return own.Failure();
  if (auto own = ResolveOwnData(part, {}); !own) return own.Failure();
  return {};
}

Result<void> CheckMaterials(const Product& product) {
  MaterialBytes materials;
  for (const Part& part : product.parts)
    if (const auto problem = FindTooMany(materials.Add(part), kMaxMaterialBytes))
      return Error{ErrorKind::BadValue, "part " + Quoted(part.id) + ": " + TooManyMaterials(part, *problem)};
  return {};
}

Result<void> CheckProduct(const Product& product) {
  if (auto good = CheckIdentifiers(product); !good) return good;
  for (const Part& part : product.parts)
    if (auto good = CheckPart(part); !good) return good;
  if (auto good = CheckMaterials(product); !good) return good;
  if (auto good = CheckInstances(product); !good) return good;
  // Before the roots, since a cycle may leave none.
  if (auto good = CheckCompiles(product); !good) return good;
  if (auto good = CheckRoots(product); !good) return good;
  if (const auto deep = FindDepthProblem(product)) return Error{ErrorKind::BadValue, deep->text};
  return {};
}

Result<void> CheckFilter(const ConfigurationFilter& filter) {
  if (auto good = CheckIdentifier("a configuration filter", filter.name); !good) return good;
  if (filter.name == protocol::Filter().name) return InFilter(filter, "the name stands for no filter at all");
  if (protocol::FindInvalidUtf8(filter.description)) return InFilter(filter, "the description is not UTF-8");
  for (const FilterCondition& condition : filter.conditions) {
    if (protocol::FindInvalidUtf8(condition.name))
      return InFilter(filter, "a name in a condition is not UTF-8");
    for (const std::string& value : condition.values)
      if (protocol::FindInvalidUtf8(value)) return InFilter(filter, "a value of a condition is not UTF-8");
  }
  return {};
}

Result<void> CheckFilters(const Product& product, const ProductFilters& filters) {
  const StructureIndex structure(product);
  std::unordered_set<std::string_view> names;
  for (const ConfigurationFilter& filter : filters.filters) {
    if (auto good = CheckFilter(filter); !good) return good;
    if (!names.insert(filter.name).second) return InFilter(filter, "there are two of this name");
    if (const auto excluded = ExcludedInstances(structure, filter); !excluded) return excluded.Failure();
  }
  if (filters.handler && !names.contains(*filters.handler))
    return UnknownFilter(product.id, *filters.handler);
  return {};
}

Error UnknownFilter(std::string_view product, std::string_view filter) {
  return {ErrorKind::NotFound,
          "there is no configuration filter " + Quoted(filter) + " in product " + Quoted(product)};
}

}  // namespace lumira
