// What was typed stays marked when the panel writes what it has read of it in its place, and what can be read
// is marked where a save would not store it.
#include <QPushButton>

#include "desktop/app/PartPanelEditors.h"
#include "framework/dialog/KorDlgCheckButton.h"
#include "framework/knowledge/KorUnitSystems.h"
#include "tests/desktop/app/UnreadHarness.h"

namespace desktop::test {
namespace {

constexpr const char* kDelete = "TabContainer001.TabPage003.Frame107.Frame231.DeleteButton";
constexpr const char* kShownType = "TabContainer001.TabPage003.Frame107.Frame231.MassTypeCombo";
constexpr const char* kActiveType = "TabContainer001.TabPage003.Frame230.ActiveMassCombo";
constexpr const char* kStandardPart = "Frame250.StdPartFrame.StdPartCheckButton";
constexpr const char* kRevisions =
    "TabContainer001.TabPageDocuments.UpperMainFrameActiveDoc.FrameActiveDoc.ActiveDocsCombo";
constexpr const char* kLatest =
    "TabContainer001.TabPageDocuments.LowerMainFrameActiveDoc.FrameActiveDocType.ActiveDocLatestButton";
constexpr int kRelative = 0, kAbsolute = 1;

class TypedTextsTest : public UnreadTextsTest {
 protected:
  void Leave() {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    RunPendingEvents();
  }
  void ClickSave() {
    QTest::mouseClick(backend.ControlOf<QPushButton>(Panel().Find("Frame238.SaveButton")), Qt::LeftButton);
    RunPendingEvents();
  }
  void TypeBound(int valueType, const char* text) {
    Edit();
    DefineBounds(valueType);
    TypeByKeys(kUpper, text);
  }
  std::string MarkOfList() { return Panel().Find(kPropertyName).GetMarking().Utf8(); }
  KorDlgCombo& Combo(const char* path) { return Panel().Find<KorDlgCombo>(path); }
  bool PressButton(const char* path) { return Panel().Find<KorDlgPushButton>(path).Press(); }
  /// As if the file had this value.
  void OpenPanelWith(const std::string& name, const std::string& value) {
    window.PartPanel().Close();
    server->answer = [this, name, value](const std::string& command, const std::string& request) {
      std::string reply = real->Run(command, request);
      auto part = protocol::ReadPartData(reply);
      if (command != "WBGetPartData" || !part) return reply;
      for (protocol::ExtraProperty& property : part.Value().properties)
        if (property.name == name) property.value = value;
      return protocol::WritePartData(part.Value());
    };
    OpenPanelOnBedplate();
  }
  double StoredUpper() { return Buffer().GetUpperPrecision("Calculated"); }
};

// ---- a bound that is left ----

TEST_F(TypedTextsTest, ABoundThatCouldNotBeReadStaysMarkedWhenItIsLeft) {
  TypeBound(kRelative, "2,5");
  Leave();
  ASSERT_EQ(TextOf(kUpper), "2%") << "the panel writes what it has read";
  EXPECT_EQ(MarkOf(kUpper), "\"2,5\" cannot be read as a number, with or without \"%\" behind it.");
  GoTo(kMassTypesPage);
  EXPECT_FALSE(Tabs()->tabIcon(kPrecisionPage).isNull());
}

TEST_F(TypedTextsTest, AClickOnSaveAsksAboutABoundThatItsPressLeaves) {
  TypeBound(kRelative, "2,5");
  boxes.answers = {kBack};
  ClickSave();
  EXPECT_EQ(Told(), "Precision \u203a Bounds of the mass \u203a Above: \"2,5\"\n\u2192 2% is stored");
  EXPECT_TRUE(IsEditing());
  EXPECT_TRUE(Line(kUpper)->hasFocus());
  Type(kUpper, "2.5");
  EXPECT_EQ(MarkOf(kUpper), "");
  Save();
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(StoredUpper(), 0.025);
}

TEST_F(TypedTextsTest, SavedAllTheSameItIsStoredAsTheQuestionSaysAndNothingStaysMarked) {
  TypeBound(kAbsolute, "7 lb");
  boxes.answers = {kSaveAllTheSame};
  ClickSave();
  EXPECT_EQ(Told(), "Precision \u203a Bounds of the mass \u203a Above: \"7 lb\"\n\u2192 7 kg is stored");
  EXPECT_EQ(StoredUpper(), 7);
  EXPECT_EQ(MarkOf(kUpper), "");
  Edit();
  EXPECT_EQ(MarkOf(kUpper), "");
  Save();
  EXPECT_EQ(boxes.Questions().size(), 1u);
}

// The panel shows the stored bound then, which is the one that was made of the text.
TEST_F(TypedTextsTest, ARefreshThatEndsEditModeLeavesNothingMarked) {
  TypeBound(kRelative, "2");
  Leave();
  Save();
  TypeBound(kRelative, "2,5");
  Leave();
  ASSERT_NE(MarkOf(kUpper), "");
  window.PartPanel().RefreshValues();
  ASSERT_FALSE(IsEditing());
  ASSERT_TRUE(Press("EditButton"));
  ASSERT_EQ(TextOf(kUpper), "2%");
  EXPECT_EQ(MarkOf(kUpper), "");
}

TEST_F(TypedTextsTest, ABoundWithoutAnyNumberIsAskedAboutToo) {
  TypeBound(kRelative, "about 3");
  boxes.answers = {kBack};
  ClickSave();
  EXPECT_EQ(Told(), "Precision \u203a Bounds of the mass \u203a Above: \"about 3\"\n\u2192 0% is stored");
}

TEST_F(TypedTextsTest, ABoundStaysMarkedUnderAnotherValueType) {
  TypeBound(kAbsolute, "7 lb");
  Leave();
  ASSERT_TRUE(Combo(kValueType).Pick("Relative"));
  EXPECT_NE(MarkOf(kUpper), "");
  Type(kUpper, "3");
  EXPECT_EQ(MarkOf(kUpper), "");
}

// Those of "Weighed" are 0.1%, too, and those of the mass type of "Calculated" 3%.
TEST_F(TypedTextsTest, BoundsThatComeInPlaceOfTypedOnesAreNotMarkedThoughTheirTextIsTheSame) {
  TypeBound(kRelative, "0.1,5");
  Leave();
  ASSERT_EQ(TextOf(kUpper), "0.1%");
  ASSERT_NE(MarkOf(kUpper), "");
  GoTo(kMassTypesPage);
  boxes.answers = {kGiveUp};
  ASSERT_TRUE(Combo(kActiveType).Pick("Weighed"));
  ASSERT_EQ(TextOf(kUpper), "0.1%");
  ASSERT_TRUE(Panel().Find(kUpper).IsEnabled());
  EXPECT_EQ(MarkOf(kUpper), "");
}

TEST_F(TypedTextsTest, BoundsOfTheMassTypeAreNotMarkedThoughTheirTextIsTheSame) {
  TypeBound(kRelative, "3,9");
  Leave();
  ASSERT_EQ(TextOf(kUpper), "3%");
  ASSERT_TRUE(Combo(kPrecision).Pick("Mass Type"));
  ASSERT_EQ(TextOf(kUpper), "3%");
  ASSERT_TRUE(Combo(kPrecision).Pick("User Defined"));
  EXPECT_EQ(MarkOf(kUpper), "");
}

TEST_F(TypedTextsTest, AMarkIsToldInTheLanguageThatIsChosenWhileItStands) {
  TypeBound(kRelative, "2,5");
  Leave();
  ASSERT_TRUE(window.ChooseLanguage("de"));
  EXPECT_EQ(MarkOf(kUpper), "„2,5“ ist nicht als Zahl lesbar, ohne oder mit „%“ dahinter.");
}

// "7 %" is a good text of the other kind.
TEST_F(TypedTextsTest, ABoundStaysMarkedWhereItsTextWouldBeReadUnderTheOtherKind) {
  TypeBound(kAbsolute, "7 %");
  Leave();
  ASSERT_TRUE(Combo(kValueType).Pick("Relative"));
  EXPECT_NE(MarkOf(kUpper), "");
}

TEST_F(TypedTextsTest, NoBoundOfTheStoredKindIsNotMarkedAfterItHasBeenOfTheOther) {
  Edit();
  DefineBounds(kAbsolute);
  Type(kUpper, "...");
  ASSERT_NE(MarkOf(kUpper), "");
  ASSERT_TRUE(Combo(kValueType).Pick("Relative"));
  EXPECT_EQ(MarkOf(kUpper), "") << "the stored one is kept";
}

TEST_F(TypedTextsTest, ABoundThatCouldBeReadIsNotMarkedWhenItIsLeft) {
  TypeBound(kRelative, "2.5");
  Leave();
  EXPECT_EQ(TextOf(kUpper), "2.5%");
  EXPECT_EQ(MarkOf(kUpper), "");
}

// ---- a property that is left for another one ----

TEST_F(TypedTextsTest, AMagnitudeThatCouldNotBeReadStaysMarkedWhenAnotherPropertyIsShown) {
  Edit();
  EditProperty("Painting density", "3 furlongs");
  ShowProperty("Supplier");
  EXPECT_EQ(MarkOf(kPropertyValue), "");
  EXPECT_NE(MarkOfList().find("Painting density: \"3 furlongs\" cannot be read"), std::string::npos)
      << MarkOfList();
  GoTo(kResultsPage);
  boxes.answers = {kBack};
  ClickSave();
  EXPECT_EQ(
      Told(),
      "Additional properties \u203a Properties \u203a Painting density: \"3 furlongs\"\n\u2192 3 kg/m\u00b3 "
      "is stored");
  EXPECT_NE(MarkOf(kPropertyValue), "") << "it is shown again, as " << TextOf(kPropertyValue);
  Type(kPropertyValue, "4");
  EXPECT_EQ(MarkOf(kPropertyValue), "");
  ShowProperty("Supplier");
  EXPECT_EQ(MarkOfList(), "");
  Save();
  EXPECT_EQ(boxes.Questions().size(), 1u);
}

// Nothing is changed in the buffer then.
TEST_F(TypedTextsTest, AMagnitudeWhoseNumberIsTheStoredOneStaysMarkedToo) {
  Edit();
  ShowProperty("Transport mass");
  ASSERT_EQ(TextOf(kPropertyValue), "44500 kg");
  Type(kPropertyValue, "44500 t");
  ShowProperty("Supplier");
  EXPECT_NE(MarkOfList(), "");
  boxes.answers = {kBack};
  ClickSave();
  EXPECT_NE(Told().find("Transport mass: \"44500 t\"\n\u2192 44500 kg is stored"), std::string::npos)
      << Told();
}

TEST_F(TypedTextsTest, AMagnitudeSavedAllTheSameIsNotMarkedAnyMore) {
  Edit();
  EditProperty("Painting density", "3 furlongs");
  ShowProperty("Supplier");
  boxes.answers = {kSaveAllTheSame};
  ClickSave();
  Edit();
  GoTo(kPropertiesPage);
  EXPECT_EQ(MarkOfList(), "");
  ShowProperty("Painting density");
  EXPECT_EQ(MarkOf(kPropertyValue), "");
}

// Older files have such values, and a save takes them as they are.
TEST_F(TypedTextsTest, AnUnsuitablePropertyThatIsStoredAndNotEditedIsNotMarked) {
  OpenPanelWith("Crane lifts", "abc");
  Edit();
  ShowProperty("Crane lifts");
  ASSERT_EQ(TextOf(kPropertyValue), "abc");
  EXPECT_EQ(MarkOf(kPropertyValue), "");
  Type(kPropertyValue, "abcd");
  EXPECT_NE(MarkOf(kPropertyValue), "");
  Type(kPropertyValue, "abc");
  EXPECT_EQ(MarkOf(kPropertyValue), "");
}

TEST_F(TypedTextsTest, AStoredMagnitudeThatIsTooLargeToBeShownIsNotMarkedUntilItIsEdited) {
  KorApplyUnitSystem("CGS");
  OpenPanelWith("Transport mass", "1e306");
  Edit();
  ShowProperty("Transport mass");
  ASSERT_EQ(TextOf(kPropertyValue), "...");
  EXPECT_EQ(MarkOf(kPropertyValue), "");
  Type(kPropertyValue, "1e306 t");
  EXPECT_NE(MarkOf(kPropertyValue), "");
}

// ---- what can be read and is not stored ----

TEST_F(TypedTextsTest, ACentreTypedForAStandardPartIsMarkedAsNotStored) {
  Edit();
  ASSERT_TRUE(Panel().Find<KorDlgCheckButton>(kStandardPart).Toggle());
  EXPECT_EQ(MarkOf(kCGx), "") << "nobody has typed it";
  Type(kCGx, "0");
  EXPECT_EQ(MarkOf(kCGx), "");
  Type(kCGx, "777");
  EXPECT_EQ(MarkOf(kCGx), "not stored: a standard part has a mass only");
  boxes.answers = {kBack};
  ClickSave();
  EXPECT_NE(Told().find("\"777\"\n\u2192 not stored"), std::string::npos) << Told();
}

TEST_F(TypedTextsTest, ACentreTypedBeforeThePartBecomesAStandardPartIsMarkedToo) {
  Edit();
  Type(kCGx, "777");
  EXPECT_EQ(MarkOf(kCGx), "");
  ASSERT_TRUE(Panel().Find<KorDlgCheckButton>(kStandardPart).Toggle());
  EXPECT_NE(MarkOf(kCGx), "");
  ASSERT_TRUE(Panel().Find<KorDlgCheckButton>(kStandardPart).Toggle());
  EXPECT_EQ(MarkOf(kCGx), "");
}

TEST_F(TypedTextsTest, NoCentreOfAStandardPartIsNoError) {
  Edit();
  Type(kCGx, "...");
  ASSERT_NE(MarkOf(kCGx), "");
  ASSERT_TRUE(Panel().Find<KorDlgCheckButton>(kStandardPart).Toggle());
  EXPECT_EQ(MarkOf(kCGx), "");
}

TEST_F(TypedTextsTest, TheCentreOfARevisionIsNotTakenForATypedOne) {
  Edit();
  Type(kCGx, "777");
  ChooseRevision("B");
  ASSERT_EQ(TextOf(kCGx), "-1290 mm");
  ASSERT_TRUE(Panel().Find<KorDlgCheckButton>(kStandardPart).Toggle());
  EXPECT_EQ(MarkOf(kCGx), "");
}

TEST_F(TypedTextsTest, NoValuesOfAMassTypeAreNoError) {
  Edit();
  Type(kMass, "...");
  ASSERT_NE(MarkOf(kMass), "");
  for (const ReadEditor& row : ReadEditors())
    if (row.content == EditorContent::Quantity) Type(row.path, "...");
  EXPECT_EQ(MarkOf(kMass), "") << "nothing was typed that could be lost";
  EXPECT_EQ(MarkOf(kCGx), "");
}

TEST_F(TypedTextsTest, ABoundTypedBesideThoseOfTheMassTypeIsMarkedAsNotStored) {
  Edit();
  DefineBounds(kRelative);
  GoTo(kMassTypesPage);
  ASSERT_TRUE(Combo(kShownType).Pick("Estimated"));
  ASSERT_TRUE(Combo(kShownType).Pick("Calculated"));
  ASSERT_TRUE(PressButton(kDelete));
  ASSERT_EQ(Combo(kPrecision).GetSelectedLine(), "Mass Type");
  ASSERT_TRUE(Panel().Find(kUpper).IsEnabled());
  EXPECT_EQ(MarkOf(kUpper), "");
  GoTo(kPrecisionPage);
  TypeByKeys(kUpper, "7");
  Leave();
  EXPECT_EQ(MarkOf(kUpper), "not stored: the bounds of the mass type count");
  Type(kUpper, "about 7");
  boxes.answers = {kBack};
  Press("SaveButton");
  EXPECT_NE(Told().find("\"about 7\"\n\u2192 not stored: the bounds of the mass type count"),
            std::string::npos)
      << Told();
  Type(kUpper, "...");
  EXPECT_EQ(MarkOf(kUpper), "");
  Type(kUpper, "7");
  ASSERT_TRUE(Combo(kPrecision).Pick("User Defined"));
  EXPECT_EQ(MarkOf(kUpper), "");
}

// ---- a revision that could not be loaded ----

TEST_F(TypedTextsTest, ARevisionThatCouldNotBeLoadedIsMarkedAndAskedAbout) {
  Edit();
  ChooseRevision("C");
  Save();
  ASSERT_TRUE(boxes.Questions().empty());
  server->answer = [this](const std::string& command, const std::string& request) {
    return command == "WBGetActiveDocInfo" ? protocol::ErrorReply("locked") : real->Run(command, request);
  };
  Edit();
  ChooseRevision("B");
  ASSERT_EQ(Combo(kRevisions).GetSelectedLine(), "ERROR!");
  EXPECT_EQ(Panel().Find(kRevisions).GetMarking(), "This revision could not be loaded.");
  boxes.answers = {kBack};
  ClickSave();
  EXPECT_NE(Told().find("\"ERROR!\"\n\u2192 the active revision is chosen automatically"), std::string::npos)
      << Told();
  EXPECT_TRUE(IsEditing());
  EXPECT_TRUE(Tabs()->tabBar()->hasFocus()) << "the list can be picked from in the choice of one only";
  ASSERT_TRUE(Panel().Find<KorDlgRadioButton>(kLatest).Check());
  EXPECT_EQ(Panel().Find(kRevisions).GetMarking(), "") << "that is what the user says now";
  Save();
  ASSERT_TRUE(Press("EditButton"));
  EXPECT_EQ(Panel().Find(kRevisions).GetMarking(), "");
  ASSERT_TRUE(Panel().Find<KorDlgRadioButton>(kByHand).Check());
  EXPECT_NE(Panel().Find(kRevisions).GetMarking(), "") << "the user asks for one again";
}

TEST_F(TypedTextsTest, ARevisionThatCouldNotBeLoadedIsAskedAboutAgainWhenTheSaveWasRefused) {
  Edit();
  ChooseRevision("C");
  Save();
  server->answer = [this](const std::string& command, const std::string& request) {
    const bool fails = command == "WBGetActiveDocInfo" || command == "WBSaveNymValues";
    return fails ? protocol::ErrorReply("locked") : real->Run(command, request);
  };
  Edit();
  ChooseRevision("B");
  boxes.answers = {kSaveAllTheSame};
  ClickSave();
  ASSERT_FALSE(IsEditing());
  ASSERT_TRUE(Press("EditButton"));
  EXPECT_NE(Panel().Find(kRevisions).GetMarking(), "") << "the choice by hand would still be lost";
}

TEST_F(TypedTextsTest, ARevisionThatCouldNotBeLoadedIsAskedAboutOnce) {
  server->answer = [this](const std::string& command, const std::string& request) {
    return command == "WBGetActiveDocInfo" ? protocol::ErrorReply("locked") : real->Run(command, request);
  };
  Edit();
  Save();
  Edit();
  ChooseRevision("B");
  EditProperty("Crane lifts", "many");
  boxes.answers = {kBack};
  ClickSave();
  const std::string told = Told();
  EXPECT_LT(told.find("ERROR!"), told.find("many")) << "in the order of the pages";
  EditProperty("Crane lifts", "4");
  boxes.answers = {kSaveAllTheSame};
  ClickSave();
  ASSERT_FALSE(window.PartPanel().HasUnsavedValues());
  ASSERT_TRUE(Press("EditButton"));
  EXPECT_EQ(Panel().Find(kRevisions).GetMarking(), "");
}

}  // namespace
}  // namespace desktop::test
