// Edit mode: which widgets can be changed while it lasts. It is no flag but the sensitivities set here; a
// save ends it, and so does a refresh of the whole panel.

#include "module/main_panel/KorWBNymMainPanel.h"

#include "framework/dialog/KorDlgCheckButton.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgFrame.h"
#include "framework/dialog/KorDlgLabel.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgTabContainer.h"
#include "module/main_panel/KorWBNymMainPanelSensitivity.h"
#include "module/main_panel/KorWBNymMainPanelTrace.h"
#include "module/shared/KorWBNymNavMassValues.h"
#include "module/shared/KorWBNymNavUnitDisplay.h"
#include "services/KorLumWBCSCommonDefinitions.h"
#include "services/LumWBAllDataBuffer.h"

using enum KorSensitivity;

namespace {
constexpr int kUserDefinedPrecision = 1;
constexpr const char* kApplyMaterialOn = "Apply material on:";
}  // namespace

void KorWBNymMainPanel::OnEditNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  KORWB_PART_TRACE("OnEditNotification");
  if (!_dataBuffer) return;
  ResetInertiaDisplay();
  if (IsComputedShown())
    OfferComputedMassType();
  else
    OfferUserMassType();
  OfferCommands();
  if (HasDocumentRevisions() && _widgets.documentsPage) OfferActiveDocument();
  if (Pdm().AdditionalInfoRequested() && _widgets.additionalPage)
    _widgets.propertyValue->SetSensitivity(Enabled);
  if (!Pdm().HasInstInLUMIRA()) {
    _widgets.definedFor->SetTitle(kApplyMaterialOn);
    KorWBNymMainPanelSetSensitivity({_widgets.applyOnInstance, _widgets.applyOnReference}, Enabled);
  }
}

bool KorWBNymMainPanel::IsComputedShown() const {
  return _widgets.massType->GetSelectedLine().Compare(KorLumWBCSCommonDefinitions::Computed) != 0;
}

void KorWBNymMainPanel::ResetInertiaDisplay() {
  Choose(*_widgets.atCG);
  Choose(*_widgets.currentPart);
  ShowAboutCentreOfGravity();
}

/// The mass-types page shows the values of its own mass type alone, as they are stored: not the inertia that
/// the refresh of the results has left there, nor what stayed of another mass type where this one has
/// nothing. In edit mode what stands there is what a save stores. A centre of gravity and an inertia that an
/// earlier save did not store, since its mass was no number, are given up together.
void KorWBNymMainPanel::ShowOwnDistribution() {
  using Display = KorWBNymNavUnitDisplay;
  const auto shown = ShownDistribution();
  if (shown && shown->cg)
    ShowMassTypeCG(*shown);
  else
    Display::ShowNoValueIn(_widgets.mtCG);
  if (shown && shown->inertia)
    RefreshMomentOfInertiaUnits(*shown->inertia, "Current");
  else
    Display::ShowNoValueIn(_widgets.mtInertia);
}

void KorWBNymMainPanel::OfferUserMassType() {
  const KorWBNymMainPanelWidgets& w = _widgets;
  w.mtMass->SetSensitivity(Enabled);
  SetDistributionSensitivity(KorEnabledIf(!w.standardPart->IsChecked()));
  OfferMaterial();
  OfferPrecision();
  // Whatever the precision type: here, and not for the computed mass type, the value type can be chosen even
  // where the bounds are disabled. This is intended.
  w.precisionValueType->SetSensitivity(Enabled);
  w.pasteValues->SetSensitivity(Enabled);
  // "SaveButton" is enabled further down only, so that a panel that comes from display mode keeps
  // "DeleteButton" disabled. The order is intended.
  const int status = _dataBuffer->GetMassTypeDefined(w.massType->GetSelectedLine());
  if (status == KorWBAllDataBuffer::kDefined && w.save->IsEnabled()) w.deleteValues->SetSensitivity(Enabled);
  FillPasteValues();
}

void KorWBNymMainPanel::OfferComputedMassType() {
  _widgets.mtMass->SetSensitivity(Disabled);
  SetDistributionSensitivity(Disabled);
  OfferMaterial();
  OfferPrecision();
  ForgetPasteSource();
}

void KorWBNymMainPanel::ForgetPasteSource() {
  KorWBNymMainPanelSetSensitivity({_widgets.pasteValues, _widgets.updateProperties}, Disabled);
  _widgets.pasteValues->ClearLines();
}

/// Density and material can be typed when the typed density comes first.
void KorWBNymMainPanel::OfferMaterial() {
  _widgets.firstPriority->SetSensitivity(Enabled);
  KorWBNymMainPanelSetSensitivity({_widgets.density, _widgets.material},
                                  KorEnabledIf(_dataBuffer->GetDensityPriority() == 0));
}

void KorWBNymMainPanel::OfferPrecision() {
  const KorWBNymMainPanelWidgets& w = _widgets;
  w.precisionType->SetSensitivity(Enabled);
  KorWBNymMainPanelSetSensitivity({w.lowerPrecision, w.upperPrecision, w.precisionValueType},
                                  KorEnabledIf(w.precisionType->GetSelect() == kUserDefinedPrecision));
}

