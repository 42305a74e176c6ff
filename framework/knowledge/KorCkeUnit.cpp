#include "framework/knowledge/KorCkeUnit.h"

#include <algorithm>
#include <utility>

namespace {
int g_shownDigits = 10;
}  // namespace

KorCkeUnit::KorCkeUnit(KorString name, KorUnicodeString symbol, double factor, double offset)
    : _name(std::move(name)), _symbol(std::move(symbol)), _factor(factor), _offset(offset) {}

KorUnicodeString KorCkeUnit::ShowValue(double reference, int option) const {
  return FormatValue(ConvertFromReference(reference), option);
}

KorUnicodeString KorCkeUnit::FormatValue(double value, int option) const {
  KorUnicodeString text;
  const std::string format = "%." + std::to_string(g_shownDigits) + "g";
  text.BuildFromNum(value == 0 ? 0.0 : value, format.c_str());
  if (option == 0 && !_symbol.IsEmpty()) text += " " + _symbol;
  return text;
}

void KorCkeUnit::SetShownDigits(int digits) { g_shownDigits = std::clamp(digits, 1, 17); }

int KorCkeUnit::GetShownDigits() { return g_shownDigits; }
