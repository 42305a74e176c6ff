// The module's list of warnings in its host.
#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include "desktop/app/ImportDialog.h"
#include "lumira/store/OpenSqliteStore.h"
#include "tests/desktop/app/WindowHarness.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

class WarningListTest : public WindowTest {
 protected:
  using Lines = std::vector<std::string>;

  Lines Shown() {
    const auto& list = window.Warnings().Dialog()->Find<KorDlgMultiList>("MultiList001");
    Lines lines;
    for (int row = 0; row < list.GetLineCount(); ++row) lines.emplace_back(list.GetColumnItem(0, row));
    return lines;
  }
  QString Table(const char* name, const char* text) const {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
    return file.fileName();
  }
  struct Import {
    const char* structure;
    const char* mass;
  };
  /// Works the import dialog, which holds the program while it is open: one import after the other, each of
  /// which may replace what there is.
  void ImportByTheDialog(const std::vector<Import>& imports) {
    QTimer::singleShot(0, &window, [&] {
      auto* dialog = dynamic_cast<ImportDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      dialog->ReplaceBox()->setChecked(true);
      for (const Import& import : imports) {
        dialog->StructureEdit()->setText(Table("structure.csv", import.structure));
        dialog->MassEdit()->setText(Table("mass.csv", import.mass));
        dialog->ImportButton()->click();
      }
      dialog->reject();
    });
    window.Command("ImportTables")->trigger();
  }
  void ImportByTheDialog(const char* structure, const char* mass) { ImportByTheDialog({{structure, mass}}); }
};

TEST_F(WarningListTest, ShowsWhatAnImportLeftOutAndWhatLooksWrongOneToALine) {
  lumira::ImportReport report;
  report.leftOut = {"mass.csv, line 1: a column", "mass.csv, line 7: a row"};
  report.warnings = {"mass.csv, line 3: heavy"};
  window.ShowImportReports({report});
  ASSERT_NE(window.Warnings().Dialog(), nullptr);
  EXPECT_EQ(Shown(), (Lines{"Left out: mass.csv, line 1: a column", "Left out: mass.csv, line 7: a row",
                            "Warning: mass.csv, line 3: heavy"}));
  EXPECT_TRUE(window.Warnings().Window()->isVisible());
  EXPECT_EQ(window.Warnings().Window()->windowTitle(), "Warnings");
}

TEST_F(WarningListTest, IsNotOpenedWithoutAnythingToShow) {
  window.ShowImportReports({{}});
  EXPECT_EQ(window.Warnings().Dialog(), nullptr);
}

TEST_F(WarningListTest, IsOpenedWhenTheImportDialogIsClosed) {
  ImportByTheDialog("parent,child,instance,colour\ncar,wheel,wheel.1,red\n", "part,mass [kg]\nwheel,20\n");
  ASSERT_NE(window.Warnings().Dialog(), nullptr);
  ASSERT_EQ(Shown().size(), 1u);
  EXPECT_TRUE(Shown()[0].starts_with("Left out: structure.csv, line 1, column 4 (colour)")) << Shown()[0];
}

TEST_F(WarningListTest, StaysClosedAfterAnImportWithoutAnythingToTell) {
  ImportByTheDialog("parent,child,instance\ncar,wheel,wheel.1\n", "part,mass [kg]\nwheel,20\n");
  EXPECT_EQ(window.Warnings().Dialog(), nullptr);
  EXPECT_EQ(window.Tree().rowCount(), 2);
}

TEST_F(WarningListTest, TellsOfEachImportThatOneDialogMade) {
  ImportByTheDialog({{"parent,child,instance,colour\ncar,wheel,wheel.1,red\n", "part,mass [kg]\nwheel,20\n"},
                     {"parent,child,instance\ncart,axle,axle.1\n", "part,mass [kg]\naxle,5\n"}});
  ASSERT_NE(window.Warnings().Dialog(), nullptr);
  ASSERT_EQ(Shown().size(), 1u);
  EXPECT_TRUE(Shown()[0].starts_with("Left out: structure.csv, line 1, column 4 (colour)")) << Shown()[0];
}

TEST_F(WarningListTest, OfAProductThatWasImportedAgainOnlyTheLastImportCounts) {
  ImportByTheDialog({{"parent,child,instance,colour\ncar,wheel,wheel.1,red\n", "part,mass [kg]\nwheel,20\n"},
                     {"parent,child,instance\ncar,wheel,wheel.1\n", "part,mass [kg]\nwheel,20\n"}});
  EXPECT_EQ(window.Warnings().Dialog(), nullptr);
}

TEST_F(WarningListTest, ShowsWhatIsToBeFoundInTheProductAfterAnImportToo) {
  ImportByTheDialog("parent,child,instance\ncar,wheel,wheel.1\n", "part,name\nwheel,Wheel\n");
  ASSERT_NE(window.Warnings().Dialog(), nullptr);
  EXPECT_EQ(Shown().back(), "Warning: Product \"car\" has no mass data at all.");
  ImportByTheDialog("parent,child,instance\ncar,wheel,wheel.1\n", "part,mass [kg]\nwheel,20\n");
  EXPECT_EQ(window.Warnings().Dialog(), nullptr) << "the import has mended it";
}

TEST_F(WarningListTest, TheTitleOfItsColumnFollowsTheLanguage) {
  window.Warnings().Show({"a warning"});
  ASSERT_TRUE(window.ChooseLanguage("de"));
  auto* table = window.Warnings().Window()->findChild<QTableView*>();
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->model()->headerData(0, Qt::Horizontal), "Warnung");
}

