#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>
#include <utility>

#include "tests/support/RecordingBackend.h"
#include "tests/support/SampleDialog.h"
#include "tests/support/UnreachableLog.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A list of parts and masses on the page in front: hub and blade.
struct MultiList : testing::Test {
  MultiList() {
    dialog.tabs->SetSelectedPage(2);
    dialog.Attach(&backend);
  }
  ~MultiList() override {
    backend.ExpectMirrorsDialog(dialog);
    dialog.Detach();
  }

  std::string Cells() const {
    std::string text;
    for (int row = 0; row < list.GetLineCount(); ++row)
      for (int column = 0; column < list.GetColumnCount(); ++column)
        text +=
            std::string(list.GetColumnItem(column, row)) + (column + 1 < list.GetColumnCount() ? "|" : "\n");
    return text;
  }

  RecordingBackend backend;
  SampleDialog dialog;
  UnreachableLog unreachable;
  KorDlgMultiList& list = *dialog.list;
};

TEST_F(MultiList, RowsAndColumnsCountFromZero) {
  EXPECT_EQ(list.GetColumnItem(0, 0), "hub");
  EXPECT_EQ(list.GetColumnItem(1, 1), "65000");
}

TEST_F(MultiList, ACellBeyondTheLastRowAddsEmptyRows) {
  list.SetColumnItem(1, "7", 4);
  EXPECT_EQ(list.GetLineCount(), 5);
  EXPECT_EQ(Cells(), "hub|190000\nblade|65000\n|\n|\n|7\n");
}

TEST_F(MultiList, CellsThatThereAreNotAreEmptyAndCannotBeSet) {
  list.SetColumnItem(2, "lost", 0);
  list.SetColumnItem(-1, "lost", 0);
  list.SetColumnItem(0, "lost", -1);
  EXPECT_EQ(Cells(), "hub|190000\nblade|65000\n");
  EXPECT_EQ(list.GetColumnItem(5, 0), "");
  EXPECT_EQ(list.GetColumnItem(0, 9), "");
  EXPECT_EQ(list.GetColumnItem(0, -1), "");
}

TEST_F(MultiList, ACellCanBeSetAgainLongerAndShorter) {
  list.SetColumnItem(0, "a much longer name", 0);
  list.SetColumnItem(0, "x", 1);
  EXPECT_EQ(Cells(), "a much longer name|190000\nx|65000\n");
}

TEST_F(MultiList, DeletesRowsInAnyOrderAndPassesOverThoseThatThereAreNot) {
  list.SetColumnItem(0, "nose", 2);
  list.SetColumnItem(0, "brake", 3);
  list.DeleteLines({2, 0, 2, 99, -1});
  EXPECT_EQ(Cells(), "blade|65000\nbrake|\n");
}

TEST_F(MultiList, NewColumnTitlesClearTheRowsAndTheSelection) {
  list.SetSelection({1});
  list.SetColumnTitles({"A", "B", "C"});
  EXPECT_EQ(list.GetColumnCount(), 3);
  EXPECT_EQ(list.GetLineCount(), 0);
  EXPECT_THAT(list.GetSelectedLines(), IsEmpty());
}

TEST_F(MultiList, ColumnsCanBeHiddenAndSized) {
  list.SetColumnVisible(1, false);
  list.SetColumnTextWidth(0, 20);
  list.SetVisibleColumnCount(1);
  EXPECT_FALSE(list.GetColumn(1).shown);
  EXPECT_EQ(list.GetColumn(0).textWidth, 20);
  EXPECT_EQ(list.GetVisibleColumnCount(), 1);
  EXPECT_EQ(list.GetColumnItem(1, 0), "190000") << "a hidden column keeps its cells";
}

TEST_F(MultiList, OfAColumnThatThereIsNotItTellsAsOfAnEmptyOneAndSetsNothing) {
  backend.ClearLog();
  for (const int column : {-1, 2}) {
    list.SetColumnVisible(column, false);
    list.SetColumnTextWidth(column, 20);
    EXPECT_EQ(list.GetColumn(column), KorDlgMultiList::Column());
  }
  EXPECT_THAT(backend.Log(), IsEmpty());
}

TEST_F(MultiList, TheSelectionIsSortedAndHoldsOnlyRowsThatThereAre) {
  list.SetSelection({1, 0, 1, 7, -2});
  EXPECT_THAT(list.GetSelectedLines(), ElementsAre(0, 1));
}

