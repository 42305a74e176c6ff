#include "lumira/import/ContentRows.h"

#include <unordered_map>

namespace lumira {
namespace {

// Finds the content of a part, which is made with the first question.
class ContentByPart {
 public:
  explicit ContentByPart(ProductContent& content) : _content(content) {
    for (const PartContent& part : content.parts) _indices.emplace(part.partId, _indices.size());
  }

  PartContent& Of(const std::string& part) {
    const auto [known, isNew] = _indices.emplace(part, _content.parts.size());
    if (isNew) _content.parts.push_back({part});
    return _content.parts[known->second];
  }

 private:
  ProductContent& _content;
  std::unordered_map<std::string, std::size_t> _indices;
};

}  // namespace

bool HasContent(const PartDetails& details) {
  return !details.precisions.empty() || !details.appliedOn.empty() || !details.referenceMaterial.empty() ||
         details.referenceDensity.has_value();
}

void AddToContent(ProductContent& content, const DocumentRows& documents, const PropertyRows& properties,
                  const IsKnownPart& isKnown) {
  ContentByPart parts(content);
  for (const DocumentOfPart& document : documents.documents) {
    if (!isKnown(document.content.partId, document.part)) continue;
    PartContent& part = parts.Of(document.content.partId);
    part.details.documentId = document.content.details.documentId;
    part.details.documents = document.content.details.documents;
    part.revisions = document.content.revisions;
  }
  content.properties = properties.definitions;
  for (const PropertyOfPart& value : properties.values)
    if (isKnown(value.partId, value.part))
      parts.Of(value.partId).details.properties.push_back(value.property);
}

}  // namespace lumira
