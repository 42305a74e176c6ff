#include "desktop/toolkit/views/DialogView.h"

#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

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

/// A window had the length `before` in one direction and has `now`. Below the least length only what comes in
/// can bring it; any other length is chosen.
void NoteLength(int before, int now, int least, int& forced, int& wanted) {
  if (before == now) return;
  const bool isForced = before > 0 && before < least && now == least;
  if (isForced && forced == 0) wanted = before;
  forced = isForced ? now : 0;
}

/// A window that was to have the length `wanted` comes up with `now`.
void NoteRestoredLength(int now, int least, int wanted, int& forced) {
  if (now > wanted && now == least) forced = now;
}

/// What a length that was forced on a window goes back to.
int LengthWithout(int now, int least, int forced, int wanted) {
  return forced == now && least < now ? std::max(wanted, least) : now;
}

}  // namespace

void DialogWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  if (!isVisible()) return;
  const QSize before = event->oldSize();
  NoteLength(before.width(), width(), minimumWidth(), _forced.rwidth(), _wanted.rwidth());
  NoteLength(before.height(), height(), minimumHeight(), _forced.rheight(), _wanted.rheight());
}

QByteArray DialogWindow::SaveWantedGeometry() const {
  const QSize wanted(LengthWithout(width(), 0, _forced.width(), _wanted.width()),
                     LengthWithout(height(), 0, _forced.height(), _wanted.height()));
  if (wanted == size()) return saveGeometry();
  // The window itself cannot be smaller than what is in it now.
  QWidget empty;
  empty.setScreen(screen());
  empty.winId();  // without a window of the system there is no geometry to save
  empty.setGeometry(QRect(geometry().topLeft(), wanted));
  return empty.saveGeometry();
}

QByteArray SaveWantedGeometry(const QWidget& dialogWindow) {
  return static_cast<const DialogWindow&>(dialogWindow).SaveWantedGeometry();
}

bool DialogWindow::RestoreWantedGeometry(const QByteArray& geometry) {
  _isRestored = restoreGeometry(geometry);
  if (_isRestored) _wanted = size();
  return _isRestored;
}

void DialogWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!std::exchange(_isRestored, false)) return;
  NoteRestoredLength(width(), minimumWidth(), _wanted.width(), _forced.rwidth());
  NoteRestoredLength(height(), minimumHeight(), _wanted.height(), _forced.rheight());
}

bool RestoreWantedGeometry(QWidget& dialogWindow, const QByteArray& geometry) {
  return static_cast<DialogWindow&>(dialogWindow).RestoreWantedGeometry(geometry);
}

bool DialogWindow::event(QEvent* event) {
  const bool known = QDialog::event(event);
  if (event->type() == QEvent::LayoutRequest) TakeSizeBack();
  return known;
}

void DialogWindow::TakeSizeBack() {
  const QSize wanted = _wanted;
  const QSize least = minimumSize();
  const QSize without(LengthWithout(width(), least.width(), _forced.width(), wanted.width()),
                      LengthWithout(height(), least.height(), _forced.height(), wanted.height()));
  const QSize before = size();
  if (without == before) return;
  resize(without);
  // What has not gone back whole waits until more goes.
  if (width() < before.width() && width() > wanted.width()) _forced.setWidth(width());
  if (height() < before.height() && height() > wanted.height()) _forced.setHeight(height());
  _wanted = wanted;
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
