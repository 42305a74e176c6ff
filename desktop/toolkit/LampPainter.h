#pragma once

#include <QPainter>

namespace desktop {

/// A round lamp of one colour that fills `box`.
inline void PaintLamp(QPainter& painter, const QRectF& box, const QColor& colour) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colour.darker(130), 1));
  painter.setBrush(colour);
  painter.drawEllipse(box.adjusted(0.5, 0.5, -0.5, -0.5));
  painter.restore();
}

}  // namespace desktop
