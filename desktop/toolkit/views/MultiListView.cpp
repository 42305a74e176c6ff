#include "desktop/toolkit/views/MultiListView.h"

#include <QEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QMetaObject>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <algorithm>

#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/WholeTextTip.h"

namespace desktop {
namespace {
constexpr int kLeastOfTexts = 24;   ///< characters of a list of texts that are seen at once at least
constexpr int kRowsMeasured = 200;  ///< rows whose texts decide the width of a column
constexpr int kCellPadding = 16;    ///< device-independent pixels
constexpr int kWidest = 10'000;     ///< device-independent pixels; a remembered width beyond it is damaged

/// Lets a text that wraps do so within words, too.
class WrappingDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QString displayText(const QVariant& value, const QLocale&) const override {
    return BreakableAnywhere(value.toString());
  }
};

}  // namespace

int RowHeightIn(const QWidget& table) { return table.fontMetrics().height() + 6; }

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
  Qt()->verticalHeader()->setDefaultSectionSize(RowHeightIn(*Qt()));
  Qt()->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  Qt()->viewport()->installEventFilter(this);
  new WholeTextTip(*Qt());
  QObject::connect(Qt()->horizontalHeader(), &QHeaderView::sectionResized, this, [this](int column) {
    if (_fitting) return;
    const bool bySpareWidth = Qt()->horizontalHeader()->stretchLastSection() && column == LastShown();
    if (!bySpareWidth) _resized.insert(column);
    FitRows();
  });
  QObject::connect(Qt()->verticalScrollBar(), &QScrollBar::valueChanged, this,
                   [this](int value) { ShowScrolled(value); });
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
  Qt()->horizontalHeader()->disconnect(this);
  Qt()->verticalScrollBar()->disconnect(this);
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
  FitRows();
  ShowSelection();
}

bool MultiListView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize && Model().GetVisibleColumnCount() > 0) FitColumns();
  if (event->type() == QEvent::Resize) {
    FitRows();
    // The table has yet to take its new size over; narrower, its rows may have to be higher than now.
    if (Wraps()) Show(KorDlgProperty::Rows);
  }
  return QtViewOf::eventFilter(watched, event);
}

void MultiListView::ShowColumns() {
  {
    const QScopedValueRollback fitting(_fitting, true);
    // Of several columns the last one takes what is left, but can be made wider than that. Told before
    // columns are hidden: Qt gives a stretched one that is hidden its width back.
    Qt()->horizontalHeader()->setStretchLastSection(Model().GetVisibleColumnCount() < 2);
    _items->ColumnsChanged();
    for (int i = 0; i < Model().GetColumnCount(); ++i) Qt()->setColumnHidden(i, !Model().GetColumn(i).shown);
    ShowWrapping();
  }
  _columnsFitted = false;
  FitColumns();
}

/// Of a column with a text width: room for so many characters, and for the title in any case.
int MultiListView::WidthOf(int column) const {
  const int text =
      Model().GetColumn(column).textWidth * Qt()->fontMetrics().averageCharWidth() + kCellPadding;
  return std::max(text, Qt()->horizontalHeader()->sectionSizeHint(column));
}

/// What the columns that are to be seen at once take, as far as they have widths of their own, or room for
/// the longest part of a text that does not wrap; 0: nothing.
int MultiListView::WidthAtOnce() const {
  int width = Wraps() ? kLeastOfTexts * Qt()->fontMetrics().averageCharWidth() + kCellPadding : 0;
  int left = Model().GetVisibleColumnCount();
  for (int i = 0; i < Model().GetColumnCount() && left > 0; ++i) {
    if (!Model().GetColumn(i).shown) continue;
    if (Model().GetColumn(i).textWidth > 0) width += WidthOf(i);
    --left;
  }
  return width > 0 ? width + 2 * Qt()->frameWidth() + Qt()->verticalScrollBar()->sizeHint().width() : 0;
}

int MultiListView::LastShown() const {
  int last = Model().GetColumnCount() - 1;
  while (last >= 0 && !Model().GetColumn(last).shown) --last;
  return last;
}

/// Of a column without a text width: its share; of the last one what the others leave, and room for its
/// title.
int MultiListView::WidthOfRest(int column) const {
  if (column != LastShown()) return Qt()->viewport()->width() / Model().GetVisibleColumnCount();
  int left = Qt()->viewport()->width();
  for (int i = 0; i < column; ++i) left -= Qt()->columnWidth(i);
  return std::max(left, WidthOf(column));
}

void MultiListView::FitColumn(int column) {
  if (Model().GetColumn(column).textWidth > 0)
    Qt()->setColumnWidth(column, WidthOf(column));
  else if (Model().GetVisibleColumnCount() > 0)
    Qt()->setColumnWidth(column, WidthOfRest(column));
  else
    Qt()->resizeColumnToContents(column);
}

void MultiListView::FitColumns() {
  _columnsFitted = Model().GetLineCount() > 0;
  const QScopedValueRollback fitting(_fitting, true);
  Qt()->setMinimumWidth(WidthAtOnce());
  for (int i = 0; i < Model().GetColumnCount(); ++i)
    if (!_resized.contains(i)) FitColumn(i);
}

void MultiListView::ShowWrapping() {
  if (Qt()->wordWrap() == Wraps()) return;
  Qt()->setWordWrap(Wraps());
  Qt()->setItemDelegate(Wraps() ? new WrappingDelegate(Qt()) : new QStyledItemDelegate(Qt()));
  // A text may be higher than the list.
  Qt()->setVerticalScrollMode(Wraps() ? QAbstractItemView::ScrollPerPixel : QAbstractItemView::ScrollPerItem);
}

/// Only of the rows in sight: there may be a million.
bool MultiListView::FitRows() {
  if (!Wraps()) return false;
  const int before = Qt()->verticalHeader()->length();
  const int bottom = Qt()->viewport()->height();
  const int count = _items->rowCount();
  for (int row = std::max(0, Qt()->rowAt(0)); row < count && Qt()->rowViewportPosition(row) < bottom; ++row)
    Qt()->resizeRowToContents(row);
  return Qt()->verticalHeader()->length() != before;
}

/// At the end the rows that have come into sight may push the last ones out of it again.
void MultiListView::ShowScrolled(int value) {
  const bool atEnd = value == Qt()->verticalScrollBar()->maximum();
  if (!FitRows() || !atEnd) return;
  QMetaObject::invokeMethod(Qt(), "updateGeometries");
  Qt()->scrollToBottom();
}

QByteArray MultiListView::SaveWidths() const {
  QByteArrayList widths;
  for (const int column : _resized)
    widths << QByteArray::number(column) + ':' + QByteArray::number(Qt()->columnWidth(column));
  return widths.join(' ');
}

void MultiListView::RestoreWidths(const QByteArray& widths) {
  for (const QByteArray& one : widths.split(' ')) {
    const QByteArrayList pair = one.split(':');
    bool isColumn = false;
    const int column = pair.front().toInt(&isColumn);
    const int width = pair.back().toInt();
    const bool isShown = isColumn && column >= 0 && Model().GetColumn(column).shown;
    if (pair.size() == 2 && isShown && column < Model().GetColumnCount() && width > 0 && width <= kWidest)
      Qt()->setColumnWidth(column, width);
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