void KorWBNymMainPanel::OfferCommands() {
  const KorWBNymMainPanelWidgets& w = _widgets;
  KorWBNymMainPanelSetSensitivity({w.inertiaModeFrame, w.referenceModeFrame}, Disabled);
  // Nothing is custom any more by now; should the choice above ever leave it checked, its frame is off too.
  if (w.customReference->IsChecked()) w.customFrame->SetSensitivity(Disabled);
  KorWBNymMainPanelSetSensitivity({w.activeMass, w.save}, Enabled);
  KorWBNymMainPanelSetSensitivity({w.edit, w.compute}, Disabled);
  w.standardPart->SetSensitivity(Enabled);
}

void KorWBNymMainPanel::OfferActiveDocument() {
  const KorWBNymMainPanelWidgets& w = _widgets;
  KorWBNymMainPanelSetSensitivity({w.activeDocLatest, w.activeDocUserSelected}, Enabled);
  if (w.activeDocUserSelected->IsChecked()) w.changeActiveDoc->SetSensitivity(Enabled);
  OrganizeActiveDocsComboBox();
}

/// What a save disables. The values to paste stay as they are, and so does "DeleteButton".
void KorWBNymMainPanel::LeaveEditMode() {
  const KorWBNymMainPanelWidgets& w = _widgets;
  KorWBNymMainPanelSetSensitivity({w.activeMass, w.mtMass}, Disabled);
  SetDistributionSensitivity(Disabled);
  KorWBNymMainPanelSetSensitivity({w.density, w.material, w.firstPriority, w.precisionType, w.upperPrecision,
                                   w.lowerPrecision, w.precisionValueType, w.save, w.standardPart},
                                  Disabled);
  if (w.documentsPage)
    KorWBNymMainPanelSetSensitivity({w.changeActiveDoc, w.activeDocLatest, w.activeDocUserSelected},
                                    Disabled);
  if (w.additionalPage) w.propertyValue->SetSensitivity(Disabled);
  w.edit->SetSensitivity(Enabled);
}

void KorWBNymMainPanel::EndChoiceWhereMaterialApplies() {
  _widgets.definedFor->SetTitle("Material applied to: ");
  KorWBNymMainPanelSetSensitivity({_widgets.applyOnInstance, _widgets.applyOnReference}, Disabled);
}

/// What can be done outside edit mode once everything is stored.
void KorWBNymMainPanel::OfferDisplay(const KorUnicodeString& activeType) {
  const KorWBNymMainPanelWidgets& w = _widgets;
  if (w.tabs->GetSelectedPage() == 0) {
    KorWBNymMainPanelSetSensitivity({w.inertiaModeFrame, w.referenceModeFrame}, Enabled);
    if (w.customReference->IsChecked()) w.customFrame->SetSensitivity(Enabled);
  }
  const bool computable = _dataBuffer->IsComputableWithUserMassType() ||
                          activeType.Compare(KorLumWBCSCommonDefinitions::Computed) != 0;
  w.compute->SetSensitivity(KorEnabledIf(computable));
}

/// The display is built anew from the buffer, perhaps that of another part: what was typed is given up, and
/// the panel is as after a save. Outside edit mode nothing changes.
void KorWBNymMainPanel::GiveUpEditMode() {
  if (!IsInEditMode()) return;
  EndRevisionChoice();
  LeaveEditMode();
  ForgetPasteSource();
  ReadMaterialFromBuffer();
  if (_widgets.definedFor->GetTitle() == kApplyMaterialOn) EndChoiceWhereMaterialApplies();
  OfferDisplay(_dataBuffer->GetActiveMassType());
}

// Wipes the values in the buffer and on the screen; the server learns of it with the next save.
void KorWBNymMainPanel::OnDeleteNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  KORWB_PART_TRACE("OnDeleteNotification");
  if (!_dataBuffer) return;
  const KorWBNymMainPanelWidgets& w = _widgets;
  const auto& [ixx, iyy, izz, ixy, ixz, iyz] = w.mtInertia;
  for (KorDlgEditor* editor : {w.mtMass, w.mtCG[0], w.mtCG[1], w.mtCG[2], ixx, iyy, izz, iyz, ixz, ixy})
    editor->SetText(KorWBNymNavUnitDisplay::kNoValue);
  const KorUnicodeString shownType = w.massType->GetSelectedLine();
  _dataBuffer->RemoveMass(shownType);
  _dataBuffer->RemoveCG(shownType);
  _dataBuffer->RemoveInertia(shownType);
  _dataBuffer->SetMassTypeDefined(shownType, false);
  // Both combos list the same mass types in the same order.
  if (w.massType->GetSelect() != w.activeMass->GetSelect()) return;
  _dataBuffer->SetMassTypeDefined(KorLumWBCSCommonDefinitions::Computed, true);
  // Without notification, so that sensitivities stay as they are. The precision page follows all the same: it
  // would else go on showing the bounds of the deleted mass type, and the next save store them for this one.
  w.activeMass->SetSelect(0);
  ShowPrecisionOf(w.activeMass->GetSelectedLine(), KorNotify::Silent);
}
