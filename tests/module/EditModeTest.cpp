#include "framework/dialog/KorMsgCatalog.h"
#include "tests/module/EditTest.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::vector<std::string> kBounds = {"LowerValueEditor", "UpperValueEditor"};

using EditMode = EditTest;

// ---- a user mass type ----

TEST_F(EditMode, OfAUserMassTypeMakesItsValuesEditable) {
  Edit(SamplePart());
  ExpectEnabled(kDistribution, true);
  ExpectEnabled({"MTMassEditor", "FirstCombo", "DensityEditor", "WBMaterialEditor", "TypeCombo",
                 "MTPasteValuesCombo", "ActiveMassCombo", "SaveButton", "StdPartCheckButton"},
                true);
  ExpectEnabled({"EditButton", "ComputeButton", "SecondCombo", "InertiaModeFrame", "ReferenceModeFrame"},
                false);
}

TEST_F(EditMode, OfAStandardPartLeavesOnlyTheMassOfAUserMassTypeEditable) {
  protocol::PartData part = SamplePart();
  part.standardPart = true;
  Edit(part);
  EXPECT_TRUE(IsEnabled("MTMassEditor"));
  ExpectEnabled(kDistribution, false);
}

TEST_F(EditMode, OffersTheValuesOfEveryOtherMassTypeBehindAnEmptyLine) {
  Edit(SamplePart());
  EXPECT_THAT(Lines("MTPasteValuesCombo"), ElementsAre("", "Computed", "Weighed"));
}

TEST_F(EditMode, OfAPartWhoseCadDensityComesFirstKeepsDensityAndMaterialDisabled) {
  protocol::PartData part = SamplePart();
  part.material.densityPriority = 1;
  Edit(part);
  ExpectEnabled({"DensityEditor", "WBMaterialEditor"}, false);
  EXPECT_TRUE(IsEnabled("FirstCombo"));
}

TEST_F(EditMode, OfAUserMassTypeLeavesTheValueTypeSelectableEvenWhereTheBoundsAreDisabled) {
  Edit(SamplePart());
  ExpectEnabled(kBounds, false);
  EXPECT_TRUE(IsEnabled("ValueTypeCombo"));
}

TEST_F(EditMode, EnablesBoundsThatTheUserDefines) {
  protocol::PartData part = SamplePart();
  part.massTypes[0].precisionType = 1;  // of the active mass type
  Edit(part);
  ExpectEnabled(kBounds, true);
  EXPECT_TRUE(IsEnabled("ValueTypeCombo"));
}

// ---- the computed mass type ----

TEST_F(EditMode, OfTheComputedMassTypeLeavesItsEditorsDisabledAndThePasteLinesEmpty) {
  Edit(SamplePart(), "Computed");
  ExpectEnabled(kDistribution, false);
  ExpectEnabled({"MTMassEditor", "MTPasteValuesCombo", "UpdatePropertiesButton"}, false);
  EXPECT_THAT(Lines("MTPasteValuesCombo"), IsEmpty());
  ExpectEnabled({"FirstCombo", "DensityEditor", "WBMaterialEditor", "TypeCombo", "SaveButton"}, true);
}

TEST_F(EditMode, OfTheComputedMassTypeHasNoSecondEnablingOfTheValueType) {
  Edit(SamplePart(), "Computed");
  EXPECT_FALSE(IsEnabled("ValueTypeCombo"));
}

TEST_F(EditMode, OfTheComputedMassTypeEnablesBoundsThatTheUserDefines) {
  protocol::PartData part = SamplePart();
  part.massTypes[0].precisionType = 1;
  Edit(part, "Computed");
  ExpectEnabled({"LowerValueEditor", "UpperValueEditor", "ValueTypeCombo"}, true);
}

// ---- inertia ----

TEST_F(EditMode, ShowsInertiaAtTheCentreOfGravityOfTheCurrentPart) {
  Open(SamplePart());
  Check("ReferenceButton");
  Check("RootProductButton");
  Press("EditButton");
  EXPECT_TRUE(IsChecked("CGButton"));
  EXPECT_TRUE(IsChecked("CurrentPartButton"));
  EXPECT_EQ(Moments(), "10 kg·m², 20 kg·m², 30 kg·m²");
}