TEST_F(WarningListTest, ItsLinesFollowTheLanguageInTheirPlaces) {
  lumira::ImportReport report;
  report.leftOut = {"mass.csv, line 1: a column"};
  report.warnings = {"mass.csv, line 3: heavy"};
  window.ShowImportReports({report});
  const QWidget* before = window.Warnings().Window();
  ASSERT_TRUE(window.ChooseLanguage("de"));
  EXPECT_EQ(Shown(), (Lines{"Weggelassen: mass.csv, line 1: a column", "Warnung: mass.csv, line 3: heavy"}));
  EXPECT_EQ(window.Warnings().Window(), before);
  ASSERT_TRUE(window.ChooseLanguage("en"));
  EXPECT_EQ(Shown(), (Lines{"Left out: mass.csv, line 1: a column", "Warning: mass.csv, line 3: heavy"}));
}

TEST_F(WarningListTest, FindingsAfterAnImportFollowTheLanguageToo) {
  ImportByTheDialog("parent,child,instance,colour\ncar,wheel,wheel.1,red\n", "part,name\nwheel,Wheel\n");
  ASSERT_TRUE(window.ChooseLanguage("de"));
  ASSERT_GT(Shown().size(), 1u);
  EXPECT_TRUE(Shown().front().starts_with("Weggelassen: structure.csv, line 1")) << Shown().front();
  EXPECT_EQ(Shown().back(), "Warnung: Product \"car\" has no mass data at all.");
}

TEST_F(WarningListTest, ALongWarningWrapsSoThatItsEndIsInSight) {
  std::string text = "mass.csv, line 1, column 7 (";
  for (int i = 0; i < 40; ++i) text += "the year before last ";
  window.Warnings().Show({text + "): the column is not known"});
  RunPendingEvents();
  auto* table = window.Warnings().Window()->findChild<QTableView*>();
  ASSERT_NE(table, nullptr);
  EXPECT_GT(table->rowHeight(0), 4 * table->fontMetrics().height());
}

TEST_F(WarningListTest, ShowsWhatTheServerFoundWhenAProductIsOpened) {
  lumira::ImportTables tables;
  tables.structure = {"structure.csv", "parent,child,instance\ncar,wheel,wheel.1\n"};
  tables.mass = {"mass.csv", "part,name\nwheel,Wheel\n"};
  {
    auto store = lumira::CreateSqliteStore(folder.filePath("car.lumira").toStdString());
    ASSERT_TRUE(store.Ok());
    const auto imported = lumira::ImportProduct(*store.Value(), tables, {});
    ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  }
  ASSERT_TRUE(window.OpenProduct(folder.filePath("car.lumira")));
  ASSERT_NE(window.Warnings().Dialog(), nullptr);
  EXPECT_EQ(Shown(), Lines{"Warning: Product \"car\" has no mass data at all."});
}

TEST_F(WarningListTest, ASoundProductHasNoFindings) { EXPECT_EQ(window.Warnings().Dialog(), nullptr); }

TEST_F(WarningListTest, CloseHidesItAndItGoesFromTheEventLoop) {
  window.Warnings().Show({"a warning"});
  auto* buttons = window.Warnings().Window()->findChild<QDialogButtonBox*>();
  QTest::mouseClick(buttons->button(QDialogButtonBox::Close), Qt::LeftButton);
  ASSERT_NE(window.Warnings().Dialog(), nullptr);
  EXPECT_FALSE(window.Warnings().Dialog()->IsShown());
  RunPendingEvents();
  EXPECT_EQ(window.Warnings().Dialog(), nullptr);
}

TEST_F(WarningListTest, EscapeAndItsWindowHideItToo) {
  window.Warnings().Show({"a warning"});
  QTest::keyClick(window.Warnings().Window(), Qt::Key_Escape);
  RunPendingEvents();
  EXPECT_EQ(window.Warnings().Dialog(), nullptr);
  window.Warnings().Show({"a warning"});
  window.Warnings().Window()->close();
  RunPendingEvents();
  EXPECT_EQ(window.Warnings().Dialog(), nullptr);
}

TEST_F(WarningListTest, NewWarningsTakeThePlaceOfOldOnes) {
  window.Warnings().Show({"first", "second"});
  window.Warnings().Show({"third"});
  EXPECT_EQ(Shown(), Lines{"third"});
}

TEST_F(WarningListTest, LeavesTheMainWindowToBeWorked) {
  window.Warnings().Show({"a warning"});
  EXPECT_FALSE(static_cast<QDialog*>(window.Warnings().Window())->isModal());
}

TEST_F(WarningListTest, GoesWithTheProduct) {
  window.Warnings().Show({"a warning"});
  ASSERT_TRUE(window.CreateProduct(folder.filePath("new.lumira")));
  EXPECT_EQ(window.Warnings().Dialog(), nullptr);
}

TEST_F(WarningListTest, ALineIsReadByTheKeyboard) {
  window.Warnings().Show({"first", "second"});
  backend.Settle();
  auto* table = window.Warnings().Window()->findChild<QTableView*>();
  ASSERT_NE(table, nullptr);
  table->setFocus();
  QTest::keyClick(table, Qt::Key_Down);
  QTest::keyClick(table, Qt::Key_Down);
  EXPECT_EQ(window.Warnings().Dialog()->Find<KorDlgMultiList>("MultiList001").GetSelectedLines(),
            std::vector<int>{1});
}

}  // namespace
}  // namespace desktop::test
