#pragma once

#include <QLabel>
#include <QObject>
#include <QPointer>
#include <QTableView>

namespace desktop {

/// Lets those who work without a mouse read what is cut off in a table: while the focus came to it by key,
/// and after each key pressed in it, the texts of the current row that cannot be seen whole stand beside the
/// row, behind the titles of their columns. The tip goes with the focus, and when the mouse is pressed in the
/// table.
class WholeTextTip : public QObject {
 public:
  /// Lives as long as the table.
  explicit WholeTextTip(QTableView& table);
  ~WholeTextTip() override;

  /// What the tip of the table says; empty while there is none.
  static QString ShownOn(const QTableView& table);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void RefreshLater();
  /// Shows the tip of the current row where it has one, else none.
  void Refresh();
  void Place(const QRect& row);
  QLabel* MakeTip();

  QTableView& _table;
  QPointer<QLabel> _tip;  ///< null while none is shown
  bool _isRefreshQueued = false;
};

}  // namespace desktop