TEST_F(EditMode, DisablesTheModesAndHidesTheCustomFrame) {
  Open(SamplePart());
  Check("CustomReferenceButton");
  Press("EditButton");
  ExpectEnabled({"InertiaModeFrame", "ReferenceModeFrame", "CustomRefModeFrame"}, false);
  EXPECT_FALSE(IsShown("CustomRefModeFrame"));
}

TEST_F(EditMode, NeverTakesTheComputedInertiaForThatOfTheMassTypeShown) {
  Open(SamplePart());
  PickPage("TabPage003");
  Pick("MassTypeCombo", "Estimated");
  PickPage("TabPage002");
  Check("RootProductButton");  // the results' refresh writes the computed inertia to the mass-types page too
  Press("EditButton");
  EXPECT_EQ(MTMoments(), "5 kg·m², 6 kg·m², 7 kg·m²");
  EXPECT_EQ(TypeOf(Save(), "Estimated").inertia, (protocol::Tensor{5, 6, 7, 0, 0, 0}));
}

TEST_F(EditMode, ShowsNoInertiaOfAMassTypeWithoutValues) {
  Open(SamplePart());
  PickPage("TabPage003");
  Pick("MassTypeCombo", "Weighed");
  PickPage("TabPage002");
  Check("RootProductButton");
  Press("EditButton");
  EXPECT_EQ(MTMoments(), "..., ..., ...");
  EXPECT_EQ(MTProducts(), "..., ..., ...");
}

TEST_F(EditMode, ShowsNothingOfAnotherMassTypeWhereThisOneHasNothing) {
  protocol::PartData part = SamplePart();
  part.massTypes[2].status = protocol::MassTypeStatus::Defined;
  part.massTypes[2].mass = 6;  // weighed, and nothing else is known
  Open(part);
  PickPage("TabPage003");
  Pick("MassTypeCombo", "Estimated");
  Pick("MassTypeCombo", "Weighed");
  Press("EditButton");
  EXPECT_EQ(Text("MTMassEditor"), "6 kg");
  EXPECT_EQ(Text("MTCGxEditor"), "...");
  EXPECT_EQ(MTMoments(), "..., ..., ...");
}

// ---- documents, properties, material ----

TEST_F(EditMode, OffersTheAutomaticRevisionAndOneChosenByHand) {
  Edit(SamplePartWithDocuments());
  ExpectEnabled({"ActiveDocLatestButton", "ActiveDocUsrSelButton"}, true);
  ExpectEnabled({"ChangeActiveDocButton", "ActiveDocsCombo"}, false);
  EXPECT_EQ(SelectedLine("ActiveDocsCombo"), "") << "the automatic revision";
}

TEST_F(EditMode, OffersToChangeARevisionThatWasChosenByHand) {
  protocol::PartData part = SamplePartWithDocuments();
  part.documents.usedSpecificRevisionBefore = true;
  Edit(part);
  EXPECT_TRUE(IsEnabled("ChangeActiveDocButton"));
}

TEST_F(EditMode, WithoutRevisionsOffersNoChoiceAmongThem) {
  protocol::PartData part = SamplePartWithDocuments();
  part.documents.revisions.clear();
  Edit(part);
  ExpectEnabled({"ActiveDocLatestButton", "ActiveDocUsrSelButton", "ChangeActiveDocButton"}, false);
}

TEST_F(EditMode, MakesTheAdditionalPropertiesEditable) {
  Edit(SamplePartWithProperties());
  EXPECT_TRUE(IsEnabled("PropertyValueEditor"));
}

TEST_F(EditMode, OfAPartWithoutAnInstanceAsksWhereTheMaterialApplies) {
  protocol::PartData part = SamplePart();
  part.hasInstance = false;
  Edit(part);
  EXPECT_EQ(Title("Material defined for the: "), "Apply material on:");
  ExpectEnabled({"ApplyOnInstance", "ApplyOnReference"}, true);
}

