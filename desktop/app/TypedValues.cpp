#include "desktop/app/TypedValues.h"

#include <algorithm>
#include <string_view>

#include "desktop/app/PartPanelEditors.h"
#include "framework/dialog/KorDlgPushButton.h"

namespace desktop {
namespace {

constexpr const char* kMassTypesPage = "TabContainer001.TabPage003.";
constexpr const char* kPrecisionPage = "TabContainer001.TabPage005.";
constexpr const char* kPaste = "TabContainer001.TabPage003.Frame107.Frame231.MTPasteValuesCombo";
constexpr const char* kDelete = "TabContainer001.TabPage003.Frame107.Frame231.DeleteButton";
constexpr const char* kEdit = "Frame238.EditButton";

}  // namespace

TypedValues::TypedValues(KorDlgDialog& panel, MayDrop mayDrop)
    : _panel(panel),
      _mayDrop(std::move(mayDrop)),
      _values(Guarded(kMassTypePath, "Unsaved.MassType", kMassTypesPage)),
      _bounds(Guarded(kActiveMassTypePath, "Unsaved.Bounds", kPrecisionPage)) {
  Guard(_values);
  Guard(_bounds);
  ListenToWhatShows();
}

TypedValues::Group TypedValues::Guarded(const char* combo, const char* textKey, const char* page) {
  Group group{_panel.Find<KorDlgCombo>(combo), textKey, {}, {}};
  for (const ReadEditor& row : ReadEditors())
    if (std::string_view(row.path).starts_with(page))
      group.editors.push_back({&_panel.Find<KorDlgEditor>(row.path), {}});
  return group;
}

void TypedValues::Guard(Group& group) {
  group.combo.SetGuard([this, &group](int line) { return MayPick(group, line); });
  for (const Shown& shown : group.editors)
    shown.editor->Subscribe(KorEvent::EditorModify, [&group](auto...) { group.isTouched = true; });
}

/// The same line chooses nothing else, but would be shown anew: with values at risk it is not picked at all.
bool TypedValues::MayPick(const Group& group, int line) const {
  if (!AreIn(group)) return true;
  return line != group.combo.GetSelect() && _mayDrop(group.textKey, group.combo.GetSelectedLine());
}

/// Outside edit mode none of the editors can be typed into.
bool TypedValues::AreIn(const Group& group) const {
  return group.isTouched && std::ranges::any_of(group.editors, [](const Shown& shown) {
           return shown.editor->IsEnabled() && shown.editor->GetText() != shown.text;
         });
}

/// A refresh of the panel, such as that of an applied revision, selects in both combos and so tells of it.
void TypedValues::ListenToWhatShows() {
  const auto show = [](Group& group) {
    for (Shown& shown : group.editors) shown.text = shown.editor->GetText();
    group.line = group.combo.GetSelectedLine();
    group.isTouched = false;
  };
  const auto showValues = [this, show](auto...) { show(_values); };
  const auto showBounds = [this, show](auto...) { show(_bounds); };
  for (const char* button : {kEdit, kDelete})
    _panel.Find(button).Subscribe(KorEvent::PushActivate, showValues);
  _panel.Find(kEdit).Subscribe(KorEvent::PushActivate, showBounds);
  // Another mass type is active, and its bounds are shown, once the values of the active one are deleted.
  _panel.Find(kDelete).Subscribe(KorEvent::PushActivate, [this, showBounds](auto...) {
    if (_bounds.combo.GetSelectedLine() != _bounds.line) showBounds();
  });
  _values.combo.Subscribe(KorEvent::ComboSelect, showValues);
  _bounds.combo.Subscribe(KorEvent::ComboSelect, showBounds);
  // The user's own bounds are gone once those of the mass type are shown, which cannot be typed.
  _panel.Find(kPrecisionTypePath).Subscribe(KorEvent::ComboSelect, [this, showBounds](auto...) {
    if (!_bounds.editors.front().editor->IsEnabled()) showBounds();
  });
  // Pasted values are the user's as typed ones are: the panel stores them with the next save.
  _panel.Find(kPaste).Subscribe(KorEvent::ComboSelect, [this](auto...) { _values.isTouched = true; });
}

}  // namespace desktop
