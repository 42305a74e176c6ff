#include "framework/dialog/KorDlgSpinner.h"

#include <array>

std::span<const KorDlgProperty> KorDlgSpinner::Properties() const {
  static constexpr std::array kProperties{
      KorDlgProperty::Title, KorDlgProperty::Help,    KorDlgProperty::Sensitivity, KorDlgProperty::Visibility,
      KorDlgProperty::Grid,  KorDlgProperty::Marking, KorDlgProperty::Text,        KorDlgProperty::Arrows};
  return kProperties;
}

void KorDlgSpinner::SetText(const KorUnicodeString& text, KorNotify notify) {
  Assign(_text, text, KorDlgProperty::Text);
  if (notify == KorNotify::Send) Notify(KorEvent::SpinnerModify);
}

void KorDlgSpinner::SetUpSensitivity(KorSensitivity sensitivity) {
  Assign(_up, sensitivity, KorDlgProperty::Arrows);
}

void KorDlgSpinner::SetDownSensitivity(KorSensitivity sensitivity) {
  Assign(_down, sensitivity, KorDlgProperty::Arrows);
}

bool KorDlgSpinner::TurnUp() {
  if (!CanAct("TurnUp")) return false;
  if (_up == KorSensitivity::Disabled) {
    Report("TurnUp");
    return false;
  }
  Notify(KorEvent::SpinnerUp);
  return true;
}

bool KorDlgSpinner::TurnDown() {
  if (!CanAct("TurnDown")) return false;
  if (_down == KorSensitivity::Disabled) {
    Report("TurnDown");
    return false;
  }
  Notify(KorEvent::SpinnerDown);
  return true;
}
