#pragma once

#include "framework/dialog/KorDlgObject.h"

/// A line of text. With style kReadOnly it can be read and selected only; with kNumberEditor it holds a
/// number.
class KOR_FRAMEWORK_API KorDlgEditor : public KorDlgObject {
 public:
  KorDlgEditor(KorDlgObject* parent, const char* name, unsigned style) : KorDlgObject(parent, name, style) {}
  KorDlgKind Kind() const override { return KorDlgKind::Editor; }
  std::span<const KorDlgProperty> Properties() const override;

  bool IsReadOnly() const { return (Style() & KorDlgStyle::kReadOnly) != 0; }

  const KorUnicodeString& GetText() const { return _text; }
  void SetText(const KorUnicodeString& text, KorNotify notify = KorNotify::Silent);

  /// The number that the text opens with ("%le"); 0 when it is none.
  double GetValue() const;
  /// Shows the number so that reading it gives the same number.
  void SetValue(double value, KorNotify notify = KorNotify::Silent);

  /// How many characters the editor shows at once; 0: as the layout gives it.
  int GetVisibleTextWidth() const { return _visibleTextWidth; }
  void SetVisibleTextWidth(int characters);
  /// First character shown; negative values and those beyond the text are clipped.
  int GetFirstColumn() const { return _firstColumn; }
  void SetFirstColumn(int column);
  /// Selects the characters from `first` up to and not including `last`, clipped to the text.
  void SetSelection(int first, int last);
  int GetSelectionFirst() const { return _selectionFirst; }
  int GetSelectionLast() const { return _selectionLast; }

  /// Verb: the user replaces the text. Sends EditorModify when it differs.
  bool Type(const KorUnicodeString& text);

 private:
  /// Takes first column and selection back to where there is text.
  void ClipToText();

  KorUnicodeString _text;
  int _visibleTextWidth = 0;
  int _firstColumn = 0;
  int _selectionFirst = 0;
  int _selectionLast = 0;
};
