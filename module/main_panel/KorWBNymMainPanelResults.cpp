// The results page: computed values about the chosen point, in the chosen axes and the current units.

#include "module/main_panel/KorWBNymMainPanel.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "module/main_panel/KorWBNymMainPanelResultsView.h"
#include "module/main_panel/KorWBNymMainPanelTrace.h"
#include "module/shared/KorWBNymNavMassValues.h"
#include "module/shared/KorWBNymNavReferenceFrame.h"
#include "module/shared/KorWBNymNavUnitDisplay.h"
#include "services/KorLumWBCSCommonDefinitions.h"

using Display = KorWBNymNavUnitDisplay;

namespace {

/// Nine rotation coefficients, then three lengths in mm; what the list lacks is 0.0, also in the rotation.
KorMathTransformation PlacementFrom(const std::vector<double>& coefficients) {
  std::array<double, 12> all{};
  std::copy_n(coefficients.begin(), std::min(coefficients.size(), all.size()), all.begin());
  return KorMathTransformation(all);
}

bool IsFinite(const KorMathPoint& point) {
  return std::isfinite(point.GetX()) && std::isfinite(point.GetY()) && std::isfinite(point.GetZ());
}

}  // namespace

KorWBNymMainPanel::ReferenceMode KorWBNymMainPanel::GetReferenceMode() const {
  if (_widgets.customReference->IsChecked()) return ReferenceMode::Custom;
  return _widgets.rootProduct->IsChecked() ? ReferenceMode::RootProduct : ReferenceMode::CurrentPart;
}

KorWBNymNavReferenceFrame KorWBNymMainPanel::CustomFrame() const {
  return {_widgets.customPoint, _widgets.customAxes};
}

void KorWBNymMainPanel::GetCustomRefModeValues(KorMathPoint& point, KorMath3x3Matrix& axes) const {
  CustomFrame().GetCustomRefModeValues(point, axes);
}

HRESULT KorWBNymMainPanel::RefreshResultsTab() {
  KORWB_PART_TRACE("RefreshResultsTab");
  if (!_dataBuffer) return traceStatus = E_FAIL;
  ResultsView view;
  if (traceStatus = GetResultsView(view); Failed(traceStatus)) return traceStatus;
  int state = KorWBAllDataBuffer::kNotDefined;
  traceStatus = _dataBuffer->GetMassTypeDefined(KorLumWBCSCommonDefinitions::Computed, state);
  if (Failed(traceStatus)) return traceStatus;
  if (state != KorWBAllDataBuffer::kDefined) {
    ShowNotComputed();
    return traceStatus;
  }
  const KorWBNymNavMassValues computed = ReadComputed();
  if (traceStatus = ShowMasses(computed.mass); Failed(traceStatus)) return traceStatus;
  return traceStatus = ShowResults(ExpressIn(view, computed));
}

/// E_FAIL when the custom frame cannot be used: the determinant of its axes is 0.0, or their inverse or the
/// point is not finite.
HRESULT KorWBNymMainPanel::GetResultsView(ResultsView& view) const {
  view.mode = GetReferenceMode();
  view.atReference = _widgets.atReference->IsChecked();
  if (view.mode == ReferenceMode::CurrentPart) return S_OK;
  view.placement = PlacementFrom(_dataBuffer->GetPlacement());
  if (view.mode == ReferenceMode::RootProduct) return S_OK;
  KorMathPoint customPoint;
  GetCustomRefModeValues(customPoint, view.axes);
  if (!view.axes.Invert(view.inverseAxes)) return E_FAIL;
  view.reference = view.axes * customPoint;
  return IsFinite(view.reference) ? S_OK : E_FAIL;
}

/// Twelve editors: three masses, the centre of gravity, moments and products of inertia.
void KorWBNymMainPanel::ShowNotComputed() {
  Display::ShowNoValueIn(std::array{_widgets.mass, _widgets.lowerDeviation, _widgets.upperDeviation});
  Display::ShowNoValueIn(_widgets.cg);
  Display::ShowNoValueIn(_widgets.inertia);
}

KorWBNymNavMassValues KorWBNymMainPanel::ReadComputed() const {
  return KorWBNymNavMassValues::ReadEach(*_dataBuffer, KorLumWBCSCommonDefinitions::Computed);
}

HRESULT KorWBNymMainPanel::ShowMasses(double mass) {
  const KorUnicodeString& computed = KorLumWBCSCommonDefinitions::Computed;
  HRESULT status = Display::ShowIn(Display::kMass, _widgets.mass, mass);
  double deviation = 0;
  if (Succeeded(status)) status = _dataBuffer->GetLowerDeviation(computed, deviation);
  if (Succeeded(status)) status = Display::ShowIn(Display::kMass, _widgets.lowerDeviation, deviation);
  if (Succeeded(status)) status = _dataBuffer->GetUpperDeviation(computed, deviation);
  if (Succeeded(status)) status = Display::ShowIn(Display::kMass, _widgets.upperDeviation, deviation);
  return status;
}

/// The values about the view's reference, in its axes. Inertia that would have to be moved from a centre of
/// gravity that is not known becomes unknown itself, and so does what is too large for a number.
KorWBNymNavMassValues KorWBNymMainPanel::ExpressIn(const ResultsView& view, KorWBNymNavMassValues values) {
  auto& [mass, cg, inertia] = values;
  if (view.mode != ReferenceMode::CurrentPart) {
    const KorMath3x3Matrix& rotation = view.placement.GetMatrix();
    // Without a mass the centre stays where it is, although the tensor turns: kept as it is.
    if (cg && mass != 0.0) cg = view.placement * *cg;
    if (inertia) inertia = rotation * *inertia * rotation.Transpose();
  }
  if (view.mode == ReferenceMode::Custom) {
    // Axes are taken as typed: the point by A, the tensor by its inverse, also where A is no rotation.
    if (cg) cg = view.axes * *cg;
    if (inertia) inertia = view.inverseAxes * *inertia * view.axes;
  }
  if (view.atReference && !cg) inertia.reset();
  if (view.atReference && inertia) values.MoveInertiaTo(view.reference);
  if (view.mode == ReferenceMode::Custom && cg) cg = *cg - view.reference;
  if (cg && !IsFinite(*cg)) cg.reset();
  if (inertia && !inertia->IsFinite()) inertia.reset();
  return values;
}

HRESULT KorWBNymMainPanel::ShowResults(const KorWBNymNavMassValues& results) {
  // Under the computed type's own name, which is not "Active": the mass-types page shows the inertia too,
  // until its own refresh or another choice there writes it again.
  if (results.inertia) {
    const HRESULT status =
        RefreshMomentOfInertiaUnits(*results.inertia, KorLumWBCSCommonDefinitions::Computed);
    if (Failed(status)) return status;
  }
  const HRESULT status = ShowCG(results);
  return Failed(status) ? status : ShowInertia(results);
}

HRESULT KorWBNymMainPanel::ShowCG(const KorWBNymNavMassValues& results) {
  if (!results.cg) return Display::ShowIn(Display::kLength, _widgets.cg, std::nullopt);
  return Display::ShowPointIn(_widgets.cg, *results.cg);
}

HRESULT KorWBNymMainPanel::ShowInertia(const KorWBNymNavMassValues& results) {
  if (!results.inertia) return Display::ShowIn(Display::kInertia, _widgets.inertia, std::nullopt);
  return RefreshMomentOfInertiaUnits(*results.inertia, "Active");
}
