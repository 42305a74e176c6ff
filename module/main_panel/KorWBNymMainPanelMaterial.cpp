// The material page.

#include "module/main_panel/KorWBNymMainPanel.h"

#include "framework/dialog/KorDlgCheckButton.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgFrame.h"
#include "framework/dialog/KorDlgLabel.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgSpinner.h"
#include "module/main_panel/KorWBNymMainPanelTrace.h"
#include "module/shared/KorWBNymNavUnitDisplay.h"
#include "services/KorLumWBCSCommonDefinitions.h"
#include "services/KorWBServices.h"
#include "services/LumWBAllDataBuffer.h"

using Display = KorWBNymNavUnitDisplay;

namespace {

constexpr int kTypedDensityFirst = 0;
constexpr int kSurfaceMass = 2;  ///< kind of a statistics entry whose density is a mass per area

struct Statistics {
  KorListValKorUnicodeString names;
  std::vector<double> densities;
  std::vector<int> kinds;

  explicit Statistics(const KorWBAllDataBuffer& buffer) {
    buffer.GetMaterialStatistics(names, densities, kinds);
  }
  int Size() const { return names.Size(); }
  bool Has(int entry) const { return entry >= 1 && entry <= Size(); }
};

/// `entry` from 1.
void ShowDensity(const Statistics& statistics, int entry, KorDlgEditor* editor) {
  const bool known = statistics.Has(entry);
  const bool surface = known && statistics.kinds[entry - 1] == kSurfaceMass;
  Display::ShowIn(surface ? Display::kSurfacicMass : Display::kDensity, editor,
                  known ? statistics.densities[entry - 1] : 0.0);
}

}  // namespace

HRESULT KorWBNymMainPanel::RefreshMaterialTab() {
  KORWB_PART_TRACE("RefreshMaterialTab");
  if (!_dataBuffer) return traceStatus = E_FAIL;
  ShowDensityPriority();
  Display::ShowIn(Display::kDensity, _widgets.density, _dataBuffer->GetDensity());
  _widgets.material->SetText(_dataBuffer->GetMaterialName());
  if (!Pdm().HasInstInLUMIRA()) ShowWhereMaterialApplies();
  ShowMaterialStatistics();
  return traceStatus;
}

void KorWBNymMainPanel::ShowDensityPriority() {
  for (KorDlgCombo* combo : {_widgets.firstPriority, _widgets.secondPriority}) {
    combo->ClearLines();
    combo->SetLine("KORVO");
    combo->SetLine("WB");
  }
  const int first = _dataBuffer->GetDensityPriority() == kTypedDensityFirst ? 1 : 0;
  _widgets.firstPriority->SetSelect(first, KorNotify::Send);
  _widgets.secondPriority->SetSelect(1 - first, KorNotify::Send);
}

// The two combos always name different sources. In edit mode material and density can be typed for either.
void KorWBNymMainPanel::OnFirstComboModifyNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  if (!_dataBuffer) return;
  _widgets.secondPriority->SetSelect(_widgets.firstPriority->GetSelect() == 0 ? 1 : 0, KorNotify::Send);
  if (!IsInEditMode()) return;
  _widgets.density->SetSensitivity(KorSensitivity::Enabled);
  _widgets.material->SetSensitivity(KorSensitivity::Enabled);
}

void KorWBNymMainPanel::ShowApplyOn(KorVisibility visibility) {
  _widgets.definedFor->SetVisibility(visibility);
  _widgets.applyOnFrame->SetVisibility(visibility);
}

void KorWBNymMainPanel::ShowWhereMaterialApplies() {
  const bool applies = _dataBuffer->GetDensity() > 0 && !_dataBuffer->GetMaterialName().Strip().IsEmpty();
  ShowApplyOn(KorShownIf(applies));
  if (!applies) return;
  const bool onReference = _appliedOnObject.Compare(KorLumWBCSCommonDefinitions::partRef) != 0;
  _widgets.definedFor->SetTitle("Material applied to: ");
  _widgets.applyOnReference->SetState(KorCheckedIf(onReference));
  _widgets.applyOnInstance->SetState(KorCheckedIf(!onReference));
  _widgets.applyOnReference->SetSensitivity(KorSensitivity::Disabled);
  _widgets.applyOnInstance->SetSensitivity(KorSensitivity::Disabled);
}

bool KorWBNymMainPanel::IsDensityEmpty() const { return _widgets.density->GetText().Strip().IsEmpty(); }

