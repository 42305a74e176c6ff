#pragma once

#include <QAbstractSpinBox>
#include <functional>

class QLineEdit;

namespace desktop {

/// A spin box that shows whatever text it is given; its arrows, the arrow keys and the wheel only report.
class TextSpinBox : public QAbstractSpinBox {
 public:
  explicit TextSpinBox(QWidget* parent);

  void SetText(const QString& text);
  QString Text() const;
  /// Which arrows can be pressed.
  void SetArrows(StepEnabled arrows);
  StepEnabled Arrows() const { return _arrows; }

  std::function<void()> onUp;
  std::function<void()> onDown;

  void stepBy(int steps) override;

 protected:
  StepEnabled stepEnabled() const override { return _arrows; }
  QSize sizeHint() const override;

 private:
  StepEnabled _arrows = StepUpEnabled | StepDownEnabled;
};

}  // namespace desktop
