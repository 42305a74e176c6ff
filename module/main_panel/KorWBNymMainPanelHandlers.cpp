// Handlers and pages of the part panel that are wired and do nothing yet.

#include "module/main_panel/KorWBNymMainPanel.h"
#include "module/main_panel/KorWBNymMainPanelTrace.h"

// Edit mode is not offered yet.
void KorWBNymMainPanel::OnEditNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnSaveNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnDeleteNotification(KorCommand*, KorNotification*, KorCommandClientData) {}

// The values of a mass type are not shown yet.
void KorWBNymMainPanel::OnMassTypeChangeNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnActiveTypeChangeNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnUpdatePropertiesNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnMTPasteValuesComboModifyNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnMTMassEditorModifyNotification(KorCommand*, KorNotification*, KorCommandClientData) {}

// Material and density are not shown yet.
HRESULT KorWBNymMainPanel::RefreshMaterialTab() {
  KORWB_PART_TRACE("RefreshMaterialTab");
  return S_OK;
}
void KorWBNymMainPanel::OnFirstComboModifyNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnMaterialNameModifyNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnDensityModifyNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnApplyMaterialRadioBModify(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnMatNameUpNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnMatNameDownNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnStandardPartClickeNotification(KorCommand*, KorNotification*, KorCommandClientData) {}

// Precision bounds are not shown yet.
HRESULT KorWBNymMainPanel::RefreshPrecisionTab() {
  KORWB_PART_TRACE("RefreshPrecisionTab");
  return S_OK;
}
void KorWBNymMainPanel::OnTypeComboModifyNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnPrecisionEditorFocusNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnPrecisionValueTypeChangeNotification(KorCommand*, KorNotification*, KorCommandClientData) {}

// The active document cannot be changed yet.
void KorWBNymMainPanel::OnDocPreviewValueChange(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnChangeActiveDocNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnCancelActiveDocNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnApplyActiveDocNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnActiveDocLatestNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnActiveDocUsrSelNotification(KorCommand*, KorNotification*, KorCommandClientData) {}

// Additional properties are not shown yet.
HRESULT KorWBNymMainPanel::RefreshAdditionalInfoTab() {
  KORWB_PART_TRACE("RefreshAdditionalInfoTab");
  return S_OK;
}
void KorWBNymMainPanel::OnPropertyNameComboChange(KorCommand*, KorNotification*, KorCommandClientData) {}
