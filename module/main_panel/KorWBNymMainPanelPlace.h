#pragma once

#include "framework/dialog/KorDlgObject.h"

/// Where the frames stand that move when the custom reference comes and goes.
namespace KorWBNymMainPanelPlace {
inline constexpr KorDlgGrid kCustomFrame{3, 0};  ///< below the reference frames
inline constexpr KorDlgGrid kCommandsBelowCustomFrame{4, 0};
inline constexpr KorDlgGrid kCommandsDirectly = kCustomFrame;  ///< while the custom frame is hidden
}  // namespace KorWBNymMainPanelPlace
