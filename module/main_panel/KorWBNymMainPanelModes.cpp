// About which point, and in which axes, the part panel shows inertia; and how a change of page affects that.

#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgFrame.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgTabContainer.h"
#include "module/main_panel/KorWBNymMainPanel.h"
#include "services/KorLumWBCSCommonDefinitions.h"
#include "services/KorWBServices.h"

namespace {

constexpr double kMetresPerMillimetre = 0.001;
constexpr bool kFromCentreOfGravity = true;
constexpr KorDlgGrid kCustomFramePlace{3, 0};
constexpr KorDlgGrid kCommandsBelowCustomFrame{4, 0};
constexpr KorDlgGrid kCommandsDirectly{3, 0};

struct MassTypeValues {
  std::unique_ptr<KorMath3x3Matrix> inertia;  ///< kg·m² about the centre of gravity
  std::unique_ptr<double[]> cg;               ///< mm
  double mass = 0;                            ///< kg

  MassTypeValues(const KorWBAllDataBuffer& buffer, const KorUnicodeString& massType) {
    buffer.GetMassTypeValues(massType, inertia, cg, mass);
  }
  bool HasTensorAndPoint() const { return inertia && cg; }
  bool HasMass() const { return mass > 0.0; }
  /// From the centre of gravity to the part's origin.
  void MoveToOrigin() {
    const KorMathPoint cgInMetres = kMetresPerMillimetre * KorMathPoint(cg[0], cg[1], cg[2]);
    KorWBServices::ConvertInertiaMatrix(*inertia, mass, cgInMetres, KorMathO, kFromCentreOfGravity);
  }
};

/// Checks the button as a user would: one that is checked already stays as it is and tells nobody.
void Choose(KorDlgRadioButton& button) {
  if (!button.IsChecked()) button.SetState(KorCheckState::Checked, KorNotify::Send);
}

}  // namespace

void KorWBNymMainPanel::ShowMovedToReference(const KorUnicodeString& massType, const KorUnicodeString& label) {
  MassTypeValues values(*_dataBuffer, massType);
  if (!values.HasTensorAndPoint() || !values.HasMass()) return;
  values.MoveToOrigin();
  RefreshMomentOfInertiaUnits(*values.inertia, label);
}

void KorWBNymMainPanel::OnInertiaModeModify(KorCommand*, KorNotification*, KorCommandClientData) {
  if (!_dataBuffer) return;
  MassTypeValues computed(*_dataBuffer, KorLumWBCSCommonDefinitions::Computed);
  if (!computed.HasTensorAndPoint()) return;
  MassTypeValues shown(*_dataBuffer, _widgets.massType->GetSelectedLine());
  if (!shown.HasTensorAndPoint()) return;
  if (!_widgets.currentPart->IsChecked()) {
    RefreshResultsTab();
    return;
  }
  for (const auto& [values, label] : {std::pair(&computed, "Active"), std::pair(&shown, "Current")}) {
    if (!values->HasMass()) continue;
    if (_widgets.atReference->IsChecked()) values->MoveToOrigin();
    RefreshMomentOfInertiaUnits(*values->inertia, label);
  }
}

void KorWBNymMainPanel::OnReferenceModify(KorCommand*, KorNotification*, KorCommandClientData button) {
  if (!_dataBuffer || !static_cast<KorDlgRadioButton*>(button)->IsChecked()) return;
  PlaceCustomFrame();
  RefreshResultsTab();
}

void KorWBNymMainPanel::PlaceCustomFrame() {
  const KorWBNymMainPanelWidgets& w = _widgets;
  const bool custom = w.customReference->IsChecked();
  w.customFrame->ResetAttachment();
  w.commandFrame->ResetAttachment();
  if (custom) w.customFrame->SetGrid(kCustomFramePlace);
  w.commandFrame->SetGrid(custom ? kCommandsBelowCustomFrame : kCommandsDirectly);
  w.customFrame->SetVisibility(KorShownIf(custom));
  w.customFrame->SetSensitivity(KorEnabledIf(custom));
}

void KorWBNymMainPanel::OnTabContainer001TabSelectNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  if (!_dataBuffer) return;
  _widgets.deleteValues->SetSensitivity(KorSensitivity::Disabled);
  if (_widgets.tabs->GetSelectedPage() == 0)
    EnterResultsPage();
  else
    LeaveResultsPage();
}

// Outside the results page inertia is always shown about the centre of gravity.
void KorWBNymMainPanel::LeaveResultsPage() {
  const KorWBNymMainPanelWidgets& w = _widgets;
  Choose(*w.atCG);
  w.inertiaModeFrame->SetSensitivity(KorSensitivity::Disabled);
  Choose(*w.currentPart);
  w.referenceModeFrame->SetSensitivity(KorSensitivity::Disabled);
  if (w.customReference->IsChecked()) w.customFrame->SetSensitivity(KorSensitivity::Disabled);
}

void KorWBNymMainPanel::EnterResultsPage() {
  const KorWBNymMainPanelWidgets& w = _widgets;
  if (w.edit->IsEnabled()) {
    w.inertiaModeFrame->SetSensitivity(KorSensitivity::Enabled);
    w.referenceModeFrame->SetSensitivity(KorSensitivity::Enabled);
    if (w.customReference->IsChecked()) w.customFrame->SetSensitivity(KorSensitivity::Enabled);
  }
  // This asks for the second page while the first is in front, so that it never runs and a change of page always
  // leaves "DeleteButton" disabled. It stands here on purpose and stays here.
  const KorUnicodeString shownType = w.massType->GetSelectedLine();
  if (w.tabs->GetSelectedPage() == 1 && !shownType.Compare(KorLumWBCSCommonDefinitions::Computed) &&
      _dataBuffer->GetMassTypeDefined(shownType) == KorWBAllDataBuffer::kDefined && w.save->IsEnabled())
    w.deleteValues->SetSensitivity(KorSensitivity::Enabled);
}
