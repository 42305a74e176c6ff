// A window grows with what comes in, and takes its height back.
#include "framework/dialog/KorDlgLabel.h"
#include "tests/desktop/support/DemoDialog.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

class WindowHeightTest : public QtBackendTest {
 protected:
  void SetUp() override {
    QtBackendTest::SetUp();
    extra = dialog.Add<KorDlgFrame>("Extra", KorDlgStyle::kPlainFrame, {.row = 3});
    for (int row = 0; row < 12; ++row)
      extra->Add<KorDlgLabel>("Line", KorDlgStyle::kNone, {.row = row})->SetTitle("A line");
    extra->SetVisibility(KorVisibility::Hidden);
    Open();
    Settle();
  }
  void Settle() {
    for (int i = 0; i < 5; ++i) RunPendingEvents();
  }
  void Show(KorVisibility visibility) {
    extra->SetVisibility(visibility);
    Settle();
  }
  void Resize(int height) {
    Window()->resize(Window()->width(), height);
    Settle();
  }
  KorDlgFrame* extra = nullptr;
};

TEST_F(WindowHeightTest, WhatGoesGivesTheHeightBackThatItTook) {
  const int before = Window()->height();
  Show(KorVisibility::Shown);
  ASSERT_GT(Window()->height(), before);
  Show(KorVisibility::Hidden);
  EXPECT_EQ(Window()->height(), before);
}

TEST_F(WindowHeightTest, AHeightThatTheUserChoseStays) {
  Resize(1500);
  Show(KorVisibility::Shown);
  Show(KorVisibility::Hidden);
  EXPECT_EQ(Window()->height(), 1500);
}

TEST_F(WindowHeightTest, AHeightThatTheUserChoseAfterItGrewStays) {
  Show(KorVisibility::Shown);
  const int chosen = Window()->height() + 100;
  Resize(chosen);
  Show(KorVisibility::Hidden);
  EXPECT_EQ(Window()->height(), chosen);
}

TEST_F(WindowHeightTest, WhatComesInTwiceGivesItsHeightBackTwice) {
  const int before = Window()->height();
  for (int i = 0; i < 2; ++i) {
    Show(KorVisibility::Shown);
    Show(KorVisibility::Hidden);
    EXPECT_EQ(Window()->height(), before);
  }
}

}  // namespace
}  // namespace desktop::test
