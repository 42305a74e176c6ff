#pragma once

#include "framework/system/KorEventSubscriber.h"

/// Client data of the precision bounds' focus notifications.
namespace KorWBNymMainPanelFocus {
inline const KorCommandClientData kLeaves = KorClientData(1);
inline const KorCommandClientData kComes = KorClientData(2);
}  // namespace KorWBNymMainPanelFocus
