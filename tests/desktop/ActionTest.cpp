// What the user does reaches the verbs of the widgets, and nothing reaches a widget that is disabled.
#include <QAbstractSpinBox>
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

class ActionTest : public QtBackendTest {
 protected:
  /// Records each notification of the widget as its name.
  void Record(KorDlgObject* widget, KorEvent event) {
    widget->Subscribe(event, [this, widget](auto...) { log.push_back(widget->Name()); });
  }
  std::vector<std::string> log;
};

TEST_F(ActionTest, AGuardIsAskedAtAClickAfterTextsThatWerePending) {
  Record(dialog.compute, KorEvent::PushActivate);
  Record(dialog.nameEditor, KorEvent::EditorModify);
  dialog.compute->SetGuard([this] {
    log.push_back("asked");
    return false;
  });
  Open();
  QTest::keyClicks(In<QLineEdit>(dialog.nameEditor), "x");
  In<QPushButton>(dialog.compute)->click();
  EXPECT_EQ(log, (std::vector<std::string>{dialog.nameEditor->Name(), "asked"}));
}

TEST_F(ActionTest, AClickPressesAButton) {
  Record(dialog.compute, KorEvent::PushActivate);
  Open();
  QTest::mouseClick(In<QPushButton>(dialog.compute), Qt::LeftButton);
  EXPECT_EQ(log, std::vector<std::string>{"ComputeButton"});
}

TEST_F(ActionTest, AClickChecksARadioButtonAndUnchecksTheOtherFirst) {
  Record(dialog.own, KorEvent::RadioModify);
  Record(dialog.root, KorEvent::RadioModify);
  Open();
  QTest::mouseClick(In<QRadioButton>(dialog.root), Qt::LeftButton, {}, QPoint(8, 8));
  EXPECT_TRUE(dialog.root->IsChecked());
  EXPECT_FALSE(dialog.own->IsChecked());
  EXPECT_EQ(log, (std::vector<std::string>{"OwnButton", "RootButton"}));
}

TEST_F(ActionTest, AClickTogglesACheckButton) {
  Record(dialog.standard, KorEvent::CheckModify);
  Open();
  QTest::mouseClick(In<QCheckBox>(dialog.standard), Qt::LeftButton, {}, QPoint(8, 8));
  EXPECT_TRUE(dialog.standard->IsChecked());
  EXPECT_EQ(log.size(), 1u);
}

TEST_F(ActionTest, PickingALineOfAComboNotifiesAlsoForTheSameLine) {
  Record(dialog.kindCombo, KorEvent::ComboSelect);
  Open();
  Q_EMIT In<QComboBox>(dialog.kindCombo)->activated(1);
  EXPECT_EQ(dialog.kindCombo->GetSelectedLine(), "Estimated");
  EXPECT_EQ(In<QComboBox>(dialog.kindCombo)->currentIndex(), 1);
  Q_EMIT In<QComboBox>(dialog.kindCombo)->activated(1);
  EXPECT_EQ(log.size(), 2u);
}

TEST_F(ActionTest, AClickOnATabPicksThePage) {
  Record(dialog.tabs, KorEvent::TabSelect);
  Open();
  auto* bar = In<QTabWidget>(dialog.tabs)->tabBar();
  QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
  EXPECT_EQ(dialog.tabs->GetSelectedPage(), 1);
  EXPECT_EQ(log.size(), 1u);
}

TEST_F(ActionTest, TheArrowsOfASpinnerTurnIt) {
  Record(dialog.spinner, KorEvent::SpinnerUp);
  dialog.spinner->Subscribe(KorEvent::SpinnerDown, [this](auto...) { dialog.spinner->SetText("Copper"); });
  Open();
  auto* box = In<QAbstractSpinBox>(dialog.spinner);
  QTest::keyClick(box, Qt::Key_Up);
  EXPECT_EQ(log.size(), 1u);
  EXPECT_EQ(box->text(), "Steel");
  QTest::keyClick(box, Qt::Key_Down);
  EXPECT_EQ(box->text(), "Copper");
}

TEST_F(ActionTest, TheCloseButtonOfTheWindowAsksTheDialogAndClosesNothingItself) {
  Record(&dialog, KorEvent::WindowClose);
  Open();
  Window()->close();
  EXPECT_EQ(log.size(), 1u);
  EXPECT_TRUE(Window()->isVisible());
}

TEST_F(ActionTest, EscapeIsTheCloseButtonOfTheWindow) {
  Record(&dialog, KorEvent::WindowClose);
  Open();
  QTest::keyClick(Window(), Qt::Key_Escape);
  EXPECT_EQ(log.size(), 1u);
}

