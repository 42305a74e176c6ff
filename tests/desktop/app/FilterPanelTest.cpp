// The module's filter panel in its host: opened, worked and closed on the screen.
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>
#include <QTreeView>

#include "desktop/toolkit/WholeTextTip.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "protocol/Codec.h"
#include "protocol/Constants.h"
#include "tests/desktop/app/ScriptedTransport.h"
#include "tests/desktop/app/WindowHarness.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

class FilterPanelTest : public WindowTest {
 protected:
  template <class Control>
  Control* On(const std::string& path) {
    auto* control = backend.ControlOf<Control>(InFilterPanel<KorDlgObject>(path));
    EXPECT_NE(control, nullptr) << path;
    return control;
  }
  QWidget* PanelWindow() { return window.FilterPanel().Window(); }
  /// The list of the panel with three rows: the yaw system, the blades and the hub system.
  QTableView* OpenOnThreeRows() {
    SelectAll({{"nacelle.1", "yaw.1"}, {"Blades.1"}, {"Hub_System.1"}});
    OpenFilterPanel();
    window.AddToFilter();
    backend.Settle();
    auto* table = On<QTableView>("Frame001.FilterMultiList");
    table->setFocus();
    return table;
  }
  static void SetOnTheProductForEverybody(const std::string& filter) {
    const std::string request = protocol::WriteConfigurationHandler({"IEA15", filter});
    const std::string reply =
        KorPdmClient::GetTransport()->Run(std::string(protocol::kCommandSetHandler), request);
    ASSERT_FALSE(protocol::IsErrorReply(reply)) << reply;
  }
  std::vector<KorUnicodeString> Names() {
    return InFilterPanel<KorDlgCombo>("Frame002.ConfigHandlerIDCombo").GetLines();
  }
  /// What the part panel sends with a compute.
  std::string BufferFilter() {
    KorUnicodeString filter;
    window.PartPanel().Buffer()->GetFilter(filter);
    return filter.Utf8();
  }
  std::string ShownFilter() {
    return Panel()
        .Find<KorDlgEditor>("Frame250.AdditionalFrame1.ConfigHandler.ConfigHandlerEditor")
        .GetText()
        .Utf8();
  }
};

TEST_F(FilterPanelTest, OpensBesideTheWindowAndLeavesThatToBeWorked) {
  OpenFilterPanel();
  EXPECT_TRUE(PanelWindow()->isVisible());
  EXPECT_FALSE(static_cast<QDialog*>(PanelWindow())->isModal());
}

TEST_F(FilterPanelTest, OpensOnTheFiltersOfTheProduct) {
  OpenFilterPanel();
  EXPECT_EQ(Names(), (std::vector<KorUnicodeString>{"No Filter", "As built 2020", "Rotating parts",
                                                    "Structure only", "Without generator"}));
  EXPECT_EQ(PanelWindow()->windowTitle(), "Product filter");
}

TEST_F(FilterPanelTest, TellsTheServerTheRootOfWhatIsSelected) {
  AddSecondProduct();
  ASSERT_TRUE(window.Select("Car", {"wheel.1"}));
  OpenFilterPanel();
  const std::string reply = KorPdmClient::GetTransport()->Run("LumGetCurrentRoot", "");
  const auto root = protocol::ReadCurrentRoot(reply);
  ASSERT_TRUE(root.Ok()) << reply;
  ASSERT_EQ(root.Value().roots.size(), 1u);
  EXPECT_EQ(root.Value().roots[0].product, "Car");
  EXPECT_EQ(Names(), std::vector<KorUnicodeString>{"No Filter"});
}

TEST_F(FilterPanelTest, IsOneForTheProgramAndComesToTheFront) {
  const KorDlgDialog* first = &OpenFilterPanel();
  EXPECT_EQ(&OpenFilterPanel(), first);
}

