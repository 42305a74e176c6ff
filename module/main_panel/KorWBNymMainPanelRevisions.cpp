// The documents page: revisions of the part's document, and which of them is the active one. No message box
// comes up here; what fails is traced.

#include "module/main_panel/KorWBNymMainPanel.h"

#include <array>

#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgTabContainer.h"
#include "framework/dialog/KorDlgTabPage.h"
#include "module/main_panel/KorWBNymMainPanelSensitivity.h"
#include "module/main_panel/KorWBNymMainPanelTrace.h"
#include "module/shared/KorWBNymNavServerChannel.h"
#include "module/shared/KorWBNymNavUnitDisplay.h"
#include "services/KorLumWBCSCommonDefinitions.h"
#include "services/LumWBAllDataBuffer.h"

using enum KorSensitivity;
using Display = KorWBNymNavUnitDisplay;
using Buffer = LumWBAllDataBuffer;

namespace {

/// What an attribute editor shows, and how the trace calls it.
struct Attribute {
  int kind;
  const char* name;
};

constexpr std::array kAttributes{Attribute{Buffer::kCheckInTime, "last checkin time"},
                                 Attribute{Buffer::kCheckInUser, "last checkin user"},
                                 Attribute{Buffer::kCheckOutUser, "last checkout user at iteration"},
                                 Attribute{Buffer::kMassTypes, "mass types at iteration"},
                                 Attribute{Buffer::kDocMass, "mass at iteration"}};
constexpr const char* kRevisionName = "revision";

void TraceMissing(const char* name, const char* where) {
  KorWBPartTraceLine("GetDocRevsInfo() failed to return the ", name, " in ", where);
}

void ShowAttribute(KorDlgEditor& editor, int kind, const KorUnicodeString& text) {
  const bool nobody = kind == Buffer::kCheckOutUser && text == KorLumWBCSCommonDefinitions::NullValue;
  editor.SetText(nobody ? KorUnicodeString() : text);
  if (kind == Buffer::kDocMass) Display::ShowIn(Display::kMass, &editor, editor.GetValue());
}

}  // namespace

bool KorWBNymMainPanel::HasDocumentRevisions() const {
  return Pdm().AreOldDocumentsUsed() && Pdm().GetVersionCount() != 0;
}

KorUnicodeString KorWBNymMainPanel::RevisionLine(const KorUnicodeString& revision) const {
  return _activeDocId + " " + revision;
}

HRESULT KorWBNymMainPanel::RefreshDocsTab() {
  KORWB_PART_TRACE("RefreshDocsTab");
  if (!_dataBuffer || !_widgets.documentsPage) return traceStatus = E_FAIL;
  _widgets.currentlyAttached->SetText(Pdm().GetCurrentlyAttachedVersion());
  ListActiveRevision();
  ListRevisions();
  return traceStatus;
}

/// The empty line stands for the automatic revision.
void KorWBNymMainPanel::ListActiveRevision() {
  KorDlgCombo& combo = *_widgets.activeDocs;
  combo.ClearLines();
  if (_widgets.activeDocLatest->IsChecked()) {
    combo.SetLine("");
    combo.SetSelect(combo.GetLineCount() - 1, KorNotify::Send);
  } else {
    combo.SetLine(RevisionLine(_activeDocVersion), 0);
  }
}

/// The active revision stays first, and every other one follows once, in the order of the revisions.
void KorWBNymMainPanel::ListRevisions() {
  KorDlgCombo& activeDocs = *_widgets.activeDocs;
  const int count = static_cast<int>(Pdm().GetVersionCount());
  bool activeMet = false;
  _widgets.documents->ClearLines();
  for (int index = 1; index <= count; ++index) {
    KorUnicodeString revision;
    if (Failed(Pdm().GetDocRevsInfo(index, Buffer::kRevision, revision)))
      return TraceMissing(kRevisionName, "RefreshDocsTab()");
    const KorUnicodeString line = RevisionLine(revision);
    _widgets.documents->SetLine(line, index - 1);
    if (line.Compare(activeDocs.GetSelectedLine()))
      activeMet = true;
    else
      activeDocs.SetLine(line, activeMet ? index - 1 : index);
    if (index == 1) ShowRevision(index, "RefreshDocsTab()");
  }
}

/// Stops at the first text that the buffer does not have. `index` counts from 1.
void KorWBNymMainPanel::ShowRevision(int index, const char* where) {
  for (std::size_t i = 0; i < kAttributes.size(); ++i) {
    const auto& [kind, name] = kAttributes[i];
    KorUnicodeString text;
    if (Failed(Pdm().GetDocRevsInfo(index, kind, text))) return TraceMissing(name, where);
    ShowAttribute(*_widgets.docAttributes[i], kind, text);
  }
}

void KorWBNymMainPanel::OnDocPreviewValueChange(KorCommand*, KorNotification*, KorCommandClientData) {
  if (!_dataBuffer) return;
  ShowRevision(_widgets.documents->GetSelect() + 1, "OnDocPreviewValueChange()");
}

/// While a revision is being chosen the user can do nothing else.
void KorWBNymMainPanel::SetRevisionChoice(KorSensitivity choosing) {
  const KorWBNymMainPanelWidgets& w = _widgets;
  const KorSensitivity others = KorEnabledIf(choosing == Disabled);
  KorWBNymMainPanelSetSensitivity({w.activeDocs, w.applyActiveDoc, w.cancelActiveDoc}, choosing);
  KorWBNymMainPanelSetSensitivity({w.changeActiveDoc, w.tabs->GetPage(0), w.tabs->GetPage(1),
                                   w.tabs->GetPage(2), w.tabs->GetPage(3), w.save, w.activeDocLatest},
                                  others);
}

