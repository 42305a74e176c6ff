#include "benchmarks/save/Products.h"

#include <string>
#include <utility>

namespace bench {
namespace {

using namespace lumira;

constexpr std::size_t kInAnAssembly = 8;

MassTypeData MassType(const std::string& name, double mass) {
  return {name, {mass, Vec3{0.1, 0.2, 0.3}, InertiaTensor{1, 1, 1, 0, 0, 0}}, {}, MassBounds{0.5, 0.5}};
}

Part Item(int number, int massTypes) {
  Part part;
  part.id = "P" + std::to_string(number);
  for (int i = 0; i < massTypes; ++i) part.massTypes.push_back(MassType("Type " + std::to_string(i), 1 + i));
  part.activeMassType = part.massTypes.front().name;
  return part;
}

// Puts the parts of one level into assemblies of the next, and gives those.
std::vector<std::string> Assemble(Product& product, const std::vector<std::string>& children, int level) {
  std::vector<std::string> assemblies;
  for (std::size_t i = 0; i < children.size(); ++i) {
    if (i % kInAnAssembly == 0) {
      Part& assembly = product.parts.emplace_back();
      assembly.id = children.size() <= kInAnAssembly
                        ? "top"
                        : "A" + std::to_string(level) + "-" + std::to_string(i / kInAnAssembly);
      assemblies.push_back(assembly.id);
    }
    product.instances.push_back({children[i] + ".1", assemblies.back(), children[i], 1, {}});
  }
  return assemblies;
}

}  // namespace

Product EightEach(int items, int massTypes) {
  Product product{"PRODUCT", {}, {}, {"top"}};
  std::vector<std::string> level;
  for (int i = 0; i < items; ++i) {
    product.parts.push_back(Item(i, i == 0 ? massTypes : 1));
    level.push_back(product.parts.back().id);
  }
  for (int number = 1; level.size() > 1; ++number) level = Assemble(product, level, number);
  return product;
}

ProductContent LongContent(int revisions, int properties) {
  PartContent part{"P0"};
  PartDetails& details = part.details;
  details.documentId = "D1";
  details.documents.used = true;
  for (int i = 0; i < revisions; ++i)
    details.documents.revisions.push_back(
        {"R" + std::to_string(i), "2024-05-01 12:30:00", "eva", {}, "Type 0", 1.0 * i});
  ProductContent content;
  for (int i = 0; i < properties; ++i) {
    content.properties.push_back({"Property " + std::to_string(i), PropertyType::Integer});
    details.properties.push_back({content.properties.back().name, std::to_string(i)});
  }
  content.parts.push_back(std::move(part));
  return content;
}

}  // namespace bench
