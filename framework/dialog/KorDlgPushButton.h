#pragma once

#include <functional>
#include <utility>

#include "framework/dialog/KorDlgObject.h"

class KOR_FRAMEWORK_API KorDlgPushButton : public KorDlgObject {
 public:
  KorDlgPushButton(KorDlgObject* parent, const char* name, unsigned style)
      : KorDlgObject(parent, name, style) {}
  KorDlgKind Kind() const override { return KorDlgKind::PushButton; }

  /// Verb. Sends PushActivate, unless the guard says no.
  bool Press();

  /// The host's say in what a press does: asked at each one, before anybody is told of it; false: nothing is
  /// sent. It may not destroy the button. Null, as at the start: nobody is asked.
  using Guard = std::function<bool()>;
  void SetGuard(Guard guard) { _guard = std::move(guard); }

 private:
  Guard _guard;
};
