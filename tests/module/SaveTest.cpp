#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/knowledge/KorCkeParmDictionary.h"
#include "framework/knowledge/KorUnitSystems.h"
#include "tests/module/EditTest.h"
#include "tests/support/TraceCapture.h"

using testing::HasSubstr;

namespace {

class SaveCommand : public EditTest {
 protected:
  /// The estimated mass type in edit mode with inertia shown about the part's origin; no user gets there.
  void EditAtTheReference() {
    Edit(SamplePart());
    As<KorDlgRadioButton>("ReferenceButton").SetState(KorCheckState::Checked, KorNotify::Send);
  }
};

// ---- what is sent ----

TEST_F(SaveCommand, SendsTheWholeBufferWhichIsAsItWasReadWhenNobodyEditedIt) {
  Edit(SamplePart());
  Save();
  protocol::PartData expected = SamplePart();
  expected.documents.activeId = expected.documents.activeVersion = "__null__";  // there are no documents
  EXPECT_EQ(Server().Requests().back(),
            (ScriptedServer::Request{"WBSaveNymValues", protocol::WritePartData(expected)}));
}

TEST_F(SaveCommand, StoresTypedValuesInStorageUnits) {
  KorApplyUnitSystem("CGS");
  Edit(SamplePart());
  Type("MTMassEditor", "1500");  // g
  Type("MTCGxEditor", "200");    // cm
  const protocol::MassType sent = TypeOf(Save(), "Estimated");
  EXPECT_DOUBLE_EQ(*sent.mass, 1.5);
  EXPECT_DOUBLE_EQ((*sent.cg)[0], 2);
  EXPECT_EQ(sent.status, protocol::MassTypeStatus::Defined);
}

TEST_F(SaveCommand, StoresProductsOfInertiaWithTheirSignReversed) {
  Edit(SamplePart());
  Type("MTIxyEditor", "1");
  Type("MTIxzEditor", "2");
  Type("MTIyzEditor", "3");
  EXPECT_EQ(TypeOf(Save(), "Estimated").inertia, (protocol::Tensor{5, 6, 7, -1, -2, -3}));
}

TEST_F(SaveCommand, SendsValuesThatNobodyEditedWithAllTheirDigits) {
  KorApplyUnitSystem("Imperial");
  protocol::PartData part = SamplePart();
  part.massTypes[1].mass = 1.23456789012345678;
  part.massTypes[1].cg = {0.1234567890123, -2.0000000000001, 1e-9 / 3};
  part.massTypes[1].inertia = {5.0000000000001, 6.1111111111111, 7, 0, -1.0 / 3, 0};
  part.massTypes[0].precisionType = 1;
  part.massTypes[0].lowerPrecision = 1.0 / 3;
  part.material.density = 7849.9999999999;
  Edit(part);
  const protocol::PartData sent = Save();
  EXPECT_EQ(TypeOf(sent, "Estimated").mass, part.massTypes[1].mass);
  EXPECT_EQ(TypeOf(sent, "Estimated").cg, part.massTypes[1].cg);
  EXPECT_EQ(TypeOf(sent, "Estimated").inertia, part.massTypes[1].inertia);
  EXPECT_EQ(TypeOf(sent, "Computed").lowerPrecision, 1.0 / 3);
  EXPECT_EQ(sent.material.density, part.material.density);
}

TEST_F(SaveCommand, StoresTheActiveMassType) {
  Edit(SamplePart());
  Pick("ActiveMassCombo", "Estimated");
  EXPECT_EQ(Save().activeMassType, "Estimated");
}

TEST_F(SaveCommand, StoresMaterialAndDensity) {
  Edit(SamplePart());
  PickPage("TabPage004");
  Type("WBMaterialEditor", "Brass | 60%");
  Type("DensityEditor", "8500");
  const protocol::PartData sent = Save();
  EXPECT_EQ(sent.material.name, "Brass | 60%");
  EXPECT_EQ(sent.material.density, 8500);
}

TEST_F(SaveCommand, LeavesADensityUndefinedUntilOneIsTyped) {
  protocol::PartData part = SamplePart();
  part.material.density.reset();
  Edit(part);
  EXPECT_EQ(Text("DensityEditor"), "0 kg/m³");
  EXPECT_EQ(Save().material.density, std::nullopt);
  Press("EditButton");
  PickPage("TabPage004");
  Type("DensityEditor", "0");
  EXPECT_EQ(Save().material.density, 0);
}

TEST_F(SaveCommand, LeavesAMassAwayUntilOneIsTyped) {
  protocol::PartData part = SamplePart();
  part.massTypes[1].mass.reset();
  Edit(part);
  EXPECT_EQ(Text("MTMassEditor"), "0 kg");
  EXPECT_EQ(TypeOf(Save(), "Estimated").mass, std::nullopt);
  Press("EditButton");
  Type("MTMassEditor", "0");
  EXPECT_EQ(TypeOf(Save(), "Estimated").mass, 0);
}

TEST_F(SaveCommand, SendsAbsoluteBoundsThatNobodyEditedWithAllTheirDigitsUnderEveryUnit) {
  protocol::PartData part = SamplePart();
  part.massTypes[0].precisionType = part.massTypes[0].precisionValueType = 1;
  part.massTypes[0].lowerPrecision = 1.0 / 3;
  part.massTypes[0].upperPrecision = 123456.78901234567;
  for (const auto& unit : KorCkeGlobalFunctions::GetParmDictionary()->FindMagnitude("MASS")->Units()) {
    SetUnit("MASS", unit->Name());
    Edit(part);
    const protocol::MassType sent = TypeOf(Save(), "Computed");
    EXPECT_EQ(sent.lowerPrecision, 1.0 / 3) << unit->Name();
    EXPECT_EQ(sent.upperPrecision, 123456.78901234567) << unit->Name();
    Close();
  }
}

TEST_F(SaveCommand, SendsMagnitudePropertiesThatNobodyEditedWithAllTheirDigitsUnderEveryUnit) {
  for (const char* magnitude : {"MASS", "LENGTH", "DENSITY", "INERTIAMOMENT", "SURFACICMASS"}) {
    protocol::PartData part = SamplePartWithProperties();
    part.properties = {{"Extra", "1234.5678901234567", 2, false, true, magnitude}};
    for (const auto& unit : KorCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(magnitude)->Units()) {
      SetUnit(magnitude, unit->Name());
      Edit(part);
      EXPECT_EQ(Save().properties[0].value, "1234.5678901234567") << unit->Name();
      Close();
    }
  }
}

struct Priority {
  const char* first;
  const char* second;
  int stored;
};
class Priorities : public SaveCommand, public testing::WithParamInterface<Priority> {};

TEST_P(Priorities, AreStoredAsOneNumber) {
  Edit(SamplePart());
  As<KorDlgCombo>("FirstCombo").SetSelect(KorUnicodeString(GetParam().first));
  As<KorDlgCombo>("SecondCombo").SetSelect(KorUnicodeString(GetParam().second));
  EXPECT_EQ(Save().material.densityPriority, GetParam().stored);
}
INSTANTIATE_TEST_SUITE_P(Lines, Priorities,
                         testing::Values(Priority{"KORVO", "WB", 1}, Priority{"WB", "KORVO", 0},
                                         Priority{"WB", "WB", 0}, Priority{"KORVO", "KORVO", 0}));

TEST_F(SaveCommand, StoresThePriorityThatTheUserPicks) {
  Edit(SamplePart());
  PickPage("TabPage004");
  Pick("FirstCombo", "KORVO");
  EXPECT_EQ(Save().material.densityPriority, 1);
}

// ---- inertia about the reference point ----

TEST_F(SaveCommand, MovesInertiaFromTheReferenceToTheCentreOfGravityAndChoosesThat) {
  EditAtTheReference();
  EXPECT_EQ(MTMoments(), "5 kg·m², 10 kg·m², 11 kg·m²");  // 4 kg at 1 m on the x axis
  const protocol::MassType sent = TypeOf(Save(), "Estimated");
  EXPECT_EQ(sent.inertia, (protocol::Tensor{5, 6, 7, 0, 0, 0}));
  EXPECT_TRUE(IsChecked("CGButton"));
  EXPECT_EQ(MTMoments(), "5 kg·m², 6 kg·m², 7 kg·m²");
}

TEST_F(SaveCommand, AfterASaveAtTheReferenceTheInertiaModeIsTheCentreOfGravity) {
  EditAtTheReference();
  Save();
  EXPECT_TRUE(IsChecked("CGButton"));
  EXPECT_FALSE(IsChecked("ReferenceButton"));
}

TEST_F(SaveCommand, AMassOfZeroAtTheReferenceStoresTheInertiaWithoutMovingIt) {
  EditAtTheReference();
  Type("MTMassEditor", "0");
  const protocol::MassType sent = TypeOf(Save(), "Estimated");
  EXPECT_EQ(sent.mass, 0);
  EXPECT_EQ(sent.inertia, (protocol::Tensor{5, 10, 11, 0, 0, 0}));
  EXPECT_TRUE(IsChecked("ReferenceButton"));
}

// ---- standard parts ----

TEST_F(SaveCommand, OfAStandardPartStoresTheMassAloneAndShowsDotsForTheRest) {
  protocol::PartData part = SamplePart();
  part.standardPart = true;
  Edit(part);
  Type("MTMassEditor", "6");
  const protocol::PartData sent = Save();
  EXPECT_TRUE(sent.standardPart);
  EXPECT_EQ(TypeOf(sent, "Estimated").mass, 6);
  EXPECT_EQ(TypeOf(sent, "Estimated").cg, (protocol::Vector{0, 0, 0}));
  EXPECT_EQ(TypeOf(sent, "Estimated").inertia, (protocol::Tensor{0, 0, 0, 0, 0, 0}));
  for (const char* editor : {"MTCGxEditor", "MTCGyEditor", "MTCGzEditor"}) EXPECT_EQ(Text(editor), "...");
  EXPECT_EQ(MTMoments() + ", " + MTProducts(), "..., ..., ..., ..., ..., ...");
}

TEST_F(SaveCommand, OfAStandardPartNeverStoresTypedCentresOrInertia) {
  Edit(SamplePart());
  Type("MTCGxEditor", "50");
  Type("MTIxxEditor", "60");
  Toggle("StdPartCheckButton");
  const protocol::MassType sent = TypeOf(Save(), "Estimated");
  EXPECT_EQ(sent.cg, (protocol::Vector{0, 0, 0}));
  EXPECT_EQ(sent.inertia, (protocol::Tensor{0, 0, 0, 0, 0, 0}));
}

TEST_F(SaveCommand, OfAStandardPartLeavesTheComputedValuesAsTheyAre) {
  protocol::PartData part = SamplePart();
  part.standardPart = true;
  Edit(part, "Computed");
  const protocol::MassType sent = TypeOf(Save(), "Computed");
  EXPECT_EQ(sent.cg, (protocol::Vector{0.1, 0.2, 0.3}));
  EXPECT_EQ(sent.inertia, (protocol::Tensor{10, 20, 30, -1, -2, -3}));
  EXPECT_EQ(Text("MTCGxEditor"), "100 mm");
}

// ---- precision ----

class PrecisionSave : public SaveCommand {
 protected:
  PrecisionSave() { _part.massTypes[0].precisionType = 1; }
  protocol::PartData _part = SamplePart();
};

TEST_F(PrecisionSave, OfFivePercentStoresAFractionAndShowsThePercentage) {
  Edit(_part);
  PickPage("TabPage005");
  Type("UpperValueEditor", "5");
  Type("LowerValueEditor", "2.50");
  const protocol::MassType sent = TypeOf(Save(), "Computed");
  EXPECT_DOUBLE_EQ(sent.upperPrecision, 0.05);
  EXPECT_DOUBLE_EQ(sent.lowerPrecision, 0.025);
  EXPECT_EQ(Text("UpperValueEditor"), "5%");
  EXPECT_EQ(Text("LowerValueEditor"), "2.5%");
}

TEST_F(PrecisionSave, OfAMassStoresItInKilogramsAndShowsItInTheCurrentUnit) {
  _part.massTypes[0].precisionValueType = 1;
  SetUnit("MASS", "GRAM");
  Edit(_part);
  PickPage("TabPage005");
  Type("UpperValueEditor", "250");
  Type("LowerValueEditor", "125");
  const protocol::MassType sent = TypeOf(Save(), "Computed");
  EXPECT_EQ(sent.lowerPrecision, 0.125);
  EXPECT_EQ(sent.upperPrecision, 0.25);
  EXPECT_EQ(sent.precisionValueType, 1);
  EXPECT_EQ(Text("UpperValueEditor"), "250 g");
}

TEST_F(PrecisionSave, IsStoredForTheActiveMassTypeAndNotForTheOneShown) {
  Edit(_part);
  PickPage("TabPage005");
  Type("UpperValueEditor", "5");
  const protocol::PartData sent = Save();
  EXPECT_EQ(TypeOf(sent, "Computed").precisionType, 1);
  EXPECT_EQ(TypeOf(sent, "Estimated").precisionType, 0);
  EXPECT_EQ(TypeOf(sent, "Estimated").upperPrecision, 0);
}

TEST_F(PrecisionSave, OfTheMassTypesOwnBoundsStoresNoBounds) {
  _part.massTypes[0].precisionType = 0;
  _part.massTypes[0].upperPrecision = 0.125;
  _part.massTypes[0].massTypeUpperPrecision = 0.5;
  Edit(_part);
  EXPECT_EQ(Text("UpperValueEditor"), "50%");
  EXPECT_EQ(TypeOf(Save(), "Computed").upperPrecision, 0.125);
}

TEST_F(PrecisionSave, OfABoundThatIsNoNumberStoresZero) {
  _part.massTypes[0].upperPrecision = 0.5;
  Edit(_part);
  PickPage("TabPage005");
  Type("UpperValueEditor", "much");
  EXPECT_EQ(TypeOf(Save(), "Computed").upperPrecision, 0);
  EXPECT_EQ(Text("UpperValueEditor"), "0%");
}

// ---- where the material applies ----

class SaveWithoutInstance : public SaveCommand {
 protected:
  SaveWithoutInstance() {
    _part.hasInstance = false;
    _part.material.appliedOn = "Part Reference";
  }
  protocol::PartData _part = SamplePart();
};

TEST_F(SaveWithoutInstance, StoresThatTheMaterialAppliesToTheInstance) {
  Edit(_part);
  PickPage("TabPage004");
  Check("ApplyOnInstance");
  EXPECT_EQ(Save().material.appliedOn, "Part Instance");
  EXPECT_EQ(Title("Material defined for the: "), "Material applied to: ");
  ExpectEnabled({"ApplyOnInstance", "ApplyOnReference"}, false);
}

TEST_F(SaveWithoutInstance, StoresThatTheMaterialAppliesToTheReference) {
  _part.material.appliedOn = "Part Instance";
  Edit(_part);
  PickPage("TabPage004");
  Check("ApplyOnReference");
  EXPECT_EQ(Save().material.appliedOn, "Part Reference");
}

TEST_F(SaveWithoutInstance, WarnsOfAnEmptyMaterialAndGoesOn) {
  _part.material.name = " ";
  Edit(_part);
  Boxes().ExpectMessage({"KorWBNymMainPanel", CatalogueText("EmptyField.Title"),
                         CatalogueText("EmptyMaterialField.Message"), kErrorFlags});
  EXPECT_EQ(Save().material.appliedOn, "Part Reference") << "as it was";
  EXPECT_EQ(Title("Material defined for the: "), "Material applied to: ");
  ExpectEnabled({"ApplyOnInstance", "ApplyOnReference"}, false);
}

TEST_F(SaveWithoutInstance, StopsAtADensityOfZeroInEditModeWithWhatTheStepsBeforeItStored) {
  Edit(_part);
  Type("MTMassEditor", "9");
  PickPage("TabPage004");
  Type("DensityEditor", "0");
  Boxes().ExpectMessage(
      {"MainWindow", CatalogueText("DensityZero.Title"), CatalogueText("DensityZero.Message"), kErrorFlags});
  Press("SaveButton");
  EXPECT_THAT(Server().Requests(), testing::IsEmpty());
  ExpectEnabled({"SaveButton", "MTMassEditor", "DensityEditor"}, true);
  EXPECT_FALSE(IsEnabled("EditButton"));
  EXPECT_EQ(Buffer().GetMass("Estimated"), 9);
  Type("DensityEditor", "1");
  EXPECT_EQ(Save().material.density, 1);
}

TEST_F(SaveCommand, OfAPartWithAnInstanceGoesOnWithADensityOfZero) {
  Edit(SamplePart());
  PickPage("TabPage004");
  Type("DensityEditor", "0");
  EXPECT_EQ(Save().material.density, 0);
}

// ---- leaving edit mode ----

TEST_F(SaveCommand, EndsEditMode) {
  Edit(SamplePart());
  Save();
  ExpectEnabled(
      {"ActiveMassCombo",  "MTMassEditor",     "MTCGxEditor",      "MTCGyEditor", "MTCGzEditor",
       "MTIxxEditor",      "MTIyyEditor",      "MTIzzEditor",      "MTIyzEditor", "MTIxzEditor",
       "MTIxyEditor",      "DensityEditor",    "WBMaterialEditor", "FirstCombo",  "TypeCombo",
       "UpperValueEditor", "LowerValueEditor", "ValueTypeCombo",   "SaveButton",  "StdPartCheckButton"},
      false);
  ExpectEnabled({"EditButton", "ComputeButton"}, true);
}

TEST_F(SaveCommand, OnTheResultsPageEnablesTheModesAgain) {
  Open(SamplePart());
  Press("EditButton");
  ExpectEnabled({"InertiaModeFrame", "ReferenceModeFrame"}, false);
  Save();
  ExpectEnabled({"InertiaModeFrame", "ReferenceModeFrame"}, true);
}

TEST_F(SaveCommand, OnAnotherPageKeepsTheModesDisabled) {
  Edit(SamplePart());
  Save();
  ExpectEnabled({"InertiaModeFrame", "ReferenceModeFrame"}, false);
}

TEST_F(SaveCommand, OffersNoComputeWhereOneMakesNoSenseWithTheUsersActiveMassType) {
  Edit(SamplePart());
  Buffer().SetComputableWithUserMassType(false);
  Pick("ActiveMassCombo", "Estimated");
  Save();
  EXPECT_FALSE(IsEnabled("ComputeButton"));
}

TEST_F(SaveCommand, OffersAComputeWithTheComputedMassTypeActiveWhateverTheSiteSays) {
  Edit(SamplePart());
  Buffer().SetComputableWithUserMassType(false);
  Save();
  EXPECT_TRUE(IsEnabled("ComputeButton"));
}

// ---- the state token ----

TEST_F(SaveCommand, SendsTheStateThatWasReadAndThenTheOneThatTheLastSaveMade) {
  protocol::PartData part = SamplePart();
  part.stateToken = "7";
  Edit(part);
  EXPECT_EQ(Save("SaveReply/1|P-100|8|end").stateToken, "7");
  Press("EditButton");
  EXPECT_EQ(Save("SaveReply/1|P-100|9|end").stateToken, "8");
}

TEST_F(SaveCommand, IsTraced) {
  Edit(SamplePart());
  TraceCapture trace("KorWBCompPart");
  Save();
  EXPECT_THAT(trace.Text(),
              HasSubstr("String to send to the server for SAVE : " + Server().Requests().back().text + "\n"));
  EXPECT_THAT(trace.Text(), HasSubstr("Server's response: <SaveReply/1|P-100|8|end>\n"));
}

// ---- what the panel shows after it ----

TEST_F(SaveCommand, DefinesTheMassTypeThatWasTyped) {
  Edit(SamplePart(), "Weighed");
  Type("MTMassEditor", "9");
  EXPECT_EQ(TypeOf(Save(), "Weighed").status, protocol::MassTypeStatus::Defined);
}

TEST_F(SaveCommand, TakesTheStandardPartFlagFromTheButton) {
  Edit(SamplePart());
  Buffer().SetStandardPart(true);  // as somebody else's program might
  EXPECT_FALSE(Save().standardPart);
}

TEST_F(SaveCommand, ShowsWhatWasTypedInTheFormOfStoredValues) {
  Edit(SamplePart());
  Type("MTMassEditor", "9");
  Type("MTCGxEditor", "7");
  Type("MTIxxEditor", "50");
  PickPage("TabPage004");
  Type("DensityEditor", "8500");
  Save();
  EXPECT_EQ(Text("MTMassEditor"), "9 kg");
  EXPECT_EQ(Text("MTCGxEditor"), "7 mm");
  EXPECT_EQ(Text("MTIxxEditor"), "50 kg·m²");
  EXPECT_EQ(Text("DensityEditor"), "8500 kg/m³");
}

TEST_F(SaveCommand, LeavesTheLampsWhereTheResultStillHolds) {
  protocol::PartData part = PartWithoutProducts();
  part.computed = false;
  Edit(part, "Computed");
  EXPECT_TRUE(Save().computed);
  EXPECT_TRUE(IsShown("FlagRedLabel[1]"));
  EXPECT_FALSE(IsShown("FlagGreenLabel[1]"));
}

TEST_F(SaveWithoutInstance, RemembersWhereTheMaterialAppliesForTheNextRefresh) {
  Edit(_part);
  PickPage("TabPage004");
  Check("ApplyOnInstance");
  Save();
  Panel().RefreshPanelWithInfo();
  EXPECT_TRUE(IsChecked("ApplyOnInstance"));
  Press("EditButton");
  Check("ApplyOnReference");
  Save();
  Panel().RefreshPanelWithInfo();
  EXPECT_TRUE(IsChecked("ApplyOnReference"));
}

}  // namespace
