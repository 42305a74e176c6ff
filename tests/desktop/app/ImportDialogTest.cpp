#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>

#include "desktop/app/ImportDialog.h"
#include "lumira/store/OpenSqliteStore.h"
#include "tests/desktop/app/WindowHarness.h"

namespace desktop::test {
namespace {

class ImportDialogTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    auto made = lumira::CreateSqliteStore(folder.filePath("own.lumira").toStdString());
    ASSERT_TRUE(made.Ok());
    store = std::move(made).Value();
  }

  QString Table(const char* name, const char* text) const {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
    return file.fileName();
  }
  void FillIn(ImportDialog& dialog) const {
    dialog.StructureEdit()->setText(
        Table("structure.csv", "parent,child,instance,x [m]\ncar,wheel,wheel.1,2\n"));
    dialog.MassEdit()->setText(Table("mass.csv", "part,mass [kg]\nwheel,20\n"));
  }
  std::size_t ProductCount() const { return store->Products().Value().size(); }

  std::unique_ptr<lumira::Store> store;
};

TEST_F(ImportDialogTest, CheckReportsAndWritesNothing) {
  ImportDialog dialog(*store);
  FillIn(dialog);
  dialog.CheckButton()->click();
  EXPECT_TRUE(dialog.ReportText().contains("Product car can be imported: 2 parts, 1 instance, "))
      << dialog.ReportText().toStdString();
  EXPECT_EQ(ProductCount(), 0u);
  EXPECT_TRUE(dialog.Imported().empty());
}

TEST_F(ImportDialogTest, ImportWritesTheProductUnderItsName) {
  ImportDialog dialog(*store);
  FillIn(dialog);
  dialog.ProductEdit()->setText("Car");
  dialog.ImportButton()->click();
  EXPECT_TRUE(dialog.ReportText().contains("Imported product Car")) << dialog.ReportText().toStdString();
  EXPECT_EQ(dialog.Imported().size(), 1u);
  EXPECT_EQ(ProductCount(), 1u);
}

TEST_F(ImportDialogTest, ASecondImportOfTheSameNameNeedsTheLeaveToReplace) {
  ImportDialog dialog(*store);
  FillIn(dialog);
  dialog.ImportButton()->click();
  dialog.ImportButton()->click();
  EXPECT_TRUE(dialog.ReportText().contains("Nothing was imported.")) << dialog.ReportText().toStdString();
  dialog.ReplaceBox()->setChecked(true);
  dialog.ImportButton()->click();
  EXPECT_TRUE(dialog.ReportText().contains("Imported product car")) << dialog.ReportText().toStdString();
}

TEST_F(ImportDialogTest, AnErrorIsReportedWithFileLineAndColumn) {
  ImportDialog dialog(*store);
  FillIn(dialog);
  dialog.MassEdit()->setText(Table("wrong.csv", "part,mass [kg]\nwheel,heavy\n"));
  dialog.ImportButton()->click();
  EXPECT_TRUE(dialog.ReportText().contains("wrong.csv")) << dialog.ReportText().toStdString();
  EXPECT_TRUE(dialog.ReportText().contains("line 2, column 2 (mass [kg])"))
      << dialog.ReportText().toStdString();
  EXPECT_TRUE(dialog.ReportText().contains("heavy")) << dialog.ReportText().toStdString();
  EXPECT_EQ(ProductCount(), 0u);
}

TEST_F(ImportDialogTest, WithoutAMassTableOneIsAskedFor) {
  ImportDialog dialog(*store);
  FillIn(dialog);
  dialog.MassEdit()->setText(" ");
  for (QPushButton* button : {dialog.CheckButton(), dialog.ImportButton()}) {
    button->click();
    EXPECT_EQ(dialog.ReportText(), "Choose a mass table first.");
  }
  EXPECT_EQ(ProductCount(), 0u);
}

/// Tables of the importer and the lines of the report that count.
struct Counting {
  const char* language;
  const char* structure;
  const char* mass;
  const char* filters;
  QStringList lines;
};

void PrintTo(const Counting& counting, std::ostream* out) { *out << counting.language; }

class CountingTest : public ImportDialogTest, public ::testing::WithParamInterface<Counting> {};

