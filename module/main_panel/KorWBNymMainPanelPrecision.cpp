// The precision page: bounds of the mass of the active mass type.

#include "module/main_panel/KorWBNymMainPanel.h"

#include <cmath>

#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "module/main_panel/KorWBNymMainPanelFocus.h"
#include "module/main_panel/KorWBNymMainPanelTrace.h"
#include "module/shared/KorWBNymNavEditedValue.h"
#include "module/shared/KorWBNymNavUnitDisplay.h"

using Display = KorWBNymNavUnitDisplay;

namespace {

constexpr int kOfTheMassType = 0;
constexpr int kTypedByTheUser = 1;
constexpr int kRelative = 0;
constexpr int kAbsolute = 1;

void Fill(KorDlgCombo& combo, const char* first, const char* second) {
  combo.ClearLines();
  combo.SetLine(first);
  combo.SetLine(second);
}

/// A bound as the buffer stores it: a relative one, a fraction of the mass, as percent; an absolute one, kg,
/// in the current mass unit.
void ShowBound(KorDlgEditor* editor, double bound, int valueType) {
  if (valueType == kRelative)
    editor->SetText(KorWBNymNavEditedValue::ShowPercent(bound * 100));
  else
    Display::ShowIn(Display::kMass, editor, bound);
}

/// A bound as the user types it: in percent, or in the current mass unit.
KorUnicodeString TypedBound(double bound, int valueType, const Display& display) {
  // The percentage of no mass at all is no number.
  if (!std::isfinite(bound)) return Display::kNoValue;
  return valueType == kRelative ? KorWBNymNavEditedValue::ShowPercent(bound) : display.ShowTyped(bound);
}

/// What the user reads as the mass: rounded to the digits shown, in the current unit.
double AsShown(double mass, const Display& display) {
  double shown = 0;
  display.Show(mass).ConvertToNum(&shown, "%le");
  return shown;
}

}  // namespace

void KorWBNymMainPanel::FillPrecisionCombos() {
  Fill(*_widgets.precisionType, "Mass Type", "User Defined");
  Fill(*_widgets.precisionValueType, "Relative", "Absolute");
}

void KorWBNymMainPanel::ShowBounds(const KorUnicodeString& massType, int precisionType, int valueType) {
  const bool own = precisionType == kOfTheMassType;
  ShowBound(_widgets.lowerPrecision,
            own ? _dataBuffer->GetMassTypeLowerPrecision(massType) : _dataBuffer->GetLowerPrecision(massType),
            valueType);
  ShowBound(_widgets.upperPrecision,
            own ? _dataBuffer->GetMassTypeUpperPrecision(massType) : _dataBuffer->GetUpperPrecision(massType),
            valueType);
}

HRESULT KorWBNymMainPanel::RefreshPrecisionTab() {
  KORWB_PART_TRACE("RefreshPrecisionTab");
  if (!_dataBuffer) return traceStatus = E_FAIL;
  const KorUnicodeString active = _dataBuffer->GetActiveMassType();
  FillPrecisionCombos();
  const int valueType = _dataBuffer->GetPrecisionValueType(active) == kRelative ? kRelative : kAbsolute;
  _widgets.precisionValueType->SetSelect(valueType);
  // Without bounds of the user the type keeps the line that the filling left, and sends nothing.
  const bool typed = _dataBuffer->GetPrecisionType(active) == kTypedByTheUser;
  if (typed) _widgets.precisionType->SetSelect(kTypedByTheUser, KorNotify::Send);
  ShowBounds(active, typed ? kTypedByTheUser : kOfTheMassType, valueType);
  return traceStatus;
}

void KorWBNymMainPanel::OnActiveTypeChangeNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  if (!_dataBuffer) return;
  const KorUnicodeString active = _widgets.activeMass->GetSelectedLine();
  ShowPrecisionOf(active, KorNotify::Send);
  // The active mass type cannot be deleted.
  if (_widgets.deleteValues->IsEnabled())
    _widgets.deleteValues->SetSensitivity(
        KorEnabledIf(!_widgets.massType->GetSelectedLine().Compare(active)));
}