TEST_F(ActionTest, FocusThatComesAndGoesIsReported) {
  Record(dialog.nameEditor, KorEvent::FocusIn);
  Record(dialog.nameEditor, KorEvent::FocusOut);
  Open();
  In<QPushButton>(dialog.close)->setFocus();
  log.clear();
  In<QLineEdit>(dialog.nameEditor)->setFocus();
  EXPECT_EQ(log.size(), 1u);
  In<QPushButton>(dialog.close)->setFocus();
  EXPECT_EQ(log.size(), 2u);
}

TEST_F(ActionTest, AClickIntoAnEditorKeepsWhatItsHandlerHasSelected) {
  dialog.nameEditor->Subscribe(KorEvent::FocusIn, [this](auto...) {
    dialog.nameEditor->SetSelection(0, dialog.nameEditor->GetText().GetLengthInChar());
  });
  Open();
  auto* editor = In<QLineEdit>(dialog.nameEditor);
  QTest::mouseClick(editor, Qt::LeftButton);
  QTest::keyClick(editor, Qt::Key_7);
  EXPECT_EQ(editor->text(), "7") << "the next key replaces the whole text";
  QTest::mouseClick(editor, Qt::LeftButton, {}, {5, editor->height() / 2});
  QTest::keyClick(editor, Qt::Key_8);
  EXPECT_TRUE(editor->text() == "87" || editor->text() == "78") << "a second click puts the cursor";
}

TEST_F(ActionTest, AClickIntoAnEditorWithoutASelectionPutsTheCursor) {
  Open();
  auto* editor = In<QLineEdit>(dialog.nameEditor);
  QTest::mouseClick(editor, Qt::LeftButton, {}, {editor->width() - 8, editor->height() / 2});
  QTest::keyClick(editor, Qt::Key_7);
  EXPECT_EQ(editor->text(), "cover7");
}

TEST_F(ActionTest, ADialogThatGoesHearsOfNoFocusThatMovesMeanwhile) {
  Open();
  In<QLineEdit>(dialog.number)->setFocus();
  Record(dialog.nameEditor, KorEvent::FocusIn);
  Record(dialog.number, KorEvent::FocusOut);
  dialog.Detach();
  RunPendingEvents();
  EXPECT_TRUE(log.empty());
}

TEST_F(ActionTest, NoEditorHasTheFocusWhenADialogOpens) {
  Record(dialog.nameEditor, KorEvent::FocusIn);
  Open();
  EXPECT_TRUE(log.empty());
  QTest::keyClick(Window(), Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), static_cast<QWidget*>(In<QLineEdit>(dialog.nameEditor)));
}

TEST_F(ActionTest, ADisabledWidgetHearsNothing) {
  for (KorDlgObject* widget :
       std::initializer_list<KorDlgObject*>{dialog.compute, dialog.root, dialog.standard})
    widget->SetSensitivity(KorSensitivity::Disabled);
  Record(dialog.compute, KorEvent::PushActivate);
  Record(dialog.root, KorEvent::RadioModify);
  Record(dialog.standard, KorEvent::CheckModify);
  Open();
  QTest::mouseClick(In<QPushButton>(dialog.compute), Qt::LeftButton);
  QTest::mouseClick(In<QRadioButton>(dialog.root), Qt::LeftButton, {}, QPoint(8, 8));
  QTest::mouseClick(In<QCheckBox>(dialog.standard), Qt::LeftButton, {}, QPoint(8, 8));
  QTest::keyClick(Window(), Qt::Key_F5);
  EXPECT_TRUE(log.empty());
  EXPECT_TRUE(dialog.own->IsChecked());
}

TEST_F(ActionTest, AWidgetInADisabledFrameHearsNothing) {
  Record(dialog.compute, KorEvent::PushActivate);
  dialog.buttons->SetSensitivity(KorSensitivity::Disabled);
  Open();
  QTest::mouseClick(In<QPushButton>(dialog.compute), Qt::LeftButton);
  EXPECT_TRUE(log.empty());
}

TEST_F(ActionTest, AHandlerMayDetachTheDialogItIsCalledFrom) {
  dialog.close->Subscribe(KorEvent::PushActivate, [this](auto...) { dialog.Detach(); });
  Open();
  QTest::mouseClick(In<QPushButton>(dialog.close), Qt::LeftButton);
  EXPECT_EQ(backend.ViewOf(dialog), nullptr);
}

}  // namespace
}  // namespace desktop::test
