#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/RecordingBackend.h"
#include "tests/support/SampleDialog.h"
#include "tests/support/UnreachableLog.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Spinner : testing::Test {
  Spinner() { dialog.Attach(&backend); }
  ~Spinner() override {
    backend.ExpectMirrorsDialog(dialog);
    dialog.Detach();
  }

  RecordingBackend backend;
  SampleDialog dialog;
  UnreachableLog unreachable;
  KorDlgSpinner& spinner = *dialog.sizeSpinner;
};

TEST_F(Spinner, TheArrowsNotifyAndLeaveTheTextToThePanel) {
  EXPECT_TRUE(spinner.TurnUp());
  EXPECT_TRUE(spinner.TurnDown());
  EXPECT_EQ(spinner.GetText(), "medium");
  EXPECT_THAT(dialog.Heard(), ElementsAre("SizeSpinner SpinnerUp", "SizeSpinner SpinnerDown"));
}

TEST_F(Spinner, SettingTheTextNotifiesOnlyWhenAsked) {
  spinner.SetText("large");
  EXPECT_THAT(dialog.Heard(), IsEmpty());
  spinner.SetText("large", KorNotify::Send);
  EXPECT_THAT(dialog.Heard(), ElementsAre("SizeSpinner SpinnerModify"));
}

TEST_F(Spinner, ADisabledArrowCannotBeReached) {
  spinner.SetUpSensitivity(KorSensitivity::Disabled);
  EXPECT_FALSE(spinner.TurnUp());
  EXPECT_TRUE(spinner.TurnDown());
  spinner.SetDownSensitivity(KorSensitivity::Disabled);
  EXPECT_FALSE(spinner.TurnDown());
  EXPECT_THAT(unreachable.Verbs(), ElementsAre("TurnUp on SizeSpinner", "TurnDown on SizeSpinner"));
  EXPECT_THAT(dialog.Heard(), ElementsAre("SizeSpinner SpinnerDown"));
}

TEST_F(Spinner, ItsArrowsAreApartFromItsOwnSensitivity) {
  spinner.SetUpSensitivity(KorSensitivity::Disabled);
  EXPECT_TRUE(spinner.IsEnabled());
  EXPECT_EQ(spinner.GetUpSensitivity(), KorSensitivity::Disabled);
  EXPECT_EQ(spinner.GetDownSensitivity(), KorSensitivity::Enabled);
}

}  // namespace
