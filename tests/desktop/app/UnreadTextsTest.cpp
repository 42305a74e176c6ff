// A save asks first while a text stands in the part panel that it would not take as it is.
#include <QAccessible>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>
#include <optional>

#include "desktop/app/PartPanelEditors.h"
#include "framework/dialog/KorDlgCheckButton.h"
#include "framework/knowledge/KorCkeParmDictionary.h"
#include "framework/knowledge/KorUnitSystems.h"
#include "tests/desktop/app/EditingHarness.h"
#include "tests/desktop/app/ScriptedTransport.h"

namespace desktop::test {
namespace {

constexpr const char* kUpper = "TabContainer001.TabPage005.Frame252.PrecisionValueFrame.UpperValueEditor";
constexpr const char* kPrecision = "TabContainer001.TabPage005.Frame252.Frame092.TypeCombo";
constexpr const char* kValueType = "TabContainer001.TabPage005.Frame252.PrecisionValueFrame.ValueTypeCombo";
constexpr const char* kDensity = "TabContainer001.TabPage004.MaterialAndDensityFrame.DensityEditor";
constexpr const char* kFirst = "TabContainer001.TabPage004.DensityPriorityFrame.FirstCombo";
constexpr const char* kIxy = "TabContainer001.TabPage003.Frame113.MTProductOfInertia.MTIxyEditor";

constexpr const char* kMassOfType = "TabContainer001.TabPage003.Frame107.Frame231.MTMassEditor";
constexpr const char* kCentreX = "TabContainer001.TabPage003.Frame113.MTCGFrame.MTCGxEditor";

class UnreadTextsTest : public EditingTest {
 protected:
  enum SaveAnswer { kSaveAllTheSame = 0, kBack = 1 };

  void SetUp() override {
    EditingTest::SetUp();
    real = KorPdmClient::GetTransport();
    server.emplace();
    server->answer = [this](const std::string& command, const std::string& request) {
      return real->Run(command, request);
    };
  }
  void TearDown() override {
    server.reset();
    EditingTest::TearDown();
  }

  QLineEdit* Line(const char* editor) { return backend.ControlOf<QLineEdit>(Panel().Find(editor)); }
  QTabWidget* Tabs() { return backend.ControlOf<QTabWidget>(Panel().Find("TabContainer001")); }
  KorDlgTabContainer& Pages() { return Panel().Find<KorDlgTabContainer>("TabContainer001"); }
  /// Leaves the text pending in the editor, with the focus there.
  void TypeByKeys(const char* editor, const char* text) {
    Line(editor)->setFocus();
    Line(editor)->selectAll();
    QTest::keyClicks(Line(editor), text);
  }
  void SaveByKeys() {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
    RunPendingEvents();
  }
  void DefineBounds(int valueType) {
    GoTo(kPrecisionPage);
    ASSERT_TRUE(Panel().Find<KorDlgCombo>(kPrecision).Pick(1));
    ASSERT_TRUE(Panel().Find<KorDlgCombo>(kValueType).Pick(valueType));
  }
  void TypeDensity(const std::string& text) {
    GoTo(kMaterialPage);
    ASSERT_TRUE(Panel().Find<KorDlgCombo>(kFirst).Pick("WB"));
    Type(kDensity, text);
  }
  /// What the only question so far says of the texts: its lines behind the first two.
  std::string Told() {
    EXPECT_EQ(boxes.Questions().size(), 1u);
    if (boxes.Questions().empty()) return {};
    return ToStd(QString::fromStdString(boxes.Questions()[0].text.Utf8()).section('\n', 2));
  }
  static std::string ToStd(const QString& text) { return text.toStdString(); }
  bool WasSent(const char* command) const {
    return std::ranges::find(server->commands, command) != server->commands.end();
  }
  std::string TabName(int page) {
    QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(Tabs()->tabBar());
    return bar->child(page)->text(QAccessible::Name).toStdString();
  }
  const LumWBAllDataBuffer& Buffer() { return *window.PartPanel().Buffer(); }

  KorPdmTransport* real = nullptr;
  std::optional<ScriptedTransport> server;
};

TEST_F(UnreadTextsTest, ATextSavedStraightFromItsEditorIsAskedAboutBeforeAnythingIsStored) {
  Edit();
  TypeByKeys(kCGx, "about 3");
  const double before = Buffer().GetCG("Calculated")[0];
  boxes.answers = {kBack};
  SaveByKeys();
  ASSERT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(boxes.Questions()[0].title, "Texts that cannot be read");
  EXPECT_EQ(boxes.Questions()[0].text,
            "One text cannot be read as it stands. A save would make of it:\n\n"
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
            "2 texts cannot be read as they stand. A save would make of them:\n\n"
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
            "Eine Eingabe ist so nicht lesbar. Beim Speichern würde daraus:\n\n"
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
