// A window grows with what comes in, and takes its size back.
#include "desktop/toolkit/views/DialogView.h"
#include "framework/dialog/KorDlgLabel.h"
#include "tests/desktop/support/DemoDialog.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

class WindowSizeTest : public QtBackendTest {
 protected:
  void SetUp() override {
    QtBackendTest::SetUp();
    extra = dialog.Add<KorDlgFrame>("Extra", KorDlgStyle::kPlainFrame, {.row = 3});
    for (int row = 0; row < 12; ++row)
      extra->Add<KorDlgLabel>("Line", KorDlgStyle::kNone, {.row = row})->SetTitle(std::string(120, 'x'));
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

TEST_F(WindowSizeTest, WhatGoesGivesTheRoomBackThatItTook) {
  const QSize before = Window()->size();
  Show(KorVisibility::Shown);
  ASSERT_GT(Window()->height(), before.height());
  ASSERT_GT(Window()->width(), before.width());
  Show(KorVisibility::Hidden);
  EXPECT_EQ(Window()->size(), before);
}

TEST_F(WindowSizeTest, WhatGoesInTwoStepsGivesAllItsRoomBack) {
  const QSize before = Window()->size();
  Show(KorVisibility::Shown);
  for (std::size_t line = 2; line < extra->Children().size(); ++line)
    extra->Children()[line]->SetVisibility(KorVisibility::Hidden);
  Settle();
  EXPECT_GT(Window()->height(), before.height());
  Show(KorVisibility::Hidden);
  EXPECT_EQ(Window()->size(), before);
}

TEST_F(WindowSizeTest, AHeightThatTheUserChoseStays) {
  Resize(1500);
  Show(KorVisibility::Shown);
  Show(KorVisibility::Hidden);
  EXPECT_EQ(Window()->height(), 1500);
}

TEST_F(WindowSizeTest, AHeightThatTheUserChoseAfterItGrewStays) {
  Show(KorVisibility::Shown);
  const int chosen = Window()->height() + 100;
  Resize(chosen);
  Show(KorVisibility::Hidden);
  EXPECT_EQ(Window()->height(), chosen);
}

TEST_F(WindowSizeTest, ASizeThatWasForcedIsNotSaved) {
  Window()->setGeometry(40, 30, 500, 400);
  Settle();
  Show(KorVisibility::Shown);
  ASSERT_GT(Window()->height(), 400);
  ASSERT_GT(Window()->width(), 500);
  QWidget restored;
  ASSERT_TRUE(restored.restoreGeometry(SaveWantedGeometry(*Window())));
  EXPECT_EQ(restored.geometry(), QRect(40, 30, 500, 400));
}

TEST_F(WindowSizeTest, ASizeThatTheUserChoseAfterItGrewIsSaved) {
  Show(KorVisibility::Shown);
  const int chosen = Window()->height() + 100;
  Resize(chosen);
  QWidget restored;
  ASSERT_TRUE(restored.restoreGeometry(SaveWantedGeometry(*Window())));
  EXPECT_EQ(restored.height(), chosen);
}

TEST_F(WindowSizeTest, ARestoredSizeThatIsTooSmallComesBackWhenThereIsRoom) {
  const QByteArray geometry = SaveWantedGeometry(*Window());
  const QSize wanted = Window()->size();
  dialog.SetVisibility(KorVisibility::Hidden);
  extra->SetVisibility(KorVisibility::Shown);
  ASSERT_TRUE(RestoreWantedGeometry(*Window(), geometry));
  dialog.SetVisibility(KorVisibility::Shown);
  Settle();
  ASSERT_GT(Window()->height(), wanted.height());
  QWidget saved;
  ASSERT_TRUE(saved.restoreGeometry(SaveWantedGeometry(*Window())));
  EXPECT_EQ(saved.size(), wanted);
  Show(KorVisibility::Hidden);
  EXPECT_EQ(Window()->size(), wanted);
}

TEST_F(WindowSizeTest, AForcedWindowThatWasMaximisedIsSavedAsSuchWithTheSizeThatTheUserWants) {
  Window()->setGeometry(40, 30, 500, 400);
  Settle();
  Show(KorVisibility::Shown);
  ASSERT_GT(Window()->height(), 400);
  Window()->showMaximized();
  Settle();
  ASSERT_TRUE(Window()->isMaximized());
  QWidget restored;
  ASSERT_TRUE(restored.restoreGeometry(SaveWantedGeometry(*Window())));
  EXPECT_TRUE(restored.isMaximized());
  EXPECT_EQ(restored.normalGeometry(), QRect(40, 30, 500, 400));
}

TEST_F(WindowSizeTest, AMaximisedWindowIsSavedWithTheSizeThatItHadBefore) {
  Window()->setGeometry(40, 30, 500, 400);
  Settle();
  Window()->showMaximized();
  Settle();
  QWidget restored;
  ASSERT_TRUE(restored.restoreGeometry(SaveWantedGeometry(*Window())));
  EXPECT_TRUE(restored.isMaximized());
  EXPECT_EQ(restored.normalGeometry(), QRect(40, 30, 500, 400));
}

TEST_F(WindowSizeTest, WhatComesInAndGoesWhileItIsMaximisedLeavesItSoAndItsSizeToo) {
  Window()->setGeometry(40, 30, 500, 400);
  Settle();
  Window()->showMaximized();
  Settle();
  const int large = Window()->height();
  for (const KorVisibility visibility : {KorVisibility::Shown, KorVisibility::Hidden}) {
    Show(visibility);
    EXPECT_TRUE(Window()->isMaximized());
    EXPECT_EQ(Window()->height(), large);
  }
  Window()->showNormal();
  Settle();
  EXPECT_EQ(Window()->size(), QSize(500, 400));
}

TEST_F(WindowSizeTest, AForcedWindowHasItsSizeBackAfterItWasMaximisedWhenWhatForcedItHasGone) {
  Window()->setGeometry(40, 30, 500, 400);
  Settle();
  Show(KorVisibility::Shown);
  Window()->showMaximized();
  Settle();
  Show(KorVisibility::Hidden);
  Window()->showNormal();
  Settle();
  EXPECT_EQ(Window()->size(), QSize(500, 400));
}

TEST_F(WindowSizeTest, AWindowThatIsRestoredMaximisedComesBackToTheSizeThatTheUserWants) {
  Window()->setGeometry(40, 30, 500, 400);
  Settle();
  Window()->showMaximized();
  Settle();
  const QByteArray geometry = SaveWantedGeometry(*Window());
  dialog.SetVisibility(KorVisibility::Hidden);
  Window()->setWindowState(Qt::WindowNoState);
  Window()->resize(700, 600);
  extra->SetVisibility(KorVisibility::Shown);
  ASSERT_TRUE(RestoreWantedGeometry(*Window(), geometry));
  dialog.SetVisibility(KorVisibility::Shown);
  Settle();
  ASSERT_TRUE(Window()->isMaximized());
  Window()->showNormal();
  Settle();
  EXPECT_GT(Window()->height(), 400);
  Show(KorVisibility::Hidden);
  EXPECT_EQ(Window()->size(), QSize(500, 400));
}

TEST_F(WindowSizeTest, AForcedWindowThatIsHiddenAndShownGivesItsRoomBack) {
  const QSize before = Window()->size();
  Show(KorVisibility::Shown);
  dialog.SetVisibility(KorVisibility::Hidden);
  dialog.SetVisibility(KorVisibility::Shown);
  Settle();
  Show(KorVisibility::Hidden);
  EXPECT_EQ(Window()->size(), before);
}

TEST_F(WindowSizeTest, AHeightThatTheUserChoseStaysWhenTheForcedWidthGoes) {
  const int width = Window()->width();
  Show(KorVisibility::Shown);
  const int chosen = Window()->height() + 100;
  Resize(chosen);
  Show(KorVisibility::Hidden);
  EXPECT_EQ(Window()->size(), QSize(width, chosen));
}

TEST_F(WindowSizeTest, WhatComesInTwiceGivesItsRoomBackTwice) {
  const QSize before = Window()->size();
  for (int i = 0; i < 2; ++i) {
    Show(KorVisibility::Shown);
    Show(KorVisibility::Hidden);
    EXPECT_EQ(Window()->size(), before);
  }
}

}  // namespace
}  // namespace desktop::test
