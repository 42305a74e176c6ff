// Instances that the user picks in the product tree for the filter.
#include <QAction>
#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QStatusBar>
#include <QTableView>
#include <QTest>
#include <QTreeView>

#include "desktop/app/OccurrenceMime.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "tests/desktop/app/WindowHarness.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

const std::vector<std::string> kBedplate{"nacelle.1", "Above_yaw.1", "bedplate.1"};
const std::vector<std::string> kGenerator{"nacelle.1", "Above_yaw.1", "generator.1"};
const std::vector<std::string> kBlades{"Blades.1"};

constexpr const char* kBedplateRow =
    "bedplate.1, bedplate, , IEA15/nacelle.1/Above_yaw.1, 2, nacelle.1|Above_yaw.1";
constexpr const char* kGeneratorRow =
    "generator.1, generator, , IEA15/nacelle.1/Above_yaw.1, 2, nacelle.1|Above_yaw.1";
constexpr const char* kBladesRow = "Blades.1, Blades, , IEA15, 0, ";

class FilterPickingTest : public WindowTest {
 protected:
  using Rows = std::vector<std::string>;

  QWidget* List() {
    return backend.ControlOf<QTableView>(InFilterPanel<KorDlgObject>("Frame001.FilterMultiList"))->viewport();
  }
  std::unique_ptr<QMimeData> Dragged() {
    return std::unique_ptr<QMimeData>(
        window.Tree().mimeData(window.TreeView().selectionModel()->selectedIndexes()));
  }
  /// Moves the mouse onto the list and lets go; whether the list would take it.
  bool DropOnList(const QMimeData& data) {
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(List(), &enter);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(List(), &drop);
    EXPECT_EQ(enter.isAccepted(), drop.isAccepted());
    EXPECT_TRUE(boxes.Messages().empty()) << "a box would hold up the drag";
    RunPendingEvents();
    return drop.isAccepted();
  }
  QString Said() { return window.statusBar()->currentMessage(); }
};

TEST_F(FilterPickingTest, AddsTheSelectedInstanceWithItsPlace) {
  Select(kBedplate);
  OpenFilterPanel();
  window.Command("AddToFilter")->trigger();
  EXPECT_EQ(FilterRows(), Rows{kBedplateRow});
  EXPECT_EQ(Said(), "1 added to the filter.");
}

TEST_F(FilterPickingTest, AddsSeveralInTheOrderOfTheirSelection) {
  OpenFilterPanel();
  SelectAll({kGenerator, kBlades, kBedplate});
  window.AddToFilter();
  EXPECT_EQ(FilterRows(), (Rows{kGeneratorRow, kBladesRow, kBedplateRow}));
}

TEST_F(FilterPickingTest, AnInstanceBelowTheRootHasAnEmptyPathOfDepthZero) {
  Select(kBlades);
  OpenFilterPanel();
  window.AddToFilter();
  EXPECT_EQ(FilterRows(), Rows{kBladesRow});
}

TEST_F(FilterPickingTest, AnInstanceIsOnTheListOnce) {
  OpenFilterPanel();
  Select(kBedplate);
  window.AddToFilter();
  SelectAll({kBedplate, kBlades});
  window.AddToFilter();
  EXPECT_EQ(FilterRows(), (Rows{kBedplateRow, kBladesRow}));
  EXPECT_EQ(Said(), "1 added to the filter. 1 on its list already.");
}

TEST_F(FilterPickingTest, TheRootIsRefusedWithAMessageAndTheOthersAreAdded) {
  OpenFilterPanel();
  SelectAll({{}, kBedplate});
  window.AddToFilter();
  EXPECT_EQ(FilterRows(), Rows{kBedplateRow});
  EXPECT_NE(OnlyMessage().find("The product itself cannot be added"), std::string::npos) << OnlyMessage();
}

TEST_F(FilterPickingTest, InstancesOfAnotherProductAreRefusedWithAMessage) {
  AddSecondProduct();
  ASSERT_TRUE(window.Select("IEA15", {}));
  OpenFilterPanel();
  ASSERT_TRUE(window.Select("Car", {"wheel.1"}));
  window.AddToFilter();
  EXPECT_EQ(FilterRows(), Rows{});
  EXPECT_NE(OnlyMessage().find("another product"), std::string::npos) << OnlyMessage();
}

TEST_F(FilterPickingTest, OpensThePanelFirstWhereItIsClosed) {
  Select(kBedplate);
  window.AddToFilter();
  ASSERT_TRUE(window.FilterPanel().IsOpen());
  EXPECT_EQ(FilterRows(), Rows{kBedplateRow});
}

TEST_F(FilterPickingTest, NothingIsAddedWhileAFilterOfTheProductIsChosen) {
  OpenFilterPanel();
  InFilterPanel<KorDlgRadioButton>("CfgFilterBtn").Check();
  Select(kBedplate);
  window.AddToFilter();
  EXPECT_EQ(FilterRows(), Rows{});
  EXPECT_NE(OnlyMessage().find("These instances only"), std::string::npos) << OnlyMessage();
}

TEST_F(FilterPickingTest, ReturnAddsWhileThePanelIsOpen) {
  Select(kBedplate);
  OpenFilterPanel();
  QTest::keyClick(&window.TreeView(), Qt::Key_Return);
  EXPECT_EQ(FilterRows(), Rows{kBedplateRow});
  EXPECT_FALSE(window.PartPanel().IsOpen());
}

TEST_F(FilterPickingTest, ReturnOpensThePartPanelWhileTheFilterPanelIsClosed) {
  Select(kBedplate);
  QTest::keyClick(&window.TreeView(), Qt::Key_Return);
  EXPECT_TRUE(window.PartPanel().IsOpen());
  EXPECT_FALSE(window.FilterPanel().IsOpen());
}

