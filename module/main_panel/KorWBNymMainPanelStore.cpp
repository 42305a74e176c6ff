// What a save takes from the editors into the buffer: values of the mass type shown, material, precision.

#include "module/main_panel/KorWBNymMainPanel.h"

#include <algorithm>
#include <array>

#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgCheckButton.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgLabel.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "module/main_panel/KorWBNymMainPanelSensitivity.h"
#include "module/shared/KorWBNymNavEditedValue.h"
#include "module/shared/KorWBNymNavMassValues.h"
#include "module/shared/KorWBNymNavMessages.h"
#include "module/shared/KorWBNymNavUnitDisplay.h"
#include "services/KorLumWBCSCommonDefinitions.h"
#include "services/LumWBAllDataBuffer.h"

using Definitions = KorLumWBCSCommonDefinitions;
using Display = KorWBNymNavUnitDisplay;

namespace {

constexpr int kUserDefinedPrecision = 1;
constexpr int kRelative = 0;
constexpr int kAbsolute = 1;
constexpr const char* kCadFirst = "KORVO_WB";

/// A text that is no number counts as 0, both here and for inertia.
KorMathPoint ReadPoint(const KorWBNymMainPanelWidgets::Editors3& editors,
                       const std::optional<KorMathPoint>& stored) {
  const auto read = [&](std::size_t i, double (KorMathPoint::*coordinate)() const) {
    const auto present = stored ? std::optional(((*stored).*coordinate)()) : std::nullopt;
    return KorWBNymNavEditedValue::Read(*editors[i], Display::kLength, present).value_or(0);
  };
  return {read(0, &KorMathPoint::GetX), read(1, &KorMathPoint::GetY), read(2, &KorMathPoint::GetZ)};
}

/// The tensor: products of inertia negated. `stored` is what the editors show when nobody edits them.
KorMath3x3Matrix ReadInertia(const KorWBNymMainPanelWidgets::Editors6& editors,
                             const std::optional<KorMath3x3Matrix>& stored) {
  struct Element {
    std::size_t editor;
    int row, column;
  };
  static constexpr Element kElements[] = {{0, 1, 1}, {3, 1, 2}, {4, 1, 3}, {1, 2, 2}, {5, 2, 3}, {2, 3, 3}};
  KorMath3x3Matrix inertia;
  for (const auto& [editor, row, column] : kElements) {
    // Subtracted, so that a product of 0 is stored as 0 and not as its negative.
    const auto signedAs = [product = row != column](double value) { return product ? 0.0 - value : value; };
    const auto present = stored ? std::optional(signedAs(stored->GetCoef(row, column))) : std::nullopt;
    const double value =
        signedAs(KorWBNymNavEditedValue::Read(*editors[editor], Display::kInertia, present).value_or(0));
    inertia.SetCoef(row, column, value);
    inertia.SetCoef(column, row, value);
  }
  return inertia;
}

/// The text of a bound as it was typed, in the form in which bounds are shown.
void ShowTypedBound(KorDlgEditor& editor, int valueType) {
  const auto mass = Display::Of(Display::kMass);
  if (valueType != kAbsolute)
    editor.SetText(KorWBNymNavEditedValue::ShowPercent(editor.GetValue()));
  else if (mass)
    editor.SetText(mass->ShowTyped(editor.GetValue()));
}

}  // namespace

/// A mass that is not there is shown as 0; it stays away until somebody types one.
bool KorWBNymMainPanel::ShowsNoMass(const KorUnicodeString& massType) const {
  return !_dataBuffer->HasMass(massType) &&
         KorWBNymNavEditedValue::Shows(*_widgets.mtMass, Display::kMass, 0);
}

/// Nothing of the mass type is stored when its mass is no number.
void KorWBNymMainPanel::StoreShownMassType() {
  const KorUnicodeString shownType = _widgets.massType->GetSelectedLine();
  auto stored = KorWBNymNavMassValues::ReadEach(*_dataBuffer, shownType);
  if (const auto mass = KorWBNymNavEditedValue::Read(*_widgets.mtMass, Display::kMass, stored.mass)) {
    stored.mass = *mass;
    if (!ShowsNoMass(shownType)) _dataBuffer->SetMass(shownType, *mass);
    _dataBuffer->SetMassTypeDefined(shownType, true);
    RefreshMassUnits();
    Pdm().SetStandardPart(_widgets.standardPart->IsChecked());
    if (!Pdm().IsStandatadPart()) StoreDistribution(shownType, stored);
  }
  if (Pdm().IsStandatadPart() && !IsComputedShown()) StoreNoDistribution(shownType);
}

