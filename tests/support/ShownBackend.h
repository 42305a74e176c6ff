#pragma once

#include <string>
#include <vector>

#include "framework/dialog/KorDlgBackend.h"

class KorDlgCombo;
class KorDlgEditor;
class KorDlgMultiList;
class KorDlgSpinner;
class KorDlgTabContainer;

/// A backend as its user sees it: what stands on the screen, and what hands can do there.
///
/// The contract suite asks and acts through this; one implementation for each toolkit. What is asked for is
/// what the toolkit's own widget shows, never what the framework's widget holds. An action is what the user's
/// mouse and keyboard do, so on something that cannot be used it does nothing.
class ShownBackend {
 public:
  virtual ~ShownBackend() = default;
  virtual KorDlgBackend& Backend() = 0;

  // ---- what is shown ----
  virtual bool Exists(KorDlgObject& widget) = 0;
  /// On the screen: the widget itself, and everything that holds it, on pages in front.
  virtual bool Visible(KorDlgObject& widget) = 0;
  /// Answers the mouse and the keyboard, as does everything that holds it.
  virtual bool Enabled(KorDlgObject& widget) = 0;
  virtual std::string Title(KorDlgObject& widget) = 0;
  virtual std::string Help(KorDlgObject& widget) = 0;
  /// The reason that marks the widget as unusable, empty when it is not marked.
  virtual std::string Marking(KorDlgObject& widget) = 0;
  /// Of editors and spinners.
  virtual std::string Text(KorDlgObject& widget) = 0;
  /// Of radio and check buttons.
  virtual bool Checked(KorDlgObject& widget) = 0;
  virtual std::vector<std::string> Lines(KorDlgCombo& combo) = 0;
  /// Index of the line shown, or of the page in front; -1 for none.
  virtual int Selected(KorDlgObject& comboOrTabs) = 0;
  /// Cells of all rows, one text per row, cells joined by "|".
  virtual std::vector<std::string> Rows(KorDlgMultiList& list) = 0;
  virtual std::vector<int> SelectedRows(KorDlgMultiList& list) = 0;

  // ---- what the user does ----
  /// On push, radio and check buttons.
  virtual void Click(KorDlgObject& button) = 0;
  /// Replaces the text and leaves the editor.
  virtual void Enter(KorDlgEditor& editor, const std::string& text) = 0;
  virtual void Choose(KorDlgCombo& combo, int line) = 0;
  virtual void ClickTab(KorDlgTabContainer& tabs, int page) = 0;
  virtual void ClickUp(KorDlgSpinner& spinner) = 0;
  virtual void ClickDown(KorDlgSpinner& spinner) = 0;
  virtual void SelectRows(KorDlgMultiList& list, const std::vector<int>& rows) = 0;
  virtual void CloseWindow(KorDlgDialog& dialog) = 0;
};
