#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/RecordingBackend.h"
#include "tests/support/SampleDialog.h"
#include "tests/support/UnreachableLog.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A combo that holds red, green and blue, green selected.
struct Combo : testing::Test {
  Combo() { dialog.Attach(&backend); }
  ~Combo() override {
    backend.ExpectMirrorsDialog(dialog);
    dialog.Detach();
  }

  RecordingBackend backend;
  SampleDialog dialog;
  UnreachableLog unreachable;
  KorDlgCombo& combo = *dialog.colourCombo;
};

TEST_F(Combo, AnEmptyOneHasNoLineAndNoSelection) {
  auto* empty = dialog.form->Add<KorDlgCombo>("Empty");
  EXPECT_EQ(empty->GetLineCount(), 0);
  EXPECT_EQ(empty->GetSelect(), -1);
  EXPECT_EQ(empty->GetSelectedLine(), "");
}

TEST_F(Combo, TheFirstLineOfAnEmptyOneBecomesSelected) {
  combo.ClearLines();
  combo.SetLine("first");
  combo.SetLine("second");
  EXPECT_EQ(combo.GetSelectedLine(), "first");
}

TEST_F(Combo, ALinePutInAheadMovesTheSelectionAlong) {
  combo.SetLine("black", 1);
  EXPECT_THAT(combo.GetLines(), ElementsAre("red", "black", "green", "blue"));
  EXPECT_EQ(combo.GetSelectedLine(), "green");
  EXPECT_EQ(combo.GetSelect(), 2);
}

TEST_F(Combo, ALinePutInBehindLeavesTheSelection) {
  combo.SetLine("black", 2);
  EXPECT_EQ(combo.GetSelect(), 1);
  EXPECT_EQ(combo.GetLine(2), "black");
}

TEST_F(Combo, AnIndexBelowZeroOrBeyondTheEndAppends) {
  combo.SetLine("cyan", -1);
  combo.SetLine("pink", 99);
  EXPECT_THAT(combo.GetLines(), ElementsAre("red", "green", "blue", "cyan", "pink"));
}

TEST_F(Combo, ADeletedSelectedLineHandsTheSelectionToTheNext) {
  combo.DeleteLine(1);
  EXPECT_EQ(combo.GetSelectedLine(), "blue");
}

TEST_F(Combo, ADeletedSelectedLastLineHandsTheSelectionToTheNewLast) {
  combo.SetSelect(2);
  combo.DeleteLine(2);
  EXPECT_EQ(combo.GetSelectedLine(), "green");
}

TEST_F(Combo, ALineDeletedAheadMovesTheSelectionAlong) {
  combo.DeleteLine(0);
  EXPECT_EQ(combo.GetSelectedLine(), "green");
  EXPECT_EQ(combo.GetSelect(), 0);
}

TEST_F(Combo, DeletingTheOnlyLineLeavesNoSelection) {
  combo.ClearLines();
  combo.SetLine("only");
  combo.DeleteLine(0);
  EXPECT_EQ(combo.GetSelect(), -1);
}

TEST_F(Combo, DeletingALineThatThereIsNotChangesNothing) {
  combo.DeleteLine(-1);
  combo.DeleteLine(3);
  EXPECT_EQ(combo.GetLineCount(), 3);
  EXPECT_EQ(combo.GetSelect(), 1);
}

TEST_F(Combo, ClearingSelectsNothing) {
  combo.ClearLines();
  EXPECT_EQ(combo.GetLineCount(), 0);
  EXPECT_EQ(combo.GetSelect(), -1);
}

TEST_F(Combo, LineChangesByCodeTellNoHandler) {
  combo.SetLine("black", 0);
  combo.DeleteLine(0);
  combo.ClearLines();
  EXPECT_THAT(dialog.Heard(), IsEmpty());
}

TEST_F(Combo, ALineThatThereIsNotIsEmpty) {
  EXPECT_EQ(combo.GetLine(-1), "");
  EXPECT_EQ(combo.GetLine(3), "");
}

TEST_F(Combo, SelectingSilentlyTellsNobody) {
  combo.SetSelect(2);
  EXPECT_EQ(combo.GetSelectedLine(), "blue");
  EXPECT_THAT(dialog.Heard(), IsEmpty());
}

TEST_F(Combo, SelectingTheSelectedLineWithNotificationStillNotifies) {
  combo.SetSelect(1, KorNotify::Send);
  EXPECT_THAT(dialog.Heard(), ElementsAre("ColourCombo ComboSelect"));
}

