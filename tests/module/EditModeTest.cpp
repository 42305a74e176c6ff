#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "tests/module/EditTest.h"
#include "tests/support/TraceCapture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Names = std::vector<std::string>;

const Names kDistribution = {"MTCGxEditor", "MTCGyEditor", "MTCGzEditor", "MTIxxEditor", "MTIyyEditor",
                             "MTIzzEditor", "MTIyzEditor", "MTIxzEditor", "MTIxyEditor"};
const Names kBounds = {"LowerValueEditor", "UpperValueEditor"};

class EditMode : public EditTest {
 protected:
  void ExpectEnabled(const Names& names, bool enabled) {
    for (const std::string& name : names) EXPECT_EQ(IsEnabled(name), enabled) << name;
  }
};

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

// ---- a refresh of the whole panel ends it ----

class EndOfEditMode : public EditMode {
 protected:
  static protocol::PartData PartWithEverything() {
    protocol::PartData part = SamplePartWithDocuments();
    part.documents.usedSpecificRevisionBefore = true;
    part.propertiesRequested = true;
    part.properties = {{"Finish", "painted", 3, false, false, ""}};
    part.massTypes[0].precisionType = 1;
    return part;
  }
  void ExpectAsAfterASave() {
    ExpectEnabled(kDistribution, false);
    ExpectEnabled(kBounds, false);
    ExpectEnabled({"ActiveMassCombo", "MTMassEditor", "DensityEditor", "WBMaterialEditor", "FirstCombo",
                   "TypeCombo", "ValueTypeCombo", "SaveButton", "StdPartCheckButton", "ActiveDocLatestButton",
                   "ActiveDocUsrSelButton", "ChangeActiveDocButton", "PropertyValueEditor"},
                  false);
    ExpectEnabled({"EditButton", "ComputeButton"}, true);
    EXPECT_THAT(Server().Requests(), IsEmpty());
  }
};

TEST_F(EndOfEditMode, ComesWithARefreshOfTheWholePanelAsAfterASave) {
  Edit(PartWithEverything());
  ExpectEnabled({"PropertyValueEditor", "ChangeActiveDocButton", "UpperValueEditor"}, true);
  Panel().RefreshPanelWithInfo();
  ExpectAsAfterASave();
}

TEST_F(EndOfEditMode, ComesWithAnotherPartAsAfterASave) {
  Edit(PartWithEverything());
  auto next = BufferOf(PartWithEverything());
  Panel().SetModel(next.Get());
  ExpectAsAfterASave();
}

TEST_F(EndOfEditMode, GivesUpWhatWasTyped) {
  Edit(PartWithEverything());
  Type("MTMassEditor", "9");
  Panel().RefreshPanelWithInfo();
  EXPECT_EQ(Buffer().GetMass("Estimated"), 4);
}

TEST_F(EndOfEditMode, EndsTheChoiceWhereTheMaterialAppliesAlsoWhereNoneIsShown) {
  protocol::PartData part = SamplePart();
  part.hasInstance = false;
  part.material.name = "";
  Edit(part);
  Panel().RefreshPanelWithInfo();
  EXPECT_EQ(Title("Material defined for the: "), "Material applied to: ");
  ExpectEnabled({"ApplyOnInstance", "ApplyOnReference"}, false);
}

TEST_F(EndOfEditMode, OfAPartWithAnInstanceKeepsTheTitleOfTheMaterial) {
  Edit(SamplePart());
  Panel().RefreshPanelWithInfo();
  EXPECT_EQ(Title("Material defined for the: "), "Material defined for the:");
}

TEST_F(EndOfEditMode, OnTheResultsPageOffersTheModesAgainAndOnAnotherOneDoesNot) {
  Open(SamplePart());
  Press("EditButton");
  Panel().RefreshPanelWithInfo();
  ExpectEnabled({"InertiaModeFrame", "ReferenceModeFrame"}, true);
  PickPage("TabPage003");
  Press("EditButton");
  Panel().RefreshPanelWithInfo();
  ExpectEnabled({"InertiaModeFrame", "ReferenceModeFrame"}, false);
}

TEST_F(EndOfEditMode, OffersNoComputeWhereOneMakesNoSenseWithTheUsersActiveMassType) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  Edit(part);
  Buffer().SetComputableWithUserMassType(false);
  Panel().RefreshPanelWithInfo();
  EXPECT_FALSE(IsEnabled("ComputeButton"));
}

