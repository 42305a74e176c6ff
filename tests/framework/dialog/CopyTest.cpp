#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <type_traits>

#include "tests/support/RecordingBackend.h"
#include "tests/support/SampleDialog.h"

using testing::IsEmpty;

namespace {

struct Copy : testing::Test {
  Copy() {
    dialog.form->SetShortHelp("Help");
    dialog.nameEditor->SetMarking("wrong");
    dialog.nameEditor->SetSensitivity(KorSensitivity::Disabled);
  }
  SampleDialog dialog;
};

TEST_F(Copy, IsForbiddenForWidgetsWithinADialog) {
  EXPECT_FALSE(std::is_copy_constructible_v<KorDlgEditor>);
  EXPECT_FALSE(std::is_copy_assignable_v<KorDlgEditor>);
  EXPECT_FALSE(std::is_copy_constructible_v<KorDlgFrame>);
  EXPECT_TRUE(std::is_copy_constructible_v<KorDlgDialog>);
}

TEST_F(Copy, OfADialogHasItsOwnStateButNoSubscriptions) {
  dialog.SetShortHelp("Help");
  dialog.SetSensitivity(KorSensitivity::Disabled);
  dialog.Subscribe(KorEvent::WindowClose, [](KorCommand*, KorNotification*, KorCommandClientData) {});
  const KorDlgDialog copy(dialog);
  EXPECT_EQ(copy.GetShortHelp(), "Help");
  EXPECT_FALSE(copy.IsEnabled());
  EXPECT_EQ(copy.SubscriptionCount(KorEvent::WindowClose), 0);
}

TEST_F(Copy, OfADialogIsNotShownWhereTheOriginalIs) {
  RecordingBackend backend;
  dialog.Attach(&backend);
  backend.ClearLog();
  {
    KorDlgDialog copy(dialog);
    EXPECT_EQ(copy.GetTitle(), "Sample");
    EXPECT_THAT(copy.Children(), IsEmpty());
    copy.SetTitle("Copy");
  }
  EXPECT_THAT(backend.Log(), IsEmpty());
  EXPECT_EQ(dialog.GetTitle(), "Sample");
  dialog.Detach();
}

TEST_F(Copy, ByAssignmentKeepsTheWindowsOfTheTarget) {
  RecordingBackend backend;
  KorDlgDialog target(nullptr, "Target", 0);
  target.Attach(&backend);
  target = dialog;
  EXPECT_EQ(target.GetTitle(), "Sample");
  EXPECT_TRUE(target.IsShown());
  backend.ExpectMirrorsDialog(target);
  target.Detach();
}

}  // namespace
