#pragma once

#include <QObject>
#include <functional>
#include <memory>

#include "desktop/app/CommandsLibrary.h"
#include "desktop/app/PartPanelMarks.h"
#include "desktop/app/Settings.h"
#include "desktop/app/StoredState.h"
#include "desktop/app/TypedValues.h"
#include "desktop/toolkit/QtBackend.h"
#include "protocol/Result.h"
#include "services/LumWBAllDataBuffer.h"

namespace desktop {

/// The command "part panel": puts the data of what is selected into a data buffer, opens the module's panel
/// on it and binds it anew when something else is selected. Closing the panel, by its button or its window,
/// destroys it. What a user types is marked where the panel could not read it, and a save asks first while
/// such a mark stands: the panel would store something else without a word. Another mass type asks first
/// while values of the one before are typed and not saved: the panel would show the other's over them.
class PartPanelHost : public QObject {
 public:
  /// All must outlive the host; the settings keep place and size of the panel.
  PartPanelHost(const CommandsLibrary& library, QtBackend& backend, Settings& settings);
  ~PartPanelHost() override;

  /// Whether the panel may be closed, with what its user typed. Asked before its own button or window closes
  /// it.
  std::function<bool()> mayClose = [] { return true; };

  bool IsOpen() const { return _panel != nullptr; }
  /// Whether something may have been typed that no server has: the panel is in edit mode, or nobody knows
  /// whether its last save was stored.
  bool HasTypedValues() const { return _panel && (_saveAtRisk || IsInEditMode(_panel->Dialog())); }
  /// Whether the panel holds what no server has: typed values, or what was changed outside edit mode (the
  /// standard-part flag, a mass type whose values were deleted).
  bool HasUnsavedValues() const { return HasTypedValues() || (_panel && !_stored.Has(*_buffer)); }
  /// Whether the answer to a save was lost, and no save has been confirmed since: the server may have what
  /// was typed then. A refusal that comes later does not tell.
  bool MayHaveBeenSaved() const { return _panel && _answerWasLost; }
  /// Whether a question of the panel's own stands open; no other may be asked then.
  bool IsAsking() const { return _isAsking; }

  /// What the server answered to a save of the open panel; empty when it did not come to answer. Values whose
  /// save it does not confirm, in the right form and for this part, stay at risk.
  void SaveEnded(const KorUnicodeString& reply);
  /// The open panel has computed.
  void ComputeEnded() { _answered = Answered::Compute; }

  /// Opens the panel on a part's data in the server's form, or binds it when it is open; unsaved values are
  /// given up. On failure the panel stays as it was.
  protocol::Result<void> Show(const std::string& partDataText);
  void Close();
  /// Brings the window of an open panel to the front.
  void Raise() const;
  /// Presses the panel's Compute button; false when the panel is closed or the button cannot be pressed.
  bool Compute();

  /// After a change of units; only without typed values, which would be lost.
  void RefreshValues();
  /// After a change of language. With typed values, texts that the panel puts together stay in the language
  /// that was.
  void RefreshTexts();

  /// Null while the panel is closed.
  KorDlgDialog* Panel() const { return _panel ? &_panel->Dialog() : nullptr; }
  const LumWBAllDataBuffer* Buffer() const { return _buffer.Get(); }
  QWidget* Window() const;

 private:
  /// What the server has done of which the panel has not been told yet.
  enum class Answered { Nothing, Save, Compute };

  void Open();
  void ListenToClosing();
  void ListenToSaving();
  bool MaySave();
  bool MayDrop(const char* textKey, const KorUnicodeString& massType);
  void GoTo(const UnreadText& text);
  void TakeWhatServerHas();

  const CommandsLibrary& _library;
  QtBackend& _backend;
  Settings& _settings;
  LumWBAllDataBuffer_var _buffer;
  std::unique_ptr<PartPanelMarks> _marks;  ///< goes after the panel, to which it listens
  std::unique_ptr<TypedValues> _typed;     ///< the same
  std::unique_ptr<KorWBPartPanel> _panel;
  StoredState _stored;
  Answered _answered = Answered::Nothing;
  bool _saveAtRisk = false;
  bool _answerWasLost = false;  ///< only while the save is at risk
  bool _isAsking = false;
};

}  // namespace desktop