TEST_F(EndOfEditMode, OutsideItARefreshLeavesTheSensitivitiesAsTheyAre) {
  Open(SamplePart());
  const bool standardPart = IsEnabled("StdPartCheckButton");
  Widget("ComputeButton").SetSensitivity(KorSensitivity::Disabled);
  Panel().RefreshPanelWithInfo();
  EXPECT_FALSE(IsEnabled("ComputeButton"));
  EXPECT_EQ(IsEnabled("StdPartCheckButton"), standardPart);
}

TEST_F(EndOfEditMode, DoesNotComeWithTheRefreshOfOnePage) {
  Edit(SamplePart());
  Panel().RefreshMassTypeTab();
  Panel().RefreshMaterialTab();
  Panel().RefreshPrecisionTab();
  Panel().RefreshResultsTab();
  EXPECT_TRUE(IsEnabled("SaveButton"));
  EXPECT_FALSE(IsEnabled("EditButton"));
}

TEST_F(EndOfEditMode, DoesNotComeWithoutABuffer) {
  Edit(SamplePart());
  Panel().SetModel(nullptr);
  EXPECT_TRUE(IsEnabled("SaveButton"));
  Panel().SetModel(&Buffer());
  EXPECT_FALSE(IsEnabled("SaveButton"));
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

class Delete : public EditTest {
 protected:
  /// In edit mode on the mass type, with "DeleteButton" enabled.
  void OfferDelete(const protocol::PartData& part, const std::string& shownType) {
    Edit(part, shownType);
    Widget("DeleteButton").SetSensitivity(KorSensitivity::Enabled);
  }
};

TEST_F(Delete, WipesTheValuesOnTheScreenAndInTheBufferAndAsksNoServer) {
  OfferDelete(SamplePart(), "Estimated");
  Press("DeleteButton");
  EXPECT_EQ(Text("MTMassEditor"), "...");
  for (const char* editor : {"MTCGxEditor", "MTCGyEditor", "MTCGzEditor"}) EXPECT_EQ(Text(editor), "...");
  EXPECT_EQ(MTMoments() + ", " + MTProducts(), "..., ..., ..., ..., ..., ...");
  EXPECT_EQ(Buffer().GetMassTypeDefined("Estimated"), KorWBAllDataBuffer::kNotDefined);
  EXPECT_EQ(Buffer().GetMass("Estimated"), 0);
  EXPECT_EQ(Buffer().GetCG("Estimated"), nullptr);
  EXPECT_EQ(Buffer().GetInertia("Estimated"), nullptr);
  EXPECT_THAT(Server().Requests(), IsEmpty());
}

TEST_F(Delete, OfTheActiveMassTypeMakesTheFirstOneActiveAndTheComputedOneDefined) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  part.massTypes[0].status = protocol::MassTypeStatus::Undefined;
  OfferDelete(part, "Estimated");
  Press("DeleteButton");
  EXPECT_EQ(SelectedLine("ActiveMassCombo"), "Computed");
  EXPECT_EQ(Buffer().GetMassTypeDefined("Computed"), KorWBAllDataBuffer::kDefined);
}

TEST_F(Delete, OfTheActiveMassTypeShowsThePrecisionOfTheOneThatBecomesActive) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  part.massTypes[1].precisionType = 1;
  part.massTypes[1].upperPrecision = 0.25;
  OfferDelete(part, "Estimated");
  EXPECT_EQ(Text("UpperValueEditor"), "25%");
  Press("DeleteButton");
  EXPECT_EQ(Text("ActiveMassTypeSelectedEditor"), "Computed");
  EXPECT_EQ(Text("UpperValueEditor"), "0%");
}

TEST_F(Delete, OfAnotherMassTypeLeavesTheActiveOneAlone) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Weighed";
  part.massTypes[0].status = protocol::MassTypeStatus::OutOfDate;
  OfferDelete(part, "Estimated");
  Press("DeleteButton");
  EXPECT_EQ(SelectedLine("ActiveMassCombo"), "Weighed");
  EXPECT_EQ(Buffer().GetMassTypeDefined("Computed"), KorWBAllDataBuffer::kOutOfDate);
}

