#pragma once

#include <QIcon>

namespace desktop {

/// The sign of something that cannot be used, for places that a frame around them would not show: a red disc
/// with an exclamation mark. `pixels` wide and high.
QIcon MarkIcon(int pixels);

}  // namespace desktop
