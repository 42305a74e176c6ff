#pragma once

#include <QImage>
#include <QStringList>

namespace desktop {

/// The texts that the picture of their window does not show: of labels, buttons, editors, combos, tabs, and
/// of cells and column titles of lists and trees. Where a text belongs there is only its ground. Texts of
/// what is hidden, or scrolled out in part, do not count, and a text with an icon beside it passes by its
/// icon.
QStringList TextsNotDrawn(const QWidget& window, const QImage& picture);

}  // namespace desktop
