#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTableWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "desktop/app/PictureCheck.h"
#include "desktop/toolkit/Theme.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

class PictureCheckTest : public ::testing::Test {
 protected:
  PictureCheckTest() {
    combo->addItem("No Filter");
    tabs->addTab("Results");
    table->setHorizontalHeaderLabels({"Part"});
    table->setItem(0, 0, new QTableWidgetItem("bedplate"));
    table->verticalHeader()->hide();
    tree->setHeaderLabels({"Name"});
    auto* line = new QTreeWidgetItem(tree, {"nacelle"});
    new QTreeWidgetItem(line, {"generator"});
    line->setExpanded(true);
    auto* layout = new QVBoxLayout(&window);
    for (QWidget* widget :
         std::initializer_list<QWidget*>{label, button, check, radio, edit, combo, tabs, table, tree, hidden})
      layout->addWidget(widget);
    hidden->hide();
    window.show();
    RunPendingEvents();
  }
  ~PictureCheckTest() override { Theme::Apply(ThemeChoice::System); }
  QStringList Missing() {
    RunPendingEvents();
    return TextsNotDrawn(window, window.grab().toImage());
  }
  /// Draws a widget's texts in the colour of their ground, whatever that is drawn with.
  static void Hide(QWidget* widget, QPalette::ColorRole text, QPalette::ColorRole ground) {
    QPalette palette = widget->palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive})
      palette.setColor(group, text, palette.color(group, ground));
    widget->setPalette(palette);
  }
  /// The same where the ground is a gradient.
  static void HideOnGradient(QWidget* widget, QPalette::ColorRole text) {
    QPalette palette = widget->palette();
    palette.setColor(text, Qt::transparent);
    widget->setPalette(palette);
  }
  QWidget window;
  QLabel* label = new QLabel("Mass");
  QPushButton* button = new QPushButton("Compute");
  QCheckBox* check = new QCheckBox("Standard part");
  QRadioButton* radio = new QRadioButton("Current part");
  QLineEdit* edit = new QLineEdit("12.5 kg");
  QComboBox* combo = new QComboBox;
  QTabBar* tabs = new QTabBar;
  QTableWidget* table = new QTableWidget(1, 1);
  QTreeWidget* tree = new QTreeWidget;
  QLabel* hidden = new QLabel("Nobody sees this");
};

TEST_F(PictureCheckTest, APictureOfTheWindowShowsItsTexts) {
  for (const ThemeChoice theme : {ThemeChoice::Light, ThemeChoice::Dark}) {
    Theme::Apply(theme);
    EXPECT_EQ(Missing(), QStringList());
  }
}

TEST_F(PictureCheckTest, ABlankPictureShowsNoneOfThem) {
  QImage blank(window.size(), QImage::Format_RGB32);
  blank.fill(Qt::white);
  QStringList missing = TextsNotDrawn(window, blank);
  missing.sort();
  EXPECT_EQ(missing, (QStringList{"12.5 kg", "Compute", "Current part", "Mass", "Name", "No Filter", "Part",
                                  "Results", "Standard part", "bedplate", "generator", "nacelle"}));
}

TEST_F(PictureCheckTest, ALabelInTheColourOfItsGroundIsNamed) {
  label->setStyleSheet("color: #ffffff; background: #ffffff");
  EXPECT_EQ(Missing(), QStringList{"Mass"});
}

TEST_F(PictureCheckTest, AnEditorInTheColourOfItsGroundIsNamed) {
  Hide(edit, QPalette::Text, QPalette::Base);
  EXPECT_EQ(Missing(), QStringList{"12.5 kg"});
}

TEST_F(PictureCheckTest, APushButtonWhoseTextIsMissingIsNamed) {
  HideOnGradient(button, QPalette::ButtonText);
  EXPECT_EQ(Missing(), QStringList{"Compute"});
}

TEST_F(PictureCheckTest, ACheckAndARadioButtonWhoseTextsAreMissingAreNamed) {
  HideOnGradient(check, QPalette::WindowText);
  HideOnGradient(radio, QPalette::WindowText);
  EXPECT_EQ(Missing(), (QStringList{"Standard part", "Current part"}));
}

TEST_F(PictureCheckTest, AComboWhoseTextIsMissingIsNamed) {
  HideOnGradient(combo, QPalette::ButtonText);
  EXPECT_EQ(Missing(), QStringList{"No Filter"});
}

TEST_F(PictureCheckTest, ATabWhoseTitleIsMissingIsNamed) {
  HideOnGradient(tabs, QPalette::WindowText);
  EXPECT_EQ(Missing(), QStringList{"Results"});
}

TEST_F(PictureCheckTest, ACellOfAListInTheColourOfItsGroundIsNamed) {
  Hide(table, QPalette::Text, QPalette::Base);
  EXPECT_EQ(Missing(), QStringList{"bedplate"});
}

TEST_F(PictureCheckTest, LinesOfATreeInTheColourOfTheirGroundAreNamedAtEachLevel) {
  Hide(tree, QPalette::Text, QPalette::Base);
  EXPECT_EQ(Missing(), (QStringList{"nacelle", "generator"}));
}

TEST_F(PictureCheckTest, ATitleOfAColumnThatIsMissingIsNamed) {
  HideOnGradient(table->horizontalHeader(), QPalette::ButtonText);
  EXPECT_EQ(Missing(), QStringList{"Part"});
}

}  // namespace
}  // namespace desktop::test
