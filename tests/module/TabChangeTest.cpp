#include "framework/dialog/KorDlgRadioButton.h"
#include "tests/module/PanelTest.h"

namespace {

class TabChange : public PanelTest {};

TEST_F(TabChange, OutsideTheResultsInertiaIsAtTheCentreOfGravityOfTheCurrentPart) {
  Open(SamplePart());
  Check("RootProductButton");
  Check("ReferenceButton");
  PickPage("TabPage003");
  EXPECT_TRUE(IsChecked("CGButton"));
  EXPECT_FALSE(IsChecked("ReferenceButton"));
  EXPECT_TRUE(IsChecked("CurrentPartButton"));
  EXPECT_FALSE(IsEnabled("InertiaModeFrame"));
  EXPECT_FALSE(IsEnabled("ReferenceModeFrame"));
}

TEST_F(TabChange, HoldsForEveryPageAfterTheFirst) {
  protocol::PartData part = SamplePartWithDocuments();
  part.propertiesRequested = true;
  Open(part);
  for (const char* page :
       {"TabPage003", "TabPage004", "TabPage005", "TabPageDocuments", "TabPageAdditional"}) {
    PickPage("TabPage002");
    EXPECT_TRUE(IsEnabled("InertiaModeFrame")) << page;
    PickPage(page);
    EXPECT_FALSE(IsEnabled("InertiaModeFrame")) << page;
    EXPECT_FALSE(IsEnabled("ReferenceModeFrame")) << page;
  }
}

TEST_F(TabChange, LeavingTheResultsInCustomModeTakesTheCustomFrameOutOfUse) {
  Open(SamplePart());
  Check("CustomReferenceButton");
  EXPECT_TRUE(IsEnabled("CustomRefModeFrame"));
  PickPage("TabPage003");
  EXPECT_FALSE(IsEnabled("CustomRefModeFrame"));
}

TEST_F(TabChange, BackOnTheResultsTheModesCanBeChosenAgain) {
  Open(SamplePart());
  PickPage("TabPage004");
  PickPage("TabPage002");
  EXPECT_TRUE(IsEnabled("InertiaModeFrame"));
  EXPECT_TRUE(IsEnabled("ReferenceModeFrame"));
  EXPECT_FALSE(IsEnabled("CustomRefModeFrame"));
  Check("ReferenceButton");
}

TEST_F(TabChange, BackOnTheResultsInEditModeTheModesStayDisabled) {
  Open(SamplePart());
  Widget("EditButton").SetSensitivity(KorSensitivity::Disabled);  // as in edit mode
  PickPage("TabPage003");
  PickPage("TabPage002");
  EXPECT_FALSE(IsEnabled("InertiaModeFrame"));
  EXPECT_FALSE(IsEnabled("ReferenceModeFrame"));
}

TEST_F(TabChange, SelectingTheSecondPageOnTheComputedMassTypeLeavesDeleteDisabled) {
  Open(SamplePart());
  Widget("SaveButton").SetSensitivity(KorSensitivity::Enabled);
  Widget("DeleteButton").SetSensitivity(KorSensitivity::Enabled);
  PickPage("TabPage003");
  EXPECT_FALSE(IsEnabled("DeleteButton"));
}

TEST_F(TabChange, EveryChangeDisablesDeleteAlsoForADefinedUserMassTypeOnPurpose) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  Open(part);
  Widget("SaveButton").SetSensitivity(KorSensitivity::Enabled);
  for (const char* page : {"TabPage003", "TabPage002", "TabPage004", "TabPage003"}) {
    Widget("DeleteButton").SetSensitivity(KorSensitivity::Enabled);
    PickPage(page);
    EXPECT_FALSE(IsEnabled("DeleteButton")) << page;
  }
}

TEST_F(TabChange, WithoutABufferChangesNothing) {
  Open(SamplePart());
  Panel().SetModel(nullptr);
  Widget("DeleteButton").SetSensitivity(KorSensitivity::Enabled);
  Check("RootProductButton");
  PickPage("TabPage003");
  EXPECT_TRUE(IsChecked("RootProductButton"));
  EXPECT_TRUE(IsEnabled("InertiaModeFrame"));
  EXPECT_TRUE(IsEnabled("DeleteButton"));
}

TEST_F(TabChange, BackOnTheResultsTheValuesAreThoseOfTheCurrentPart) {
  Open(SamplePart());
  Check("RootProductButton");
  PickPage("TabPage003");
  PickPage("TabPage002");
  EXPECT_EQ(Moments(), "10 kg·m², 20 kg·m², 30 kg·m²") << "back to the current part";
  EXPECT_EQ(CG(), "100 mm, 200 mm, 300 mm");
}

