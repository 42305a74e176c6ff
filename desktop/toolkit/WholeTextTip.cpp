#include "desktop/toolkit/WholeTextTip.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QMetaObject>
#include <QStyle>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

#include "desktop/toolkit/QtText.h"

namespace desktop {
namespace {

constexpr int kMargin = 5;      ///< device-independent pixels between the text of a tip and its edge
constexpr int kGap = 2;         ///< the same between a tip and its row, and the edges of its window
constexpr int kWidest = 640;    ///< the same, of a tip
constexpr int kHighest = 1000;  ///< the same

/// The text as the table draws it.
QString DrawnText(const QTableView& table, const QModelIndex& cell) {
  const auto* delegate = qobject_cast<const QStyledItemDelegate*>(table.itemDelegateForIndex(cell));
  const QVariant text = cell.data();
  return delegate ? delegate->displayText(text, table.locale()) : text.toString();
}

/// The part of a cell that is within the width of the table; what is above or below can be scrolled to.
QRect SeenPart(const QTableView& table, const QModelIndex& cell) {
  const QRect whole = table.visualRect(cell);
  return whole & QRect(0, whole.top(), table.viewport()->width(), whole.height());
}

bool IsSeenWhole(const QTableView& table, const QModelIndex& cell) {
  const int margin = table.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &table) + 1;
  const QRect room = SeenPart(table, cell).adjusted(margin, 0, -margin, 0);
  const QString text = DrawnText(table, cell);
  const QRect widest(0, 0, std::max(room.width(), 0), kHighest);
  const QSize needed =
      table.fontMetrics().boundingRect(widest, table.wordWrap() ? Qt::TextWordWrap : 0, text).size();
  return text.isEmpty() || (needed.width() <= room.width() && needed.height() <= room.height());
}

int ShownColumns(const QTableView& table) {
  return table.horizontalHeader()->count() - table.horizontalHeader()->hiddenSectionCount();
}

/// Of a table of one column, the text alone.
QString TitledText(const QTableView& table, const QModelIndex& cell) {
  const QString title = table.model()->headerData(cell.column(), Qt::Horizontal).toString();
  return ShownColumns(table) > 1 ? title + ": " + cell.data().toString() : cell.data().toString();
}

QString TextsNotSeenWhole(const QTableView& table) {
  QStringList texts;
  const QModelIndex current = table.currentIndex();
  for (int column = 0; current.isValid() && column < table.model()->columnCount(); ++column) {
    const QModelIndex cell = current.siblingAtColumn(column);
    if (!table.isColumnHidden(column) && !IsSeenWhole(table, cell)) texts << TitledText(table, cell);
  }
  return texts.join('\n');
}

bool IsByKey(const QFocusEvent& event) {
  return event.reason() == Qt::TabFocusReason || event.reason() == Qt::BacktabFocusReason ||
         event.reason() == Qt::ShortcutFocusReason;
}

}  // namespace

WholeTextTip::WholeTextTip(QTableView& table) : QObject(&table), _table(table) {
  table.installEventFilter(this);
  table.viewport()->installEventFilter(this);
}

WholeTextTip::~WholeTextTip() { delete _tip; }

QString WholeTextTip::ShownOn(const QTableView& table) {
  for (QObject* child : table.children())
    if (const auto* tip = dynamic_cast<WholeTextTip*>(child); tip && tip->_tip)
      return tip->_tip->accessibleName();
  return {};
}

bool WholeTextTip::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
      RefreshLater();
      break;
    case QEvent::FocusIn:
      if (IsByKey(*static_cast<QFocusEvent*>(event))) RefreshLater();
      break;
    case QEvent::Paint:  // whatever changes in a table, its size too, paints it anew
      if (_tip) RefreshLater();
      break;
    case QEvent::FocusOut:
    case QEvent::Hide:
    case QEvent::MouseButtonPress:
      delete _tip;
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

/// The table has yet to do what the event asks for.
void WholeTextTip::RefreshLater() {
  if (std::exchange(_isRefreshQueued, true)) return;
  QMetaObject::invokeMethod(
      this, [this] { Refresh(); }, Qt::QueuedConnection);
}

void WholeTextTip::Refresh() {
  _isRefreshQueued = false;
  const QRect row = _table.visualRect(_table.currentIndex());
  const bool isInSight = _table.hasFocus() && row.intersects(_table.viewport()->rect());
  const QString text = isInSight ? TextsNotSeenWhole(_table) : QString();
  if (text.isEmpty()) return delete _tip;
  if (!_tip) _tip = MakeTip();
  _tip->setText(BreakableAnywhere(text));
  _tip->setAccessibleName(text);
  Place(row);
  _tip->show();
}

QLabel* WholeTextTip::MakeTip() {
  auto* tip = new QLabel(_table.window());
  tip->setObjectName("WholeTextTip");
  tip->setAttribute(Qt::WA_TransparentForMouseEvents);
  tip->setTextFormat(Qt::PlainText);
  tip->setWordWrap(true);
  tip->setIndent(0);
  tip->setMargin(kMargin);
  tip->setFrameShape(QFrame::Box);  // in the dark theme its ground is much like that of a window
  tip->setAutoFillBackground(true);
  tip->setBackgroundRole(QPalette::ToolTipBase);
  tip->setForegroundRole(QPalette::ToolTipText);
  tip->raise();
  return tip;
}

/// Below its row, or above it where there is no room; within the window in any case.
void WholeTextTip::Place(const QRect& row) {
  const QWidget& window = *_table.window();
  const int edges = 2 * (kMargin + _tip->frameWidth());
  const QRect textRoom(0, 0, std::min(window.width() - 2 * kGap, kWidest) - edges, kHighest);
  const QSize text = _tip->fontMetrics().boundingRect(textRoom, Qt::TextWordWrap, _tip->text()).size();
  QRect tip({0, 0}, text + QSize(edges + 1, edges));
  const QPoint start = _table.viewport()->mapTo(&window, row.topLeft());
  const int below = start.y() + row.height() + kGap;
  tip.moveTop(below + tip.height() <= window.height() ? below : std::max(0, start.y() - kGap - tip.height()));
  const int left = _table.mapTo(&window, QPoint(kGap, 0)).x();
  tip.moveLeft(std::max(kGap, std::min(left, window.width() - kGap - tip.width())));
  _tip->setGeometry(tip);
}

}  // namespace desktop
