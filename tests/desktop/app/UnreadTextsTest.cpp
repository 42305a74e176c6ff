// A save asks first while a text stands in the part panel that it would not take as it is.
#include <QPushButton>

#include "desktop/app/PartPanelEditors.h"
#include "framework/dialog/KorDlgCheckButton.h"
#include "framework/knowledge/KorCkeParmDictionary.h"
#include "framework/knowledge/KorUnitSystems.h"
#include "tests/desktop/app/UnreadHarness.h"

namespace desktop::test {
namespace {

TEST_F(UnreadTextsTest, ATextSavedStraightFromItsEditorIsAskedAboutBeforeAnythingIsStored) {
  Edit();
  TypeByKeys(kCGx, "about 3");
  const double before = Buffer().GetCG("Calculated")[0];
  boxes.answers = {kBack};
  SaveByKeys();
  ASSERT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(boxes.Questions()[0].title, "Not stored as it stands");
  EXPECT_EQ(boxes.Questions()[0].text,
            "One text would not be stored as it stands. A save would make of it:\n\n"
            "Mass types › Centre of gravity › x: \"about 3\"\n→ 0 mm is stored");
  EXPECT_EQ(boxes.Questions()[0].answers,
            (std::vector<KorUnicodeString>{"Save all the same", "Back to the field"}));
  EXPECT_EQ(boxes.Questions()[0].parent, &Panel());
  EXPECT_FALSE(WasSent("WBSaveNymValues"));
  EXPECT_EQ(Buffer().GetCG("Calculated")[0], before);
  EXPECT_TRUE(IsEditing());
  EXPECT_EQ(TextOf(kCGx), "about 3");
  EXPECT_NE(MarkOf(kCGx), "");
  EXPECT_TRUE(Line(kCGx)->hasFocus());
}

TEST_F(UnreadTextsTest, SavingAllTheSameStoresWhatTheQuestionSaid) {
  Edit();
  TypeByKeys(kCGx, "about 3");
  boxes.answers = {kSaveAllTheSame};
  SaveByKeys();
  EXPECT_TRUE(WasSent("WBSaveNymValues"));
  EXPECT_FALSE(IsEditing());
  EXPECT_EQ(Buffer().GetCG("Calculated")[0], 0);
}

TEST_F(UnreadTextsTest, ClosingTheQuestionGoesBackToTheField) {
  Edit();
  Type(kCGx, "about 3");
  boxes.answers = {std::nullopt};
  EXPECT_FALSE(Press("SaveButton"));
  EXPECT_TRUE(IsEditing());
  EXPECT_FALSE(WasSent("WBSaveNymValues"));
}

TEST_F(UnreadTextsTest, NothingIsAskedWhenEveryTextCanBeRead) {
  EditMass("43000");
  Save();
  EXPECT_TRUE(boxes.Questions().empty());
  EXPECT_TRUE(WasSent("WBSaveNymValues"));
}

TEST_F(UnreadTextsTest, ATextThatWasCorrectedIsSavedWithoutAQuestion) {
  Edit();
  Type(kCGx, "about 3");
  boxes.answers = {kBack};
  Press("SaveButton");
  Type(kCGx, "3");
  Save();
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(Buffer().GetCG("Calculated")[0], 3);
}

/// A way to press Save, from an editor with a pending text.
struct WayToSave {
  const char* name;
  void (*press)(QPushButton& save);
};
void PrintTo(const WayToSave& way, std::ostream* out) { *out << way.name; }

class WaysToSaveTest : public UnreadTextsTest, public testing::WithParamInterface<WayToSave> {};

TEST_P(WaysToSaveTest, AllAskOnceAboutATextThatIsStillPending) {
  Edit();
  TypeByKeys(kCGx, "about 3");
  boxes.answers = {kBack};
  GetParam().press(*backend.ControlOf<QPushButton>(Panel().Find("Frame238.SaveButton")));
  RunPendingEvents();
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_FALSE(WasSent("WBSaveNymValues"));
  EXPECT_TRUE(IsEditing());
  EXPECT_TRUE(Line(kCGx)->hasFocus()) << "back in the field, wherever the focus was";
}

INSTANTIATE_TEST_SUITE_P(
    Ways, WaysToSaveTest,
    testing::Values(WayToSave{"Click", [](QPushButton& save) { QTest::mouseClick(&save, Qt::LeftButton); }},
                    WayToSave{"Space",
                              [](QPushButton& save) {
                                save.setFocus();
                                QTest::keyClick(&save, Qt::Key_Space);
                              }},
                    WayToSave{"Shortcut",
                              [](QPushButton&) {
                                QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
                              }},
                    WayToSave{"ShortcutOfAnotherEditor",
                              [](QPushButton& save) {
                                save.setFocus();
                                QTest::keyClick(&save, Qt::Key_S, Qt::ControlModifier);
                              }}),
    [](const auto& way) { return way.param.name; });

// ---- where the marks are seen ----

TEST_F(UnreadTextsTest, APageThatIsNotInFrontShowsASignOnItsTab) {
  Edit();
  Type(kCGx, "about 3");
  GoTo(kResultsPage);
  EXPECT_FALSE(Tabs()->tabIcon(kMassTypesPage).isNull());
  EXPECT_TRUE(Tabs()->tabIcon(kMaterialPage).isNull());
  const std::string reason =
      "Mass types › Centre of gravity › x: \"about 3\" cannot be read as a number, with or without \"mm\" "
      "behind it.";
  EXPECT_EQ(TabName(kMassTypesPage), "Mass types: " + reason);
  EXPECT_EQ(TabName(kMaterialPage), "Material");
  EXPECT_TRUE(Tabs()->tabToolTip(kMassTypesPage).contains("about 3"));
  GoTo(kMassTypesPage);
  Type(kCGx, "3");
  EXPECT_TRUE(Tabs()->tabIcon(kMassTypesPage).isNull());
  EXPECT_EQ(TabName(kMassTypesPage), "Mass types");
}

TEST_F(UnreadTextsTest, TheWayBackBringsThePageInFrontAndTheFocusIntoTheField) {
  Edit();
  Type(kCGx, "about 3");
  GoTo(kPrecisionPage);
  boxes.answers = {kBack};
  EXPECT_FALSE(Press("SaveButton"));
  EXPECT_EQ(Pages().GetSelectedPage(), kMassTypesPage);
  EXPECT_TRUE(Line(kCGx)->hasFocus());
  EXPECT_EQ(TextOf(kCGx), "about 3");
}

TEST_F(UnreadTextsTest, TheWayBackToThePropertyThatIsShownStoresAndRewritesNothing) {
  Edit();
  EditProperty("Painting density", "3 furlongs");
  const KorUnicodeString before = Buffer().GetPropertyValue(ShownProperty(Panel()));
  boxes.answers = {kBack};
  EXPECT_FALSE(Press("SaveButton"));
  EXPECT_EQ(TextOf(kPropertyValue), "3 furlongs");
  EXPECT_NE(MarkOf(kPropertyValue), "");
  EXPECT_EQ(Buffer().GetPropertyValue(ShownProperty(Panel())), before);
  EXPECT_FALSE(WasSent("WBSaveNymValues"));
  EXPECT_TRUE(Line(kPropertyValue)->hasFocus());
}

TEST_F(UnreadTextsTest, TheWayBackToAnUnsuitablePropertyThatIsShownBringsNoMessage) {
  Edit();
  EditProperty("Crane lifts", "abc");
  boxes.answers = {kBack};
  EXPECT_FALSE(Press("SaveButton"));
  EXPECT_TRUE(boxes.Messages().empty());
  EXPECT_EQ(TextOf(kPropertyValue), "abc");
}

TEST_F(UnreadTextsTest, APropertyThatIsNotShownIsMarkedOnTheListOfPropertiesAndAskedAbout) {
  Edit();
  EditProperty("Crane lifts", "many");
  ShowProperty("Supplier");
  EXPECT_EQ(MarkOf(kPropertyValue), "");
  EXPECT_EQ(Panel().Find(kPropertyName).GetMarking().Utf8(),
            "Additional properties › Properties › Crane lifts: \"many\" cannot be read as a whole number.");
  GoTo(kResultsPage);
  EXPECT_FALSE(Tabs()->tabIcon(kPropertiesPage).isNull());
  boxes.answers = {kBack};
  EXPECT_FALSE(Press("SaveButton"));
  EXPECT_EQ(Told(),
            "Additional properties › Properties › Crane lifts: \"many\"\n→ sent as it stands; the server "
            "refuses the save");
  EXPECT_EQ(Pages().GetSelectedPage(), kPropertiesPage);
  EXPECT_EQ(TextOf(kPropertyValue), "many");
  EXPECT_TRUE(Line(kPropertyValue)->hasFocus());
  EXPECT_EQ(Panel().Find(kPropertyName).GetMarking(), "") << "it is shown again";
  EXPECT_NE(MarkOf(kPropertyValue), "") << "which the server has not";
  Type(kPropertyValue, "4");
  Save();
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_FALSE(window.PartPanel().HasUnsavedValues());
}

TEST_F(UnreadTextsTest, AMagnitudeThatIsNotShownIsNotTakenForUnreadInItsStorageUnit) {
  Edit();
  EditProperty("Overall length", "9350.5 mm");
  ShowProperty("Supplier");
  EXPECT_EQ(Panel().Find(kPropertyName).GetMarking(), "");
}

// ---- what the question says is what the save does ----

TEST_F(UnreadTextsTest, ANumberInAnotherUnitIsStoredAsTheQuestionSays) {
  Edit();
  Type(kCGx, "3 m");
  boxes.answers = {kSaveAllTheSame};
  Save();
  EXPECT_EQ(Told(), "Mass types › Centre of gravity › x: \"3 m\"\n→ 3 mm is stored");
  EXPECT_EQ(Buffer().GetCG("Calculated")[0], 3);
}

TEST_F(UnreadTextsTest, AMassThatIsNoNumberKeepsEveryValueOfItsMassTypeAsTheQuestionSays) {
  Edit();
  const double mass = Buffer().GetMass("Calculated");
  const double x = Buffer().GetCG("Calculated")[0];
  Type(kMass, "heavy");
  Type(kCGx, "about 3");
  boxes.answers = {kSaveAllTheSame};
  Save();
  EXPECT_EQ(Told(),
            "Mass types › Mass: \"heavy\"\n→ no value of this mass type is stored\n\n"
            "Mass types › Centre of gravity › x: \"about 3\"\n→ no value of this mass type is stored");
  EXPECT_EQ(Buffer().GetMass("Calculated"), mass);
  EXPECT_EQ(Buffer().GetCG("Calculated")[0], x);
}

TEST_F(UnreadTextsTest, ADensityThatIsNoNumberIsForgottenAsTheQuestionSays) {
  Edit();
  TypeDensity("heavy");
  boxes.answers = {kSaveAllTheSame};
  Save();
  EXPECT_EQ(Told(),
            "Material › Material and density › Density: \"heavy\"\n→ the part is stored without a density");
  EXPECT_FALSE(Buffer().IsDensityDefined());
}

TEST_F(UnreadTextsTest, ABoundOfAnotherKindIsStoredAsTheQuestionSays) {
  Edit();
  DefineBounds(0);
  Type(kUpper, "5 kg");
  boxes.answers = {kSaveAllTheSame};
  Save();
  EXPECT_EQ(Told(), "Precision › Bounds of the mass › Above: \"5 kg\"\n→ 5% is stored");
  EXPECT_EQ(Buffer().GetUpperPrecision(Buffer().GetActiveMassType()), 0.05);
}

TEST_F(UnreadTextsTest, AnAbsoluteBoundInAnotherUnitIsStoredAsTheQuestionSays) {
  Edit();
  DefineBounds(1);
  Type(kUpper, "5 t");
  boxes.answers = {kSaveAllTheSame};
  Save();
  EXPECT_EQ(Told(), "Precision › Bounds of the mass › Above: \"5 t\"\n→ 5 kg is stored");
  EXPECT_EQ(Buffer().GetUpperPrecision(Buffer().GetActiveMassType()), 5);
}

TEST_F(UnreadTextsTest, APercentageThatIsNotFiniteIsStoredAsNoneAsTheQuestionSays) {
  Edit();
  DefineBounds(0);
  Type(kUpper, "inf");
  boxes.answers = {kSaveAllTheSame};
  Save();
  EXPECT_EQ(Told(), "Precision › Bounds of the mass › Above: \"inf\"\n→ 0% is stored");
  EXPECT_EQ(Buffer().GetUpperPrecision(Buffer().GetActiveMassType()), 0);
}

TEST_F(UnreadTextsTest, AMagnitudeThatIsTooLargeKeepsItsValueAsTheQuestionSays) {
  KorCkeGlobalFunctions::GetParmDictionary()->FindMagnitude("LENGTH")->SetCurrentUnit("METER");
  window.UnitsChanged();
  Edit();
  EditProperty("Overall length", "1e306");
  boxes.answers = {kSaveAllTheSame};
  Save();
  EXPECT_EQ(Told(),
            "Additional properties › Properties › Overall length: \"1e306\"\n→ the value stays as it is");
  EXPECT_EQ(TextOf(kPropertyValue), "9.2 m");
  KorApplyUnitSystem("Mixed");
}

TEST_F(UnreadTextsTest, AnUnsuitablePropertyIsRefusedByTheServerAsTheQuestionSays) {
  Edit();
  EditProperty("Crane lifts", "2.5");
  boxes.answers = {kSaveAllTheSame};
  Save();
  EXPECT_EQ(
      Told(),
      "Additional properties › Properties › Crane lifts: \"2.5\"\n→ sent as it stands; the server refuses "
      "the save");
  ASSERT_FALSE(boxes.Messages().empty());
  EXPECT_NE(boxes.Messages().back().text.Utf8().find("Crane lifts"), std::string::npos);
  EXPECT_TRUE(window.PartPanel().HasUnsavedValues());
}

TEST_F(UnreadTextsTest, AMagnitudeInAnotherUnitIsStoredAsTheQuestionSays) {
  Edit();
  EditProperty("Overall length", "9.35 m");
  boxes.answers = {kSaveAllTheSame};
  Save();
  EXPECT_EQ(Told(), "Additional properties › Properties › Overall length: \"9.35 m\"\n→ 9.35 mm is stored");
  EXPECT_EQ(TextOf(kPropertyValue), "9.35 mm");
}

TEST_F(UnreadTextsTest, AStandardPartStoresNoCentreAsTheQuestionSays) {
  Edit();
  Type(kCGx, "about 3");
  ASSERT_TRUE(Panel().Find<KorDlgCheckButton>("Frame250.StdPartFrame.StdPartCheckButton").Toggle());
  boxes.answers = {kSaveAllTheSame};
  Save();
  EXPECT_EQ(Told(),
            "Mass types › Centre of gravity › x: \"about 3\"\n→ not stored: a standard part has a mass only");
}

// ---- the one question ----

TEST_F(UnreadTextsTest, SeveralTextsStandInOneQuestionInTheOrderOfThePages) {
  Edit();
  DefineBounds(0);
  Type(kUpper, "much");
  GoTo(kMassTypesPage);
  Type(kIxy, "1,5");
  boxes.answers = {kBack};
  Press("SaveButton");
  EXPECT_EQ(boxes.Questions()[0].text,
            "2 texts would not be stored as they stand. A save would make of them:\n\n"
            "Mass types › Products of inertia › Ixy: \"1,5\"\n→ 1 kg·m² is stored\n\n"
            "Precision › Bounds of the mass › Above: \"much\"\n→ 0% is stored");
  EXPECT_EQ(Pages().GetSelectedPage(), kMassTypesPage);
  EXPECT_TRUE(Line(kIxy)->hasFocus());
}

TEST_F(UnreadTextsTest, ALongTextIsNotToldWhole) {
  Edit();
  Type(kCGx, std::string(5'000'000, 'x'));
  boxes.answers = {kBack};
  Press("SaveButton");
  EXPECT_LT(Told().size(), 200u);
}

TEST_F(UnreadTextsTest, TheQuestionIsAskedInTheLanguageOfTheUser) {
  ASSERT_TRUE(window.ChooseLanguage("de"));
  Edit();
  Type(kCGx, "about 3");
  boxes.answers = {kBack};
  Press("SaveButton");
  EXPECT_EQ(boxes.Questions()[0].text,
            "Eine Eingabe würde nicht so gespeichert, wie sie dasteht. Beim Speichern würde daraus:\n\n"
            "Massenarten › Schwerpunkt › x: „about 3“\n→ gespeichert wird 0 mm");
}

/// A text, what the question says of it, and that the save does it.
struct Instead {
  const char* name;
  const char* editor;
  const char* text;
  const char* told;
};
void PrintTo(const Instead& row, std::ostream* out) { *out << row.name; }

class MassTypeInsteadTest : public UnreadTextsTest, public testing::WithParamInterface<Instead> {};

TEST_P(MassTypeInsteadTest, IsToldBeforeTheSave) {
  Edit();
  Type(GetParam().editor, GetParam().text);
  boxes.answers = {kBack};
  Press("SaveButton");
  EXPECT_EQ(Told(), GetParam().told);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, MassTypeInsteadTest,
    testing::Values(
        Instead{"OtherUnit", kCentreX, "3 m",
                "Mass types › Centre of gravity › x: \"3 m\"\n→ 3 mm is stored"},
        Instead{"Empty", kCentreX, "", "Mass types › Centre of gravity › x: \"\"\n→ 0 mm is stored"},
        Instead{"NotFinite", kCentreX, "inf",
                "Mass types › Centre of gravity › x: \"inf\"\n→ 0 mm is stored"},
        Instead{"MassInAnotherUnit", kMassOfType, "5 t", "Mass types › Mass: \"5 t\"\n→ 5 kg is stored"},
        Instead{"SumThatCannotBeWorkedOut", kMassOfType, "2 / 0",
                "Mass types › Mass: \"2 / 0\"\n→ 2 kg is stored"},
        Instead{"NoMass", kMassOfType, "heavy",
                "Mass types › Mass: \"heavy\"\n→ no value of this mass type is stored"}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace desktop::test
