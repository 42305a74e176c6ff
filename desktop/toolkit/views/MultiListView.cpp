#include "desktop/toolkit/views/MultiListView.h"

#include <QEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QMetaObject>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>

namespace desktop {
namespace {
constexpr int kRowsMeasured = 200;  ///< rows whose texts decide the width of a column
constexpr int kCellPadding = 16;    ///< device-independent pixels
}  // namespace

MultiListView::MultiListView(QtBackend& backend, KorDlgObject& model, QWidget* parent)
    : QtViewOf(backend, model, new QTableView(parent)), _items(new MultiListModel(Model(), this)) {
  const bool several = model.Style() & KorDlgStyle::kMultiSelection;
  Qt()->setModel(_items);
  Qt()->setSelectionBehavior(QAbstractItemView::SelectRows);
  Qt()->setSelectionMode(several ? QAbstractItemView::ExtendedSelection : QAbstractItemView::SingleSelection);
  Qt()->setEditTriggers(QAbstractItemView::NoEditTriggers);
  Qt()->setAlternatingRowColors(true);
  Qt()->setShowGrid(false);
  Qt()->setWordWrap(false);
  Qt()->setTabKeyNavigation(false);
  Qt()->horizontalHeader()->setStretchLastSection(true);
  Qt()->horizontalHeader()->setHighlightSections(false);
  Qt()->horizontalHeader()->setResizeContentsPrecision(kRowsMeasured);
  Qt()->verticalHeader()->hide();
  Qt()->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  Qt()->verticalHeader()->setDefaultSectionSize(Qt()->fontMetrics().height() + 6);
  Qt()->installEventFilter(this);
  QObject::connect(Qt()->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    std::vector<int> rows = RowsSelectedInQt();
    if (rows != Model().GetSelectedLines())
      Act([&] { Model().PickLines(std::move(rows)); }, KorDlgProperty::Selection);
  });
}

MultiListView::~MultiListView() {
  // The table may outlive the view, and the list, by one turn of the event loop.
  if (!Qt()) return;
  Qt()->selectionModel()->disconnect(this);
  Qt()->setModel(nullptr);
}

void MultiListView::Show(KorDlgProperty property) {
  switch (property) {
    case KorDlgProperty::Columns:
      return ShowColumns();
    case KorDlgProperty::Rows:
    case KorDlgProperty::Selection:
      if (!_settleQueued)
        QMetaObject::invokeMethod(
            this, [this] { Settle(); }, Qt::QueuedConnection);
      _settleQueued = true;
      return;
    default:
      return QtView::Show(property);
  }
}

void MultiListView::Settle() {
  _settleQueued = false;
  {
    const QSignalBlocker quiet(Qt()->selectionModel());
    _items->RowsChanged();
  }
  if (!_columnsFitted && Model().GetLineCount() > 0) FitColumns();
  ShowSelection();
}

bool MultiListView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize && Model().GetVisibleColumnCount() > 0) FitColumns();
  return QtViewOf::eventFilter(watched, event);
}

void MultiListView::ShowColumns() {
  _items->ColumnsChanged();
  _columnsFitted = false;
  for (int i = 0; i < Model().GetColumnCount(); ++i) Qt()->setColumnHidden(i, !Model().GetColumn(i).shown);
  FitColumns();
}

/// Of a column with a text width: room for so many characters, and for the title in any case.
int MultiListView::WidthOf(int column) const {
  const int text =
      Model().GetColumn(column).textWidth * Qt()->fontMetrics().averageCharWidth() + kCellPadding;
  return std::max(text, Qt()->horizontalHeader()->sectionSizeHint(column));
}

/// What the columns that are to be seen at once take, as far as they have widths of their own; 0: nothing.
int MultiListView::WidthAtOnce() const {
  int width = 0;
  int left = Model().GetVisibleColumnCount();
  for (int i = 0; i < Model().GetColumnCount() && left > 0; ++i) {
    if (!Model().GetColumn(i).shown) continue;
    if (Model().GetColumn(i).textWidth > 0) width += WidthOf(i);
    --left;
  }
  return width > 0 ? width + 2 * Qt()->frameWidth() + Qt()->verticalScrollBar()->sizeHint().width() : 0;
}

void MultiListView::FitColumns() {
  _columnsFitted = Model().GetLineCount() > 0;
  const int atOnce = Model().GetVisibleColumnCount();
  Qt()->setMinimumWidth(WidthAtOnce());
  for (int i = 0; i < Model().GetColumnCount(); ++i) {
    if (Model().GetColumn(i).textWidth > 0)
      Qt()->setColumnWidth(i, WidthOf(i));
    else if (atOnce > 0)
      Qt()->setColumnWidth(i, Qt()->viewport()->width() / atOnce);
    else
      Qt()->resizeColumnToContents(i);
  }
}

void MultiListView::ShowSelection() {
  if (RowsSelectedInQt() == Model().GetSelectedLines()) return;
  QItemSelection selection;
  const std::vector<int>& rows = Model().GetSelectedLines();
  const int lastColumn = std::max(0, Model().GetColumnCount() - 1);
  for (std::size_t i = 0; i < rows.size();) {
    std::size_t end = i + 1;
    while (end < rows.size() && rows[end] == rows[end - 1] + 1) ++end;
    selection.select(_items->index(rows[i], 0), _items->index(rows[end - 1], lastColumn));
    i = end;
  }
  // Not quiet: the table repaints at this signal. The rows then equal the widget's, and nothing comes of it.
  Qt()->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

std::vector<int> MultiListView::RowsSelectedInQt() const {
  std::vector<int> rows;
  for (const QItemSelectionRange& range : Qt()->selectionModel()->selection())
    for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

}  // namespace desktop
