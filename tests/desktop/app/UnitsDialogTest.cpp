#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QSpinBox>
#include <QWheelEvent>

#include "desktop/app/UnitsDialog.h"

namespace desktop::test {
namespace {

class UnitsDialogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    KorApplyUnitSystem("Mixed");
    KorCkeUnit::SetShownDigits(10);
  }
  void TearDown() override { SetUp(); }

  static void PickSystem(UnitsDialog& dialog, int index) {
    dialog.SystemCombo()->setCurrentIndex(index);
    Q_EMIT dialog.SystemCombo()->activated(index);
  }
  static void PickUnit(UnitsDialog& dialog, const char* magnitude, const char* symbol) {
    QComboBox* combo = dialog.UnitCombo(magnitude);
    ASSERT_GE(combo->findText(symbol), 0);
    combo->setCurrentText(symbol);
    Q_EMIT combo->activated(combo->currentIndex());
  }
  static void TurnWheelOver(QWidget& widget) {
    const QPointF middle = widget.rect().center();
    QWheelEvent down(middle, widget.mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &down);
  }
  static KorString Current(const char* magnitude) {
    return KorCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(magnitude)->CurrentUnit()->Name();
  }
};

TEST_F(UnitsDialogTest, OpensOnTheUnitsThatAreCurrent) {
  UnitsDialog dialog;
  EXPECT_EQ(dialog.SystemCombo()->currentIndex(), 3);
  EXPECT_EQ(dialog.UnitCombo("LENGTH")->currentText(), "mm");
  EXPECT_EQ(dialog.DigitsBox()->value(), 10);
}

TEST_F(UnitsDialogTest, OffersTheFourSystemsAndOnesOwnChoice) {
  UnitsDialog dialog;
  EXPECT_EQ(dialog.SystemCombo()->count(), 5);
}

TEST_F(UnitsDialogTest, ASystemSetsTheUnitOfEachMagnitude) {
  UnitsDialog dialog;
  PickSystem(dialog, 2);
  EXPECT_EQ(dialog.UnitCombo("LENGTH")->currentText(), "in");
  EXPECT_EQ(dialog.UnitCombo("MASS")->currentText(), "lb");
}

TEST_F(UnitsDialogTest, AUnitOutsideTheSystemMakesItOnesOwnChoice) {
  UnitsDialog dialog;
  PickUnit(dialog, "MASS", "t");
  EXPECT_EQ(dialog.SystemCombo()->currentIndex(), 4);
  PickUnit(dialog, "MASS", "kg");
  EXPECT_EQ(dialog.SystemCombo()->currentIndex(), 3);
}

TEST_F(UnitsDialogTest, NothingTakesEffectBeforeOK) {
  UnitsDialog dialog;
  PickUnit(dialog, "MASS", "lb");
  dialog.DigitsBox()->setValue(4);
  EXPECT_EQ(Current("MASS"), "KILOGRAM");
  dialog.reject();
  EXPECT_EQ(Current("MASS"), "KILOGRAM");
  EXPECT_EQ(KorCkeUnit::GetShownDigits(), 10);
}

TEST_F(UnitsDialogTest, OKMakesUnitsAndDigitsCurrent) {
  UnitsDialog dialog;
  PickUnit(dialog, "MASS", "lb");
  dialog.DigitsBox()->setValue(4);
  dialog.accept();
  EXPECT_EQ(Current("MASS"), "POUND");
  EXPECT_EQ(KorCkeUnit::GetShownDigits(), 4);
}

TEST_F(UnitsDialogTest, TheWheelScrollsPastAChoiceThatHasNotTheFocus) {
  UnitsDialog dialog;
  dialog.show();
  QApplication::setActiveWindow(&dialog);
  dialog.DigitsBox()->setFocus();
  TurnWheelOver(*dialog.UnitCombo("LENGTH"));
  EXPECT_EQ(dialog.UnitCombo("LENGTH")->currentText(), "mm");
  dialog.UnitCombo("LENGTH")->setFocus();
  TurnWheelOver(*dialog.UnitCombo("LENGTH"));
  EXPECT_EQ(dialog.UnitCombo("LENGTH")->currentText(), "cm");
  TurnWheelOver(*dialog.DigitsBox());
  EXPECT_EQ(dialog.DigitsBox()->value(), 10);
}

TEST_F(UnitsDialogTest, KnowsNoMagnitudeOfAnotherName) {
  UnitsDialog dialog;
  EXPECT_EQ(dialog.UnitCombo("COLOUR"), nullptr);
}

}  // namespace
}  // namespace desktop::test
