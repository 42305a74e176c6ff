#include "module/shared/KorWBNymNavUnitDisplay.h"

#include <array>
#include <cmath>

#include "framework/dialog/KorDlgEditor.h"
#include "framework/knowledge/KorCkeParmDictionary.h"

std::optional<KorWBNymNavUnitDisplay> KorWBNymNavUnitDisplay::Of(const char* magnitude) {
  const KorCkeParmDictionary* dictionary = KorCkeGlobalFunctions::GetParmDictionary();
  if (!dictionary) return std::nullopt;
  const KorCkeMagnitude_var found = dictionary->FindMagnitude(magnitude);
  if (!found || !found->ReferenceUnit() || !found->CurrentUnit()) return std::nullopt;
  return KorWBNymNavUnitDisplay(found->ReferenceUnit(), found->CurrentUnit());
}

KorUnicodeString KorWBNymNavUnitDisplay::Show(double stored) const {
  return ShowUnconverted(_reference->ConvertToReference(stored));
}

KorUnicodeString KorWBNymNavUnitDisplay::ShowUnconverted(double value) const {
  const double shown = _current->ConvertFromReference(value);
  return std::isfinite(shown) ? _current->FormatValue(shown, 0) : KorUnicodeString(kNoValue);
}

KorUnicodeString KorWBNymNavUnitDisplay::ShowTyped(double value) const {
  return _current->FormatValue(value, 0);
}

HRESULT KorWBNymNavUnitDisplay::ShowIn(const char* magnitude, std::span<KorDlgEditor* const> editors,
                                       std::optional<std::span<const double>> values) {
  const auto display = Of(magnitude);
  if (!display) return E_FAIL;
  if (!values) {
    ShowNoValueIn(editors);
    return S_OK;
  }
  for (std::size_t i = 0; i < editors.size(); ++i) editors[i]->SetText(display->Show((*values)[i]));
  return S_OK;
}

HRESULT KorWBNymNavUnitDisplay::ShowIn(const char* magnitude, KorDlgEditor* editor, double value) {
  return ShowIn(magnitude, std::span(&editor, 1), std::span(&value, 1));
}

HRESULT KorWBNymNavUnitDisplay::ShowPointIn(std::span<KorDlgEditor* const, 3> editors,
                                            const KorMathPoint& point) {
  const std::array coordinates{point.GetX(), point.GetY(), point.GetZ()};
  return ShowIn(kLength, editors, std::span(coordinates));
}

void KorWBNymNavUnitDisplay::ShowNoValueIn(std::span<KorDlgEditor* const> editors) {
  for (KorDlgEditor* editor : editors) editor->SetText(kNoValue);
}
