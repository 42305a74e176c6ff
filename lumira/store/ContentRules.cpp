#include "lumira/store/ContentRules.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "lumira/model/PropertyRules.h"
#include "lumira/store/ProductRules.h"
#include "protocol/FieldWriter.h"
#include "protocol/Limits.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Quoted;
using protocol::Result;

using Names = std::unordered_set<std::string_view>;
using Values = std::vector<protocol::ExtraProperty>;
using PropertiesByName = std::unordered_map<std::string_view, const PropertyDefinition*>;

Error Bad(const std::string& text) { return {ErrorKind::BadValue, text}; }

PropertiesByName ByName(const std::vector<PropertyDefinition>& properties) {
  PropertiesByName byName;
  for (const PropertyDefinition& property : properties) byName.emplace(property.name, &property);
  return byName;
}

Result<void> CheckDefinitions(const std::vector<PropertyDefinition>& properties) {
  Names names;
  for (const PropertyDefinition& property : properties) {
    if (const auto problem = FindDefinitionProblem(property))
      return Bad("extra property " + Quoted(property.name) + ": " + *problem);
    if (!names.insert(property.name).second)
      return Bad("extra property " + Quoted(property.name) + " is there twice");
  }
  return {};
}

// Half of what a text may have; the other half is left for what is told of the part beside it.
constexpr std::size_t kMaxValueBytes = protocol::kMaxTextBytes / 2;

std::size_t BytesOf(const Values& values) {
  std::size_t bytes = 0;
  for (const protocol::ExtraProperty& value : values)
    bytes += protocol::Escape(value.name).size() + protocol::Escape(value.value).size();
  return bytes;
}

// A part that has more already may lose some.
Result<void> CheckSize(const Values& values, const Values& present) {
  const std::size_t bytes = BytesOf(values);
  if (bytes <= kMaxValueBytes || bytes <= BytesOf(present)) return {};
  return Bad("its extra properties have " + std::to_string(bytes) + " bytes together, at most " +
             std::to_string(kMaxValueBytes) + " expected");
}

Result<void> CheckValues(const PropertiesByName& properties, const Values& values, const Values& present) {
  if (auto good = CheckSize(values, present); !good) return good;
  Names names;
  const auto isPresent = [&](const protocol::ExtraProperty& value) {
    const auto found = std::ranges::find(present, value.name, &protocol::ExtraProperty::name);
    return found != present.end() && found->value == value.value;
  };
  for (const protocol::ExtraProperty& value : values) {
    const auto property = properties.find(value.name);
    if (property == properties.end())
      return Error{ErrorKind::NotFound, "there is no extra property " + Quoted(value.name)};
    if (!names.insert(value.name).second)
      return Bad("extra property " + Quoted(value.name) + " has two values");
    if (const auto problem = FindValueProblem(*property->second, value.value); problem && !isPresent(value))
      return Bad("extra property " + Quoted(value.name) + ": " + *problem);
  }
  return {};
}

Result<void> CheckRevisions(const PartDetails& details) {
  const auto bad = [&](const std::string& problem) {
    return Bad("document " + Quoted(details.documentId) + ": " + problem);
  };
  Names names;
  for (const protocol::DocumentRevision& revision : details.documents.revisions) {
    if (const auto problem = FindIdentifierProblem(revision.revision)) return bad("revision: " + *problem);
    if (!names.insert(revision.revision).second)
      return bad("revision " + Quoted(revision.revision) + " is there twice");
  }
  return {};
}

Result<void> CheckAgainst(const PropertiesByName& properties, const PartDetails& details,
                          const Values& present) {
  if (!details.documentId.empty())
    if (const auto problem = FindIdentifierProblem(details.documentId))
      return Bad("identifier of a document: " + *problem);
  if (auto good = CheckRevisions(details); !good) return good;
  return CheckValues(properties, details.properties, present);
}

// A revision's data is checked as that of a part that has it.
Result<void> CheckRevisionData(const PartContent& content, const RevisionData& data) {
  const std::string where =
      "document " + Quoted(content.details.documentId) + ", revision " + Quoted(data.revision) + ": ";
  const auto& listed = content.details.documents.revisions;
  if (std::ranges::find(listed, data.revision, &protocol::DocumentRevision::revision) == listed.end())
    return Error{ErrorKind::NotFound, where + "the document does not list it"};
  Part part;
  part.id = content.partId;
  part.massTypes = data.massTypes;
  part.activeMassType = data.activeMassType;
  const auto good = CheckPart(part);
  return good ? good : Result<void>(Bad(where + good.Failure().message));
}

Result<void> CheckAllRevisionData(const PartContent& content) {
  Names names;
  for (const RevisionData& data : content.revisions) {
    if (auto good = CheckRevisionData(content, data); !good) return good;
    if (!names.insert(data.revision).second)
      return Bad("document " + Quoted(content.details.documentId) + ": revision " + Quoted(data.revision) +
                 " has its data twice");
  }
  return {};
}

class PartChecks {
 public:
  PartChecks(const Product& product, const ProductContent& content)
      : _properties(ByName(content.properties)) {
    for (const Part& part : product.parts) _left.insert(part.id);
  }

  Result<void> Look(const PartContent& content) {
    const std::string where = "part " + Quoted(content.partId);
    if (_left.erase(content.partId) == 0)
      return Error{ErrorKind::NotFound, where + " is not in the product, or its content is there twice"};
    if (auto good = CheckAgainst(_properties, content.details, {}); !good)
      return Error{good.Failure().kind, where + ": " + good.Failure().message};
    const std::string& document = content.details.documentId;
    if (!document.empty() && !_documents.insert(document).second)
      return Bad("document " + Quoted(document) + " belongs to two parts, one of them is " +
                 Quoted(content.partId));
    return CheckAllRevisionData(content);
  }

 private:
  PropertiesByName _properties;
  Names _left;  ///< parts whose content was not met yet
  Names _documents;
};

}  // namespace

Result<void> CheckDetails(const std::vector<PropertyDefinition>& properties, const PartDetails& details,
                          const std::vector<protocol::ExtraProperty>& present) {
  return CheckAgainst(ByName(properties), details, present);
}

Result<void> CheckContent(const Product& product, const ProductContent& content) {
  if (auto good = CheckDefinitions(content.properties); !good) return good;
  if (content.parts.empty()) return {};
  PartChecks checks(product, content);
  for (const PartContent& part : content.parts)
    if (auto good = checks.Look(part); !good) return good;
  return {};
}

}  // namespace lumira
