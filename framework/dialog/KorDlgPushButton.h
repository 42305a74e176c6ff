#pragma once

#include "framework/dialog/KorDlgObject.h"

class KOR_FRAMEWORK_API KorDlgPushButton : public KorDlgObject {
 public:
  KorDlgPushButton(KorDlgObject* parent, const char* name, unsigned style)
      : KorDlgObject(parent, name, style) {}
  KorDlgKind Kind() const override { return KorDlgKind::PushButton; }

  /// Verb. Sends PushActivate.
  bool Press();
};
