// Handlers and pages of the part panel that are wired and do nothing yet.

#include "module/main_panel/KorWBNymMainPanel.h"

#include "module/main_panel/KorWBNymMainPanelTrace.h"

// Each handler has its line.
// clang-format off

// Edit mode is not offered yet.
void KorWBNymMainPanel::OnEditNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnSaveNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnDeleteNotification(KorCommand*, KorNotification*, KorCommandClientData) {}

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
