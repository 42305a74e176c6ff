// The dialog of the history: which saves it lists, what stays when new ones come, what it says when it cannot
// read.
#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QStyle>
#include <QTest>
#include <utility>

#include "desktop/toolkit/WholeTextTip.h"
#include "tests/desktop/app/HistoryHarness.h"

namespace desktop::test {
namespace {

TEST_F(HistoryDialogTest, SaysWhenThePartHasNotBeenSaved) {
  Serve({"p", 0, {}});
  dialog.Reload();
  EXPECT_EQ(dialog.Heading(), "Part p has not been saved yet.");
  EXPECT_FALSE(dialog.BeforeButton().isEnabled());
  EXPECT_FALSE(dialog.AfterButton().isEnabled());
}

TEST_F(HistoryDialogTest, AsksForFurtherSavesByTheButton) {
  Serve(Saves(250));
  dialog.Reload();
  EXPECT_EQ(dialog.Heading(), "Saves of this part: 250; the latest 100 are listed");
  ASSERT_FALSE(dialog.MoreButton().isHidden());
  dialog.MoreButton().click();
  dialog.MoreButton().click();
  EXPECT_EQ(dialog.Heading(), "Saves of this part: 250");
  EXPECT_EQ(Cell(dialog.Saves(), 249, HistoryModel::Number), "1");
  EXPECT_TRUE(dialog.MoreButton().isHidden());
}

TEST_F(HistoryDialogTest, AsksForFurtherSavesWhenTheListIsScrolledToItsEnd) {
  Serve(Saves(250));
  dialog.show();
  dialog.Reload();
  RunPendingEvents();
  auto& bar = *dialog.SaveList().verticalScrollBar();
  bar.setValue(bar.maximum());
  RunPendingEvents();
  EXPECT_GE(dialog.Saves().rowCount(), 200);
}

TEST_F(HistoryDialogTest, ALongNameOfAUserIsReadByKeys) {
  const std::string user(200, 'e');
  Serve(Saves(3, user));
  dialog.show();
  dialog.Reload();
  RunPendingEvents();
  dialog.SaveList().setFocus();
  QTest::keyClick(&dialog.SaveList(), Qt::Key_Down);
  RunPendingEvents();
  EXPECT_EQ(WholeTextTip::ShownOn(dialog.SaveList()).toStdString(), "Who: " + user);
}

TEST_F(HistoryDialogTest, ALongWordOfAValueIsReadByKeysAndOneThatWrapsNeedsNoTip) {
  const std::string word(200, 'w');
  std::string words = "first";
  for (int i = 0; i < 40; ++i) words += " another";
  Serve(OneSave({{"part.name", "short", word}, {"part.name", "short", words}}));
  dialog.show();
  dialog.Reload();
  RunPendingEvents();
  dialog.FieldList().setFocus(Qt::TabFocusReason);
  RunPendingEvents();
  EXPECT_EQ(WholeTextTip::ShownOn(dialog.FieldList()).toStdString(), "After: " + word);
  QTest::keyClick(&dialog.FieldList(), Qt::Key_Down);
  RunPendingEvents();
  EXPECT_EQ(WholeTextTip::ShownOn(dialog.FieldList()), "");
}

TEST_F(HistoryDialogTest, TellsOnceOfAPageThatCannotBeReadAndScrollingAsksNoMore) {
  Serve(Saves(250));
  dialog.Reload();
  Refuse("the disk is full");
  dialog.Saves().fetchMore();
  dialog.Saves().fetchMore();
  EXPECT_EQ(told, std::vector<std::string>{"the disk is full"});
  EXPECT_EQ(dialog.Saves().rowCount(), 100);
}

TEST_F(HistoryDialogTest, ListMoreTriesAgainAfterAPageThatCouldNotBeRead) {
  Serve(Saves(250));
  dialog.Reload();
  const auto history = server.answer;
  Refuse("the disk is full");
  dialog.MoreButton().click();
  ASSERT_FALSE(dialog.MoreButton().isHidden());
  EXPECT_EQ(dialog.MoreButton().text(), "List more");
  EXPECT_EQ(dialog.Heading(), "Saves of this part: 250; the latest 100 are listed");
  server.answer = history;
  dialog.MoreButton().click();
  dialog.MoreButton().click();
  EXPECT_EQ(dialog.Saves().rowCount(), 250);
  EXPECT_EQ(told.size(), 1u);
}

TEST_F(HistoryDialogTest, AHistoryThatCannotBeReadIsNotCalledOneWithoutSavesAndCanBeTriedAgain) {
  Refuse("the disk is full");
  dialog.Reload();
  EXPECT_EQ(dialog.Heading(), "The history of part p could not be read.");
  EXPECT_EQ(told, std::vector<std::string>{"the disk is full"});
  EXPECT_FALSE(dialog.BeforeButton().isEnabled());
  ASSERT_FALSE(dialog.MoreButton().isHidden());
  EXPECT_EQ(dialog.MoreButton().text(), "Try again");
  Serve(Saves(3));
  dialog.MoreButton().click();
  EXPECT_EQ(dialog.Heading(), "Saves of this part: 3");
  EXPECT_TRUE(dialog.BeforeButton().isEnabled());
  EXPECT_TRUE(dialog.MoreButton().isHidden());
}

// ---- what stays when the history is read again ----

TEST_F(HistoryDialogTest, TakesInNewSavesAboveThoseThatItHasAndKeepsTheChosenOneAndItsPlace) {
  ListAllOf(250);
  dialog.show();
  RunPendingEvents();
  Choose(20);
  RunPendingEvents();
  const int above = dialog.SaveList().verticalScrollBar()->value();
  ASSERT_GT(above, 0);
  Serve(Saves(252));
  dialog.Reload();
  RunPendingEvents();
  EXPECT_EQ(dialog.Saves().rowCount(), 252);
  EXPECT_EQ(ChosenNumber(), "20");
  EXPECT_EQ(dialog.SaveList().verticalScrollBar()->value(), above + 2);
  EXPECT_EQ(dialog.Heading(), "Saves of this part: 252");
}

TEST_F(HistoryDialogTest, AListThatStandsAtItsTopShowsTheNewSaves) {
  ListAllOf(250);
  dialog.show();
  RunPendingEvents();
  Serve(Saves(252));
  dialog.Reload();
  RunPendingEvents();
  EXPECT_EQ(dialog.SaveList().verticalScrollBar()->value(), 0);
  EXPECT_EQ(ChosenNumber(), "250");
}

TEST_F(HistoryDialogTest, TakesInMoreNewSavesThanAPageHasWithoutAGap) {
  Serve(Saves(150));
  dialog.Reload();
  Choose(60);
  Serve(Saves(480));
  dialog.Reload();
  ASSERT_EQ(dialog.Saves().rowCount(), 430);
  for (int row = 0; row < 430; ++row) ASSERT_EQ(dialog.Saves().Entries()[row].number, 480 - row);
  EXPECT_EQ(ChosenNumber(), "60");
}

TEST_F(HistoryDialogTest, KeepsTheCurrentFieldWhenItIsReadAgain) {
  Serve(OneSave({{"standardPart", "0", "1"}, {"material.name", "Iron", "Steel"}}));
  dialog.Reload();
  dialog.FieldList().setCurrentCell(1, 0);
  dialog.Reload();
  EXPECT_EQ(dialog.FieldList().currentRow(), 1);
}

TEST_F(HistoryDialogTest, AnotherHistoryOfThePartReplacesTheListed) {
  ListAllOf(250);
  Choose(20);
  Serve(Saves(250, "max"));
  dialog.Reload();
  EXPECT_EQ(dialog.Saves().rowCount(), 100);
  EXPECT_EQ(Cell(dialog.Saves(), 0, HistoryModel::User), "max");
  Serve(Saves(3, "max"));
  dialog.Reload();
  EXPECT_EQ(dialog.Saves().rowCount(), 3);
  EXPECT_EQ(dialog.Heading(), "Saves of this part: 3");
}

TEST_F(HistoryDialogTest, AFurtherPageOfAnotherHistoryIsRefusedAndTold) {
  Serve(Saves(250));
  dialog.Reload();
  Serve(Saves(3, "max"));
  dialog.MoreButton().click();
  EXPECT_EQ(told, std::vector<std::string>{
                      "the server has no save 150 of part \"p\" any more; open its history again"});
  EXPECT_EQ(dialog.Saves().rowCount(), 100);
}

TEST_F(HistoryDialogTest, WhatCannotBeReadAgainLeavesListAndChoiceAsTheyWere) {
  ListAllOf(250);
  Choose(20);
  Refuse("the disk is full");
  dialog.Reload();
  EXPECT_EQ(told, std::vector<std::string>{"the disk is full"});
  EXPECT_EQ(dialog.Saves().rowCount(), 250);
  EXPECT_EQ(ChosenNumber(), "20");
}

// ---- what is brought back goes with what was seen ----

class SeenTest : public HistoryDialogTest {
 protected:
  SeenTest() {
    dialog.onSaveAgain = [this](const protocol::HistoryStateRequest&, const std::string& token) {
      tokens.push_back(token);
    };
  }
  void ServeInState(const std::string& token, int saves) {
    protocol::PartData data;
    data.stateToken = token;
    Serve(Saves(saves), data);
  }
  std::vector<std::string> tokens;  ///< that the pressed buttons told
};

TEST_F(SeenTest, IsTheStateOfTheLastReading) {
  ServeInState("7", 2);
  dialog.Reload();
  dialog.BeforeButton().click();
  ServeInState("9", 3);
  dialog.AfterButton().click();
  dialog.Reload();
  dialog.AfterButton().click();
  EXPECT_EQ(tokens, (std::vector<std::string>{"7", "7", "9"}));
}

TEST_F(SeenTest, IsTheStateBeforeASaveThatCameWhileTheHistoryWasRead) {
  ServeInState("9", 3);
  const auto later = server.answer;
  ServeInState("7", 2);
  const auto first = server.answer;
  bool isSaved = false;
  server.answer = [&](const std::string& command, const std::string& request) {
    return std::exchange(isSaved, true) ? later(command, request) : first(command, request);
  };
  dialog.Reload();
  EXPECT_EQ(dialog.Saves().rowCount(), 3);
  dialog.BeforeButton().click();
  EXPECT_EQ(tokens, std::vector<std::string>{"7"});
}

TEST_F(SeenTest, StaysWhereTheNewSavesCouldNotBeRead) {
  ServeInState("7", 2);
  dialog.Reload();
  ServeInState("9", 3);
  const auto later = server.answer;
  server.answer = [later](const std::string& command, const std::string& request) {
    return command == "LumGetHistory" ? protocol::ErrorReply("the disk is full") : later(command, request);
  };
  dialog.Reload();
  dialog.BeforeButton().click();
  EXPECT_EQ(tokens, std::vector<std::string>{"7"});
}

// ---- how it looks, and by keys ----

TEST_F(HistoryDialogTest, BothListsHaveRowsOfTheSameHeightAndTheirCellsStandBelowTheirTitles) {
  Serve(OneSave({{"standardPart", "0", "1"}}));
  dialog.show();
  dialog.Reload();
  RunPendingEvents();
  EXPECT_EQ(dialog.SaveList().rowHeight(0), dialog.FieldList().rowHeight(0));
  for (QTableView* table : {&dialog.SaveList(), static_cast<QTableView*>(&dialog.FieldList())}) {
    const QStyle& style = *table->style();
    EXPECT_EQ(style.pixelMetric(QStyle::PM_HeaderMargin, nullptr, table->horizontalHeader()),
              style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, table) + 1);
  }
}

TEST_F(HistoryDialogTest, RowsGrowWithTextsThatWrapWhenTheDialogIsMadeNarrower) {
  Serve(
      OneSave({{"material.name", "Cast iron", "Cast iron with a long name that wraps in a narrow dialog"}}));
  dialog.show();
  dialog.Reload();
  RunPendingEvents();
  const QAbstractItemView& rows = dialog.FieldList();
  const int wide = dialog.FieldList().rowHeight(0);
  dialog.resize(420, 560);
  RunPendingEvents();
  EXPECT_GT(dialog.FieldList().rowHeight(0), wide);
  EXPECT_GE(dialog.FieldList().rowHeight(0), rows.sizeHintForRow(0));
}

TEST_F(HistoryDialogTest, EachControlIsReachedByTheTabKey) {
  Serve(Saves(250));
  dialog.show();
  dialog.Reload();
  RunPendingEvents();
  dialog.SaveList().setFocus();
  QApplication::setActiveWindow(&dialog);
  std::vector<const QWidget*> visited;
  for (int i = 0; i < 6; ++i) {
    visited.push_back(QApplication::focusWidget());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(visited,
            (std::vector<const QWidget*>{&dialog.SaveList(), &dialog.MoreButton(), &dialog.FieldList(),
                                         &dialog.BeforeButton(), &dialog.AfterButton(), visited[5]}));
  EXPECT_EQ(static_cast<const QPushButton*>(visited[5])->text(), "Close");
  EXPECT_EQ(QApplication::focusWidget(), &dialog.SaveList()) << "Tab goes round";
}

TEST_F(HistoryDialogTest, IsWorkedByKeysAlone) {
  std::vector<int> asked;
  dialog.onSaveAgain = [&](const protocol::HistoryStateRequest& state, const std::string&) {
    asked.push_back(state.number);
  };
  Serve(Saves(250));
  dialog.show();
  dialog.Reload();
  QApplication::setActiveWindow(&dialog);
  dialog.MoreButton().setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_EQ(dialog.Saves().rowCount(), 200);
  dialog.SaveList().setFocus();
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down}) QTest::keyClick(QApplication::focusWidget(), key);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_TRUE(asked.empty()) << "Enter presses no button";
  dialog.BeforeButton().setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_EQ(asked, std::vector<int>{248});
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_FALSE(dialog.isVisible());
}

}  // namespace
}  // namespace desktop::test
