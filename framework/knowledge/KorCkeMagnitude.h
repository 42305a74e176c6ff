#pragma once

#include <vector>

#include "framework/knowledge/KorCkeUnit.h"
#include "framework/system/KorEventSubscriber.h"
#include "framework/system/KorStatus.h"

/// A physical quantity with its units: the reference unit in which the buffer keeps values, and the
/// current unit, chosen by the user, in which they are shown.
class KOR_FRAMEWORK_API KorCkeMagnitude : public KorBaseUnknown, public KorEventSubscriber {
 public:
  /// The first unit is the reference unit and the current unit at the start.
  KorCkeMagnitude(KorString name, std::vector<KorCkeUnit_var> units);

  const KorString& Name() const { return _name; }
  KorCkeUnit_var ReferenceUnit() const { return _units.empty() ? KorCkeUnit_var() : _units.front(); }
  KorCkeUnit_var CurrentUnit() const { return _current; }
  const std::vector<KorCkeUnit_var>& Units() const { return _units; }
  KorCkeUnit_var FindUnit(const KorString& unitName) const;

  /// Makes one of the magnitude's units the current one and publishes ChangedEvent(); E_FAIL for an unknown
  /// name.
  HRESULT SetCurrentUnit(const KorString& unitName);
  /// Name of the event that a change of the current unit publishes.
  static const char* ChangedEvent() { return "MagnitudeUnitChanged"; }

 private:
  KorString _name;
  std::vector<KorCkeUnit_var> _units;
  KorCkeUnit_var _current;
};

using KorCkeMagnitude_var = KorVar<KorCkeMagnitude>;
