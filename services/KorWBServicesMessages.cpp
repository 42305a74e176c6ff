#include "services/KorWBServices.h"

#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "framework/pdm/KorPdmClient.h"
#include "protocol/Codec.h"
#include "protocol/Constants.h"
#include "services/KorLumWBCSCommonDefinitions.h"

namespace {

using Definitions = KorLumWBCSCommonDefinitions;

static_assert(KorWBServices::kErrorOrWarning == KorDlgMessage::kError);
static_assert(KorWBServices::kInformation == KorDlgMessage::kInformation);

constexpr const char* kCatalogue = "KorWBServices";
constexpr const char* kBehindMark = ": ";

const KorUnicodeString& MarkOf(protocol::Severity severity) {
  switch (severity) {
    case protocol::Severity::Error:
      return Definitions::warningMarkError;
    case protocol::Severity::Warning:
      return Definitions::warningMarkWarning;
    case protocol::Severity::Information:
      break;
  }
  return Definitions::warningMarkInformation;
}

KorUnicodeString MarkedLine(protocol::Severity severity, const KorUnicodeString& text) {
  return MarkOf(severity) + kBehindMark + text + "\n";
}

HRESULT TellWhy(const KorUnicodeString& reason, KorUnicodeString& text) {
  text = MarkedLine(protocol::Severity::Warning,
                    KorMsgCatalog::BuildMessage(kCatalogue, "WarningsNotFetched.Message", &reason, 1,
                                                "The server's warnings could not be fetched: {1}"));
  return E_FAIL;
}

KorUnicodeString WithoutMark(const KorUnicodeString& line) {
  for (const KorUnicodeString* mark : {&Definitions::warningMarkError, &Definitions::warningMarkWarning,
                                       &Definitions::warningMarkInformation}) {
    const KorUnicodeString front = *mark + kBehindMark;
    if (line.Utf8().starts_with(front.Utf8())) return line.Utf8().substr(front.Utf8().size());
  }
  return line;
}

}  // namespace

void KorWBServices::DisplayMsg(KorDlgDialog* parent, const char* title, const KorUnicodeString& message,
                               unsigned flags) {
  KorApplicationFrame::ShowMessage({.parent = parent, .title = title, .text = message, .flags = flags});
}

HRESULT KorWBServices::GetWarningMsgFromLumira(KorUnicodeString& text) {
  VARIANT request, reply;
  if (Failed(RunServerCode(KorUnicodeString(protocol::kCommandPendingWarnings), request, reply)))
    return E_FAIL;
  const std::string& answer = reply.text.Utf8();
  // Only at the front: the text of a warning may hold anything.
  if (answer.starts_with(protocol::kErrorHeader))
    return TellWhy(answer.substr(protocol::kErrorHeader.size()), text);
  text = {};
  if (answer.empty()) return S_OK;  // a server that has nothing to say may say nothing
  const auto read = protocol::ReadPendingWarnings(answer);
  if (!read) return TellWhy(read.Failure().message, text);
  for (const protocol::Warning& warning : read.Value().warnings)
    text += MarkedLine(warning.severity, warning.text);
  return S_OK;
}

void KorWBServices::CleanWarningForDisplay(const KorUnicodeString& text, KorUnicodeString& shown) {
  KorUnicodeString clean;
  for (const KorUnicodeString& line : StringTokenizer(text, "\n")) {
    const KorUnicodeString content = WithoutMark(line).Strip();
    if (content.IsEmpty()) continue;
    if (!clean.IsEmpty()) clean += "\n";
    clean += content;
  }
  shown = clean;
}
