#include <algorithm>

#include "framework/dialog/KorDlgMultiList.h"
#include "tests/module/FilterPanelTest.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct FilterPanelRows : FilterPanelTest {
  long ChangesOfRows() {
    const auto& log = Backend().Log();
    return std::count(log.begin(), log.end(), "FilterMultiList: Rows");
  }
  void AddThree() {
    Add("I1", "P1", "A", "R|S", 2);
    Add("I2", "P2", "B", "", 0);
    Add("I3", "P3", "C", "R", 1);
  }
};

TEST_F(FilterPanelRows, AddedInstancesAreListedInOrder) {
  Open({}, "TURBINE");
  AddThree();
  EXPECT_THAT(Rows(), ElementsAre("I1, P1, A, TURBINE/R/S, 2, R|S", "I2, P2, B, TURBINE, 0, ",
                                  "I3, P3, C, TURBINE/R, 1, R"));
}

TEST_F(FilterPanelRows, ThePathIsShownRelativeToTheProductThatTheHostNamed) {
  Open({}, "Rotor");
  Add("I1", "P1", "A", "R|S", 2);
  Panel().SetPRCId("Tower");
  Add("I2", "P1", "A", "R|S", 2);
  EXPECT_THAT(Rows(), ElementsAre("I1, P1, A, Rotor/R/S, 2, R|S", "I2, P1, A, Tower/R/S, 2, R|S"));
}

/// Rows that are added one after the other, and the lines that there are afterwards.
struct Additions {
  struct Row {
    const char *instance, *part, *version, *path;
    int depth;
  };
  const char* name;
  std::vector<Row> rows;
  std::vector<std::string> lines;
};

void PrintTo(const Additions& additions, std::ostream* out) { *out << additions.name; }

struct FilterPanelAdditions : FilterPanelRows, testing::WithParamInterface<Additions> {};

TEST_P(FilterPanelAdditions, LeaveTheseLines) {
  Open();
  for (const auto& row : GetParam().rows) Add(row.instance, row.part, row.version, row.path, row.depth);
  EXPECT_EQ(Rows(), GetParam().lines);
}

const Additions kAdditions[] = {
    {"OfTheSameInstanceTwiceAreOneLineEvenWithAnotherDepth",
     {{"I1", "P1", "A", "R|S", 2}, {"I1", "P1", "A", "R|S", 2}, {"I1", "P1", "A", "R|S", 9}},
     {"I1, P1, A, /R/S, 2, R|S"}},
    {"ThatDifferInOneFieldAreAllThere",
     {{"I1", "P1", "A", "R", 1},
      {"I2", "P1", "A", "R", 1},
      {"I1", "P2", "A", "R", 1},
      {"I1", "P1", "B", "R", 1},
      {"I1", "P1", "A", "S", 1},
      {"I1", "P1", "A", "R", 1}},
     {"I1, P1, A, /R, 1, R", "I2, P1, A, /R, 1, R", "I1, P2, A, /R, 1, R", "I1, P1, B, /R, 1, R",
      "I1, P1, A, /S, 1, S"}},
    {"ThatOnlyReadTheSameWhenJoinedAreAllThere",
     {{"I", "1P", "A", "R", 1},
      {"I1", "P", "A", "R", 1},
      {"I", "1", "PA", "R", 1},
      {"I|1", "P", "A", "R", 1},
      {"I", "1|P", "A", "R", 1}},
     {"I, 1P, A, /R, 1, R", "I1, P, A, /R, 1, R", "I, 1, PA, /R, 1, R", "I|1, P, A, /R, 1, R",
      "I, 1|P, A, /R, 1, R"}},
};

INSTANTIATE_TEST_SUITE_P(Additions, FilterPanelAdditions, testing::ValuesIn(kAdditions),
                         [](const auto& one) { return std::string(one.param.name); });

TEST_F(FilterPanelRows, NothingIsADuplicateOfAnEmptyList) {
  Open();
  EXPECT_FALSE(Panel().IsDuplicate("", "", "", ""));
  Add("", "", "", "", 0);
  EXPECT_TRUE(Panel().IsDuplicate("", "", "", ""));
}

