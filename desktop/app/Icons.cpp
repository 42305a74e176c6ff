#include "desktop/app/Icons.h"

#include <QApplication>
#include <QHash>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

#include "desktop/toolkit/LampPainter.h"

namespace desktop::icons {
namespace {

constexpr double kGrid = 16;  ///< icons are drawn on a grid of 16 by 16

struct Ink {
  QColor line;
  QColor fill;
  QColor accent;
};

Ink InkFor(QIcon::Mode mode) {
  const QPalette palette = QApplication::palette();
  QColor line = palette.color(mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText);
  line.setAlpha(200);
  QColor fill = palette.color(QPalette::Highlight);
  fill.setAlpha(70);
  return {line, fill, palette.color(QPalette::Link)};
}

template <class Draw>
QPixmap DrawnAt(int size, const Ink& ink, Draw draw) {
  QPixmap pixmap(size, size);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / kGrid, size / kGrid);
  painter.setPen(QPen(ink.line, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(ink.fill);
  draw(painter, ink);
  return pixmap;
}

template <class Draw>
QIcon Drawn(Draw draw) {
  QIcon icon;
  for (const int size : {16, 20, 24, 32, 40, 48, 64, 128})
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected})
      icon.addPixmap(DrawnAt(size, InkFor(mode), draw), mode);
  return icon;
}

/// Trees ask for these at each line; they are drawn once for each palette.
template <class Draw>
QIcon Kept(const char* name, Draw draw) {
  static QHash<QString, QIcon> kept;
  const QString key = QString("%1 %2").arg(name).arg(QApplication::palette().cacheKey());
  if (!kept.contains(key)) kept.insert(key, Drawn(draw));
  return kept.value(key);
}

/// A box seen from above at an angle; (x, y) is the middle of its top edge, `r` half its width.
void DrawBox(QPainter& painter, double x, double y, double r) {
  const double h = r / 2;
  const QPolygonF outline(
      {{x, y}, {x + r, y + h}, {x + r, y + h + r}, {x, y + r + 2 * h}, {x - r, y + h + r}, {x - r, y + h}});
  painter.drawPolygon(outline);
  painter.drawPolyline(QPolygonF({{x - r, y + h}, {x, y + 2 * h}, {x + r, y + h}}));
  painter.drawLine(QPointF(x, y + 2 * h), QPointF(x, y + r + 2 * h));
}

void DrawCentreMark(QPainter& painter, const QRectF& box, const Ink& ink) {
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(box);
  painter.setBrush(ink.line);
  painter.drawPie(box, 0, 90 * 16);
  painter.drawPie(box, 180 * 16, 90 * 16);
}

}  // namespace

QIcon Application() {
  return Drawn([](QPainter& painter, const Ink&) {
    const QColor blue(0x25, 0x66, 0xad);
    painter.setPen(QPen(blue, 1.4));
    painter.setBrush(Qt::white);
    painter.drawEllipse(QRectF(1.2, 1.2, 13.6, 13.6));
    painter.setBrush(blue);
    painter.drawPie(QRectF(1.2, 1.2, 13.6, 13.6), 0, 90 * 16);
    painter.drawPie(QRectF(1.2, 1.2, 13.6, 13.6), 180 * 16, 90 * 16);
  });
}

QIcon Assembly() {
  return Kept("assembly", [](QPainter& painter, const Ink&) {
    DrawBox(painter, 8, 0.8, 3.4);
    DrawBox(painter, 4.4, 7.6, 3.4);
    DrawBox(painter, 11.6, 7.6, 3.4);
  });
}

QIcon Part() {
  return Kept("part", [](QPainter& painter, const Ink&) { DrawBox(painter, 8, 2, 5.6); });
}

QIcon PartPanel() {
  return Drawn([](QPainter& painter, const Ink& ink) {
    painter.drawRoundedRect(QRectF(1, 2, 14, 12), 1.5, 1.5);
    painter.drawLine(QPointF(1, 5.2), QPointF(15, 5.2));
    DrawCentreMark(painter, QRectF(2.8, 6.8, 5.6, 5.6), ink);
    for (const double y : {7.6, 9.6, 11.6}) painter.drawLine(QPointF(10, y), QPointF(13.2, y));
  });
}

QIcon OpenProduct() {
  return Drawn([](QPainter& painter, const Ink&) {
    painter.drawPolygon(
        QPolygonF({{1.2, 13.4}, {1.2, 3}, {5.6, 3}, {7.2, 4.8}, {13, 4.8}, {13, 7}, {4.2, 7}}));
    painter.drawPolygon(QPolygonF({{1.2, 13.4}, {4.2, 7}, {15, 7}, {12.2, 13.4}}));
  });
}

QIcon Import() {
  return Drawn([](QPainter& painter, const Ink& ink) {
    painter.drawRect(QRectF(1.4, 6.4, 13.2, 8));
    painter.drawLine(QPointF(1.4, 9), QPointF(14.6, 9));
    painter.drawLine(QPointF(5.8, 9), QPointF(5.8, 14.4));
    painter.drawLine(QPointF(10.2, 9), QPointF(10.2, 14.4));
    painter.setPen(QPen(ink.accent, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawLine(QPointF(8, 0.9), QPointF(8, 5));
    painter.drawPolyline(QPolygonF({{5.8, 3}, {8, 5.2}, {10.2, 3}}));
  });
}

QIcon Units() {
  return Drawn([](QPainter& painter, const Ink&) {
    painter.drawRoundedRect(QRectF(1, 5, 14, 6), 1, 1);
    for (int i = 0; i < 6; ++i) {
      const double x = 3 + 2 * i;
      painter.drawLine(QPointF(x, 5), QPointF(x, i % 2 ? 7 : 8.4));
    }
  });
}

QIcon Find() {
  return Drawn([](QPainter& painter, const Ink&) {
    painter.drawEllipse(QRectF(2, 2, 8.6, 8.6));
    painter.setPen(QPen(painter.pen().color(), 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(9.8, 9.8), QPointF(14, 14));
  });
}

QIcon Filter() {
  return Drawn([](QPainter& painter, const Ink&) {
    painter.drawPolygon(QPolygonF({{1.6, 2}, {14.4, 2}, {9.6, 8}, {9.6, 12.4}, {6.4, 14.4}, {6.4, 8}}));
  });
}

QIcon Lamp(const QColor& colour) {
  return Kept(qPrintable(colour.name()),
              [colour](QPainter& painter, const Ink&) { PaintLamp(painter, QRectF(3, 3, 10, 10), colour); });
}

}  // namespace desktop::icons
