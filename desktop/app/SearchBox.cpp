#include "desktop/app/SearchBox.h"

#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/app/Icons.h"
#include "desktop/app/PdmCommands.h"
#include "desktop/app/Texts.h"
#include "desktop/toolkit/QtText.h"

namespace desktop {
namespace {
constexpr int kMostHits = 1000;
constexpr int kTypingPause = 250;  ///< milliseconds after the last key before the search begins

QString PathText(const protocol::Occurrence& hit) {
  QStringList elements;
  for (const std::string& instance : hit.instancePath) elements << ToQt(instance);
  return elements.join(QString::fromUtf8(" \u203a "));
}
}  // namespace

SearchBox::SearchBox(QWidget* parent)
    : QWidget(parent),
      _edit(new QLineEdit),
      _list(new QTreeWidget),
      _summary(new QLabel),
      _pause(new QTimer(this)) {
  _edit->setClearButtonEnabled(true);
  _icon = _edit->addAction(icons::Find(), QLineEdit::LeadingPosition);
  _edit->installEventFilter(this);
  _list->setColumnCount(2);
  _list->setRootIsDecorated(false);
  _list->setUniformRowHeights(true);
  _list->setAlternatingRowColors(true);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(4);
  layout->addWidget(_edit);
  layout->addWidget(_summary);
  layout->addWidget(_list);

  _summary->setTextFormat(Qt::PlainText);
  _summary->setWordWrap(true);
  _pause->setSingleShot(true);
  _pause->setInterval(kTypingPause);
  QObject::connect(_edit, &QLineEdit::textEdited, _pause, qOverload<>(&QTimer::start));
  QObject::connect(_edit, &QLineEdit::textChanged, this, [this](const QString& text) {
    if (text.isEmpty()) Clear();
  });
  QObject::connect(_pause, &QTimer::timeout, this, [this] { Search(); });
  QObject::connect(_list, &QTreeWidget::itemActivated, this, [this] { PickCurrent(); });
  QObject::connect(_list, &QTreeWidget::itemClicked, this, [this] { PickCurrent(); });
  Clear();
  RefreshTexts();
}

void SearchBox::RefreshTexts() {
  _icon->setIcon(icons::Find());
  _edit->setPlaceholderText(Text("Search.Hint"));
  _edit->setAccessibleName(Text("Search.Hint"));
  _edit->setToolTip(Text("Search.Help"));
  _list->setHeaderLabels({Text("Tree.Name"), Text("Search.Path")});
  _list->setAccessibleName(Text("Search.Hits"));
  // What the server said of a search that it refused stays.
  if (!_summary->isHidden() && _hasReply) ShowReply();
}

QString SearchBox::Summary() const { return _summary->isHidden() ? QString() : _summary->text(); }

void SearchBox::Search() {
  _pause->stop();
  const std::string text = _edit->text().trimmed().toStdString();
  if (text.empty() || !product) return Clear();
  _searched = product();
  auto reply = SearchTree({_searched, text, kMostHits});
  if (!reply) {
    Clear();
    return ShowSummary(ToQt(reply.Failure().message));
  }
  _reply = std::move(reply).Value();
  _hasReply = true;
  ShowReply();
}

void SearchBox::ShowReply() {
  _list->clear();
  QList<QTreeWidgetItem*> items;
  for (const protocol::Occurrence& hit : _reply.hits) {
    auto* item =
        new QTreeWidgetItem({ToQt(hit.node.name.empty() ? hit.node.partId : hit.node.name), PathText(hit)});
    item->setIcon(0, hit.node.hasChildren ? icons::Assembly() : icons::Part());
    items << item;
  }
  _list->addTopLevelItems(items);
  _list->resizeColumnToContents(0);
  _list->setVisible(!items.isEmpty());
  FitHeight();
  ShowSummary(Text(_reply.cut        ? "Search.Cut"
                   : items.isEmpty() ? "Search.None"
                                     : "Search.Found",
                   {QString::number(items.size())}));
}

void SearchBox::FitHeight() {
  constexpr int kMostRows = 8;  ///< seen at once; the rest is scrolled to
  if (_list->topLevelItemCount() == 0) return;
  const int rows = std::min(_list->topLevelItemCount(), kMostRows);
  const int row = _list->visualItemRect(_list->topLevelItem(0)).height();
  _list->setFixedHeight(_list->header()->sizeHint().height() + rows * row + 2 * _list->frameWidth());
}

void SearchBox::ShowSummary(const QString& text) {
  _summary->setText(text);
  _summary->show();
}

void SearchBox::Clear() {
  _pause->stop();
  _reply = {};
  _hasReply = false;
  _list->clear();
  _list->hide();
  _summary->hide();
}

void SearchBox::PickCurrent() {
  const int row = _list->indexOfTopLevelItem(_list->currentItem());
  if (row >= 0 && onPicked) onPicked(_searched, _reply.hits[static_cast<std::size_t>(row)]);
}

bool SearchBox::eventFilter(QObject* watched, QEvent* event) {
  if (watched != _edit || event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Escape:
      _edit->clear();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      PickFirst();
      return true;
    case Qt::Key_Down:
      EnterList();
      return true;
    default:
      return QWidget::eventFilter(watched, event);
  }
}

void SearchBox::PickFirst() {
  Search();
  if (_list->topLevelItemCount() == 0) return;
  _list->setCurrentItem(_list->topLevelItem(0));
  PickCurrent();
}

void SearchBox::EnterList() {
  if (_list->isHidden()) return;
  _list->setFocus();
  if (!_list->currentItem()) _list->setCurrentItem(_list->topLevelItem(0));
}

}  // namespace desktop