// This handler and the next differ on purpose: an empty material keeps the buttons while there is a density,
// an empty density hides them whatever the material is.
void KorWBNymMainPanel::OnMaterialNameModifyNotification(KorCommand*, KorNotification*,
                                                         KorCommandClientData) {
  if (!_dataBuffer || Pdm().HasInstInLUMIRA()) return;
  const KorUnicodeString& name = _widgets.material->GetText();
  if (_widgets.applyOnReference->IsChecked())
    _partRefMaterialName = name;
  else if (_widgets.applyOnInstance->IsChecked())
    _materialName = name;
  if (!name.Strip().IsEmpty())
    ShowApplyOn(KorVisibility::Shown);
  else if (IsDensityEmpty())
    ShowApplyOn(KorVisibility::Hidden);
}

void KorWBNymMainPanel::OnDensityModifyNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  if (!_dataBuffer || Pdm().HasInstInLUMIRA()) return;
  // In the storage unit, as the densities that come from the buffer: both are shown again the same way.
  const double typed = KorWBServices::RestoreValue(_widgets.density->GetValue(), Display::kDensity);
  if (_widgets.applyOnReference->IsChecked())
    _partRefDensity = typed;
  else if (_widgets.applyOnInstance->IsChecked())
    _density = typed;
  ShowApplyOn(KorShownIf(!IsDensityEmpty()));
}

// Shows what is remembered for the side that was chosen.
void KorWBNymMainPanel::OnApplyMaterialRadioBModify(KorCommand*, KorNotification*, KorCommandClientData) {
  if (!_dataBuffer || !Display::Of(Display::kDensity)) return;
  const bool onReference = _widgets.applyOnReference->IsChecked() && !_widgets.applyOnInstance->IsChecked();
  _widgets.material->SetText(onReference ? _partRefMaterialName : _materialName);
  Display::ShowIn(Display::kDensity, _widgets.density, onReference ? _partRefDensity : _density);
}

// Always from the first entry, wherever the user has browsed to: the index of that stays as it is.
void KorWBNymMainPanel::ShowMaterialStatistics() {
  const Statistics statistics(*_dataBuffer);
  for (int entry = 1; entry <= statistics.Size(); ++entry) {
    KorWBPartTraceLine(statistics.names[entry]);
    KorWBPartTraceLine(statistics.densities[entry - 1]);
    KorWBPartTraceLine(statistics.kinds[entry - 1]);
  }
  _widgets.statisticsName->SetText(statistics.Size() == 0 ? KorUnicodeString("Not Available")
                                                          : statistics.names[1]);
  _widgets.statisticsName->SetUpSensitivity(KorSensitivity::Disabled);
  _widgets.statisticsName->SetDownSensitivity(KorEnabledIf(statistics.Size() >= 2));
  ShowDensity(statistics, 1, _widgets.statisticsDensity);
}

void KorWBNymMainPanel::OnMatNameUpNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  if (!_dataBuffer) return;
  if (_materialStatisticsIndex >= 1) BrowseStatistics(-1);
  if (_materialStatisticsIndex == 1) _widgets.statisticsName->SetUpSensitivity(KorSensitivity::Disabled);
  if (_materialStatisticsIndex < Statistics(*_dataBuffer).Size())
    _widgets.statisticsName->SetDownSensitivity(KorSensitivity::Enabled);
}

// The arrow's sensitivity is the only upper guard of the index.
void KorWBNymMainPanel::OnMatNameDownNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  if (!_dataBuffer) return;
  if (_materialStatisticsIndex >= 1) BrowseStatistics(+1);
  if (_materialStatisticsIndex == Statistics(*_dataBuffer).Size())
    _widgets.statisticsName->SetDownSensitivity(KorSensitivity::Disabled);
  if (_materialStatisticsIndex > 1) _widgets.statisticsName->SetUpSensitivity(KorSensitivity::Enabled);
}

void KorWBNymMainPanel::BrowseStatistics(int step) {
  const Statistics statistics(*_dataBuffer);
  _materialStatisticsIndex += step;
  if (!statistics.Has(_materialStatisticsIndex)) return;
  _widgets.statisticsName->SetText(statistics.names[_materialStatisticsIndex], KorNotify::Send);
  ShowDensity(statistics, _materialStatisticsIndex, _widgets.statisticsDensity);
}

void KorWBNymMainPanel::OnStandardPartClickeNotification(KorCommand*, KorNotification*,
                                                         KorCommandClientData) {
  if (!_dataBuffer) return;
  StoreStandardPart();
  KorWBPartTraceLine("<-OnStandardPartClickeNotification");
}

/// The flag goes to the buffer at once. In edit mode the values of the mass type that is chosen for pasting
/// come along; without one nothing but the flag changes, neither values nor sensitivities.
void KorWBNymMainPanel::StoreStandardPart() {
  const bool standard = _widgets.standardPart->IsChecked();
  Pdm().SetStandardPart(standard);
  const KorUnicodeString source = _widgets.pasteValues->GetSelectedLine();
  if (!_widgets.mtMass->IsEnabled() || source.IsEmpty()) return;
  PasteValuesOf(source);
  if (standard) ShowNoDistribution();
}
