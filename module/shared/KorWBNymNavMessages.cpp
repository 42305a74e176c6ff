#include "module/shared/KorWBNymNavMessages.h"

#include "framework/dialog/KorMsgCatalog.h"

KorUnicodeString KorWBNymNavMessages::Text(const KorString& key, const KorUnicodeString& fallback) const {
  return KorMsgCatalog::BuildMessage(catalogue, key, nullptr, 0, fallback);
}

KorUnicodeString KorWBNymNavMessages::Text(const KorString& key, const KorUnicodeString& parameter,
                                           const KorUnicodeString& fallback) const {
  return KorMsgCatalog::BuildMessage(catalogue, key, &parameter, 1, fallback);
}

void KorWBNymNavMessages::Show(const KorString& titleKey, const KorUnicodeString& message,
                               unsigned flags) const {
  ShowOver(panel, titleKey, message, flags);
}

void KorWBNymNavMessages::ShowOver(KorDlgDialog* parent, const KorString& titleKey,
                                   const KorUnicodeString& message, unsigned flags) const {
  KorWBServices::DisplayMsg(parent, Text(titleKey).ConvertToChar(), message, flags);
}