TEST_F(Delete, LeavesTheSensitivitiesAsTheyAre) {
  OfferDelete(SamplePart(), "Estimated");
  Press("DeleteButton");
  for (const char* name : {"DeleteButton", "MTMassEditor", "MTCGxEditor", "MTIxyEditor", "SaveButton"})
    EXPECT_TRUE(IsEnabled(name)) << name;
}

TEST_F(Delete, OfTheActiveMassTypeLeavesTheSensitivitiesAsTheyAreToo) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  part.massTypes[1].precisionType = 1;
  OfferDelete(part, "Estimated");
  Press("DeleteButton");
  EXPECT_EQ(SelectedLine("TypeCombo"), "Mass Type");
  for (const char* name : {"UpperValueEditor", "LowerValueEditor", "ValueTypeCombo", "DeleteButton"})
    EXPECT_TRUE(IsEnabled(name)) << name;
}

TEST_F(Delete, OfTheActiveMassTypeSavesTheBoundsOfTheOneThatBecomesActive) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  part.massTypes[1].precisionType = part.massTypes[0].precisionType = 1;
  part.massTypes[1].upperPrecision = 0.25;
  part.massTypes[0].upperPrecision = 8;
  part.massTypes[0].precisionValueType = 1;
  OfferDelete(part, "Estimated");
  Press("DeleteButton");
  EXPECT_EQ(Text("UpperValueEditor"), "8 kg");
  const protocol::MassType sent = TypeOf(Save(), "Computed");
  EXPECT_EQ(sent.upperPrecision, 8);
  EXPECT_EQ(sent.precisionValueType, 1);
}

TEST_F(Delete, ReachesTheServerWithTheNextSave) {
  OfferDelete(SamplePart(), "Estimated");
  Press("DeleteButton");
  const protocol::MassType sent = TypeOf(Save(), "Estimated");
  EXPECT_EQ(sent.status, protocol::MassTypeStatus::Undefined);
  EXPECT_FALSE(sent.mass || sent.cg || sent.inertia);
}

// ---- is what is shown what is stored? A save asks, and sends whether the result is up to date ----

class Modification : public EditTest {
 protected:
  /// What a save of the part with the computed mass type shown says: the result still holds.
  bool HoldsAfterSaving(const protocol::PartData& part) {
    Edit(part, "Computed");
    const bool computed = Save().computed;
    EXPECT_EQ(IsShown("FlagRedLabel[1]"), !computed);
    EXPECT_EQ(IsShown("FlagGreenLabel[1]"), computed);
    return computed;
  }
};

TEST_F(Modification, IsNotReportedOfWhatNobodyEdited) {
  EXPECT_TRUE(HoldsAfterSaving(PartWithoutProducts()));
}

TEST_F(Modification, IsReportedOfAMassOfZeroEvenIfTheBufferHoldsZero) {
  protocol::PartData part = PartWithoutProducts();
  part.massTypes[0].mass = 0;
  EXPECT_FALSE(HoldsAfterSaving(part));
}

TEST_F(Modification, IsReportedWheneverTheYzProductIsNotZero) {
  protocol::PartData part = PartWithoutProducts();
  part.massTypes[0].inertia = {10, 20, 30, 0, 0, -3};
  EXPECT_FALSE(HoldsAfterSaving(part));
}

TEST_F(Modification, OfTheXyProductIsComparedAsItIsStored) {
  protocol::PartData part = PartWithoutProducts();
  part.massTypes[0].inertia = {10, 20, 30, -1, 0, 0};
  EXPECT_TRUE(HoldsAfterSaving(part));
}

TEST_F(Modification, IsReportedOfAnXzProductSinceItIsComparedWithTheStoredYzProduct) {
  protocol::PartData part = PartWithoutProducts();
  part.massTypes[0].inertia = {10, 20, 30, 0, -2, 0};
  EXPECT_FALSE(HoldsAfterSaving(part));
}

TEST_F(Modification, IsNotReportedWhereTheXzEditorHoldsTheStoredYzProduct) {
  protocol::PartData part = PartWithoutProducts();
  part.massTypes[0].inertia = {10, 20, 30, 0, -2, 0};
  Edit(part, "Computed");
  As<KorDlgEditor>("MTIxzEditor").SetText("0");  // no user types computed values
  EXPECT_TRUE(Save().computed);
}

