// Texts that are cut off in a list can be read without a mouse.
#include <QAccessible>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTest>

#include "desktop/toolkit/WholeTextTip.h"
#include "tests/desktop/support/DemoDialog.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

const std::string kPlace = "turbine/nacelle.1/" + std::string(120, 'y') + "/bedplate.1";

/// Three rows; the place of the second one is cut off.
class WholeTextTipTest : public QtBackendTest {
 protected:
  void SetUp() override {
    QtBackendTest::SetUp();
    dialog.tabs->SetSelectedPage(1);
    dialog.list->SetColumnTitles({"Part", "Mass", "Place", "Path"});
    dialog.list->SetColumnVisible(3, false);
    for (const int column : {0, 1}) dialog.list->SetColumnTextWidth(column, 8);
    Set(0, 0, "cover");
    Set(1, 0, "5 kg");
    Set(0, 1, "nose");
    Set(3, 1, kPlace);
    for (const int row : {0, 1, 2}) Set(2, row, row == 1 ? kPlace : "rna");
    Set(0, 2, "tower");
    dialog.list->SetVisibleColumnCount(3);
    Open();
    Window()->resize(500, 420);
    Settle();
    table = In<QTableView>(dialog.list);
  }
  void Set(int column, int row, const std::string& text) {
    dialog.list->SetColumnItem(column, KorUnicodeString(text), row);
  }
  void Settle() {
    for (int i = 0; i < 4; ++i) RunPendingEvents();
  }
  void Press(Qt::Key key) {
    QTest::keyClick(QApplication::focusWidget(), key);
    Settle();
  }
  /// Into the list, by keys, and to the row.
  void GoTo(int row) {
    In<QTabWidget>(dialog.tabs)->tabBar()->setFocus();
    Press(Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), table);
    for (int i = 0; i < row; ++i) Press(Qt::Key_Down);
    ASSERT_EQ(table->currentIndex().row(), row);
  }
  std::string Tip() const { return WholeTextTip::ShownOn(*table).toStdString(); }
  QLabel* TipLabel() const { return Window()->findChild<QLabel*>("WholeTextTip"); }
  QRect CurrentRow() const {
    const QRect cell = table->visualRect(table->currentIndex());
    return {table->viewport()->mapTo(Window(), cell.topLeft()), cell.size()};
  }

  QTableView* table = nullptr;
};

TEST_F(WholeTextTipTest, AnArrowKeyToARowShowsItsTextThatIsCutOff) {
  GoTo(1);
  EXPECT_EQ(Tip(), "Place: " + kPlace);
}

/// Counts how often a widget paints itself.
class PaintCount : public QObject {
 public:
  explicit PaintCount(QWidget* watched) { watched->installEventFilter(this); }
  int count = 0;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return false;
  }
};

TEST_F(WholeTextTipTest, ATipThatStandsIsNotPaintedOverAndOver) {
  GoTo(1);
  ASSERT_NE(TipLabel(), nullptr);
  PaintCount paints(table->viewport());
  PaintCount tipPaints(TipLabel());
  table->viewport()->update();
  for (int i = 0; i < 20; ++i) Settle();
  EXPECT_LE(paints.count, 3);
  EXPECT_LE(tipPaints.count, 3);
  EXPECT_GT(paints.count, 0);
}

TEST_F(WholeTextTipTest, ARowThatIsSeenWholeHasNoTip) {
  GoTo(0);
  EXPECT_EQ(Tip(), "");
  Press(Qt::Key_Down);
  Press(Qt::Key_Down);
  EXPECT_EQ(Tip(), "");
  EXPECT_EQ(TipLabel(), nullptr);
}

TEST_F(WholeTextTipTest, AllTextsOfTheRowThatAreCutOffAreShownEachOnALine) {
  Set(0, 1, "a part with a long name");
  GoTo(1);
  EXPECT_EQ(Tip(), "Part: a part with a long name\nPlace: " + kPlace);
}

TEST_F(WholeTextTipTest, TabToAListWithACurrentRowShowsItsText) {
  GoTo(1);
  Press(Qt::Key_Tab);
  EXPECT_EQ(Tip(), "") << "the tip goes with the focus";
  Press(Qt::Key_Backtab);
  EXPECT_EQ(Tip(), "Place: " + kPlace);
}

