// "WBComputeNymValues": asks the server to compute the part and shows the answer.

#include "module/main_panel/KorWBNymMainPanel.h"

#include <iostream>

#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgFrame.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "module/main_panel/KorWBNymMainPanelTrace.h"
#include "module/shared/KorWBNymNavReferenceFrame.h"
#include "module/shared/KorWBNymNavServerChannel.h"
#include "services/KorLumWBCSCommonDefinitions.h"
#include "services/LumWBAllDataBuffer.h"

void KorWBNymMainPanel::OnComputeNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  KORWB_PART_TRACE("OnComputeNotification");
  if (!_dataBuffer || !AcceptCustomAxes()) return;
  PrepareCompute();
  const KorUnicodeString request = ComputeRequest();
  std::cout << "String to send to the server for compute : " << request << std::endl;
  const KorUnicodeString reply = KorWBNymNavServerChannel::Send("WBComputeNymValues", request);
  const KorWBNymNavServerChannel channel(Messages());
  if (channel.ShowError(reply, KorApplicationFrame::GetMainWindow())) return;
  std::cout << "\n\nSERVER ANSWER FOR NYMCOMPUTEVALUES : " << reply << std::endl << std::endl;
  if (traceStatus = StoreComputed(reply); Failed(traceStatus)) {
    Messages().Show("ServerError.Title", _dataBuffer->GetLastRefusal());
    return;
  }
  channel.ShowWarnings();
  RefreshPanelWithInfo();
  ShowAsComputed();
}

/// Custom axes that span no space are reported, and the frame's editors show again what was read from them.
bool KorWBNymMainPanel::AcceptCustomAxes() {
  const KorWBNymNavReferenceFrame frame = CustomFrame();
  if (!_widgets.customReference->IsChecked() || frame.ReadAxes().Determinant() != 0.0) return true;
  const KorWBNymNavMessages messages = Messages();
  messages.Show("KorWBNymMainPanel.CustomModeEmptyValue.Title",
                messages.Text("KorWBNymMainPanel.CustomModeEmptyValue.Message"));
  frame.WriteBackPoint();
  frame.WriteBackAxes();
  return false;
}

void KorWBNymMainPanel::PrepareCompute() {
  constexpr bool kReuseStoredResults = false;
  _dataBuffer->SetPreComputeSwitch(kReuseStoredResults);
  _dataBuffer->SetReferenceInertiaMode(_widgets.atReference->IsChecked());
  _dataBuffer->SetMaterialName(_widgets.material->GetText());
}

KorUnicodeString KorWBNymMainPanel::ComputeRequest() const {
  KorUnicodeString identifier;
  KorUnicodeString information;
  _dataBuffer->GetPartIdentifier(identifier);
  // A request that lacks its last field is sent all the same; the server takes the defaults.
  if (Failed(_dataBuffer->GetComputedInfo(information))) {
    std::cout << "GetComputedInfo Failed!" << std::endl;
    information = {};
  }
  return KorUnicodeString(Pdm().HasInstInLUMIRA() ? "1" : "0") + "|" + identifier + "|" + information;
}

/// When the part was computed before it was bound and another mass type is active, the reply is not stored:
/// this is deliberate. It is not read either, so that the empty one of no server counts as an answer too.
HRESULT KorWBNymMainPanel::StoreComputed(const KorUnicodeString& reply) {
  const bool computedIsActive =
      _widgets.activeMass->GetSelectedLine().Compare(KorLumWBCSCommonDefinitions::Computed) != 0;
  if (!computedIsActive && _computed) return S_OK;
  return _dataBuffer->SetComputedData(reply, Pdm().HasInstInLUMIRA());
}

void KorWBNymMainPanel::ShowAsComputed() {
  _dataBuffer->SetCalculationUpToDate(true);
  ShowCalculationLamp(Lamp::Green);
  SelectFirstPage();
  _widgets.inertiaModeFrame->SetSensitivity(KorSensitivity::Enabled);
  _widgets.referenceModeFrame->SetSensitivity(KorSensitivity::Enabled);
}