TEST_F(FilterPanelTest, OfAnotherProductTakesThePlaceOfTheOpenOne) {
  AddSecondProduct();
  ASSERT_TRUE(window.Select("IEA15", {}));
  OpenFilterPanel();
  ASSERT_TRUE(window.Select("Car", {}));
  OpenFilterPanel();
  EXPECT_EQ(Names(), std::vector<KorUnicodeString>{"No Filter"});
}

TEST_F(FilterPanelTest, OKBindsTheOpenPartPanelUnderTheNewFilter) {
  OpenPanelOnAboveYaw();
  EXPECT_EQ(ShownFilter(), "No Filter");
  ChooseFilter("Structure only");
  EXPECT_EQ(ShownFilter(), "Structure only");
  EXPECT_EQ(BufferFilter(), "0|Structure only");
}

TEST_F(FilterPanelTest, APartPanelThatIsOpenedLaterHasTheFilterToo) {
  ChooseFilter("Structure only");
  OpenPanelOnAboveYaw();
  EXPECT_EQ(ShownFilter(), "Structure only");
  EXPECT_EQ(BufferFilter(), "0|Structure only");
}

TEST_F(FilterPanelTest, ComputesWhatTheFilterLeaves) {
  ChooseFilter("Structure only");
  OpenPanelOnAboveYaw();
  ASSERT_TRUE(window.PartPanel().Compute());
  // bedplate 42274.27441488182 + nose 10875.72252782984 + platform 48672 + cover 20554.30618041099
  EXPECT_EQ(Panel().Find<KorDlgEditor>("TabContainer001.TabPage002.MassFrame.MassEditor").GetText(),
            "122376.3031 kg");
  EXPECT_TRUE(boxes.Messages().empty());
}

TEST_F(FilterPanelTest, IsDestroyedOnlyWhenControlIsBackInTheEventLoop) {
  KorDlgDialog& panel = OpenFilterPanel();
  panel.PressOK();
  EXPECT_FALSE(panel.IsShown());
  EXPECT_TRUE(window.FilterPanel().IsOpen());
  RunPendingEvents();
  EXPECT_FALSE(window.FilterPanel().IsOpen());
}

TEST_F(FilterPanelTest, OpenedAgainBeforeThatIsANewPanelThatStays) {
  OpenFilterPanel().PressOK();
  window.ShowFilterPanel();
  RunPendingEvents();
  ASSERT_TRUE(window.FilterPanel().IsOpen());
  EXPECT_TRUE(window.FilterPanel().Panel()->IsShown());
}

TEST_F(FilterPanelTest, CancelEscapeAndItsWindowCloseItAndKeepTheFilter) {
  ChooseFilter("Structure only");
  const auto cancel = [this](auto close) {
    OpenFilterPanel();
    InFilterPanel<KorDlgCombo>("Frame002.ConfigHandlerIDCombo").Pick("As built 2020");
    close();
    RunPendingEvents();
    EXPECT_FALSE(window.FilterPanel().IsOpen());
    EXPECT_EQ(window.FilterText(), "Filter: Structure only");
  };
  cancel(
      [this] { PanelWindow()->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel)->click(); });
  cancel([this] { QTest::keyClick(PanelWindow(), Qt::Key_Escape); });
  cancel([this] { PanelWindow()->close(); });
}

TEST_F(FilterPanelTest, OpenedAgainShowsTheChoiceInForce) {
  ChooseFilter("Without generator");
  OpenFilterPanel();
  EXPECT_TRUE(On<QRadioButton>("CfgFilterBtn")->isChecked());
  EXPECT_EQ(On<QComboBox>("Frame002.ConfigHandlerIDCombo")->currentText(), "Without generator");
}

