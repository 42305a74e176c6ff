#include "benchmarks/panel/LargePart.h"

#include <cstdio>
#include <string>

namespace bench {
namespace {

std::string Numbered(const char* what, int i) { return what + (" " + std::to_string(i)); }

lumira::MassTypeData MassType(int i) {
  return {Numbered("Estimate", i),
          {1'000.0 + i, lumira::Vec3{1, 2, 3}, lumira::InertiaTensor{4, 5, 6, 0, 0, 0}},
          {},
          {}};
}

lumira::Part Root(int massTypes) {
  lumira::Part root;
  root.id = "large";
  for (int i = 0; i < massTypes; ++i) root.massTypes.push_back(MassType(i));
  root.activeMassType = root.massTypes.front().name;
  return root;
}

lumira::Part Child(int i) {
  lumira::Part part;
  part.id = "child" + std::to_string(i);
  part.material = Numbered("Material", i);
  part.density = 1'000.0 + i;
  return part;
}

protocol::DocumentRevision Revision(int i) {
  char time[40];
  std::snprintf(time, sizeof time, "2020-%02d-%02d 12:00:00", 1 + i / 28 % 12, 1 + i % 28);
  return {"R" + std::to_string(i), time, "eva", {}, "Estimated", 1'000.0 + i};
}

// Every type in turn, each with a value.
void AddProperty(LargePart& large, int i) {
  constexpr const char* kValues[] = {"painted", "7", "2020-02-29", "1.35", "9200"};
  const auto type = static_cast<lumira::PropertyType>(i % 5);
  const bool isMagnitude = type == lumira::PropertyType::Magnitude;
  large.content.properties.push_back({Numbered("Property", i), type, isMagnitude ? "LENGTH" : ""});
  large.content.parts.front().details.properties.push_back(
      {.name = Numbered("Property", i), .value = kValues[i % 5]});
}

}  // namespace

LargePart MakeLargePart(const PartSize& size) {
  LargePart large{{"large", {Root(size.massTypes)}, {}, {"large"}}, {{}, {{"large"}}}};
  for (int i = 0; i < size.materials; ++i) {
    large.product.parts.push_back(Child(i));
    large.product.instances.push_back({Numbered("i", i), "large", large.product.parts.back().id, 1, {}});
  }
  lumira::PartContent& content = large.content.parts.front();
  content.details.documentId = "D-1";
  content.details.documents.used = true;
  for (int i = 0; i < size.revisions; ++i) {
    content.details.documents.revisions.push_back(Revision(i));
    content.revisions.push_back({"R" + std::to_string(i), {MassType(i)}, MassType(i).name});
  }
  for (int i = 0; i < size.properties; ++i) AddProperty(large, i);
  return large;
}

}  // namespace bench
