// The precision page: bounds of the mass of the active mass type.

#include "module/main_panel/KorWBNymMainPanel.h"

#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "module/main_panel/KorWBNymMainPanelTrace.h"
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

/// A relative bound, a fraction of the mass, as percent; an absolute one, kg, in the current mass unit.
void ShowBound(KorDlgEditor* editor, double bound, int valueType) {
  if (valueType != kRelative) {
    Display::ShowIn(Display::kMass, editor, bound);
    return;
  }
  KorUnicodeString percent;
  percent.BuildFromNum(bound * 100, "%g");
  editor->SetText(percent + "%");
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
  _widgets.activeTypeShown->SetText(active);
  const int type = _dataBuffer->GetPrecisionType(active) == kOfTheMassType ? kOfTheMassType : kTypedByTheUser;
  const int valueType = _dataBuffer->GetPrecisionValueType(active) == kRelative ? kRelative : kAbsolute;
  FillPrecisionCombos();
  _widgets.precisionType->SetSelect(type, KorNotify::Send);
  _widgets.precisionValueType->SetSelect(valueType);
  ShowBounds(active, type, _widgets.precisionValueType->GetSelect());
  // The active mass type cannot be deleted.
  if (_widgets.deleteValues->IsEnabled())
    _widgets.deleteValues->SetSensitivity(
        KorEnabledIf(!_widgets.massType->GetSelectedLine().Compare(active)));
}

void KorWBNymMainPanel::OnTypeComboModifyNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  if (!_dataBuffer || _widgets.precisionType->GetSelect() == kTypedByTheUser) return;
  _widgets.lowerPrecision->SetSensitivity(KorSensitivity::Disabled);
  _widgets.upperPrecision->SetSensitivity(KorSensitivity::Disabled);
  _widgets.precisionValueType->SetSensitivity(KorSensitivity::Disabled);
  _widgets.precisionValueType->SetSelect(kRelative);
  ShowBounds(_widgets.activeTypeShown->GetText(), kOfTheMassType, kRelative);
}
