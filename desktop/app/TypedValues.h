#pragma once

#include <functional>
#include <vector>

#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgDialog.h"
#include "framework/dialog/KorDlgEditor.h"

namespace desktop {

/// Values of one mass type that stand in the editors of an open part panel only, until a save stores them.
///
/// The panel shows the values of another line of a combo over them ("MassTypeCombo": mass, centre of gravity
/// and inertia; "ActiveMassCombo": the bounds of the mass). The user is asked before a pick does that.
class TypedValues {
 public:
  /// Whether a pick of another line may drop the values of mass type `shown`; `textKey`: what the question
  /// says of them.
  using MayDrop = std::function<bool(const char* textKey, const KorUnicodeString& shown)>;
  /// Guards both combos of `panel`, which must be done with its own subscriptions. Must outlive it.
  TypedValues(KorDlgDialog& panel, MayDrop mayDrop);
  TypedValues(const TypedValues&) = delete;
  TypedValues& operator=(const TypedValues&) = delete;

 private:
  struct Shown {
    KorDlgEditor* editor;
    KorUnicodeString text;  ///< as the panel showed it
  };
  /// What one combo shows.
  struct Group {
    KorDlgCombo& combo;
    const char* textKey;
    std::vector<Shown> editors;
    KorUnicodeString line;   ///< whose values they are
    bool isTouched = false;  ///< by the user, since the panel showed its values
  };

  Group Guarded(const char* combo, const char* textKey, const char* page);
  void Guard(Group& group);
  bool MayPick(const Group& group, int line) const;
  /// Typed values that differ from those shown before, where they can be typed.
  bool AreIn(const Group& group) const;
  void ListenToWhatShows();

  KorDlgDialog& _panel;
  MayDrop _mayDrop;
  Group _values;
  Group _bounds;
};

}  // namespace desktop
