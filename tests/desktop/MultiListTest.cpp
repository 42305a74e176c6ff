#include <QAbstractItemModel>
#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

#include "tests/desktop/support/DemoDialog.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

class MultiListTest : public QtBackendTest {
 protected:
  void SetUp() override {
    QtBackendTest::SetUp();
    dialog.tabs->SetSelectedPage(1);
    Open();
    table = In<QTableView>(dialog.list);
    ASSERT_NE(table, nullptr);
  }
  QString Cell(int row, int column) const {
    return table->model()->data(table->model()->index(row, column)).toString();
  }
  QTableView* table = nullptr;
};

TEST_F(MultiListTest, ShowsTitlesAndCellsOfTheList) {
  EXPECT_EQ(table->model()->headerData(1, Qt::Horizontal).toString(), "Mass");
  EXPECT_EQ(table->model()->rowCount(), 2);
  EXPECT_EQ(Cell(0, 1), "20554 kg");
  EXPECT_EQ(Cell(1, 1), "");
}

TEST_F(MultiListTest, ObeysTheRulesOfItemModelsWhileRowsComeAndGo) {
  const QAbstractItemModelTester tester(table->model(),
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
  for (int row = 2; row < 50; ++row) dialog.list->SetColumnItem(0, "part", row);
  backend.Settle();
  EXPECT_EQ(table->model()->rowCount(), 50);
  dialog.list->DeleteLines({0, 7, 49});
  backend.Settle();
  EXPECT_EQ(table->model()->rowCount(), 47);
  EXPECT_EQ(Cell(0, 0), "nose");
  dialog.list->ClearLines();
  backend.Settle();
  EXPECT_EQ(table->model()->rowCount(), 0);
}

TEST_F(MultiListTest, TakesManyCellsInTogetherWhenControlIsBackInTheEventLoop) {
  QSignalSpy inserts(table->model(), &QAbstractItemModel::rowsInserted);
  for (int row = 2; row < 1000; ++row) dialog.list->SetColumnItem(0, "part", row);
  EXPECT_EQ(inserts.count(), 0);
  RunPendingEvents();
  EXPECT_EQ(inserts.count(), 1);
  EXPECT_EQ(table->model()->rowCount(), 1000);
}

TEST_F(MultiListTest, ShowsAMillionRowsWithoutCopyingThem) {
  for (int row = 2; row < 1'000'000; ++row) dialog.list->SetColumnItem(0, "part", row);
  RunPendingEvents();
  EXPECT_EQ(table->model()->rowCount(), 1'000'000);
  EXPECT_EQ(Cell(999'999, 0), "part");
}

TEST_F(MultiListTest, ShowsTheSelectionThatCodeMakes) {
  dialog.list->SetSelection({1});
  RunPendingEvents();
  EXPECT_TRUE(table->selectionModel()->isRowSelected(1));
  EXPECT_FALSE(table->selectionModel()->isRowSelected(0));
}

TEST_F(MultiListTest, AClickPicksTheLineAndWithControlOneMore) {
  int notifications = 0;
  dialog.list->Subscribe(KorEvent::ListSelect, [&](auto...) { ++notifications; });
  const auto centre = [&](int row) { return table->visualRect(table->model()->index(row, 0)).center(); };
  QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, centre(1));
  EXPECT_EQ(dialog.list->GetSelectedLines(), std::vector<int>{1});
  QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::ControlModifier, centre(0));
  EXPECT_EQ(dialog.list->GetSelectedLines(), (std::vector<int>{0, 1}));
  EXPECT_EQ(notifications, 2);
}

TEST_F(MultiListTest, HidesTheColumnThatTheListHides) {
  dialog.list->SetColumnVisible(1, false);
  EXPECT_TRUE(table->isColumnHidden(1));
}

}  // namespace
}  // namespace desktop::test
