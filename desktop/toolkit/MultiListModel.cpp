#include "desktop/toolkit/MultiListModel.h"

#include <algorithm>

#include "desktop/toolkit/QtText.h"

namespace desktop {

void MultiListModel::ColumnsChanged() {
  if (_columns != _list.GetColumnCount()) {
    beginResetModel();
    _columns = _list.GetColumnCount();
    _rows = _list.GetLineCount();
    endResetModel();
  }
  if (_columns > 0) Q_EMIT headerDataChanged(Qt::Horizontal, 0, _columns - 1);
}

void MultiListModel::RowsChanged() {
  const int rows = _list.GetLineCount();
  const int kept = std::min(rows, _rows);
  if (rows > _rows) {
    beginInsertRows({}, _rows, rows - 1);
    _rows = rows;
    endInsertRows();
  } else if (rows < _rows) {
    beginRemoveRows({}, rows, _rows - 1);
    _rows = rows;
    endRemoveRows();
  }
  if (kept > 0 && _columns > 0) Q_EMIT dataChanged(index(0, 0), index(kept - 1, _columns - 1));
}

/// A row is read as a whole: what stands beside the cell, behind the titles of the columns.
QString MultiListModel::RestOfRow(const QModelIndex& cell) const {
  QStringList texts;
  for (int column = 0; column < _columns; ++column) {
    const QString text = ToQt(_list.GetColumnItem(column, cell.row()));
    if (column != cell.column() && _list.GetColumn(column).shown && !text.isEmpty())
      texts << ToQt(_list.GetColumn(column).title) + ": " + text;
  }
  return texts.join(", ");
}

QVariant MultiListModel::data(const QModelIndex& index, int role) const {
  if (role == Qt::AccessibleDescriptionRole) return RestOfRow(index);
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  return ToQt(_list.GetColumnItem(index.column(), index.row()));
}

QVariant MultiListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section >= _list.GetColumnCount())
    return QAbstractTableModel::headerData(section, orientation, role);
  if (role == Qt::TextAlignmentRole) return int(Qt::AlignLeft | Qt::AlignVCenter);
  return role == Qt::DisplayRole ? ToQt(_list.GetColumn(section).title) : QVariant();
}

}  // namespace desktop
