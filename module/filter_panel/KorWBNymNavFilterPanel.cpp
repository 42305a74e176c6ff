#include "module/filter_panel/KorWBNymNavFilterPanel.h"

#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgMultiList.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "module/filter_panel/KorWBNymNavFilterOptions.h"
#include "services/KorImmKitServices.h"

namespace {

constexpr const char* kPanelName = "KorWBNymNavFilterPanel";

}  // namespace

KorWBNymNavFilterPanel::KorWBNymNavFilterPanel()
    : KorDlgDialog(KorApplicationFrame::GetMainWindow(), kPanelName, KorDlgStyle::kOkCancelDialog) {}

KorWBNymNavFilterPanel::KorWBNymNavFilterPanel(const KorWBNymNavFilterPanel& other) = default;
KorWBNymNavFilterPanel& KorWBNymNavFilterPanel::operator=(const KorWBNymNavFilterPanel& other) = default;

KorWBNymNavFilterPanel::~KorWBNymNavFilterPanel() { _widgets = {}; }

KorString KorWBNymNavFilterPanel::GetResourceFilename(int index) const {
  return index == 0 ? kPanelName : KorDlgDialog::GetResourceFilename(index - 1);
}

void KorWBNymNavFilterPanel::Build() {
  if (_widgets.tabs) return;
  BuildWidgets();
  BuildColumns();
  WireHandlers();
  if (Succeeded(KorImmKitServices::GetCurrentRootIdentifiers(_rootIds, _prcIds, _rootText))) {
    SetCurrentFilters();
    GetPRCConfigFilters();
    FillConfigHandlers();
    SelectConfigHandler();
  }
  // With notification, so that sensitivities and option come in line. A first opening thus ends with the user
  // filter.
  KorDlgRadioButton* chosen = selectedFilterOption == KorWBNymNavFilterOptions::kConfiguration
                                  ? _widgets.configurationFilter
                                  : _widgets.userFilter;
  chosen->SetState(KorCheckState::Checked, KorNotify::Send);
}

void KorWBNymNavFilterPanel::SetPRCId(const KorUnicodeString& prcId) { _prcId = prcId; }

const KorUnicodeString& KorWBNymNavFilterPanel::CurrentPRCId() const {
  static const KorUnicodeString kNone;
  return _prcIds.Size() > 0 ? _prcIds[1] : kNone;
}

HRESULT KorWBNymNavFilterPanel::GetPRCConfigFilters() {
  return KorImmKitServices::GetPRCConfigFilter({_rootIds[1]}, {_prcIds[1]}, _filterIds, _filterNames);
}

void KorWBNymNavFilterPanel::FillConfigHandlers() {
  _widgets.configurations->SetLine(KorWBNymNavFilterOptions::kNoFilter);
  for (const KorUnicodeString& name : _filterNames) _widgets.configurations->SetLine(name);
}

// A handler set on the product root is the chosen one at once, before OK, and Cancel does not bring the one
// before it back: kept as it is. Without one the choice stays, selected as far as the combo has it.
void KorWBNymNavFilterPanel::SelectConfigHandler() {
  KorUnicodeString handler;
  if (KorImmKitServices::GetPRCConfigHandler(CurrentPRCId(), handler) == S_OK)
    selectedPRCConfigHandler = handler;
  _widgets.configurations->SetSelect(selectedPRCConfigHandler);
}

// The option changes at once, before OK, and Cancel does not bring it back: kept as it is.
void KorWBNymNavFilterPanel::OnFilterClickNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  const bool byUser = _widgets.userFilter->IsChecked();
  if (!byUser) _widgets.list->ClearSelection();
  _widgets.list->SetSensitivity(KorEnabledIf(byUser));
  _widgets.removeRows->SetSensitivity(KorEnabledIf(byUser));
  _widgets.clearRows->SetSensitivity(KorEnabledIf(byUser));
  _widgets.configurations->SetSensitivity(KorEnabledIf(!byUser));
  selectedFilterOption = byUser ? KorWBNymNavFilterOptions::kUser : KorWBNymNavFilterOptions::kConfiguration;
}

void KorWBNymNavFilterPanel::OnFilterNotification(KorCommand* sender, KorNotification* notification,
                                                  KorCommandClientData) {
  for (auto* list :
       {&_listOfInstanceIds, &_listOfPartsIds, &_listOfPartVers, &_listOfPaths, &_listOfPathDepths})
    list->RemoveAll();
  selectedPRCConfigHandler = _widgets.configurations->GetSelectedLine();
  selectedPRCID = CurrentPRCId();
  PVSFilterPRCID = selectedPRCID;
  StoreUserFilter();
  selectedFilter = selectedFilterOption != KorWBNymNavFilterOptions::kUser
                       ? KorWBNymNavFilterOptions::kConfigurationPrefix + selectedPRCConfigHandler
                       : selectedPVSFilter;
  SendNotification(notification);
  Cancel(sender, notification);
}

void KorWBNymNavFilterPanel::OnCancelNotification(KorCommand* sender, KorNotification* notification,
                                                  KorCommandClientData) {
  SendNotification(notification);
  Cancel(sender, notification);
}

int KorWBNymNavFilterPanel::Cancel(KorCommand*, KorNotification*) {
  SetVisibility(KorVisibility::Hidden);
  if (!_widgets.list) return 0;
  _widgets.list->ClearLines();
  _widgets.list->ClearLines();  // twice, which is harmless: kept as it is
  return 0;
}

void KorWBNymNavFilterPanel::OnRemoveCriterionNotification(KorCommand*, KorNotification*,
                                                           KorCommandClientData) {
  const std::vector<int> selected = _widgets.list->GetSelectedLines();
  if (!selected.empty()) _widgets.list->DeleteLines(selected);
}

void KorWBNymNavFilterPanel::OnClearAllCriteriaNotification(KorCommand*, KorNotification*,
                                                            KorCommandClientData) {
  _widgets.list->ClearLines();
}
