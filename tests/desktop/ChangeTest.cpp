// Each change of an attached dialog is shown at once.
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

#include "tests/desktop/support/DemoDialog.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

TEST_F(QtBackendTest, FollowsTextsLinesAndChecks) {
  Open();
  dialog.massEditor->SetText("13 kg");
  dialog.kindCombo->SetLine("Calculated", 1);
  dialog.kindCombo->SetSelect(1);
  dialog.standard->SetState(KorCheckState::Checked);
  dialog.spinner->SetText("Aluminium");
  EXPECT_EQ(In<QLineEdit>(dialog.massEditor)->text(), "13 kg");
  EXPECT_EQ(In<QComboBox>(dialog.kindCombo)->itemText(2), "Estimated");
  EXPECT_EQ(In<QComboBox>(dialog.kindCombo)->currentText(), "Calculated");
  EXPECT_TRUE(In<QCheckBox>(dialog.standard)->isChecked());
  EXPECT_EQ(In<QAbstractSpinBox>(dialog.spinner)->text(), "Aluminium");
}

TEST_F(QtBackendTest, ShowsACombosNothingSelectedAfterItsLinesAreCleared) {
  Open();
  dialog.kindCombo->ClearLines();
  EXPECT_EQ(In<QComboBox>(dialog.kindCombo)->count(), 0);
  EXPECT_EQ(In<QComboBox>(dialog.kindCombo)->currentIndex(), -1);
}

TEST_F(QtBackendTest, ShowsRadioButtonsThatAreAllUnchecked) {
  Open();
  dialog.own->SetState(KorCheckState::Unchecked);
  EXPECT_FALSE(In<QRadioButton>(dialog.own)->isChecked());
  EXPECT_FALSE(In<QRadioButton>(dialog.root)->isChecked());
}

TEST_F(QtBackendTest, ShowsTheOtherRadioButtonUncheckedWhenCodeChecksOne) {
  Open();
  dialog.root->SetState(KorCheckState::Checked);
  EXPECT_FALSE(In<QRadioButton>(dialog.own)->isChecked());
  EXPECT_TRUE(In<QRadioButton>(dialog.root)->isChecked());
}

TEST_F(QtBackendTest, ADisabledFrameDisablesItsChildrenOnTheScreenOnly) {
  Open();
  dialog.modes->SetSensitivity(KorSensitivity::Disabled);
  EXPECT_FALSE(In<QRadioButton>(dialog.own)->isEnabled());
  EXPECT_TRUE(dialog.own->IsEnabled());
  dialog.own->SetSensitivity(KorSensitivity::Disabled);
  dialog.modes->SetSensitivity(KorSensitivity::Enabled);
  EXPECT_FALSE(In<QRadioButton>(dialog.own)->isEnabled());
  EXPECT_TRUE(In<QRadioButton>(dialog.root)->isEnabled());
}

TEST_F(QtBackendTest, AHiddenFrameLeavesNoGap) {
  Open();
  const int before = In<QWidget>(dialog.header)->parentWidget()->minimumSizeHint().height();
  dialog.buttons->SetVisibility(KorVisibility::Hidden);
  RunPendingEvents();
  const int buttonRow = In<QPushButton>(dialog.compute)->sizeHint().height();
  EXPECT_LE(In<QWidget>(dialog.header)->parentWidget()->minimumSizeHint().height(), before - buttonRow);
}

TEST_F(QtBackendTest, ADetachedWidgetLeavesTheGridUntilItGetsAPlaceAgain) {
  Open();
  auto* grid = In<QWidget>(dialog.buttons)->layout();
  dialog.close->ResetAttachment();
  EXPECT_EQ(grid->indexOf(In<QPushButton>(dialog.close)), -1);
  EXPECT_FALSE(In<QPushButton>(dialog.close)->isVisible());
  dialog.close->SetGrid({.row = 1});
  EXPECT_GE(grid->indexOf(In<QPushButton>(dialog.close)), 0);
  EXPECT_TRUE(In<QPushButton>(dialog.close)->isVisible());
}

