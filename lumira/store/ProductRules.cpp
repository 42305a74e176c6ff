#include "lumira/store/ProductRules.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "lumira/model/Identifier.h"
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
  for (const Part& part : product.parts)
    if (auto good = CheckIdentifier("a part", part.id); !good) return good;
  for (const Instance& instance : product.instances)
    if (auto good = CheckIdentifier("an instance", instance.id); !good) return good;
  return {};
}

// Who stands below whom, by the index of the part. Instances of unknown parts are left out.
struct Structure {
  std::vector<std::vector<std::uint32_t>> children;
  std::vector<std::uint32_t> parentCounts;
};

Structure StructureOf(const Product& product) {
  std::unordered_map<std::string_view, std::uint32_t> indices;
  indices.reserve(product.parts.size());
  for (const Part& part : product.parts) indices.emplace(part.id, static_cast<std::uint32_t>(indices.size()));
  Structure structure{std::vector<std::vector<std::uint32_t>>(product.parts.size()),
                      std::vector<std::uint32_t>(product.parts.size())};
  for (const Instance& instance : product.instances) {
    const auto parent = indices.find(instance.parent), child = indices.find(instance.child);
    if (parent == indices.end() || child == indices.end()) continue;
    structure.children[parent->second].push_back(child->second);
    ++structure.parentCounts[child->second];
  }
  return structure;
}

// A part is visited after all its parents, when its longest path is known; parts on a cycle never are.
Result<void> CheckDepth(const Product& product) {
  Structure structure = StructureOf(product);
  std::vector<std::size_t> depths(product.parts.size());
  std::vector<std::uint32_t> next;
  for (std::uint32_t part = 0; part < depths.size(); ++part)
    if (structure.parentCounts[part] == 0) next.push_back(part);
  while (!next.empty()) {
    const std::uint32_t part = next.back();
    next.pop_back();
    if (depths[part] > protocol::kMaxPathDepth)
      return Error{ErrorKind::BadValue,
                   "part " + Quoted(product.parts[part].id) + " stands " + std::to_string(depths[part]) +
                       " levels below the top, the limit is " + std::to_string(protocol::kMaxPathDepth)};
    for (const std::uint32_t child : structure.children[part]) {
      depths[child] = std::max(depths[child], depths[part] + 1);
      if (--structure.parentCounts[child] == 0) next.push_back(child);
    }
  }
  return {};
}

}  // namespace

Result<void> CheckProduct(const Product& product) {
  if (auto good = CheckIdentifiers(product); !good) return good;
  return CheckDepth(product);
}

}  // namespace lumira