TEST_F(FilterPanelTest, TheKindOfFilterCountsAtOnceAndCancelDoesNotBringItBack) {
  ChooseFilter("Structure only");
  OpenPanelOnAboveYaw();
  KorDlgDialog& panel = OpenFilterPanel();
  InFilterPanel<KorDlgRadioButton>("PVSFilterBtn").Check();
  RunPendingEvents();
  EXPECT_EQ(window.FilterText(), "Filter: No Filter");
  EXPECT_EQ(ShownFilter(), "No Filter");
  panel.PressCancel();
  RunPendingEvents();
  EXPECT_EQ(window.FilterText(), "Filter: No Filter");
}

TEST_F(FilterPanelTest, IsClosedWithTheProductThatItBelongsTo) {
  OpenFilterPanel();
  ASSERT_TRUE(window.CreateProduct(folder.filePath("new.lumira")));
  EXPECT_FALSE(window.FilterPanel().IsOpen());
  EXPECT_FALSE(window.Command("Filter")->isEnabled());
}

TEST_F(FilterPanelTest, AServerThatDoesNotTakeTheRootGivesAMessageAndNoPanel) {
  ScriptedTransport server;
  server.answer = [](auto&...) { return protocol::ErrorReply("the disk is full"); };
  window.ShowFilterPanel();
  EXPECT_EQ(OnlyMessage(), "the disk is full");
  EXPECT_FALSE(window.FilterPanel().IsOpen());
}

TEST_F(FilterPanelTest, ALanguageChangesItsTexts) {
  OpenFilterPanel();
  ASSERT_TRUE(window.ChooseLanguage("de"));
  EXPECT_EQ(On<QPushButton>("Frame001.Frame011.RemoveCriterionButton")->text(), "Entfernen");
  const auto title = [this](int column) {
    return On<QTableView>("Frame001.FilterMultiList")->model()->headerData(column, Qt::Horizontal).toString();
  };
  EXPECT_EQ(title(0), "Instanz");
  EXPECT_EQ(title(3), "Ort im Produkt");
}

TEST_F(FilterPanelTest, KeepsTheWidthsOfItsColumnsUntilItIsOpenedAgain) {
  OpenFilterPanel();
  On<QTableView>("Frame001.FilterMultiList")->setColumnWidth(0, 333);
  window.FilterPanel().Close();
  OpenFilterPanel();
  PanelWindow()->resize(PanelWindow()->size() + QSize(100, 50));
  RunPendingEvents();
  EXPECT_EQ(On<QTableView>("Frame001.FilterMultiList")->columnWidth(0), 333);
}

TEST_F(FilterPanelTest, ItsColumnsFitTheWindowEachTimeItIsOpened) {
  for (int opening = 0; opening < 2; ++opening) {
    OpenFilterPanel();
    RunPendingEvents();
    auto* table = On<QTableView>("Frame001.FilterMultiList");
    EXPECT_EQ(table->horizontalHeader()->length(), table->viewport()->width()) << opening;
    EXPECT_EQ(settings.WindowState("filterPanel/columns"), "") << "nobody has set one";
    window.FilterPanel().Close();
  }
}

TEST_F(FilterPanelTest, TheWholeTextOfACellIsInItsTooltip) {
  SelectAll({{"nacelle.1", "Above_yaw.1", "bedplate.1"}});
  OpenFilterPanel();
  window.AddToFilter();
  backend.Settle();
  EXPECT_EQ(On<QTableView>("Frame001.FilterMultiList")->model()->index(0, 3).data(Qt::ToolTipRole),
            "IEA15/nacelle.1/Above_yaw.1");
}

TEST_F(FilterPanelTest, APlaceThatIsCutOffIsReadByKeys) {
  SelectAll({{"nacelle.1", "Above_yaw.1", "bedplate.1"}});
  OpenFilterPanel();
  window.AddToFilter();
  backend.Settle();
  auto* table = On<QTableView>("Frame001.FilterMultiList");
  table->setColumnWidth(3, 80);
  PanelWindow()->activateWindow();
  On<QRadioButton>("PVSFilterBtn")->setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  RunPendingEvents();
  EXPECT_EQ(WholeTextTip::ShownOn(*table), "Place in the product: IEA15/nacelle.1/Above_yaw.1");
}

