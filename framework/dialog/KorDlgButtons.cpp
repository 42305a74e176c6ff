#include <array>

#include "framework/dialog/KorDlgCheckButton.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"

bool KorDlgPushButton::Press() {
  if (!CanAct("Press")) return false;
  if (_guard && !_guard()) return false;
  Notify(KorEvent::PushActivate);
  return true;
}

std::span<const KorDlgProperty> KorDlgCheckable::Properties() const {
  static constexpr std::array kProperties{
      KorDlgProperty::Title, KorDlgProperty::Help,    KorDlgProperty::Sensitivity, KorDlgProperty::Visibility,
      KorDlgProperty::Grid,  KorDlgProperty::Marking, KorDlgProperty::Checked};
  return kProperties;
}

bool KorDlgCheckable::AssignState(KorCheckState state) {
  if (_state == state) return false;
  _state = state;
  Changed(KorDlgProperty::Checked);
  return true;
}

std::vector<KorDlgRadioButton*> KorDlgRadioButton::UncheckOthers() {
  std::vector<KorDlgRadioButton*> changed;
  if (!Parent()) return changed;
  for (const auto& sibling : Parent()->Children()) {
    auto* radio = dynamic_cast<KorDlgRadioButton*>(sibling.get());
    if (radio && radio != this && radio->AssignState(KorCheckState::Unchecked)) changed.push_back(radio);
  }
  return changed;
}

void KorDlgRadioButton::SetState(KorCheckState state, KorNotify notify) {
  // All states are in place before the first handler looks at them.
  std::vector<KorDlgRadioButton*> unchecked;
  if (state == KorCheckState::Checked) unchecked = UncheckOthers();
  AssignState(state);
  if (notify == KorNotify::Silent) return;
  for (KorDlgRadioButton* radio : unchecked) radio->Notify(KorEvent::RadioModify);
  Notify(KorEvent::RadioModify);
}

bool KorDlgRadioButton::Check() {
  if (!CanAct("Check")) return false;
  if (!IsChecked()) SetState(KorCheckState::Checked, KorNotify::Send);
  return true;
}

void KorDlgCheckButton::SetState(KorCheckState state, KorNotify notify) {
  AssignState(state);
  if (notify == KorNotify::Send) Notify(KorEvent::CheckModify);
}

bool KorDlgCheckButton::Toggle() {
  if (!CanAct("Toggle")) return false;
  SetState(KorCheckedIf(!IsChecked()), KorNotify::Send);
  return true;
}
