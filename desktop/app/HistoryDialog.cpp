#include "desktop/app/HistoryDialog.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPersistentModelIndex>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/app/PdmCommands.h"
#include "desktop/app/Texts.h"
#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/WholeTextTip.h"
#include "desktop/toolkit/views/MultiListView.h"

namespace desktop {
namespace {

constexpr const char* kFieldColumns[] = {"History.Field", "History.Before", "History.After"};

QLabel* MakeText() {
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

/// A table of lines to read: the arrow keys go through the lines, Tab leads out of it.
void MakeLines(QTableView& table) {
  table.setSelectionBehavior(QAbstractItemView::SelectRows);
  table.setSelectionMode(QAbstractItemView::SingleSelection);
  table.setEditTriggers(QAbstractItemView::NoEditTriggers);
  table.setTabKeyNavigation(false);
  table.setAlternatingRowColors(true);
  table.setShowGrid(false);
  table.verticalHeader()->hide();
  table.verticalHeader()->setDefaultSectionSize(RowHeightIn(table));
  table.horizontalHeader()->setHighlightSections(false);
  table.horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  table.horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  new WholeTextTip(table);
}

QTableWidgetItem* MakeItem(const QString& text) {
  auto* item = new QTableWidgetItem(text);
  item->setToolTip(text);
  return item;
}

protocol::Result<protocol::PartData> PartNow(const std::string& part) {
  protocol::PartDataRequest request;
  request.partId = part;
  const auto text = GetPartDataText(request);
  return text ? protocol::ReadPartData(text.Value()) : text.Failure();
}

/// Keeps the row that is at the top of a table there while rows come before it; the first row may go.
class KeptPlace {
 public:
  explicit KeptPlace(QTableView& table)
      : _table(table), _top(table.verticalScrollBar()->value() > 0 ? table.indexAt({0, 0}) : QModelIndex()) {}
  ~KeptPlace() {
    if (_top.isValid()) _table.scrollTo(_top, QAbstractItemView::PositionAtTop);
  }
  KeptPlace(const KeptPlace&) = delete;
  KeptPlace& operator=(const KeptPlace&) = delete;

 private:
  QTableView& _table;
  QPersistentModelIndex _top;
};

}  // namespace

HistoryDialog::HistoryDialog(const std::string& part, QWidget* parent)
    : QDialog(parent),
      _model(new HistoryModel(part, this)),
      _heading(MakeText()),
      _saves(new QTableView),
      _more(new QPushButton),
      _fieldTitle(MakeText()),
      _fields(new QTableWidget),
      _fitRows(new QTimer(this)),
      _fieldNote(MakeText()),
      _before(new QPushButton),
      _after(new QPushButton),
      _close(new QPushButton) {
  Build();
  _model->onError = [this](const protocol::Error& error) {
    if (onError) onError(error);
  };
  _saves->setModel(_model);
  _saves->horizontalHeader()->setSectionResizeMode(HistoryModel::User, QHeaderView::Stretch);
  QObject::connect(_saves->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
                   [this] { ShowOtherSave(); });
  QObject::connect(_model, &QAbstractItemModel::rowsInserted, this, [this] { ShowCounts(); });
  // Once for all columns that change with the width of the dialog or a scroll bar that comes in.
  _fitRows->setSingleShot(true);
  QObject::connect(_fitRows, &QTimer::timeout, _fields, &QTableView::resizeRowsToContents);
  QObject::connect(_fields->horizontalHeader(), &QHeaderView::sectionResized, _fitRows,
                   qOverload<>(&QTimer::start));
  QObject::connect(_more, &QPushButton::clicked, this, [this] { ShowMore(); });
  QObject::connect(_before, &QPushButton::clicked, this,
                   [this] { SaveAgain(protocol::HistoryMoment::Before); });
  QObject::connect(_after, &QPushButton::clicked, this,
                   [this] { SaveAgain(protocol::HistoryMoment::After); });
  QObject::connect(_close, &QPushButton::clicked, this, [this] { close(); });
  RefreshTexts();
  resize(880, 560);
}

void HistoryDialog::Build() {
  MakeLines(*_saves);
  MakeLines(*_fields);
  _fields->setColumnCount(static_cast<int>(std::size(kFieldColumns)));
  for (int column = 1; column < _fields->columnCount(); ++column)
    _fields->horizontalHeader()->setSectionResizeMode(column, QHeaderView::Stretch);
  _fields->setWordWrap(true);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(_heading);
  layout->addWidget(_saves, 2);
  layout->addWidget(_more, 0, Qt::AlignLeft);
  layout->addWidget(_fieldTitle);
  layout->addWidget(_fields, 3);
  layout->addWidget(_fieldNote);
  layout->addWidget(MakeButtons());
}

QWidget* HistoryDialog::MakeButtons() {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(_before);
  layout->addWidget(_after);
  layout->addStretch();
  layout->addWidget(_close);
  for (QPushButton* button : {_more, _before, _after, _close}) button->setAutoDefault(false);
  return row;
}

void HistoryDialog::Reload() {
  const protocol::HistoryEntry* chosen = Chosen();
  const int number = chosen ? chosen->number : 0;
  // The part before its saves: what is saved between the two must not count as seen when it is not listed.
  // Of a part that cannot be read the history can be.
  const auto now = PartNow(_model->Part());
  const KeptPlace place(*_saves);
  if (_model->Refresh() && now) {
    _now = HistoryContext::Of(now.Value());
    _seenToken = now.Value().stateToken;
  }
  ChooseNumber(number);
  ShowCounts();
}

/// Where nothing could be read yet, tries that again.
void HistoryDialog::ShowMore() {
  if (_model->IsUnread())
    Reload();
  else
    _model->AskForMore();
}

/// The latest one where there is no such save among those that are known.
void HistoryDialog::ChooseNumber(int number) {
  const auto& entries = _model->Entries();
  const auto found =
      std::find_if(entries.begin(), entries.end(), [&](const auto& entry) { return entry.number == number; });
  const auto row = static_cast<int>(found == entries.end() ? 0 : found - entries.begin());
  if (_saves->currentIndex().row() != row) _saves->setCurrentIndex(_model->index(row, 0));
  ShowFields();
}

const protocol::HistoryEntry* HistoryDialog::Chosen() const {
  const QModelIndex index = _saves->currentIndex();
  const auto row = static_cast<std::size_t>(std::max(index.row(), 0));
  return index.isValid() && row < _model->Entries().size() ? &_model->Entries()[row] : nullptr;
}

void HistoryDialog::RefreshTexts() {
  setWindowTitle(Text("History.Title", {ToQt(_model->Part())}));
  _before->setText(Text("History.SaveBefore"));
  _before->setToolTip(Text("History.SaveBeforeHelp"));
  _after->setText(Text("History.SaveAfter"));
  _after->setToolTip(Text("History.SaveAfterHelp"));
  _close->setText(Text("History.Close"));
  _fieldTitle->setText(Text("History.Fields"));
  _saves->setAccessibleName(Text("History.Saves"));
  _fields->setAccessibleName(Text("History.Fields"));
  QStringList titles;
  for (const char* key : kFieldColumns) titles << Text(key);
  _fields->setHorizontalHeaderLabels(titles);
  _model->RefreshTexts();
  ShowCounts();
  ShowFields();
}

void HistoryDialog::ShowCounts() {
  const int known = _model->rowCount();
  const QString part = ToQt(_model->Part());
  const QString total = QString::number(_model->Total());
  _heading->setText(_model->IsUnread()        ? Text("History.NotRead", {part})
                    : _model->Total() == 0    ? Text("History.None", {part})
                    : known < _model->Total() ? Text("History.Some", {total, QString::number(known)})
                                              : Text("History.All", {total}));
  _more->setText(Text(_model->IsUnread() ? "History.TryAgain" : "History.More"));
  _more->setVisible(_model->IsUnread() || _model->HasMore());
}

void HistoryDialog::ShowOtherSave() {
  _fields->setRowCount(0);
  ShowFields();
}

/// The lines are filled anew where they stand: the current one stays so.
void HistoryDialog::ShowFields() {
  const protocol::HistoryEntry* save = Chosen();
  _before->setEnabled(save);
  _after->setEnabled(save);
  if (save) return FillFields(*save);
  _fields->setRowCount(0);
  _fieldNote->clear();
  _fieldNote->hide();
}

void HistoryDialog::FillFields(const protocol::HistoryEntry& save) {
  HistoryContext after = _now;
  for (const protocol::HistoryEntry& later : _model->Entries())
    if (later.number > save.number) after.GoBackOver(later);
  HistoryContext before = after;
  before.GoBackOver(save);
  _fields->setRowCount(static_cast<int>(save.changes.size()));
  bool hasUnknownKinds = false;
  for (int row = 0; row < _fields->rowCount(); ++row) {
    const auto texts = HistoryTexts::Of(save.changes[static_cast<std::size_t>(row)], after, before);
    _fields->setItem(row, 0, MakeItem(texts.field));
    _fields->setItem(row, 1, MakeItem(texts.before));
    _fields->setItem(row, 2, MakeItem(texts.after));
    hasUnknownKinds |= texts.hasUnknownKind;
  }
  _fields->resizeRowsToContents();
  ShowFieldNote(save, hasUnknownKinds);
}

void HistoryDialog::ShowFieldNote(const protocol::HistoryEntry& save, bool hasUnknownKinds) {
  QStringList notes;
  if (IsCut(save))
    notes << Text("History.Cut", {QString::number(save.changes.size()), QString::number(save.changeCount)});
  if (hasUnknownKinds) notes << Text("History.UnknownKind");
  _fieldNote->setText(notes.join('\n'));
  _fieldNote->setVisible(!notes.isEmpty());
}

void HistoryDialog::SaveAgain(protocol::HistoryMoment moment) {
  if (const protocol::HistoryEntry* save = Chosen(); save && onSaveAgain)
    onSaveAgain({_model->Part(), save->number, moment}, _seenToken);
}

QString HistoryDialog::Heading() const { return _heading->text(); }
QString HistoryDialog::FieldNote() const { return _fieldNote->text(); }

}  // namespace desktop
