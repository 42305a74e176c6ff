#pragma once

#include "services/KorWBServices.h"

/// Message boxes of a panel, with texts of its catalogue.
struct KorWBNymNavMessages {
  KorDlgDialog* panel;
  KorString catalogue;

  KorUnicodeString Text(const KorString& key, const KorUnicodeString& fallback = {}) const;
  KorUnicodeString Text(const KorString& key, const KorUnicodeString& parameter,
                        const KorUnicodeString& fallback) const;
  /// Over the panel, under the title of that key.
  void Show(const KorString& titleKey, const KorUnicodeString& message,
            unsigned flags = KorWBServices::kErrorOrWarning) const;
  void ShowOver(KorDlgDialog* parent, const KorString& titleKey, const KorUnicodeString& message,
                unsigned flags = KorWBServices::kErrorOrWarning) const;
};
