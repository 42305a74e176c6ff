#pragma once

#include <initializer_list>

#include "framework/dialog/KorDlgObject.h"

/// Sets the sensitivity of several widgets, in their order.
inline void KorWBNymMainPanelSetSensitivity(std::initializer_list<KorDlgObject*> widgets,
                                            KorSensitivity sensitivity) {
  for (KorDlgObject* widget : widgets) widget->SetSensitivity(sensitivity);
}
