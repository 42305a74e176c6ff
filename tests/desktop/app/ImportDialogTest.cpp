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
  const char* documents;
  const char* properties;
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
  dialog.DocumentsEdit()->setText(Table("documents.csv", GetParam().documents));
  dialog.PropertiesEdit()->setText(Table("properties.csv", GetParam().properties));
  dialog.ImportButton()->click();
  for (const QString& line : GetParam().lines)
    EXPECT_TRUE(dialog.ReportText().split('\n').contains(line)) << dialog.ReportText().toStdString();
}

constexpr const char* kOneWheel = "parent,child\ncar,wheel\n";
constexpr const char* kTwoWheels = "parent,child\ncar,wheel\ncar,wheel\ncar,seat\n";
constexpr const char* kOneMass = "part,mass [kg],ixx [kg m2],iyy [kg m2],izz [kg m2]\nwheel,20,1,1,1\n";
constexpr const char* kTwoMasses =
    "part,mass [kg],ixx [kg m2],iyy [kg m2],izz [kg m2]\nwheel,20,1,1,1\nseat,5,1,1,1\n";

constexpr const char* kOneRevision = "part,document,revision\nwheel,DOC-1,A\n";
constexpr const char* kTwoRevisions = "part,document,revision\nwheel,DOC-1,A\nwheel,DOC-1,B\n";

