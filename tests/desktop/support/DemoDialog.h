#pragma once

#include <gtest/gtest.h>

#include "desktop/toolkit/HeadlessBoxes.h"
#include "desktop/toolkit/QtBackend.h"
#include "framework/dialog/KorDlgCheckButton.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgDialog.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgFrame.h"
#include "framework/dialog/KorDlgLabel.h"
#include "framework/dialog/KorDlgMultiList.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgSpinner.h"
#include "framework/dialog/KorDlgTabContainer.h"

namespace desktop::test {

/// A dialog with each kind of widget.
class DemoDialog : public KorDlgDialog {
 public:
  explicit DemoDialog(unsigned style = KorDlgStyle::kPanelDialog);

  KorDlgFrame* header;
  KorDlgLabel* nameLabel;
  KorDlgEditor* nameEditor;
  KorDlgEditor* massEditor;  ///< read only
  KorDlgLabel* redLamp;
  KorDlgTabContainer* tabs;
  KorDlgTabPage* inputs;
  KorDlgCombo* kindCombo;
  KorDlgFrame* modes;
  KorDlgRadioButton* own;
  KorDlgRadioButton* root;
  KorDlgCheckButton* standard;
  KorDlgSpinner* spinner;
  KorDlgEditor* number;
  KorDlgTabPage* lists;
  KorDlgMultiList* list;
  KorDlgFrame* buttons;
  KorDlgPushButton* compute;
  KorDlgPushButton* close;
};

/// A demo dialog on a Qt backend; a verb on a widget that cannot be reached fails the test.
class QtBackendTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// Attaches the dialog and brings its window to the front.
  void Open();
  template <class Control>
  Control* In(const KorDlgObject* widget) const {
    auto* control = backend.ControlOf<Control>(*widget);
    EXPECT_NE(control, nullptr) << widget->Name();
    return control;
  }
  QWidget* Window() const { return backend.WindowOf(&dialog); }

  HeadlessBoxes boxes;
  QtBackend backend{&boxes};
  DemoDialog dialog;
};

}  // namespace desktop::test
