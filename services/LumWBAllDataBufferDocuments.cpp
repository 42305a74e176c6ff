#include "services/LumWBAllDataBuffer.h"

#include "protocol/Constants.h"
#include "protocol/Numbers.h"
#include "services/KorWBBufferContent.h"

namespace {

std::optional<std::string> InfoOf(const protocol::DocumentRevision& revision, int kind) {
  switch (kind) {
    case LumWBAllDataBuffer::kRevision:
      return revision.revision;
    case LumWBAllDataBuffer::kCheckInTime:
      return revision.checkInTime;
    case LumWBAllDataBuffer::kCheckInUser:
      return revision.checkInUser;
    case LumWBAllDataBuffer::kCheckOutUser:
      return revision.checkOutUser.value_or(std::string(protocol::kNull));
    case LumWBAllDataBuffer::kMassTypes:
      return revision.massTypes;
    case LumWBAllDataBuffer::kDocMass:
      return protocol::FormatNumber(revision.mass);
    default:
      return std::nullopt;
  }
}

}  // namespace

bool LumWBAllDataBuffer::AreOldDocumentsUsed() const { return Data().data.documents.used; }

std::size_t LumWBAllDataBuffer::GetVersionCount() const { return Data().data.documents.revisions.size(); }

HRESULT LumWBAllDataBuffer::GetActiveDocId(KorUnicodeString& id) const {
  id = Data().data.documents.activeId;
  return S_OK;
}

HRESULT LumWBAllDataBuffer::SetActiveDocId(const KorUnicodeString& id) {
  Data().data.documents.activeId = id.Utf8();
  return S_OK;
}

HRESULT LumWBAllDataBuffer::GetActiveDocVersion(KorUnicodeString& version) const {
  version = Data().data.documents.activeVersion;
  return S_OK;
}

HRESULT LumWBAllDataBuffer::SetActiveDocVersion(const KorUnicodeString& version) {
  protocol::Documents& documents = Data().data.documents;
  documents.activeVersion = version.Utf8();
  // The automatic revision and the same one chosen by hand have one name; only this tells them apart. Without
  // revisions there was nothing to choose from.
  if (!documents.revisions.empty())
    documents.usedSpecificRevisionBefore = documents.used && documents.activeVersion != protocol::kNull;
  return S_OK;
}

int LumWBAllDataBuffer::GetDocAutoMode() const { return Data().data.documents.autoMode; }

bool LumWBAllDataBuffer::HasUsedSpecificRevBefore() const {
  return Data().data.documents.usedSpecificRevisionBefore;
}

KorUnicodeString LumWBAllDataBuffer::GetCurrentlyAttachedVersion() const {
  return Data().data.documents.attachedVersion;
}

HRESULT LumWBAllDataBuffer::GetDocRevsInfo(int index, int kind, KorUnicodeString& text) const {
  const auto& revisions = Data().data.documents.revisions;
  if (index < 1 || static_cast<std::size_t>(index) > revisions.size()) return E_FAIL;
  const auto info = InfoOf(revisions[static_cast<std::size_t>(index) - 1], kind);
  if (!info) return E_FAIL;
  text = *info;
  return S_OK;
}
