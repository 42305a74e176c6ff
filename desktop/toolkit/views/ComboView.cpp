#include "desktop/toolkit/views/ComboView.h"

#include <QEvent>
#include <QSignalBlocker>

#include "desktop/toolkit/QtText.h"

namespace desktop {

namespace {
constexpr int kLeastCharacters = 12;
}

ComboView::ComboView(QtBackend& backend, KorDlgObject& model, QWidget* parent)
    : QtViewOf(backend, model, new QComboBox(parent)) {
  Qt()->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  Qt()->setMinimumContentsLength(kLeastCharacters);
  Qt()->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  Qt()->setFocusPolicy(Qt::StrongFocus);
  Qt()->installEventFilter(this);
  QObject::connect(Qt(), &QComboBox::activated, this,
                   [this](int line) { Act([&] { Model().Pick(line); }, KorDlgProperty::Selection); });
}

void ComboView::Show(KorDlgProperty property) {
  const QSignalBlocker quiet(Qt());
  if (property == KorDlgProperty::Lines)
    ShowLines();
  else if (property != KorDlgProperty::Selection)
    QtView::Show(property);
  else if (Qt()->currentIndex() != Model().GetSelect())
    Qt()->setCurrentIndex(Model().GetSelect());
}

bool ComboView::eventFilter(QObject* watched, QEvent* event) {
  // The wheel over a combo that has not the focus belongs to whoever scrolls past it.
  if (event->type() == QEvent::Wheel && !Qt()->hasFocus()) {
    event->ignore();
    return true;
  }
  return QtView::eventFilter(watched, event);
}

void ComboView::ShowLines() {
  const int count = Model().GetLineCount();
  for (int i = 0; i < count; ++i) {
    const QString line = ToQt(Model().GetLine(i));
    if (i >= Qt()->count())
      Qt()->addItem(line);
    else if (Qt()->itemText(i) != line)
      Qt()->setItemText(i, line);
  }
  while (Qt()->count() > count) Qt()->removeItem(Qt()->count() - 1);
}

}  // namespace desktop
