#pragma once

#include <QLineEdit>

#include "desktop/toolkit/QtView.h"
#include "framework/dialog/KorDlgEditor.h"

namespace desktop {

/// A line of text. What is typed goes to the widget when the user leaves the editor, presses Enter or acts on
/// another widget, not at each key. Editors report the focus: they are where leaving means something.
class EditorView : public QtViewOf<KorDlgEditor, QLineEdit> {
 public:
  EditorView(QtBackend& backend, KorDlgObject& model, QWidget* parent);
  void Show(KorDlgProperty property) override;
  bool HasPendingEdit() const override;
  void CommitEdit() override;

 protected:
  /// The whole text where there is no room for it.
  QString TipHeading() const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void FocusCame();
  /// The click that brought the focus is over.
  void ClickCameIn();
  void FocusWent();
  void ShowText();
  /// Numbers stand at the right, so that their units line up; other texts at the left.
  void Align();
  void ShowTextSelection();
  void ShowTextWidth();

  bool _focusTold = false;    ///< the widget has been told that the focus is here
  bool _clickedInto = false;  ///< the mouse button that brought the focus is still down
};

}  // namespace desktop
