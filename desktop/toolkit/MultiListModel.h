#pragma once

#include <QAbstractTableModel>

#include "framework/dialog/KorDlgMultiList.h"

namespace desktop {

/// The item model over a multi-column list: reads its cells when they are asked for and copies none.
class MultiListModel : public QAbstractTableModel {
 public:
  explicit MultiListModel(const KorDlgMultiList& list, QObject* parent)
      : QAbstractTableModel(parent), _list(list) {}

  /// Takes in that titles or number of columns have changed.
  void ColumnsChanged();
  /// Takes in that cells or number of rows have changed.
  void RowsChanged();

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : _rows; }
  int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : _columns; }
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QString RestOfRow(const QModelIndex& cell) const;

  const KorDlgMultiList& _list;
  int _rows = 0;  ///< as last told to the views
  int _columns = 0;
};

}  // namespace desktop
