// A dialog is told to the backend whole: what Qt shows right after is what the widgets hold.
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableView>
#include <QTest>

#include "desktop/toolkit/LampLabel.h"
#include "desktop/toolkit/MarkOverlay.h"
#include "tests/desktop/support/DemoDialog.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

TEST_F(QtBackendTest, ShowsEachKindWithTheQtWidgetOfItsKind) {
  Open();
  EXPECT_NE(In<QDialog>(&dialog), nullptr);
  EXPECT_NE(In<QGroupBox>(dialog.header), nullptr);
  EXPECT_NE(In<QLabel>(dialog.nameLabel), nullptr);
  EXPECT_NE(In<QLineEdit>(dialog.nameEditor), nullptr);
  EXPECT_NE(In<QTabWidget>(dialog.tabs), nullptr);
  EXPECT_NE(In<QComboBox>(dialog.kindCombo), nullptr);
  EXPECT_NE(In<QRadioButton>(dialog.own), nullptr);
  EXPECT_NE(In<QCheckBox>(dialog.standard), nullptr);
  EXPECT_NE(In<QAbstractSpinBox>(dialog.spinner), nullptr);
  EXPECT_NE(In<QTableView>(dialog.list), nullptr);
  EXPECT_NE(In<QPushButton>(dialog.compute), nullptr);
}

TEST_F(QtBackendTest, ShowsTitlesWithAmpersandsLiterally) {
  Open();
  EXPECT_EQ(Window()->windowTitle(), "Demonstration");
  EXPECT_EQ(In<QGroupBox>(dialog.header)->title(), "Nuts && bolts");
  EXPECT_EQ(In<QTabWidget>(dialog.tabs)->tabText(1), "Lists");
  EXPECT_EQ(In<QPushButton>(dialog.compute)->text(), "Compute");
  EXPECT_EQ(In<QRadioButton>(dialog.root)->text(), "Root product");
}

TEST_F(QtBackendTest, ShowsTheValuesThatTheWidgetsHeldBeforeTheyWereAttached) {
  dialog.kindCombo->SetSelect(2);
  dialog.root->SetState(KorCheckState::Checked);
  dialog.standard->SetState(KorCheckState::Checked);
  dialog.tabs->SetSelectedPage(1);
  dialog.spinner->SetDownSensitivity(KorSensitivity::Disabled);
  Open();
  EXPECT_EQ(In<QLineEdit>(dialog.nameEditor)->text(), "cover");
  EXPECT_EQ(In<QComboBox>(dialog.kindCombo)->count(), 3);
  EXPECT_EQ(In<QComboBox>(dialog.kindCombo)->currentText(), "Weighed");
  EXPECT_FALSE(In<QRadioButton>(dialog.own)->isChecked());
  EXPECT_TRUE(In<QRadioButton>(dialog.root)->isChecked());
  EXPECT_TRUE(In<QCheckBox>(dialog.standard)->isChecked());
  EXPECT_EQ(In<QTabWidget>(dialog.tabs)->currentIndex(), 1);
  EXPECT_EQ(In<QLineEdit>(dialog.number)->text(), "0.5");
}

TEST_F(QtBackendTest, ShowsSensitivityAndVisibilityThatWereSetBefore) {
  dialog.compute->SetSensitivity(KorSensitivity::Disabled);
  dialog.modes->SetVisibility(KorVisibility::Hidden);
  dialog.lists->SetSensitivity(KorSensitivity::Disabled);
  Open();
  EXPECT_FALSE(In<QPushButton>(dialog.compute)->isEnabled());
  EXPECT_FALSE(In<QWidget>(dialog.modes)->isVisible());
  EXPECT_FALSE(In<QTabWidget>(dialog.tabs)->isTabEnabled(1));
}

TEST_F(QtBackendTest, ShowsAReadOnlyEditorAsTextThatCanBeSelectedAndNotTypedInto) {
  Open();
  EXPECT_TRUE(In<QLineEdit>(dialog.massEditor)->isReadOnly());
  EXPECT_TRUE(In<QLineEdit>(dialog.massEditor)->isEnabled());
  EXPECT_FALSE(In<QLineEdit>(dialog.nameEditor)->isReadOnly());
}

TEST_F(QtBackendTest, ShowsReadOnlyAndEditableEditorsOnDifferentGrounds) {
  Open();
  const auto ground = [](QWidget* editor) {
    return editor->grab().toImage().pixelColor(editor->width() - 6, 6);
  };
  EXPECT_NE(ground(In<QLineEdit>(dialog.massEditor)), ground(In<QLineEdit>(dialog.nameEditor)));
}

TEST_F(QtBackendTest, DrawsTheStatusLampsInTheirColours) {
  Open();
  auto* lamp = dynamic_cast<LampLabel*>(In<QLabel>(dialog.redLamp));
  ASSERT_NE(lamp, nullptr);
  EXPECT_EQ(lamp->text(), "Out of date");
  EXPECT_EQ(lamp->grab().toImage().pixelColor(6, lamp->height() / 2), lamp->Colour());
}

TEST_F(QtBackendTest, PutsWidgetsIntoTheGridOfTheirParent) {
  Open();
  auto* grid = qobject_cast<QGridLayout*>(In<QGroupBox>(dialog.header)->layout());
  ASSERT_NE(grid, nullptr);
  EXPECT_EQ(grid->itemAtPosition(0, 1)->widget(), In<QLineEdit>(dialog.nameEditor));
  EXPECT_EQ(grid->itemAtPosition(0, 3)->widget(), In<QLabel>(dialog.redLamp));
}

