#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/RecordingBackend.h"
#include "tests/support/SampleDialog.h"
#include "tests/support/UnreachableGuard.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Buttons : testing::Test {
  SampleDialog dialog;
  UnreachableGuard guard;
};
using RadioButton = Buttons;
using CheckButton = Buttons;
using PushButton = Buttons;

TEST(ButtonStates, HaveTheFrameworksNumbers) {
  EXPECT_EQ(static_cast<int>(KorCheckState::Checked), 0x40000);
  EXPECT_EQ(static_cast<int>(KorCheckState::Unchecked), 0x80000);
  EXPECT_EQ(static_cast<int>(KorSensitivity::Enabled), 8);
  EXPECT_EQ(static_cast<int>(KorSensitivity::Disabled), 16);
  EXPECT_EQ(static_cast<int>(KorVisibility::Shown), 2);
  EXPECT_EQ(static_cast<int>(KorVisibility::Hidden), 4);
}

TEST_F(PushButton, PressSendsOneNotification) {
  EXPECT_TRUE(dialog.applyButton->Press());
  EXPECT_THAT(dialog.Heard(), ElementsAre("ApplyButton PushActivate"));
}

TEST_F(PushButton, APressThatItsGuardRefusesSendsNothing) {
  bool allows = false;
  dialog.applyButton->SetGuard([&] { return allows; });
  EXPECT_FALSE(dialog.applyButton->Press());
  EXPECT_THAT(dialog.Heard(), IsEmpty());
  allows = true;
  EXPECT_TRUE(dialog.applyButton->Press());
  EXPECT_THAT(dialog.Heard(), ElementsAre("ApplyButton PushActivate"));
}

TEST_F(PushButton, AGuardIsNotAskedWhenTheButtonCannotBePressed) {
  int asked = 0;
  dialog.applyButton->SetGuard([&] { return ++asked > 0; });
  dialog.applyButton->SetSensitivity(KorSensitivity::Disabled);
  KorDlgObject::SetUnreachableObserver(nullptr);  // the press is meant to come to nothing
  EXPECT_FALSE(dialog.applyButton->Press());
  EXPECT_EQ(asked, 0);
}

TEST_F(RadioButton, StartsUnchecked) {
  auto* radio = dialog.sides->Add<KorDlgRadioButton>("MiddleRadio");
  EXPECT_FALSE(radio->IsChecked());
}

TEST_F(RadioButton, CheckingOneUnchecksTheOthersOfItsParent) {
  dialog.rightRadio->SetState(KorCheckState::Checked);
  EXPECT_TRUE(dialog.rightRadio->IsChecked());
  EXPECT_FALSE(dialog.leftRadio->IsChecked());
}

TEST_F(RadioButton, ButtonsOfAnotherParentAreLeftAlone) {
  auto* elsewhere = dialog.form->Add<KorDlgRadioButton>("Elsewhere");
  elsewhere->SetState(KorCheckState::Checked);
  EXPECT_TRUE(dialog.leftRadio->IsChecked());
  dialog.rightRadio->SetState(KorCheckState::Checked);
  EXPECT_TRUE(elsewhere->IsChecked());
}

TEST_F(RadioButton, CheckingSilentlyTellsNobody) {
  dialog.rightRadio->SetState(KorCheckState::Checked);
  EXPECT_THAT(dialog.Heard(), IsEmpty());
}

TEST_F(RadioButton, UncheckedButtonsNotifyBeforeTheCheckedOne) {
  dialog.rightRadio->SetState(KorCheckState::Checked, KorNotify::Send);
  EXPECT_THAT(dialog.Heard(), ElementsAre("LeftRadio RadioModify", "RightRadio RadioModify"));
}

TEST_F(RadioButton, OnlyButtonsThatChangedNotifyOfBeingUnchecked) {
  dialog.leftRadio->SetState(KorCheckState::Unchecked);
  dialog.rightRadio->SetState(KorCheckState::Checked, KorNotify::Send);
  EXPECT_THAT(dialog.Heard(), ElementsAre("RightRadio RadioModify"));
}

TEST_F(RadioButton, CheckingACheckedOneWithNotificationStillNotifies) {
  dialog.leftRadio->SetState(KorCheckState::Checked, KorNotify::Send);
  EXPECT_THAT(dialog.Heard(), ElementsAre("LeftRadio RadioModify"));
}

TEST_F(RadioButton, UncheckingLeavesNoneChecked) {
  dialog.leftRadio->SetState(KorCheckState::Unchecked, KorNotify::Send);
  EXPECT_FALSE(dialog.leftRadio->IsChecked());
  EXPECT_FALSE(dialog.rightRadio->IsChecked());
  EXPECT_THAT(dialog.Heard(), ElementsAre("LeftRadio RadioModify"));
}

TEST_F(RadioButton, EveryHandlerSeesTheFinalStates) {
  dialog.leftRadio->Subscribe(
      KorEvent::RadioModify, [this](KorCommand*, KorNotification*, KorCommandClientData) {
        EXPECT_FALSE(dialog.leftRadio->IsChecked());
        EXPECT_TRUE(dialog.rightRadio->IsChecked()) << "the other is in place before the first handler runs";
      });
  dialog.rightRadio->SetState(KorCheckState::Checked, KorNotify::Send);
}

TEST_F(RadioButton, TheUserChecksItOnceAndASecondTimeDoesNothing) {
  EXPECT_TRUE(dialog.rightRadio->Check());
  EXPECT_TRUE(dialog.rightRadio->Check());
  EXPECT_THAT(dialog.Heard(), ElementsAre("LeftRadio RadioModify", "RightRadio RadioModify"));
}

TEST_F(RadioButton, TheWindowShowsBothChanges) {
  RecordingBackend backend;
  dialog.Attach(&backend);
  dialog.rightRadio->SetState(KorCheckState::Checked);
  backend.ExpectMirrorsDialog(dialog);
  dialog.Detach();
}

TEST_F(CheckButton, ToggleChangesAndNotifies) {
  EXPECT_TRUE(dialog.finishCheck->Toggle());
  EXPECT_TRUE(dialog.finishCheck->IsChecked());
  EXPECT_TRUE(dialog.finishCheck->Toggle());
  EXPECT_FALSE(dialog.finishCheck->IsChecked());
  EXPECT_THAT(dialog.Heard(), ElementsAre("FinishCheck CheckModify", "FinishCheck CheckModify"));
}

TEST_F(CheckButton, SettingWithNotificationNotifiesChangedOrNot) {
  dialog.finishCheck->SetState(KorCheckState::Unchecked, KorNotify::Send);
  EXPECT_THAT(dialog.Heard(), ElementsAre("FinishCheck CheckModify"));
}

TEST_F(CheckButton, SettingSilentlyTellsNobody) {
  dialog.finishCheck->SetState(KorCheckState::Checked);
  EXPECT_THAT(dialog.Heard(), IsEmpty());
}

TEST_F(CheckButton, DoesNotExcludeOthersOfItsParent) {
  auto* other = dialog.form->Add<KorDlgCheckButton>("OtherCheck");
  other->SetState(KorCheckState::Checked);
  dialog.finishCheck->Toggle();
  EXPECT_TRUE(other->IsChecked());
}

}  // namespace
