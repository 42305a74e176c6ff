#include "framework/dialog/KorDlgMultiList.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/pdm/KorPdmClient.h"
#include "tests/module/FilterPanelTest.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using FilterPanelOpening = FilterPanelTest;
using Request = ScriptedServer::Request;

constexpr const char* kRoot = "CurrentRoot/1|1|ROOT|TURBINE|Turbine|end";
constexpr const char* kFilters = "FilterList/1|2|F1|Structure only||F2|No generator||end";
constexpr const char* kNoHandler = "ConfigurationHandler/1|TURBINE|__null__|end";

TEST_F(FilterPanelOpening, AsksForTheRootThenItsFiltersThenItsHandler) {
  Make();
  Server().Expect("LumGetCurrentRoot", kRoot);
  Server().Expect("LumGetConfigFilters", kFilters);
  Server().Expect("LumGetConfigHandler", kNoHandler);
  BuildAndShow();
  EXPECT_THAT(Server().Requests(),
              ElementsAre(Request{"LumGetCurrentRoot", ""},
                          Request{"LumGetConfigFilters", "FiltersRequest/1|1|ROOT|1|TURBINE|end"},
                          Request{"LumGetConfigHandler", "HandlerRequest/1|TURBINE|end"}));
}

TEST_F(FilterPanelOpening, OfSeveralRootsTheFirstCounts) {
  Make();
  Server().Expect("LumGetCurrentRoot", "CurrentRoot/1|2|R1|PRC1|R2|PRC2|Both|end");
  Server().Expect("LumGetConfigFilters", "FilterList/1|0|end");
  Server().Expect("LumGetConfigHandler", "ConfigurationHandler/1|PRC1|__null__|end");
  BuildAndShow();
  EXPECT_EQ(Server().Requests()[1].text, "FiltersRequest/1|1|R1|1|PRC1|end");
  EXPECT_EQ(Server().Requests()[2].text, "HandlerRequest/1|PRC1|end");
  PressOK();
  EXPECT_EQ(Chosen::selectedPRCID, "PRC1");
}

TEST_F(FilterPanelOpening, TheFirstTimeEndsWithTheUserFilterChosen) {
  Open();
  EXPECT_TRUE(IsChecked("PVSFilterBtn"));
  EXPECT_FALSE(IsChecked("CfgFilterBtn"));
  EXPECT_EQ(Chosen::selectedFilterOption, 0) << "it was -1, and nobody has pressed anything";
  EXPECT_TRUE(IsEnabled("FilterMultiList"));
  EXPECT_TRUE(IsEnabled("RemoveCriterionButton"));
  EXPECT_TRUE(IsEnabled("ClearAllCriteriaButton"));
  EXPECT_FALSE(IsEnabled("ConfigHandlerIDCombo"));
}

TEST_F(FilterPanelOpening, WithAConfigurationFilterInForceItIsChosen) {
  Chosen::selectedFilterOption = 1;
  Open();
  EXPECT_FALSE(IsChecked("PVSFilterBtn"));
  EXPECT_TRUE(IsChecked("CfgFilterBtn"));
  EXPECT_EQ(Chosen::selectedFilterOption, 1);
  EXPECT_FALSE(IsEnabled("FilterMultiList"));
  EXPECT_FALSE(IsEnabled("RemoveCriterionButton"));
  EXPECT_FALSE(IsEnabled("ClearAllCriteriaButton"));
  EXPECT_TRUE(IsEnabled("ConfigHandlerIDCombo"));
}

TEST_F(FilterPanelOpening, AnyOtherOptionThanOneMeansTheUserFilter) {
  Chosen::selectedFilterOption = 7;
  Open();
  EXPECT_TRUE(IsChecked("PVSFilterBtn"));
  EXPECT_EQ(Chosen::selectedFilterOption, 0);
}

