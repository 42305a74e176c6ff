#include "desktop/app/BusyIndicator.h"

#include <QApplication>
#include <QStatusBar>

#include "desktop/app/Texts.h"
#include "framework/dialog/KorMsgCatalog.h"

namespace desktop {
namespace {

/// What the user reads while a command runs: a text of its own, or the one for all.
QString BusyText(const KorUnicodeString& command) {
  const KorString key = "Busy." + command.Utf8();
  return Text(KorMsgCatalog::Has("KorvoDesktop", key) ? key.c_str() : "Busy");
}

}  // namespace

BusyIndicator::BusyIndicator(QStatusBar* statusBar) : _statusBar(statusBar) {
  KorPdmClient::SetObserver(this);
}

BusyIndicator::~BusyIndicator() { KorPdmClient::SetObserver(nullptr); }

void BusyIndicator::CommandStarted(const KorUnicodeString& command) { Start(BusyText(command)); }

void BusyIndicator::CommandEnded(const KorUnicodeString& command, const KorUnicodeString& reply) {
  End();
  if (onEnded) onEnded(command, reply);
}

void BusyIndicator::Start(const QString& text) {
  if (_running++ == 0) QApplication::setOverrideCursor(Qt::WaitCursor);
  Say(text);
}

void BusyIndicator::End() {
  if (--_running > 0) return;
  QApplication::restoreOverrideCursor();
  if (_statusBar) _statusBar->clearMessage();
}

void BusyIndicator::ShowProgress(std::string_view what, std::size_t done, std::size_t total) {
  const QString percent = total ? QString(" %1 %").arg(done * 100 / total) : QString();
  Say(ProgressText(what) + percent);
}

void BusyIndicator::Say(const QString& text) {
  if (!_statusBar) return;
  _statusBar->showMessage(text);
  // The command runs on this thread: nothing is painted by itself until it has ended.
  if (_statusBar->isVisible()) _statusBar->repaint();
}

}  // namespace desktop