TEST_F(Modification, IsReportedInAnotherUnitThanTheStorageUnit) {
  SetUnit("MASS", "GRAM");
  EXPECT_FALSE(HoldsAfterSaving(PartWithoutProducts()));
}

TEST_F(Modification, IsReportedOfDigitsThatAreNotShown) {
  protocol::PartData part = PartWithoutProducts();
  part.massTypes[0].mass = 1.23456789012345;
  EXPECT_FALSE(HoldsAfterSaving(part));
}

TEST_F(Modification, IsReportedWithoutACentreOfGravityOrInertia) {
  protocol::PartData part = PartWithoutProducts();
  part.massTypes[0].cg.reset();
  EXPECT_FALSE(HoldsAfterSaving(part));
  Close();
  part = PartWithoutProducts();
  part.massTypes[0].inertia.reset();
  EXPECT_FALSE(HoldsAfterSaving(part));
}

TEST_F(Modification, IsReportedOfEachValueThatDiffersFromTheStoredOne) {
  for (const char* editor :
       {"MTMassEditor", "MTCGxEditor", "MTCGyEditor", "MTCGzEditor", "MTIxxEditor", "MTIyyEditor",
        "MTIzzEditor", "MTIxyEditor", "MTIxzEditor", "MTIyzEditor", "DensityEditor"}) {
    Edit(PartWithoutProducts(), "Computed");
    As<KorDlgEditor>(editor).SetText("7");  // no user types computed values
    EXPECT_FALSE(Save().computed) << editor;
    Close();
  }
}

TEST_F(Modification, OfTheDensityTypedIsReported) {
  Edit(PartWithoutProducts(), "Computed");
  PickPage("TabPage004");
  Type("DensityEditor", "7851");
  EXPECT_FALSE(Save().computed);
}

TEST_F(Modification, OfThePriorityOfDensitiesIsReported) {
  Edit(PartWithoutProducts(), "Computed");
  PickPage("TabPage004");
  Pick("FirstCombo", "KORVO");
  EXPECT_FALSE(Save().computed);
}

TEST_F(Modification, OfAUserMassTypeIsNotAskedFor) {
  Edit(SamplePart());
  Type("MTMassEditor", "9");
  EXPECT_TRUE(Save().computed);
  EXPECT_TRUE(IsShown("FlagGreenLabel[1]"));
}

class DocumentModification : public Modification {
 protected:
  DocumentModification() { _part.documents.usedSpecificRevisionBefore = true; }
  protocol::PartData _part = SamplePartWithDocuments();
};

TEST_F(DocumentModification, IsReportedOfAnotherRevisionEvenWhenOnlyDocumentsAreLookedAt) {
  Edit(_part);
  PickPage("TabPageDocuments");
  Press("ChangeActiveDocButton");
  Pick("ActiveDocsCombo", "D-7 A");
  Press("CancelActiveDocButton");
  EXPECT_FALSE(Save().computed);
  EXPECT_TRUE(IsShown("FlagRedLabel[1]"));
}

TEST_F(DocumentModification, IsNotReportedOfTheActiveRevision) {
  Edit(_part);
  EXPECT_TRUE(Save().computed);
}

TEST_F(DocumentModification, IsReportedOfTheAutomaticRevisionWhoseLineIsEmpty) {
  _part.documents.usedSpecificRevisionBefore = false;
  Edit(_part);
  EXPECT_FALSE(Save().computed);
}

TEST_F(DocumentModification, StoresTheAnswerAsItComesAlsoWhereTheValuesWereNotUpToDate) {
  _part.computed = false;
  Edit(_part);
  EXPECT_TRUE(Save().computed);
}

// ---- no buffer ----

TEST_F(EditMode, DoesNothingWithoutABuffer) {
  Open(SamplePart());
  Panel().SetModel(nullptr);
  Press("EditButton");
  EXPECT_TRUE(IsEnabled("EditButton"));
  EXPECT_FALSE(IsEnabled("SaveButton"));
}

TEST_F(Delete, DoesNothingWithoutABuffer) {
  OfferDelete(SamplePart(), "Estimated");
  Panel().SetModel(nullptr);
  Press("DeleteButton");
  EXPECT_EQ(Text("MTMassEditor"), "4 kg");
}

}  // namespace
