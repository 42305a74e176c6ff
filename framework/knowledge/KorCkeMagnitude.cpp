#include "framework/knowledge/KorCkeMagnitude.h"

#include <algorithm>
#include <utility>

KorCkeMagnitude::KorCkeMagnitude(KorString name, std::vector<KorCkeUnit_var> units)
    : _name(std::move(name)), _units(std::move(units)), _current(ReferenceUnit()) {}

KorCkeUnit_var KorCkeMagnitude::FindUnit(const KorString& unitName) const {
  const auto found = std::find_if(_units.begin(), _units.end(),
                                  [&](const KorCkeUnit_var& unit) { return unit->Name() == unitName; });
  return found == _units.end() ? KorCkeUnit_var() : *found;
}

HRESULT KorCkeMagnitude::SetCurrentUnit(const KorString& unitName) {
  const KorCkeUnit_var unit = FindUnit(unitName);
  if (!unit) return E_FAIL;
  if (unit == _current) return S_OK;
  _current = unit;
  Publish(ChangedEvent());
  return S_OK;
}