TEST_F(QtBackendTest, MakesALabelTheBuddyOfTheEditorThatItNames) {
  Open();
  EXPECT_EQ(In<QLabel>(dialog.nameLabel)->buddy(), In<QLineEdit>(dialog.nameEditor));
  EXPECT_EQ(In<QLineEdit>(dialog.nameEditor)->accessibleName(), "Name");
}

TEST_F(QtBackendTest, ShowsShortHelpsAsTooltipsWithTheShortcut) {
  Open();
  EXPECT_TRUE(In<QLineEdit>(dialog.nameEditor)->toolTip().contains("What the part is called."));
  EXPECT_TRUE(In<QPushButton>(dialog.compute)->toolTip().contains("Asks the server. (F5)"));
}

TEST_F(QtBackendTest, ShowsAHiddenDialogOnlyWhenItIsShown) {
  dialog.Attach(&backend);
  EXPECT_FALSE(Window()->isVisible());
  dialog.SetVisibility(KorVisibility::Shown);
  EXPECT_TRUE(Window()->isVisible());
}

TEST_F(QtBackendTest, ShowsAWidgetCreatedInAnAttachedDialog) {
  Open();
  auto* late = dialog.buttons->Add<KorDlgPushButton>("Late", KorDlgStyle::kNone, {.column = 2});
  late->SetTitle("Late");
  EXPECT_EQ(In<QPushButton>(late)->text(), "Late");
  EXPECT_FALSE(In<QPushButton>(late)->isHidden());
}

TEST_F(QtBackendTest, ForgetsADetachedDialogAndShowsItAgainWhole) {
  Open();
  QPointer<QWidget> window = Window();
  dialog.Detach();
  EXPECT_EQ(backend.ViewOf(dialog), nullptr);
  EXPECT_EQ(backend.ViewOf(*dialog.nameEditor), nullptr);
  RunPendingEvents();
  EXPECT_TRUE(window.isNull());
  Open();
  EXPECT_EQ(In<QLineEdit>(dialog.nameEditor)->text(), "cover");
}

TEST_F(QtBackendTest, ShowsAMarkingAsAFrameAndItsReasonInTheTooltip) {
  Open();
  dialog.nameEditor->SetMarking("A name may not be empty.");
  EXPECT_TRUE(MarkOverlay::IsShownOn(*In<QLineEdit>(dialog.nameEditor)));
  EXPECT_TRUE(In<QLineEdit>(dialog.nameEditor)->toolTip().contains("A name may not be empty."));
  dialog.nameEditor->SetMarking("");
  EXPECT_FALSE(MarkOverlay::IsShownOn(*In<QLineEdit>(dialog.nameEditor)));
  EXPECT_FALSE(In<QLineEdit>(dialog.nameEditor)->toolTip().contains("A name may not be empty."));
}

/// What a screen reader says of a tab.
std::string SpokenTab(QTabWidget& tabs, int tab) {
  return QAccessible::queryAccessibleInterface(tabs.tabBar())
      ->child(tab)
      ->text(QAccessible::Name)
      .toStdString();
}

TEST_F(QtBackendTest, ShowsAMarkedPageOnItsTabWhicheverPageIsInFront) {
  Open();
  auto& tabs = *In<QTabWidget>(dialog.tabs);
  const QString help = tabs.tabToolTip(1);
  const std::string title = dialog.lists->GetTitle().Utf8();
  dialog.lists->SetMarking("A row is missing.");
  ASSERT_EQ(tabs.currentIndex(), 0);
  EXPECT_FALSE(tabs.tabIcon(1).isNull());
  EXPECT_TRUE(tabs.tabIcon(0).isNull());
  EXPECT_TRUE(tabs.tabToolTip(1).contains("A row is missing."));
  EXPECT_EQ(SpokenTab(tabs, 1), title + ": A row is missing.");
  EXPECT_FALSE(MarkOverlay::IsShownOn(*tabs.widget(1))) << "the tab tells; a frame would cross the page";
  dialog.lists->SetMarking("");
  EXPECT_TRUE(tabs.tabIcon(1).isNull());
  EXPECT_EQ(tabs.tabToolTip(1), help);
  EXPECT_EQ(SpokenTab(tabs, 1), title);
}

TEST_F(QtBackendTest, ShowsTheDensityOfAMaterialThatIsBrowsedAsOneThatCanOnlyBeRead) {
  auto* density = dialog.inputs->Add<KorDlgEditor>("MatStatDensityEditor");
  density->SetText("7850 kg/m³");
  Open();
  auto* line = In<QLineEdit>(density);
  EXPECT_TRUE(line->isReadOnly());
  EXPECT_TRUE(line->isEnabled()) << "it can be selected and copied";
  line->setFocus();
  QTest::keyClicks(line, "1");
  EXPECT_EQ(line->text(), "7850 kg/m³");
  EXPECT_FALSE(In<QLineEdit>(dialog.nameEditor)->isReadOnly());
}

TEST(DialogStyles, GiveTheWindowTheButtonsOfTheFramework) {
  QtBackend backend;
  const auto buttonsOf = [&](unsigned style) {
    DemoDialog dialog(style);
    dialog.Attach(&backend);
    QStringList texts;
    for (auto* box : backend.WindowOf(&dialog)->findChildren<QDialogButtonBox*>())
      for (auto* button : box->buttons()) texts << button->text().remove('&');
    texts.sort();
    return texts;
  };
  EXPECT_EQ(buttonsOf(KorDlgStyle::kPanelDialog), QStringList());
  EXPECT_EQ(buttonsOf(KorDlgStyle::kOkCancelDialog), QStringList({"Cancel", "OK"}));
  EXPECT_EQ(buttonsOf(KorDlgStyle::kListDialog), QStringList({"Close"}));
}

}  // namespace
}  // namespace desktop::test
