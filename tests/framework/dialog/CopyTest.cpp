#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

TEST_F(Copy, OfAWidgetHasTheSameOwnState) {
  const KorDlgEditor copy(*dialog.nameEditor);
  EXPECT_EQ(copy.Name(), "NameEditor");
  EXPECT_EQ(copy.GetText(), "Rotor");
  EXPECT_EQ(copy.GetMarking(), "wrong");
  EXPECT_EQ(copy.GetShortHelp(), "Help of NameEditor");
  EXPECT_FALSE(copy.IsEnabled());
  EXPECT_EQ(copy.GetGrid(), dialog.nameEditor->GetGrid());
}

TEST_F(Copy, HasNoChildrenAndNoSubscriptions) {
  const KorDlgFrame frame(*dialog.form);
  EXPECT_THAT(frame.Children(), IsEmpty());
  KorDlgPushButton button(*dialog.applyButton);
  EXPECT_EQ(button.SubscriptionCount(KorEvent::PushActivate), 0);
}

TEST_F(Copy, OfAWidgetIsNotShownWhereTheOriginalIs) {
  RecordingBackend backend;
  dialog.Attach(&backend);
  backend.ClearLog();
  KorDlgEditor copy(*dialog.nameEditor);
  copy.SetText("changed");
  EXPECT_THAT(backend.Log(), IsEmpty());
  EXPECT_EQ(dialog.nameEditor->GetText(), "Rotor");
  dialog.Detach();
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

TEST_F(Copy, ByAssignmentOfAnEditorShowsItsTextToo) {
  RecordingBackend backend;
  dialog.Attach(&backend);
  *dialog.firstEditor = *dialog.nameEditor;
  EXPECT_EQ(dialog.firstEditor->GetText(), "Rotor");
  EXPECT_EQ(backend.Shown(*dialog.firstEditor, KorDlgProperty::Text), "Rotor");
  dialog.Detach();
}

}  // namespace
