#pragma once

#include <QColor>

/// Colours with a meaning; readable on the light and on the dark palette.
namespace desktop::colours {

inline const QColor kMarking(0xd3, 0x2f, 0x2f);
inline const QColor kLampRed(0xd9, 0x3b, 0x33);
inline const QColor kLampGreen(0x2f, 0xa3, 0x4b);
inline const QColor kLampAmber(0xe0, 0xa1, 0x1b);

}  // namespace desktop::colours
