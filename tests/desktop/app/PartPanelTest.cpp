// The module's part panel in its host: opened, worked and closed on the screen.
#include <QAbstractSpinBox>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QModelIndex>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTreeView>

#include "desktop/app/SelectionPane.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgTabContainer.h"
#include "framework/knowledge/KorUnitSystems.h"
#include "tests/desktop/app/ScriptedTransport.h"
#include "tests/desktop/app/WindowHarness.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

constexpr const char* kResults = "TabContainer001.TabPage002.";

class PartPanelTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    OpenPanelOnAboveYaw();
  }

  template <class Control>
  Control* On(const std::string& path) {
    auto* control = backend.ControlOf<Control>(Panel().Find(path));
    EXPECT_NE(control, nullptr) << path;
    return control;
  }
  QString ShownText(const std::string& editor) { return On<QLineEdit>(editor)->text(); }
  QString ShownMass() { return ShownText(std::string(kResults) + "MassFrame.MassEditor"); }
  QWidget* PanelWindow() { return window.PartPanel().Window(); }
};

TEST_F(PartPanelTest, OpensOnWhatIsSelected) {
  EXPECT_TRUE(PanelWindow()->isVisible());
  EXPECT_EQ(ShownText("Frame012.SelectionEditor"), "IEA15/Above_yaw/nacelle.1/Above_yaw.1");
  EXPECT_EQ(ShownMass(), "...");
}

TEST_F(PartPanelTest, TheSelectionIsSelectedBehindTheProduct) {
  auto* selection = On<QLineEdit>("Frame012.SelectionEditor");
  EXPECT_EQ(selection->selectedText(), "Above_yaw/nacelle.1/Above_yaw.1");
  QTest::keyClick(PanelWindow(), Qt::Key_F5);
  RunPendingEvents();
  EXPECT_EQ(selection->selectedText(), "Above_yaw/nacelle.1/Above_yaw.1");
}

TEST_F(PartPanelTest, F5ComputesAndShowsTheResult) {
  QTest::keyClick(PanelWindow(), Qt::Key_F5);
  EXPECT_EQ(ShownMass(), "644856.5481 kg");
  EXPECT_EQ(ShownText(std::string(kResults) + "CenterOfGravityFrame.CGxEditor"), "-5124.694875 mm");
  EXPECT_EQ(ShownText(std::string(kResults) + "MomentOfInertiaFrame.IyyEditor"),
            QString::fromUtf8("10608608.72 kg\u00b7m\u00b2"));
  EXPECT_EQ(ShownText(std::string(kResults) + "ProductOfInertiaFrame.IxzEditor"),
            QString::fromUtf8("-2197871.805 kg\u00b7m\u00b2"));
}

TEST_F(PartPanelTest, ComputingBringsTreeAndPaneUpToDate) {
  QTest::keyClick(PanelWindow(), Qt::Key_F5);
  RunPendingEvents();
  const QModelIndex line = window.TreeView().currentIndex();
  EXPECT_EQ(line.siblingAtColumn(ProductTreeModel::Status).data().toString(), "up to date");
  EXPECT_EQ(line.siblingAtColumn(ProductTreeModel::Mass).data().toString(), "644856.5481 kg");
  EXPECT_EQ(window.Selection().ComputedText("Selection.CGz"), "4314.502124 mm");
}

TEST_F(PartPanelTest, ComputingTurnsTheRedLampGreen) {
  auto* red = On<QLabel>("Frame012.FrameStatus.FlagRedLabel");
  auto* green = On<QLabel>("Frame012.FrameStatus.FlagGreenLabel");
  EXPECT_TRUE(red->isVisible());
  EXPECT_FALSE(green->isVisible());
  QTest::keyClick(PanelWindow(), Qt::Key_F5);
  EXPECT_FALSE(red->isVisible());
  EXPECT_TRUE(green->isVisible());
}

TEST_F(PartPanelTest, ValuesAreShownInTheUnitsChosenAfterwards) {
  QTest::keyClick(PanelWindow(), Qt::Key_F5);
  KorApplyUnitSystem("Imperial");
  window.UnitsChanged();
  // 644856.548088461 kg / 0.45359237; -5124.694874749737 mm / 25.4
  EXPECT_EQ(ShownMass(), "1421665.334 lb");
  EXPECT_EQ(ShownText(std::string(kResults) + "CenterOfGravityFrame.CGxEditor"), "-201.7596407 in");
}

TEST_F(PartPanelTest, AnotherSelectionBindsTheOpenPanel) {
  const KorDlgDialog* before = window.PartPanel().Panel();
  Select({"nacelle.1", "Above_yaw.1", "generator.1"});
  EXPECT_EQ(window.PartPanel().Panel(), before);
  EXPECT_EQ(ShownText("Frame012.SelectionEditor"), "IEA15/generator/nacelle.1/Above_yaw.1/generator.1");
  QTest::keyClick(PanelWindow(), Qt::Key_F5);
  EXPECT_EQ(ShownMass(), "368839.4072 kg");
}

