#pragma once

#include <QString>
#include <functional>
#include <map>

#include "desktop/app/PartPanelEditors.h"
#include "framework/dialog/KorDlgDialog.h"

namespace desktop {

/// A text that a user has typed, and what the panel has put in its place.
struct TypedText {
  KorUnicodeString typed;
  QString problem;       ///< why the panel could not read it as it stood; empty: it could
  KorUnicodeString now;  ///< in the editor, or of a property that was left, in the buffer
};

/// What decides whose values the editors show.
struct ShownLines {
  KorUnicodeString massType;
  KorUnicodeString activeMassType;
  bool hasOwnBounds = false;  ///< and not those of the mass type
  int property = 0;           ///< from 1
};

/// What a user has typed into the editors of an open part panel since edit mode began. The panel writes some
/// texts anew with what it has read of them (a bound that is left, a property when another one is shown), so
/// that the editor does not tell any more what was typed. Forgets a text when anything else takes its place.
class TypedTexts {
 public:
  using BufferOf = std::function<const LumWBAllDataBuffer&()>;
  /// The texts must not outlive the panel's widgets.
  TypedTexts(KorDlgDialog& panel, BufferOf buffer);

  /// To be told of everything that a user does in the panel, once the panel is done with it.
  void Follow(const KorDlgObject& sender, KorEvent event);

  /// Null: nothing typed stands in the editor.
  const TypedText* In(const KorDlgEditor& editor) const;
  /// Null: the property (index from 1) has no typed text that it was not read from as it stood.
  const TypedText* OfProperty(int index) const;

 private:
  void Take(const KorDlgObject& sender);
  void HandOverProperty();
  void TakeWrittenAnew(const KorDlgObject& sender, KorEvent event);
  void ForgetReplaced();
  void ForgetOthers(const ShownLines& now);
  ShownLines Lines() const;

  KorDlgDialog& _panel;
  BufferOf _buffer;
  std::map<const KorDlgEditor*, TypedText> _texts;
  std::map<int, TypedText> _properties;
  ShownLines _shown;
};

}  // namespace desktop
