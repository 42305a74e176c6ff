#include "desktop/app/PictureCheck.h"

#include <QWidget>

namespace desktop {
namespace {

bool IsPlain(const QImage& picture, const QRect& area) {
  const QRgb first = picture.pixel(area.topLeft());
  for (int y = area.top(); y <= area.bottom(); ++y)
    for (int x = area.left(); x <= area.right(); ++x)
      if (picture.pixel(x, y) != first) return false;
  return true;
}

/// In pixels of the picture; empty when it is not in the picture whole.
QRect PlaceOf(const QWidget& widget, const QWidget& window, const QImage& picture) {
  const bool isInside = widget.window() == &window && widget.isVisible();
  if (!isInside || widget.visibleRegion().boundingRect() != widget.rect()) return {};
  const qreal scale = picture.devicePixelRatio();
  const QRect place(widget.mapTo(&window, QPoint(0, 0)) * scale, widget.size() * scale);
  return picture.rect().contains(place) ? place : QRect();
}

}  // namespace

QStringList TextsNotDrawn(const QWidget& window, const QImage& picture) {
  QStringList texts;
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    const QString text = widget->property("text").toString();
    const QRect place = PlaceOf(*widget, window, picture);
    if (!text.trimmed().isEmpty() && !place.isEmpty() && IsPlain(picture, place)) texts << text;
  }
  return texts;
}

}  // namespace desktop
