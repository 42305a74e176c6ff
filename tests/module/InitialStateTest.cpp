#include <set>

#include "module/filter_panel/KorWBNymNavFilterPanel.h"
#include "tests/module/PanelTest.h"

using testing::UnorderedElementsAreArray;

namespace {

constexpr const char* kDisabledAtFirst[] = {
    "ActiveMassCombo", "MTMassEditor",      "MTCGxEditor",      "MTCGyEditor",    "MTCGzEditor",
    "MTIxxEditor",     "MTIyyEditor",       "MTIzzEditor",      "MTIyzEditor",    "MTIxzEditor",
    "MTIxyEditor",     "DensityEditor",     "WBMaterialEditor", "FirstCombo",     "SecondCombo",
    "TypeCombo",       "UpperValueEditor",  "LowerValueEditor", "ValueTypeCombo", "SaveButton",
    "DeleteButton",    "CustomRefModeFrame"};
constexpr const char* kDisabledDocuments[] = {"ActiveDocLatestButton", "ActiveDocUsrSelButton",
                                              "ActiveDocsCombo",       "ChangeActiveDocButton",
                                              "ApplyActiveDocButton",  "CancelActiveDocButton"};

void CollectDisabled(const KorDlgObject& parent, std::vector<std::string>& names) {
  for (const auto& child : parent.Children()) {
    if (!child->IsEnabled()) names.push_back(child->Name());
    CollectDisabled(*child, names);
  }
}

class InitialState : public PanelTest {
 protected:
  std::vector<std::string> Disabled() {
    std::vector<std::string> names;
    CollectDisabled(Panel(), names);
    return names;
  }
};

TEST_F(InitialState, OpensReadOnlyWithExactlyTheseWidgetsDisabled) {
  Open(SamplePart());
  EXPECT_THAT(Disabled(), UnorderedElementsAreArray(kDisabledAtFirst));
}

TEST_F(InitialState, DisablesTheChoiceOfTheActiveDocumentToo) {
  Open(SamplePartWithDocuments());
  std::vector<std::string> expected(std::begin(kDisabledAtFirst), std::end(kDisabledAtFirst));
  expected.insert(expected.end(), std::begin(kDisabledDocuments), std::end(kDisabledDocuments));
  EXPECT_THAT(Disabled(), UnorderedElementsAreArray(expected));
}

TEST_F(InitialState, DisablesTheValueOfAnAdditionalPropertyToo) {
  Open(SamplePartWithProperties());
  std::vector<std::string> expected(std::begin(kDisabledAtFirst), std::end(kDisabledAtFirst));
  expected.push_back("PropertyValueEditor");
  EXPECT_THAT(Disabled(), UnorderedElementsAreArray(expected));
}

TEST_F(InitialState, ShowsInertiaAtTheCentreOfGravityOfTheCurrentPart) {
  Open(SamplePart());
  EXPECT_TRUE(IsChecked("CGButton"));
  EXPECT_FALSE(IsChecked("ReferenceButton"));
  EXPECT_TRUE(IsChecked("CurrentPartButton"));
  EXPECT_FALSE(IsChecked("RootProductButton"));
  EXPECT_FALSE(IsChecked("CustomReferenceButton"));
}

TEST_F(InitialState, HidesTheCustomFrameSinceCheckingTheCurrentPartNotifies) {
  Open(SamplePart());
  EXPECT_FALSE(IsShown("CustomRefModeFrame"));
  EXPECT_FALSE(IsEnabled("CustomRefModeFrame"));
}

TEST_F(InitialState, OpensOnTheResultsPage) {
  Open(SamplePart());
  EXPECT_EQ(SelectedPage(), "TabPage002");
}

TEST_F(InitialState, ShowsTheCurrentlyAttachedRevision) {
  Open(SamplePartWithDocuments());
  EXPECT_EQ(Text("CurrentlyAttachedDocEditor"), "A");
}

TEST_F(InitialState, ShowsThatNoFilterIsInForceAndTellsTheBuffer) {
  protocol::PartData part = SamplePart();
  part.filter = "0|Left over";
  Open(part);
  EXPECT_EQ(Text("ConfigHandlerEditor"), "No Filter");
  KorUnicodeString filter;
  Buffer().GetFilter(filter);
  EXPECT_EQ(filter, "0|No Filter");
}

TEST_F(InitialState, ShowsTheFilterChosenForThePartsProductAndTellsTheBuffer) {
  KorWBNymNavFilterPanel::selectedPRCID = "ROOT";
  KorWBNymNavFilterPanel::selectedFilterOption = 1;
  KorWBNymNavFilterPanel::selectedPRCConfigHandler = "Winter kit";
  Open(SamplePart());
  EXPECT_EQ(Text("ConfigHandlerEditor"), "Winter kit");
  KorUnicodeString filter;
  Buffer().GetFilter(filter);
  EXPECT_EQ(filter, "0|Winter kit");
}

TEST_F(InitialState, AFilterChosenForAnotherProductIsNotInForce) {
  KorWBNymNavFilterPanel::selectedPRCID = "OTHER";
  KorWBNymNavFilterPanel::selectedFilterOption = 1;
  KorWBNymNavFilterPanel::selectedPRCConfigHandler = "Winter kit";
  Open(SamplePart());
  EXPECT_EQ(Text("ConfigHandlerEditor"), "No Filter");
}

}  // namespace
