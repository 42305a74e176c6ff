// The mass-types page in edit mode: values pasted from another mass type, a mass typed, inertia scaled to it.

#include "framework/knowledge/KorCkeParmDictionary.h"
#include "tests/module/EditingTest.h"

namespace {

class PasteValues : public MassTypesEditingTest {
 protected:
  std::string BufferText() {
    KorUnicodeString text;
    EXPECT_EQ(Buffer().GetAllData(text), S_OK);
    return text.Utf8();
  }
};

// ---- pasting ----

TEST_F(PasteValues, PastingTakesAllValuesOfTheSource) {
  EditPage(SamplePartWithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  EXPECT_EQ(MTValues(), kComputed);
  EXPECT_EQ(EditableDistribution(), 9);
}

TEST_F(PasteValues, PastingTheEmptyLineChangesNothing) {
  EditPage(SamplePartWithActive("Estimated"));
  Type("MTMassEditor", "9 kg");
  Pick("MTPasteValuesCombo", "");
  EXPECT_EQ(MTValues(), "9 kg; 1000 mm, 0 mm, 0 mm; 5 kg·m², 6 kg·m², 7 kg·m²; 0 kg·m², 0 kg·m², 0 kg·m²");
}

TEST_F(PasteValues, PastingLeavesTheBufferAsItIs) {
  EditPage(SamplePartWithActive("Estimated"));
  const std::string before = BufferText();
  Pick("MTPasteValuesCombo", "Computed");
  EXPECT_EQ(BufferText(), before);
}

TEST_F(PasteValues, PastingAnUndefinedMassTypeLeavesTheValues) {
  EditPage(SamplePartWithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Weighed");
  EXPECT_EQ(MTValues(), kEstimated);
}

TEST_F(PasteValues, PastingAnOutOfDateResultTakesItsValues) {
  protocol::PartData part = SamplePartWithActive("Estimated");
  part.massTypes[0].status = protocol::MassTypeStatus::OutOfDate;
  EditPage(part);
  Pick("MTPasteValuesCombo", "Computed");
  EXPECT_EQ(MTValues(), kComputed);
}

TEST_F(PasteValues, PastingWhatLacksACentreAndInertiaTakesTheMassAlone) {
  protocol::PartData part = SamplePartWithActive("Estimated");
  part.massTypes[0].cg.reset();
  part.massTypes[0].inertia.reset();
  EditPage(part);
  Pick("MTPasteValuesCombo", "Computed");
  EXPECT_EQ(MTValues(), "2 kg; 1000 mm, 0 mm, 0 mm; 5 kg·m², 6 kg·m², 7 kg·m²; 0 kg·m², 0 kg·m², 0 kg·m²");
}

TEST_F(PasteValues, PastingIntoAStandardPartTakesTheMassAlone) {
  EditPage(SampleStandardPart("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  EXPECT_EQ(MTValues(), "2 kg; ..., ..., ...; ..., ..., ...; ..., ..., ...");
  EXPECT_EQ(EditableDistribution(), 0);
}

// 2 kg at (0.1, 0.2, 0.3) m from the point: + 2·(0.13, 0.10, 0.05) and, as products, + 2·(0.02, 0.03, 0.06).
TEST_F(PasteValues, PastingAtTheReferencePointMovesTheInertiaThere) {
  EditPage(SamplePartWithActive("Estimated"));
  LookAtTheReferencePoint();
  Pick("MTPasteValuesCombo", "Computed");
  EXPECT_EQ(MTMoments(), "10.26 kg·m², 20.2 kg·m², 30.1 kg·m²");
  EXPECT_EQ(MTProducts(), "1.04 kg·m², 2.06 kg·m², 3.12 kg·m²");
}

TEST_F(PasteValues, PastingAMassOfZeroDoesNotMoveTheInertia) {
  protocol::PartData part = SamplePartWithActive("Estimated");
  part.massTypes[0].mass = 0;
  EditPage(part);
  LookAtTheReferencePoint();
  Pick("MTPasteValuesCombo", "Computed");
  EXPECT_EQ(MTMoments(), "10 kg·m², 20 kg·m², 30 kg·m²");
}

TEST_F(PasteValues, OutsideEditModeNothingIsPasted) {
  Open(SamplePartWithActive("Estimated"));
  PickPage("TabPage003");
  auto& paste = As<KorDlgCombo>("MTPasteValuesCombo");
  paste.SetLine("");
  paste.SetLine("Computed");
  Pick("MTPasteValuesCombo", "Computed");
  EXPECT_EQ(MTValues(), kEstimated);
  EXPECT_EQ(EditableDistribution(), 0);
}

TEST_F(PasteValues, PastingWithoutAMagnitudeLeavesItsEditors) {
  KorCkeParmDictionary* all = KorCkeGlobalFunctions::GetParmDictionary();
  KorCkeParmDictionary dictionary;
  dictionary.AddMagnitude(all->FindMagnitude("MASS"));
  EditPage(SamplePartWithActive("Estimated"));
  KorCkeGlobalFunctions::SetParmDictionary(&dictionary);
  Pick("MTPasteValuesCombo", "Computed");
  EXPECT_EQ(MTValues(), "2 kg; 1000 mm, 0 mm, 0 mm; 5 kg·m², 6 kg·m², 7 kg·m²; 0 kg·m², 0 kg·m², 0 kg·m²");
  KorCkeGlobalFunctions::RestoreParmDictionary();
}

TEST_F(PasteValues, WithoutABufferNothingIsPastedWorkedOutOrRescaled) {
  EditPage(SamplePartWithActive("Estimated"));
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

TEST_F(PasteValues, AnArithmeticExpressionIsReplacedByItsValue) {
  EditPage(SamplePartWithActive("Estimated"));
  Type("MTMassEditor", "2*(3+4)");
  EXPECT_EQ(Text("MTMassEditor"), "14");
}

TEST_F(PasteValues, AnExpressionKeepsTheUnitInWhichMassesAreShown) {
  SetUnit("MASS", "POUND");
  EditPage(SamplePartWithActive("Estimated"));
  Type("MTMassEditor", "10/4 lb");
  EXPECT_EQ(Text("MTMassEditor"), "2.5 lb");
}

struct TypedMass : PasteValues, testing::WithParamInterface<const char*> {};

TEST_P(TypedMass, StaysAsItIsWhenThereIsNothingToWorkOut) {
  EditPage(SamplePartWithActive("Estimated"));
  Type("MTMassEditor", GetParam());
  EXPECT_EQ(Text("MTMassEditor"), GetParam());
}
INSTANTIATE_TEST_SUITE_P(Texts, TypedMass,
                         testing::Values("12.5 kg", "12.50", "", "...", "heavy", "1/0", "2 lb", "1e400",
                                         "(("));

TEST_F(PasteValues, EveryMassThatIsShownSurvivesBeingTypedAgain) {
  for (const auto& unit : KorCkeGlobalFunctions::GetParmDictionary()->FindMagnitude("MASS")->Units()) {
    SetUnit("MASS", unit->Name());
    EditPage(SamplePartWithActive("Estimated"));
    const std::string shown = Text("MTMassEditor");
    Type("MTMassEditor", "0");
    Type("MTMassEditor", shown);
    EXPECT_EQ(Text("MTMassEditor"), shown);
    Close();
  }
}

TEST_F(PasteValues, WithoutTheMassMagnitudeExpressionsAreWorkedOutAllTheSame) {
  EditPage(SamplePartWithActive("Estimated"));
  KorCkeGlobalFunctions::SetParmDictionary(nullptr);
  Type("MTMassEditor", "1+1");
  EXPECT_EQ(Text("MTMassEditor"), "2");
}

// ---- rescaling ----

TEST_F(PasteValues, TheUpdateButtonComesWithANewMassForPastedValues) {
  EditPage(SamplePartWithActive("Estimated"));
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

TEST_F(PasteValues, InertiaOfMass2WithIxx10BecomesIxx15ForAMassOf3) {
  EditPage(SamplePartWithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "3 kg");
  Press("UpdatePropertiesButton");
  EXPECT_EQ(MTValues(),
            "3 kg; 100 mm, 200 mm, 300 mm; 15 kg·m², 30 kg·m², 45 kg·m²; 1.5 kg·m², 3 kg·m², 4.5 kg·m²");
}

TEST_F(PasteValues, ASourceOfMass0RescalesNothing) {
  protocol::PartData part = SamplePartWithActive("Estimated");
  part.massTypes[0].mass = 0;
  EditPage(part);
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "3 kg");
  Press("UpdatePropertiesButton");
  EXPECT_EQ(MTMoments(), "10 kg·m², 20 kg·m², 30 kg·m²");
}

TEST_F(PasteValues, RescalesFromTheSourceHoweverOftenTheMassChanges) {
  EditPage(SamplePartWithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  for (const char* mass : {"6 kg", "3 kg"}) {
    Type("MTMassEditor", mass);
    Press("UpdatePropertiesButton");
  }
  EXPECT_EQ(MTMoments(), "15 kg·m², 30 kg·m², 45 kg·m²");
}

TEST_F(PasteValues, RescalesAMassThatIsTypedInAnotherUnit) {
  SetUnit("MASS", "GRAM");
  SetUnit("INERTIAMOMENT", "KG_CM2");
  EditPage(SamplePartWithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "3000 g");
  Press("UpdatePropertiesButton");
  EXPECT_EQ(MTMoments(), "150000 kg·cm², 300000 kg·cm², 450000 kg·cm²");
}

// 3 kg at (0.1, 0.2, 0.3) m from the point: + 3·(0.13, 0.10, 0.05) and, as products, + 3·(0.02, 0.03, 0.06).
TEST_F(PasteValues, RescalesAtTheReferencePointWithTheNewMass) {
  EditPage(SamplePartWithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  LookAtTheReferencePoint();
  Type("MTMassEditor", "3 kg");
  Press("UpdatePropertiesButton");
  EXPECT_EQ(MTMoments(), "15.39 kg·m², 30.3 kg·m², 45.15 kg·m²");
  EXPECT_EQ(MTProducts(), "1.56 kg·m², 3.09 kg·m², 4.68 kg·m²");
}

TEST_F(PasteValues, RescalesNothingWithoutACentreOfGravityOrInertia) {
  for (const bool withoutCG : {true, false}) {
    protocol::PartData part = SamplePartWithActive("Estimated");
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

TEST_F(PasteValues, InertiaThatWouldBeTooLargeForANumberIsNotShown) {
  EditPage(SamplePartWithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "1e308 kg");
  Press("UpdatePropertiesButton");
  EXPECT_EQ(MTMoments(), "10 kg·m², 20 kg·m², 30 kg·m²");
}

TEST_F(PasteValues, UpdatingWithoutASourceChangesNothing) {
  EditPage(SamplePartWithActive("Estimated"));
  Type("MTMassEditor", "3 kg");
  Press("UpdatePropertiesButton");
  EXPECT_EQ(MTMoments(), "5 kg·m², 6 kg·m², 7 kg·m²");
}

TEST_F(PasteValues, RescalesToZeroForAMassThatIsNoNumber) {
  EditPage(SamplePartWithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "heavy");
  Press("UpdatePropertiesButton");
  EXPECT_EQ(MTMoments(), "0 kg·m², 0 kg·m², 0 kg·m²");
  EXPECT_EQ(MTProducts(), "0 kg·m², 0 kg·m², 0 kg·m²");
}

TEST_F(PasteValues, RescalesFromAnOutOfDateResult) {
  protocol::PartData part = SamplePartWithActive("Estimated");
  part.massTypes[0].status = protocol::MassTypeStatus::OutOfDate;
  EditPage(part);
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "3 kg");
  Press("UpdatePropertiesButton");
  EXPECT_EQ(MTMoments(), "15 kg·m², 30 kg·m², 45 kg·m²");
}

TEST_F(PasteValues, RescalesTheInertiaOfAStandardPartTooOnPurpose) {
  EditPage(SampleStandardPart("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "3 kg");
  Press("UpdatePropertiesButton");
  EXPECT_EQ(MTMoments(), "15 kg·m², 30 kg·m², 45 kg·m²");
}

TEST_F(PasteValues, AfterASaveTheUpdateButtonStaysAndRescalesWhatIsShownOnPurpose) {
  EditPage(SamplePartWithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "3 kg");
  Save();
  Press("UpdatePropertiesButton");
  EXPECT_EQ(MTMoments(), "15 kg·m², 30 kg·m², 45 kg·m²");
}

TEST_F(PasteValues, AnotherUserMassTypeLeavesTheUpdateButtonAsItIs) {
  EditPage(SamplePartWithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "3 kg");
  Pick("MassTypeCombo", "Weighed");
  EXPECT_TRUE(IsEnabled("UpdatePropertiesButton"));
  EXPECT_EQ(SelectedLine("MTPasteValuesCombo"), "");
}

}  // namespace
