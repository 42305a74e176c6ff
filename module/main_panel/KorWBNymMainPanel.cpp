#include "module/main_panel/KorWBNymMainPanel.h"

#include <array>
#include <iostream>

#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "module/filter_panel/KorWBNymNavFilterPanel.h"
#include "module/main_panel/KorWBNymMainPanelTrace.h"
#include "module/shared/KorWBNymNavMessages.h"
#include "module/shared/KorWBNymNavUnitsConversion.h"
#include "services/LumWBAllDataBuffer.h"

namespace {

constexpr const char* kPanelName = "KorWBNymMainPanel";
constexpr std::array kUnitsTypes{WBUnitsDensity, WBUnitsLength, WBUnitsMass, WBUnitsMomentOfInertia};

}  // namespace

KorWBNymMainPanel::KorWBNymMainPanel(KorWBAllDataBuffer* buffer)
    : KorDlgDialog(KorApplicationFrame::GetMainWindow(), kPanelName, KorDlgStyle::kPanelDialog),
      _dataBuffer(buffer) {
  KORWB_PART_TRACE("KorWBNymMainPanel");
  ReadPartFromBuffer();
  KorWBNymMainPanel::Build();
  SubscribeToCallbacks();
  RefreshPanelWithInfo();
  _rebinding = false;
}

KorWBNymMainPanel::~KorWBNymMainPanel() {
  _widgets = {};
  UnsubscribeToCallbacks();
  _dataBuffer = {};
  std::cout << "done!" << std::endl;
}

KorString KorWBNymMainPanel::GetResourceFilename(int index) const {
  return index == 0 ? kPanelName : KorDlgDialog::GetResourceFilename(index - 1);
}

HRESULT KorWBNymMainPanel::SetModel(KorWBAllDataBuffer* buffer) {
  KORWB_PART_TRACE("SetModel");
  _dataBuffer = buffer;
  ReadPartFromBuffer();
  if (_dataBuffer) {
    if (_widgets.tabs)
      ForgetPasteSource();  // it lists mass types of the part before
    else
      Build();  // the panel was opened without a buffer
  }
  RefreshPanelWithInfo();
  if (_dataBuffer) {
    ApplyConfigurationFilter();
    // Of the active mass type, and about the part's own origin whatever the reference mode: kept as it is.
    if (_widgets.atReference->IsChecked()) {
      ShowMovedToReference(_widgets.activeMass->GetSelectedLine(), "Active");
      ShowMovedToReference(_widgets.massType->GetSelectedLine(), "Current");
    }
  }
  _rebinding = false;
  // The generic failure whatever happened: callers ignore it, and it is kept as it is.
  return E_FAIL;
}

void KorWBNymMainPanel::ReadPartFromBuffer() {
  if (!_dataBuffer) {
    ForgetPart();
    return;
  }
  _dataBuffer->GetCalculationUpToDate(_computed);
  Pdm().GetAppliedOnObject(_appliedOnObject);
  ReadMaterialFromBuffer();
}

void KorWBNymMainPanel::ReadMaterialFromBuffer() {
  _materialName = _dataBuffer->GetMaterialName();
  Pdm().GetPartRefWBMaterialName(_partRefMaterialName);
  _density = _dataBuffer->GetDensity();
  Pdm().GetPartRefWBDensity(_partRefDensity);
}

void KorWBNymMainPanel::ForgetPart() {
  _computed = false;
  _appliedOnObject = _materialName = _partRefMaterialName = {};
  _density = _partRefDensity = 0;
}

LumWBAllDataBuffer& KorWBNymMainPanel::Pdm() const { return *LumWBAllDataBuffer::Of(_dataBuffer.Get()); }

KorWBNymNavMessages KorWBNymMainPanel::Messages() { return {this, kPanelName}; }

void KorWBNymMainPanel::ApplyConfigurationFilter() {
  KorUnicodeString handler;
  _dataBuffer->GetConfigurationHandler(handler);
  _widgets.configHandler->SetText(KorWBNymNavFilterPanel::GetDisplayFilter(handler));
  _dataBuffer->SetFilter(KorWBNymNavFilterPanel::GetFilter(handler));
}

void KorWBNymMainPanel::SubscribeToCallbacks() {
  for (const WBUnitsType type : kUnitsTypes)
    AddCallback(KorWBNymNavUnitsConversion::Instance(), KorWBNymNavUnitsConversion::GetChangedEvent(type),
                &KorWBNymMainPanel::OnModifyUnit, KorClientData(type));
}

void KorWBNymMainPanel::UnsubscribeToCallbacks() { RemoveCallbacks(KorWBNymNavUnitsConversion::Instance()); }

// A change of unit takes effect at the next refresh.
void KorWBNymMainPanel::OnModifyUnit(KorEventSubscriber*, const char*, KorCommandClientData) {}
