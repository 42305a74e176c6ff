#include "desktop/toolkit/WheelGuard.h"

#include <QEvent>
#include <QWidget>

namespace desktop {
namespace {

class WheelGuard : public QObject {
 public:
  explicit WheelGuard(QWidget& input) : QObject(&input) { input.installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus())
      return QObject::eventFilter(watched, event);
    event->ignore();
    return true;
  }
};

}  // namespace

void KeepWheelToFocus(QWidget& input) {
  input.setFocusPolicy(Qt::StrongFocus);
  new WheelGuard(input);
}

}  // namespace desktop
