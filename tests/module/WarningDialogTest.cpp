#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgMultiList.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "module/shared/KorIWBWarning.h"
#include "tests/module/BaseCatalogues.h"
#include "tests/support/RecordingBackend.h"
#include "tests/support/UnreachableGuard.h"

namespace {

/// The dialog as the host uses it, with its list within reach.
struct OpenWarning : KorIWBWarning {
  using KorIWBWarning::KorIWBWarning;
  KorDlgMultiList* List() const { return _list; }
};

struct WarningDialog : testing::Test {
  WarningDialog() {
    if (KorMsgCatalog::GetFolder().empty()) KorMsgCatalog::SetFolder(KORVO_SOURCE_DIR "/catalogues");
  }
  void BuildAndShow() {
    dialog.Build();
    dialog.Attach(&backend);
    dialog.SetVisibility(KorVisibility::Shown);
  }
  UnreachableGuard guard;
  RecordingBackend backend;
  OpenWarning dialog;
};

TEST_F(WarningDialog, IsNamedStyledAndOwnedAsTheHostExpects) {
  EXPECT_EQ(dialog.Name(), "KorIWBWarning");
  EXPECT_EQ(dialog.Style(), 0x10000201u);
  EXPECT_EQ(dialog.Parent(), KorApplicationFrame::GetMainWindow());
  EXPECT_FALSE(dialog.IsShown());
}

TEST_F(WarningDialog, NamesItsCatalogueAndThenThatOfTheBaseClass) {
  const BaseCatalogues named;
  EXPECT_EQ(dialog.GetResourceFilename(0), "KorIWBWarning");
  EXPECT_EQ(dialog.GetResourceFilename(1), "Base 0");
  EXPECT_EQ(dialog.GetResourceFilename(2), "Base 1");
}

TEST_F(WarningDialog, HasNoListBeforeItIsBuilt) {
  EXPECT_EQ(dialog.List(), nullptr);
  EXPECT_TRUE(dialog.Children().empty());
}

TEST_F(WarningDialog, HasOneListThatFollowsItsSize) {
  BuildAndShow();
  ASSERT_EQ(dialog.Children().size(), 1u);
  const KorDlgObject& list = *dialog.Children().front();
  EXPECT_EQ(&list, dialog.List());
  EXPECT_EQ(list.Name(), "MultiList001");
  EXPECT_EQ(list.Kind(), KorDlgKind::MultiList);
  EXPECT_EQ(list.Style(), 0u);
  EXPECT_EQ(list.GetGrid(), (KorDlgGrid{0, 0, 1, 1, 30}));
}

TEST_F(WarningDialog, HasOneColumnTitledFromTheCatalogue) {
  BuildAndShow();
  ASSERT_EQ(dialog.List()->GetColumnCount(), 1);
  ASSERT_TRUE(KorMsgCatalog::Has("KorIWBWarning", "MultiList001.ColumnTitle1"));
  EXPECT_EQ(dialog.List()->GetColumn(0).title,
            KorMsgCatalog::BuildMessage("KorIWBWarning", "MultiList001.ColumnTitle1"));
  EXPECT_EQ(dialog.List()->GetVisibleColumnCount(), 1);
}

TEST_F(WarningDialog, TheTitleOfItsColumnIsInTheCurrentLanguageAndItsLinesStay) {
  BuildAndShow();
  dialog.List()->SetColumnItem(0, "3 parts have no mass", 0);
  ASSERT_EQ(KorMsgCatalog::SetLanguage("de"), S_OK);
  dialog.ReloadTexts();
  KorMsgCatalog::SetLanguage("en");
  EXPECT_EQ(dialog.List()->GetColumn(0).title, "Warnung");
  EXPECT_EQ(dialog.List()->GetColumnItem(0, 0), "3 parts have no mass");
  backend.ExpectMirrorsDialog(dialog);
}

TEST_F(WarningDialog, ShowsAWarningToALineAndGoesWhenItIsClosed) {
  BuildAndShow();
  dialog.List()->SetColumnItem(0, "3 parts have no mass", 0);
  dialog.List()->SetColumnItem(0, "The tower has no centre of gravity", 1);
  EXPECT_EQ(backend.Shown(*dialog.List(), KorDlgProperty::Rows),
            "2 rows\n3 parts have no mass\nThe tower has no centre of gravity");
  backend.ExpectMirrorsDialog(dialog);
  EXPECT_TRUE(dialog.CloseWindow());
  EXPECT_FALSE(dialog.IsShown());
  EXPECT_FALSE(backend.SeemsVisible(dialog));
}

TEST_F(WarningDialog, SubscribesToNothing) {
  BuildAndShow();
  for (int event = 0; event <= static_cast<int>(KorEvent::WindowClose); ++event) {
    EXPECT_EQ(dialog.SubscriptionCount(static_cast<KorEvent>(event)), 0) << event;
    EXPECT_EQ(dialog.List()->SubscriptionCount(static_cast<KorEvent>(event)), 0) << event;
  }
}

TEST_F(WarningDialog, BuildingASecondTimeAddsNothing) {
  BuildAndShow();
  dialog.List()->SetColumnItem(0, "kept", 0);
  dialog.Build();
  EXPECT_EQ(dialog.Children().size(), 1u);
  EXPECT_EQ(dialog.List()->GetLineCount(), 1);
}

TEST_F(WarningDialog, ACopySharesTheListAndLeavesItAloneWhenItGoes) {
  BuildAndShow();
  {
    const OpenWarning copy(dialog);
    EXPECT_EQ(copy.List(), dialog.List());
    EXPECT_TRUE(copy.Children().empty());
  }
  OpenWarning other;
  other = dialog;
  EXPECT_EQ(other.List(), dialog.List());
  dialog.List()->SetColumnItem(0, "still there", 0);
  EXPECT_EQ(dialog.List()->GetLineCount(), 1);
}

TEST_F(WarningDialog, AnAssignedOneThatIsShownHasItsTitle) {
  const OpenWarning other;
  dialog = other;
  BuildAndShow();
  EXPECT_EQ(dialog.GetTitle(), "Warnings");
}

TEST_F(WarningDialog, OneThatWasNeverBuiltCanBeCopiedAssignedAndDestroyed) {
  OpenWarning copy(dialog);
  EXPECT_EQ(copy.List(), nullptr);
  dialog = copy;
  EXPECT_EQ(dialog.List(), nullptr);
}

}  // namespace
