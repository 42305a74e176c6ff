#pragma once

#include <QObject>
#include <memory>

#include "desktop/app/CommandsLibrary.h"
#include "desktop/app/Settings.h"
#include "desktop/toolkit/QtBackend.h"
#include "protocol/Result.h"
#include "services/LumWBAllDataBuffer.h"

namespace desktop {

/// The command "part panel": puts the data of what is selected into a data buffer, opens the module's panel
/// on it and binds it anew when something else is selected. Closing the panel, by its button or its window,
/// destroys it.
class PartPanelHost : public QObject {
 public:
  /// All must outlive the host; the settings keep place and size of the panel.
  PartPanelHost(const CommandsLibrary& library, QtBackend& backend, Settings& settings);
  ~PartPanelHost() override;

  bool IsOpen() const { return _panel != nullptr; }
  /// Opens the panel on a part's data in the server's form, or binds it when it is open. On failure the panel
  /// stays as it was.
  protocol::Result<void> Show(const std::string& partDataText);
  void Close();
  /// Presses the panel's Compute button; false when the panel is closed or the button cannot be pressed.
  bool Compute();

  /// After a change of units, and after one of language.
  void RefreshValues();
  void RefreshTexts();

  /// Null while the panel is closed.
  KorDlgDialog* Panel() const { return _panel ? &_panel->Dialog() : nullptr; }
  const LumWBAllDataBuffer* Buffer() const { return _buffer.Get(); }
  QWidget* Window() const;

 private:
  void Open();

  const CommandsLibrary& _library;
  QtBackend& _backend;
  Settings& _settings;
  LumWBAllDataBuffer_var _buffer;
  std::unique_ptr<KorWBPartPanel> _panel;
};

}  // namespace desktop
