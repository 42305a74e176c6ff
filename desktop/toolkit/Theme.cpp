#include "desktop/toolkit/Theme.h"

#include <QApplication>

#include "desktop/toolkit/KorvoStyle.h"

namespace desktop {
namespace {

struct RoleColour {
  QPalette::ColorRole role;
  QRgb colour;
  QRgb disabled;
};

constexpr RoleColour kLight[] = {
    {QPalette::Window, 0xfff2f4f6, 0xfff2f4f6},
    {QPalette::WindowText, 0xff1d2329, 0xff8a929a},
    {QPalette::Base, 0xffffffff, 0xfff2f4f6},
    {QPalette::AlternateBase, 0xfff6f8fa, 0xfff2f4f6},
    {QPalette::Text, 0xff1d2329, 0xff59616a},
    {QPalette::PlaceholderText, 0xff6e7781, 0xff9aa2aa},
    {QPalette::Button, 0xfffbfcfd, 0xfff2f4f6},
    {QPalette::ButtonText, 0xff1d2329, 0xff69727b},
    {QPalette::BrightText, 0xffffffff, 0xffffffff},
    {QPalette::Highlight, 0xff2566ad, 0xffaab4be},
    {QPalette::HighlightedText, 0xffffffff, 0xffffffff},
    {QPalette::ToolTipBase, 0xff2a3036, 0xff2a3036},
    {QPalette::ToolTipText, 0xfff4f6f8, 0xfff4f6f8},
    {QPalette::Link, 0xff1f5fa8, 0xff8a929a},
    {QPalette::Light, 0xffffffff, 0xffffffff},
    {QPalette::Midlight, 0xffe9ecef, 0xffe9ecef},
    {QPalette::Mid, 0xffb6bdc4, 0xffb6bdc4},
    {QPalette::Dark, 0xff9098a0, 0xff9098a0},
    {QPalette::Shadow, 0xff4a5158, 0xff4a5158},
};

constexpr RoleColour kDark[] = {
    {QPalette::Window, 0xff25292e, 0xff25292e},
    {QPalette::WindowText, 0xffe4e7ea, 0xff7f878f},
    {QPalette::Base, 0xff1a1d21, 0xff25292e},
    {QPalette::AlternateBase, 0xff20242a, 0xff25292e},
    {QPalette::Text, 0xffe4e7ea, 0xffa4acb4},
    {QPalette::PlaceholderText, 0xff929aa2, 0xff6b737b},
    {QPalette::Button, 0xff2c3137, 0xff292e33},
    {QPalette::ButtonText, 0xffe4e7ea, 0xff939ba3},
    {QPalette::BrightText, 0xffffffff, 0xffffffff},
    {QPalette::Highlight, 0xff3a7cc4, 0xff4b535b},
    {QPalette::HighlightedText, 0xffffffff, 0xffc4c9ce},
    {QPalette::ToolTipBase, 0xff3b4249, 0xff3b4249},
    {QPalette::ToolTipText, 0xfff0f2f4, 0xfff0f2f4},
    {QPalette::Link, 0xff7db4ee, 0xff7f878f},
    // The ground of tab pages.
    {QPalette::Light, 0xff2d3238, 0xff2d3238},
    {QPalette::Midlight, 0xff3a4047, 0xff3a4047},
    {QPalette::Mid, 0xff4d545c, 0xff4d545c},
    {QPalette::Dark, 0xff15181b, 0xff15181b},
    {QPalette::Shadow, 0xff0b0d0f, 0xff0b0d0f},
};

template <std::size_t count>
QPalette Build(const RoleColour (&colours)[count]) {
  QPalette palette;
  for (const RoleColour& one : colours) {
    palette.setColor(one.role, QColor::fromRgb(one.colour));
    palette.setColor(QPalette::Disabled, one.role, QColor::fromRgb(one.disabled));
  }
  return palette;
}

bool IsDarkPalette(const QPalette& palette) { return palette.color(QPalette::Window).lightness() < 128; }

}  // namespace

QPalette LightPalette() { return Build(kLight); }
QPalette DarkPalette() { return Build(kDark); }

void Theme::Apply(ThemeChoice choice) {
  static const bool systemIsDark = IsDarkPalette(QApplication::palette());
  const bool dark = choice == ThemeChoice::Dark || (choice == ThemeChoice::System && systemIsDark);
  if (!dynamic_cast<KorvoStyle*>(QApplication::style())) QApplication::setStyle(new KorvoStyle);
  QApplication::setPalette(dark ? DarkPalette() : LightPalette());
}

bool Theme::IsDark() { return IsDarkPalette(QApplication::palette()); }

}  // namespace desktop
