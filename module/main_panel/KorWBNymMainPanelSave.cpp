// "WBSaveNymValues": takes what the editors hold into the buffer, leaves edit mode, and sends the whole
// buffer.

#include "module/main_panel/KorWBNymMainPanel.h"

#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "module/main_panel/KorWBNymMainPanelSensitivity.h"
#include "module/main_panel/KorWBNymMainPanelTrace.h"
#include "module/shared/KorWBNymNavServerChannel.h"
#include "services/KorLumWBCSCommonDefinitions.h"
#include "services/LumWBAllDataBuffer.h"

using enum KorSensitivity;
using Definitions = KorLumWBCSCommonDefinitions;

// A step that ends the save leaves in the buffer what the steps before it wrote, and the panel in edit mode.
void KorWBNymMainPanel::OnSaveNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  KORWB_PART_TRACE("OnSaveNotification");
  if (!_dataBuffer) return;
  const KorUnicodeString activeType = _widgets.activeMass->GetSelectedLine();
  _dataBuffer->SetActiveMassType(activeType);
  StoreCalculationStatus();
  StoreShownMassType();
  StoreMaterial();
  if (!AcceptMaterial()) return;
  StorePrecision(activeType);
  LeaveEditMode();  // before the request is sent, so that an error of the server leaves the panel out of it
  StoreActiveDocument();
  StoreProperties();
  SendSave(activeType);
}

/// Whether the last computed result still fits the data. For a user mass type only the document is looked at,
/// and the answer is stored as it comes, also where it says that values are up to date which were not.
void KorWBNymMainPanel::StoreCalculationStatus() {
  if (!IsComputedShown() && !HasDocumentRevisions()) return;
  const bool documentsOnly = !IsComputedShown();
  const bool upToDate = CheckDataModification(documentsOnly);
  _dataBuffer->SetCalculationUpToDate(upToDate);
  if (!upToDate) ShowCalculationLamp(Lamp::Red);
}

/// The buffer holds "__null__" only until the reply: one that says that the values are stored gives it the
/// stored document back. After an error of the server, and after a reply that cannot be read, it stays, and
/// the next refresh shows it: kept as it is.
void KorWBNymMainPanel::StoreActiveDocument() {
  if (!HasDocumentRevisions()) {
    Pdm().SetActiveDocId(Definitions::NullValue);
    Pdm().SetActiveDocVersion(Definitions::NullValue);
  } else if (_widgets.documentsPage) {  // a panel laid out without the page leaves the document as it is
    StoreChosenDocument();
  }
}

void KorWBNymMainPanel::StoreChosenDocument() {
  const KorWBNymMainPanelWidgets& w = _widgets;
  _selectedActiveDocLine = w.activeDocs->GetSelectedLine();
  KorUnicodeString id;
  KorUnicodeString revision;
  if (w.activeDocUserSelected->IsChecked()) {
    SetAct(_selectedActiveDocLine);
    if (Failed(GetActiveDocSelection(id, revision))) id = revision = "ERROR";
  } else if (w.activeDocLatest->IsChecked()) {
    SetAct(_defaultDocModeText);
    if (!_selectedActiveDocLine.IsEmpty()) return;
    id = revision = Definitions::NullValue;
  } else {
    SetAct("ERROR");
    id = revision = "ERROR!";
  }
  Pdm().SetActiveDocId(id);
  Pdm().SetActiveDocVersion(revision);
}

void KorWBNymMainPanel::StoreProperties() {
  constexpr bool kKeepBuffer = false;
  if (!Pdm().AdditionalInfoRequested() || !_widgets.additionalPage) return;
  ValidateAndUpdateBufferAndPropEditor(kKeepBuffer);
}

void KorWBNymMainPanel::SendSave(const KorUnicodeString& activeType) {
  KorUnicodeString request;
  _dataBuffer->GetAllData(request);
  KorWBPartTraceLine("String to send to the server for SAVE : ", request);
  const KorUnicodeString reply = KorWBNymNavServerChannel::Send("WBSaveNymValues", request);
  KorWBPartTraceLine("Server's response: <", reply, ">");
  const KorWBNymNavServerChannel channel(Messages());
  if (channel.ShowError(reply, KorApplicationFrame::GetMainWindow())) return;
  TakeSaveReply(reply);
  ShowAsSaved(activeType);
}

/// A reply that is no error counts as saved. One that cannot be read (no server, or one that died over it)
/// leaves the buffer as it is, and the user is told that nobody knows.
void KorWBNymMainPanel::TakeSaveReply(const KorUnicodeString& reply) {
  if (Succeeded(_dataBuffer->SetSaveReply(reply))) return;
  const KorWBNymNavMessages messages = Messages();
  messages.ShowOver(KorApplicationFrame::GetMainWindow(), "ServerError.Title",
                    messages.Text("SaveReplyNotRead.Message", _dataBuffer->GetLastRefusal(),
                                  "The server's answer to the save could not be read: {1}"));
}

void KorWBNymMainPanel::ShowAsSaved(const KorUnicodeString& activeType) {
  const KorWBNymMainPanelWidgets& w = _widgets;
  KorWBNymMainPanelSetSensitivity({w.upperPrecision, w.lowerPrecision, w.precisionValueType}, Disabled);
  OfferDisplay(activeType);
}