const Counting kCounting[] = {
    {"en",
     kOneWheel,
     kOneMass,
     "filter\nBare\n",
     kOneRevision,
     "property\nSupplier\n",
     {"Imported product car: 2 parts, 1 instance, 1 row of mass data, 1 filter, 1 document revision, "
      "1 additional property.",
      "1 warning:"}},
    {"en",
     kTwoWheels,
     kTwoMasses,
     "filter\nBare\nFull\n",
     kTwoRevisions,
     "property\nSupplier\nColour\n",
     {"Imported product car: 3 parts, 3 instances, 2 rows of mass data, 2 filters, 2 document revisions, "
      "2 additional properties.",
      "2 warnings:"}},
    {"de",
     kOneWheel,
     kOneMass,
     "filter\nBare\n",
     kOneRevision,
     "property\nSupplier\n",
     {"Produkt car eingelesen: 2 Teile, 1 Instanz, 1 Zeile mit Massen, 1 Filter, 1 Dokumentstand, "
      "1 weitere Eigenschaft.",
      "1 Warnung:"}},
    {"de",
     kTwoWheels,
     kTwoMasses,
     "filter\nBare\nFull\n",
     kTwoRevisions,
     "property\nSupplier\nColour\n",
     {"Produkt car eingelesen: 3 Teile, 3 Instanzen, 2 Zeilen mit Massen, 2 Filter, 2 Dokumentstände, "
      "2 weitere Eigenschaften.",
      "2 Warnungen:"}},
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

TEST_F(ImportDialogTest, WithoutFiltersDocumentsAndPropertiesNoneAreCounted) {
  ImportDialog dialog(*store);
  FillIn(dialog);
  dialog.ImportButton()->click();
  EXPECT_EQ(dialog.ReportText(), "Imported product car: 2 parts, 1 instance, 1 row of mass data.");
}

constexpr const char* kWheelsDocument =
    "part,document,revision,mass type,mass [kg]\nwheel,DOC-1,A,Weighed,20.5\nwheel,DOC-1,B,Weighed,19\n";
constexpr const char* kWheelsProperties =
    "property,type,part,value\nWeighed on,date,wheel,2020-02-29\nColour,,wheel,red\n";

TEST_F(ImportDialogTest, ATableOfDocumentsIsImportedWhenThereIsOne) {
  ImportDialog dialog(*store);
  FillIn(dialog);
  dialog.DocumentsEdit()->setText(Table("documents.csv", kWheelsDocument));
  dialog.ImportButton()->click();
  const auto details = store->LoadDetails("wheel");
  ASSERT_TRUE(details.Ok()) << details.Failure().message;
  EXPECT_EQ(details.Value().documents.activeId, "DOC-1");
  ASSERT_EQ(details.Value().documents.revisions.size(), 2u);
  EXPECT_EQ(details.Value().documents.revisions[0].mass, 20.5);
}

TEST_F(ImportDialogTest, ATableOfPropertiesIsImportedWhenThereIsOne) {
  ImportDialog dialog(*store);
  FillIn(dialog);
  dialog.PropertiesEdit()->setText(Table("properties.csv", kWheelsProperties));
  dialog.ImportButton()->click();
  const auto details = store->LoadDetails("wheel");
  ASSERT_TRUE(details.Ok()) << details.Failure().message;
  ASSERT_EQ(details.Value().properties.size(), 2u);
  EXPECT_EQ(details.Value().properties[0].value, "2020-02-29");
  EXPECT_TRUE(details.Value().properties[0].isDate);
}

TEST_F(ImportDialogTest, CheckLooksAtDocumentsAndPropertiesAndWritesNothing) {
  ImportDialog dialog(*store);
  FillIn(dialog);
  dialog.DocumentsEdit()->setText(Table("documents.csv", kWheelsDocument));
  dialog.PropertiesEdit()->setText(Table("properties.csv", kWheelsProperties));
  dialog.CheckButton()->click();
  EXPECT_TRUE(dialog.ReportText().contains("2 document revisions, 2 additional properties. Nothing was"))
      << dialog.ReportText().toStdString();
  EXPECT_EQ(ProductCount(), 0u);
}

/// A table that is refused, and what the report names: the file, the place and the value.
struct Refused {
  const char* name;
  QLineEdit* (ImportDialog::*edit)() const;
  const char* text;
  QStringList named;
};

void PrintTo(const Refused& refused, std::ostream* out) { *out << refused.name; }

class RefusedTableTest : public ImportDialogTest, public ::testing::WithParamInterface<Refused> {};

TEST_P(RefusedTableTest, IsReportedWithThePlaceAndTheValueAndNothingIsWritten) {
  ImportDialog dialog(*store);
  FillIn(dialog);
  (dialog.*GetParam().edit)()->setText(Table("wrong.csv", GetParam().text));
  dialog.ImportButton()->click();
  EXPECT_TRUE(dialog.ReportText().startsWith("Nothing was imported."));
  for (const QString& named : GetParam().named)
    EXPECT_TRUE(dialog.ReportText().contains(named)) << dialog.ReportText().toStdString();
  EXPECT_EQ(ProductCount(), 0u);
}

INSTANTIATE_TEST_SUITE_P(
    Tables, RefusedTableTest,
    ::testing::Values(Refused{"CheckInTime",
                              &ImportDialog::DocumentsEdit,
                              "part,document,revision,check in time\nwheel,DOC-1,A,yesterday\n",
                              {"wrong.csv", "line 2, column 4 (check in time)", "\"yesterday\""}},
                      Refused{"PartOfADocument",
                              &ImportDialog::DocumentsEdit,
                              "part,document,revision\nsail,DOC-1,A\n",
                              {"wrong.csv", "line 2, column 1 (part)", "\"sail\""}},
                      Refused{"DateThatDoesNotExist",
                              &ImportDialog::PropertiesEdit,
                              "property,type,part,value\nWeighed on,date,wheel,2021-02-29\n",
                              {"wrong.csv", "line 2, column 4 (value)", "\"2021-02-29\""}},
                      Refused{"PartOfAProperty",
                              &ImportDialog::PropertiesEdit,
                              "property,part,value\nColour,sail,red\n",
                              {"wrong.csv", "line 2, column 2 (part)", "\"sail\""}}),
    [](const auto& row) { return row.param.name; });

TEST_F(ImportDialogTest, DocumentsAndPropertiesOfPartsThatAreNotThereCanBeLeftOut) {
  ImportDialog dialog(*store);
  FillIn(dialog);
  dialog.DocumentsEdit()->setText(Table("documents.csv", "part,document,revision\nsail,DOC-1,A\n"));
  dialog.PropertiesEdit()->setText(Table("properties.csv", "property,part,value\nColour,sail,red\n"));
  dialog.LeaveOutBox()->setChecked(true);
  dialog.ImportButton()->click();
  EXPECT_TRUE(dialog.ReportText().contains("Left out (2):")) << dialog.ReportText().toStdString();
  EXPECT_EQ(ProductCount(), 1u);
}

TEST_F(ImportDialogTest, ATableThatIsNotThereIsNamed) {
  for (auto edit : {&ImportDialog::StructureEdit, &ImportDialog::MassEdit, &ImportDialog::FiltersEdit,
                    &ImportDialog::DocumentsEdit, &ImportDialog::PropertiesEdit}) {
    ImportDialog dialog(*store);
    FillIn(dialog);
    (dialog.*edit)()->setText(folder.filePath("nowhere.csv"));
    dialog.ImportButton()->click();
    EXPECT_TRUE(dialog.ReportText().contains("nowhere.csv")) << dialog.ReportText().toStdString();
  }
}

}  // namespace
}  // namespace desktop::test
