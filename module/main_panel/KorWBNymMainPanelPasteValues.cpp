// The mass-types page in edit mode: values taken over from another mass type, and scaled to another mass.

#include "module/main_panel/KorWBNymMainPanel.h"

#include <array>

#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "module/shared/KorWBNymNavMassValues.h"
#include "module/shared/KorWBNymNavUnitDisplay.h"
#include "services/KorWBServices.h"
#include "services/LumWBAllDataBuffer.h"

using Display = KorWBNymNavUnitDisplay;

namespace {

KorMath3x3Matrix Scaled(const KorMath3x3Matrix& matrix, double factor) {
  std::array<double, 9> coefficients = matrix.Coefficients();
  for (double& coefficient : coefficients) coefficient *= factor;
  KorMath3x3Matrix scaled;
  scaled.SetCoefficients(coefficients);
  return scaled;
}

}  // namespace

/// An empty line, then every mass type but the shown one, in the order of "MassTypeCombo".
void KorWBNymMainPanel::FillPasteValues() {
  KorDlgCombo& paste = *_widgets.pasteValues;
  paste.ClearLines();
  paste.SetLine("");
  for (int line = 0; line < _widgets.massType->GetLineCount(); ++line)
    if (line != _widgets.massType->GetSelect()) paste.SetLine(_widgets.massType->GetLine(line));
}

// The buffer stays as it is: the next save stores what was pasted, under the mass type that is shown.
void KorWBNymMainPanel::OnMTPasteValuesComboModifyNotification(KorCommand*, KorNotification*,
                                                               KorCommandClientData) {
  if (!_dataBuffer || !_widgets.mtMass->IsEnabled()) return;
  const KorUnicodeString source = _widgets.pasteValues->GetSelectedLine();
  if (!source.IsEmpty()) PasteValuesOf(source);
}

/// Values that are out of date are values too. Without any of the source the editors keep theirs.
void KorWBNymMainPanel::PasteValuesOf(const KorUnicodeString& source) {
  const bool standard = Pdm().IsStandatadPart();
  if (_dataBuffer->GetMassTypeDefined(source) != KorWBAllDataBuffer::kNotDefined) {
    auto values = KorWBNymNavMassValues::ReadEach(*_dataBuffer, source);
    Display::ShowIn(Display::kMass, _widgets.mtMass, values.mass);
    if (standard) {
      ShowNoDistribution();
    } else {
      ShowMassTypeCG(values);
      if (values.CanMove() && _widgets.atReference->IsChecked()) values.MoveInertiaTo(KorMathO);
      ShowMTInertia(values);
    }
  }
  SetDistributionSensitivity(KorEnabledIf(!standard));
}

/// Inertia that is too large for a number is not shown: the editors keep what they have.
void KorWBNymMainPanel::ShowMTInertia(const KorWBNymNavMassValues& values) {
  if (values.inertia && values.inertia->IsFinite()) RefreshMomentOfInertiaUnits(*values.inertia, "Current");
}

void KorWBNymMainPanel::OnMTMassEditorModifyNotification(KorCommand*, KorNotification*,
                                                         KorCommandClientData) {
  if (!_dataBuffer) return;
  const auto display = Display::Of(Display::kMass);
  KorUnicodeString text = _widgets.mtMass->GetText();
  KorWBServices::EvaluateSimpleExpression(text, display ? display->Symbol() : KorUnicodeString());
  _widgets.mtMass->SetText(text);
  if (!_widgets.pasteValues->GetSelectedLine().IsEmpty())
    _widgets.updateProperties->SetSensitivity(KorSensitivity::Enabled);
}

// Inertia scales with the mass, about the same centre of gravity. Mass and centre stay as they are shown.
void KorWBNymMainPanel::OnUpdatePropertiesNotification(KorCommand*, KorNotification*, KorCommandClientData) {
  if (!_dataBuffer) return;
  _widgets.updateProperties->SetSensitivity(KorSensitivity::Disabled);
  const KorUnicodeString source = _widgets.pasteValues->GetSelectedLine();
  if (source.IsEmpty()) return;
  auto values = KorWBNymNavMassValues::ReadEach(*_dataBuffer, source);
  if (!values.CanMove()) return;
  const double mass = KorWBServices::RestoreValue(_widgets.mtMass->GetValue(), Display::kMass);
  values.inertia = Scaled(*values.inertia, mass / values.mass);
  values.mass = mass;
  // Whatever the new mass, also one of 0 or below: unlike where values are pasted.
  if (_widgets.atReference->IsChecked()) values.MoveInertiaTo(KorMathO);
  ShowMTInertia(values);
}
