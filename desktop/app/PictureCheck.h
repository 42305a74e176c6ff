#pragma once

#include <QImage>
#include <QStringList>

namespace desktop {

/// The texts of widgets that the picture of their window shows as one plain area, so that they cannot have
/// been drawn. Widgets that are hidden, or scrolled out in part, do not count.
QStringList TextsNotDrawn(const QWidget& window, const QImage& picture);

}  // namespace desktop