TEST_P(CountingTest, WhatIsThereOnceIsNamedInTheSingularAndAllElseInThePlural) {
  ASSERT_TRUE(window.ChooseLanguage(GetParam().language));
  ImportDialog dialog(*store);
  dialog.StructureEdit()->setText(Table("structure.csv", GetParam().structure));
  dialog.MassEdit()->setText(Table("mass.csv", GetParam().mass));
  dialog.FiltersEdit()->setText(Table("filters.csv", GetParam().filters));
  dialog.ImportButton()->click();
  for (const QString& line : GetParam().lines)
    EXPECT_TRUE(dialog.ReportText().split('\n').contains(line)) << dialog.ReportText().toStdString();
}

constexpr const char* kOneWheel = "parent,child\ncar,wheel\n";
constexpr const char* kTwoWheels = "parent,child\ncar,wheel\ncar,wheel\ncar,seat\n";
constexpr const char* kOneMass = "part,mass [kg],ixx [kg m2],iyy [kg m2],izz [kg m2]\nwheel,20,1,1,1\n";
constexpr const char* kTwoMasses =
    "part,mass [kg],ixx [kg m2],iyy [kg m2],izz [kg m2]\nwheel,20,1,1,1\nseat,5,1,1,1\n";

const Counting kCounting[] = {
    {"en",
     kOneWheel,
     kOneMass,
     "filter\nBare\n",
     {"Imported product car: 2 parts, 1 instance, 1 row of mass data, 1 filter.", "1 warning:"}},
    {"en",
     kTwoWheels,
     kTwoMasses,
     "filter\nBare\nFull\n",
     {"Imported product car: 3 parts, 3 instances, 2 rows of mass data, 2 filters.", "2 warnings:"}},
    {"de",
     kOneWheel,
     kOneMass,
     "filter\nBare\n",
     {"Produkt car eingelesen: 2 Teile, 1 Instanz, 1 Zeile mit Massen, 1 Filter.", "1 Warnung:"}},
    {"de",
     kTwoWheels,
     kTwoMasses,
     "filter\nBare\nFull\n",
     {"Produkt car eingelesen: 3 Teile, 3 Instanzen, 2 Zeilen mit Massen, 2 Filter.", "2 Warnungen:"}},
};

INSTANTIATE_TEST_SUITE_P(Languages, CountingTest, ::testing::ValuesIn(kCounting));

TEST_F(ImportDialogTest, ATableOfFiltersIsImportedWhenThereIsOne) {
  ImportDialog dialog(*store);
  FillIn(dialog);
  dialog.FiltersEdit()->setText(
      Table("filters.csv", "filter,condition,name,values,sense\nBare,instances,,wheel.1,leave out\n"));
  dialog.ImportButton()->click();
  EXPECT_TRUE(dialog.ReportText().contains("1 row of mass data, 1 filter."))
      << dialog.ReportText().toStdString();
  const auto filters = store->LoadFilters("car");
  ASSERT_TRUE(filters.Ok()) << filters.Failure().message;
  ASSERT_EQ(filters.Value().size(), 1u);
  EXPECT_EQ(filters.Value()[0].name, "Bare");
}

TEST_F(ImportDialogTest, AFilterThatCannotBeReadIsReportedAndNothingWritten) {
  ImportDialog dialog(*store);
  FillIn(dialog);
  dialog.FiltersEdit()->setText(
      Table("filters.csv", "filter,condition,name,values,sense\nBare,instances,,sail.1,leave out\n"));
  dialog.ImportButton()->click();
  EXPECT_TRUE(dialog.ReportText().contains("filters.csv")) << dialog.ReportText().toStdString();
  EXPECT_TRUE(dialog.ReportText().contains("sail.1")) << dialog.ReportText().toStdString();
  EXPECT_EQ(ProductCount(), 0u);
}

TEST_F(ImportDialogTest, ATableThatIsNotThereIsNamed) {
  ImportDialog dialog(*store);
  dialog.MassEdit()->setText(folder.filePath("nowhere.csv"));
  dialog.ImportButton()->click();
  EXPECT_TRUE(dialog.ReportText().contains("nowhere.csv")) << dialog.ReportText().toStdString();
}

}  // namespace
}  // namespace desktop::test
