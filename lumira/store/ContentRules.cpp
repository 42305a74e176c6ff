#include "lumira/store/ContentRules.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "lumira/model/PropertyRules.h"
#include "lumira/store/ProductRules.h"
#include "lumira/store/SizeRules.h"
#include "protocol/FieldWriter.h"

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

std::size_t BytesOf(const Values& values) {
  std::size_t bytes = 0;
  for (const protocol::ExtraProperty& value : values)
    bytes += protocol::Escape(value.name).size() + protocol::Escape(value.value).size();
  return bytes;
}

// A part that has more already may lose some.
Result<void> CheckSize(const Values& values, const Values& present) {
  const std::size_t bytes = BytesOf(values);
  const auto problem = FindTooMany(bytes, kMaxValueBytes);
  if (!problem || bytes <= BytesOf(present)) return {};
  return Bad("its extra properties " + *problem);
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

bool HaveSameDocument(const PartDetails& a, const PartDetails& b) {
  using protocol::DocumentRevision;
  return a.documentId == b.documentId &&
         std::ranges::equal(a.documents.revisions, b.documents.revisions, {}, &DocumentRevision::revision,
                            &DocumentRevision::revision);
}

Result<void> CheckDocument(const PartDetails& details) {
  if (!details.documentId.empty())
    if (const auto problem = FindIdentifierProblem(details.documentId))
      return Bad("identifier of a document: " + *problem);
  return CheckRevisions(details);
}

Result<void> CheckAgainst(const PropertiesByName& properties, const PartDetails& details,
                          const PartDetails& present) {
  if (!HaveSameDocument(details, present))
    if (auto good = CheckDocument(details); !good) return good;
  return CheckValues(properties, details.properties, present.properties);
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

// All that is told of a part has room beside each other, with the mass types of the part as with those of any
// revision. Not asked when details are saved: who has had more keeps it.
Result<void> CheckTogether(const PartContent& content, const Part& part, std::size_t definitionBytes) {
  if (const auto problem = FindSizeProblem(content.details.documents.revisions))
    return Bad("document " + Quoted(content.details.documentId) + ": " + *problem);
  std::size_t types = lumira::BytesOf(part.massTypes);
  for (const RevisionData& revision : content.revisions)
    types = std::max(types, lumira::BytesOf(revision.massTypes));
  std::size_t values = definitionBytes;
  for (const protocol::ExtraProperty& value : content.details.properties)
    values += protocol::Escape(value.value).size();
  const auto problem = FindTooMany(types + values, kMaxValueBytes);
  return problem ? Result<void>(Bad("its mass types and extra properties " + *problem)) : Result<void>();
}

class PartChecks {
 public:
  PartChecks(const Product& product, const ProductContent& content)
      : _properties(ByName(content.properties)), _definitionBytes(BytesOf(content.properties)) {
    for (const Part& part : product.parts) _left.emplace(part.id, &part);
  }

  Result<void> Look(const PartContent& content) {
    const std::string where = "part " + Quoted(content.partId);
    const auto part = _left.extract(content.partId);
    if (part.empty())
      return Error{ErrorKind::NotFound, where + " is not in the product, or its content is there twice"};
    auto good = CheckAgainst(_properties, content.details, {});
    if (good) good = CheckTogether(content, *part.mapped(), _definitionBytes);
    if (!good) return Error{good.Failure().kind, where + ": " + good.Failure().message};
    const std::string& document = content.details.documentId;
    if (!document.empty() && !_documents.insert(document).second)
      return Bad("document " + Quoted(document) + " belongs to two parts, one of them is " +
                 Quoted(content.partId));
    return CheckAllRevisionData(content);
  }

 private:
  PropertiesByName _properties;
  std::size_t _definitionBytes;
  std::unordered_map<std::string_view, const Part*> _left;  ///< parts whose content was not met yet
  Names _documents;
};

}  // namespace

Result<void> CheckDetails(const std::vector<PropertyDefinition>& properties, const PartDetails& details,
                          const PartDetails& present) {
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
