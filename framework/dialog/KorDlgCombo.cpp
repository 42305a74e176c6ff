#include "framework/dialog/KorDlgCombo.h"

#include <algorithm>
#include <array>

std::span<const KorDlgProperty> KorDlgCombo::Properties() const {
  static constexpr std::array kProperties{
      KorDlgProperty::Title, KorDlgProperty::Help,    KorDlgProperty::Sensitivity, KorDlgProperty::Visibility,
      KorDlgProperty::Grid,  KorDlgProperty::Marking, KorDlgProperty::Lines,       KorDlgProperty::Selection};
  return kProperties;
}

KorUnicodeString KorDlgCombo::GetLine(int index) const {
  return index >= 0 && index < GetLineCount() ? _lines[index] : KorUnicodeString();
}

void KorDlgCombo::ClearLines() {
  _lines.clear();
  _selected = -1;
  Changed(KorDlgProperty::Lines);
  Changed(KorDlgProperty::Selection);
}

void KorDlgCombo::SetLine(const KorUnicodeString& text, int index) {
  const int place = index < 0 || index > GetLineCount() ? GetLineCount() : index;
  _lines.insert(_lines.begin() + place, text);
  if (GetLineCount() == 1)
    _selected = 0;
  else if (place <= _selected)
    ++_selected;
  Changed(KorDlgProperty::Lines);
  Changed(KorDlgProperty::Selection);
}

void KorDlgCombo::DeleteLine(int index) {
  if (index < 0 || index >= GetLineCount()) return;
  _lines.erase(_lines.begin() + index);
  if (index < _selected) --_selected;
  _selected = std::min(_selected, GetLineCount() - 1);
  Changed(KorDlgProperty::Lines);
  Changed(KorDlgProperty::Selection);
}

void KorDlgCombo::SetSelect(int index, KorNotify notify) {
  if (index >= 0 && index < GetLineCount()) Assign(_selected, index, KorDlgProperty::Selection);
  if (notify == KorNotify::Send) Notify(KorEvent::ComboSelect);
}

bool KorDlgCombo::SetSelect(const KorUnicodeString& text, KorNotify notify) {
  const int index = LineWith(text);
  SetSelect(index, notify);
  return index >= 0;
}

int KorDlgCombo::LineWith(const KorUnicodeString& text) const {
  const auto found = std::find(_lines.begin(), _lines.end(), text);
  return found == _lines.end() ? -1 : static_cast<int>(found - _lines.begin());
}

bool KorDlgCombo::Pick(int index) {
  if (!CanAct("Pick")) return false;
  if (index < 0 || index >= GetLineCount()) {
    Report("Pick");
    return false;
  }
  if (_guard && !_guard(index)) return false;
  SetSelect(index, KorNotify::Send);
  return true;
}

bool KorDlgCombo::Pick(const KorUnicodeString& text) { return Pick(LineWith(text)); }