TEST_F(EditMode, OfAPartWithAnInstanceDoesNotAskWhereTheMaterialApplies) {
  Edit(SamplePart());
  EXPECT_EQ(Title("Material defined for the: "), "Material defined for the:");
}

TEST_F(EditMode, OfRevisionsThatMayNotBeUsedOffersNoChoiceAndSavesNone) {
  protocol::PartData part = SamplePartWithDocuments();
  part.documents.used = false;
  Edit(part);
  const protocol::PartData sent = Save();
  EXPECT_EQ(sent.documents.activeId, "__null__");
  EXPECT_EQ(sent.documents.activeVersion, "__null__");
  EXPECT_TRUE(sent.computed) << "no revision is compared";
}

TEST_F(EditMode, KeepsItsTitlesInAnotherLanguage) {
  protocol::PartData part = SamplePart();
  part.hasInstance = false;
  Edit(part);
  KorMsgCatalog::SetLanguage("de");
  Panel().ReloadTexts();
  EXPECT_EQ(Title("Material defined for the: "), "Apply material on:");
  EXPECT_NE(Title("EditButton"), "Edit") << "the others are those of the language";
  KorMsgCatalog::SetLanguage("en");
}

TEST_F(EditMode, OfTheComputedMassTypeClearsThePasteLinesOfTheOneBefore) {
  Edit(SamplePart());
  Pick("MTPasteValuesCombo", "Weighed");
  Type("MTMassEditor", "3");
  Save();
  Pick("MassTypeCombo", "Computed");
  ExpectEnabled({"MTPasteValuesCombo", "UpdatePropertiesButton"}, true);
  Press("EditButton");
  ExpectEnabled({"MTPasteValuesCombo", "UpdatePropertiesButton"}, false);
  EXPECT_THAT(Lines("MTPasteValuesCombo"), IsEmpty());
}

// ---- delete ----

TEST_F(EditMode, ComingFromDisplayModeKeepsDeleteDisabledSinceSaveIsEnabledLaterOnly) {
  Edit(SamplePart());
  EXPECT_FALSE(IsEnabled("DeleteButton"));
  EXPECT_TRUE(IsEnabled("SaveButton"));
}

TEST_F(EditMode, EnablesDeleteOfADefinedMassTypeWhenSaveWasEnabledAlready) {
  Open(SamplePart());
  PickPage("TabPage003");
  Pick("MassTypeCombo", "Estimated");
  Widget("SaveButton").SetSensitivity(KorSensitivity::Enabled);  // no user gets there
  Press("EditButton");
  EXPECT_TRUE(IsEnabled("DeleteButton"));
}

TEST_F(EditMode, KeepsDeleteOfAnUndefinedMassTypeDisabledEvenWhenSaveWasEnabledAlready) {
  Open(SamplePart());
  PickPage("TabPage003");
  Pick("MassTypeCombo", "Weighed");
  Widget("SaveButton").SetSensitivity(KorSensitivity::Enabled);
  Press("EditButton");
  EXPECT_FALSE(IsEnabled("DeleteButton"));
}

// ---- no buffer ----

TEST_F(EditMode, DoesNothingWithoutABuffer) {
  Open(SamplePart());
  Panel().SetModel(nullptr);
  Press("EditButton");
  EXPECT_TRUE(IsEnabled("EditButton"));
  EXPECT_FALSE(IsEnabled("SaveButton"));
}

// ---- another mass type, or another revision, in edit mode ----