TEST_F(Combo, SelectingALineThatThereIsNotKeepsTheSelectionAndNotifies) {
  combo.SetSelect(7, KorNotify::Send);
  combo.SetSelect(-1, KorNotify::Send);
  EXPECT_EQ(combo.GetSelect(), 1);
  EXPECT_THAT(dialog.Heard(), ElementsAre("ColourCombo ComboSelect", "ColourCombo ComboSelect"));
}

TEST_F(Combo, SelectsByTextTheFirstOfEqualLines) {
  combo.SetLine("red");
  EXPECT_TRUE(combo.SetSelect("red", KorNotify::Send));
  EXPECT_EQ(combo.GetSelect(), 0);
  EXPECT_THAT(dialog.Heard(), ElementsAre("ColourCombo ComboSelect"));
}

TEST_F(Combo, SelectingATextThatNoLineHasKeepsTheSelectionAndNotifies) {
  EXPECT_FALSE(combo.SetSelect("pink", KorNotify::Send));
  EXPECT_EQ(combo.GetSelect(), 1);
  EXPECT_THAT(dialog.Heard(), ElementsAre("ColourCombo ComboSelect"));
}

TEST_F(Combo, TheUserPicksByIndexOrText) {
  EXPECT_TRUE(combo.Pick(0));
  EXPECT_TRUE(combo.Pick("blue"));
  EXPECT_EQ(combo.GetSelect(), 2);
  EXPECT_THAT(dialog.Heard(), ElementsAre("ColourCombo ComboSelect", "ColourCombo ComboSelect"));
}

TEST_F(Combo, PickingTheSelectedLineNotifies) {
  EXPECT_TRUE(combo.Pick(1));
  EXPECT_THAT(dialog.Heard(), ElementsAre("ColourCombo ComboSelect"));
}

TEST_F(Combo, APickThatItsGuardRefusesSelectsAndSendsNothing) {
  int asked = -1;
  bool allows = false;
  combo.SetGuard([&](int line) {
    asked = line;
    return allows;
  });
  EXPECT_FALSE(combo.Pick("blue"));
  EXPECT_EQ(asked, 2);
  EXPECT_EQ(combo.GetSelect(), 1);
  EXPECT_THAT(dialog.Heard(), IsEmpty());
  allows = true;
  EXPECT_TRUE(combo.Pick("blue"));
  EXPECT_EQ(combo.GetSelect(), 2);
  EXPECT_THAT(dialog.Heard(), ElementsAre("ColourCombo ComboSelect"));
}

TEST_F(Combo, AGuardIsAskedWhileTheOldLineIsSelectedAlsoAboutThatLine) {
  std::vector<int> selected;
  combo.SetGuard([&](int) {
    selected.push_back(combo.GetSelect());
    return true;
  });
  EXPECT_TRUE(combo.Pick(0));
  EXPECT_TRUE(combo.Pick(0));
  EXPECT_THAT(selected, ElementsAre(1, 0));
}

TEST_F(Combo, AGuardIsNotAskedAboutWhatCannotBePicked) {
  int asked = 0;
  combo.SetGuard([&](int) { return ++asked > 0; });
  EXPECT_FALSE(combo.Pick(3));
  combo.SetSensitivity(KorSensitivity::Disabled);
  EXPECT_FALSE(combo.Pick(0));
  EXPECT_THAT(unreachable.Verbs(), ElementsAre("Pick on ColourCombo", "Pick on ColourCombo"));
  EXPECT_EQ(asked, 0);
}

TEST_F(Combo, AGuardIsNotAskedAboutWhatCodeSelects) {
  int asked = 0;
  combo.SetGuard([&](int) { return ++asked < 0; });
  combo.SetSelect(2, KorNotify::Send);
  EXPECT_TRUE(combo.SetSelect("red"));
  EXPECT_EQ(combo.GetSelect(), 0);
  EXPECT_EQ(asked, 0);
}

TEST_F(Combo, NoUserCanPickALineThatThereIsNot) {
  EXPECT_FALSE(combo.Pick(3));
  EXPECT_FALSE(combo.Pick("pink"));
  EXPECT_THAT(unreachable.Verbs(), ElementsAre("Pick on ColourCombo", "Pick on ColourCombo"));
  EXPECT_THAT(dialog.Heard(), IsEmpty());
}

}  // namespace
