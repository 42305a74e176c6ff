#pragma once

#include <string>
#include <vector>

#include "module/main_panel/KorWBNymMainPanel.h"

/// The part panel with every handler replaced by one that writes down its name and the client data it was
/// called with.
///
/// The handlers stand in the order of the class. Nothing that the user does has any other effect.
class ProbePanel : public KorWBNymMainPanel {
 public:
  using KorWBNymMainPanel::KorWBNymMainPanel;

  struct Call {
    std::string handler;
    KorCommand* sender = nullptr;
    KorCommandClientData data = nullptr;
  };
  std::vector<Call> calls;

#define KORVO_PROBE(handler)                                                               \
  void handler(KorCommand* sender, KorNotification*, KorCommandClientData data) override { \
    calls.push_back({#handler, sender, data});                                             \
  }
  KORVO_PROBE(OnTypeComboModifyNotification)
  KORVO_PROBE(OnFirstComboModifyNotification)
  KORVO_PROBE(OnMassTypeChangeNotification)
  KORVO_PROBE(OnComputeNotification)
  KORVO_PROBE(OnDeleteNotification)
  KORVO_PROBE(OnInertiaModeModify)
  KORVO_PROBE(OnReferenceModify)
  KORVO_PROBE(OnTabContainer001TabSelectNotification)
  KORVO_PROBE(OnEditNotification)
  KORVO_PROBE(OnSaveNotification)
  void OnModifyUnit(KorEventSubscriber*, const char*, KorCommandClientData data) override {
    calls.push_back({"OnModifyUnit", nullptr, data});
  }
  KORVO_PROBE(OnActiveTypeChangeNotification)
  KORVO_PROBE(OnMatNameUpNotification)
  KORVO_PROBE(OnMatNameDownNotification)
  KORVO_PROBE(OnUpdatePropertiesNotification)
  KORVO_PROBE(OnMTPasteValuesComboModifyNotification)
  KORVO_PROBE(OnMTMassEditorModifyNotification)
  KORVO_PROBE(OnChangeActiveDocNotification)
  KORVO_PROBE(OnCancelActiveDocNotification)
  KORVO_PROBE(OnDocPreviewValueChange)
  KORVO_PROBE(OnApplyActiveDocNotification)
  KORVO_PROBE(OnPrecisionEditorFocusNotification)
  KORVO_PROBE(OnPrecisionValueTypeChangeNotification)
  KORVO_PROBE(OnStandardPartClickeNotification)
  KORVO_PROBE(OnPropertyNameComboChange)
  KORVO_PROBE(OnMaterialNameModifyNotification)
  KORVO_PROBE(OnDensityModifyNotification)
  KORVO_PROBE(OnApplyMaterialRadioBModify)
  KORVO_PROBE(OnActiveDocLatestNotification)
  KORVO_PROBE(OnActiveDocUsrSelNotification)
#undef KORVO_PROBE
};
