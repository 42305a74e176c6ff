#include <algorithm>

#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgMultiList.h"
#include "tests/module/FilterPanelTest.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct FilterPanelChoice : FilterPanelTest {
  /// All of the process's filter that a handler could change, in one text.
  static std::string State() {
    List instances, parts, versions, depths, paths;
    EXPECT_EQ(Chosen::GetFilterContents(instances, parts, versions, depths, paths), S_OK);
    std::string text = std::to_string(Chosen::selectedFilterOption);
    for (const KorUnicodeString* one :
         {&Chosen::selectedPRCID, &Chosen::PVSFilterPRCID, &Chosen::selectedPRCConfigHandler,
          &Chosen::selectedPVSFilter, &Chosen::selectedFilter})
      text += "; " + one->Utf8();
    for (const List* list : {&instances, &parts, &versions, &depths, &paths}) {
      text += ";";
      for (const KorUnicodeString& one : *list) text += " " + one.Utf8();
    }
    return text;
  }
  void ConfirmTwoRows() {
    Open();
    Add("I1", "P1", "A", "R|S", 2);
    Add("I2", "P2", "B", "", 0);
    PressOK();
  }
};

// ---- the two radio buttons ----

TEST_F(FilterPanelChoice, ChoosingAConfigurationTakesTheListOutOfUseAndItsSelectionAway) {
  Open();
  Add("I1", "P1", "A", "", 0);
  SelectRows({0});
  Check("CfgFilterBtn");
  EXPECT_THAT(SelectedRows(), IsEmpty());
  EXPECT_FALSE(IsEnabled("FilterMultiList"));
  EXPECT_FALSE(IsEnabled("RemoveCriterionButton"));
  EXPECT_FALSE(IsEnabled("ClearAllCriteriaButton"));
  EXPECT_TRUE(IsEnabled("ConfigHandlerIDCombo"));
  EXPECT_EQ(Rows().size(), 1u) << "the rows stay";
}

TEST_F(FilterPanelChoice, ChoosingTheUserFilterTakesTheComboOutOfUse) {
  Chosen::selectedFilterOption = 1;
  Open();
  Check("PVSFilterBtn");
  EXPECT_TRUE(IsEnabled("FilterMultiList"));
  EXPECT_TRUE(IsEnabled("RemoveCriterionButton"));
  EXPECT_TRUE(IsEnabled("ClearAllCriteriaButton"));
  EXPECT_FALSE(IsEnabled("ConfigHandlerIDCombo"));
}

TEST_F(FilterPanelChoice, TheOptionChangesAtOnceBeforeOkAndStaysAfterCancelOnPurpose) {
  Open();
  Check("CfgFilterBtn");
  EXPECT_EQ(Chosen::selectedFilterOption, 1);
  Check("PVSFilterBtn");
  EXPECT_EQ(Chosen::selectedFilterOption, 0);
  Check("CfgFilterBtn");
  PressCancel();
  EXPECT_EQ(Chosen::selectedFilterOption, 1);
}

TEST_F(FilterPanelChoice, PickingALineOfTheComboChangesNothingBeforeOk) {
  Chosen::selectedFilterOption = 1;
  Open();
  const std::string before = State();
  Pick("Structure only");
  EXPECT_EQ(State(), before);
}

// ---- OK ----

TEST_F(FilterPanelChoice, OkRecordsTheRowsAsTextAndAsLists) {
  ConfirmTwoRows();
  EXPECT_EQ(UserFilter(), "1|2|I1|P1|A|2|R|S|I2|P2|B|0");
  EXPECT_EQ(Chosen::selectedFilter, "1|2|I1|P1|A|2|R|S|I2|P2|B|0");
  EXPECT_EQ(Chosen::selectedPRCID, "TURBINE");
  EXPECT_EQ(Chosen::PVSFilterPRCID, "TURBINE");
  List instances, parts, versions, depths, paths;
  EXPECT_EQ(Chosen::GetFilterContents(instances, parts, versions, depths, paths), S_OK);
  EXPECT_EQ(instances, (List{"I1", "I2"}));
  EXPECT_EQ(parts, (List{"P1", "P2"}));
  EXPECT_EQ(versions, (List{"A", "B"}));
  EXPECT_EQ(depths, (List{"2", "0"})) << "the depths come before the paths on purpose";
  EXPECT_EQ(paths, (List{"R|S", ""}));
}