TEST_F(FilterPanelOpening, TheComboListsNoFilterAndThenTheNamesInTheOrderOfTheServer) {
  Make();
  Server().Expect("LumGetCurrentRoot", kRoot);
  Server().Expect("LumGetConfigFilters", kFilters);
  Server().Expect("LumGetConfigHandler", kNoHandler);
  BuildAndShow();
  EXPECT_THAT(Lines(), ElementsAre("No Filter", "Structure only", "No generator"));
  EXPECT_EQ(SelectedLine(), "No Filter");
}

TEST_F(FilterPanelOpening, TheHandlerOfTheProductIsSelectedAndTakenOver) {
  Chosen::selectedPRCConfigHandler = "No generator";
  Open({.handler = "Structure only"});
  EXPECT_EQ(SelectedLine(), "Structure only");
  EXPECT_EQ(Chosen::selectedPRCConfigHandler, "Structure only") << "at once, before OK";
}

TEST_F(FilterPanelOpening, WithoutAHandlerTheNameChosenBeforeStaysSelected) {
  Chosen::selectedPRCConfigHandler = "No generator";
  Open();
  EXPECT_EQ(SelectedLine(), "No generator");
  EXPECT_EQ(Chosen::selectedPRCConfigHandler, "No generator");
}

TEST_F(FilterPanelOpening, WhenTheHandlerCannotBeAskedForTheNameChosenBeforeStaysSelected) {
  Chosen::selectedPRCConfigHandler = "No generator";
  Make();
  Server().Expect("LumGetCurrentRoot", kRoot);
  Server().Expect("LumGetConfigFilters", kFilters);
  Server().Expect("LumGetConfigHandler", "LumiraError: no such product");
  BuildAndShow();
  EXPECT_EQ(SelectedLine(), "No generator");
  EXPECT_EQ(Chosen::selectedPRCConfigHandler, "No generator");
}

TEST_F(FilterPanelOpening, AHandlerThatTheComboDoesNotHaveLeavesNoFilterSelected) {
  Chosen::selectedPRCConfigHandler = "Of another product";
  Open();
  EXPECT_EQ(SelectedLine(), "No Filter");
  EXPECT_EQ(Chosen::selectedPRCConfigHandler, "Of another product") << "until OK";
}

TEST_F(FilterPanelOpening, OKThenRecordsNoFilterInPlaceOfTheHandlerThatTheComboDoesNotHave) {
  Chosen::selectedFilterOption = 1;
  Chosen::selectedPRCConfigHandler = "Of another product";
  Open();
  PressOK();
  EXPECT_EQ(Chosen::selectedPRCConfigHandler, "No Filter");
  EXPECT_EQ(Chosen::selectedFilter, "0|No Filter");
}

TEST_F(FilterPanelOpening, TheHandlerOfTheOpenedProductReplacesThatInForceForAnotherOneBeforeOK) {
  Chosen::selectedFilterOption = 1;
  Chosen::selectedPRCID = "CRANE";
  Chosen::selectedPRCConfigHandler = "Jib only";
  Open({.handler = "Structure only"});
  EXPECT_EQ(Chosen::GetFilter("CRANE"), "0|Structure only") << "though CRANE may have no such filter";
  PressCancel();
  EXPECT_EQ(Chosen::GetFilter("CRANE"), "0|Structure only") << "Cancel does not bring it back";
}

TEST_F(FilterPanelOpening, WhenTheFiltersCannotBeReadTheComboHasOnlyNoFilter) {
  Make();
  Server().Expect("LumGetCurrentRoot", kRoot);
  Server().Expect("LumGetConfigFilters", "LumiraError: busy");
  Server().Expect("LumGetConfigHandler", kNoHandler);
  BuildAndShow();
  EXPECT_THAT(Lines(), ElementsAre("No Filter"));
  EXPECT_TRUE(IsChecked("PVSFilterBtn"));
}

