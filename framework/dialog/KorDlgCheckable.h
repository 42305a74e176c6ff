#pragma once

#include "framework/dialog/KorDlgObject.h"

/// What radio and check buttons share: a checked state.
class KOR_FRAMEWORK_API KorDlgCheckable : public KorDlgObject {
 public:
  std::span<const KorDlgProperty> Properties() const override;

  KorCheckState GetState() const { return _state; }
  bool IsChecked() const { return _state == KorCheckState::Checked; }

 protected:
  using KorDlgObject::KorDlgObject;
  bool AssignState(KorCheckState state);

 private:
  KorCheckState _state = KorCheckState::Unchecked;
};
