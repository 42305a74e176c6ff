// Rows that were on the list before and come back: the list is what was added and not removed.
#include <algorithm>
#include <random>

#include "framework/dialog/KorDlgMultiList.h"
#include "tests/module/FilterPanelTest.h"

using testing::ElementsAre;

namespace {

struct FilterPanelReadding : FilterPanelTest {
  void AddTwo() {
    Add("I1", "P1", "A", "R|S", 2);
    Add("I2", "P2", "B", "", 0);
  }
  void ExpectTwo() { EXPECT_THAT(Rows(), ElementsAre("I1, P1, A, /R/S, 2, R|S", "I2, P2, B, , 0, ")); }
};

TEST_F(FilterPanelReadding, AllRowsThatWereClearedCanBeAddedAgain) {
  Open();
  AddTwo();
  Press("ClearAllCriteriaButton");
  AddTwo();
  ExpectTwo();
}

TEST_F(FilterPanelReadding, AllRowsThatWereSelectedAndRemovedCanBeAddedAgain) {
  Open();
  AddTwo();
  SelectRows({0, 1});
  Press("RemoveCriterionButton");
  AddTwo();
  ExpectTwo();
}

TEST_F(FilterPanelReadding, AllRowsThatCancelTookCanBeAddedWhenThePanelIsShownAgain) {
  Open();
  AddTwo();
  PressCancel();
  Panel().SetVisibility(KorVisibility::Shown);
  AddTwo();
  ExpectTwo();
}

TEST_F(FilterPanelReadding, TheyCountInTheFilterAgain) {
  Open();
  AddTwo();
  Press("ClearAllCriteriaButton");
  AddTwo();
  PressOK();
  EXPECT_EQ(UserFilter(), "1|2|I1|P1|A|2|R|S|I2|P2|B|0");
}

/// A plain list of rows as the user expects it, worked beside the panel.
struct FilterPanelModel : FilterPanelTest, testing::WithParamInterface<unsigned> {
  unsigned Die(unsigned sides) { return dice() % sides; }

  void AddOne() {
    static constexpr const char* kPaths[] = {"", "R", "R|S"};
    static constexpr const char* kShown[] = {"", "/R", "/R/S"};
    const std::string identifiers[] = {"I" + std::to_string(Die(3)), "P" + std::to_string(Die(2)), "A"};
    const unsigned depth = Die(3);
    Add(identifiers[0], identifiers[1], identifiers[2], kPaths[depth], static_cast<int>(depth));
    const std::string row = identifiers[0] + ", " + identifiers[1] + ", " + identifiers[2] + ", " +
                            kShown[depth] + ", " + std::to_string(depth) + ", " + kPaths[depth];
    if (std::find(expected.begin(), expected.end(), row) == expected.end()) expected.push_back(row);
  }
  void RemoveSome() {
    std::vector<int> doomed;
    std::vector<std::string> kept;
    for (std::size_t row = 0; row < expected.size(); ++row)
      if (Die(3) == 0)
        doomed.push_back(static_cast<int>(row));
      else
        kept.push_back(expected[row]);
    SelectRows(doomed);
    Press("RemoveCriterionButton");
    expected = kept;
  }
  void RemoveAllSelected() {
    std::vector<int> all;
    for (std::size_t row = 0; row < expected.size(); ++row) all.push_back(static_cast<int>(row));
    SelectRows(all);
    Press("RemoveCriterionButton");
    expected.clear();
  }
  void Clear() {
    Press("ClearAllCriteriaButton");
    expected.clear();
  }
  // The host may show a panel again that has hidden itself; its list is empty then.
  void CancelAndShowAgain() {
    PressCancel();
    Panel().SetVisibility(KorVisibility::Shown);
    expected.clear();
  }
  void CancelAndOpenAnew() {
    PressCancel();
    Open();
    expected = inForce;
  }
  void ConfirmAndOpenAnew() {
    PressOK();
    inForce = expected;
    Open();
  }
  void Step() {
    switch (Die(24)) {
      case 0:
        return RemoveAllSelected();
      case 1:
        return Clear();
      case 2:
        return CancelAndShowAgain();
      case 3:
        return CancelAndOpenAnew();
      case 4:
        return ConfirmAndOpenAnew();
      case 5:
      case 6:
      case 7:
        return RemoveSome();
      default:
        return AddOne();
    }
  }

  std::mt19937 dice{GetParam()};
  std::vector<std::string> expected;
  std::vector<std::string> inForce;
};

TEST_P(FilterPanelModel, TheListIsWhatWasAddedAndNotRemovedWhateverTheOrder) {
  Open();
  for (int step = 0; step < 1500; ++step) {
    Step();
    ASSERT_EQ(Rows(), expected) << "step " << step;
  }
}
INSTANTIATE_TEST_SUITE_P(Seeds, FilterPanelModel, testing::Values(21u, 22u, 23u, 24u));

}  // namespace
