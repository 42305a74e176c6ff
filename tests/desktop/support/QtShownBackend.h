#pragma once

#include "desktop/toolkit/HeadlessBoxes.h"
#include "desktop/toolkit/QtBackend.h"
#include "tests/support/ShownBackend.h"

namespace desktop::test {

/// The Qt backend as its user sees it: what Qt's widgets show, worked by mouse and keyboard events.
class QtShownBackend : public ShownBackend {
 public:
  KorDlgBackend& Backend() override { return _backend; }

  bool Exists(KorDlgObject& widget) override { return _backend.ViewOf(widget) != nullptr; }
  bool Visible(KorDlgObject& widget) override { return Qt(widget).isVisible(); }
  bool Enabled(KorDlgObject& widget) override { return Qt(widget).isEnabled(); }
  std::string Title(KorDlgObject& widget) override;
  std::string Help(KorDlgObject& widget) override;
  std::string Marking(KorDlgObject& widget) override;
  std::string Text(KorDlgObject& widget) override;
  bool Checked(KorDlgObject& widget) override;
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
  QWidget& Qt(KorDlgObject& widget) const { return *_backend.ViewOf(widget)->Qt(); }
  /// Fails with a bad cast when the widget is shown by another kind of control.
  template <class Control>
  Control& As(KorDlgObject& widget) const {
    return dynamic_cast<Control&>(Qt(widget));
  }

  HeadlessBoxes _boxes;
  QtBackend _backend{&_boxes};
};

}  // namespace desktop::test
