// About which point, and in which axes, the part panel shows inertia; and how a change of page affects that.

#include "module/main_panel/KorWBNymMainPanel.h"

#include <utility>

#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgFrame.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgTabContainer.h"
#include "module/main_panel/KorWBNymMainPanelPlace.h"
#include "module/shared/KorWBNymNavMassValues.h"
#include "services/KorLumWBCSCommonDefinitions.h"

void KorWBNymMainPanel::Choose(KorDlgRadioButton& button) {
  if (!button.IsChecked()) button.SetState(KorCheckState::Checked, KorNotify::Send);
}

void KorWBNymMainPanel::ShowMovedToReference(const KorUnicodeString& massType,
                                             const KorUnicodeString& label) {
  auto values = KorWBNymNavMassValues::Read(*_dataBuffer, massType);
  if (!values.CanMove()) return;
  values.MoveInertiaTo(KorMathO);
  RefreshMomentOfInertiaUnits(*values.inertia, label);
}

// It asks no mass type whether it is defined or a standard part's: what is out of date, and shown as "...",
// gets its inertia by it. Kept as it is.
void KorWBNymMainPanel::OnInertiaModeModify(KorCommand*, KorNotification*, KorCommandClientData) {
  if (!_dataBuffer) return;
  auto computed = KorWBNymNavMassValues::Read(*_dataBuffer, KorLumWBCSCommonDefinitions::Computed);
  if (!computed.HasInertiaAndPoint()) return;
  auto shown = KorWBNymNavMassValues::Read(*_dataBuffer, _widgets.massType->GetSelectedLine());
  if (!shown.HasInertiaAndPoint()) return;
  if (!_widgets.currentPart->IsChecked()) {
    RefreshResultsTab();
    return;
  }
  for (const auto& [values, label] : {std::pair(&computed, "Active"), std::pair(&shown, "Current")}) {
    if (!values->CanMove()) continue;
    if (_widgets.atReference->IsChecked()) values->MoveInertiaTo(KorMathO);
    RefreshMomentOfInertiaUnits(*values->inertia, label);
  }
}

void KorWBNymMainPanel::OnReferenceModify(KorCommand*, KorNotification*, KorCommandClientData button) {
  if (!_dataBuffer || !static_cast<KorDlgRadioButton*>(button)->IsChecked()) return;
  PlaceCustomFrame();
  RefreshResultsTab();
}

void KorWBNymMainPanel::PlaceCustomFrame() {
  using namespace KorWBNymMainPanelPlace;
  const KorWBNymMainPanelWidgets& w = _widgets;
  const bool custom = w.customReference->IsChecked();
  w.customFrame->ResetAttachment();
  w.commandFrame->ResetAttachment();
  if (custom) w.customFrame->SetGrid(kCustomFrame);
  w.commandFrame->SetGrid(custom ? kCommandsBelowCustomFrame : kCommandsDirectly);
  w.customFrame->SetVisibility(KorShownIf(custom));
  w.customFrame->SetSensitivity(KorEnabledIf(custom));
}

void KorWBNymMainPanel::OnTabContainer001TabSelectNotification(KorCommand*, KorNotification*,
                                                               KorCommandClientData) {
  if (!_dataBuffer) return;
  const KorUnicodeString shownType = _widgets.massType->GetSelectedLine();
  const bool defined = _dataBuffer->GetMassTypeDefined(shownType) == KorWBAllDataBuffer::kDefined;
  _widgets.deleteValues->SetSensitivity(KorSensitivity::Disabled);
  if (_widgets.tabs->GetSelectedPage() == 0)
    EnterResultsPage(defined && !shownType.Compare(KorLumWBCSCommonDefinitions::Computed));
  else
    LeaveResultsPage();
}

// Outside the results page inertia is always shown about the centre of gravity. Of mass types that lack
// values, or have no mass, a change of mode shows nothing, now or before: whatever the buttons say, inertia
// about the reference point may still stand there.
void KorWBNymMainPanel::LeaveResultsPage() {
  const KorWBNymMainPanelWidgets& w = _widgets;
  Choose(*w.atCG);
  w.inertiaModeFrame->SetSensitivity(KorSensitivity::Disabled);
  Choose(*w.currentPart);
  w.referenceModeFrame->SetSensitivity(KorSensitivity::Disabled);
  // Nothing is custom any more by now; should the choice above ever leave it checked, its frame is off too.
  if (w.customReference->IsChecked()) w.customFrame->SetSensitivity(KorSensitivity::Disabled);
  if (!IsInEditMode()) ShowAboutCentreOfGravity();
}

/// Once the modes are chosen. Not in edit mode, where the mass-types page holds what was typed.
void KorWBNymMainPanel::ShowAboutCentreOfGravity() {
  RefreshResultsTab();
  ShowOwnDistribution();
}

void KorWBNymMainPanel::EnterResultsPage(bool showsDefinedUserType) {
  const KorWBNymMainPanelWidgets& w = _widgets;
  if (w.edit->IsEnabled()) {
    w.inertiaModeFrame->SetSensitivity(KorSensitivity::Enabled);
    w.referenceModeFrame->SetSensitivity(KorSensitivity::Enabled);
    // Leaving the page chose another reference; should this one ever be checked since, its frame is on too.
    if (w.customReference->IsChecked()) w.customFrame->SetSensitivity(KorSensitivity::Enabled);
  }
  // This asks for the second page while the first is in front, so that it never runs and a change of page
  // always leaves "DeleteButton" disabled. It stands here on purpose and stays here.
  if (w.tabs->GetSelectedPage() == 1 && showsDefinedUserType && w.save->IsEnabled())
    w.deleteValues->SetSensitivity(KorSensitivity::Enabled);
}
