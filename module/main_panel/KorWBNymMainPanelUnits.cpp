// One magnitude of the part panel shown again in its current unit.

#include "module/main_panel/KorWBNymMainPanel.h"

#include <array>

#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "module/main_panel/KorWBNymMainPanelResultsView.h"
#include "module/shared/KorWBNymNavMassValues.h"
#include "module/shared/KorWBNymNavUnitDisplay.h"
#include "services/KorLumWBCSCommonDefinitions.h"
#include "services/LumWBAllDataBuffer.h"

using Display = KorWBNymNavUnitDisplay;

HRESULT KorWBNymMainPanel::RefreshMomentOfInertiaUnits(const KorMath3x3Matrix& inertia,
                                                       const KorUnicodeString& label) {
  if (!_dataBuffer) return E_FAIL;
  // The tensor keeps the products of inertia negated, the editors show them with their physical sign.
  const std::array shown{inertia.GetCoef(1, 1),        inertia.GetCoef(2, 2),
                         inertia.GetCoef(3, 3),        -0.0 - inertia.GetCoef(1, 2),
                         -0.0 - inertia.GetCoef(1, 3), -0.0 - inertia.GetCoef(2, 3)};
  const bool active = label.Compare("Active") != 0;
  return Display::ShowIn(Display::kInertia, active ? _widgets.inertia : _widgets.mtInertia, std::span(shown));
}

bool KorWBNymMainPanel::IsComputedDefined() const {
  return _dataBuffer->GetMassTypeDefined(KorLumWBCSCommonDefinitions::Computed) ==
         KorWBAllDataBuffer::kDefined;
}

/// What the mass-types page shows of centre of gravity and inertia: nothing where it shows "...".
std::optional<KorWBNymNavMassValues> KorWBNymMainPanel::ShownDistribution() const {
  const KorUnicodeString shownType = _widgets.massType->GetSelectedLine();
  const bool computed = shownType.Compare(KorLumWBCSCommonDefinitions::Computed) != 0;
  if (_dataBuffer->GetMassTypeDefined(shownType) != KorWBAllDataBuffer::kDefined) return std::nullopt;
  if (Pdm().IsStandatadPart() && !computed) return std::nullopt;
  return KorWBNymNavMassValues::ReadEach(*_dataBuffer, shownType);
}

/// Shows computed values again, as the results page has them; what is not computed, or stands in custom axes
/// that cannot be used, stays as it is.
HRESULT KorWBNymMainPanel::ShowComputed(HRESULT (KorWBNymMainPanel::*show)(const KorWBNymNavMassValues&)) {
  if (!IsComputedDefined()) return S_OK;
  ResultsView view;
  if (Failed(GetResultsView(view))) return S_OK;
  return (this->*show)(ExpressIn(view, ReadComputed()));
}

HRESULT KorWBNymMainPanel::RefreshDensityUnits() {
  const auto display = Display::Of(Display::kDensity);
  if (!_dataBuffer || !display) return E_FAIL;
  // The stored density goes to the current unit as it is, without asking the reference unit.
  _widgets.density->SetText(display->ShowUnconverted(_dataBuffer->GetDensity()));
  return S_OK;
}

HRESULT KorWBNymMainPanel::RefreshMassUnits() {
  if (!_dataBuffer || !Display::Of(Display::kMass)) return E_FAIL;
  const KorUnicodeString shownType = _widgets.massType->GetSelectedLine();
  if (_dataBuffer->GetMassTypeDefined(shownType) == KorWBAllDataBuffer::kDefined)
    Display::ShowIn(Display::kMass, _widgets.mtMass, _dataBuffer->GetMass(shownType));
  if (IsComputedDefined()) ShowMasses(ReadComputed().mass);
  return S_OK;
}

HRESULT KorWBNymMainPanel::RefreshLengthUnits() {
  if (!_dataBuffer || !Display::Of(Display::kLength)) return E_FAIL;
  if (const auto shown = ShownDistribution()) ShowMassTypeCG(*shown);
  return ShowComputed(&KorWBNymMainPanel::ShowCG);
}

HRESULT KorWBNymMainPanel::RefreshMomentOfInertiaUnits() {
  if (!_dataBuffer || !Display::Of(Display::kInertia)) return E_FAIL;
  auto shown = ShownDistribution();
  if (shown && shown->CanMove() && _widgets.atReference->IsChecked()) shown->MoveInertiaTo(KorMathO);
  if (shown && shown->inertia) RefreshMomentOfInertiaUnits(*shown->inertia, "Current");
  return ShowComputed(&KorWBNymMainPanel::ShowInertia);
}
