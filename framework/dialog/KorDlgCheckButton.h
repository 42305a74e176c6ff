#pragma once

#include "framework/dialog/KorDlgCheckable.h"

class KOR_FRAMEWORK_API KorDlgCheckButton : public KorDlgCheckable {
 public:
  KorDlgCheckButton(KorDlgObject* parent, const char* name, unsigned style)
      : KorDlgCheckable(parent, name, style) {}
  KorDlgKind Kind() const override { return KorDlgKind::CheckButton; }

  void SetState(KorCheckState state, KorNotify notify = KorNotify::Silent);

  /// Verb: the user changes it. Sends CheckModify.
  bool Toggle();
};