TEST_F(FilterPanelTest, AServerThatDoesNotTakeTheRootLeavesTheOpenPanel) {
  AddSecondProduct();
  ASSERT_TRUE(window.Select("IEA15", {}));
  OpenFilterPanel();
  ASSERT_TRUE(window.Select("Car", {}));
  ScriptedTransport server;
  server.answer = [](auto&...) { return protocol::ErrorReply("the disk is full"); };
  window.ShowFilterPanel();
  EXPECT_EQ(OnlyMessage(), "the disk is full");
  EXPECT_TRUE(window.FilterPanel().IsOpenOn("IEA15"));
}

// The module takes over what the server says is set on the product that its panel opens on, before OK; the
// name then counts for the product that the filter was chosen for, too.
TEST_F(FilterPanelTest, OpenedOnAnotherProductTakesItsSetFilterForTheOneInForceToo) {
  AddSecondProduct();
  ASSERT_TRUE(window.Select("IEA15", {}));
  ChooseFilter("Structure only");
  ASSERT_TRUE(window.Select("Car", {}));
  ScriptedTransport server;
  server.AnswerOnly(protocol::kCommandHandler, protocol::WriteConfigurationHandler({"Car", "Winter"}));
  OpenFilterPanel().PressCancel();
  RunPendingEvents();
  ASSERT_TRUE(window.Select("IEA15", {}));
  EXPECT_EQ(window.FilterText(), "Filter: Winter");
  EXPECT_EQ(window.FilterMeaning(), "The product has no filter \"Winter\" any more. Choose another one.");
}

TEST_F(FilterPanelTest, OpenedAgainTakesTheSetFilterOfTheProductOnPurposeAndCancelDoesNotBringTheOtherBack) {
  SetOnTheProductForEverybody("Structure only");
  OpenPanelOnAboveYaw();
  ChooseFilter("Rotating parts");
  ASSERT_EQ(window.FilterText(), "Filter: Rotating parts");
  ASSERT_EQ(BufferFilter(), "0|Rotating parts");
  OpenFilterPanel().PressCancel();
  RunPendingEvents();
  EXPECT_EQ(window.FilterText(), "Filter: Structure only");
  EXPECT_EQ(ShownFilter(), "Structure only");
  EXPECT_EQ(BufferFilter(), "0|Structure only");
}

TEST_F(FilterPanelTest, WhatItTookOverIsShownAsSoonAsItIsOpen) {
  SetOnTheProductForEverybody("Structure only");
  OpenPanelOnAboveYaw();
  ChooseFilter("Rotating parts");
  OpenFilterPanel();
  EXPECT_EQ(window.FilterText(), "Filter: Structure only");
  EXPECT_TRUE(window.FilterMeaning().startsWith("Structure only: ")) << window.FilterMeaning().toStdString();
  EXPECT_EQ(BufferFilter(), "0|Structure only");
}

TEST_F(FilterPanelTest, KeepsItsSizeUntilItIsOpenedAgain) {
  OpenFilterPanel();
  const QSize larger = PanelWindow()->minimumSizeHint() + QSize(131, 117);
  PanelWindow()->resize(larger);
  window.FilterPanel().Close();
  OpenFilterPanel();
  EXPECT_EQ(PanelWindow()->size(), larger);
}

TEST_F(FilterPanelTest, HasRoomForThreeColumnsHoweverNarrowItIsMade) {
  OpenFilterPanel();
  PanelWindow()->resize(1, 1);
  RunPendingEvents();
  auto* table = On<QTableView>("Frame001.FilterMultiList");
  EXPECT_GE(table->viewport()->width(),
            table->columnWidth(0) + table->columnWidth(1) + table->columnWidth(2));
  EXPECT_TRUE(table->isColumnHidden(4));
  EXPECT_TRUE(table->isColumnHidden(5));
}

