#include "module/shared/KorWBNymNavEditedValue.h"

#include <cmath>

#include "framework/dialog/KorDlgEditor.h"
#include "module/shared/KorWBNymNavUnitDisplay.h"
#include "services/KorWBServices.h"

namespace {

constexpr double kFractionPerPercent = 0.01;

}  // namespace

bool KorWBNymNavEditedValue::Shows(const KorDlgEditor& editor, const char* magnitude, double stored) {
  const auto display = KorWBNymNavUnitDisplay::Of(magnitude);
  return display && editor.GetText() == display->Show(stored);
}

std::optional<double> KorWBNymNavEditedValue::Read(const KorDlgEditor& editor, const char* magnitude,
                                                   std::optional<double> stored) {
  if (stored && Shows(editor, magnitude, *stored)) return stored;
  double typed = 0;
  if (editor.GetText().ConvertToNum(&typed, "%le") == 0) return std::nullopt;
  const double restored = KorWBServices::RestoreValue(typed, magnitude);
  return std::isfinite(restored) ? std::optional(restored) : std::nullopt;
}

double KorWBNymNavEditedValue::ReadPercent(const KorDlgEditor& editor, std::optional<double> stored) {
  if (stored && editor.GetText() == ShowPercent(*stored * 100)) return *stored;
  return editor.GetValue() * kFractionPerPercent;
}

KorUnicodeString KorWBNymNavEditedValue::ShowPercent(double percent) {
  KorUnicodeString text;
  text.BuildFromNum(percent, "%g");
  return text + "%";
}
