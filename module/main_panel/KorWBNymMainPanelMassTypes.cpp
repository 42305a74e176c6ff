// The mass-types page.

#include "framework/dialog/KorDlgCombo.h"
#include "module/main_panel/KorWBNymMainPanel.h"
#include "module/main_panel/KorWBNymMainPanelTrace.h"

HRESULT KorWBNymMainPanel::RefreshMassTypeTab() {
  KORWB_PART_TRACE("RefreshMassTypeTab");
  if (!_dataBuffer) return traceStatus = E_FAIL;
  const KorUnicodeString active = _dataBuffer->GetActiveMassType();
  _massTypeNames = _dataBuffer->GetMassTypeList();
  // Both combos always list the same names in the same order.
  for (KorDlgCombo* combo : {_widgets.massType, _widgets.activeMass}) {
    combo->ClearLines();
    for (const KorUnicodeString& name : _massTypeNames) combo->SetLine(name);
  }
  _widgets.massType->SetSelect(active, KorNotify::Send);
  _widgets.activeMass->SetSelect(active, KorNotify::Send);
  return traceStatus;
}
