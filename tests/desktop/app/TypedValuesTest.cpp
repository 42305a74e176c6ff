// Another mass type asks before it is shown over values that were typed and not saved.
#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QWheelEvent>
#include <optional>

#include "tests/desktop/app/EditingHarness.h"

namespace desktop::test {
namespace {

constexpr const char* kShownType = "TabContainer001.TabPage003.Frame107.Frame231.MassTypeCombo";
constexpr const char* kActiveType = "TabContainer001.TabPage003.Frame230.ActiveMassCombo";
constexpr const char* kPaste = "TabContainer001.TabPage003.Frame107.Frame231.MTPasteValuesCombo";
constexpr const char* kIxy = "TabContainer001.TabPage003.Frame113.MTProductOfInertia.MTIxyEditor";
constexpr const char* kPrecision = "TabContainer001.TabPage005.Frame252.Frame092.TypeCombo";
constexpr const char* kValueType = "TabContainer001.TabPage005.Frame252.PrecisionValueFrame.ValueTypeCombo";
constexpr const char* kUpper = "TabContainer001.TabPage005.Frame252.PrecisionValueFrame.UpperValueEditor";
constexpr const char* kLower = "TabContainer001.TabPage005.Frame252.PrecisionValueFrame.LowerValueEditor";

constexpr const char* kStoredMass = "42274.27441 kg";
constexpr const char* kStoredUpper = "1.5%";

/// On the bedplate: "Calculated" is active, with bounds of the user, and the one that is shown.
class TypedValuesTest : public EditingTest {
 protected:
  KorDlgCombo& Combo(const char* path) { return Panel().Find<KorDlgCombo>(path); }
  bool Pick(const char* combo, const char* line) { return Combo(combo).Pick(line); }
  bool PickActive(const char* line) {
    GoTo(kMassTypesPage);
    return Pick(kActiveType, line);
  }
  std::string Selected(const char* combo) { return Combo(combo).GetSelectedLine().Utf8(); }
  QComboBox* Box(const char* combo) { return backend.ControlOf<QComboBox>(Panel().Find(combo)); }
  void EditBounds() {
    Edit();
    GoTo(kPrecisionPage);
    ASSERT_TRUE(Pick(kPrecision, "User Defined"));
  }
  void ExpectMassKept() {
    EXPECT_EQ(boxes.Questions().size(), 1u);
    EXPECT_EQ(Selected(kShownType), "Calculated");
    EXPECT_EQ(Box(kShownType)->currentText(), "Calculated");
    EXPECT_EQ(TextOf(kMass), "43000");
    EXPECT_TRUE(IsEditing());
  }
};

// ---- the mass type that is shown ----

TEST_F(TypedValuesTest, AnotherShownMassTypeAsksAboutTheOneWhoseValuesWereTyped) {
  EditMass("43000");
  boxes.answers = {kKeep};
  EXPECT_FALSE(Pick(kShownType, "Estimated"));
  ASSERT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(boxes.Questions()[0].title, "Unsaved values");
  EXPECT_EQ(boxes.Questions()[0].text,
            "What was typed for mass type Calculated has not been saved and would be lost.");
  EXPECT_EQ(boxes.Questions()[0].answers, (std::vector<KorUnicodeString>{"Give it up", "Keep editing"}));
  EXPECT_EQ(boxes.Questions()[0].preferred, kKeep);
  EXPECT_EQ(boxes.Questions()[0].parent, &Panel());
  ExpectMassKept();
}

TEST_F(TypedValuesTest, ClosingTheQuestionKeepsWhatWasTyped) {
  EditMass("43000");
  boxes.answers = {std::nullopt};
  EXPECT_FALSE(Pick(kShownType, "Estimated"));
  ExpectMassKept();
}

TEST_F(TypedValuesTest, ValuesThatWereKeptAreAskedAboutAgainAndSaved) {
  EditMass("43000");
  boxes.answers = {kKeep, kKeep};
  EXPECT_FALSE(Pick(kShownType, "Estimated"));
  EXPECT_FALSE(Pick(kShownType, "Weighed"));
  EXPECT_EQ(boxes.Questions().size(), 2u);
  Save();
  EXPECT_EQ(window.PartPanel().Buffer()->GetMass("Calculated"), 43000);
}

TEST_F(TypedValuesTest, ValuesThatAreGivenUpMakeRoomForTheOtherMassType) {
  EditMass("43000");
  boxes.answers = {kGiveUp};
  EXPECT_TRUE(Pick(kShownType, "Estimated"));
  EXPECT_EQ(Selected(kShownType), "Estimated");
  EXPECT_TRUE(Pick(kShownType, "Calculated"));
  EXPECT_EQ(TextOf(kMass), kStoredMass);
  EXPECT_EQ(boxes.Questions().size(), 1u);
}

TEST_F(TypedValuesTest, CentreAndInertiaAreAskedAboutAsTheMassIs) {
  Edit();
  boxes.answers = {kGiveUp, kGiveUp};
  Type(kCGx, "777");
  EXPECT_TRUE(Pick(kShownType, "Estimated"));
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_TRUE(Pick(kShownType, "Calculated"));
  Type(kIxy, "5");
  EXPECT_TRUE(Pick(kShownType, "Estimated"));
  EXPECT_EQ(boxes.Questions().size(), 2u);
}

TEST_F(TypedValuesTest, ValuesTypedForAnotherMassTypeThanTheOneOfTheStartAreAskedAbout) {
  Edit();
  EXPECT_TRUE(Pick(kShownType, "Estimated"));
  Type(kMass, "43000");
  boxes.answers = {kKeep};
  EXPECT_FALSE(Pick(kShownType, "Calculated"));
  ASSERT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(boxes.Questions()[0].text,
            "What was typed for mass type Estimated has not been saved and would be lost.");
}

TEST_F(TypedValuesTest, ValuesThatWerePastedAreAskedAbout) {
  Edit();
  ASSERT_TRUE(Pick(kPaste, "Weighed"));
  EXPECT_EQ(TextOf(kMass), "42310 kg");
  EXPECT_TRUE(boxes.Questions().empty());
  boxes.answers = {kKeep};
  EXPECT_FALSE(Pick(kShownType, "Estimated"));
  EXPECT_EQ(TextOf(kMass), "42310 kg");
}

TEST_F(TypedValuesTest, PastingAndRescalingReplaceTypedValuesWithoutAQuestion) {
  EditMass("43000");
  ASSERT_TRUE(Pick(kPaste, "Computed"));
  Type(kMass, "50000");
  ASSERT_TRUE(
      Panel()
          .Find<KorDlgPushButton>("TabContainer001.TabPage003.Frame107.Frame231.UpdatePropertiesButton")
          .Press());
  EXPECT_TRUE(boxes.Questions().empty());
}

TEST_F(TypedValuesTest, AfterDeletedValuesNothingIsThereToAskAbout) {
  Edit();
  ASSERT_TRUE(Pick(kShownType, "Estimated"));
  Type(kMass, "43000");
  ASSERT_TRUE(
      Panel().Find<KorDlgPushButton>("TabContainer001.TabPage003.Frame107.Frame231.DeleteButton").Press());
  EXPECT_EQ(TextOf(kMass), "...");
  EXPECT_TRUE(Pick(kShownType, "Calculated"));
  EXPECT_TRUE(boxes.Questions().empty());
}

TEST_F(TypedValuesTest, BoundsOfADeletedActiveMassTypeAreNotAskedAboutAsThoseOfTheNextOne) {
  EditBounds();
  Type(kUpper, "5");
  GoTo(kMassTypesPage);
  ASSERT_TRUE(Pick(kShownType, "Estimated"));
  ASSERT_TRUE(Pick(kShownType, "Calculated"));
  ASSERT_TRUE(
      Panel().Find<KorDlgPushButton>("TabContainer001.TabPage003.Frame107.Frame231.DeleteButton").Press());
  ASSERT_EQ(Selected(kActiveType), "Computed");
  EXPECT_TRUE(Pick(kActiveType, "Estimated"));
  EXPECT_TRUE(boxes.Questions().empty()) << "nobody typed bounds of Computed";
}

TEST_F(TypedValuesTest, BoundsAreStillAskedAboutAfterAnotherMassTypeIsDeleted) {
  EditBounds();
  Type(kUpper, "5");
  GoTo(kMassTypesPage);
  ASSERT_TRUE(Pick(kShownType, "Estimated"));
  ASSERT_TRUE(
      Panel().Find<KorDlgPushButton>("TabContainer001.TabPage003.Frame107.Frame231.DeleteButton").Press());
  ASSERT_EQ(Selected(kActiveType), "Calculated");
  boxes.answers = {kKeep};
  EXPECT_FALSE(Pick(kActiveType, "Weighed"));
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(TextOf(kUpper), "5");
}

/// The panel selects the active mass type in both lists then.
TEST_F(TypedValuesTest, AnAppliedRevisionIsShownUnaskedAndLeavesNothingTypedToAskAbout) {
  EditMass("43000");
  ChooseRevision("B");
  GoTo(kMassTypesPage);
  EXPECT_TRUE(Pick(kShownType, "Estimated"));
  EXPECT_TRUE(boxes.Questions().empty());
}

TEST_F(TypedValuesTest, ATextThatWasTypedBackIsNoChange) {
  EditMass("43000");
  Type(kMass, kStoredMass);
  EXPECT_TRUE(Pick(kShownType, "Estimated"));
  EXPECT_TRUE(boxes.Questions().empty());
}

TEST_F(TypedValuesTest, NothingIsAskedWhereNothingWasTyped) {
  Edit();
  for (const char* type : {"Estimated", "Computed", "Weighed", "Calculated"})
    EXPECT_TRUE(Pick(kShownType, type)) << type;
  for (const char* type : {"Weighed", "Computed", "Calculated"}) EXPECT_TRUE(PickActive(type)) << type;
  EXPECT_TRUE(boxes.Questions().empty());
}

TEST_F(TypedValuesTest, NothingIsAskedInDisplayMode) {
  EditMass("43000");
  Save();
  EXPECT_TRUE(Pick(kShownType, "Estimated"));
  EXPECT_TRUE(boxes.Questions().empty());
}

TEST_F(TypedValuesTest, ASavedTextIsNotAskedAboutInTheNextEditMode) {
  EditMass("43000");
  Save();
  ASSERT_TRUE(Press("EditButton"));
  EXPECT_TRUE(Pick(kShownType, "Estimated"));
  EXPECT_TRUE(boxes.Questions().empty());
}

TEST_F(TypedValuesTest, TheLineThatIsShownAlreadyAsksNothingAndDropsNothing) {
  EditMass("43000");
  EXPECT_FALSE(Pick(kShownType, "Calculated"));
  EXPECT_TRUE(boxes.Questions().empty());
  EXPECT_EQ(TextOf(kMass), "43000");
}

TEST_F(TypedValuesTest, TheQuestionIsAskedInTheLanguageOfTheUser) {
  ASSERT_TRUE(window.ChooseLanguage("de"));
  EditMass("43000");
  boxes.answers = {kKeep};
  EXPECT_FALSE(Pick(kShownType, "Estimated"));
  EXPECT_EQ(boxes.Questions()[0].text,
            "Die Eingaben zur Massenart Calculated sind nicht gespeichert und gingen verloren.");
}

// ---- the active mass type ----

TEST_F(TypedValuesTest, AnotherActiveMassTypeAsksAboutTheBoundsThatWereTyped) {
  EditBounds();
  Type(kUpper, "9");
  boxes.answers = {kKeep};
  EXPECT_FALSE(PickActive("Weighed"));
  ASSERT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(boxes.Questions()[0].text,
            "The bounds typed for mass type Calculated have not been saved and would be lost.");
  EXPECT_EQ(Selected(kActiveType), "Calculated");
  EXPECT_EQ(TextOf(kUpper), "9");
}

TEST_F(TypedValuesTest, BoundsThatAreGivenUpMakeRoomForThoseOfTheOtherMassType) {
  EditBounds();
  Type(kUpper, "9");
  boxes.answers = {kGiveUp};
  EXPECT_TRUE(PickActive("Weighed"));
  EXPECT_TRUE(PickActive("Calculated"));
  EXPECT_EQ(TextOf(kUpper), kStoredUpper);
  EXPECT_EQ(boxes.Questions().size(), 1u);
}

TEST_F(TypedValuesTest, ALowerBoundIsAskedAboutToo) {
  EditBounds();
  Type(kLower, "9");
  boxes.answers = {kKeep};
  EXPECT_FALSE(PickActive("Weighed"));
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(TextOf(kLower), "9");
}

TEST_F(TypedValuesTest, TypedBoundsAreStillAskedAboutWhenTheyAreShownAsMasses) {
  EditBounds();
  Type(kUpper, "9");
  ASSERT_TRUE(Pick(kValueType, "Absolute"));
  boxes.answers = {kKeep};
  EXPECT_FALSE(PickActive("Weighed"));
  EXPECT_EQ(boxes.Questions().size(), 1u);
}

TEST_F(TypedValuesTest, BoundsThatAreOnlyShownAsMassesAreNotAskedAbout) {
  EditBounds();
  ASSERT_TRUE(Pick(kValueType, "Absolute"));
  EXPECT_NE(TextOf(kUpper), kStoredUpper);
  EXPECT_TRUE(PickActive("Weighed"));
  EXPECT_TRUE(boxes.Questions().empty());
}

TEST_F(TypedValuesTest, BoundsThatGaveWayToThoseOfTheMassTypeAreNotAskedAbout) {
  EditBounds();
  Type(kUpper, "9");
  ASSERT_TRUE(Pick(kPrecision, "Mass Type"));
  ASSERT_TRUE(Pick(kPrecision, "User Defined"));
  EXPECT_TRUE(PickActive("Weighed"));
  EXPECT_TRUE(boxes.Questions().empty());
}

TEST_F(TypedValuesTest, SavedBoundsAreNotAskedAboutInTheNextEditMode) {
  EditBounds();
  Type(kUpper, "9");
  Save();
  ASSERT_TRUE(Press("EditButton"));
  EXPECT_TRUE(PickActive("Weighed"));
  EXPECT_TRUE(boxes.Questions().empty());
}

TEST_F(TypedValuesTest, EachComboAsksOnlyAboutWhatItShows) {
  EditBounds();
  Type(kUpper, "9");
  GoTo(kMassTypesPage);
  EXPECT_TRUE(Pick(kShownType, "Estimated"));
  EXPECT_EQ(TextOf(kUpper), "9");
  Type(kMass, "43000");
  boxes.answers = {kGiveUp};
  EXPECT_TRUE(PickActive("Weighed"));
  EXPECT_EQ(TextOf(kMass), "43000");
  EXPECT_EQ(boxes.Questions().size(), 1u);
}

// ---- by mouse and keys ----

/// A way to another line of "MassTypeCombo", with the focus there.
struct WayToPick {
  const char* name;
  void (*pick)(QComboBox& box);
};
void PrintTo(const WayToPick& way, std::ostream* out) { *out << way.name; }

void TurnWheel(QComboBox& box) {
  const QPointF centre = box.rect().center();
  QWheelEvent down(centre, box.mapToGlobal(centre), {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase,
                   false);
  QApplication::sendEvent(&box, &down);
}

/// Qt takes a release within the time of a double click for the end of the click that opened the list.
void ClickOnAnotherLine(QComboBox& box) {
  const int interval = QApplication::doubleClickInterval();
  QApplication::setDoubleClickInterval(0);
  QTest::mouseClick(&box, Qt::LeftButton);
  RunPendingEvents();
  const int line = box.currentIndex() == 0 ? 1 : 0;
  const QModelIndex index = box.model()->index(line, box.modelColumn());
  QTest::mouseClick(box.view()->viewport(), Qt::LeftButton, {}, box.view()->visualRect(index).center());
  QApplication::setDoubleClickInterval(interval);
}

class WaysToPickTest : public TypedValuesTest, public testing::WithParamInterface<WayToPick> {
 protected:
  /// Leaves the text pending in the editor until the combo is worked.
  void TypeByKeys(const char* text) {
    auto* line = backend.ControlOf<QLineEdit>(Panel().Find(kMass));
    line->setFocus();
    line->selectAll();
    QTest::keyClicks(line, text);
  }
  void PickAnother() {
    Box(kShownType)->setFocus();
    GetParam().pick(*Box(kShownType));
    RunPendingEvents();
  }
};

TEST_P(WaysToPickTest, AllAskOnceAndShowTheOldLineWhenTheValuesAreKept) {
  Edit();
  TypeByKeys("43000");
  boxes.answers = {kKeep};
  PickAnother();
  ExpectMassKept();
}

TEST_P(WaysToPickTest, AllShowTheOtherMassTypeWhenTheValuesAreGivenUp) {
  Edit();
  TypeByKeys("43000");
  boxes.answers = {kGiveUp};
  PickAnother();
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_NE(Selected(kShownType), "Calculated");
  EXPECT_EQ(Box(kShownType)->currentText().toStdString(), Selected(kShownType));
}

INSTANTIATE_TEST_SUITE_P(
    Ways, WaysToPickTest,
    testing::Values(WayToPick{"ArrowUp", [](QComboBox& box) { QTest::keyClick(&box, Qt::Key_Up); }},
                    WayToPick{"Letter", [](QComboBox& box) { QTest::keyClick(&box, Qt::Key_E); }},
                    WayToPick{"Wheel", TurnWheel}, WayToPick{"Mouse", ClickOnAnotherLine}),
    [](const auto& way) { return way.param.name; });

}  // namespace
}  // namespace desktop::test
