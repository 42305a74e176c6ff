// The material page in edit mode, and the standard-part flag.

#include "framework/knowledge/KorCkeParmDictionary.h"
#include "protocol/Codec.h"
#include "tests/module/EditingTest.h"
#include "tests/support/TraceCapture.h"

namespace {

constexpr const char* kApplyOn = "ApplyOnButtonsFrame";
constexpr const char* kApplyOnLabel = "Material defined for the: ";

/// A part without an instance: steel applies to the instance, cast iron to the reference.
protocol::PartData WithoutInstance() {
  protocol::PartData part = SamplePart();
  part.hasInstance = false;
  part.material.densityPriority = 0;
  return part;
}

class MaterialEditing : public EditingTest {
 protected:
  void EditPage(const protocol::PartData& part) { Edit(part, "TabPage004"); }
  std::string Material() { return Text("WBMaterialEditor") + ", " + Text("DensityEditor"); }
  bool AreApplyOnButtonsShown() {
    EXPECT_EQ(IsShown(kApplyOn), IsShown(kApplyOnLabel));
    return IsShown(kApplyOn);
  }
};

// ---- priority ----

/// Answers with a priority that no data text can hold.
class OddPriority : public LumWBAllDataBuffer {
 public:
  int GetDensityPriority() const override { return 7; }
};

TEST_F(MaterialEditing, APriorityThatIsNeither0Nor1ShowsKorvoFirst) {
  auto buffer = LumWBAllDataBuffer_var::Adopt(new OddPriority);
  EXPECT_EQ(buffer->SetAllData(protocol::WritePartData(SamplePart()), true), S_OK);
  Open(buffer);
  EXPECT_EQ(SelectedLine("FirstCombo"), "KORVO");
  EXPECT_EQ(SelectedLine("SecondCombo"), "WB");
}

TEST_F(MaterialEditing, Priority0ShowsWBFirstAndKorvoSecond) {
  EditPage(WithoutInstance());
  EXPECT_EQ(SelectedLine("FirstCombo"), "WB");
  EXPECT_EQ(SelectedLine("SecondCombo"), "KORVO");
}

TEST_F(MaterialEditing, ChangingTheFirstSourceToWBSwitchesTheSecondToKorvo) {
  protocol::PartData part = SamplePart();
  part.material.densityPriority = 1;
  EditPage(part);
  EXPECT_EQ(SelectedLine("SecondCombo"), "WB");
  Pick("FirstCombo", "WB");
  EXPECT_EQ(SelectedLine("SecondCombo"), "KORVO");
}

TEST_F(MaterialEditing, ChangingTheFirstSourceOffersMaterialAndDensityForEitherSourceOnPurpose) {
  for (const char* first : {"KORVO", "WB"}) {
    protocol::PartData part = SamplePart();
    part.material.densityPriority = 1;
    EditPage(part);
    EXPECT_FALSE(IsEnabled("DensityEditor"));
    Pick("FirstCombo", first);
    EXPECT_TRUE(IsEnabled("DensityEditor"));
    EXPECT_TRUE(IsEnabled("WBMaterialEditor"));
    Close();
  }
}

TEST_F(MaterialEditing, OutsideEditModeTheFirstSourceOffersNothing) {
  Open(SamplePart());
  PickPage("TabPage004");
  Widget("FirstCombo").SetSensitivity(KorSensitivity::Enabled);
  Pick("FirstCombo", "WB");
  EXPECT_FALSE(IsEnabled("DensityEditor"));
  EXPECT_FALSE(IsEnabled("WBMaterialEditor"));
}

TEST_F(MaterialEditing, ARefreshOfThePageTellsOfThePriorityWhichOffersMaterialAndDensity) {
  protocol::PartData part = SamplePart();
  part.material.densityPriority = 1;
  EditPage(part);
  EXPECT_FALSE(IsEnabled("DensityEditor"));
  EXPECT_EQ(Panel().RefreshMaterialTab(), S_OK);
  EXPECT_TRUE(IsEnabled("DensityEditor"));
  EXPECT_TRUE(IsEnabled("WBMaterialEditor"));
}

TEST_F(MaterialEditing, WithoutABufferAnotherFirstSourceLeavesTheSecond) {
  EditPage(SamplePart());
  Panel().SetModel(nullptr);
  Pick("FirstCombo", "KORVO");
  EXPECT_EQ(SelectedLine("SecondCombo"), "KORVO");
}

// ---- where the material applies ----

TEST_F(MaterialEditing, ShowsTheMaterialOfTheSideThatIsChosen) {
  EditPage(WithoutInstance());
  EXPECT_TRUE(IsChecked("ApplyOnInstance"));
  EXPECT_EQ(Material(), "Steel, 7850 kg/m³");
  Check("ApplyOnReference");
  EXPECT_EQ(Material(), "Cast iron, 7200 kg/m³");
  Check("ApplyOnInstance");
  EXPECT_EQ(Material(), "Steel, 7850 kg/m³");
}

TEST_F(MaterialEditing, AMaterialTypedForTheReferenceIsThereAgainAfterALookAtTheInstance) {
  EditPage(WithoutInstance());
  Check("ApplyOnReference");
  Type("WBMaterialEditor", "Bronze");
  Type("DensityEditor", "8800");
  Check("ApplyOnInstance");
  EXPECT_EQ(Material(), "Steel, 7850 kg/m³");
  Check("ApplyOnReference");
  EXPECT_EQ(Material(), "Bronze, 8800 kg/m³");
}

TEST_F(MaterialEditing, AMaterialTypedForTheInstanceIsThereAgainAfterALookAtTheReference) {
  EditPage(WithoutInstance());
  Type("WBMaterialEditor", "Bronze");
  Type("DensityEditor", "8800");
  Check("ApplyOnReference");
  EXPECT_EQ(Material(), "Cast iron, 7200 kg/m³");
  Check("ApplyOnInstance");
  EXPECT_EQ(Material(), "Bronze, 8800 kg/m³");
}

TEST_F(MaterialEditing, AMaterialTypedBeforeASideIsChosenIsRememberedForNeitherOnPurpose) {
  protocol::PartData part = WithoutInstance();
  part.material.name = "";
  part.material.density.reset();
  EditPage(part);
  Type("WBMaterialEditor", "Brass");
  Check("ApplyOnInstance");
  EXPECT_EQ(Text("WBMaterialEditor"), "Brass") << "nothing is shown again: none was checked before";
  Type("DensityEditor", "8500");
  Check("ApplyOnReference");
  EXPECT_EQ(Material(), "Cast iron, 7200 kg/m³");
  Check("ApplyOnInstance");
  EXPECT_EQ(Material(), ", 8500 kg/m³");
}

TEST_F(MaterialEditing, DensitiesOfBothSidesAreShownAndReadInTheCurrentUnit) {
  SetUnit("DENSITY", "G__CM3");
  EditPage(WithoutInstance());
  Check("ApplyOnReference");
  EXPECT_EQ(Text("DensityEditor"), "7.2 g/cm³");
  Type("DensityEditor", "8.8");
  Check("ApplyOnInstance");
  EXPECT_EQ(Text("DensityEditor"), "7.85 g/cm³");
  Check("ApplyOnReference");
  EXPECT_EQ(Text("DensityEditor"), "8.8 g/cm³");
}

TEST_F(MaterialEditing, ADensityThatIsNoNumberIsRememberedAsZero) {
  EditPage(WithoutInstance());
  Type("DensityEditor", "heavy");
  Check("ApplyOnReference");
  Check("ApplyOnInstance");
  EXPECT_EQ(Text("DensityEditor"), "0 kg/m³");
}

TEST_F(MaterialEditing, WithoutTheDensityMagnitudeTheOtherSideIsNotShown) {
  EditPage(WithoutInstance());
  KorCkeGlobalFunctions::SetParmDictionary(nullptr);
  Check("ApplyOnReference");
  EXPECT_EQ(Material(), "Steel, 7850 kg/m³");
}

TEST_F(MaterialEditing, ClearingTheMaterialKeepsTheButtonsWhileThereIsADensityOnPurpose) {
  EditPage(WithoutInstance());
  Type("WBMaterialEditor", " ");
  EXPECT_TRUE(AreApplyOnButtonsShown());
}

TEST_F(MaterialEditing, ClearingTheDensityHidesTheButtonsWhateverTheMaterialOnPurpose) {
  EditPage(WithoutInstance());
  Type("DensityEditor", " ");
  EXPECT_EQ(Text("WBMaterialEditor"), "Steel");
  EXPECT_FALSE(AreApplyOnButtonsShown());
}

TEST_F(MaterialEditing, ClearingTheMaterialAfterTheDensityHidesTheButtons) {
  EditPage(WithoutInstance());
  Type("DensityEditor", "");
  Type("WBMaterialEditor", "Brass");
  EXPECT_TRUE(AreApplyOnButtonsShown());
  Type("WBMaterialEditor", "");
  EXPECT_FALSE(AreApplyOnButtonsShown());
}

TEST_F(MaterialEditing, ADensityBringsTheButtonsBack) {
  EditPage(WithoutInstance());
  Type("DensityEditor", "");
  Type("DensityEditor", "2700");
  EXPECT_TRUE(AreApplyOnButtonsShown());
}

TEST_F(MaterialEditing, APartWithAnInstanceHasNoChoiceWhereAMaterialApplies) {
  protocol::PartData part = WithoutInstance();
  part.hasInstance = true;
  EditPage(part);
  const bool shown = AreApplyOnButtonsShown();
  Type("WBMaterialEditor", "");
  Type("DensityEditor", "");
  EXPECT_EQ(AreApplyOnButtonsShown(), shown);
}

TEST_F(MaterialEditing, TypingLeavesTheBuffer) {
  EditPage(WithoutInstance());
  Type("WBMaterialEditor", "Bronze");
  Type("DensityEditor", "8800");
  EXPECT_EQ(Buffer().GetMaterialName(), "Steel");
  EXPECT_EQ(Buffer().GetDensity(), 7850);
}

TEST_F(MaterialEditing, WithoutABufferTypingAndChoosingDoNothing) {
  EditPage(WithoutInstance());
  Panel().SetModel(nullptr);
  Type("DensityEditor", "");
  EXPECT_TRUE(AreApplyOnButtonsShown());
  Check("ApplyOnReference");
  EXPECT_EQ(Text("WBMaterialEditor"), "Steel");
  Toggle("StdPartCheckButton");
  EXPECT_FALSE(Buffer().IsStandatadPart());
}

// ---- standard part ----

TEST_F(MaterialEditing, TheStandardPartFlagGoesToTheBufferAtOnce) {
  Open(SamplePart());
  Toggle("StdPartCheckButton");
  EXPECT_TRUE(Buffer().IsStandatadPart());
  Toggle("StdPartCheckButton");
  EXPECT_FALSE(Buffer().IsStandatadPart());
}

TEST_F(MaterialEditing, WithAnEmptyPasteLineAStandardPartChangesTheFlagOnly) {
  Edit(SamplePartWithActive("Estimated"), "TabPage003");
  const std::string before = MTValues();
  Toggle("StdPartCheckButton");
  EXPECT_TRUE(Buffer().IsStandatadPart());
  EXPECT_EQ(MTValues(), before);
  EXPECT_EQ(EditableDistribution(), 9);
}

TEST_F(MaterialEditing, AStandardPartTakesTheMassOfThePastedTypeAlone) {
  Edit(SamplePartWithActive("Estimated"), "TabPage003");
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "9 kg");
  Toggle("StdPartCheckButton");
  EXPECT_EQ(MTValues(), "2 kg; ..., ..., ...; ..., ..., ...; ..., ..., ...");
  EXPECT_EQ(EditableDistribution(), 0);
}

