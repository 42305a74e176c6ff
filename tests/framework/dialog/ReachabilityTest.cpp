#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/SampleDialog.h"
#include "tests/support/UnreachableLog.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Reachability : testing::Test {
  SampleDialog dialog;
  UnreachableLog unreachable;
};

TEST_F(Reachability, AWidgetOfAShownDialogCanBeReached) {
  EXPECT_TRUE(dialog.nameEditor->IsReachable());
  EXPECT_TRUE(dialog.firstEditor->IsReachable());
}

TEST_F(Reachability, ADialogOpensHiddenAndNothingInItCanBeReached) {
  KorDlgDialog fresh(nullptr, "Fresh", 0);
  auto* button = fresh.Add<KorDlgPushButton>("Button");
  EXPECT_FALSE(fresh.IsShown());
  EXPECT_FALSE(button->IsReachable());
  fresh.SetVisibility(KorVisibility::Shown);
  EXPECT_TRUE(button->IsReachable());
}

TEST_F(Reachability, ADisabledFrameBlocksItsChildrenAndLeavesTheirOwnState) {
  dialog.form->SetSensitivity(KorSensitivity::Disabled);
  EXPECT_TRUE(dialog.applyButton->IsEnabled());
  EXPECT_EQ(dialog.applyButton->GetSensitivity(), KorSensitivity::Enabled);
  EXPECT_FALSE(dialog.applyButton->IsReachable());
}

TEST_F(Reachability, AHiddenFrameBlocksItsChildrenAndLeavesTheirOwnState) {
  dialog.form->SetVisibility(KorVisibility::Hidden);
  EXPECT_TRUE(dialog.applyButton->IsShown());
  EXPECT_EQ(dialog.applyButton->GetVisibility(), KorVisibility::Shown);
  EXPECT_FALSE(dialog.applyButton->IsReachable());
}

TEST_F(Reachability, OnlyThePageInFrontCanBeReached) {
  EXPECT_FALSE(dialog.secondEditor->IsReachable());
  dialog.tabs->SetSelectedPage(1);
  EXPECT_TRUE(dialog.secondEditor->IsReachable());
  EXPECT_FALSE(dialog.firstEditor->IsReachable());
}

TEST_F(Reachability, ADisabledPageInFrontBlocksWhatItHolds) {
  dialog.firstPage->SetSensitivity(KorSensitivity::Disabled);
  EXPECT_FALSE(dialog.firstEditor->IsReachable());
}

TEST_F(Reachability, TheParentOfADialogDoesNotBlockIt) {
  KorDlgDialog hidden(nullptr, "Hidden", 0);
  KorDlgDialog child(&hidden, "Child", 0);
  child.SetVisibility(KorVisibility::Shown);
  EXPECT_TRUE(child.IsReachable());
}

TEST_F(Reachability, NoVerbActsOnAnUnreachableWidgetAndEachIsReported) {
  dialog.SetSensitivity(KorSensitivity::Disabled);
  EXPECT_FALSE(dialog.applyButton->Press());
  EXPECT_FALSE(dialog.nameEditor->Type("x"));
  EXPECT_FALSE(dialog.colourCombo->Pick(2));
  EXPECT_FALSE(dialog.colourCombo->Pick("blue"));
  EXPECT_FALSE(dialog.finishCheck->Toggle());
  EXPECT_FALSE(dialog.rightRadio->Check());
  EXPECT_FALSE(dialog.sizeSpinner->TurnUp());
  EXPECT_FALSE(dialog.sizeSpinner->TurnDown());
  EXPECT_FALSE(dialog.tabs->Pick(1));
  EXPECT_FALSE(dialog.list->PickLines({0}));
  EXPECT_FALSE(dialog.nameEditor->EnterFocus());
  EXPECT_FALSE(dialog.nameEditor->LeaveFocus());
  EXPECT_FALSE(dialog.PressOK());
  EXPECT_FALSE(dialog.PressCancel());
  EXPECT_FALSE(dialog.CloseWindow());
  EXPECT_THAT(
      unreachable.Verbs(),
      ElementsAre("Press on ApplyButton", "Type on NameEditor", "Pick on ColourCombo", "Pick on ColourCombo",
                  "Toggle on FinishCheck", "Check on RightRadio", "TurnUp on SizeSpinner",
                  "TurnDown on SizeSpinner", "Pick on Tabs", "PickLines on List", "EnterFocus on NameEditor",
                  "LeaveFocus on NameEditor", "PressOK on SampleDialog", "PressCancel on SampleDialog",
                  "CloseWindow on SampleDialog"));
  EXPECT_THAT(dialog.Heard(), IsEmpty());
  EXPECT_EQ(dialog.nameEditor->GetText(), "Rotor");
  EXPECT_EQ(dialog.colourCombo->GetSelect(), 1);
  EXPECT_TRUE(dialog.leftRadio->IsChecked());
  EXPECT_EQ(dialog.tabs->GetSelectedPage(), 0);
}

TEST_F(Reachability, WithoutAnObserverAnUnreachableVerbStillDoesNothing) {
  KorDlgObject::SetUnreachableObserver(nullptr);
  dialog.applyButton->SetSensitivity(KorSensitivity::Disabled);
  EXPECT_FALSE(dialog.applyButton->Press());
  EXPECT_THAT(dialog.Heard(), IsEmpty());
}

TEST_F(Reachability, CodeMayChangeAWidgetThatNoUserCanReach) {
  dialog.form->SetSensitivity(KorSensitivity::Disabled);
  dialog.nameEditor->SetText("Hub", KorNotify::Send);
  EXPECT_THAT(dialog.Heard(), ElementsAre("NameEditor EditorModify"));
  EXPECT_THAT(unreachable.Verbs(), IsEmpty());
}

}  // namespace
