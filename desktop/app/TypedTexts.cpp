#include "desktop/app/TypedTexts.h"

namespace desktop {

TypedTexts::TypedTexts(KorDlgDialog& panel, BufferOf buffer)
    : _panel(panel), _buffer(std::move(buffer)), _shown(Lines()) {}

void TypedTexts::Follow(const KorDlgObject& sender, KorEvent event) {
  // A refresh of the panel, which ends edit mode, selects in its lists and so tells of it.
  if (!IsInEditMode(_panel)) {
    _texts.clear();
    _properties.clear();
  } else if (event == KorEvent::EditorModify) {
    Take(sender);
  } else {
    HandOverProperty();
    TakeWrittenAnew(sender, event);
  }
  ForgetReplaced();
  const ShownLines now = Lines();
  ForgetOthers(now);
  _shown = now;
}

ShownLines TypedTexts::Lines() const {
  return {_panel.Find<KorDlgCombo>(kMassTypePath).GetSelectedLine(),
          _panel.Find<KorDlgCombo>(kActiveMassTypePath).GetSelectedLine(),
          _panel.Find<KorDlgCombo>(kPrecisionTypePath).GetSelect() != 0,
          _buffer().AdditionalInfoRequested() ? ShownProperty(_panel) : 0};
}

const TypedText* TypedTexts::In(const KorDlgEditor& editor) const {
  const auto found = _texts.find(&editor);
  return found == _texts.end() ? nullptr : &found->second;
}

const TypedText* TypedTexts::OfProperty(int index) const {
  const auto found = _properties.find(index);
  return found == _properties.end() ? nullptr : &found->second;
}

void TypedTexts::Take(const KorDlgObject& sender) {
  for (const ReadEditor& row : ReadEditors()) {
    if (!IsThere(_buffer(), row)) continue;
    const auto& editor = _panel.Find<KorDlgEditor>(row.path);
    if (&editor != &sender) continue;
    const KorUnicodeString& text = editor.GetText();
    _texts[&editor] = {text, ProblemOf(_panel, _buffer(), row), text};
    if (row.content == EditorContent::Property) _properties.erase(ShownProperty(_panel));
  }
}

/// The panel has taken the text of the property that was shown before. Of a magnitude it has kept a number.
void TypedTexts::HandOverProperty() {
  const LumWBAllDataBuffer& buffer = _buffer();
  if (!buffer.AdditionalInfoRequested() || ShownProperty(_panel) == _shown.property) return;
  const auto typed = _texts.extract(&_panel.Find<KorDlgEditor>(kPropertyValuePath));
  if (typed.empty() || typed.mapped().problem.isEmpty()) return;
  if (!ProblemOfStoredProperty(buffer, _shown.property).isEmpty()) return;
  _properties[_shown.property] = {typed.mapped().typed, typed.mapped().problem,
                                  buffer.GetPropertyValue(_shown.property)};
}

/// A bound that is left, and bounds of which another kind is chosen.
void TypedTexts::TakeWrittenAnew(const KorDlgObject& sender, KorEvent event) {
  const bool isOfBounds = event == KorEvent::ComboSelect && &sender == &_panel.Find(kValueTypePath);
  for (const ReadEditor& row : ReadEditors()) {
    if (row.content != EditorContent::Bound) continue;
    const auto& editor = _panel.Find<KorDlgEditor>(row.path);
    const bool isLeft = event == KorEvent::FocusOut && &sender == &editor;
    if (const auto typed = _texts.find(&editor); typed != _texts.end() && (isOfBounds || isLeft))
      typed->second.now = editor.GetText();
  }
}

void TypedTexts::ForgetReplaced() {
  std::erase_if(_texts, [](const auto& text) { return text.first->GetText() != text.second.now; });
}

/// The texts of another mass type may happen to be the same.
void TypedTexts::ForgetOthers(const ShownLines& now) {
  const bool isOtherType = now.massType != _shown.massType;
  const bool areOtherBounds =
      now.activeMassType != _shown.activeMassType || (_shown.hasOwnBounds && !now.hasOwnBounds);
  for (const ReadEditor& row : ReadEditors()) {
    const bool isOfType = row.content == EditorContent::Expression || row.content == EditorContent::Quantity;
    if ((isOfType && isOtherType) || (row.content == EditorContent::Bound && areOtherBounds))
      _texts.erase(&_panel.Find<KorDlgEditor>(row.path));
  }
}

}  // namespace desktop
