#include "desktop/toolkit/MarkIcon.h"

#include <QPainter>
#include <QPixmap>

#include "desktop/toolkit/Colours.h"

namespace desktop {
namespace {

constexpr double kGrid = 16;  ///< drawn on a grid of 16 by 16
constexpr int kSharpest = 3;  ///< times the size, for screens with more pixels to the point

QPixmap Drawn(int pixels) {
  QPixmap pixmap(pixels, pixels);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(pixels / kGrid, pixels / kGrid);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colours::kMarking);
  painter.drawEllipse(QRectF(1, 1, 14, 14));
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(QRectF(7, 3.5, 2, 6), 1, 1);
  painter.drawEllipse(QRectF(6.9, 10.6, 2.2, 2.2));
  return pixmap;
}

}  // namespace

QIcon MarkIcon(int pixels) {
  QIcon icon;
  for (int scale = 1; scale <= kSharpest; ++scale) icon.addPixmap(Drawn(pixels * scale));
  return icon;
}

}  // namespace desktop