TEST_F(FilterPickingTest, ADoubleClickOpensThePartPanelInAnyCase) {
  Select(kBedplate);
  OpenFilterPanel();
  const QPoint place = window.TreeView().visualRect(window.TreeView().currentIndex()).center();
  QTest::mouseClick(window.TreeView().viewport(), Qt::LeftButton, {}, place);
  QTest::mouseDClick(window.TreeView().viewport(), Qt::LeftButton, {}, place);
  EXPECT_TRUE(window.PartPanel().IsOpen());
  EXPECT_EQ(FilterRows(), Rows{});
}

TEST_F(FilterPickingTest, TheContextMenuOfTheTreeOffersIt) {
  Select(kBedplate);
  const QPoint place = window.TreeView().visualRect(window.TreeView().currentIndex()).center();
  Q_EMIT window.TreeView().customContextMenuRequested(place);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  EXPECT_TRUE(menu->actions().contains(window.Command("AddToFilter")));
  menu->close();
}

TEST_F(FilterPickingTest, TheEmptyPlaceBelowTheTreeHasNoContextMenu) {
  Q_EMIT window.TreeView().customContextMenuRequested(QPoint(20, window.TreeView().height() - 4));
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(FilterPickingTest, LinesAreDraggedOntoTheList) {
  OpenFilterPanel();
  SelectAll({kGenerator, kBlades});
  EXPECT_TRUE(DropOnList(*Dragged()));
  EXPECT_EQ(FilterRows(), (Rows{kGeneratorRow, kBladesRow}));
}

TEST_F(FilterPickingTest, TheProductDroppedOnTheListIsRefusedWhenTheDropIsOver) {
  OpenFilterPanel();
  Select({});
  DropOnList(*Dragged());
  EXPECT_EQ(FilterRows(), Rows{});
  EXPECT_NE(OnlyMessage().find("The product itself cannot be added"), std::string::npos) << OnlyMessage();
}

TEST_F(FilterPickingTest, ALineOfAnotherProductDroppedOnTheListIsRefusedWhenTheDropIsOver) {
  AddSecondProduct();
  ASSERT_TRUE(window.Select("IEA15", {}));
  OpenFilterPanel();
  ASSERT_TRUE(window.Select("Car", {"wheel.1"}));
  DropOnList(*Dragged());
  EXPECT_EQ(FilterRows(), Rows{});
  EXPECT_NE(OnlyMessage().find("another product"), std::string::npos) << OnlyMessage();
}

TEST_F(FilterPickingTest, AllThatWereRemovedCanBeAddedAgain) {
  OpenFilterPanel();
  SelectAll({kBedplate, kGenerator});
  window.AddToFilter();
  InFilterPanel<KorDlgPushButton>("Frame001.Frame011.ClearAllCriteriaButton").Press();
  window.AddToFilter();
  EXPECT_EQ(FilterRows(), (Rows{kBedplateRow, kGeneratorRow}));
  EXPECT_EQ(Said(), "2 added to the filter.");
}

TEST_F(FilterPickingTest, ReturnOpensThePartPanelWhileAFilterOfTheProductIsChosen) {
  Select(kBedplate);
  OpenFilterPanel();
  InFilterPanel<KorDlgRadioButton>("CfgFilterBtn").Check();
  QTest::keyClick(&window.TreeView(), Qt::Key_Return);
  EXPECT_TRUE(window.PartPanel().IsOpen());
  EXPECT_TRUE(boxes.Messages().empty());
}

TEST_F(FilterPickingTest, TheListTakesNothingElse) {
  OpenFilterPanel();
  QMimeData text;
  text.setText("bedplate.1");
  EXPECT_FALSE(DropOnList(text));
  QMimeData damaged;
  damaged.setData(OccurrenceMimeTypes().front(), QByteArray("\0\0\0\xff\0", 5));
  EXPECT_FALSE(DropOnList(damaged));
  EXPECT_EQ(FilterRows(), Rows{});
}

TEST_F(FilterPickingTest, TheListTakesNothingWhileAFilterOfTheProductIsChosen) {
  OpenFilterPanel();
  InFilterPanel<KorDlgRadioButton>("CfgFilterBtn").Check();
  Select(kBlades);
  EXPECT_FALSE(DropOnList(*Dragged()));
  EXPECT_EQ(FilterRows(), Rows{});
  EXPECT_TRUE(boxes.Messages().empty());
}

TEST_F(FilterPickingTest, ADroppedOccurrenceThatIsGoneIsPassedOver) {
  OpenFilterPanel();
  const auto data = DragOccurrences({{"IEA15", {"sail.1"}}, {"IEA15", kBlades}});
  EXPECT_TRUE(DropOnList(*data));
  EXPECT_EQ(FilterRows(), Rows{kBladesRow});
}

TEST(OccurrenceMime, WhatIsDraggedComesBackAsItWas) {
  const auto data = DragOccurrences({{"P", {}}, {"P|Q", {"a b", "\u00e4"}}});
  const std::vector<OccurrenceKey> back = DraggedOccurrences(*data);
  ASSERT_EQ(back.size(), 2u);
  EXPECT_EQ(back[0].product, "P");
  EXPECT_TRUE(back[0].instancePath.empty());
  EXPECT_EQ(back[1].product, "P|Q");
  EXPECT_EQ(back[1].instancePath, (std::vector<std::string>{"a b", "\u00e4"}));
}

}  // namespace
}  // namespace desktop::test
