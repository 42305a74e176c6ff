#include "desktop/toolkit/TextSpinBox.h"

#include <QLineEdit>

namespace desktop {

TextSpinBox::TextSpinBox(QWidget* parent) : QAbstractSpinBox(parent) {
  lineEdit()->setReadOnly(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void TextSpinBox::SetText(const QString& text) { lineEdit()->setText(text); }

QString TextSpinBox::Text() const { return lineEdit()->text(); }

void TextSpinBox::SetArrows(StepEnabled arrows) {
  _arrows = arrows;
  update();
}

void TextSpinBox::stepBy(int steps) {
  const auto& report = steps > 0 ? onUp : onDown;
  if (report) report();
}

QSize TextSpinBox::sizeHint() const {
  constexpr int kCharacters = 16;
  constexpr int kArrows = 30;  ///< device-independent pixels
  return {kCharacters * fontMetrics().averageCharWidth() + kArrows, QAbstractSpinBox::sizeHint().height()};
}

}  // namespace desktop
