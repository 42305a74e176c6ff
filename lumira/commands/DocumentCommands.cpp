#include <algorithm>
#include <string>

#include "lumira/commands/Commands.h"
#include "lumira/commands/PartDataOf.h"
#include "lumira/commands/UserMassTypes.h"
#include "protocol/Codec.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::PartData;
using protocol::Quoted;
using protocol::Result;

Error NoSuchRevision(const protocol::DocumentRequest& request, const PartData& part) {
  std::string known;
  for (const auto& revision : part.documents.revisions)
    known += (known.empty() ? "" : ", ") + Quoted(revision.revision);
  return {ErrorKind::NotFound, "document " + Quoted(request.documentId) + " of part " + Quoted(part.partId) +
                                   " has no revision " + Quoted(request.revision) +
                                   (known.empty() ? "; none is known" : "; those known are " + known)};
}

// The request does not say which part is meant, and an older program has let several have the document.
Error ManyOwners(const std::string& documentId, const std::vector<PartOwner>& owners) {
  std::string parts;
  for (const PartOwner& owner : owners)
    parts += (parts.empty() ? "" : ", ") + Quoted(owner.part) + " of product " + Quoted(owner.product);
  return {ErrorKind::Conflict, "document " + Quoted(documentId) + " belongs to several parts, " + parts +
                                   ", so that it does not tell which of them is meant; import their products "
                                   "anew, with a document of its own for each part"};
}

Result<std::string> OwnerOf(Store& store, const std::string& documentId) {
  const auto owners = store.PartsOfDocument(documentId);
  if (!owners) return owners.Failure();
  if (owners.Value().empty()) return Error{ErrorKind::NotFound, "there is no document " + Quoted(documentId)};
  if (owners.Value().size() > 1) return ManyOwners(documentId, owners.Value());
  return owners.Value().front().part;
}

// The computed mass type is that of the part as it stands: results do not belong to a revision. The request
// has no room for a filter, so that they are those of the whole product, as the filter of the reply says.
void TakeRevision(PartData& part, const RevisionData& revision) {
  part.massTypes.resize(1);
  for (protocol::MassType& type : ToWire(revision.massTypes, revision.precisions))
    part.massTypes.push_back(std::move(type));
  part.activeMassType = revision.activeMassType;
  part.persisted = !revision.massTypes.empty();
  part.material.name = revision.material;
  part.material.density = revision.density;
  part.documents.activeVersion = revision.revision;
  part.massTypesOrigin = {protocol::OriginKind::Revision, revision.revision};
}

}  // namespace

Result<std::string> GetActiveDocument(Session& session, std::string_view text) {
  const auto request = protocol::ReadDocumentRequest(text);
  if (!request) return request.Failure();
  const auto& [documentId, revision] = request.Value();
  const auto owner = OwnerOf(session.store, documentId);
  if (!owner) return owner.Failure();
  auto part = PartDataOf(session, {.partId = owner.Value()});
  if (!part) return part.Failure();
  const auto& listed = part.Value().documents.revisions;
  if (std::ranges::find(listed, revision, &protocol::DocumentRevision::revision) == listed.end())
    return NoSuchRevision(request.Value(), part.Value());
  const auto data = session.store.LoadRevision(owner.Value(), revision);
  if (!data) return data.Failure();
  TakeRevision(part.Value(), data.Value());
  return protocol::WritePartData(part.Value());
}

}  // namespace lumira