TEST_F(FilterPanelRows, ARemovedRowIsNoDuplicateAnyMore) {
  Open();
  AddThree();
  SelectRows({0});
  Press("RemoveCriterionButton");
  EXPECT_FALSE(Panel().IsDuplicate("I1", "P1", "A", "R|S"));
  EXPECT_TRUE(Panel().IsDuplicate("I3", "P3", "C", "R"));
  Add("I1", "P1", "A", "R|S", 2);
  EXPECT_THAT(Rows(), ElementsAre("I2, P2, B, , 0, ", "I3, P3, C, /R, 1, R", "I1, P1, A, /R/S, 2, R|S"));
}

TEST_F(FilterPanelRows, ARowThatTheHostWroteIntoTheListIsADuplicateToo) {
  Open();
  Add("I1", "P1", "A", "", 0);
  auto& list = As<KorDlgMultiList>("FilterMultiList");
  list.SetColumnItem(0, "I7", 0);
  EXPECT_TRUE(Panel().IsDuplicate("I7", "P1", "A", ""));
  EXPECT_FALSE(Panel().IsDuplicate("I1", "P1", "A", ""));
}

TEST_F(FilterPanelRows, RemovesTheSelectedRowsInOneCall) {
  Open();
  AddThree();
  SelectRows({0, 2});
  Backend().ClearLog();
  Press("RemoveCriterionButton");
  EXPECT_EQ(ChangesOfRows(), 1);
  EXPECT_THAT(Rows(), ElementsAre("I2, P2, B, , 0, "));
  EXPECT_THAT(SelectedRows(), IsEmpty());
}

TEST_F(FilterPanelRows, RemovesNothingWhenNothingIsSelected) {
  Open();
  AddThree();
  Backend().ClearLog();
  Press("RemoveCriterionButton");
  EXPECT_EQ(ChangesOfRows(), 0);
  EXPECT_EQ(Rows().size(), 3u);
}

TEST_F(FilterPanelRows, ClearsAllRows) {
  Open();
  AddThree();
  Press("ClearAllCriteriaButton");
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_FALSE(Panel().IsDuplicate("I1", "P1", "A", "R|S"));
}

TEST_F(FilterPanelRows, RemovingAndClearingDoNotTouchTheFilterInForce) {
  LeaveUserFilter("1|2|I1|P1|A|2|R|S|I2|P2|B|0");
  Open();
  Press("ClearAllCriteriaButton");
  EXPECT_EQ(UserFilter(), "1|2|I1|P1|A|2|R|S|I2|P2|B|0");
  EXPECT_EQ(Chosen::selectedFilter, "1|2|I1|P1|A|2|R|S|I2|P2|B|0");
}

TEST_F(FilterPanelRows, AddingToAPanelThatIsNotLaidOutDoesNothing) {
  KorWBNymNavFilterPanel panel;
  panel.AddValuesInMultiList("I1", "P1", "A", "", 0);
  EXPECT_FALSE(panel.IsDuplicate("I1", "P1", "A", ""));
  EXPECT_EQ(panel.SetCurrentFilters(), S_OK);
  EXPECT_EQ(panel.Cancel(nullptr, nullptr), 0);
}

TEST_F(FilterPanelRows, ShowingTheStoredFilterAgainAddsNothingTwice) {
  LeaveUserFilter("1|2|I1|P1|A|2|R|S|I2|P2|B|0");
  Open();
  EXPECT_EQ(Panel().SetCurrentFilters(), S_OK);
  EXPECT_EQ(Rows().size(), 2u);
}

TEST_F(FilterPanelRows, ALongListKeepsEachRowOnce) {
  Open();
  for (int round = 0; round < 2; ++round)
    for (int number = 0; number < 2000; ++number) Add("I" + std::to_string(number), "P", "A", "R", 1);
  EXPECT_EQ(As<KorDlgMultiList>("FilterMultiList").GetLineCount(), 2000);
}

}  // namespace