/// The part that comes next may have no documents, and nobody could leave the choice on its disabled page.
void KorWBNymMainPanel::EndRevisionChoice() {
  if (_widgets.documentsPage && _widgets.cancelActiveDoc->IsEnabled()) SetRevisionChoice(Disabled);
}

void KorWBNymMainPanel::OnChangeActiveDocNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  SetRevisionChoice(Enabled);
}

// The selected line is not put back.
void KorWBNymMainPanel::OnCancelActiveDocNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  SetRevisionChoice(Disabled);
}

void KorWBNymMainPanel::OnApplyActiveDocNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  KORWB_PART_TRACE("OnApplyActiveDocNotification");
  SetRevisionChoice(Disabled);
  KorUnicodeString id;
  KorUnicodeString revision;
  if (traceStatus = GetActiveDocSelection(id, revision); Failed(traceStatus)) {
    KorWBPartTraceLine("GetActiveDocSelection() failed within OnApplyActiveDocNotification()");
    return;
  }
  if (id != _activeDocId || revision != _activeDocVersion) LoadRevision(id, revision);
}

/// `revision` is empty when the selected line is none of the revisions, such as "ERROR!": asked for like
/// that, since an unset revision is accepted.
void KorWBNymMainPanel::LoadRevision(const KorUnicodeString& id, const KorUnicodeString& revision) {
  const KorUnicodeString request = id + "|" + revision;
  KorWBPartTraceLine("String to send to the server for the active document : ", request);
  // An error of the server is no data text, so that the buffer refuses it; it is not searched for here.
  const KorUnicodeString reply = KorWBNymNavServerChannel::Send("WBGetActiveDocInfo", request);
  KorWBPartTraceLine("Server's response: <", reply, ">");
  if (Failed(TakeRevision(reply))) {
    KorWBPartTraceLine("An error occurred while attempting to overwrite data in the buffer");
    KorWBPartTraceLine(_dataBuffer->GetLastRefusal());
    _widgets.activeDocs->ClearLines();
    _widgets.activeDocs->SetLine("ERROR!");
    return;
  }
  _activeDocVersion = revision;  // the document is always the same one
  RefreshResultsTab();
  RefreshMassTypeTab();
  RefreshMaterialTab();
  RefreshPrecisionTab();
}

/// Loading a revision does not change whether the computed values are up to date.
HRESULT KorWBNymMainPanel::TakeRevision(const KorUnicodeString& reply) {
  constexpr bool kNewSelection = false;
  bool upToDate = false;
  _dataBuffer->GetCalculationUpToDate(upToDate);
  const HRESULT status = _dataBuffer->SetAllData(reply, kNewSelection);
  if (Succeeded(status)) _dataBuffer->SetCalculationUpToDate(upToDate);
  return status;
}

void KorWBNymMainPanel::OnActiveDocLatestNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  _widgets.changeActiveDoc->SetSensitivity(Disabled);
  OrganizeActiveDocsComboBox();
}

void KorWBNymMainPanel::OnActiveDocUsrSelNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  if (_widgets.save->IsEnabled()) _widgets.changeActiveDoc->SetSensitivity(Enabled);
  OrganizeActiveDocsComboBox();
}

/// Brings "ActiveDocsCombo" in line with the radio buttons. Both of them tell of a change, and edit mode
/// comes again and again: an empty line that ends the list already is the one to select, so that there is
/// never more than one at the end and the walk below, which passes over the line behind a deleted one, meets
/// all. By hand the line of the last save is selected; when there is none, that of the active document, and
/// never one that nobody has picked.
void KorWBNymMainPanel::OrganizeActiveDocsComboBox() {
  KorDlgCombo& combo = *_widgets.activeDocs;
  if (_widgets.activeDocLatest->IsChecked()) {
    const int last = combo.GetLineCount() - 1;
    if (last < 0 || !combo.GetLine(last).IsEmpty()) combo.SetLine("");
    combo.SetSelect(combo.GetLineCount() - 1, KorNotify::Send);
    return;
  }
  for (int line = 0; line < combo.GetLineCount(); ++line)
    if (combo.GetLine(line).IsEmpty()) combo.DeleteLine(line);
  combo.SetSelect(RevisionLine(_activeDocVersion));  // stays where no line is the remembered one
  combo.SetSelect(_selectedActiveDocLine, KorNotify::Send);
}

HRESULT KorWBNymMainPanel::GetActiveDocSelection(KorUnicodeString& id, KorUnicodeString& revision) const {
  if (!_dataBuffer) {
    KorWBPartTraceLine("_dataBuffer is null here");
    return E_FAIL;
  }
  id = _activeDocId;  // the document is always the same one, only its revision changes
  if (Pdm().GetVersionCount() == 0) return E_FAIL;
  const KorUnicodeString selected =
      _widgets.activeDocs ? _widgets.activeDocs->GetSelectedLine() : KorUnicodeString();
  HRESULT status = E_FAIL;
  for (int index = 1; index <= static_cast<int>(Pdm().GetVersionCount()); ++index) {
    KorUnicodeString listed;
    if (status = Pdm().GetDocRevsInfo(index, Buffer::kRevision, listed); Failed(status)) return status;
    if (RevisionLine(listed) != selected) continue;
    revision = listed;
    return S_OK;
  }
  return status;  // a success without a revision: this lenience is intended
}
