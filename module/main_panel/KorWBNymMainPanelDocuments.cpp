// Which document revision the shown data belong to.

#include "module/main_panel/KorWBNymMainPanel.h"

#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgTabContainer.h"
#include "framework/dialog/KorDlgTabPage.h"
#include "module/main_panel/KorWBNymMainPanelTrace.h"
#include "module/shared/KorWBNymNavMessages.h"
#include "services/KorLumWBCSCommonDefinitions.h"
#include "services/LumWBAllDataBuffer.h"

namespace {

const char* const kNoDocumentId = "0";

/// How the active revision follows the document when the user picked none.
struct AutoMode {
  const char* parameter;
  const char* text;
};

AutoMode AutoModeOf(int mode) {
  switch (mode) {
    case 0:
      return {"latest", "***MOST RECENT REVISION***"};
    case 1:
      return {"attached", "***ATTACHED REVISION***"};
    default:
      return {"", ""};
  }
}

}  // namespace

// A panel that was laid out for a part without documents has no documents page, whatever part it is bound to
// later.
void KorWBNymMainPanel::RefreshActiveDocument() {
  Pdm().GetActiveDocId(_activeDocId);
  Pdm().GetActiveDocVersion(_activeDocVersion);
  KorWBPartTraceLine("The active document retrieved from the buffer: ");
  KorWBPartTraceLine("\t<", _activeDocId, " ", _activeDocVersion, ">");
  if (Pdm().GetVersionCount() == 0 && Pdm().AreOldDocumentsUsed()) CheckForMissingDocuments();
  if (AreDocumentsInUse())
    ShowDocumentsInUse();
  else if (Pdm().AreOldDocumentsUsed() && _activeDocId == kNoDocumentId)
    ShowNoDocument();
  else
    ShowNothingOfDocuments();
}

bool KorWBNymMainPanel::AreDocumentsInUse() const {
  return Pdm().AreOldDocumentsUsed() && _activeDocId != kNoDocumentId &&
         _activeDocId != KorLumWBCSCommonDefinitions::ExceptionFlag;
}

void KorWBNymMainPanel::CheckForMissingDocuments() {
  KorWBPartTraceLine("there are zero revs => page will be disabled");
  if (_widgets.documentsPage) _widgets.documentsPage->SetSensitivity(KorSensitivity::Disabled);
  if (_activeDocId != KorLumWBCSCommonDefinitions::ExceptionFlag) return;
  const KorWBNymNavMessages messages = Messages();
  messages.Show("DocumentsNotFound001.Title", messages.Text("NoDocsFoundMessage", "--Docs not found msg--"),
                KorWBServices::kInformation);
}

void KorWBNymMainPanel::ShowDocumentsInUse() {
  if (_widgets.documentsPage) _widgets.documentsPage->SetSensitivity(KorSensitivity::Enabled);
  RefreshDocsTab();
  BuildDefaultDocModeText();
  KorWBPartTraceLine("Default document mode: ", _defaultDocModeText);
  if (_widgets.activeDocs)
    _selectedActiveDocLine = _widgets.activeDocs->GetSelectedLine();
  else
    KorWBPartTraceLine("_ActiveDocsCombo is NULL!!!");
  ShowWhichRevisionIsActive();
}

void KorWBNymMainPanel::BuildDefaultDocModeText() {
  const AutoMode mode = AutoModeOf(Pdm().GetDocAutoMode());
  _defaultDocModeText = Messages().Text("WB_ComputePart100", KorUnicodeString(mode.parameter), mode.text);
}

void KorWBNymMainPanel::ShowWhichRevisionIsActive() {
  const bool userSelected = Pdm().HasUsedSpecificRevBefore();
  if (userSelected)
    KorWBPartTraceLine("There's a value for the active doc id - default to the \"selected rev\" button");
  if (_widgets.documentsPage) {
    _widgets.activeDocLatest->SetState(KorCheckedIf(!userSelected));
    _widgets.activeDocUserSelected->SetState(KorCheckedIf(userSelected));
  }
  SetAct(userSelected ? _activeDocId + " " + _activeDocVersion : _defaultDocModeText);
}

void KorWBNymMainPanel::ShowNoDocument() {
  KorWBPartTraceLine("The old doc revs can be used but there's no document attached to this part");
  if (_widgets.documentsPage) _widgets.documentsPage->SetSensitivity(KorSensitivity::Disabled);
  SelectFirstPage();
  SetAct("NONE");
}

/// Whatever the panel showed of the part before.
void KorWBNymMainPanel::ShowNothingOfDocuments() {
  KorWBPartTraceLine("The old doc revs are not used.");
  _widgets.act->SetText({});
  if (!_widgets.documentsPage) return;
  _widgets.documentsPage->SetSensitivity(KorSensitivity::Disabled);
  if (_widgets.tabs->GetPage(_widgets.tabs->GetSelectedPage()) == _widgets.documentsPage) SelectFirstPage();
}

void KorWBNymMainPanel::SetAct(const KorUnicodeString& text) {
  KorWBPartTraceLine("Setting act to ", text);
  _widgets.act->SetText(text);
}
