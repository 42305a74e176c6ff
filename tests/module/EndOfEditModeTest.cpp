// A refresh of the whole panel ends edit mode.

#include "tests/module/EditTest.h"

using testing::IsEmpty;

namespace {

class EndOfEditMode : public EditTest {
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
    ExpectEnabled(
        {"ActiveMassCombo", "MTMassEditor", "DensityEditor", "WBMaterialEditor", "FirstCombo", "TypeCombo",
         "ValueTypeCombo", "UpperValueEditor", "LowerValueEditor", "SaveButton", "StdPartCheckButton",
         "ActiveDocLatestButton", "ActiveDocUsrSelButton", "ChangeActiveDocButton", "PropertyValueEditor"},
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

TEST_F(EndOfEditMode, GivesUpTheMaterialOfBothSides) {
  protocol::PartData part = SamplePart();
  part.hasInstance = false;
  Edit(part);
  PickPage("TabPage004");
  for (const char* side : {"ApplyOnReference", "ApplyOnInstance"}) {
    Check(side);
    Type("WBMaterialEditor", "Gold");
    Type("DensityEditor", "19300");
  }
  Panel().RefreshPanelWithInfo();
  Press("EditButton");
  Check("ApplyOnReference");
  EXPECT_EQ(Text("WBMaterialEditor") + " " + Text("DensityEditor"), "Cast iron 7200 kg/m³");
  Check("ApplyOnInstance");
  EXPECT_EQ(Text("WBMaterialEditor") + " " + Text("DensityEditor"), "Steel 7850 kg/m³");
}

TEST_F(EndOfEditMode, LeavesNoValuesToPasteOrRescale) {
  Edit(SamplePart());
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "3");
  Panel().RefreshPanelWithInfo();
  ExpectEnabled({"UpdatePropertiesButton", "MTPasteValuesCombo"}, false);
  EXPECT_THAT(Lines("MTPasteValuesCombo"), IsEmpty());
}

}  // namespace