/// `stored`: what the buffer held, with the new mass.
void KorWBNymMainPanel::StoreDistribution(const KorUnicodeString& shownType,
                                          const KorWBNymNavMassValues& stored) {
  const bool atReference = _widgets.atReference->IsChecked();
  KorWBNymNavMassValues typed = stored;
  typed.cg = ReadPoint(_widgets.mtCG, stored.cg);
  const std::array cg{typed.cg->GetX(), typed.cg->GetY(), typed.cg->GetZ()};
  _dataBuffer->SetCG(shownType, cg.data());
  RefreshLengthUnits();
  // About the reference point the editors show other numbers than the buffer holds.
  typed.inertia = ReadInertia(_widgets.mtInertia, atReference ? std::nullopt : stored.inertia);
  if (atReference && typed.CanMove()) {
    typed.MoveInertiaBackFrom(KorMathO);
    Choose(*_widgets.atCG);
  }
  _dataBuffer->SetInertia(shownType, *typed.inertia);
  RefreshMomentOfInertiaUnits(*typed.inertia, shownType);
}

/// A standard part has a mass only: whatever was typed, its mass types lie in the origin.
void KorWBNymMainPanel::StoreNoDistribution(const KorUnicodeString& shownType) {
  static constexpr double kOrigin[3] = {};
  ShowNoDistribution();
  _dataBuffer->SetCG(shownType, kOrigin);
  _dataBuffer->SetInertia(shownType, KorMath3x3Matrix());
}

/// A density that is not defined is shown as 0; it stays undefined until somebody types one. One that is no
/// number makes it undefined: of a part without an instance, a density of 0 that ends the save. Kept so.
void KorWBNymMainPanel::StoreDensity() {
  const double stored = _dataBuffer->GetDensity();
  if (!_dataBuffer->IsDensityDefined() &&
      KorWBNymNavEditedValue::Shows(*_widgets.density, Display::kDensity, stored))
    return;
  const auto density = KorWBNymNavEditedValue::Read(*_widgets.density, Display::kDensity, stored);
  if (density) _dataBuffer->SetDensity(*density);
  _dataBuffer->SetDensityDefined(density.has_value());
}

void KorWBNymMainPanel::StoreMaterial() {
  StoreDensity();
  RefreshDensityUnits();
  const KorUnicodeString priority = _widgets.firstPriority->GetSelectedLine().ToUpper() + "_" +
                                    _widgets.secondPriority->GetSelectedLine().ToUpper();
  _dataBuffer->SetDensityPriority(priority.Compare(kCadFirst) ? 1 : 0);
  _dataBuffer->SetMaterialName(_widgets.material->GetText());
}

/// Checks and stores where the material applies. False: a material without a density, which ends the save in
/// edit mode.
bool KorWBNymMainPanel::AcceptMaterial() {
  if (Pdm().HasInstInLUMIRA()) return true;
  const KorWBNymNavMessages messages = Messages();
  if (_dataBuffer->GetMaterialName().Strip().IsEmpty()) {
    messages.Show("EmptyField.Title",
                  messages.Text("EmptyMaterialField.Message", "--Empty Material field--"));
  } else if (_dataBuffer->GetDensity() == 0.0) {
    messages.ShowOver(KorApplicationFrame::GetMainWindow(), "DensityZero.Title",
                      messages.Text("DensityZero.Message"));
    return false;
  } else {
    _appliedOnObject = _widgets.applyOnInstance->IsChecked() ? Definitions::partInst : Definitions::partRef;
    Pdm().SetAppliedOnObject(_appliedOnObject);
  }
  EndChoiceWhereMaterialApplies();
  return true;
}

void KorWBNymMainPanel::StorePrecision(const KorUnicodeString& activeType) {
  const int type = _widgets.precisionType->GetSelect();
  _dataBuffer->SetPrecisionType(activeType, type);
  if (type == kUserDefinedPrecision) StoreBounds(activeType);
  _dataBuffer->SetPrecisionValueType(activeType, _widgets.precisionValueType->GetSelect());
}

void KorWBNymMainPanel::StoreBounds(const KorUnicodeString& activeType) {
  const int valueType = _widgets.precisionValueType->GetSelect();
  const bool sameValueType = _dataBuffer->GetPrecisionValueType(activeType) == valueType;
  const auto take = [&](KorDlgEditor& editor, double bound) {
    // Nobody typed the percentage of no mass. Back at the stored value type the stored bound holds; for the
    // other one it would be another bound.
    if (sameValueType && editor.GetText() == Display::kNoValue) return bound;
    const auto stored = sameValueType ? std::optional(bound) : std::nullopt;
    const double read = valueType == kRelative
                            ? KorWBNymNavEditedValue::ReadPercent(editor, stored)
                            : KorWBNymNavEditedValue::Read(editor, Display::kMass, stored).value_or(0);
    ShowTypedBound(editor, valueType);
    return read;
  };
  _dataBuffer->SetUpperPrecision(activeType,
                                 take(*_widgets.upperPrecision, _dataBuffer->GetUpperPrecision(activeType)));
  _dataBuffer->SetLowerPrecision(activeType,
                                 take(*_widgets.lowerPrecision, _dataBuffer->GetLowerPrecision(activeType)));
}