TEST_F(MaterialEditing, APartThatIsNoStandardPartAnyMoreTakesAllValuesOfThePastedType) {
  Edit(SamplePartWithActive("Estimated"), "TabPage003");
  Pick("MTPasteValuesCombo", "Computed");
  Toggle("StdPartCheckButton");
  Toggle("StdPartCheckButton");
  EXPECT_EQ(MTValues(),
            "2 kg; 100 mm, 200 mm, 300 mm; 10 kg·m², 20 kg·m², 30 kg·m²; 1 kg·m², 2 kg·m², 3 kg·m²");
  EXPECT_EQ(EditableDistribution(), 9);
}

TEST_F(MaterialEditing, APartThatIsNoStandardPartAnyMoreShowsInertiaAtTheReferencePoint) {
  Edit(SamplePartWithActive("Estimated"), "TabPage003");
  Pick("MTPasteValuesCombo", "Computed");
  Toggle("StdPartCheckButton");
  LookAtTheReferencePoint();
  Toggle("StdPartCheckButton");
  EXPECT_EQ(MTMoments(), "10.26 kg·m², 20.2 kg·m², 30.1 kg·m²");
}

TEST_F(MaterialEditing, AStandardPartTakesTheMassOfAPastedTypeThatIsOutOfDate) {
  protocol::PartData part = SamplePartWithActive("Estimated");
  part.massTypes[0].status = protocol::MassTypeStatus::OutOfDate;
  Edit(part, "TabPage003");
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "9 kg");
  Toggle("StdPartCheckButton");
  EXPECT_EQ(Text("MTMassEditor"), "2 kg");
  Toggle("StdPartCheckButton");
  EXPECT_EQ(MTMoments(), "10 kg·m², 20 kg·m², 30 kg·m²");
}

