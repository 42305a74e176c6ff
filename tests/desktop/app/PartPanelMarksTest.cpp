// Texts that the part panel could not read are marked while they are typed.
#include "framework/knowledge/KorCkeParmDictionary.h"
#include "framework/knowledge/KorUnitSystems.h"
#include "tests/desktop/app/EditingHarness.h"

namespace desktop::test {
namespace {

using PartPanelMarksTest = EditingTest;

constexpr const char* kUpper = "TabContainer001.TabPage005.Frame252.PrecisionValueFrame.UpperValueEditor";
constexpr const char* kDensity = "TabContainer001.TabPage004.MaterialAndDensityFrame.DensityEditor";

TEST_F(PartPanelMarksTest, NothingIsMarkedInDisplayModeAndWhenEditingBegins) {
  EXPECT_EQ(MarkOf(kMass), "");
  Edit();
  EXPECT_EQ(MarkOf(kMass), "");
  EXPECT_EQ(MarkOf(kCGx), "");
}

TEST_F(PartPanelMarksTest, ATextThatIsNoNumberIsMarkedUntilItIsOne) {
  Edit();
  Type(kCGx, "about 3");
  EXPECT_EQ(MarkOf(kCGx), "\"about 3\" cannot be read as a number, with or without \"mm\" behind it.");
  Type(kCGx, "3 mm");
  EXPECT_EQ(MarkOf(kCGx), "");
}

TEST_F(PartPanelMarksTest, AMarkIsToldInTheLanguageThatIsChosenWhileItStands) {
  Edit();
  Type(kCGx, "about 3");
  ASSERT_TRUE(window.ChooseLanguage("de"));
  EXPECT_EQ(MarkOf(kCGx), "„about 3“ ist nicht als Zahl lesbar, ohne oder mit „mm“ dahinter.");
}

TEST_F(PartPanelMarksTest, ANumberInAnotherUnitIsMarkedBecauseOnlyItsNumberWouldBeRead) {
  Edit();
  Type(kCGx, "3 m");
  EXPECT_NE(MarkOf(kCGx), "");
}

TEST_F(PartPanelMarksTest, ASumInTheMassEditorIsNoError) {
  EditMass("2 * (3 + 4.5)");
  EXPECT_EQ(TextOf(kMass), "15");
  EXPECT_EQ(MarkOf(kMass), "");
}

TEST_F(PartPanelMarksTest, ASumThatCannotBeWorkedOutIsMarked) {
  EditMass("2 / 0");
  EXPECT_EQ(TextOf(kMass), "2 / 0");
  EXPECT_EQ(MarkOf(kMass),
            "\"2 / 0\" can be read neither as a number nor as a sum such as 2 * (3 + 4.5), with or without "
            "\"kg\" behind it.");
}

constexpr const char* kIxx = "TabContainer001.TabPage003.Frame113.MTMomentOfInertia.MTIxxEditor";
constexpr const char* kMassTypeCombo = "TabContainer001.TabPage003.Frame107.Frame231.MassTypeCombo";
constexpr const char* kValueTypeCombo =
    "TabContainer001.TabPage005.Frame252.PrecisionValueFrame.ValueTypeCombo";

TEST_F(PartPanelMarksTest, NoValueInPlaceOfAStoredOneIsMarkedSinceASaveWouldStoreZero) {
  Edit();
  Type(kCGx, "...");
  EXPECT_NE(MarkOf(kCGx), "");
  boxes.answers = {1};
  Press("SaveButton");
  ASSERT_EQ(boxes.Questions().size(), 1u);
  EXPECT_NE(boxes.Questions().front().text.Utf8().find("0 mm is stored"), std::string::npos);
}

TEST_F(PartPanelMarksTest, NoValueOfAMassTypeThatHasNoneIsNoError) {
  Edit();
  ASSERT_TRUE(Panel().Find<KorDlgCombo>(kMassTypeCombo).Pick("Weighed"));
  ASSERT_EQ(TextOf(kIxx), "...") << "it has a mass and a centre of gravity only";
  EXPECT_EQ(MarkOf(kIxx), "");
  Type(kCGx, "...");
  EXPECT_NE(MarkOf(kCGx), "");
}

TEST_F(PartPanelMarksTest, NoMassIsMarkedOnceAnotherValueOfItsMassTypeIsTyped) {
  Edit();
  ASSERT_TRUE(Panel().Find<KorDlgCombo>(kMassTypeCombo).Pick("Estimated"));
  ASSERT_TRUE(
      Panel().Find<KorDlgPushButton>("TabContainer001.TabPage003.Frame107.Frame231.DeleteButton").Press());
  ASSERT_EQ(TextOf(kMass), "...");
  EXPECT_EQ(MarkOf(kMass), "") << "nothing was typed that could be lost";
  Type(kCGx, "777");
  EXPECT_NE(MarkOf(kMass), "") << "nothing of the mass type would be stored";
  Type(kMass, "5");
  EXPECT_EQ(MarkOf(kMass), "");
  EXPECT_EQ(MarkOf(kIxx), "") << "a deleted mass type has no inertia";
}

TEST_F(PartPanelMarksTest, NoValueInPlaceOfTheMassIsMarked) {
  EditMass("...");
  EXPECT_NE(MarkOf(kMass), "");
}

TEST_F(PartPanelMarksTest, NoBoundIsMarkedOnlyOfAnotherValueTypeThanTheStoredOne) {
  Edit();
  GoTo(kPrecisionPage);
  ASSERT_TRUE(Panel().Find<KorDlgCombo>("TabContainer001.TabPage005.Frame252.Frame092.TypeCombo").Pick(1));
  Type(kUpper, "...");
  EXPECT_EQ(MarkOf(kUpper), "") << "the stored one is kept";
  ASSERT_TRUE(Panel().Find<KorDlgCombo>(kValueTypeCombo).Pick("Absolute"));
  ASSERT_EQ(TextOf(kUpper), "...");
  EXPECT_NE(MarkOf(kUpper), "") << "0 kg would be stored";
}

/// Texts as they come from typeset tables: the panel's reader takes no number, or another one, from them.
class TypesetTextTest : public EditingTest, public testing::WithParamInterface<const char*> {};

TEST_P(TypesetTextTest, IsMarkedWhereverANumberIsTyped) {
  const std::string text = GetParam();
  Edit();
  Type(kMass, text);
  EXPECT_NE(MarkOf(kMass), "");
  Type(kCGx, text);
  EXPECT_NE(MarkOf(kCGx), "");
  GoTo(kMaterialPage);
  ASSERT_TRUE(
      Panel().Find<KorDlgCombo>("TabContainer001.TabPage004.DensityPriorityFrame.FirstCombo").Pick("WB"));
  Type(kDensity, text);
  EXPECT_NE(MarkOf(kDensity), "");
  GoTo(kPrecisionPage);
  ASSERT_TRUE(Panel().Find<KorDlgCombo>("TabContainer001.TabPage005.Frame252.Frame092.TypeCombo").Pick(1));
  Type(kUpper, text);
  EXPECT_NE(MarkOf(kUpper), "");
  for (const char* property : {"Crane lifts", "Transport mass"}) {
    ShowProperty(property);
    Type(kPropertyValue, text);
    EXPECT_NE(MarkOf(kPropertyValue), "") << property;
  }
}

INSTANTIATE_TEST_SUITE_P(MinusAndBlanks, TypesetTextTest,
                         testing::Values("\u2212"
                                         "12",
                                         "\u00a0"
                                         "12",
                                         "\u2009"
                                         "12",
                                         "\u202f"
                                         "12",
                                         "1e\u22123", "12\u00a0"));

TEST_F(PartPanelMarksTest, ABlankOfATypesetTextBeforeTheUnitIsNoError) {
  Edit();
  Type(kCGx, "12.5\u00a0mm");
  EXPECT_EQ(MarkOf(kCGx), "");
  Save();
  EXPECT_EQ(TextOf(kCGx), "12.5 mm");
}

TEST_F(PartPanelMarksTest, ANumberThatIsNotFiniteIsMarked) {
  Edit();
  for (const char* text : {"1e999", "inf", "nan"}) {
    Type(kCGx, text);
    EXPECT_NE(MarkOf(kCGx), "") << text;
  }
}

TEST_F(PartPanelMarksTest, ANumberThatIsTooLargeInTheStorageUnitIsMarkedOnEveryPage) {
  const auto choose = [](const char* magnitude, const char* unit) {
    auto found = KorCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(magnitude);
    ASSERT_EQ(found->SetCurrentUnit(unit), S_OK);
  };
  choose("MASS", "TONNE");
  choose("LENGTH", "METER");
  Edit();
  Type(kMass, "1e306");
  EXPECT_EQ(MarkOf(kMass), "\"1e306\" is too large to be stored.");
  Type(kCGx, "1e306 m");
  EXPECT_EQ(MarkOf(kCGx), "\"1e306 m\" is too large to be stored.");
  GoTo(kPrecisionPage);
  ASSERT_TRUE(Panel().Find<KorDlgCombo>("TabContainer001.TabPage005.Frame252.Frame092.TypeCombo").Pick(1));
  ASSERT_TRUE(Panel()
                  .Find<KorDlgCombo>("TabContainer001.TabPage005.Frame252.PrecisionValueFrame.ValueTypeCombo")
                  .Pick(1));
  Type(kUpper, "1e306 t");
  EXPECT_EQ(MarkOf(kUpper), "\"1e306 t\" is too large to be stored.");
  KorApplyUnitSystem("Mixed");
}

TEST_F(PartPanelMarksTest, ALongTextIsNotToldWhole) {
  Edit();
  Type(kCGx, std::string(5'000'000, 'x'));
  EXPECT_LT(MarkOf(kCGx).size(), 200u);
  EXPECT_NE(MarkOf(kCGx), "");
}

TEST_F(PartPanelMarksTest, ABoundIsReadInPercentOrAsAMassAsItsKindSays) {
  Edit();
  GoTo(kPrecisionPage);
  ASSERT_TRUE(Panel().Find<KorDlgCombo>("TabContainer001.TabPage005.Frame252.Frame092.TypeCombo").Pick(1));
  Type(kUpper, "5 kg");
  EXPECT_NE(MarkOf(kUpper), "");
  Type(kUpper, "5 %");
  EXPECT_EQ(MarkOf(kUpper), "");
}

TEST_F(PartPanelMarksTest, ABoundThatCannotBeTypedIsNotMarked) {
  Edit();
  GoTo(kPrecisionPage);
  auto& type = Panel().Find<KorDlgCombo>("TabContainer001.TabPage005.Frame252.Frame092.TypeCombo");
  ASSERT_TRUE(type.Pick(1));
  Type(kUpper, "much");
  ASSERT_NE(MarkOf(kUpper), "");
  ASSERT_TRUE(type.Pick(0));
  EXPECT_EQ(MarkOf(kUpper), "");
}

TEST_F(PartPanelMarksTest, NoDensityIsNoError) {
  Edit();
  GoTo(kMaterialPage);
  ASSERT_TRUE(
      Panel().Find<KorDlgCombo>("TabContainer001.TabPage004.DensityPriorityFrame.FirstCombo").Pick("WB"));
  Type(kDensity, "heavy");
  EXPECT_NE(MarkOf(kDensity), "");
  Type(kDensity, "");
  EXPECT_EQ(MarkOf(kDensity), "");
}

/// A text for a property of the sample, in the mixed units, and what its mark says.
struct PropertyText {
  const char* what;
  const char* property;
  const char* text;
  const char* mark;
};

void PrintTo(const PropertyText& row, std::ostream* out) { *out << row.what; }

class PropertyMarksTest : public EditingTest, public testing::WithParamInterface<PropertyText> {};

TEST_P(PropertyMarksTest, TellWhatThePropertyCannotTake) {
  Edit();
  EditProperty(GetParam().property, GetParam().text);
  EXPECT_EQ(MarkOf(kPropertyValue), GetParam().mark);
}

INSTANTIATE_TEST_SUITE_P(
    Types, PropertyMarksTest,
    testing::Values(PropertyText{"Text", "Supplier", "anything 4x", ""},
                    PropertyText{"Integer", "Crane lifts", "3", ""},
                    PropertyText{"NoInteger", "Crane lifts", "2.5",
                                 "\"2.5\" cannot be read as a whole number."},
                    PropertyText{"Date", "Last weighing", "2024-02-29", ""},
                    PropertyText{"DateThatDoesNotExist", "Last weighing", "2023-02-29",
                                 "\"2023-02-29\" is no date of the form YYYY-MM-DD."},
                    PropertyText{"Real", "Load factor", "-1.5e-3", ""},
                    PropertyText{"NoReal", "Load factor", "1,5", "\"1,5\" cannot be read as a number."},
                    PropertyText{"Magnitude", "Overall length", "9350.5 mm", ""},
                    PropertyText{"MagnitudeWithoutUnit", "Overall length", "9350.5", ""},
                    PropertyText{"MagnitudeInAnotherUnit", "Overall length", "9.35 m",
                                 "\"9.35 m\" cannot be read as a number, with or without \"mm\" behind it."},
                    PropertyText{"Blanks", "Overall length", "  ", ""}),
    [](const auto& row) { return row.param.what; });

TEST_F(PartPanelMarksTest, AMarkOfAPropertyGoesWhenAnotherPropertyIsShown) {
  Edit();
  EditProperty("Supplier", "Nordguss 2");
  EditProperty("Crane lifts", "many");
  ASSERT_NE(MarkOf(kPropertyValue), "");
  ShowProperty("Supplier");
  EXPECT_EQ(TextOf(kPropertyValue), "Nordguss 2");
  EXPECT_EQ(MarkOf(kPropertyValue), "");
}

TEST_F(PartPanelMarksTest, AMarkGoesWithEditMode) {
  Edit();
  Type(kCGx, "about 3");
  constexpr int kSaveAllTheSame = 0;
  boxes.answers = {kSaveAllTheSame};
  Save();
  EXPECT_FALSE(IsEditing());
  EXPECT_EQ(MarkOf(kCGx), "");
}

TEST_F(PartPanelMarksTest, AMarkGoesWhenAnotherMassTypeIsShown) {
  Edit();
  Type(kCGx, "about 3");
  boxes.answers = {kGiveUp};
  ASSERT_TRUE(Panel()
                  .Find<KorDlgCombo>("TabContainer001.TabPage003.Frame107.Frame231.MassTypeCombo")
                  .Pick("Computed"));
  EXPECT_EQ(MarkOf(kCGx), "");
}

TEST_F(PartPanelMarksTest, AMarkGoesWhenAnotherPartIsShown) {
  Edit();
  Type(kCGx, "about 3");
  boxes.answers = {kGiveUp};
  Select({"nacelle.1", "yaw.1"});
  RunPendingEvents();
  EXPECT_EQ(MarkOf(kCGx), "");
}

}  // namespace
}  // namespace desktop::test