/// Name, types and bounds. `typeSelection`: whether the selection of the precision type is told of, which
/// sets the sensitivities of the bounds.
void KorWBNymMainPanel::ShowPrecisionOf(const KorUnicodeString& active, KorNotify typeSelection) {
  _widgets.activeTypeShown->SetText(active);
  const int type = _dataBuffer->GetPrecisionType(active) == kOfTheMassType ? kOfTheMassType : kTypedByTheUser;
  const int valueType = _dataBuffer->GetPrecisionValueType(active) == kRelative ? kRelative : kAbsolute;
  FillPrecisionCombos();
  _widgets.precisionType->SetSelect(type, typeSelection);
  _widgets.precisionValueType->SetSelect(valueType);
  ShowBounds(active, type, valueType);
}

void KorWBNymMainPanel::OnTypeComboModifyNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  if (!_dataBuffer) return;
  if (_widgets.precisionType->GetSelect() == kTypedByTheUser) {
    if (IsInEditMode()) SetBoundsSensitivity(KorSensitivity::Enabled);
    return;
  }
  SetBoundsSensitivity(KorSensitivity::Disabled);
  _widgets.precisionValueType->SetSelect(kRelative);
  ShowBounds(_widgets.activeTypeShown->GetText(), kOfTheMassType, kRelative);
}

/// Only bounds of the user can be typed.
void KorWBNymMainPanel::OfferBounds() {
  SetBoundsSensitivity(KorEnabledIf(_widgets.precisionType->GetSelect() == kTypedByTheUser));
}

void KorWBNymMainPanel::SetBoundsSensitivity(KorSensitivity sensitivity) {
  _widgets.upperPrecision->SetSensitivity(sensitivity);
  _widgets.lowerPrecision->SetSensitivity(sensitivity);
  _widgets.precisionValueType->SetSensitivity(sensitivity);
}

// What is compared is the line of the last change, not the one shown before: the first choice of a panel
// always converts, also from a type to itself, and what a refresh selects does not count as a change.
void KorWBNymMainPanel::OnPrecisionValueTypeChangeNotification(KorCommand*, KorNotification*,
                                                               KorCommandClientData) {
  const int valueType = _widgets.precisionValueType->GetSelect();
  if (valueType == _lastPrecisionValueType) return;
  _lastPrecisionValueType = valueType;
  const auto display = Display::Of(Display::kMass);
  if (!display) return;
  const KorUnicodeString active = _widgets.activeMass->GetSelectedLine();
  const double mass = AsShown(_dataBuffer ? _dataBuffer->GetMass(active) : 0.0, *display);
  const double factor = valueType == kRelative ? 100 / mass : mass / 100;
  for (KorDlgEditor* editor : {_widgets.upperPrecision, _widgets.lowerPrecision})
    // No value stays none: back to the stored value type, the save then keeps the stored bound.
    if (editor->GetText() != Display::kNoValue)
      editor->SetText(TypedBound(editor->GetValue() * factor, valueType, *display));
}

void KorWBNymMainPanel::OnPrecisionEditorFocusNotification(KorCommand* sender, KorNotification*,
                                                           KorCommandClientData data) {
  auto* editor = dynamic_cast<KorDlgEditor*>(sender);
  if (!editor) return;
  // A bound without a value is not rewritten: back at the stored value type it stands for the stored one.
  const bool leaves = data == KorWBNymMainPanelFocus::kLeaves && editor->GetText() != Display::kNoValue;
  if (leaves && _widgets.precisionValueType->GetSelect() == kRelative) {
    editor->SetText(KorWBNymNavEditedValue::ShowPercent(editor->GetValue()));
    return;
  }
  const auto display = Display::Of(Display::kMass);
  if (leaves && display) editor->SetText(display->ShowTyped(editor->GetValue()));
  // Also after the focus has gone: the next key then replaces the whole text.
  editor->SetSelection(0, editor->GetText().GetLengthInChar());
}