TEST_F(PartPanelTest, TheCloseButtonClosesIt) {
  QTest::mouseClick(On<QPushButton>("Frame238.CloseButton"), Qt::LeftButton);
  RunPendingEvents();
  EXPECT_FALSE(window.PartPanel().IsOpen());
}

TEST_F(PartPanelTest, ItsWindowAndEscapeCloseIt) {
  QTest::keyClick(PanelWindow(), Qt::Key_Escape);
  RunPendingEvents();
  EXPECT_FALSE(window.PartPanel().IsOpen());
  window.ShowPartPanel();
  PanelWindow()->close();
  RunPendingEvents();
  EXPECT_FALSE(window.PartPanel().IsOpen());
}

TEST_F(PartPanelTest, IsClosedWithTheProductThatItBelongsTo) {
  ASSERT_TRUE(window.CreateProduct(folder.filePath("new.lumira")));
  EXPECT_FALSE(window.PartPanel().IsOpen());
}

TEST_F(PartPanelTest, ALanguageChangesItsTexts) {
  ASSERT_TRUE(window.ChooseLanguage("de"));
  EXPECT_EQ(On<QPushButton>("Frame238.ComputeButton")->text(), "Berechnen");
}

TEST_F(PartPanelTest, PagesArePickedByTheKeyboard) {
  auto* tabs = On<QTabWidget>("TabContainer001");
  QTest::keyClick(tabs->tabBar(), Qt::Key_Right);
  EXPECT_EQ(Panel().Find<KorDlgTabContainer>("TabContainer001").GetSelectedPage(), 1);
  EXPECT_FALSE(On<QRadioButton>("Frame250.AdditionalFrame2.InertiaModeFrame.CGButton")->isEnabled());
}

