#pragma once

#include <QAbstractItemModel>
#include <functional>
#include <memory>
#include <vector>

#include "desktop/app/FilterMarks.h"
#include "desktop/app/OccurrencePlace.h"
#include "protocol/Result.h"

namespace desktop {

/// The products of the server as a tree of occurrences. The children of an occurrence are asked for when
/// somebody looks at them.
class ProductTreeModel : public QAbstractItemModel {
 public:
  enum Column { Name, Instance, Quantity, Mass, Status, ColumnCount };

  explicit ProductTreeModel(QObject* parent = nullptr);
  ~ProductTreeModel() override;

  /// Told of children that could not be asked for; their parent is then shown without them.
  std::function<void(const protocol::Error&)> onError;

  /// Forgets everything and shows the products of the server that is connected now.
  protocol::Result<void> Reload();
  /// Asks again for the lines that are known, after something was computed. A part whose children are no
  /// longer the same loses them; they are asked for anew. Stops at the first line that cannot be asked for.
  protocol::Result<void> RefreshValues();
  /// Shows units and texts anew.
  void RefreshTexts();

  /// Shows which occurrences of a product take part; those of other products all do.
  void MarkFilter(const std::string& product, FilterMarks marks);

  /// Why a line does not take part in full, for people; empty when it does.
  QString FilterNoteAt(const QModelIndex& index) const;

  OccurrencePlace PlaceAt(const QModelIndex& index) const;
  /// The index of an occurrence, asking for the lines on the way; invalid when there is none.
  QModelIndex IndexOf(const std::string& product, const std::vector<std::string>& instancePath);
  /// The only product, or that of the index; empty when there is none.
  std::string ProductAt(const QModelIndex& index) const;

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& = {}) const override { return ColumnCount; }
  bool hasChildren(const QModelIndex& parent = {}) const override;
  bool canFetchMore(const QModelIndex& parent) const override;
  void fetchMore(const QModelIndex& parent) override;
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QStringList mimeTypes() const override;
  /// The occurrences of the indexes, each once.
  QMimeData* mimeData(const QModelIndexList& indexes) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  struct Node;

  Node& NodeAt(const QModelIndex& index) const;
  QModelIndex IndexOf(const Node& node) const;
  protocol::Result<std::vector<protocol::TreeNode>> AskForChildren(const Node& node) const;
  void Insert(Node& parent, std::vector<protocol::TreeNode> lines);
  protocol::Result<void> RefreshBelow(Node& node);
  void Forget(Node& parent);
  OccurrenceKey KeyOf(const Node& node) const;
  FilterMarks::Mark MarkOf(const Node& node) const;
  QString TipOf(const Node& node) const;

  std::unique_ptr<Node> _root;  ///< shown by nobody; its children are the products
  std::string _markedProduct;
  FilterMarks _marks;
};

}  // namespace desktop
