#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "framework/dialog/KorDlgDialog.h"
#include "framework/dialog/KorDlgFrame.h"
#include "framework/dialog/KorDlgLabel.h"
#include "tests/support/RecordingBackend.h"
#include "tests/support/SampleDialog.h"
#include "tests/support/UnreachableGuard.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Two frames of one label each.
struct SmallDialog : KorDlgDialog {
  SmallDialog() : KorDlgDialog(nullptr, "Small", KorDlgStyle::kPanelDialog) {
    Add<KorDlgFrame>("A")->Add<KorDlgLabel>("A1");
    Add<KorDlgFrame>("B")->Add<KorDlgLabel>("B1");
  }
};

/// The calls that create and destroy, of a backend's log.
std::vector<std::string> Lifetimes(const RecordingBackend& backend) {
  std::vector<std::string> calls;
  for (const std::string& call : backend.Log())
    if (call.starts_with("created ") || call.starts_with("destroyed ")) calls.push_back(call);
  return calls;
}

TEST(Dialog, AttachingTellsOfParentsBeforeTheirChildren) {
  RecordingBackend backend;
  SmallDialog dialog;
  dialog.Attach(&backend);
  EXPECT_THAT(Lifetimes(backend),
              ElementsAre("created Small", "created A", "created A1", "created B", "created B1"));
  dialog.Detach();
}

TEST(Dialog, AttachingTellsOfEachPropertyOnceAfterTheCreation) {
  RecordingBackend backend;
  KorDlgDialog dialog(nullptr, "Bare", 0);
  dialog.Attach(&backend);
  EXPECT_THAT(backend.Log(), ElementsAre("created Bare", "Bare: Title", "Bare: Help", "Bare: Sensitivity",
                                         "Bare: Visibility", "Bare: Grid", "Bare: Marking"));
  dialog.Detach();
}

TEST(Dialog, DetachingTellsOfChildrenBeforeTheirParents) {
  RecordingBackend backend;
  SmallDialog dialog;
  dialog.Attach(&backend);
  backend.ClearLog();
  dialog.Detach();
  EXPECT_THAT(backend.Log(),
              ElementsAre("destroyed B1", "destroyed B", "destroyed A1", "destroyed A", "destroyed Small"));
  EXPECT_EQ(backend.WidgetCount(), 0u);
}

TEST(Dialog, DestructionDetaches) {
  RecordingBackend backend;
  {
    SmallDialog dialog;
    dialog.Attach(&backend);
  }
  EXPECT_EQ(backend.WidgetCount(), 0u);
}

TEST(Dialog, AttachingToAnotherToolkitLeavesTheFirst) {
  RecordingBackend first, second;
  SmallDialog dialog;
  dialog.Attach(&first);
  dialog.Attach(&second);
  EXPECT_EQ(first.WidgetCount(), 0u);
  EXPECT_EQ(second.WidgetCount(), 5u);
  second.ExpectMirrorsDialog(dialog);
  dialog.Detach();
}

TEST(Dialog, AttachingToTheSameToolkitAgainChangesNothing) {
  RecordingBackend backend;
  SmallDialog dialog;
  dialog.Attach(&backend);
  backend.ClearLog();
  dialog.Attach(&backend);
  EXPECT_THAT(backend.Log(), IsEmpty());
  dialog.Detach();
}

TEST(Dialog, AttachingToNothingDetaches) {
  RecordingBackend backend;
  SmallDialog dialog;
  dialog.Attach(&backend);
  dialog.Attach(nullptr);
  EXPECT_EQ(backend.WidgetCount(), 0u);
}

TEST(Dialog, DetachingTwiceIsHarmless) {
  RecordingBackend backend;
  SmallDialog dialog;
  dialog.Attach(&backend);
  dialog.Detach();
  dialog.Detach();
}

TEST(Dialog, AWidgetAddedWhileAttachedIsReplayedWhole) {
  RecordingBackend backend;
  SmallDialog dialog;
  dialog.Attach(&backend);
  dialog.Add<KorDlgFrame>("C")->Add<KorDlgLabel>("C1")->SetTitle("Third");
  backend.ExpectMirrorsDialog(dialog);
  dialog.Detach();
}

TEST(Dialog, ChangesBeforeAttachingAreShownWhenAttached) {
  RecordingBackend backend;
  SampleDialog dialog;
  dialog.nameEditor->SetText("Hub");
  dialog.tabs->SetSelectedPage(2);
  dialog.form->SetVisibility(KorVisibility::Hidden);
  dialog.Attach(&backend);
  backend.ExpectMirrorsDialog(dialog);
  dialog.Detach();
}

TEST(Dialog, ItsButtonsAndItsWindowNotify) {
  UnreachableGuard guard;
  SampleDialog dialog;
  EXPECT_TRUE(dialog.PressOK());
  EXPECT_TRUE(dialog.PressCancel());
  EXPECT_TRUE(dialog.CloseWindow());
  EXPECT_THAT(dialog.Heard(),
              ElementsAre("SampleDialog DialogOK", "SampleDialog DialogCancel", "SampleDialog WindowClose"));
}

TEST(Dialog, ClosingTheWindowIsOnlyToldAndHidesNothing) {
  SampleDialog dialog;
  dialog.CloseWindow();
  EXPECT_TRUE(dialog.IsShown());
}

/// A dialog with nothing but its style.
struct StyledDialog : KorDlgDialog {
  explicit StyledDialog(unsigned style) : KorDlgDialog(nullptr, "Styled", style) {
    SetVisibility(KorVisibility::Shown);
  }
};

TEST(Dialog, AListGoesWhenItIsClosedAndTellsOfItFirst) {
  StyledDialog list(KorDlgStyle::kListDialog);
  bool shownThen = false;
  list.Subscribe(KorEvent::WindowClose,
                 [&](KorCommand*, KorNotification*, KorCommandClientData) { shownThen = list.IsShown(); });
  EXPECT_TRUE(list.CloseWindow());
  EXPECT_TRUE(shownThen);
  EXPECT_FALSE(list.IsShown());
}

TEST(Dialog, EveryOtherStyleStaysWhenItsWindowIsClosed) {
  for (const unsigned style : {KorDlgStyle::kNone, KorDlgStyle::kPanelDialog, KorDlgStyle::kOkCancelDialog}) {
    StyledDialog dialog(style);
    EXPECT_TRUE(dialog.CloseWindow());
    EXPECT_TRUE(dialog.IsShown()) << style;
  }
}

TEST(Dialog, AListThatIsHiddenCannotBeClosed) {
  StyledDialog list(KorDlgStyle::kListDialog);
  list.SetVisibility(KorVisibility::Hidden);
  EXPECT_FALSE(list.CloseWindow());
}

}  // namespace
