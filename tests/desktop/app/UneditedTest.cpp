// What nobody edits stays in the store exactly as it was, in whatever units and with however few digits it is
// shown.
#include "framework/knowledge/KorUnitSystems.h"
#include "protocol/Codec.h"
#include "tests/desktop/app/EditingHarness.h"

namespace desktop::test {
namespace {

class UneditedTest : public EditingTest {
 protected:
  static constexpr const char* kProperties[] = {"Supplier",        "Crane lifts",    "Last weighing",
                                                "Load factor",     "Overall length", "Transport mass",
                                                "Painting density"};
  void TearDown() override {
    EditingTest::TearDown();
    KorApplyUnitSystem("Mixed");
    KorCkeUnit::SetShownDigits(10);
  }
  /// Looks at each page and each property on the way.
  void SaveUneditedWithShown(const char* massType) {
    GoTo(kMassTypesPage);
    ASSERT_TRUE(Panel()
                    .Find<KorDlgCombo>("TabContainer001.TabPage003.Frame107.Frame231.MassTypeCombo")
                    .Pick(massType));
    ASSERT_TRUE(Press("EditButton"));
    for (const Page page : {kResultsPage, kMaterialPage, kPrecisionPage, kDocumentsPage}) GoTo(page);
    for (const char* property : kProperties) ShowProperty(property);
    Save();
  }
  void SaveUnedited(const std::vector<std::string>& instancePath) {
    Select(instancePath);
    RunPendingEvents();
    ASSERT_TRUE(Press("EditButton"));
    Save();
    EXPECT_TRUE(boxes.Messages().empty());
  }
  /// Chooses a unit as the dialog of units does.
  void ShowIn(const char* magnitude, const KorString& unit) {
    const auto found = KorCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(magnitude);
    ASSERT_EQ(found->SetCurrentUnit(unit), S_OK);
    window.UnitsChanged();
  }
  void ShowIn(const char* system) {
    ASSERT_EQ(KorApplyUnitSystem(system), S_OK);
    window.UnitsChanged();
  }
  void ShowDigits(int digits) {
    KorCkeUnit::SetShownDigits(digits);
    window.UnitsChanged();
  }
};

/// A save that changes something gives the part another state; which one says nothing of its values.
std::string WithoutToken(const std::string& part) {
  auto data = protocol::ReadPartData(part);
  EXPECT_TRUE(data.Ok()) << data.Failure().message;
  data.Value().stateToken.clear();
  return protocol::WritePartData(data.Value());
}

class UneditedUnitsTest : public UneditedTest, public testing::WithParamInterface<const char*> {};

/// The bedplate has documents, properties of each type and bounds that a user has typed.
TEST_P(UneditedUnitsTest, ValuesStayExactlyAsTheyWereUnderEachUnit) {
  const std::string before = StoredPart();
  for (const char* content : {"DOC-BEDPLATE", "Overall length|9.2|", "|0.01|0.015|"})
    ASSERT_NE(before.find(content), before.npos) << before;
  const auto magnitude = KorCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(GetParam());
  ASSERT_GE(magnitude->Units().size(), 3u);
  for (const KorCkeUnit_var& unit : magnitude->Units()) {
    ShowIn(GetParam(), unit->Name());
    for (const char* massType : {"Calculated", "Computed"}) {
      SaveUneditedWithShown(massType);
      EXPECT_EQ(StoredPart(), before) << unit->Name() << ", " << massType;
    }
  }
  EXPECT_TRUE(boxes.Messages().empty());
}

INSTANTIATE_TEST_SUITE_P(Magnitudes, UneditedUnitsTest,
                         testing::Values("MASS", "LENGTH", "INERTIAMOMENT", "DENSITY", "SURFACICMASS"));

/// Its user bounds are masses, and its revision the attached one.
TEST_F(UneditedTest, APartWithAbsoluteBoundsStaysExactlyAsItWasWhenNobodyEditsIt) {
  const std::string before = StoredPart("generator_rotor");
  ASSERT_NE(before.find("|1|65|65|130|130|"), before.npos) << before;
  ShowIn("Imperial");
  SaveUnedited({"nacelle.1", "Above_yaw.1", "generator.1", "generator_rotor.1"});
  EXPECT_EQ(StoredPart("generator_rotor"), before);
}

TEST_F(UneditedTest, APartWithARevisionChosenByHandStaysExactlyAsItWasWhenNobodyEditsIt) {
  const std::string before = StoredPart("cover");
  ASSERT_NE(before.find("|DOC-COVER|B|0|1|"), before.npos) << before;
  SaveUnedited({"nacelle.1", "Above_yaw.1", "cover.1"});
  EXPECT_EQ(StoredPart("cover"), before);
}

// ---- fewer digits than are stored ----

TEST_F(UneditedTest, ValuesStayExactlyAsTheyWereWhenFourDigitsOfThemAreShown) {
  const std::string before = StoredPart();
  ASSERT_NE(before.find("42274.27441488182"), before.npos) << before;
  ShowDigits(4);
  Edit();
  EXPECT_EQ(TextOf(kMass), "4.227e+04 kg");
  EXPECT_EQ(TextOf(kCGx), "-1281 mm");
  Save();
  for (const char* massType : {"Calculated", "Computed", "Estimated"}) {
    SaveUneditedWithShown(massType);
    EXPECT_EQ(StoredPart(), before) << massType;
  }
  EXPECT_TRUE(boxes.Messages().empty());
}

TEST_F(UneditedTest, ValuesStayExactlyAsTheyWereWhenFourDigitsOfThemAreShownInEachSystemOfUnits) {
  const std::string before = StoredPart();
  ShowDigits(4);
  for (const KorUnitSystem& system : KorGetUnitSystems()) {
    ShowIn(system.name);
    SaveUneditedWithShown("Calculated");
    EXPECT_EQ(StoredPart(), before) << system.name;
  }
}

/// No inertia is shown as "...", and a text that is no number counts as 0: so it is stored.
TEST_F(UneditedTest, AMassTypeWithoutInertiaHasOneOfZeroAfterASaveThatShowsIt) {
  std::string expected = StoredPart();
  const std::string none = "|42310|-1.28|0|2.59|__null__|";
  ASSERT_NE(expected.find(none), expected.npos) << expected;
  SaveUneditedWithShown("Weighed");
  expected.replace(expected.find(none), none.size(), "|42310|-1.28|0|2.59|0|0|0|0|0|0|");
  EXPECT_EQ(WithoutToken(StoredPart()), WithoutToken(expected)) << "and nothing else has changed";
}

TEST_F(UneditedTest, BoundsOfTheActiveMassTypeThatAreMassesStayExactlyAsTheyWereWhenFourDigitsAreShown) {
  constexpr const char* kActive = "TabContainer001.TabPage003.Frame230.ActiveMassCombo";
  Select({"nacelle.1", "Above_yaw.1", "generator.1", "generator_rotor.1"});
  RunPendingEvents();
  Edit();
  ASSERT_TRUE(Panel().Find<KorDlgCombo>(kActive).Pick("Weighed"));
  Save();
  const std::string before = StoredPart("generator_rotor");
  ASSERT_NE(before.find("|1|65|65|130|130|"), before.npos) << before;
  ShowDigits(4);
  ShowIn("Imperial");
  Edit();
  GoTo(kPrecisionPage);
  // 65 kg / 0.45359237
  EXPECT_EQ(TextOf("TabContainer001.TabPage005.Frame252.PrecisionValueFrame.LowerValueEditor"), "143.3 lb");
  Save();
  EXPECT_EQ(StoredPart("generator_rotor"), before);
}

// ---- one value edited, all others not ----

/// A text for one editor in one choice of units, and the number that is to be stored, in SI.
struct EditedValue {
  const char* what;
  void (*choose)();  ///< the units
  enum { kMassTypesPage = 1, kMaterialPage, kPrecisionPage } page;
  const char* editor;
  const char* text;
  double stored;
  double& (*field)(protocol::PartData&);
};

void PrintTo(const EditedValue& row, std::ostream* out) { *out << row.what; }

void Imperial() { KorApplyUnitSystem("Imperial"); }

void TonnesAndFeet() {
  const KorUnitChoice choices[] = {
      {"MASS", "TONNE"}, {"LENGTH", "FOOT"}, {"INERTIAMOMENT", "T_M2"}, {"DENSITY", "G__CM3"}};
  for (const KorUnitChoice& choice : choices)
    KorCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(choice.magnitude)->SetCurrentUnit(choice.unit);
}

protocol::MassType& Calculated(protocol::PartData& data) {
  return *std::ranges::find(data.massTypes, "Calculated", &protocol::MassType::name);
}
double& Mass(protocol::PartData& data) { return *Calculated(data).mass; }
double& CGx(protocol::PartData& data) { return (*Calculated(data).cg)[0]; }
double& CGz(protocol::PartData& data) { return (*Calculated(data).cg)[2]; }
double& Ixx(protocol::PartData& data) { return (*Calculated(data).inertia)[0]; }
double& Izz(protocol::PartData& data) { return (*Calculated(data).inertia)[2]; }
double& ElementXz(protocol::PartData& data) { return (*Calculated(data).inertia)[4]; }
double& Lower(protocol::PartData& data) { return Calculated(data).lowerPrecision; }
double& Upper(protocol::PartData& data) { return Calculated(data).upperPrecision; }
double& Density(protocol::PartData& data) { return *data.material.density; }

constexpr const char* kMassEditor = "TabContainer001.TabPage003.Frame107.Frame231.MTMassEditor";
constexpr const char* kCGxEditor = "TabContainer001.TabPage003.Frame113.MTCGFrame.MTCGxEditor";
constexpr const char* kIxx = "TabContainer001.TabPage003.Frame113.MTMomentOfInertia.MTIxxEditor";
constexpr const char* kIzz = "TabContainer001.TabPage003.Frame113.MTMomentOfInertia.MTIzzEditor";
constexpr const char* kIxz = "TabContainer001.TabPage003.Frame113.MTProductOfInertia.MTIxzEditor";
constexpr const char* kCGz = "TabContainer001.TabPage003.Frame113.MTCGFrame.MTCGzEditor";
constexpr const char* kDensity = "TabContainer001.TabPage004.MaterialAndDensityFrame.DensityEditor";
constexpr const char* kLower = "TabContainer001.TabPage005.Frame252.PrecisionValueFrame.LowerValueEditor";
constexpr const char* kUpper = "TabContainer001.TabPage005.Frame252.PrecisionValueFrame.UpperValueEditor";

class OneEditedTest : public UneditedTest, public testing::WithParamInterface<EditedValue> {};

TEST_P(OneEditedTest, ItAloneIsStoredAndAllOthersStayExactlyAsTheyWere) {
  const EditedValue& row = GetParam();
  protocol::PartData expected = protocol::ReadPartData(StoredPart()).Value();
  ASSERT_NE(row.field(expected), row.stored);
  row.choose();
  ShowDigits(4);
  Edit();
  GoTo(static_cast<Page>(row.page));
  Type(row.editor, row.text);
  Save();
  protocol::PartData after = protocol::ReadPartData(StoredPart()).Value();
  EXPECT_DOUBLE_EQ(row.field(after), row.stored);
  row.field(expected) = row.field(after);
  // They tell of the part's own material.
  expected.material.statistics.at(0).density = Density(expected);
  EXPECT_EQ(WithoutToken(StoredPart()), WithoutToken(protocol::WritePartData(expected)));
  EXPECT_TRUE(boxes.Messages().empty());
}

// One pound is 0.45359237 kg, one inch 0.0254 m, one foot 0.3048 m.
INSTANTIATE_TEST_SUITE_P(
    Imperial, OneEditedTest,
    testing::Values(
        EditedValue{"Mass", Imperial, EditedValue::kMassTypesPage, kMassEditor, "100000", 45359.237, Mass},
        EditedValue{"CGx", Imperial, EditedValue::kMassTypesPage, kCGxEditor, "-50 in", -1.27, CGx},
        // 1.9e9 * 0.45359237 * 0.0254 * 0.0254
        EditedValue{"Ixx", Imperial, EditedValue::kMassTypesPage, kIxx, "1.9e9", 556015.34151548, Ixx},
        // 0.25 * 0.45359237 / 0.0254^3
        EditedValue{"Density", Imperial, EditedValue::kMaterialPage, kDensity, "0.25", 6919.976177550781,
                    Density},
        EditedValue{"LowerBound", Imperial, EditedValue::kPrecisionPage, kLower, "2", 0.02, Lower}),
    [](const auto& row) { return row.param.what; });

INSTANTIATE_TEST_SUITE_P(
    TonnesAndFeet, OneEditedTest,
    testing::Values(
        EditedValue{"Mass", TonnesAndFeet, EditedValue::kMassTypesPage, kMassEditor, "43.5 t", 43500, Mass},
        EditedValue{"CGz", TonnesAndFeet, EditedValue::kMassTypesPage, kCGz, "8.5", 2.5908, CGz},
        EditedValue{"Izz", TonnesAndFeet, EditedValue::kMassTypesPage, kIzz, "410.5", 410500, Izz},
        // The editor shows the product of inertia, which is the element negated.
        EditedValue{"Ixz", TonnesAndFeet, EditedValue::kMassTypesPage, kIxz, "-180", 180000, ElementXz},
        EditedValue{"Density", TonnesAndFeet, EditedValue::kMaterialPage, kDensity, "7.15", 7150, Density},
        EditedValue{"UpperBound", TonnesAndFeet, EditedValue::kPrecisionPage, kUpper, "2.5%", 0.025, Upper}),
    [](const auto& row) { return row.param.what; });

TEST_F(UneditedTest, APropertyThatIsEditedAloneIsStoredAndAllElseStaysExactlyAsItWas) {
  std::string expected = StoredPart();
  const std::string length = "|Overall length|9.2|";
  ASSERT_NE(expected.find(length), expected.npos) << expected;
  Imperial();
  ShowDigits(4);
  Edit();
  EditProperty("Overall length", "370 in");
  Save();
  expected.replace(expected.find(length), length.size(), "|Overall length|9.398|");  // 370 * 0.0254
  EXPECT_EQ(WithoutToken(StoredPart()), WithoutToken(expected));
}

}  // namespace
}  // namespace desktop::test
