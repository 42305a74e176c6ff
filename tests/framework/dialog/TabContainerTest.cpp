#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/RecordingBackend.h"
#include "tests/support/SampleDialog.h"
#include "tests/support/UnreachableLog.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct TabContainer : testing::Test {
  TabContainer() { dialog.Attach(&backend); }
  ~TabContainer() override {
    backend.ExpectMirrorsDialog(dialog);
    dialog.Detach();
  }

  RecordingBackend backend;
  SampleDialog dialog;
  UnreachableLog unreachable;
  KorDlgTabContainer& tabs = *dialog.tabs;
};

TEST_F(TabContainer, TheFirstPageIsInFrontAtTheStart) {
  EXPECT_EQ(tabs.GetSelectedPage(), 0);
  EXPECT_EQ(tabs.GetPageCount(), 3);
  EXPECT_EQ(tabs.GetPage(1), dialog.secondPage);
  EXPECT_EQ(tabs.GetPage(3), nullptr);
  EXPECT_EQ(tabs.GetPage(-1), nullptr);
}

TEST_F(TabContainer, SelectingByCodeNotifiesOnlyWhenAskedAndThenAlways) {
  tabs.SetSelectedPage(1);
  EXPECT_THAT(dialog.Heard(), IsEmpty());
  tabs.SetSelectedPage(1, KorNotify::Send);
  EXPECT_THAT(dialog.Heard(), ElementsAre("Tabs TabSelect"));
}

TEST_F(TabContainer, CodeCanSelectADisabledPage) {
  dialog.secondPage->SetSensitivity(KorSensitivity::Disabled);
  tabs.SetSelectedPage(1);
  EXPECT_EQ(tabs.GetSelectedPage(), 1);
}

TEST_F(TabContainer, AnIndexThatThereIsNotLeavesThePage) {
  tabs.SetSelectedPage(2);
  tabs.SetSelectedPage(3);
  tabs.SetSelectedPage(-1);
  EXPECT_EQ(tabs.GetSelectedPage(), 2);
}

TEST_F(TabContainer, TheUserBringsAnotherPageToTheFront) {
  EXPECT_TRUE(tabs.Pick(2));
  EXPECT_TRUE(tabs.Pick(2));
  EXPECT_THAT(dialog.Heard(), ElementsAre("Tabs TabSelect"));
}

TEST_F(TabContainer, NoUserCanPickADisabledHiddenOrMissingPage) {
  dialog.secondPage->SetSensitivity(KorSensitivity::Disabled);
  dialog.thirdPage->SetVisibility(KorVisibility::Hidden);
  EXPECT_FALSE(tabs.Pick(1));
  EXPECT_FALSE(tabs.Pick(2));
  EXPECT_FALSE(tabs.Pick(3));
  EXPECT_EQ(tabs.GetSelectedPage(), 0);
  EXPECT_EQ(unreachable.Verbs().size(), 3u);
  EXPECT_THAT(dialog.Heard(), IsEmpty());
}

}  // namespace