TEST_F(FilterPanelTest, EachColumnHasRoomForItsTitle) {
  OpenFilterPanel();
  auto* table = On<QTableView>("Frame001.FilterMultiList");
  for (int column = 0; column < 4; ++column)
    EXPECT_GE(table->columnWidth(column), table->horizontalHeader()->sectionSizeHint(column)) << column;
}

TEST_F(FilterPanelTest, TabWalksItInTheOrderInWhichItIsRead) {
  SelectAll({{"nacelle.1", "Above_yaw.1", "bedplate.1"}});
  OpenFilterPanel();
  window.AddToFilter();
  RunPendingEvents();
  On<QRadioButton>("PVSFilterBtn")->setFocus();
  std::vector<QString> walked;
  for (int i = 0; i < 4; ++i) {
    walked.push_back(QApplication::focusWidget()->objectName());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(walked, (std::vector<QString>{"PVSFilterBtn", "FilterMultiList", "RemoveCriterionButton",
                                          "ClearAllCriteriaButton"}));
}

TEST_F(FilterPanelTest, AFilterIsChosenByTheKeyboard) {
  OpenFilterPanel();
  auto* user = On<QRadioButton>("PVSFilterBtn");
  user->setFocus();
  QTest::keyClick(user, Qt::Key_Down);
  ASSERT_TRUE(On<QRadioButton>("CfgFilterBtn")->isChecked());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  auto* names = On<QComboBox>("Frame002.ConfigHandlerIDCombo");
  ASSERT_EQ(QApplication::focusWidget(), names);
  for (int i = 0; i < 3; ++i) QTest::keyClick(names, Qt::Key_Down);
  auto* ok = PanelWindow()->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
  ok->setFocus();
  QTest::keyClick(ok, Qt::Key_Space);
  RunPendingEvents();
  EXPECT_EQ(window.FilterText(), "Filter: Structure only");
}

TEST_F(FilterPanelTest, RowsAreRemovedByTheKeyboard) {
  QTableView* table = OpenOnThreeRows();
  table->selectRow(0);
  QTest::keyClick(table, Qt::Key_Down, Qt::ShiftModifier);
  QTest::keyClick(On<QPushButton>("Frame001.Frame011.RemoveCriterionButton"), Qt::Key_Space);
  EXPECT_EQ(FilterRows(), std::vector<std::string>{"Hub_System.1, Hub_System, , IEA15, 0, "});
}

TEST_F(FilterPanelTest, DeleteRemovesTheSelectedRowsAndControlDeleteAll) {
  QTableView* table = OpenOnThreeRows();
  table->selectRow(1);
  QTest::keyClick(table, Qt::Key_Delete);
  EXPECT_EQ(FilterRows(), (std::vector<std::string>{"yaw.1, yaw, , IEA15/nacelle.1, 1, nacelle.1",
                                                    "Hub_System.1, Hub_System, , IEA15, 0, "}));
  QTest::keyClick(table, Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(FilterRows(), std::vector<std::string>{});
}

TEST_F(FilterPanelTest, DeleteRemovesNothingWhileAFilterOfTheProductIsChosen) {
  SelectAll({{"Blades.1"}});
  OpenFilterPanel();
  window.AddToFilter();
  InFilterPanel<KorDlgRadioButton>("CfgFilterBtn").Check();
  QTest::keyClick(PanelWindow(), Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(FilterRows().size(), 1u);
}

TEST_F(FilterPanelTest, ItsButtonsNameTheirKeysInTheirTooltips) {
  OpenFilterPanel();
  EXPECT_TRUE(On<QPushButton>("Frame001.Frame011.RemoveCriterionButton")->toolTip().contains("(Del)"));
  EXPECT_TRUE(On<QPushButton>("Frame001.Frame011.ClearAllCriteriaButton")->toolTip().contains("(Ctrl+Del)"));
}

}  // namespace
}  // namespace desktop::test
