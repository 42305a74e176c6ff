// The mass-types page in edit mode.

#include "framework/knowledge/KorCkeParmDictionary.h"
#include "protocol/Codec.h"
#include "tests/module/EditingTest.h"

namespace {

using testing::ElementsAre;

constexpr const char* kEstimated =
    "4 kg; 1000 mm, 0 mm, 0 mm; 5 kg·m², 6 kg·m², 7 kg·m²; 0 kg·m², 0 kg·m², 0 kg·m²";
constexpr const char* kComputed =
    "2 kg; 100 mm, 200 mm, 300 mm; 10 kg·m², 20 kg·m², 30 kg·m²; 1 kg·m², 2 kg·m², 3 kg·m²";
constexpr const char* kNothing = "...; ..., ..., ...; ..., ..., ...; ..., ..., ...";

protocol::PartData WithActive(const char* massType) {
  protocol::PartData part = SamplePart();
  part.activeMassType = massType;
  return part;
}

protocol::PartData StandardPart(const char* activeMassType) {
  protocol::PartData part = WithActive(activeMassType);
  part.standardPart = true;
  return part;
}

class MassTypesEditing : public EditingTest {
 protected:
  void EditPage(const protocol::PartData& part) { Edit(part, "TabPage003"); }
  std::vector<KorUnicodeString> PasteLines() { return As<KorDlgCombo>("MTPasteValuesCombo").GetLines(); }
  std::string BufferText() {
    KorUnicodeString text;
    EXPECT_EQ(Buffer().GetAllData(text), S_OK);
    return text.Utf8();
  }
};

// ---- showing another mass type ----

TEST_F(MassTypesEditing, AListOfThreeNamesFillsBothCombosAlikeAndTheActiveTypeIsSelectedInBoth) {
  EditPage(WithActive("Estimated"));
  for (const char* combo : {"MassTypeCombo", "ActiveMassCombo"}) {
    EXPECT_THAT(As<KorDlgCombo>(combo).GetLines(), ElementsAre("Computed", "Estimated", "Weighed"));
    EXPECT_EQ(SelectedLine(combo), "Estimated");
  }
}

TEST_F(MassTypesEditing, AUserMassTypeCanBeTypedAndPasted) {
  EditPage(SamplePart());
  Pick("MassTypeCombo", "Estimated");
  EXPECT_TRUE(IsEnabled("MTMassEditor"));
  EXPECT_EQ(EditableDistribution(), 9);
  EXPECT_TRUE(IsEnabled("MTPasteValuesCombo"));
  EXPECT_THAT(PasteLines(), ElementsAre("", "Computed", "Weighed"));
  EXPECT_EQ(SelectedLine("MTPasteValuesCombo"), "");
}

TEST_F(MassTypesEditing, TheMassAloneOfAStandardPartCanBeTyped) {
  EditPage(StandardPart("Computed"));
  Pick("MassTypeCombo", "Estimated");
  EXPECT_TRUE(IsEnabled("MTMassEditor"));
  EXPECT_EQ(EditableDistribution(), 0);
  EXPECT_TRUE(IsEnabled("MTPasteValuesCombo"));
}

TEST_F(MassTypesEditing, NothingOfTheComputedTypeCanBeTypedOrPasted) {
  EditPage(WithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "3 kg");
  Pick("MassTypeCombo", "Computed");
  EXPECT_FALSE(IsEnabled("MTMassEditor"));
  EXPECT_EQ(EditableDistribution(), 0);
  EXPECT_FALSE(IsEnabled("MTPasteValuesCombo"));
  EXPECT_FALSE(IsEnabled("UpdatePropertiesButton"));
  EXPECT_THAT(PasteLines(), ElementsAre());
  EXPECT_EQ(MTValues(), kComputed);
}

TEST_F(MassTypesEditing, AnotherMassTypeOffersMaterialAndDensityWhateverThePriorityOnPurpose) {
  protocol::PartData part = SamplePart();
  part.material.densityPriority = 1;
  for (const char* massType : {"Estimated", "Computed"}) {
    EditPage(part);
    EXPECT_FALSE(IsEnabled("DensityEditor"));
    Pick("MassTypeCombo", massType);
    for (const char* widget : {"DensityEditor", "WBMaterialEditor", "FirstCombo", "TypeCombo", "SaveButton"})
      EXPECT_TRUE(IsEnabled(widget)) << massType << widget;
    Close();
  }
}

TEST_F(MassTypesEditing, AnotherMassTypeOffersTheBoundsOnlyWhenTheyAreTheUsers) {
  for (const int type : {0, 1}) {
    protocol::PartData part = SamplePart();
    part.massTypes[0].precisionType = type;
    EditPage(part);
    Pick("MassTypeCombo", "Estimated");
    for (const char* widget : {"UpperValueEditor", "LowerValueEditor", "ValueTypeCombo"})
      EXPECT_EQ(IsEnabled(widget), type == 1) << widget;
    Close();
  }
}

TEST_F(MassTypesEditing, OutsideEditModeAnotherMassTypeOffersNothing) {
  Open(SamplePart());
  PickPage("TabPage003");
  Pick("MassTypeCombo", "Estimated");
  for (const char* widget : {"MTMassEditor", "MTCGxEditor", "DensityEditor", "SaveButton", "DeleteButton"})
    EXPECT_FALSE(IsEnabled(widget)) << widget;
  EXPECT_THAT(PasteLines(), ElementsAre());
}

TEST_F(MassTypesEditing, ShowingAnUndefinedMassTypeFillsAllTenEditorsWithDots) {
  EditPage(SamplePart());
  Pick("MassTypeCombo", "Weighed");
  EXPECT_EQ(MTValues(), kNothing);
  EXPECT_TRUE(IsEnabled("MTMassEditor"));
}

TEST_F(MassTypesEditing, ShowingAUserMassTypeOfAStandardPartShowsItsMassAndDots) {
  EditPage(StandardPart("Computed"));
  Pick("MassTypeCombo", "Estimated");
  EXPECT_EQ(MTValues(), "4 kg; ..., ..., ...; ..., ..., ...; ..., ..., ...");
}

TEST_F(MassTypesEditing, WithAMassOfZeroTheInertiaIsShownWithoutTheMove) {
  protocol::PartData part = WithActive("Estimated");
  part.massTypes[1].mass = 0;
  Open(part);
  Check("ReferenceButton");
  EXPECT_EQ(Panel().RefreshMassTypeTab(), S_OK);
  EXPECT_EQ(MTMoments(), "5 kg·m², 6 kg·m², 7 kg·m²");
}

TEST_F(MassTypesEditing, ThePageEndsWithTheStoredInertiaAlsoAtTheReferencePointOnPurpose) {
  EditPage(SamplePart());
  LookAtTheReferencePoint();
  Pick("MassTypeCombo", "Estimated");
  EXPECT_EQ(MTMoments(), "5 kg·m², 6 kg·m², 7 kg·m²");
}

// ---- deleting ----

TEST_F(MassTypesEditing, AMassTypeThatIsNeitherComputedNorActiveCanBeDeleted) {
  EditPage(SamplePart());
  EXPECT_FALSE(IsEnabled("DeleteButton"));
  Pick("MassTypeCombo", "Estimated");
  EXPECT_TRUE(IsEnabled("DeleteButton"));
  Pick("MassTypeCombo", "Computed");
  EXPECT_FALSE(IsEnabled("DeleteButton"));
}

TEST_F(MassTypesEditing, TheActiveMassTypeLeavesTheDeleteButtonAsItIsOnPurpose) {
  EditPage(SamplePart());
  Pick("MassTypeCombo", "Estimated");
  Pick("ActiveMassCombo", "Weighed");
  EXPECT_TRUE(IsEnabled("DeleteButton"));
  Pick("ActiveMassCombo", "Estimated");  // itself becomes the active one
  EXPECT_FALSE(IsEnabled("DeleteButton"));
  Pick("MassTypeCombo", "Estimated");
  EXPECT_FALSE(IsEnabled("DeleteButton"));
}

TEST_F(MassTypesEditing, AnUndefinedMassTypeLeavesTheDeleteButtonAsItIsOnPurpose) {
  EditPage(SamplePart());
  Pick("MassTypeCombo", "Estimated");
  Pick("MassTypeCombo", "Weighed");
  EXPECT_TRUE(IsEnabled("DeleteButton"));
}

TEST_F(MassTypesEditing, ADeleteButtonThatIsOffStaysOffWhenAnotherTypeBecomesActiveOnPurpose) {
  EditPage(WithActive("Estimated"));
  EXPECT_FALSE(IsEnabled("DeleteButton"));
  Pick("ActiveMassCombo", "Weighed");
  EXPECT_FALSE(IsEnabled("DeleteButton"));
}

TEST_F(MassTypesEditing, AUserMassTypeOfAStandardPartLeavesTheDeleteButtonAsItIsOnPurpose) {
  EditPage(StandardPart("Computed"));
  Pick("MassTypeCombo", "Estimated");
  EXPECT_FALSE(IsEnabled("DeleteButton"));
}

// ---- pasting ----

TEST_F(MassTypesEditing, PastingTakesAllValuesOfTheSource) {
  EditPage(WithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  EXPECT_EQ(MTValues(), kComputed);
  EXPECT_EQ(EditableDistribution(), 9);
}

TEST_F(MassTypesEditing, PastingTheEmptyLineChangesNothing) {
  EditPage(WithActive("Estimated"));
  Type("MTMassEditor", "9 kg");
  Pick("MTPasteValuesCombo", "");
  EXPECT_EQ(MTValues(), "9 kg; 1000 mm, 0 mm, 0 mm; 5 kg·m², 6 kg·m², 7 kg·m²; 0 kg·m², 0 kg·m², 0 kg·m²");
}

TEST_F(MassTypesEditing, PastingLeavesTheBufferAsItIs) {
  EditPage(WithActive("Estimated"));
  const std::string before = BufferText();
  Pick("MTPasteValuesCombo", "Computed");
  EXPECT_EQ(BufferText(), before);
}

TEST_F(MassTypesEditing, PastingAnUndefinedMassTypeLeavesTheValues) {
  EditPage(WithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Weighed");
  EXPECT_EQ(MTValues(), kEstimated);
}

TEST_F(MassTypesEditing, PastingAnOutOfDateResultLeavesTheValues) {
  protocol::PartData part = WithActive("Estimated");
  part.massTypes[0].status = protocol::MassTypeStatus::OutOfDate;
  EditPage(part);
  Pick("MTPasteValuesCombo", "Computed");
  EXPECT_EQ(MTValues(), kEstimated);
}

TEST_F(MassTypesEditing, PastingWhatLacksACentreAndInertiaTakesTheMassAlone) {
  protocol::PartData part = WithActive("Estimated");
  part.massTypes[0].cg.reset();
  part.massTypes[0].inertia.reset();
  EditPage(part);
  Pick("MTPasteValuesCombo", "Computed");
  EXPECT_EQ(MTValues(), "2 kg; 1000 mm, 0 mm, 0 mm; 5 kg·m², 6 kg·m², 7 kg·m²; 0 kg·m², 0 kg·m², 0 kg·m²");
}

TEST_F(MassTypesEditing, PastingIntoAStandardPartTakesTheMassAlone) {
  EditPage(StandardPart("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  EXPECT_EQ(MTValues(), "2 kg; ..., ..., ...; ..., ..., ...; ..., ..., ...");
  EXPECT_EQ(EditableDistribution(), 0);
}

// 2 kg at (0.1, 0.2, 0.3) m from the point: + 2·(0.13, 0.10, 0.05) and, as products, + 2·(0.02, 0.03, 0.06).
TEST_F(MassTypesEditing, PastingAtTheReferencePointMovesTheInertiaThere) {
  EditPage(WithActive("Estimated"));
  LookAtTheReferencePoint();
  Pick("MTPasteValuesCombo", "Computed");
  EXPECT_EQ(MTMoments(), "10.26 kg·m², 20.2 kg·m², 30.1 kg·m²");
  EXPECT_EQ(MTProducts(), "1.04 kg·m², 2.06 kg·m², 3.12 kg·m²");
}

TEST_F(MassTypesEditing, PastingAMassOfZeroDoesNotMoveTheInertia) {
  protocol::PartData part = WithActive("Estimated");
  part.massTypes[0].mass = 0;
  EditPage(part);
  LookAtTheReferencePoint();
  Pick("MTPasteValuesCombo", "Computed");
  EXPECT_EQ(MTMoments(), "10 kg·m², 20 kg·m², 30 kg·m²");
}

TEST_F(MassTypesEditing, OutsideEditModeNothingIsPasted) {
  Open(WithActive("Estimated"));
  PickPage("TabPage003");
  auto& paste = As<KorDlgCombo>("MTPasteValuesCombo");
  paste.SetLine("");
  paste.SetLine("Computed");
  Pick("MTPasteValuesCombo", "Computed");
  EXPECT_EQ(MTValues(), kEstimated);
  EXPECT_EQ(EditableDistribution(), 0);
}

TEST_F(MassTypesEditing, PastingWithoutAMagnitudeLeavesItsEditors) {
  KorCkeParmDictionary* all = KorCkeGlobalFunctions::GetParmDictionary();
  KorCkeParmDictionary dictionary;
  dictionary.AddMagnitude(all->FindMagnitude("MASS"));
  EditPage(WithActive("Estimated"));
  KorCkeGlobalFunctions::SetParmDictionary(&dictionary);
  Pick("MTPasteValuesCombo", "Computed");
  EXPECT_EQ(MTValues(), "2 kg; 1000 mm, 0 mm, 0 mm; 5 kg·m², 6 kg·m², 7 kg·m²; 0 kg·m², 0 kg·m², 0 kg·m²");
  KorCkeGlobalFunctions::RestoreParmDictionary();
}

TEST_F(MassTypesEditing, WithoutABufferNothingIsPastedWorkedOutOrRescaled) {
  EditPage(WithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  Panel().SetModel(nullptr);
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "1+1");
  Pick("MassTypeCombo", "Weighed");
  Press("UpdatePropertiesButton");
  EXPECT_EQ(MTValues(),
            "1+1; 100 mm, 200 mm, 300 mm; 10 kg·m², 20 kg·m², 30 kg·m²; 1 kg·m², 2 kg·m², 3 kg·m²");
  EXPECT_TRUE(IsEnabled("UpdatePropertiesButton"));
}

// ---- typing a mass ----

TEST_F(MassTypesEditing, AnArithmeticExpressionIsReplacedByItsValue) {
  EditPage(WithActive("Estimated"));
  Type("MTMassEditor", "2*(3+4)");
  EXPECT_EQ(Text("MTMassEditor"), "14");
}

TEST_F(MassTypesEditing, AnExpressionKeepsTheUnitInWhichMassesAreShown) {
  SetUnit("MASS", "POUND");
  EditPage(WithActive("Estimated"));
  Type("MTMassEditor", "10/4 lb");
  EXPECT_EQ(Text("MTMassEditor"), "2.5 lb");
}

struct TypedMass : MassTypesEditing, testing::WithParamInterface<const char*> {};

TEST_P(TypedMass, StaysAsItIsWhenThereIsNothingToWorkOut) {
  EditPage(WithActive("Estimated"));
  Type("MTMassEditor", GetParam());
  EXPECT_EQ(Text("MTMassEditor"), GetParam());
}
INSTANTIATE_TEST_SUITE_P(Texts, TypedMass,
                         testing::Values("12.5 kg", "12.50", "", "...", "heavy", "1/0", "2 lb", "1e400",
                                         "(("));

TEST_F(MassTypesEditing, EveryMassThatIsShownSurvivesBeingTypedAgain) {
  for (const auto& unit : KorCkeGlobalFunctions::GetParmDictionary()->FindMagnitude("MASS")->Units()) {
    SetUnit("MASS", unit->Name());
    EditPage(WithActive("Estimated"));
    const std::string shown = Text("MTMassEditor");
    Type("MTMassEditor", "0");
    Type("MTMassEditor", shown);
    EXPECT_EQ(Text("MTMassEditor"), shown);
    Close();
  }
}

TEST_F(MassTypesEditing, WithoutTheMassMagnitudeExpressionsAreWorkedOutAllTheSame) {
  EditPage(WithActive("Estimated"));
  KorCkeGlobalFunctions::SetParmDictionary(nullptr);
  Type("MTMassEditor", "1+1");
  EXPECT_EQ(Text("MTMassEditor"), "2");
}

// ---- rescaling ----

TEST_F(MassTypesEditing, TheUpdateButtonComesWithANewMassForPastedValues) {
  EditPage(WithActive("Estimated"));
  Widget("UpdatePropertiesButton").SetSensitivity(KorSensitivity::Disabled);
  Type("MTMassEditor", "5 kg");
  EXPECT_FALSE(IsEnabled("UpdatePropertiesButton"));
  Pick("MTPasteValuesCombo", "Computed");
  EXPECT_FALSE(IsEnabled("UpdatePropertiesButton"));
  Type("MTMassEditor", "3 kg");
  EXPECT_TRUE(IsEnabled("UpdatePropertiesButton"));
  Press("UpdatePropertiesButton");
  EXPECT_FALSE(IsEnabled("UpdatePropertiesButton"));
}

TEST_F(MassTypesEditing, InertiaOfMass2WithIxx10BecomesIxx15ForAMassOf3) {
  EditPage(WithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "3 kg");
  Press("UpdatePropertiesButton");
  EXPECT_EQ(MTValues(),
            "3 kg; 100 mm, 200 mm, 300 mm; 15 kg·m², 30 kg·m², 45 kg·m²; 1.5 kg·m², 3 kg·m², 4.5 kg·m²");
}

TEST_F(MassTypesEditing, ASourceOfMass0RescalesNothing) {
  protocol::PartData part = WithActive("Estimated");
  part.massTypes[0].mass = 0;
  EditPage(part);
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "3 kg");
  Press("UpdatePropertiesButton");
  EXPECT_EQ(MTMoments(), "10 kg·m², 20 kg·m², 30 kg·m²");
}

TEST_F(MassTypesEditing, RescalesFromTheSourceHoweverOftenTheMassChanges) {
  EditPage(WithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  for (const char* mass : {"6 kg", "3 kg"}) {
    Type("MTMassEditor", mass);
    Press("UpdatePropertiesButton");
  }
  EXPECT_EQ(MTMoments(), "15 kg·m², 30 kg·m², 45 kg·m²");
}

TEST_F(MassTypesEditing, RescalesAMassThatIsTypedInAnotherUnit) {
  SetUnit("MASS", "GRAM");
  SetUnit("INERTIAMOMENT", "KG_CM2");
  EditPage(WithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "3000 g");
  Press("UpdatePropertiesButton");
  EXPECT_EQ(MTMoments(), "150000 kg·cm², 300000 kg·cm², 450000 kg·cm²");
}

// 3 kg at (0.1, 0.2, 0.3) m from the point: + 3·(0.13, 0.10, 0.05) and, as products, + 3·(0.02, 0.03, 0.06).
TEST_F(MassTypesEditing, RescalesAtTheReferencePointWithTheNewMass) {
  EditPage(WithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  LookAtTheReferencePoint();
  Type("MTMassEditor", "3 kg");
  Press("UpdatePropertiesButton");
  EXPECT_EQ(MTMoments(), "15.39 kg·m², 30.3 kg·m², 45.15 kg·m²");
  EXPECT_EQ(MTProducts(), "1.56 kg·m², 3.09 kg·m², 4.68 kg·m²");
}

TEST_F(MassTypesEditing, RescalesNothingWithoutACentreOfGravityOrInertia) {
  for (const bool withoutCG : {true, false}) {
    protocol::PartData part = WithActive("Estimated");
    if (withoutCG)
      part.massTypes[0].cg.reset();
    else
      part.massTypes[0].inertia.reset();
    EditPage(part);
    Pick("MTPasteValuesCombo", "Computed");
    const std::string before = MTMoments();
    Type("MTMassEditor", "3 kg");
    Press("UpdatePropertiesButton");
    EXPECT_EQ(MTMoments(), before);
    Close();
  }
}

TEST_F(MassTypesEditing, InertiaThatWouldBeTooLargeForANumberIsNotShown) {
  EditPage(WithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "1e308 kg");
  Press("UpdatePropertiesButton");
  EXPECT_EQ(MTMoments(), "10 kg·m², 20 kg·m², 30 kg·m²");
}

TEST_F(MassTypesEditing, UpdatingWithoutASourceChangesNothing) {
  EditPage(WithActive("Estimated"));
  Type("MTMassEditor", "3 kg");
  Press("UpdatePropertiesButton");
  EXPECT_EQ(MTMoments(), "5 kg·m², 6 kg·m², 7 kg·m²");
}

}  // namespace
