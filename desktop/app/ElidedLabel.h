#pragma once

#include <QLabel>

namespace desktop {

/// A line of text that takes no more than so much room: what does not fit is cut off with "…". The text
/// itself stays whole, for whoever reads it.
class ElidedLabel : public QLabel {
 public:
  /// `characters`: the most that it asks room for.
  explicit ElidedLabel(int characters) : _characters(characters) {}

  /// What is drawn at the width of now.
  QString DrawnText() const;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int _characters;
};

}  // namespace desktop
