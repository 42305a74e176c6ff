#include <gtest/gtest.h>

#include <iostream>

#include "module/filter_panel/KorWBNymNavFilterPanel.h"
#include "tests/support/FilterState.h"
#include "tests/support/StreamCapture.h"

namespace {

using Panel = KorWBNymNavFilterPanel;
using List = KorListValKorUnicodeString;

/// Two rows: (I1, P1, A, depth 2, path R, S) and (I2, P2, B, depth 0).
constexpr const char* kTwoRows = "1|2|I1|P1|A|2|R|S|I2|P2|B|0";

struct FilterState : testing::Test {
  FilterState() { ResetFilterState(); }
  ~FilterState() override { ResetFilterState(); }

  static void ChooseUserFilter(const char* rows) {
    Panel::selectedFilterOption = 0;
    Panel::selectedPRCID = "ROOT";
    Panel::PVSFilterPRCID = "ROOT";
    Panel::selectedPVSFilter = rows;
    Panel::selectedFilter = rows;
  }
  static void ChooseConfiguration(const char* name) {
    Panel::selectedFilterOption = 1;
    Panel::selectedPRCID = "ROOT";
    Panel::selectedPRCConfigHandler = name;
  }
};

/// The values that the state had when the module was loaded, read before any test changes them.
struct LoadedState {
  std::int32_t option = Panel::selectedFilterOption;
  KorUnicodeString prc = Panel::selectedPRCID;
  KorUnicodeString pvsPrc = Panel::PVSFilterPRCID;
  KorUnicodeString handler = Panel::selectedPRCConfigHandler;
  KorUnicodeString pvs = Panel::selectedPVSFilter;
  KorUnicodeString filter = Panel::selectedFilter;
  List instances, parts, versions, depths, paths;
  HRESULT listsStatus = Panel::GetFilterContents(instances, parts, versions, depths, paths);
} const g_loaded;

TEST_F(FilterState, IsLoadedWithNoChoice) {
  EXPECT_EQ(g_loaded.option, -1);
  EXPECT_EQ(g_loaded.prc, "");
  EXPECT_EQ(g_loaded.pvsPrc, "");
  EXPECT_EQ(g_loaded.handler, "No Filter");
  EXPECT_EQ(g_loaded.pvs, "");
  EXPECT_EQ(g_loaded.filter, "0|No Filter");
  EXPECT_EQ(g_loaded.listsStatus, S_OK);
  for (const List* list :
       {&g_loaded.instances, &g_loaded.parts, &g_loaded.versions, &g_loaded.depths, &g_loaded.paths})
    EXPECT_EQ(list->Size(), 0);
}

TEST_F(FilterState, BeforeAnyChoiceThereIsNoFilterAndEveryInstanceIsValid) {
  EXPECT_EQ(Panel::GetFilter("ROOT"), "0|No Filter");
  EXPECT_EQ(Panel::GetDisplayFilter("ROOT"), "No Filter");
  EXPECT_TRUE(Panel::IsValid("ROOT", "I1", "P1", "A", 0, ""));
  EXPECT_EQ(Panel::GetFilter(""), "0|No Filter")
      << "the empty product is the chosen one, and still nothing was chosen";
  EXPECT_EQ(Panel::GetDisplayFilter(""), "No Filter");
}

TEST_F(FilterState, AUserFilterWithAnEmptyListIsNoFilter) {
  ChooseUserFilter("1|0");
  EXPECT_EQ(Panel::GetFilter("ROOT"), "0|No Filter");
  EXPECT_EQ(Panel::GetDisplayFilter("ROOT"), "No Filter");
  EXPECT_TRUE(Panel::IsValid("ROOT", "I9", "P9", "Z", 0, ""));
}

TEST_F(FilterState, AUserFilterSwitchedToButNeverConfirmedGivesTheSelectedFilterAsItStands) {
  Panel::selectedFilterOption = 0;
  Panel::selectedPRCID = "ROOT";
  Panel::selectedFilter = "0|Winter kit";
  EXPECT_EQ(Panel::GetFilter("ROOT"), "0|Winter kit");
  EXPECT_EQ(Panel::GetDisplayFilter("ROOT"), "User Filter");
  EXPECT_TRUE(Panel::IsValid("ROOT", "I1", "P1", "A", 0, ""));
}

TEST_F(FilterState, AUserFilterIsHandedOutAndShownAsSuch) {
  ChooseUserFilter(kTwoRows);
  EXPECT_EQ(Panel::GetFilter("ROOT"), kTwoRows);
  EXPECT_EQ(Panel::GetDisplayFilter("ROOT"), "User Filter");
}

TEST_F(FilterState, AConfigurationFilterIsHandedOutByItsName) {
  ChooseConfiguration("Winter kit");
  EXPECT_EQ(Panel::GetFilter("ROOT"), "0|Winter kit");
  EXPECT_EQ(Panel::GetDisplayFilter("ROOT"), "Winter kit");
}

TEST_F(FilterState, TheConfigurationFilterDoesNotCountWhileTheUserFilterIsChosen) {
  ChooseConfiguration("Winter kit");
  ChooseUserFilter(kTwoRows);
  EXPECT_EQ(Panel::GetFilter("ROOT"), kTwoRows);
}

TEST_F(FilterState, AnotherProductAlwaysHasNoFilterAndEveryInstanceIsValid) {
  ChooseUserFilter(kTwoRows);
  EXPECT_EQ(Panel::GetFilter("OTHER"), "0|No Filter");
  EXPECT_EQ(Panel::GetDisplayFilter("OTHER"), "No Filter");
  EXPECT_TRUE(Panel::IsValid("OTHER", "I9", "P9", "Z", 0, ""));
  ChooseConfiguration("Winter kit");
  EXPECT_EQ(Panel::GetFilter("OTHER"), "0|No Filter");
  EXPECT_EQ(Panel::GetDisplayFilter("OTHER"), "No Filter");
  EXPECT_EQ(Panel::GetFilter("root"), "0|No Filter") << "identical means the same letters";
}

TEST_F(FilterState, AnInstanceIsJudgedByTheProductOfTheChoiceAndNotByThatOfTheRecordedList) {
  ChooseUserFilter(kTwoRows);
  Panel::PVSFilterPRCID = "OTHER";
  EXPECT_FALSE(Panel::IsValid("ROOT", "I9", "P9", "Z", 0, ""));
  EXPECT_TRUE(Panel::IsValid("OTHER", "I9", "P9", "Z", 0, ""));
}

TEST_F(FilterState, ARowOfTheUserFilterIsValidAndAnotherIsNot) {
  ChooseUserFilter(kTwoRows);
  EXPECT_TRUE(Panel::IsValid("ROOT", "I1", "P1", "A", 2, "R|S"));
  EXPECT_TRUE(Panel::IsValid("ROOT", "I2", "P2", "B", 0, ""));
  EXPECT_FALSE(Panel::IsValid("ROOT", "I1", "P1", "B", 2, "R|S"));
  EXPECT_FALSE(Panel::IsValid("ROOT", "I1", "P1", "A", 2, "R|T"));
  EXPECT_FALSE(Panel::IsValid("ROOT", "I3", "P3", "A", 0, ""));
}

TEST_F(FilterState, ThePathDoesNotCountAtDepthZero) {
  ChooseUserFilter(kTwoRows);
  EXPECT_TRUE(Panel::IsValid("ROOT", "I2", "P2", "B", 0, "ignored"));
}

TEST_F(FilterState, AKeyThatHappensToOccurInsideALongerRowIsValidOnPurpose) {
  ChooseUserFilter("1|1|XI1|P1|A|2|R|S2");
  EXPECT_TRUE(Panel::IsValid("ROOT", "I1", "P1", "A", 2, "R|S")) << "inside XI1|P1|A|2|R|S2";
}

TEST_F(FilterState, EveryInstanceIsValidUnderAConfigurationFilter) {
  ChooseUserFilter(kTwoRows);
  Panel::selectedFilterOption = 1;
  EXPECT_TRUE(Panel::IsValid("ROOT", "I9", "P9", "Z", 0, ""));
}

TEST_F(FilterState, TheUserFilterStillDecidesWhileNoOptionWasChosen) {
  ChooseUserFilter(kTwoRows);
  Panel::selectedFilterOption = -1;
  EXPECT_FALSE(Panel::IsValid("ROOT", "I9", "P9", "Z", 0, ""));
  EXPECT_EQ(Panel::GetFilter("ROOT"), "0|No Filter");
}

TEST_F(FilterState, HandsItsRowsOutWithTheDepthsFourthAndThePathsFifth) {
  KorWBNymNavFilterPanelPeer::Store({"I1", "I2"}, {"P1", "P2"}, {"A", "B"}, {"R|S", ""}, {"2", "0"});
  List instances{"old"}, parts, versions, depths, paths{"old"};
  EXPECT_EQ(Panel::GetFilterContents(instances, parts, versions, depths, paths), S_OK);
  EXPECT_EQ(instances, (List{"I1", "I2"}));
  EXPECT_EQ(parts, (List{"P1", "P2"}));
  EXPECT_EQ(versions, (List{"A", "B"}));
  EXPECT_EQ(depths, (List{"2", "0"}));
  EXPECT_EQ(paths, (List{"R|S", ""}));
}

TEST_F(FilterState, HandsOutEmptyListsWhenThereAreNoRows) {
  List instances{"old"}, parts{"old"}, versions{"old"}, depths{"old"}, paths{"old"};
  EXPECT_EQ(Panel::GetFilterContents(instances, parts, versions, depths, paths), S_OK);
  for (const List* list : {&instances, &parts, &versions, &depths, &paths}) EXPECT_EQ(list->Size(), 0);
}

TEST_F(FilterState, RefusesToHandOutListsOfDifferentSizesWhicheverDiffers) {
  const List one{"x"}, none;
  const List* const kLists[][5] = {{&none, &one, &one, &one, &one},  {&one, &none, &one, &one, &one},
                                   {&one, &one, &none, &one, &one},  {&one, &one, &one, &none, &one},
                                   {&one, &one, &one, &one, &none},  {&none, &none, &one, &one, &one},
                                   {&none, &none, &none, &one, &one}};
  for (const auto& lists : kLists) {
    KorWBNymNavFilterPanelPeer::Store(*lists[0], *lists[1], *lists[2], *lists[3], *lists[4]);
    StreamCapture errors(std::cerr);
    List instances{"old"}, parts{"old"}, versions{"old"}, depths{"old"}, paths{"old"};
    EXPECT_EQ(Panel::GetFilterContents(instances, parts, versions, depths, paths), E_FAIL);
    for (const List* list : {&instances, &parts, &versions, &depths, &paths}) EXPECT_EQ(list->Size(), 0);
    EXPECT_EQ(errors.Text(), "GetFilterContents() - The size of the stored lists are not equal!\n");
  }
}

}  // namespace
