#include "lumira/store/ActiveDocument.h"

#include <algorithm>

#include "protocol/Constants.h"

namespace lumira {
namespace {

constexpr char kNoDocument[] = "0";
constexpr int kAttachedMode = 1;

// Times read "YYYY-MM-DD hh:mm:ss", so that they are in order as texts.
std::string MostRecent(const std::vector<protocol::DocumentRevision>& revisions) {
  const auto isOlder = [](const auto& a, const auto& b) { return a.checkInTime <= b.checkInTime; };
  return std::max_element(revisions.begin(), revisions.end(), isOlder)->revision;
}

// A user may have chosen a revision that is not there any more; it is told all the same, so that the panel
// can name it.
std::string ActiveVersion(const protocol::Documents& documents) {
  if (documents.usedSpecificRevisionBefore) return documents.activeVersion;
  return documents.autoMode == kAttachedMode ? documents.attachedVersion : MostRecent(documents.revisions);
}

}  // namespace

protocol::Documents WithActiveDocument(const PartDetails& details) {
  protocol::Documents documents = details.documents;
  const bool cannotBeFound = documents.revisions.empty() &&
                             (!details.documentId.empty() || documents.activeId == protocol::kExceptionFlag);
  if (cannotBeFound || details.documentId.empty()) {
    documents.activeId = cannotBeFound ? std::string(protocol::kExceptionFlag) : kNoDocument;
    documents.activeVersion.clear();
    return documents;
  }
  documents.activeId = details.documentId;
  documents.activeVersion = ActiveVersion(documents);
  return documents;
}

std::string ChosenVersion(const protocol::Documents& documents) {
  return documents.usedSpecificRevisionBefore ? documents.activeVersion : std::string();
}

}  // namespace lumira
