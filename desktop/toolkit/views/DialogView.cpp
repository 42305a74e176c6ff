#include "desktop/toolkit/views/DialogView.h"

#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QMetaObject>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/toolkit/QtText.h"

namespace desktop {

void DialogWindow::reject() {
  if (onClose) onClose();
}

void DialogWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  reject();
}

namespace {

/// A window has the length `now` in one direction. Only the least length can be one that what came in has
/// forced on it; any other is chosen.
void NoteLength(int now, int least, int& wanted) {
  const bool isForced = now == least && wanted >= 0 && wanted < now;
  if (!isForced) wanted = now;
}

}  // namespace

bool DialogWindow::HasSizeOfItsOwn() const {
  return !(windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen | Qt::WindowMinimized));
}

void DialogWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  if (!isVisible() || !HasSizeOfItsOwn() || _isGettingItBack) return;
  if (event->oldSize().width() != width()) NoteLength(width(), minimumWidth(), _wanted.rwidth());
  if (event->oldSize().height() != height()) NoteLength(height(), minimumHeight(), _wanted.rheight());
}

void DialogWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!HasSizeOfItsOwn()) return;
  NoteLength(width(), minimumWidth(), _wanted.rwidth());
  NoteLength(height(), minimumHeight(), _wanted.rheight());
}

bool DialogWindow::event(QEvent* event) {
  const bool known = QDialog::event(event);
  if (event->type() == QEvent::LayoutRequest) TakeSizeBack();
  if (event->type() == QEvent::WindowStateChange) StateChanged();
  return known;
}

/// Back from the size of the screen the window gets the one that it had before, which may have been forced.
void DialogWindow::StateChanged() {
  _isGettingItBack = true;
  QMetaObject::invokeMethod(
      this,
      [this] {
        _isGettingItBack = false;
        TakeSizeBack();
      },
      Qt::QueuedConnection);
}

/// What came in may have gone.
void DialogWindow::TakeSizeBack() {
  if (isVisible() && HasSizeOfItsOwn() && !_isGettingItBack) resize(_wanted.expandedTo(minimumSize()));
}

QByteArray DialogWindow::SaveWantedGeometry() const {
  const QRect normal = normalGeometry();
  if (!_wanted.isValid() || _wanted == normal.size()) return saveGeometry();
  // The window itself cannot be smaller than what is in it now.
  QWidget empty;
  empty.setScreen(screen());
  empty.winId();  // without a window of the system there is no geometry to save
  empty.setGeometry(QRect(normal.topLeft(), _wanted));
  empty.setWindowState(windowState());
  return empty.saveGeometry();
}

bool DialogWindow::RestoreWantedGeometry(const QByteArray& geometry) {
  if (!restoreGeometry(geometry)) return false;
  _wanted = normalGeometry().size();
  return true;
}

/// Enter presses the button at the bottom that is for it, but not while another button has the focus: who is
/// on "Remove" does not mean "OK".
void DialogWindow::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const bool hasButtons = findChild<QDialogButtonBox*>(QString(), Qt::FindDirectChildrenOnly);
  auto* button = qobject_cast<QPushButton*>(focusWidget());
  if (isEnter && hasButtons && button && button->hasFocus()) return button->click();
  QDialog::keyPressEvent(event);
}

/// The buttons at the bottom are the last ones in the round that Tab makes, but came first: from the window
/// itself the round begins behind them.
bool DialogWindow::focusNextPrevChild(bool next) {
  const auto buttons = findChildren<QDialogButtonBox*>(QString(), Qt::FindDirectChildrenOnly);
  if (!hasFocus() || buttons.isEmpty()) return QDialog::focusNextPrevChild(next);
  buttons.front()->buttons().back()->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return !next || QDialog::focusNextPrevChild(next);
}

QByteArray SaveWantedGeometry(const QWidget& dialogWindow) {
  return static_cast<const DialogWindow&>(dialogWindow).SaveWantedGeometry();
}

bool RestoreWantedGeometry(QWidget& dialogWindow, const QByteArray& geometry) {
  return static_cast<DialogWindow&>(dialogWindow).RestoreWantedGeometry(geometry);
}

namespace {

/// Layouts of widgets that have never been shown keep sizes from before their children came. Settled from the
/// innermost out, the window opens at the size that its largest page needs.
void SettleLayouts(QWidget& window) {
  const QList<QWidget*> inside = window.findChildren<QWidget*>();
  std::for_each(inside.rbegin(), inside.rend(), [](QWidget* widget) {
    widget->ensurePolished();
    if (widget->layout()) widget->layout()->activate();
    widget->updateGeometry();
  });
}

}  // namespace

DialogView::DialogView(QtBackend& backend, KorDlgObject& model, QWidget* parent)
    : QtViewOf(backend, model, new DialogWindow(parent ? parent->window() : nullptr)),
      _content(new QWidget(Qt())),
      _grid(_content, QtGrid::Margins::None) {
  auto* outer = new QVBoxLayout(Qt());
  outer->addWidget(_content, 1);
  const bool hasCancel = Model().Style() == KorDlgStyle::kOkCancelDialog;
  Qt()->onClose = [this, hasCancel] {
    Act([&] { hasCancel ? Model().PressCancel() : Model().CloseWindow(); }, KorDlgProperty::Visibility);
  };
  Qt()->setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  Qt()->setSizeGripEnabled(Model().Style() == KorDlgStyle::kListDialog);
  AddButtons();
}

DialogView::~DialogView() {
  // The window may outlive the view by one turn of the event loop.
  if (!Qt()) return;
  Qt()->onClose = nullptr;
  Qt()->hide();
}

void DialogView::AddButtons() {
  QDialogButtonBox::StandardButtons standard;
  if (Model().Style() == KorDlgStyle::kOkCancelDialog)
    standard = QDialogButtonBox::Ok | QDialogButtonBox::Cancel;
  if (Model().Style() == KorDlgStyle::kListDialog) standard = QDialogButtonBox::Close;
  if (!standard) return;
  auto* buttons = new QDialogButtonBox(standard, Qt());
  Qt()->layout()->addWidget(buttons);
  QObject::connect(buttons, &QDialogButtonBox::accepted, this,
                   [this] { Act([this] { Model().PressOK(); }, KorDlgProperty::Visibility); });
  QObject::connect(buttons, &QDialogButtonBox::rejected, this, [this] { Qt()->reject(); });
}

void DialogView::Show(KorDlgProperty property) {
  // A window has no place in the grid of another.
  if (property != KorDlgProperty::Grid) QtView::Show(property);
}

void DialogView::ShowTitle() { Qt()->setWindowTitle(ToQt(Model().GetTitle())); }

void DialogView::ShowVisibility() {
  if (Qt()->isHidden() != Model().IsShown()) return;
  // No widget has the focus until the user goes to one; the first Tab leads to the first.
  if (Model().IsShown()) Qt()->setFocus();
  if (Model().IsShown()) SettleLayouts(*Qt());
  Qt()->setVisible(Model().IsShown());
  if (!Model().IsShown()) return;
  Qt()->raise();
  Qt()->activateWindow();
}

}  // namespace desktop
