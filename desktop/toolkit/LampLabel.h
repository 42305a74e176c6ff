#pragma once

#include <QLabel>

namespace desktop {

/// A text behind a round lamp of one colour.
class LampLabel : public QLabel {
 public:
  LampLabel(const QColor& colour, QWidget* parent);
  const QColor& Colour() const { return _colour; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor _colour;
};

}  // namespace desktop
