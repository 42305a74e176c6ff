#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "protocol/Tree.h"

class QAction;
class QLabel;
class QLineEdit;
class QTimer;
class QTreeWidget;

namespace desktop {

/// A line to search the product with and, below it, the occurrences found. Escape empties and closes the
/// list.
class SearchBox : public QWidget {
 public:
  explicit SearchBox(QWidget* parent = nullptr);

  /// Which product to search.
  std::function<std::string()> product;
  /// Told of the occurrence that the user picks among those found, and of the product that was searched:
  /// meanwhile `product` may answer another one.
  std::function<void(const std::string& product, const protocol::Occurrence& hit)> onPicked;

  QLineEdit* Edit() const { return _edit; }
  QTreeWidget* Hits() const { return _list; }
  QString Summary() const;
  void Search();
  void Clear();
  /// Shows texts and colours anew.
  void RefreshTexts();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowReply();
  void FitHeight();
  void ShowSummary(const QString& text);
  void PickCurrent();
  void PickFirst();
  void EnterList();

  QLineEdit* _edit;
  QAction* _icon = nullptr;
  QTreeWidget* _list;
  QLabel* _summary;
  QTimer* _pause;         ///< runs from the last key until the search begins
  std::string _searched;  ///< the product of `_reply`
  protocol::SearchReply _reply;
  bool _hasReply = false;
};

}  // namespace desktop
