#pragma once

#include "framework/dialog/KorDlgCheckable.h"

/// One of several choices. Radio buttons that share a parent exclude each other.
class KOR_FRAMEWORK_API KorDlgRadioButton : public KorDlgCheckable {
 public:
  KorDlgRadioButton(KorDlgObject* parent, const char* name, unsigned style)
      : KorDlgCheckable(parent, name, style) {}
  KorDlgKind Kind() const override { return KorDlgKind::RadioButton; }

  /// Checking it unchecks the others of the same parent. With notification each other one that changed sends
  /// RadioModify first, then this one, which always sends it.
  void SetState(KorCheckState state, KorNotify notify = KorNotify::Silent);

  /// Verb: the user checks it; nothing happens when it is checked already.
  bool Check();

 private:
  std::vector<KorDlgRadioButton*> UncheckOthers();
};
