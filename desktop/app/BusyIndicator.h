#pragma once

#include <QPointer>
#include <functional>

#include "framework/pdm/KorPdmClient.h"

class QStatusBar;

namespace desktop {

/// Says in the status bar, and by the mouse pointer, that something runs; and how far it is.
class BusyIndicator : public KorPdmClient::Observer {
 public:
  explicit BusyIndicator(QStatusBar* statusBar);
  ~BusyIndicator() override;
  BusyIndicator(const BusyIndicator&) = delete;
  BusyIndicator& operator=(const BusyIndicator&) = delete;

  /// Busy for as long as it lives, for what is no server command.
  class Scope {
   public:
    Scope(BusyIndicator& busy, const QString& text) : _busy(busy) { _busy.Start(text); }
    ~Scope() { _busy.End(); }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    BusyIndicator& _busy;
  };

  /// Called with each command that has ended, and the reply; it is empty when the server did not come to
  /// answer.
  std::function<void(const KorUnicodeString& command, const KorUnicodeString& reply)> onEnded;

  void CommandStarted(const KorUnicodeString& command) override;
  void CommandEnded(const KorUnicodeString& command, const KorUnicodeString& reply) override;
  void ShowProgress(std::string_view what, std::size_t done, std::size_t total);

 private:
  void Start(const QString& text);
  void End();
  void Say(const QString& text);

  QPointer<QStatusBar> _statusBar;
  int _running = 0;
};

}  // namespace desktop
