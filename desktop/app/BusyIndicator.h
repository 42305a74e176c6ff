#pragma once

#include <QPointer>

#include "framework/pdm/KorPdmClient.h"

class QStatusBar;

namespace desktop {

/// Says in the status bar, and by the mouse pointer, that a command runs; and how far it is.
class BusyIndicator : public KorPdmClient::Observer {
 public:
  explicit BusyIndicator(QStatusBar* statusBar);
  ~BusyIndicator() override;

  /// Called with the name of each command that has ended.
  std::function<void(const KorUnicodeString& command)> onEnded;

  void CommandStarted(const KorUnicodeString& command) override;
  void CommandEnded(const KorUnicodeString& command) override;
  void ShowProgress(std::string_view what, std::size_t done, std::size_t total);

 private:
  void Say(const QString& text);

  QPointer<QStatusBar> _statusBar;
  int _running = 0;
};

}  // namespace desktop
