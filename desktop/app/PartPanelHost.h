#pragma once

#include <QObject>
#include <functional>
#include <memory>

#include "desktop/app/CommandsLibrary.h"
#include "desktop/app/PartPanelMarks.h"
#include "desktop/app/Settings.h"
#include "desktop/toolkit/QtBackend.h"
#include "protocol/Result.h"
#include "services/LumWBAllDataBuffer.h"

namespace desktop {

/// The command "part panel": puts the data of what is selected into a data buffer, opens the module's panel
/// on it and binds it anew when something else is selected. Closing the panel, by its button or its window,
/// destroys it. What a user types is marked where the panel could not read it.
class PartPanelHost : public QObject {
 public:
  /// All must outlive the host; the settings keep place and size of the panel.
  PartPanelHost(const CommandsLibrary& library, QtBackend& backend, Settings& settings);
  ~PartPanelHost() override;

  /// Whether the panel may be closed, with what its user typed. Asked before its own button or window closes
  /// it.
  std::function<bool()> mayClose = [] { return true; };

  bool IsOpen() const { return _panel != nullptr; }
  /// Whether the panel holds what no server has: it is in edit mode, or its last save failed.
  bool HasUnsavedValues() const { return _panel && (_saveFailed || IsInEditMode(_panel->Dialog())); }
  /// What came of a save that the open panel sent.
  enum class SaveOutcome { Saved, Failed };
  void SaveEnded(SaveOutcome outcome) { _saveFailed = outcome == SaveOutcome::Failed; }

  /// Opens the panel on a part's data in the server's form, or binds it when it is open; unsaved values are
  /// given up. On failure the panel stays as it was.
  protocol::Result<void> Show(const std::string& partDataText);
  void Close();
  /// Brings the window of an open panel to the front.
  void Raise() const;
  /// Presses the panel's Compute button; false when the panel is closed or the button cannot be pressed.
  bool Compute();

  /// After a change of units; only without unsaved values, which would be lost.
  void RefreshValues();
  /// After a change of language. With unsaved values, texts that the panel puts together stay in the language
  /// that was.
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
  std::unique_ptr<PartPanelMarks> _marks;  ///< goes after the panel, to which it listens
  std::unique_ptr<KorWBPartPanel> _panel;
  bool _saveFailed = false;
};

}  // namespace desktop
