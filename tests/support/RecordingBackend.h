#pragma once

#include <map>
#include <string>
#include <vector>

#include "framework/dialog/KorDlgBackend.h"
#include "tests/support/BoxScript.h"

/// A toolkit for tests. It shows nothing and remembers what a window would show.
///
/// It learns of a property only when it is told that it changed: then it copies that property and nothing
/// else. What was never announced stays unknown, so that a missing notification fails a test even when the
/// widget's state is right. It also checks the order of what it is told: parents before children, each widget
/// created before it changes, children destroyed before their parents.
class RecordingBackend : public KorDlgBackend {
 public:
  void Created(KorDlgObject& widget) override;
  void Changed(KorDlgObject& widget, KorDlgProperty property) override;
  void Destroyed(KorDlgObject& widget) override;
  void ShowMessage(const KorDlgMessage& message) override { _boxes.Show(message); }
  std::optional<int> Ask(const KorDlgQuestion& question) override { return _boxes.Answer(question); }
  std::optional<KorUnicodeString> ChooseFile(const KorDlgFileRequest& request) override {
    return _boxes.Choose(request);
  }

  BoxScript& Boxes() { return _boxes; }

  bool Knows(const KorDlgObject& widget) const { return _windows.contains(&widget); }
  std::size_t WidgetCount() const { return _windows.size(); }
  /// What the window shows of a property, in the words of ShownText; "unknown" when it was never told.
  std::string Shown(const KorDlgObject& widget, KorDlgProperty property) const;
  /// Whether the user sees the widget: shown, as is everything that holds it, on pages in front.
  bool SeemsVisible(const KorDlgObject& widget) const;
  /// Whether the widget and everything that holds it is enabled.
  bool SeemsEnabled(const KorDlgObject& widget) const;
  bool SeemsUsable(const KorDlgObject& widget) const { return SeemsVisible(widget) && SeemsEnabled(widget); }

  /// Fails the test at each property, of the dialog and all below it, that the window does not show as it is.
  void ExpectMirrorsDialog(const KorDlgObject& dialog) const;

  /// "created MassEditor", "MassEditor: Text", "destroyed MassEditor", ... in the order of the calls.
  const std::vector<std::string>& Log() const { return _log; }
  void ClearLog() { _log.clear(); }

 private:
  struct Window {
    const KorDlgObject* parent = nullptr;
    KorDlgKind kind = KorDlgKind::Dialog;
    std::string name;
    std::map<KorDlgProperty, std::string> shown;
  };

  bool AllAbove(const KorDlgObject& widget, KorDlgProperty property, const std::string& value) const;
  bool IsInFront(const KorDlgObject& page) const;

  std::map<const KorDlgObject*, Window> _windows;
  std::vector<std::string> _log;
  BoxScript _boxes;
};
