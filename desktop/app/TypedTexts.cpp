#include "desktop/app/TypedTexts.h"

#include "desktop/app/PartPanelMarks.h"
#include "desktop/toolkit/QtText.h"

namespace desktop {
namespace {

constexpr const char* kValueType = "TabContainer001.TabPage005.Frame252.PrecisionValueFrame.ValueTypeCombo";

bool IsThere(const LumWBAllDataBuffer& buffer, const ReadEditor& row) {
  return row.content != EditorContent::Property || buffer.AdditionalInfoRequested();
}

}  // namespace

TypedTexts::TypedTexts(KorDlgDialog& panel, BufferOf buffer) : _panel(panel), _buffer(std::move(buffer)) {}

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
  if (_buffer().AdditionalInfoRequested()) _shownProperty = ShownProperty(_panel);
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
    _texts[&editor] = {ToQt(text), ProblemOf(_panel, _buffer(), row), text};
    if (row.content == EditorContent::Property) _properties.erase(ShownProperty(_panel));
  }
}

/// The panel has taken the text of the property that was shown before. Of a magnitude it has kept a number.
void TypedTexts::HandOverProperty() {
  const LumWBAllDataBuffer& buffer = _buffer();
  if (!buffer.AdditionalInfoRequested() || ShownProperty(_panel) == _shownProperty) return;
  const auto typed = _texts.extract(&_panel.Find<KorDlgEditor>(kPropertyValuePath));
  if (typed.empty() || typed.mapped().problem.isEmpty()) return;
  if (!ProblemOfStoredProperty(buffer, _shownProperty).isEmpty()) return;
  _properties[_shownProperty] = {typed.mapped().typed, typed.mapped().problem,
                                 buffer.GetPropertyValue(_shownProperty)};
}

/// A bound that is left, and bounds of which another kind is chosen.
void TypedTexts::TakeWrittenAnew(const KorDlgObject& sender, KorEvent event) {
  const bool isOfBounds = event == KorEvent::ComboSelect && &sender == &_panel.Find(kValueType);
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
  std::erase_if(_properties, [this](const auto& property) {
    return _buffer().GetPropertyValue(property.first) != property.second.now;
  });
}

}  // namespace desktop
