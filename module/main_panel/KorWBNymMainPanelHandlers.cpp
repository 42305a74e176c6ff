// Handlers and pages of the part panel that are wired and do nothing yet.

#include "module/main_panel/KorWBNymMainPanel.h"

// Each handler has its line.
// clang-format off

// Values cannot be copied between mass types yet.
void KorWBNymMainPanel::OnUpdatePropertiesNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnMTPasteValuesComboModifyNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnMTMassEditorModifyNotification(KorCommand*, KorNotification*, KorCommandClientData) {}

// Material and density cannot be typed yet.
void KorWBNymMainPanel::OnMaterialNameModifyNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnDensityModifyNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnApplyMaterialRadioBModify(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnStandardPartClickeNotification(KorCommand*, KorNotification*, KorCommandClientData) {}

// Precision bounds cannot be typed yet.
void KorWBNymMainPanel::OnPrecisionEditorFocusNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
void KorWBNymMainPanel::OnPrecisionValueTypeChangeNotification(KorCommand*, KorNotification*, KorCommandClientData) {}
