#pragma once

#include <QWidget>
#include <functional>

#include "protocol/Tree.h"

class QLabel;
class QLineEdit;
class QTreeWidget;

namespace desktop {

/// A line to search the product with and, below it, the occurrences found. Escape empties and closes the list.
class SearchBox : public QWidget {
 public:
  explicit SearchBox(QWidget* parent = nullptr);

  /// Which product to search.
  std::function<std::string()> product;
  /// Told of the occurrence that the user picks among those found.
  std::function<void(const protocol::Occurrence&)> onPicked;

  QLineEdit* Edit() const { return _edit; }
  QTreeWidget* Hits() const { return _list; }
  QString Summary() const;
  void Search();
  void Clear();
  void RefreshTexts();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowReply(const protocol::SearchReply& reply);
  void ShowSummary(const QString& text);
  void PickCurrent();

  QLineEdit* _edit;
  QTreeWidget* _list;
  QLabel* _summary;
  std::vector<protocol::Occurrence> _hits;
};

}  // namespace desktop
