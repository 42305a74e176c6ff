// The line of the tree that the part panel is bound to is that line in each of its columns.
#include <QAction>

#include "tests/desktop/app/EditingHarness.h"

namespace desktop::test {
namespace {

class PanelLineTest : public EditingTest, public testing::WithParamInterface<int> {
 protected:
  /// The cell of the bedplate's line in the column of this test.
  QModelIndex Cell() {
    return window.Tree()
        .IndexOf("IEA15", {"nacelle.1", "Above_yaw.1", "bedplate.1"})
        .siblingAtColumn(GetParam());
  }
  QPoint PlaceOfCell() { return window.TreeView().visualRect(Cell()).center(); }
  void ClickCell() {
    QTest::mouseClick(window.TreeView().viewport(), Qt::LeftButton, {}, PlaceOfCell());
    ASSERT_EQ(window.TreeView().currentIndex(), Cell());
  }
  void BringMainWindowToFront() {
    QApplication::setActiveWindow(&window);
    ASSERT_FALSE(window.PartPanel().Window()->isActiveWindow());
  }
  void ExpectNothingAskedOrLost() {
    EXPECT_TRUE(boxes.Questions().empty());
    ASSERT_TRUE(IsEditing());
    EXPECT_EQ(TextOf(kMass), "43000");
  }
  void ExpectPanelInFront() {
    RunPendingEvents();
    EXPECT_TRUE(window.PartPanel().Window()->isActiveWindow());
    ExpectNothingAskedOrLost();
  }
};

TEST_P(PanelLineTest, AClickIntoAnyColumnAsksNothing) {
  EditMass("43000");
  ClickCell();
  RunPendingEvents();
  ExpectNothingAskedOrLost();
  EXPECT_EQ(window.TreeView().currentIndex(), Cell());
}

TEST_P(PanelLineTest, ThePanelCommandInAnyColumnBringsThePanelToTheFront) {
  EditMass("43000");
  ClickCell();
  BringMainWindowToFront();
  window.Command("PartPanel")->trigger();
  ExpectPanelInFront();
}

TEST_P(PanelLineTest, EnterInAnyColumnBringsThePanelToTheFront) {
  EditMass("43000");
  ClickCell();
  BringMainWindowToFront();
  QTest::keyClick(&window.TreeView(), Qt::Key_Return);
  ExpectPanelInFront();
}

TEST_P(PanelLineTest, ADoubleClickIntoAnyColumnBringsThePanelToTheFront) {
  EditMass("43000");
  ClickCell();
  BringMainWindowToFront();
  QTest::mouseDClick(window.TreeView().viewport(), Qt::LeftButton, {}, PlaceOfCell());
  ExpectPanelInFront();
}

/// The panel is bound while the current cell is not in the first column.
TEST_P(PanelLineTest, APanelOpenedFromAnyColumnKnowsItsLineInTheFirst) {
  window.PartPanel().Close();
  ClickCell();
  window.ShowPartPanel();
  EditMass("43000");
  Select({"nacelle.1", "Above_yaw.1", "bedplate.1"});
  RunPendingEvents();
  ExpectNothingAskedOrLost();
}

TEST_P(PanelLineTest, AnotherLineInAnyColumnStillAsks) {
  EditMass("43000");
  ClickCell();
  RunPendingEvents();
  boxes.answers = {kKeep};
  const QModelIndex other =
      window.Tree().IndexOf("IEA15", {"nacelle.1", "Above_yaw.1", "generator.1"}).siblingAtColumn(GetParam());
  QTest::mouseClick(window.TreeView().viewport(), Qt::LeftButton, {},
                    window.TreeView().visualRect(other).center());
  RunPendingEvents();
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(CurrentInstance(), "bedplate.1");
  EXPECT_TRUE(IsEditing());
}

INSTANTIATE_TEST_SUITE_P(Columns, PanelLineTest,
                         testing::Values(ProductTreeModel::Name, ProductTreeModel::Instance,
                                         ProductTreeModel::Quantity));

}  // namespace
}  // namespace desktop::test