struct CustomFrameCase {
  const char* name;
  KorSensitivity editButton;
  bool enabled;
};
class TabChangeToACustomReference : public TabChange, public testing::WithParamInterface<CustomFrameCase> {};

TEST_P(TabChangeToACustomReference, BackOnTheResultsItsFrameIsEnabledUnlessInEditMode) {
  Open(SamplePart());
  PickPage("TabPage003");
  As<KorDlgRadioButton>("CustomReferenceButton").SetState(KorCheckState::Checked);  // tells nobody
  ASSERT_FALSE(IsEnabled("CustomRefModeFrame"));
  Widget("EditButton").SetSensitivity(GetParam().editButton);
  PickPage("TabPage002");
  EXPECT_EQ(IsEnabled("CustomRefModeFrame"), GetParam().enabled);
}
INSTANTIATE_TEST_SUITE_P(Modes, TabChangeToACustomReference,
                         testing::Values(CustomFrameCase{"Display", KorSensitivity::Enabled, true},
                                         CustomFrameCase{"Edit", KorSensitivity::Disabled, false}),
                         [](const auto& one) { return one.param.name; });

TEST_F(TabChange, LeavingTheResultsAtTheReferenceShowsTheValuesAboutTheCentreOfGravityAgain) {
  Open(SamplePart());
  Check("ReferenceButton");
  ASSERT_EQ(Moments(), "10.26 kg·m², 20.2 kg·m², 30.1 kg·m²");
  PickPage("TabPage003");
  EXPECT_EQ(Moments(), "10 kg·m², 20 kg·m², 30 kg·m²");
  EXPECT_EQ(MTMoments(), "10 kg·m², 20 kg·m², 30 kg·m²");
}

// The change of mode alone shows nothing of a mass type without values.
TEST_F(TabChange, LeavingTheResultsAtTheReferenceDoesSoWithAMassTypeWithoutValuesToo) {
  for (const bool byReferenceMode : {true, false}) {
    protocol::PartData part = SamplePart();
    part.activeMassType = "Weighed";
    Open(part);
    Check("ReferenceButton");
    if (byReferenceMode) {
      Check("RootProductButton");
      Check("CurrentPartButton");
    } else {
      Panel().RefreshPanelWithInfo();
    }
    ASSERT_EQ(Moments(), "10.26 kg·m², 20.2 kg·m², 30.1 kg·m²");
    PickPage("TabPage003");
    EXPECT_EQ(MTMoments(), "..., ..., ...");
    PickPage("TabPage002");
    EXPECT_EQ(Moments(), "10 kg·m², 20 kg·m², 30 kg·m²");
    Close();
  }
}

// Checking "CGButton" by hand shows nothing of a mass type that lacks values: the page still tells of the
// reference point then, although the button says otherwise.
TEST_F(TabChange, LeavingTheResultsShowsTheValuesAboutTheCentreOfGravityWhateverTheButtonsSay) {
  protocol::PartData lacking = SamplePart();
  lacking.activeMassType = "Weighed";
  lacking.massTypes[2].status = protocol::MassTypeStatus::Defined;
  lacking.massTypes[2].mass = 7;
  protocol::PartData negative = SamplePart();
  negative.massTypes[0].mass = -2;
  for (const protocol::PartData& part : {lacking, negative}) {
    Open(part);
    Check("ReferenceButton");
    Panel().RefreshPanelWithInfo();
    Check("CGButton");
    ASSERT_NE(Moments(), "10 kg·m², 20 kg·m², 30 kg·m²");
    PickPage("TabPage003");
    PickPage("TabPage002");
    EXPECT_EQ(Moments(), "10 kg·m², 20 kg·m², 30 kg·m²");
    Close();
  }
}

TEST_F(TabChange, LeavingTheResultsShowsEachMassTypesOwnInertiaOnItsPage) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  Open(part);
  Check("RootProductButton");  // the refresh of the results writes the computed inertia to the other page too
  PickPage("TabPage003");
  EXPECT_EQ(MTMoments(), "5 kg·m², 6 kg·m², 7 kg·m²");
}

TEST_F(TabChange, InEditModeLeavesWhatWasTyped) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  Open(part);
  PickPage("TabPage003");
  Press("EditButton");
  Type("MTIxxEditor", "50");
  PickPage("TabPage004");
  PickPage("TabPage003");
  EXPECT_EQ(Text("MTIxxEditor"), "50");
}

}  // namespace
