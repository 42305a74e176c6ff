#include "module/shared/KorWBNymNavServerChannel.h"

#include "framework/pdm/KorPdmClient.h"
#include "services/KorLumWBCSCommonDefinitions.h"

KorUnicodeString KorWBNymNavServerChannel::Send(const KorUnicodeString& command,
                                                const KorUnicodeString& request) {
  VARIANT requestVariant;
  VARIANT replyVariant;
  BuildVariant(request, requestVariant);
  BuildVariant("", replyVariant);
  RunServerCode(command, requestVariant, replyVariant);
  KorUnicodeString reply("");
  ConvertVariant(replyVariant, reply);
  return reply;
}

std::optional<KorUnicodeString> KorWBNymNavServerChannel::ErrorOf(const KorUnicodeString& reply) {
  const KorUnicodeString& header = KorLumWBCSCommonDefinitions::errMsgHeader;
  if (reply.SearchSubString(header) < 0) return std::nullopt;
  // Cut at the header's length wherever the header stands, as if it opened the reply: this is intended.
  return reply.SubString(header.GetLengthInChar());
}

bool KorWBNymNavServerChannel::ShowError(const KorUnicodeString& reply, KorDlgDialog* parent) const {
  const auto error = ErrorOf(reply);
  if (error) _messages.ShowOver(parent, "ServerError.Title", *error);
  return error.has_value();
}

const char* KorWBNymNavServerChannel::TitleOfWarnings(const KorUnicodeString& warnings) const {
  // The text that makes a warning an error. Every text holds an empty one: without a catalogue all are
  // errors.
  const KorUnicodeString mark = _messages.Text("WBWarnings001.Message");
  const bool holdsError = warnings.SearchSubString(mark) >= 0;
  return holdsError ? "WBErrors001.Title" : "WBWarnings001.Title";
}

void KorWBNymNavServerChannel::ShowWarnings() const {
  KorUnicodeString warnings("");
  KorWBServices::GetWarningMsgFromLumira(warnings);
  if (warnings.IsEmpty()) return;
  const char* title = TitleOfWarnings(warnings);
  KorWBServices::CleanWarningForDisplay(warnings, warnings);
  _messages.Show(title, warnings);
}
