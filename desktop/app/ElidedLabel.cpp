#include "desktop/app/ElidedLabel.h"

#include <QPainter>
#include <QStyle>
#include <algorithm>

namespace desktop {

QString ElidedLabel::DrawnText() const {
  return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}

QSize ElidedLabel::sizeHint() const {
  const QMargins margins = contentsMargins();
  const int most = _characters * fontMetrics().averageCharWidth();
  // The advance is rounded; with a character to spare a text that fits is never cut off.
  const int whole = fontMetrics().horizontalAdvance(text()) + fontMetrics().averageCharWidth();
  const int width = text().isEmpty() ? 0 : std::min(whole, most);
  return QSize(width, fontMetrics().height()).grownBy(margins);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                        DrawnText(), foregroundRole());
}

}  // namespace desktop
