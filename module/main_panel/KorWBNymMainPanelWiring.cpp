// Which handler each widget of the part panel calls, and the state in which the panel opens.

#include "module/main_panel/KorWBNymMainPanel.h"

#include "module/main_panel/KorWBNymMainPanelFocus.h"
#include "module/shared/KorWBNymNavLayout.h"
#include "module/shared/KorWBNymNavWiring.h"
#include "services/LumWBAllDataBuffer.h"

// "CloseButton" has no handler here: the host closes the panel.
void KorWBNymMainPanel::WireHandlers() {
  using Panel = KorWBNymMainPanel;
  using enum KorEvent;
  using namespace KorWBNymMainPanelFocus;
  const KorWBNymMainPanelWidgets& w = _widgets;
  // clang-format off
  KorWBNymNavWireHandlers(this, {
    {w.precisionType,      ComboSelect,  &Panel::OnTypeComboModifyNotification},
    {w.firstPriority,      ComboSelect,  &Panel::OnFirstComboModifyNotification},
    {w.compute,            PushActivate, &Panel::OnComputeNotification},
    {w.deleteValues,       PushActivate, &Panel::OnDeleteNotification},
    {w.atReference,        RadioModify,  &Panel::OnInertiaModeModify},
    {w.customReference,    RadioModify,  &Panel::OnReferenceModify, w.customReference},
    {w.rootProduct,        RadioModify,  &Panel::OnReferenceModify, w.rootProduct},
    {w.currentPart,        RadioModify,  &Panel::OnReferenceModify, w.currentPart},
    {w.massType,           ComboSelect,  &Panel::OnMassTypeChangeNotification},
    {w.activeMass,         ComboSelect,  &Panel::OnActiveTypeChangeNotification},
    {w.tabs,               TabSelect,    &Panel::OnTabContainer001TabSelectNotification},
    {w.edit,               PushActivate, &Panel::OnEditNotification},
    {w.save,               PushActivate, &Panel::OnSaveNotification},
    {w.precisionValueType, ComboSelect,  &Panel::OnPrecisionValueTypeChangeNotification},
    {w.upperPrecision,     FocusOut,     &Panel::OnPrecisionEditorFocusNotification, kLeaves},
    {w.upperPrecision,     FocusIn,      &Panel::OnPrecisionEditorFocusNotification, kComes},
    {w.lowerPrecision,     FocusOut,     &Panel::OnPrecisionEditorFocusNotification, kLeaves},
    {w.lowerPrecision,     FocusIn,      &Panel::OnPrecisionEditorFocusNotification, kComes},
    {w.updateProperties,   PushActivate, &Panel::OnUpdatePropertiesNotification},
    {w.pasteValues,        ComboSelect,  &Panel::OnMTPasteValuesComboModifyNotification},
    {w.mtMass,             EditorModify, &Panel::OnMTMassEditorModifyNotification},
    {w.material,           EditorModify, &Panel::OnMaterialNameModifyNotification},
    {w.density,            EditorModify, &Panel::OnDensityModifyNotification},
    {w.statisticsName,     SpinnerUp,    &Panel::OnMatNameUpNotification},
    {w.statisticsName,     SpinnerDown,  &Panel::OnMatNameDownNotification},
    {w.standardPart,       CheckModify,  &Panel::OnStandardPartClickeNotification}});
  // clang-format on
  if (w.documentsPage) WireDocumentsPage();
  if (w.additionalPage)
    KorWBNymNavWireHandlers(this, {{w.propertyName, ComboSelect, &Panel::OnPropertyNameComboChange}});
  // "ApplyOnInstance" is not wired: the button that it unchecks tells of the change. Where none is checked
  // yet, choosing the instance shows nothing, and what was typed before is remembered for neither: kept as it
  // is.
  if (!Pdm().HasInstInLUMIRA())
    KorWBNymNavWireHandlers(this, {{w.applyOnReference, RadioModify, &Panel::OnApplyMaterialRadioBModify}});
}

void KorWBNymMainPanel::WireDocumentsPage() {
  using Panel = KorWBNymMainPanel;
  using enum KorEvent;
  const KorWBNymMainPanelWidgets& w = _widgets;
  // clang-format off
  KorWBNymNavWireHandlers(this, {
    {w.documents,             ComboSelect,  &Panel::OnDocPreviewValueChange},
    {w.changeActiveDoc,       PushActivate, &Panel::OnChangeActiveDocNotification},
    {w.cancelActiveDoc,       PushActivate, &Panel::OnCancelActiveDocNotification},
    {w.applyActiveDoc,        PushActivate, &Panel::OnApplyActiveDocNotification},
    {w.activeDocLatest,       RadioModify,  &Panel::OnActiveDocLatestNotification},
    {w.activeDocUserSelected, RadioModify,  &Panel::OnActiveDocUsrSelNotification}});
  // clang-format on
}

// The panel opens in display mode. The products of inertia go from the last to the first: subscribers hear of
// the changes in this order, which stays.
void KorWBNymMainPanel::SetInitialState() {
  const KorWBNymMainPanelWidgets& w = _widgets;
  const std::initializer_list<KorDlgObject*> disabled{w.activeMass,
                                                      w.mtMass,
                                                      w.mtCG[0],
                                                      w.mtCG[1],
                                                      w.mtCG[2],
                                                      w.mtInertia[0],
                                                      w.mtInertia[1],
                                                      w.mtInertia[2],
                                                      w.mtInertia[5],
                                                      w.mtInertia[4],
                                                      w.mtInertia[3],
                                                      w.density,
                                                      w.material,
                                                      w.firstPriority,
                                                      w.secondPriority,
                                                      w.precisionType,
                                                      w.upperPrecision,
                                                      w.lowerPrecision,
                                                      w.precisionValueType,
                                                      w.save,
                                                      w.deleteValues};
  for (KorDlgObject* widget : disabled) widget->SetSensitivity(KorSensitivity::Disabled);
  w.atCG->SetState(KorCheckState::Checked, KorNotify::Send);
  w.currentPart->SetState(KorCheckState::Checked, KorNotify::Send);
  w.customFrame->SetSensitivity(KorSensitivity::Disabled);
  if (w.documentsPage) SetInitialDocumentsState();
  ApplyConfigurationFilter();
}

void KorWBNymMainPanel::SetInitialDocumentsState() {
  const KorWBNymMainPanelWidgets& w = _widgets;
  const std::initializer_list<KorDlgObject*> disabled{w.activeDocLatest, w.activeDocUserSelected,
                                                      w.activeDocs,      w.changeActiveDoc,
                                                      w.applyActiveDoc,  w.cancelActiveDoc};
  for (KorDlgObject* widget : disabled) widget->SetSensitivity(KorSensitivity::Disabled);
  w.currentlyAttached->SetText(Pdm().GetCurrentlyAttachedVersion());
}