TEST_F(FilterPanelChoice, AfterOkEachPanelGetsTheUserFilterOfThisProduct) {
  ConfirmTwoRows();
  EXPECT_EQ(Chosen::GetFilter("TURBINE"), "1|2|I1|P1|A|2|R|S|I2|P2|B|0");
  EXPECT_EQ(Chosen::GetDisplayFilter("TURBINE"), "User Filter");
  EXPECT_TRUE(Chosen::IsValid("TURBINE", "I1", "P1", "A", 2, "R|S"));
  EXPECT_FALSE(Chosen::IsValid("TURBINE", "I9", "P1", "A", 2, "R|S"));
  EXPECT_EQ(Chosen::GetFilter("OTHER"), "0|No Filter");
}

TEST_F(FilterPanelChoice, OkWithTheUserFilterAndAnEmptyListIsNoFilter) {
  Open();
  PressOK();
  EXPECT_EQ(UserFilter(), "1|0");
  EXPECT_EQ(Chosen::selectedFilter, "1|0");
  EXPECT_EQ(Chosen::GetFilter("TURBINE"), "0|No Filter");
  EXPECT_EQ(Chosen::GetDisplayFilter("TURBINE"), "No Filter");
}

TEST_F(FilterPanelChoice, OkWithTheConfigurationNoFilterIsNoFilter) {
  Open();
  Check("CfgFilterBtn");
  Pick("No Filter");
  PressOK();
  EXPECT_EQ(Chosen::selectedFilter, "0|No Filter");
  EXPECT_EQ(Chosen::GetFilter("TURBINE"), "0|No Filter");
  EXPECT_EQ(Chosen::GetDisplayFilter("TURBINE"), "No Filter");
}

TEST_F(FilterPanelChoice, OkWithAConfigurationRecordsItsNameAndTheRowsToo) {
  Open();
  Add("I1", "P1", "A", "", 0);
  Check("CfgFilterBtn");
  Pick("Structure only");
  PressOK();
  EXPECT_EQ(Chosen::selectedPRCConfigHandler, "Structure only");
  EXPECT_EQ(Chosen::selectedFilter, "0|Structure only");
  EXPECT_EQ(UserFilter(), "1|1|I1|P1|A|0");
  EXPECT_EQ(Chosen::GetFilter("TURBINE"), "0|Structure only");
  EXPECT_EQ(Chosen::GetDisplayFilter("TURBINE"), "Structure only");
}

TEST_F(FilterPanelChoice, OkWithAnOptionThatIsNeitherHandsOutTheConfiguration) {
  Open({.handler = "No generator"});
  Add("I1", "P1", "A", "", 0);
  Chosen::selectedFilterOption = -1;
  PressOK();
  EXPECT_EQ(Chosen::selectedFilter, "0|No generator") << "only option 0 hands out the user filter";
  EXPECT_EQ(UserFilter(), "1|1|I1|P1|A|0");
}

TEST_F(FilterPanelChoice, OkWithTheUserFilterRecordsTheNameInTheComboToo) {
  Open({.handler = "No generator"});
  PressOK();
  EXPECT_EQ(Chosen::selectedPRCConfigHandler, "No generator");
  EXPECT_EQ(Chosen::selectedFilter, "1|0");
}

TEST_F(FilterPanelChoice, ARowOfDepthZeroIsWrittenWithoutItsPathAndReadBackWithAnEmptyOne) {
  Open();
  Add("I1", "P1", "A", "R|S", 0);
  PressOK();
  EXPECT_EQ(UserFilter(), "1|1|I1|P1|A|0");
  List instances, parts, versions, depths, paths;
  Chosen::GetFilterContents(instances, parts, versions, depths, paths);
  EXPECT_EQ(paths, (List{"R|S"})) << "the list of paths keeps it";
  Open();
  EXPECT_THAT(Rows(), ElementsAre("I1, P1, A, , 0, "));
}

TEST_F(FilterPanelChoice, EmptyFieldsAreWrittenAsTheyAreAndReadBack) {
  Open();
  Add("", "P1", "", "", 1);
  Add("I2", "", "B", "|S", 2);
  PressOK();
  EXPECT_EQ(UserFilter(), "1|2||P1||1||I2||B|2||S");
  Open();
  EXPECT_THAT(Rows(), ElementsAre(", P1, , , 1, ", "I2, , B, /S, 2, |S"));
}

