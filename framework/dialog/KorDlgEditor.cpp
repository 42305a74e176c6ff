#include "framework/dialog/KorDlgEditor.h"

#include <algorithm>
#include <array>
#include <charconv>

std::span<const KorDlgProperty> KorDlgEditor::Properties() const {
  static constexpr std::array kProperties{
      KorDlgProperty::Title,      KorDlgProperty::Help, KorDlgProperty::Sensitivity,
      KorDlgProperty::Visibility, KorDlgProperty::Grid, KorDlgProperty::Marking,
      KorDlgProperty::TextWidth,  KorDlgProperty::Text, KorDlgProperty::TextSelection};
  return kProperties;
}

void KorDlgEditor::SetText(const KorUnicodeString& text, KorNotify notify) {
  if (text != _text) {
    _text = text;
    Changed(KorDlgProperty::Text);
    ClipToText();
  }
  if (notify == KorNotify::Send) Notify(KorEvent::EditorModify);
}

void KorDlgEditor::ClipToText() {
  const int length = _text.GetLengthInChar();
  Assign(_firstColumn, std::min(_firstColumn, length), KorDlgProperty::TextSelection);
  Assign(_selectionFirst, std::min(_selectionFirst, length), KorDlgProperty::TextSelection);
  Assign(_selectionLast, std::min(_selectionLast, length), KorDlgProperty::TextSelection);
}

double KorDlgEditor::GetValue() const {
  double value = 0;
  _text.ConvertToNum(&value, "%le");
  return value;
}

void KorDlgEditor::SetValue(double value, KorNotify notify) {
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value == 0 ? 0.0 : value).ptr;
  SetText(std::string(digits.data(), end), notify);
}

void KorDlgEditor::SetVisibleTextWidth(int characters) {
  Assign(_visibleTextWidth, characters, KorDlgProperty::TextWidth);
}

void KorDlgEditor::SetFirstColumn(int column) {
  Assign(_firstColumn, std::clamp(column, 0, _text.GetLengthInChar()), KorDlgProperty::TextSelection);
}

void KorDlgEditor::SetSelection(int first, int last) {
  const int length = _text.GetLengthInChar();
  _selectionFirst = std::clamp(first, 0, length);
  _selectionLast = std::clamp(last, _selectionFirst, length);
  Changed(KorDlgProperty::TextSelection);
}

bool KorDlgEditor::Type(const KorUnicodeString& text) {
  if (!CanAct("Type")) return false;
  if (IsReadOnly()) {
    Report("Type");
    return false;
  }
  if (text != _text) SetText(text, KorNotify::Send);
  return true;
}