TEST_F(FilterPanelOpening, WithoutACurrentRootComboAndListAreEmptyAndTheOptionStillComesInLine) {
  LeaveUserFilter("1|1|I1|P1|A|0");
  Chosen::selectedFilterOption = -1;
  OpenWithoutCurrentRoot();
  EXPECT_THAT(Lines(), IsEmpty());
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_EQ(Server().Requests().size(), 1u) << "nothing more is asked";
  EXPECT_TRUE(IsChecked("PVSFilterBtn"));
  EXPECT_FALSE(IsEnabled("ConfigHandlerIDCombo"));
  EXPECT_EQ(Chosen::selectedFilterOption, 0);
}

TEST_F(FilterPanelOpening, WithoutAServerComboAndListAreEmptyToo) {
  Make();
  KorPdmClient::SetTransport(nullptr);
  BuildAndShow();
  EXPECT_THAT(Lines(), IsEmpty());
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_TRUE(IsChecked("PVSFilterBtn"));
}

TEST_F(FilterPanelOpening, WithoutACurrentRootAStoredFilterOfNoProductIsNotListedEither) {
  LeaveUserFilter("1|1|I1|P1|A|0", "");
  OpenWithoutCurrentRoot();
  EXPECT_THAT(Rows(), IsEmpty());
}

TEST_F(FilterPanelOpening, WithoutACurrentRootTheConfigurationOptionStays) {
  Chosen::selectedFilterOption = 1;
  OpenWithoutCurrentRoot();
  EXPECT_TRUE(IsChecked("CfgFilterBtn"));
  EXPECT_TRUE(IsEnabled("ConfigHandlerIDCombo"));
  EXPECT_EQ(Chosen::selectedPRCConfigHandler, "No Filter");
}

TEST_F(FilterPanelOpening, ShowsTheUserFilterOfTheProductAgain) {
  LeaveUserFilter("1|2|I1|P1|A|2|R|S|I2|P2|B|0");
  Open({}, "TURBINE");
  EXPECT_THAT(Rows(), ElementsAre("I1, P1, A, TURBINE/R/S, 2, R|S", "I2, P2, B, TURBINE, 0, "));
}

TEST_F(FilterPanelOpening, DoesNotShowTheUserFilterOfAnotherProduct) {
  LeaveUserFilter("1|1|I1|P1|A|0", "OTHER");
  Open();
  EXPECT_THAT(Rows(), IsEmpty());
}

TEST_F(FilterPanelOpening, TheProductOfTheUserFilterCountsAndNotTheOneChosenLast) {
  LeaveUserFilter("1|1|I1|P1|A|0");
  Chosen::selectedPRCID = "OTHER";
  Open();
  EXPECT_EQ(Rows().size(), 1u);
}

TEST_F(FilterPanelOpening, AnEmptyUserFilterListsNothing) {
  LeaveUserFilter("1|0");
  Open();
  EXPECT_THAT(Rows(), IsEmpty());
}

TEST_F(FilterPanelOpening, TheKindFieldIsNotUsed) {
  LeaveUserFilter("7|1|I1|P1|A|0");
  Open();
  EXPECT_THAT(Rows(), ElementsAre("I1, P1, A, , 0, "));
}

TEST_F(FilterPanelOpening, ShowsNoMessageWhateverFails) {
  Make();
  Server().Expect("LumGetCurrentRoot", "LumiraError: no");
  BuildAndShow();
  EXPECT_THAT(Backend().Boxes().Messages(), IsEmpty());
}

TEST_F(FilterPanelOpening, TheListIsRefilledOnlyWhenThePanelIsBuilt) {
  Open();
  Add("I1", "P1", "A", "", 0);
  PressOK();
  EXPECT_THAT(Rows(), IsEmpty());
  Panel().SetVisibility(KorVisibility::Shown);
  EXPECT_THAT(Rows(), IsEmpty()) << "shown again without being built anew";
  Open();
  EXPECT_THAT(Rows(), ElementsAre("I1, P1, A, , 0, "));
}

}  // namespace