TEST_F(MultiList, ClearingTheLinesOrTheSelectionSelectsNothing) {
  list.SetSelection({0});
  list.ClearSelection();
  EXPECT_THAT(list.GetSelectedLines(), IsEmpty());
  list.SetSelection({0});
  list.ClearLines();
  EXPECT_THAT(list.GetSelectedLines(), IsEmpty());
  EXPECT_EQ(list.GetColumnCount(), 2);
}

TEST_F(MultiList, SelectingByCodeTellsNobody) {
  list.SetSelection({0});
  EXPECT_THAT(dialog.Heard(), IsEmpty());
}

TEST_F(MultiList, TheUserSelectsSeveralRowsWhenTheStyleAllows) {
  EXPECT_TRUE(list.PickLines({0, 1}));
  EXPECT_THAT(list.GetSelectedLines(), ElementsAre(0, 1));
  EXPECT_THAT(dialog.Heard(), ElementsAre("List ListSelect"));
}

TEST_F(MultiList, WithoutMultipleSelectionOnlyTheLastRowCounts) {
  auto* single = dialog.thirdPage->Add<KorDlgMultiList>("Single");
  single->SetColumnTitles({"A"});
  for (int row = 0; row < 3; ++row) single->SetColumnItem(0, "x", row);
  EXPECT_TRUE(single->PickLines({2, 1}));
  EXPECT_THAT(single->GetSelectedLines(), ElementsAre(1));
}

TEST_F(MultiList, AMillionRowsKeepTheirTexts) {
  dialog.Detach();
  constexpr int kRows = 1'000'000;
  list.ClearLines();
  for (int row = 0; row < kRows; ++row) list.SetColumnItem(0, "P" + std::to_string(row), row);
  EXPECT_EQ(list.GetLineCount(), kRows);
  EXPECT_EQ(list.GetColumnItem(0, 0), "P0");
  EXPECT_EQ(list.GetColumnItem(0, 765432), "P765432");
  EXPECT_EQ(list.GetColumnItem(1, 765432), "");

  std::vector<int> even(kRows / 2);
  for (int i = 0; i < kRows / 2; ++i) even[i] = 2 * i;
  list.DeleteLines(even);
  EXPECT_EQ(list.GetLineCount(), kRows / 2);
  EXPECT_EQ(list.GetColumnItem(0, 0), "P1");
  EXPECT_EQ(list.GetColumnItem(0, kRows / 2 - 1), "P999999");
  list.ClearLines();
  dialog.Attach(&backend);
}

TEST_F(MultiList, NeighbouringCellsOfAColumnStandInOneBlockOfMemory) {
  dialog.Detach();
  list.ClearLines();
  for (int row = 0; row < 1000; ++row)
    list.SetColumnItem(0, "a text that is too long for a small string", row);
  for (int row = 1; row < 1000; ++row) {
    const std::string_view above = list.GetColumnItem(0, row - 1);
    ASSERT_EQ(list.GetColumnItem(0, row).data(), above.data() + above.size());
  }
  list.ClearLines();
  dialog.Attach(&backend);
}

TEST_F(MultiList, CellsSetAgainAndAgainDoNotPileUp) {
  dialog.Detach();
  const std::string text(1000, 'x');
  const char* lowest = nullptr;
  const char* highest = nullptr;
  for (int i = 0; i < 10000; ++i) list.SetColumnItem(0, text, 0);
  list.SetColumnItem(0, text, 1);
  lowest = std::min(list.GetColumnItem(0, 0).data(), list.GetColumnItem(0, 1).data());
  highest = std::max(list.GetColumnItem(0, 0).data(), list.GetColumnItem(0, 1).data());
  EXPECT_LT(highest - lowest, 20000) << "10 MB were written, two cells remain";
  list.SetColumnItem(0, "y", 0);
  EXPECT_EQ(list.GetColumnItem(0, 1), text);
  dialog.Attach(&backend);
}

TEST_F(MultiList, EachChangeOfRowsGivesAnotherRevisionAndNothingElseDoes) {
  std::uint64_t last = list.GetRowsRevision();
  const auto hasChanged = [&] {
    return std::exchange(last, list.GetRowsRevision()) != list.GetRowsRevision();
  };
  list.SetColumnItem(0, "nose", 2);
  EXPECT_TRUE(hasChanged());
  list.DeleteLines({1});
  EXPECT_TRUE(hasChanged());
  list.SetSelection({0});
  list.PickLines({1});
  list.ClearSelection();
  list.SetColumnVisible(0, false);
  list.SetColumnTextWidth(0, 7);
  list.DeleteLines({});
  EXPECT_FALSE(hasChanged());
  list.ClearLines();
  EXPECT_TRUE(hasChanged());
  list.SetColumnTitles({"Part", "Mass"});
  EXPECT_TRUE(hasChanged());
}

}  // namespace