TEST_F(MaterialEditing, OutsideEditModeAStandardPartChangesTheFlagOnlyWhateverCanBePasted) {
  Edit(SamplePartWithActive("Estimated"), "TabPage003");
  Pick("MTPasteValuesCombo", "Computed");
  Save();
  const std::string before = MTValues();
  Widget("StdPartCheckButton").SetSensitivity(KorSensitivity::Enabled);  // no user gets there
  Toggle("StdPartCheckButton");
  EXPECT_TRUE(Buffer().IsStandatadPart());
  EXPECT_EQ(MTValues(), before);
  EXPECT_EQ(EditableDistribution(), 0);
}

TEST_F(MaterialEditing, AStandardPartShowsDotsAlsoForAPastedTypeWithoutValues) {
  Edit(SamplePartWithActive("Estimated"), "TabPage003");
  Pick("MTPasteValuesCombo", "Weighed");
  Toggle("StdPartCheckButton");
  EXPECT_EQ(MTValues(), "4 kg; ..., ..., ...; ..., ..., ...; ..., ..., ...");
  EXPECT_EQ(EditableDistribution(), 0);
  Toggle("StdPartCheckButton");
  EXPECT_EQ(EditableDistribution(), 9);
}

TEST_F(MaterialEditing, LeavingTheStandardPartHandlerIsTracedInEveryCase) {
  TraceCapture trace("KorWBCompPart");
  Open(SamplePart());
  trace.Clear();
  Toggle("StdPartCheckButton");
  EXPECT_EQ(trace.Text(), "<-OnStandardPartClickeNotification\n");
}

}  // namespace