TEST_F(FilterPanelChoice, AnotherOkForgetsTheRowsOfTheFirst) {
  ConfirmTwoRows();
  Open();
  SelectRows({0});
  Press("RemoveCriterionButton");
  PressOK();
  EXPECT_EQ(UserFilter(), "1|1|I2|P2|B|0");
  List instances, parts, versions, depths, paths;
  Chosen::GetFilterContents(instances, parts, versions, depths, paths);
  EXPECT_EQ(instances, (List{"I2"}));
  EXPECT_EQ(depths, (List{"0"}));
}

TEST_F(FilterPanelChoice, OkWithoutACurrentRootRecordsAnEmptyProductAndAnEmptyName) {
  OpenWithoutCurrentRoot();
  PressOK();
  EXPECT_EQ(State(), "0; ; ; ; 1|0; 1|0;;;;;");
}

TEST_F(FilterPanelChoice, OkTellsTheHostOnceTheNewFilterIsInForceAndBeforeThePanelGoes) {
  Open();
  Add("I1", "P1", "A", "", 0);
  std::string filterThen;
  bool shownThen = false;
  Host().whenHeard = [&] {
    filterThen = Chosen::GetFilter("TURBINE").Utf8();
    shownThen = Panel().IsShown() && Rows().size() == 1;
  };
  PressOK();
  ASSERT_EQ(Host().heard.size(), 1u);
  EXPECT_EQ(Host().heard[0].from, &Panel());
  EXPECT_EQ(Host().heard[0].event, KorEvent::DialogOK);
  EXPECT_EQ(filterThen, "1|1|I1|P1|A|0");
  EXPECT_TRUE(shownThen);
  EXPECT_FALSE(Panel().IsShown());
  EXPECT_THAT(Rows(), IsEmpty());
}

TEST_F(FilterPanelChoice, OkWithoutAHostIsDoneAllTheSame) {
  Open();
  Panel().SetParentCommand(nullptr);
  PressOK();
  EXPECT_EQ(UserFilter(), "1|0");
  EXPECT_FALSE(Panel().IsShown());
}

// ---- Cancel and the window's close button ----

TEST_F(FilterPanelChoice, CancelKeepsThePreviousFilterTellsTheHostAndHides) {
  ConfirmTwoRows();
  const std::string before = State();
  Open();
  Add("I9", "P9", "Z", "", 0);
  Host().heard.clear();
  PressCancel();
  EXPECT_EQ(State(), before);
  ASSERT_EQ(Host().heard.size(), 1u);
  EXPECT_EQ(Host().heard[0].from, &Panel());
  EXPECT_EQ(Host().heard[0].event, KorEvent::DialogCancel);
  EXPECT_FALSE(Panel().IsShown());
  EXPECT_THAT(Rows(), IsEmpty());
}

TEST_F(FilterPanelChoice, ClosingTheWindowDoesWhatCancelDoes) {
  ConfirmTwoRows();
  const std::string before = State();
  Open();
  Press("ClearAllCriteriaButton");
  Host().heard.clear();
  CloseWindow();
  EXPECT_EQ(State(), before);
  ASSERT_EQ(Host().heard.size(), 1u);
  EXPECT_EQ(Host().heard[0].event, KorEvent::WindowClose);
  EXPECT_FALSE(Panel().IsShown());
}

TEST_F(FilterPanelChoice, CancelTellsTheHostBeforeItHides) {
  Open();
  bool shownThen = false;
  Host().whenHeard = [&] { shownThen = Panel().IsShown(); };
  PressCancel();
  EXPECT_TRUE(shownThen);
}

TEST_F(FilterPanelChoice, CancelHidesFirstAndThenClearsTheListTwiceOnPurpose) {
  Open();
  Add("I1", "P1", "A", "", 0);
  Backend().ClearLog();
  EXPECT_EQ(Panel().Cancel(nullptr, nullptr), 0);
  EXPECT_THAT(Backend().Log(), ElementsAre("KorWBNymNavFilterPanel: Visibility", "FilterMultiList: Rows",
                                           "FilterMultiList: Selection", "FilterMultiList: Rows",
                                           "FilterMultiList: Selection"));
}

TEST_F(FilterPanelChoice, TheFilterOutlivesThePanel) {
  ConfirmTwoRows();
  Close();
  EXPECT_EQ(Chosen::GetFilter("TURBINE"), "1|2|I1|P1|A|2|R|S|I2|P2|B|0");
}

}  // namespace