TEST_F(EditMode, OfAnotherMassTypeShowsNothingOfTheOneBeforeWhereItHasNothingOnPurpose) {
  protocol::PartData part = SamplePart();
  part.massTypes[2].status = protocol::MassTypeStatus::Defined;
  part.massTypes[2].mass = 7;  // weighed, and nothing else is known
  part.activeMassType = "Estimated";
  Edit(part);
  Pick("MassTypeCombo", "Weighed");
  EXPECT_EQ(Text("MTMassEditor"), "7 kg");
  EXPECT_EQ(Text("MTCGxEditor"), "...");
  EXPECT_EQ(MTMoments(), "..., ..., ...");
  const protocol::MassType sent = TypeOf(Save(), "Weighed");
  EXPECT_EQ(sent.cg, (protocol::Vector{0, 0, 0})) << "no number counts as 0";
  EXPECT_EQ(sent.inertia, protocol::Tensor{});
}

TEST_F(EditMode, OfARevisionShowsNothingOfTheOneBeforeWhereItHasNothingOnPurpose) {
  protocol::PartData part = SamplePartWithDocuments();
  part.activeMassType = "Estimated";
  part.documents.usedSpecificRevisionBefore = true;
  protocol::PartData revision = part;
  revision.massTypes[1].cg.reset();
  revision.massTypes[1].inertia.reset();
  revision.documents.activeVersion = "A";
  Edit(part);
  PickPage("TabPageDocuments");
  Server().Expect("WBGetActiveDocInfo", protocol::WritePartData(revision));
  Press("ChangeActiveDocButton");
  Pick("ActiveDocsCombo", "D-7 A");
  Press("ApplyActiveDocButton");
  EXPECT_EQ(Text("MTMassEditor"), "4 kg");
  EXPECT_EQ(Text("MTCGxEditor"), "...");
  EXPECT_EQ(MTMoments(), "..., ..., ...") << "nor the computed inertia that the results have left there";
}

TEST_F(EditMode, ShowsTheResultsAboutTheCentreOfGravityForAMassTypeThatLacksValuesToo) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Weighed";
  part.massTypes[2].status = protocol::MassTypeStatus::Defined;
  part.massTypes[2].mass = 7;
  Open(part);
  Check("ReferenceButton");
  Panel().RefreshPanelWithInfo();
  ASSERT_EQ(Moments(), "10.26 kg·m², 20.2 kg·m², 30.1 kg·m²");
  Press("EditButton");
  EXPECT_EQ(Moments(), "10 kg·m², 20 kg·m², 30 kg·m²");
}

TEST_F(EditMode, GivesUpWhatASaveDidNotStoreSinceTheMassWasNoNumberOnPurpose) {
  Edit(SamplePart());
  Type("MTMassEditor", "heavy");
  Type("MTCGxEditor", "7");
  Type("MTIxxEditor", "50");
  Save();
  EXPECT_EQ(Text("MTCGxEditor") + ", " + Text("MTIxxEditor"), "7, 50");
  Press("EditButton");
  EXPECT_EQ(Text("MTCGxEditor"), "1000 mm");
  EXPECT_EQ(MTMoments(), "5 kg·m², 6 kg·m², 7 kg·m²");
}

TEST_F(EditMode, AChangeOfPageGivesUpTheSameTogether) {
  Edit(SamplePart());
  Type("MTMassEditor", "heavy");
  Type("MTCGxEditor", "7");
  Type("MTIxxEditor", "50");
  Save();
  PickPage("TabPage004");
  PickPage("TabPage003");
  EXPECT_EQ(Text("MTCGxEditor"), "1000 mm");
  EXPECT_EQ(MTMoments(), "5 kg·m², 6 kg·m², 7 kg·m²");
}

TEST_F(EditMode, ComesBackWithTheStandardPartAfterASave) {
  Edit(SamplePart());
  Save();
  EXPECT_FALSE(IsEnabled("StdPartCheckButton"));
  Press("EditButton");
  EXPECT_TRUE(IsEnabled("StdPartCheckButton"));
}

TEST_F(EditMode, OfAPartThatUsesNoPropertiesLeavesTheirPageAlone) {
  Open(SamplePartWithProperties());
  auto other = BufferOf(SamplePart());
  Panel().SetModel(other.Get());
  Press("EditButton");
  EXPECT_FALSE(IsEnabled("PropertyValueEditor"));
}

}  // namespace
