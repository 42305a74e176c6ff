#pragma once

#include <QWidget>

namespace desktop {

/// A red frame over a widget that holds something unusable. Lets the mouse through, follows the widget's
/// size.
class MarkOverlay : public QWidget {
 public:
  enum class State { Off, On };
  static void Show(QWidget& marked, State state);
  static bool IsShownOn(const QWidget& widget);

 private:
  explicit MarkOverlay(QWidget& marked);
  static MarkOverlay* Of(const QWidget& widget);
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace desktop
