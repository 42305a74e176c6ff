#include "desktop/toolkit/views/ComboView.h"

#include <QSignalBlocker>

#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/WheelGuard.h"

namespace desktop {

namespace {
constexpr int kLeastCharacters = 12;
}

ComboView::ComboView(QtBackend& backend, KorDlgObject& model, QWidget* parent)
    : QtViewOf(backend, model, new QComboBox(parent)) {
  Qt()->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  Qt()->setMinimumContentsLength(kLeastCharacters);
  Qt()->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  KeepWheelToFocus(*Qt());
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
