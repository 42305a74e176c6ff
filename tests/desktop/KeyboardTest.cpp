// The whole dialog can be worked without a mouse.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include "tests/desktop/support/DemoDialog.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

TEST_F(QtBackendTest, TabWalksTheWidgetsInTheOrderOfTheirCreation) {
  Open();
  In<QLineEdit>(dialog.nameEditor)->setFocus();
  std::vector<QString> walked;
  for (int i = 0; i < 9; ++i) {
    walked.push_back(QApplication::focusWidget()->objectName());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  // A group of radio buttons is one stop, at the button that is checked; the third stop is the tab bar.
  EXPECT_EQ(walked,
            (std::vector<QString>{"NameEditor", "MassEditor", "qt_tabwidget_tabbar", "KindCombo", "OwnButton",
                                  "StandardButton", "MaterialSpinner", "AxisEditor", "ComputeButton"}));
}

TEST(TabOrder, TheButtonsAtTheBottomAreTheLastStopsAlsoWhenWidgetsComeLater) {
  HeadlessBoxes boxes;
  QtBackend backend(&boxes);
  DemoDialog dialog(KorDlgStyle::kOkCancelDialog);
  dialog.SetVisibility(KorVisibility::Shown);
  dialog.Attach(&backend);
  dialog.Add<KorDlgEditor>("LateEditor", KorDlgStyle::kNone, {.row = 3});
  RunPendingEvents();
  QWidget* window = backend.WindowOf(&dialog);
  QApplication::setActiveWindow(window);
  window->setFocus();
  const auto next = [](Qt::Key key = Qt::Key_Tab) {
    QTest::keyClick(QApplication::focusWidget(), key);
    auto* button = qobject_cast<QPushButton*>(QApplication::focusWidget());
    return button ? button->text().remove('&') : QApplication::focusWidget()->objectName();
  };
  EXPECT_EQ(next(), "NameEditor");
  for (const char* last : {"LateEditor", "OK", "Cancel"}) {
    QString stop = next();
    for (int i = 0; i < 12 && stop != last && QString(last) == "LateEditor"; ++i) stop = next();
    EXPECT_EQ(stop, last);
  }
  EXPECT_EQ(next(), "NameEditor");
  window->setFocus();
  EXPECT_EQ(next(Qt::Key_Backtab), "Cancel");
  dialog.Detach();
  RunPendingEvents();
}

TEST(EnterInADialogWithOK, PressesTheButtonThatHasTheFocusElseOK) {
  HeadlessBoxes boxes;
  QtBackend backend(&boxes);
  DemoDialog dialog(KorDlgStyle::kOkCancelDialog);
  int computed = 0;
  int confirmed = 0;
  dialog.compute->Subscribe(KorEvent::PushActivate, [&](auto...) { ++computed; });
  dialog.Subscribe(KorEvent::DialogOK, [&](auto...) { ++confirmed; });
  dialog.SetVisibility(KorVisibility::Shown);
  dialog.Attach(&backend);
  RunPendingEvents();
  QApplication::setActiveWindow(backend.WindowOf(&dialog));
  const auto enterIn = [&](const KorDlgObject& widget) {
    auto* control = backend.ControlOf<QWidget>(widget);
    control->setFocus();
    QTest::keyClick(control, Qt::Key_Return);
  };
  enterIn(*dialog.compute);
  EXPECT_EQ(computed, 1);
  EXPECT_EQ(confirmed, 0);
  enterIn(*dialog.nameEditor);
  EXPECT_EQ(computed, 1);
  EXPECT_EQ(confirmed, 1);
  dialog.Detach();
  RunPendingEvents();
}

TEST_F(QtBackendTest, ArrowKeysMoveTheCheckInAGroupOfRadioButtons) {
  Open();
  In<QRadioButton>(dialog.own)->setFocus();
  QTest::keyClick(In<QRadioButton>(dialog.own), Qt::Key_Right);
  EXPECT_TRUE(dialog.root->IsChecked());
  EXPECT_EQ(QApplication::focusWidget(), In<QRadioButton>(dialog.root));
}

TEST_F(QtBackendTest, SpacePressesAndChecks) {
  int pressed = 0;
  dialog.compute->Subscribe(KorEvent::PushActivate, [&](auto...) { ++pressed; });
  Open();
  QTest::keyClick(In<QPushButton>(dialog.compute), Qt::Key_Space);
  QTest::keyClick(In<QCheckBox>(dialog.standard), Qt::Key_Space);
  EXPECT_EQ(pressed, 1);
  EXPECT_TRUE(dialog.standard->IsChecked());
}

TEST_F(QtBackendTest, ArrowKeysPickTheLineOfACombo) {
  Open();
  QTest::keyClick(In<QComboBox>(dialog.kindCombo), Qt::Key_Down);
  EXPECT_EQ(dialog.kindCombo->GetSelectedLine(), "Estimated");
}

TEST_F(QtBackendTest, ControlWClosesThroughTheCloseButton) {
  int pressed = 0;
  dialog.close->Subscribe(KorEvent::PushActivate, [&](auto...) { ++pressed; });
  Open();
  QTest::keyClick(Window(), Qt::Key_W, Qt::ControlModifier);
  EXPECT_EQ(pressed, 1);
}

TEST_F(QtBackendTest, ArrowKeysInATabBarPickThePage) {
  Open();
  QTest::keyClick(In<QTabWidget>(dialog.tabs)->tabBar(), Qt::Key_Right);
  EXPECT_EQ(dialog.tabs->GetSelectedPage(), 1);
}

}  // namespace
}  // namespace desktop::test