TEST_F(QtBackendTest, FillsTheCellOnTheSidesThatAWidgetIsAttachedTo) {
  dialog.close->SetGrid({.column = 1, .attachment = KorDlgAttach::kRight});
  Open();
  auto* layout = In<QWidget>(dialog.buttons)->layout();
  const auto alignment = [&](KorDlgObject* widget) {
    return layout->itemAt(layout->indexOf(In<QWidget>(widget)))->alignment();
  };
  EXPECT_EQ(alignment(dialog.compute), Qt::Alignment());
  EXPECT_EQ(alignment(dialog.close), Qt::AlignRight | Qt::AlignVCenter);
}

TEST_F(QtBackendTest, KeepsThePageInFrontThatTheContainerNamesWhenItIsDisabled) {
  Open();
  dialog.inputs->SetSensitivity(KorSensitivity::Disabled);
  EXPECT_EQ(In<QTabWidget>(dialog.tabs)->currentIndex(), 0);
  EXPECT_FALSE(In<QComboBox>(dialog.kindCombo)->isEnabled());
  dialog.tabs->SetSelectedPage(1);
  EXPECT_EQ(In<QTabWidget>(dialog.tabs)->currentIndex(), 1);
  EXPECT_FALSE(In<QTabWidget>(dialog.tabs)->isTabEnabled(0));
}

TEST_F(QtBackendTest, HidesTheTabOfAHiddenPage) {
  Open();
  dialog.lists->SetVisibility(KorVisibility::Hidden);
  EXPECT_FALSE(In<QTabWidget>(dialog.tabs)->isTabVisible(1));
  dialog.lists->SetVisibility(KorVisibility::Shown);
  EXPECT_TRUE(In<QTabWidget>(dialog.tabs)->isTabVisible(1));
}

TEST_F(QtBackendTest, DisablesTheArrowOfASpinnerThatCannotTurnFurther) {
  Open();
  dialog.spinner->SetUpSensitivity(KorSensitivity::Disabled);
  dialog.spinner->Subscribe(KorEvent::SpinnerUp, [](auto...) { FAIL() << "the arrow is disabled"; });
  QTest::keyClick(In<QAbstractSpinBox>(dialog.spinner), Qt::Key_Up);
}

TEST_F(QtBackendTest, SelectsTheTextThatCodeSelectsAndShowsItsEnd) {
  Open();
  dialog.massEditor->SetText("RNA|nacelle|Ab\xc3\xb6ve_yaw|");
  dialog.massEditor->SetSelection(4, 22);
  EXPECT_EQ(In<QLineEdit>(dialog.massEditor)->selectedText(), QString::fromUtf8("nacelle|Ab\xc3\xb6ve_yaw|"));
}

TEST_F(QtBackendTest, SetsNoTextThatIsShownAlready) {
  Open();
  QSignalSpy changes(In<QLineEdit>(dialog.nameEditor), &QLineEdit::textChanged);
  backend.Changed(*dialog.nameEditor, KorDlgProperty::Text);
  EXPECT_EQ(changes.count(), 0);
}

TEST_F(QtBackendTest, AChangeFromCodeComesBackAsNoActionOfTheUser) {
  int notifications = 0;
  const auto count = [&](auto...) { ++notifications; };
  Open();
  dialog.kindCombo->Subscribe(KorEvent::ComboSelect, count);
  dialog.root->Subscribe(KorEvent::RadioModify, count);
  dialog.standard->Subscribe(KorEvent::CheckModify, count);
  dialog.nameEditor->Subscribe(KorEvent::EditorModify, count);
  dialog.tabs->Subscribe(KorEvent::TabSelect, count);
  dialog.list->Subscribe(KorEvent::ListSelect, count);
  dialog.kindCombo->SetSelect(2);
  dialog.root->SetState(KorCheckState::Checked);
  dialog.standard->SetState(KorCheckState::Checked);
  dialog.nameEditor->SetText("nose");
  dialog.tabs->SetSelectedPage(1);
  dialog.list->SetSelection({1});
  backend.Settle();
  RunPendingEvents();
  EXPECT_EQ(notifications, 0);
}

}  // namespace
}  // namespace desktop::test
