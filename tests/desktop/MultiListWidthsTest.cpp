// Lists of long texts, and columns that the user makes wider.
#include <QHeaderView>
#include <QTableView>
#include <QTest>

#include "desktop/toolkit/WholeTextTip.h"
#include "desktop/toolkit/views/MultiListView.h"
#include "tests/desktop/support/DemoDialog.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

class MultiListWidthsTest : public QtBackendTest {
 protected:
  void SetUp() override {
    QtBackendTest::SetUp();
    dialog.tabs->SetSelectedPage(1);
  }
  void ShowColumnsAtOnce(int count) {
    dialog.list->SetVisibleColumnCount(count);
    Open();
    table = In<QTableView>(dialog.list);
    Window()->resize(500, 400);
    RunPendingEvents();
  }
  void ShowThreeColumns() {
    dialog.list->SetColumnTitles({"Part", "Mass", "Place"});
    for (const int column : {0, 1}) dialog.list->SetColumnTextWidth(column, 8);
    ShowColumnsAtOnce(3);
  }
  MultiListView& View() { return static_cast<MultiListView&>(*backend.ViewOf(*dialog.list)); }
  /// As the user drags the right edge of a title.
  void Widen(int column, int width) { table->horizontalHeader()->resizeSection(column, width); }
  void ResizeWindow(int width, int height) {
    Window()->resize(width, height);
    RunPendingEvents();
  }
  QTableView* table = nullptr;
};

TEST_F(MultiListWidthsTest, ALongTextOfAListOfTextsWrapsUntilItIsSeenWhole) {
  dialog.list->SetColumnTitles({"Warning"});
  dialog.list->SetColumnItem(0, "short", 0);
  std::string words = "first";
  for (int i = 0; i < 60; ++i) words += " another";
  dialog.list->SetColumnItem(0, KorUnicodeString(words), 1);
  dialog.list->SetColumnItem(0, KorUnicodeString("/" + std::string(400, 'x')), 2);
  ShowColumnsAtOnce(1);
  const int line = table->fontMetrics().height();
  EXPECT_LT(table->rowHeight(0), 2 * line);
  const int width = table->columnWidth(0);
  EXPECT_LE(width, table->viewport()->width());
  for (const int row : {1, 2}) {
    const int needed =
        table->fontMetrics().horizontalAdvance(table->model()->index(row, 0).data().toString());
    EXPECT_GE(table->rowHeight(row), line * (needed / width + 1)) << row;
  }
  const int before = table->rowHeight(1);
  ResizeWindow(1200, 400);
  EXPECT_LT(table->rowHeight(1), before) << "it wraps to the width";
}

TEST_F(MultiListWidthsTest, ATextThatWrapsIsSeenWholeHoweverNarrowTheWindowIsMade) {
  dialog.list->SetColumnTitles({"Warning"});
  dialog.list->SetColumnItem(0, KorUnicodeString(std::string(200, 'm')), 0);
  ShowColumnsAtOnce(1);
  ResizeWindow(1, 1);
  table->setFocus();
  QTest::keyClick(table, Qt::Key_Down);
  RunPendingEvents();
  EXPECT_EQ(WholeTextTip::ShownOn(*table), "") << "shown for what is cut off";
  EXPECT_GT(table->rowHeight(0), 3 * table->fontMetrics().height());
}

TEST_F(MultiListWidthsTest, ARowThatComesIntoSightWrapsToo) {
  dialog.list->SetColumnTitles({"Warning"});
  for (int row = 0; row < 500; ++row)
    dialog.list->SetColumnItem(0, KorUnicodeString(std::string(200, 'x')), row);
  ShowColumnsAtOnce(1);
  const int before = table->rowHeight(499);
  table->scrollToBottom();
  RunPendingEvents();
  EXPECT_GT(table->rowHeight(499), before);
  EXPECT_EQ(table->rowHeight(499), table->rowHeight(0));
}

TEST_F(MultiListWidthsTest, ATextOfSeveralColumnsStaysOnOneLine) {
  ShowThreeColumns();
  dialog.list->SetColumnItem(2, KorUnicodeString(std::string(400, 'x')), 0);
  backend.Settle();
  EXPECT_LT(table->rowHeight(0), 2 * table->fontMetrics().height());
}

TEST_F(MultiListWidthsTest, TheLastColumnTakesWhatIsLeftAndCanBeMadeWiderThanTheWindow) {
  ShowThreeColumns();
  const auto taken = [this] { return table->columnWidth(0) + table->columnWidth(1) + table->columnWidth(2); };
  EXPECT_EQ(taken(), table->viewport()->width());
  ResizeWindow(700, 400);
  EXPECT_EQ(taken(), table->viewport()->width());
  Widen(2, 1500);
  RunPendingEvents();
  EXPECT_EQ(table->columnWidth(2), 1500);
  EXPECT_EQ(table->horizontalHeader()->length(), taken());
}

TEST_F(MultiListWidthsTest, AWidthThatTheUserSetStaysWhenWindowLanguageAndRowsChange) {
  ShowThreeColumns();
  Widen(0, 333);
  ResizeWindow(900, 500);
  EXPECT_EQ(table->columnWidth(0), 333);
  dialog.list->SetColumnItem(0, "late", 0);
  backend.Settle();
  dialog.ReloadTexts();
  dialog.list->SetColumnTextWidth(1, 9);
  EXPECT_EQ(table->columnWidth(0), 333);
  EXPECT_EQ(table->columnWidth(0) + table->columnWidth(1) + table->columnWidth(2), table->viewport()->width())
      << "the others go on following the window";
}

TEST_F(MultiListWidthsTest, WidthsThatTheUserSetAreSavedAndRestoredAndOthersAreNot) {
  ShowThreeColumns();
  EXPECT_EQ(View().SaveWidths(), "");
  Widen(0, 333);
  Widen(2, 1500);
  EXPECT_EQ(View().SaveWidths(), "0:333 2:1500");
  Widen(0, 100);
  View().RestoreWidths("0:333 2:1500");
  EXPECT_EQ(table->columnWidth(0), 333);
  EXPECT_EQ(table->columnWidth(2), 1500);
  ResizeWindow(900, 500);
  EXPECT_EQ(View().SaveWidths(), "0:333 2:1500") << "a restored width is the user's";
}

TEST_F(MultiListWidthsTest, DamagedWidthsChangeNothing) {
  dialog.list->SetColumnTitles({"Part", "Mass", "Place", "Path"});
  dialog.list->SetColumnVisible(3, false);
  ShowColumnsAtOnce(3);
  View().RestoreWidths("");
  View().RestoreWidths("0");
  View().RestoreWidths(":70 x:70 0:x 0:-5 0:0 0:99999999 0:10001 -1:70 9:70 3:70 0:70:70 \xff\n");
  EXPECT_EQ(View().SaveWidths(), "");
  EXPECT_TRUE(table->isColumnHidden(3));
}

}  // namespace
}  // namespace desktop::test
