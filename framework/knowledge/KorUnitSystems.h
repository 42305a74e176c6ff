#pragma once

#include <span>

#include "framework/knowledge/KorCkeParmDictionary.h"

/// Which unit of a magnitude a unit system chooses.
struct KorUnitChoice {
  const char* magnitude;
  const char* unit;
};

/// A named set of current units, one for each magnitude.
struct KorUnitSystem {
  const char* name;  ///< "SI", "CGS", "Imperial" or "Mixed"
  std::span<const KorUnitChoice> choices;
};

/// The unit systems that the user can choose from, SI first.
KOR_FRAMEWORK_API std::span<const KorUnitSystem> KorGetUnitSystems();

/// Makes the units of the named system current; E_FAIL for an unknown name, with nothing changed.
KOR_FRAMEWORK_API HRESULT KorApplyUnitSystem(const KorString& name);

/// Name of the system whose units are all current, empty when the choice is the user's own.
KOR_FRAMEWORK_API KorString KorCurrentUnitSystem();
