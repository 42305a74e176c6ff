#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/app/CommandsLibrary.h"
#include "desktop/app/Settings.h"
#include "desktop/toolkit/QtBackend.h"

namespace desktop {

/// Shows lines in the module's list of warnings. Its Close button and its window hide it; it is destroyed
/// when control is back in the event loop.
class WarningListHost : public QObject {
 public:
  /// All must outlive the host; the settings keep place and size of the list.
  WarningListHost(const CommandsLibrary& library, QtBackend& backend, Settings& settings);
  ~WarningListHost() override;

  using Lines = std::vector<std::string>;

  /// Shows these lines, in place of those that are shown; nothing happens without lines. False when the
  /// library of commands is missing.
  bool Show(const Lines& lines);
  /// The same with lines that are asked for again when the language changes; there are always as many.
  bool Show(const std::function<Lines()>& lines);
  void Close();
  /// After a change of language.
  void RefreshTexts();

  /// Null while the list is closed.
  KorDlgDialog* Dialog() const { return _dialog.get(); }
  QWidget* Window() const { return _dialog ? _backend.WindowOf(_dialog.get()) : nullptr; }

 private:
  void CloseIfHidden();

  const CommandsLibrary& _library;
  QtBackend& _backend;
  Settings& _settings;
  std::unique_ptr<KorDlgDialog> _dialog;
  std::function<Lines()> _lines;  ///< of the open list
};

}  // namespace desktop
