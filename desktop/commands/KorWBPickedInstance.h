#pragma once

#include <vector>

#include "framework/system/KorUnicodeString.h"

/// An instance that the user picked in the product tree.
struct KorWBPickedInstance {
  KorUnicodeString instanceId;
  KorUnicodeString partId;
  KorUnicodeString partVersion;
  std::vector<KorUnicodeString> above;  ///< instances from the root part down to the one that holds it
};
