#pragma once

#include <QPalette>

namespace desktop {

/// Light or dark; System: as the desktop environment's own palette was at the start.
enum class ThemeChoice { System, Light, Dark };

/// The look of the program: one style, a light and a dark palette.
class Theme {
 public:
  /// Needs the application; repaints everything. The first call remembers the palette of the system.
  static void Apply(ThemeChoice choice);
  static bool IsDark();
};

QPalette LightPalette();
QPalette DarkPalette();

}  // namespace desktop
