#include "desktop/toolkit/LampLabel.h"

#include <QPainter>

#include "desktop/toolkit/LampPainter.h"

namespace desktop {
namespace {
constexpr int kDiameter = 11;  ///< device-independent pixels
constexpr int kGap = 6;
}  // namespace

LampLabel::LampLabel(const QColor& colour, QWidget* parent) : QLabel(parent), _colour(colour) {
  setContentsMargins(kDiameter + kGap, 0, 0, 0);
}

void LampLabel::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  QPainter painter(this);
  PaintLamp(painter, QRectF(1, (height() - kDiameter) / 2.0, kDiameter, kDiameter), _colour);
}

}  // namespace desktop
