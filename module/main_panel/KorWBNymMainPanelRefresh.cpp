// The full refresh of the part panel from its buffer.

#include "module/main_panel/KorWBNymMainPanel.h"

#include "framework/dialog/KorDlgCheckButton.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgLabel.h"
#include "framework/dialog/KorDlgTabContainer.h"
#include "module/main_panel/KorWBNymMainPanelTrace.h"
#include "services/KorWBServices.h"
#include "services/LumWBAllDataBuffer.h"

HRESULT KorWBNymMainPanel::RefreshPanelWithInfo() {
  KORWB_PART_TRACE("RefreshPanelWithInfo");
  if (!_dataBuffer) return S_OK;
  GiveUpEditMode();
  RefreshSelection();
  RefreshLamps();
  RefreshActiveDocument();
  if (Pdm().AdditionalInfoRequested()) RefreshAdditionalInfoTab();
  RefreshResultsTab();
  RefreshMassTypeTab();
  RefreshMaterialTab();
  RefreshPrecisionTab();
  _widgets.standardPart->SetState(KorCheckedIf(Pdm().IsStandatadPart()));
  KorWBPartTraceLine("All pages have been refreshed");
  return S_OK;
}

void KorWBNymMainPanel::RefreshSelection() {
  KorUnicodeString path;
  KorUnicodeString handler;
  _dataBuffer->GetPartIdentifier(_selectionText);
  _selectionText += "|";
  Pdm().GetInstancePath(path);
  if (!path.IsEmpty()) _selectionText += path + "|";
  _dataBuffer->GetConfigurationHandler(handler);
  KorUnicodeString shown = handler;
  KorWBServices::CleanPathForDisplay(_selectionText, shown);
  // The end of a long path tells more than its beginning.
  KorDlgEditor& editor = *_widgets.selection;
  const int length = shown.GetLengthInChar();
  editor.SetText(shown);
  editor.SetShortHelp(shown);
  editor.SetFirstColumn(-1 - editor.GetVisibleTextWidth() + length);
  editor.SetSelection(handler.GetLengthInChar() + 1, length);
  KorWBPartTraceLine("The current selection is: ", _selectionText);
}

void KorWBNymMainPanel::RefreshLamps() {
  bool computed = false;
  bool persisted = false;
  _dataBuffer->GetCalculationUpToDate(computed);
  ShowCalculationLamp(computed ? Lamp::Green : Lamp::Red);
  _dataBuffer->IsPersisted(persisted);
  ShowLamp(*_widgets.persistencyRed, *_widgets.persistencyGreen, persisted ? Lamp::Green : Lamp::Red);
}

void KorWBNymMainPanel::ShowCalculationLamp(Lamp lamp) {
  ShowLamp(*_widgets.calculationRed, *_widgets.calculationGreen, lamp);
}

void KorWBNymMainPanel::ShowLamp(KorDlgLabel& red, KorDlgLabel& green, Lamp lamp) {
  red.SetVisibility(KorShownIf(lamp == Lamp::Red));
  green.SetVisibility(KorShownIf(lamp == Lamp::Green));
}

void KorWBNymMainPanel::SelectFirstPage() {
  // With notification, so that the inertia and reference modes fit the page in front.
  if (_widgets.tabs->GetSelectedPage() != 0) _widgets.tabs->SetSelectedPage(0, KorNotify::Send);
}
