#include "desktop/toolkit/MarkOverlay.h"

#include <QEvent>
#include <QPainter>

#include "desktop/toolkit/Colours.h"

namespace desktop {

void MarkOverlay::Show(QWidget& marked, State state) {
  MarkOverlay* overlay = Of(marked);
  if (state == State::Off)
    delete overlay;
  else if (!overlay)
    (new MarkOverlay(marked))->show();
}

bool MarkOverlay::IsShownOn(const QWidget& widget) { return Of(widget) != nullptr; }

MarkOverlay::MarkOverlay(QWidget& marked) : QWidget(&marked) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  marked.installEventFilter(this);
  setGeometry(marked.rect());
}

MarkOverlay* MarkOverlay::Of(const QWidget& widget) {
  for (QObject* child : widget.children())
    if (auto* overlay = dynamic_cast<MarkOverlay*>(child)) return overlay;
  return nullptr;
}

bool MarkOverlay::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) setGeometry(parentWidget()->rect());
  return QWidget::eventFilter(watched, event);
}

void MarkOverlay::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colours::kMarking, 2));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
}

}  // namespace desktop
