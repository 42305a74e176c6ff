#pragma once

#include "tests/support/RecordingBackend.h"
#include "tests/support/ShownBackend.h"

/// The recording backend as its user sees it: all that is shown comes from what it was told.
class RecordingShownBackend : public ShownBackend {
 public:
  KorDlgBackend& Backend() override { return _backend; }

  bool Exists(KorDlgObject& widget) override { return _backend.Knows(widget); }
  bool Visible(KorDlgObject& widget) override { return _backend.SeemsVisible(widget); }
  bool Enabled(KorDlgObject& widget) override { return _backend.SeemsEnabled(widget); }
  std::string Title(KorDlgObject& widget) override { return _backend.Shown(widget, KorDlgProperty::Title); }
  std::string Help(KorDlgObject& widget) override { return _backend.Shown(widget, KorDlgProperty::Help); }
  std::string Marking(KorDlgObject& widget) override {
    return _backend.Shown(widget, KorDlgProperty::Marking);
  }
  std::string Text(KorDlgObject& widget) override { return _backend.Shown(widget, KorDlgProperty::Text); }
  bool Checked(KorDlgObject& widget) override {
    return _backend.Shown(widget, KorDlgProperty::Checked) == "checked";
  }
  std::vector<std::string> Lines(KorDlgCombo& combo) override;
  int Selected(KorDlgObject& comboOrTabs) override;
  std::vector<std::string> Rows(KorDlgMultiList& list) override;
  std::vector<int> SelectedRows(KorDlgMultiList& list) override;

  void Click(KorDlgObject& button) override;
  void Enter(KorDlgEditor& editor, const std::string& text) override;
  void Choose(KorDlgCombo& combo, int line) override;
  void ClickTab(KorDlgTabContainer& tabs, int page) override;
  void ClickUp(KorDlgSpinner& spinner) override;
  void ClickDown(KorDlgSpinner& spinner) override;
  void SelectRows(KorDlgMultiList& list, const std::vector<int>& rows) override;
  void CloseWindow(KorDlgDialog& dialog) override;

 private:
  RecordingBackend _backend;
};
