#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/SampleDialog.h"

using testing::HasSubstr;

namespace {

/// What a look-up that fails says.
std::string Failure(KorDlgObject& from, const std::string& path) {
  try {
    from.Find(path);
  } catch (const KorDlgUnknownPath& unknown) {
    return unknown.what();
  }
  return "found";
}

struct Path : testing::Test {
  SampleDialog dialog;
};

TEST_F(Path, JoinsTheNamesBelowTheDialog) {
  EXPECT_EQ(dialog.Path(), "");
  EXPECT_EQ(dialog.form->Path(), "Form");
  EXPECT_EQ(dialog.secondEditor->Path(), "Tabs.SecondPage.SecondEditor");
}

TEST_F(Path, FindsAWidgetFromTheDialogAndFromAFrame) {
  EXPECT_EQ(&dialog.Find("Tabs.SecondPage.SecondEditor"), dialog.secondEditor);
  EXPECT_EQ(&dialog.tabs->Find("SecondPage.SecondEditor"), dialog.secondEditor);
  EXPECT_EQ(&dialog.Find<KorDlgEditor>("Form.NameEditor"), dialog.nameEditor);
}

TEST_F(Path, OfARepeatedNameTheFirstIsMeantUnlessANumberSaysOtherwise) {
  auto* second = dialog.form->Add<KorDlgLabel>("NameLabel");
  auto* third = dialog.form->Add<KorDlgLabel>("NameLabel");
  EXPECT_EQ(&dialog.Find("Form.NameLabel"), dialog.nameLabel);
  EXPECT_EQ(&dialog.Find("Form.NameLabel[1]"), dialog.nameLabel);
  EXPECT_EQ(&dialog.Find("Form.NameLabel[2]"), second);
  EXPECT_EQ(&dialog.Find("Form.NameLabel[3]"), third);
  EXPECT_THROW(dialog.Find("Form.NameLabel[4]"), KorDlgUnknownPath);
  EXPECT_THROW(dialog.Find("Form.NameLabel[0]"), KorDlgUnknownPath);
}

TEST_F(Path, OfRepeatedFramesTheNumberStandsInTheMiddle) {
  auto* second = dialog.Add<KorDlgFrame>("Form");
  auto* inside = second->Add<KorDlgLabel>("Inside");
  EXPECT_EQ(&dialog.Find("Form[2].Inside"), inside);
  EXPECT_EQ(&dialog.Find("Form.Inside"), inside) << "the first of several with the same path";
  EXPECT_THROW(dialog.Find("Form[1].Inside"), KorDlgUnknownPath);
}

TEST_F(Path, NamesMayHoldDotsBlanksQuotesAndBrackets) {
  auto* hint = dialog.form->Add<KorDlgLabel>("Hint for \"Date\" type: e.g. 2024.05");
  auto* unit = dialog.form->Add<KorDlgLabel>("Density [kg]");
  EXPECT_EQ(&dialog.Find("Form.Hint for \"Date\" type: e.g. 2024.05"), hint);
  EXPECT_EQ(&dialog.Find("Form.Density [kg]"), unit);
}

TEST_F(Path, ANameThatOpensAnotherIsNotTakenForIt) {
  auto* longer = dialog.form->Add<KorDlgLabel>("NameLabelLonger");
  EXPECT_EQ(&dialog.Find("Form.NameLabelLonger"), longer);
  EXPECT_THROW(dialog.Find("Form.NameLab"), KorDlgUnknownPath);
}

TEST_F(Path, AFailedLookUpNamesThePathAndListsThoseThatThereAre) {
  const std::string message = Failure(dialog, "Form.NoSuchEditor");
  EXPECT_THAT(message, HasSubstr("Form.NoSuchEditor"));
  EXPECT_THAT(message, HasSubstr("Form.NameEditor"));
  EXPECT_THAT(message, HasSubstr("Tabs.ThirdPage.List"));
}

TEST_F(Path, AnEmptyPathIsUnknown) { EXPECT_THROW(dialog.Find(""), KorDlgUnknownPath); }

TEST_F(Path, AWidgetOfAnotherKindIsAFailureThatSaysSo) {
  EXPECT_THROW(dialog.Find<KorDlgCombo>("Form.NameEditor"), KorDlgUnknownPath);
}

TEST_F(Path, EveryWidgetKnowsItsParentAndItsDialog) {
  EXPECT_EQ(dialog.nameEditor->Parent(), dialog.form);
  EXPECT_EQ(dialog.nameEditor->GetParentCommand(), dialog.form);
  EXPECT_EQ(dialog.nameEditor->Dialog(), &dialog);
  EXPECT_EQ(dialog.Dialog(), &dialog);
}

}  // namespace
