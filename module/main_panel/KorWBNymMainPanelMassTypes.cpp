// The mass-types page.

#include "module/main_panel/KorWBNymMainPanel.h"

#include <array>

#include "framework/dialog/KorDlgCheckButton.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "module/main_panel/KorWBNymMainPanelTrace.h"
#include "module/shared/KorWBNymNavMassValues.h"
#include "module/shared/KorWBNymNavUnitDisplay.h"
#include "services/KorLumWBCSCommonDefinitions.h"
#include "services/LumWBAllDataBuffer.h"

using Display = KorWBNymNavUnitDisplay;

HRESULT KorWBNymMainPanel::RefreshMassTypeTab() {
  KORWB_PART_TRACE("RefreshMassTypeTab");
  if (!_dataBuffer) return traceStatus = E_FAIL;
  const KorUnicodeString active = _dataBuffer->GetActiveMassType();
  _massTypeNames = _dataBuffer->GetMassTypeList();
  // Both combos always list the same names in the same order.
  for (KorDlgCombo* combo : {_widgets.massType, _widgets.activeMass}) {
    combo->ClearLines();
    for (const KorUnicodeString& name : _massTypeNames) combo->SetLine(name);
  }
  _widgets.massType->SetSelect(active, KorNotify::Send);
  _widgets.activeMass->SetSelect(active, KorNotify::Send);
  return traceStatus;
}

/// Edit mode is no stored flag but the sensitivities that entering it sets.
bool KorWBNymMainPanel::IsInEditMode() const { return !_widgets.edit->IsEnabled(); }

void KorWBNymMainPanel::OnMassTypeChangeNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  if (!_dataBuffer) return;
  const KorUnicodeString shownType = _widgets.massType->GetSelectedLine();
  if (IsInEditMode()) OfferEditing(shownType);
  ShowMassType(shownType);
  if (IsInEditMode()) ShowOwnDistribution();
}

/// What a mass type lacks leaves its editors as they are.
void KorWBNymMainPanel::ShowMassType(const KorUnicodeString& shownType) {
  if (_dataBuffer->GetMassTypeDefined(shownType) != KorWBAllDataBuffer::kDefined) {
    Display::ShowNoValueIn(std::array{_widgets.mtMass});
    ShowNoDistribution();
    return;
  }
  auto values = KorWBNymNavMassValues::ReadEach(*_dataBuffer, shownType);
  if (values.CanMove()) {
    if (_widgets.atReference->IsChecked()) values.MoveInertiaTo(KorMathO);
    RefreshMomentOfInertiaUnits(*values.inertia, "Current");
  }
  Display::ShowIn(Display::kMass, _widgets.mtMass, values.mass);
  // A standard part has a mass only, unless it was computed.
  if (Pdm().IsStandatadPart() && !shownType.Compare(KorLumWBCSCommonDefinitions::Computed)) {
    ShowNoDistribution();
    return;
  }
  ShowMassTypeCG(values);
  OfferDelete(shownType);
  // Once more and without the move to the reference point: the page ends with the inertia as it is stored.
  if (const auto inertia = _dataBuffer->GetInertia(shownType))
    RefreshMomentOfInertiaUnits(*inertia, "Current");
}

/// In edit mode the values of user mass types can be typed, those of the computed one cannot.
void KorWBNymMainPanel::OfferEditing(const KorUnicodeString& shownType) {
  const KorWBNymMainPanelWidgets& w = _widgets;
  const bool typed = !shownType.Compare(KorLumWBCSCommonDefinitions::Computed);
  w.mtMass->SetSensitivity(KorEnabledIf(typed));
  SetDistributionSensitivity(KorEnabledIf(typed && !w.standardPart->IsChecked()));
  if (typed) {
    w.pasteValues->SetSensitivity(KorSensitivity::Enabled);
    FillPasteValues();
  } else {
    ForgetPasteSource();
  }
  // Material and density whatever the density priority, although entering edit mode asks it: kept as it is.
  for (KorDlgObject* widget :
       std::initializer_list<KorDlgObject*>{w.density, w.material, w.firstPriority, w.precisionType, w.save})
    widget->SetSensitivity(KorSensitivity::Enabled);
  OfferBounds();
}

void KorWBNymMainPanel::SetDistributionSensitivity(KorSensitivity sensitivity) {
  for (KorDlgEditor* editor : _widgets.mtCG) editor->SetSensitivity(sensitivity);
  for (KorDlgEditor* editor : _widgets.mtInertia) editor->SetSensitivity(sensitivity);
}

void KorWBNymMainPanel::ShowMassTypeCG(const KorWBNymNavMassValues& values) {
  if (values.cg) Display::ShowPointIn(_widgets.mtCG, *values.cg);
}

void KorWBNymMainPanel::ShowNoDistribution() {
  Display::ShowNoValueIn(_widgets.mtCG);
  Display::ShowNoValueIn(_widgets.mtInertia);
}

/// In edit mode a mass type that is neither computed nor active can be deleted. The active one leaves the
/// button as it is, and so do those that are not shown to the end (undefined, or of a standard part): kept as
/// it is.
void KorWBNymMainPanel::OfferDelete(const KorUnicodeString& shownType) {
  const bool editable =
      !shownType.Compare(KorLumWBCSCommonDefinitions::Computed) && _widgets.save->IsEnabled();
  if (!editable)
    _widgets.deleteValues->SetSensitivity(KorSensitivity::Disabled);
  else if (!shownType.Compare(_widgets.activeMass->GetSelectedLine()))
    _widgets.deleteValues->SetSensitivity(KorSensitivity::Enabled);
}
