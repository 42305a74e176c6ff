#pragma once

#include <functional>
#include <utility>

#include "framework/dialog/KorDlgObject.h"

/// A drop-down choice among lines. Line indexes count from 0; -1 stands for no line.
class KOR_FRAMEWORK_API KorDlgCombo : public KorDlgObject {
 public:
  KorDlgCombo(KorDlgObject* parent, const char* name, unsigned style) : KorDlgObject(parent, name, style) {}
  KorDlgKind Kind() const override { return KorDlgKind::Combo; }
  std::span<const KorDlgProperty> Properties() const override;

  const std::vector<KorUnicodeString>& GetLines() const { return _lines; }
  int GetLineCount() const { return static_cast<int>(_lines.size()); }
  /// Empty for an index that there is not.
  KorUnicodeString GetLine(int index) const;

  /// Removes all lines; nothing is selected then.
  void ClearLines();
  /// Puts a line in at `index`, behind the last when negative or beyond the end. The first line of an empty
  /// combo becomes the selected one.
  void SetLine(const KorUnicodeString& text, int index = -1);
  /// A deleted selected line hands the selection to the one that takes its place, or to the last.
  void DeleteLine(int index);

  int GetSelect() const { return _selected; }
  /// The selected line's text, empty when none is selected.
  KorUnicodeString GetSelectedLine() const { return GetLine(_selected); }
  /// An index that there is not leaves the selection as it was; the notification is sent all the same.
  void SetSelect(int index, KorNotify notify = KorNotify::Silent);
  /// Selects the first line with that text. False when there is none: the selection stays as it was, and the
  /// notification is sent all the same.
  bool SetSelect(const KorUnicodeString& text, KorNotify notify = KorNotify::Silent);

  /// Verb: the user picks a line. Sends ComboSelect, also for the line that was selected, unless the guard
  /// says no.
  bool Pick(int index);
  bool Pick(const KorUnicodeString& text);

  /// The host's say in what a user picks: asked with the index of the line at each pick, also of the selected
  /// one, before it is selected and anybody is told of it; false: the selection stays, nothing is sent. What
  /// code selects is not asked about. It may not destroy the combo. Null, as at the start: nobody is asked.
  using Guard = std::function<bool(int index)>;
  void SetGuard(Guard guard) { _guard = std::move(guard); }

 private:
  int LineWith(const KorUnicodeString& text) const;

  Guard _guard;
  std::vector<KorUnicodeString> _lines;
  int _selected = -1;
};
