#include "lumira/import/ContentRows.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

#include "lumira/store/SizeRules.h"
#include "protocol/FieldWriter.h"
#include "protocol/Utf8.h"

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

using BytesOfParts = std::unordered_map<std::string_view, std::size_t>;

// Of the mass types of each part, or of the revision that has most.
BytesOfParts MassTypeBytes(const MassRows& mass, const DocumentRows& documents) {
  BytesOfParts bytes;
  for (const PartRow& row : mass.parts) bytes.emplace(row.part.id, row.massTypeBytes);
  for (const DocumentOfPart& document : documents.documents)
    for (const std::size_t revision : document.massTypeBytes) {
      std::size_t& most = bytes[document.content.partId];
      most = std::max(most, revision);
    }
  return bytes;
}

}  // namespace

void CheckSizes(const MassRows& mass, const DocumentRows& documents, const PropertyRows& properties,
                ImportLog& log) {
  BytesOfParts parts = MassTypeBytes(mass, documents);
  const std::size_t definitions = BytesOf(properties.definitions);
  for (const PropertyOfPart& value : properties.values) {
    std::size_t& bytes = parts[value.partId];
    const std::size_t before = definitions + bytes;
    bytes += protocol::Escape(value.property.value).size();
    if (const auto problem = FindTooMany(definitions + bytes, kMaxValueBytes);
        problem && before <= kMaxValueBytes)
      log.Error(value.value, "with this one the mass types and extra properties of part " +
                                 protocol::Quoted(value.partId) + " " + *problem);
  }
}

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