TEST_F(WholeTextTipTest, TheMouseShowsNoneAndTakesTheOneOfTheKeysAway) {
  GoTo(1);
  ASSERT_NE(Tip(), "");
  const QPoint place = table->visualRect(table->model()->index(1, 0)).center();
  QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, place);
  Settle();
  EXPECT_EQ(table->currentIndex().row(), 1);
  EXPECT_EQ(Tip(), "");
}

TEST_F(WholeTextTipTest, ATextOfAHiddenColumnIsNotShown) {
  dialog.list->SetColumnVisible(2, false);
  GoTo(1);
  EXPECT_EQ(Tip(), "");
}

TEST_F(WholeTextTipTest, AColumnThatTheWindowCutsOffCountsAsCutOff) {
  Set(2, 1, "rna");
  table->horizontalHeader()->resizeSection(1, 460);
  GoTo(1);
  EXPECT_EQ(Tip(), "Place: rna");
  Press(Qt::Key_Right);
  Press(Qt::Key_Right);
  EXPECT_NE(Tip().find("Part: nose"), std::string::npos) << "scrolled out: " << Tip();
  EXPECT_EQ(Tip().find("Place"), std::string::npos) << Tip();
}

TEST_F(WholeTextTipTest, TheTipStandsBelowItsRowWithinTheWindowAndIsDrawnWhole) {
  GoTo(1);
  ASSERT_NE(TipLabel(), nullptr);
  const QRect tip = TipLabel()->geometry();
  EXPECT_TRUE(TipLabel()->isVisible());
  EXPECT_GT(tip.top(), CurrentRow().bottom());
  EXPECT_LT(tip.top(), CurrentRow().bottom() + 10);
  EXPECT_TRUE(Window()->rect().contains(tip));
  EXPECT_GE(tip.height(), TipLabel()->heightForWidth(tip.width()));
}

TEST_F(WholeTextTipTest, WithoutRoomBelowTheTipStandsAboveItsRow) {
  for (int row = 3; row < 60; ++row) Set(2, row, kPlace);
  Set(2, 2, kPlace);
  dialog.buttons->SetVisibility(KorVisibility::Hidden);
  backend.Settle();
  GoTo(0);
  Press(Qt::Key_End);
  QTest::keyClick(table, Qt::Key_End, Qt::ControlModifier);
  Settle();
  ASSERT_EQ(table->currentIndex().row(), 59);
  ASSERT_NE(TipLabel(), nullptr);
  EXPECT_LT(TipLabel()->geometry().bottom(), CurrentRow().top());
  EXPECT_TRUE(Window()->rect().contains(TipLabel()->geometry()));
}

TEST_F(WholeTextTipTest, TheTipFollowsTheTextOfItsRowAndGoesWithTheRow) {
  GoTo(1);
  const std::string other = "other/" + kPlace;
  Set(2, 1, other);
  Settle();
  EXPECT_EQ(Tip(), "Place: " + other);
  dialog.list->ClearLines();
  Settle();
  EXPECT_EQ(Tip(), "");
}

TEST_F(WholeTextTipTest, TheTipGoesWhenTheColumnGetsRoomForTheText) {
  GoTo(1);
  Window()->resize(1600, 420);
  Settle();
  EXPECT_EQ(Tip(), "");
}

TEST_F(WholeTextTipTest, TheTipGoesWithItsPage) {
  GoTo(1);
  dialog.tabs->SetSelectedPage(0);
  Settle();
  EXPECT_EQ(TipLabel(), nullptr);
}

TEST_F(WholeTextTipTest, AListOfTextsThatWrapNeedsNone) {
  dialog.list->SetColumnVisible(0, false);
  dialog.list->SetColumnVisible(1, false);
  dialog.list->SetVisibleColumnCount(1);
  GoTo(1);
  EXPECT_EQ(Tip(), "");
}

TEST_F(WholeTextTipTest, ACellIsDescribedByTheOtherShownTextsOfItsRow) {
  QAccessibleInterface* cell = QAccessible::queryAccessibleInterface(table)->tableInterface()->cellAt(0, 0);
  ASSERT_NE(cell, nullptr);
  EXPECT_EQ(cell->text(QAccessible::Name), "cover");
  EXPECT_EQ(cell->text(QAccessible::Description), "Mass: 5 kg, Place: rna");
}

}  // namespace
}  // namespace desktop::test
