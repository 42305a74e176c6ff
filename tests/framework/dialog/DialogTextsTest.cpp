#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "framework/dialog/KorDlgDialog.h"
#include "framework/dialog/KorDlgFrame.h"
#include "framework/dialog/KorDlgLabel.h"
#include "framework/dialog/KorDlgMultiList.h"
#include "tests/support/RecordingBackend.h"
#include "tests/support/TemporaryCatalogues.h"

namespace {

/// A dialog with a catalogue of its own above that of its base.
class TextDialog : public KorDlgDialog {
 public:
  TextDialog() : KorDlgDialog(nullptr, "TextDialog", 0) {
    frame = Add<KorDlgFrame>("Frame");
    label = frame->Add<KorDlgLabel>("MassLabel");
  }
  KorString GetResourceFilename(int index) const override {
    if (index == 0) return "Derived";
    return index == 1 ? "Base" : KorDlgDialog::GetResourceFilename(index - 2);
  }
  KorDlgFrame* frame = nullptr;
  KorDlgLabel* label = nullptr;
};

struct DialogTexts : testing::Test {
  TemporaryCatalogues catalogues;
};

TEST_F(DialogTexts, ComeFromTheCatalogueByTheWidgetsPath) {
  catalogues.Write(
      "en", "Derived",
      "Title = \"Weights\"\nFrame.MassLabel.Title = \"Mass\"\nFrame.MassLabel.ShortHelp = \"kg\"\n");
  catalogues.Write("en", "Base", "");
  TextDialog dialog;
  dialog.ReloadTexts();
  EXPECT_EQ(dialog.GetTitle(), "Weights");
  EXPECT_EQ(dialog.label->GetTitle(), "Mass");
  EXPECT_EQ(dialog.label->GetShortHelp(), "kg");
  EXPECT_EQ(dialog.frame->GetTitle(), "");
}

TEST_F(DialogTexts, AreThereFromTheWidgetsCreationOn) {
  catalogues.Write("en", "Derived", "Frame.MassLabel.Title = \"Mass\"\n");
  catalogues.Write("en", "Base", "");
  const TextDialog dialog;
  EXPECT_EQ(dialog.label->GetTitle(), "Mass");
}

TEST_F(DialogTexts, OfTheMostDerivedCatalogueWin) {
  catalogues.Write("en", "Derived", "A = \"derived\"\n");
  catalogues.Write("en", "Base", "A = \"base\"\nB = \"base\"\n");
  const TextDialog dialog;
  EXPECT_EQ(dialog.CatalogueText("A"), "derived");
  EXPECT_EQ(dialog.CatalogueText("B"), "base");
  EXPECT_EQ(dialog.CatalogueText("C", "default"), "default");
}

TEST_F(DialogTexts, TheBaseDialogHasNoCatalogue) {
  const KorDlgDialog dialog(nullptr, "Plain", 0);
  EXPECT_EQ(dialog.GetResourceFilename(0), "");
  EXPECT_EQ(dialog.CatalogueText("Title", "default"), "default");
}

TEST_F(DialogTexts, SetByCodeStayWhenTheLanguageChanges) {
  catalogues.Write("en", "Derived", "Frame.Title = \"Frame\"\nFrame.MassLabel.Title = \"Mass\"\n");
  catalogues.Write("de", "Derived", "Frame.Title = \"Rahmen\"\nFrame.MassLabel.Title = \"Masse\"\n");
  TextDialog dialog;
  dialog.label->SetTitle("Weighed mass");
  KorMsgCatalog::SetLanguage("de");
  dialog.ReloadTexts();
  EXPECT_EQ(dialog.frame->GetTitle(), "Rahmen");
  EXPECT_EQ(dialog.label->GetTitle(), "Weighed mass");
}

TEST_F(DialogTexts, OfACopyAndOfAnAssignedDialogComeFromTheCatalogueStill) {
  catalogues.Write("en", "Derived", "Title = \"Weights\"\nShortHelp = \"All of them\"\n");
  catalogues.Write("de", "Derived", "Title = \"Gewichte\"\nShortHelp = \"Alle\"\n");
  RecordingBackend backend;
  const TextDialog original;
  TextDialog copied(original), assigned;
  assigned = original;
  for (TextDialog* dialog : {&copied, &assigned}) {
    KorMsgCatalog::SetLanguage("en");
    dialog->Attach(&backend);
    EXPECT_EQ(dialog->GetTitle(), "Weights");
    EXPECT_EQ(dialog->GetShortHelp(), "All of them");
    KorMsgCatalog::SetLanguage("de");
    dialog->ReloadTexts();
    EXPECT_EQ(dialog->GetTitle(), "Gewichte");
    EXPECT_EQ(dialog->GetShortHelp(), "Alle");
    dialog->Detach();
  }
}

TEST_F(DialogTexts, SetByCodeGoOverToACopyAndToAnAssignedDialogAndStay) {
  catalogues.Write("en", "Derived", "Title = \"Weights\"\nShortHelp = \"All of them\"\n");
  TextDialog original;
  original.SetTitle("Weights of the hub");
  original.SetShortHelp("Of the hub");
  TextDialog copied(original), assigned;
  assigned = original;
  for (TextDialog* dialog : {&copied, &assigned}) {
    dialog->ReloadTexts();
    EXPECT_EQ(dialog->GetTitle(), "Weights of the hub");
    EXPECT_EQ(dialog->GetShortHelp(), "Of the hub");
  }
}

TEST_F(DialogTexts, OfAShownDialogAreThereAfterAnAssignmentFromOneThatNeverWas) {
  catalogues.Write("en", "Derived", "Title = \"Weights\"\nShortHelp = \"All of them\"\n");
  RecordingBackend backend;
  TextDialog shown;
  shown.Attach(&backend);
  const TextDialog other;
  shown = other;
  EXPECT_EQ(backend.Shown(shown, KorDlgProperty::Title), "Weights");
  EXPECT_EQ(backend.Shown(shown, KorDlgProperty::Help), "All of them");
  shown.Detach();
}

TEST_F(DialogTexts, AChangeOfLanguageReachesTheWindow) {
  catalogues.Write("en", "Derived", "Title = \"Weights\"\nFrame.MassLabel.Title = \"Mass\"\n");
  catalogues.Write("de", "Derived", "Title = \"Gewichte\"\nFrame.MassLabel.Title = \"Masse\"\n");
  RecordingBackend backend;
  TextDialog dialog;
  dialog.Attach(&backend);
  KorMsgCatalog::SetLanguage("de");
  dialog.ReloadTexts();
  EXPECT_EQ(backend.Shown(dialog, KorDlgProperty::Title), "Gewichte");
  EXPECT_EQ(backend.Shown(*dialog.label, KorDlgProperty::Title), "Masse");
  dialog.Detach();
}

TEST_F(DialogTexts, ATitledDialogIsCreatedInTheWindowBeforeItsTitleIsShown) {
  catalogues.Write("en", "Derived", "Title = \"Weights\"\n");
  RecordingBackend backend;
  TextDialog dialog;
  dialog.Attach(&backend);
  EXPECT_EQ(backend.Log().front(), "created TextDialog");
  EXPECT_EQ(backend.Shown(dialog, KorDlgProperty::Title), "Weights");
  dialog.Detach();
}

TEST_F(DialogTexts, ATitledWidgetAddedLaterIsCreatedInTheWindowBeforeItsTitleIsShown) {
  catalogues.Write("en", "Derived", "Frame.Late.Title = \"Late\"\n");
  RecordingBackend backend;
  TextDialog dialog;
  dialog.Attach(&backend);
  backend.ClearLog();
  auto* late = dialog.frame->Add<KorDlgLabel>("Late");
  EXPECT_EQ(backend.Log().front(), "created Late");
  EXPECT_EQ(backend.Shown(*late, KorDlgProperty::Title), "Late");
  dialog.Detach();
}

TEST_F(DialogTexts, ColumnTitlesThatWereGivenByKeyFollowTheLanguageAndTheOthersStay) {
  catalogues.Write("en", "Derived", "List.Column1 = \"Part\"\n");
  catalogues.Write("de", "Derived", "List.Column1 = \"Teil\"\n");
  RecordingBackend backend;
  TextDialog dialog;
  auto* byKey = dialog.frame->Add<KorDlgMultiList>("List");
  byKey->SetColumnTitleKeys({"List.Column1", "List.Column2"});
  auto* byCode = dialog.frame->Add<KorDlgMultiList>("Other");
  byCode->SetColumnTitles({"Mass"});
  dialog.Attach(&backend);
  EXPECT_EQ(byKey->GetColumn(0).title, "Part");
  EXPECT_EQ(byKey->GetColumn(1).title, "") << "there is no such text";
  byKey->SetColumnItem(0, "nose", 0);
  KorMsgCatalog::SetLanguage("de");
  dialog.ReloadTexts();
  EXPECT_EQ(byKey->GetColumn(0).title, "Teil");
  EXPECT_EQ(byKey->GetColumnItem(0, 0), "nose");
  EXPECT_EQ(byCode->GetColumn(0).title, "Mass");
  backend.ExpectMirrorsDialog(dialog);
  dialog.Detach();
}

TEST_F(DialogTexts, TitlesSetByCodeTakeThePlaceOfThoseByKey) {
  catalogues.Write("en", "Derived", "List.Column1 = \"Part\"\n");
  TextDialog dialog;
  auto* list = dialog.frame->Add<KorDlgMultiList>("List");
  list->SetColumnTitleKeys({"List.Column1"});
  list->SetColumnTitles({"Mass"});
  dialog.ReloadTexts();
  EXPECT_EQ(list->GetColumn(0).title, "Mass");
}

TEST_F(DialogTexts, MayBeMissingWithoutTakingTheDialogDown) {
  TextDialog dialog;
  dialog.ReloadTexts();
  EXPECT_EQ(dialog.label->GetTitle(), "");
}

}  // namespace