TEST_F(PartPanelTest, TheCustomReferenceIsReachedTypedAndComputedByTheKeyboard) {
  const std::string modes = "Frame250.AdditionalFrame2.ReferenceModeFrame.";
  auto* current = On<QRadioButton>(modes + "CurrentPartButton");
  current->setFocus();
  QTest::keyClick(current, Qt::Key_Right);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
  ASSERT_TRUE(Panel().Find<KorDlgRadioButton>(modes + "CustomReferenceButton").IsChecked());
  ASSERT_TRUE(On<QWidget>("CustomRefModeFrame")->isVisible());
  auto* first = On<QLineEdit>("CustomRefModeFrame.Frame033.CPxEditor");
  first->setFocus();
  // The point, then the axes by rows: turned by a quarter about z.
  for (const char* text : {"1000", "0", "500", "0", "-1", "0", "1", "0", "0", "0", "0", "1"}) {
    static_cast<QLineEdit*>(QApplication::focusWidget())->selectAll();
    QTest::keyClicks(QApplication::focusWidget(), text);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  QTest::keyClick(PanelWindow(), Qt::Key_F5);
  EXPECT_TRUE(boxes.Messages().empty());
  // The placement is the identity: axes × (cg - point).
  EXPECT_EQ(ShownText(std::string(kResults) + "CenterOfGravityFrame.CGxEditor"), "146.4816974 mm");
  EXPECT_EQ(ShownText(std::string(kResults) + "CenterOfGravityFrame.CGyEditor"), "-6124.694875 mm");
  EXPECT_EQ(ShownText(std::string(kResults) + "CenterOfGravityFrame.CGzEditor"), "3814.502124 mm");
}

TEST_F(PartPanelTest, AnUnfilledCustomReferenceGivesAMessageAndComputesNothing) {
  Panel()
      .Find<KorDlgRadioButton>("Frame250.AdditionalFrame2.ReferenceModeFrame.CustomReferenceButton")
      .Check();
  QTest::keyClick(PanelWindow(), Qt::Key_F5);
  EXPECT_EQ(boxes.Messages().size(), 1u);
  EXPECT_EQ(ShownMass(), "...");
}

TEST_F(PartPanelTest, HidingTheCustomReferenceLeavesNoGap) {
  const std::string modes = "Frame250.AdditionalFrame2.ReferenceModeFrame.";
  const int before = PanelWindow()->minimumSizeHint().height();
  Panel().Find<KorDlgRadioButton>(modes + "CustomReferenceButton").Check();
  RunPendingEvents();
  EXPECT_GT(PanelWindow()->minimumSizeHint().height(), before);
  Panel().Find<KorDlgRadioButton>(modes + "CurrentPartButton").Check();
  RunPendingEvents();
  EXPECT_EQ(PanelWindow()->minimumSizeHint().height(), before);
}

TEST_F(PartPanelTest, OpenedAgainItHasNoRoomForACustomReferenceThatItDoesNotShow) {
  const int before = PanelWindow()->height();
  Panel()
      .Find<KorDlgRadioButton>("Frame250.AdditionalFrame2.ReferenceModeFrame.CustomReferenceButton")
      .Check();
  RunPendingEvents();
  ASSERT_GT(PanelWindow()->height(), before);
  window.PartPanel().Close();
  RunPendingEvents();
  window.ShowPartPanel();
  RunPendingEvents();
  EXPECT_EQ(PanelWindow()->height(), before);
}

TEST_F(PartPanelTest, EachInputHasAnAccessibleName) {
  for (QLineEdit* edit : PanelWindow()->findChildren<QLineEdit*>()) {
    if (qobject_cast<QAbstractSpinBox*>(edit->parentWidget())) continue;
    EXPECT_FALSE(edit->accessibleName().isEmpty()) << edit->objectName().toStdString();
  }
}

TEST_F(PartPanelTest, AnEditorAloneInAFrameIsNamedByTheFrame) {
  EXPECT_EQ(PanelWindow()->findChild<QLineEdit*>("ConfigHandlerEditor")->accessibleName(),
            "Configuration filter");
  ASSERT_TRUE(window.ChooseLanguage("de"));
  EXPECT_NE(PanelWindow()->findChild<QLineEdit*>("ConfigHandlerEditor")->accessibleName(),
            "Configuration filter");
}

TEST_F(PartPanelTest, AServerErrorIsShownOnceAndChangesNothing) {
  QTest::keyClick(PanelWindow(), Qt::Key_F5);
  RunPendingEvents();
  ASSERT_EQ(ShownMass(), "644856.5481 kg");
  ScriptedTransport server;
  server.answer = [](auto&...) { return protocol::ErrorReply("the disk is full"); };
  QTest::keyClick(PanelWindow(), Qt::Key_F5);
  RunPendingEvents();
  EXPECT_EQ(server.commands, std::vector<std::string>{"WBComputeNymValues"});
  EXPECT_EQ(OnlyMessage(), "the disk is full");
  EXPECT_EQ(ShownMass(), "644856.5481 kg");
  EXPECT_EQ(window.Selection().ComputedText("Selection.Mass"), "644856.5481 kg");
}

TEST_F(PartPanelTest, ARefreshThatFailsGivesOneMessage) {
  KorPdmTransport* before = KorPdmClient::GetTransport();
  ScriptedTransport server;
  server.answer = [before](const std::string& command, const std::string& request) {
    return command.starts_with("Lum") ? protocol::ErrorReply("the disk is full")
                                      : before->Run(command, request);
  };
  QTest::keyClick(PanelWindow(), Qt::Key_F5);
  RunPendingEvents();
  EXPECT_EQ(OnlyMessage(), "the disk is full");
  EXPECT_EQ(ShownMass(), "644856.5481 kg");
}

TEST_F(PartPanelTest, AReplyThatCannotBeReadLeavesTheOpenPanelAsItWas) {
  const KorDlgDialog* before = window.PartPanel().Panel();
  const auto shown = window.PartPanel().Show("PartData/1|nonsense|end");
  ASSERT_FALSE(shown.Ok());
  EXPECT_FALSE(shown.Failure().message.empty());
  EXPECT_EQ(window.PartPanel().Panel(), before);
  EXPECT_EQ(ShownText("Frame012.SelectionEditor"), "IEA15/Above_yaw/nacelle.1/Above_yaw.1");
}

TEST_F(PartPanelTest, ASelectionThatCannotBeReadLeavesTheOpenPanelAsItWas) {
  ScriptedTransport server;
  server.answer = [](auto&...) { return "nonsense"; };
  window.Select("IEA15", {"nacelle.1", "yaw.1"});
  OnlyMessage();
  EXPECT_TRUE(window.PartPanel().IsOpen());
  EXPECT_EQ(ShownText("Frame012.SelectionEditor"), "IEA15/Above_yaw/nacelle.1/Above_yaw.1");
}

TEST_F(PartPanelTest, KeepsItsSizeUntilItIsOpenedAgain) {
  const QSize larger = PanelWindow()->minimumSizeHint() + QSize(31, 17);
  PanelWindow()->resize(larger);
  window.PartPanel().Close();
  window.ShowPartPanel();
  EXPECT_EQ(PanelWindow()->size(), larger);
}

TEST_F(PartPanelTest, NumbersStandAtTheRightAndOtherTextsAtTheLeft) {
  QTest::keyClick(PanelWindow(), Qt::Key_F5);
  EXPECT_TRUE(On<QLineEdit>(std::string(kResults) + "MassFrame.MassEditor")->alignment() & Qt::AlignRight);
  EXPECT_TRUE(On<QLineEdit>("Frame012.SelectionEditor")->alignment() & Qt::AlignLeft);
}

TEST_F(PartPanelTest, AValueWithoutRoomForItsDigitsStandsInTheTooltipToo) {
  QTest::keyClick(PanelWindow(), Qt::Key_F5);
  auto* ixx = On<QLineEdit>(std::string(kResults) + "MomentOfInertiaFrame.IxxEditor");
  EXPECT_FALSE(ixx->toolTip().contains(ixx->text())) << ixx->toolTip().toStdString();
  KorCkeUnit::SetShownDigits(17);
  window.UnitsChanged();
  KorCkeUnit::SetShownDigits(10);
  ASSERT_GE(ixx->text().size(), 20);
  ixx->setFixedWidth(90);
  RunPendingEvents();
  EXPECT_TRUE(ixx->toolTip().contains(ixx->text())) << ixx->toolTip().toStdString();
}

}  // namespace
}  // namespace desktop::test
