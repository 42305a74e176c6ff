#include <sqlite3.h>

#include <QAction>
#include <QApplication>
#include <QByteArray>
#include <QFile>
#include <QIODevice>
#include <QLineEdit>
#include <QMenuBar>
#include <QModelIndex>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include "desktop/app/SearchBox.h"
#include "desktop/app/SelectionPane.h"
#include "framework/knowledge/KorUnitSystems.h"
#include "tests/desktop/app/ScriptedTransport.h"
#include "tests/desktop/app/WindowHarness.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

TEST_F(WindowTest, ShowsServerUnitSystemAndProduct) {
  EXPECT_EQ(window.ServerText(), "Server: embedded, iea15.lumira");
  EXPECT_EQ(window.UnitSystemText(), "Units: Mixed (mm, kg)");
  EXPECT_TRUE(window.windowTitle().startsWith("IEA15"));
}

TEST_F(WindowTest, SelectingAnOccurrenceExpandsTheTreeDownToIt) {
  Select({"nacelle.1", "Above_yaw.1", "generator.1"});
  const QModelIndex generator = window.TreeView().currentIndex();
  EXPECT_EQ(generator.data().toString(), "Generator");
  EXPECT_TRUE(window.TreeView().isExpanded(generator.parent()));
  EXPECT_TRUE(window.TreeView().isExpanded(generator.parent().parent()));
}

TEST_F(WindowTest, SelectsNothingUnderAPathThatDoesNotExist) {
  EXPECT_FALSE(window.Select("IEA15", {"nacelle.1", "sail.1"}));
}

TEST_F(WindowTest, ThePaneShowsWhatIsSelected) {
  Select({"nacelle.1", "yaw.1"});
  EXPECT_EQ(window.Selection().PartText("Selection.Part"), "yaw");
  EXPECT_EQ(window.Selection().PartText("Selection.Path"),
            QString::fromUtf8("Rotor-nacelle assembly \u203a Nacelle \u203a Yaw system"));
  EXPECT_EQ(window.Selection().PartText("Selection.Status"), "not computed");
  EXPECT_EQ(window.Selection().ComputedText("Selection.Mass"), QString::fromUtf8("\u2013"));
}

TEST_F(WindowTest, AProductThatIsNotThereGivesAMessageAndLeavesTheOpenOneOpen) {
  EXPECT_FALSE(window.OpenProduct(folder.filePath("none.lumira")));
  EXPECT_NE(OnlyMessage().find("none.lumira"), std::string::npos);
  EXPECT_EQ(window.ServerText(), "Server: embedded, iea15.lumira");
  EXPECT_EQ(window.Tree().rowCount(), 1);
}

TEST_F(WindowTest, ADamagedProductGivesAMessageAndLeavesTheOpenOneOpen) {
  QFile file(folder.filePath("damaged.lumira"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(QByteArray("SQLite format 3\0", 16) + QByteArray(5000, '\xff'));
  file.close();
  EXPECT_FALSE(window.OpenProduct(file.fileName()));
  EXPECT_NE(OnlyMessage().find("damaged.lumira"), std::string::npos);
  EXPECT_EQ(window.ServerText(), "Server: embedded, iea15.lumira");
}

TEST_F(WindowTest, AProductWithALostTableGivesAMessageAndLeavesTheOpenOneOpen) {
  const QString lost = folder.filePath("lost.lumira");
  ASSERT_TRUE(QFile::copy(File(), lost));
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(lost.toStdString().c_str(), &database), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(database, "PRAGMA foreign_keys = OFF; DROP TABLE parts", nullptr, nullptr, nullptr),
            SQLITE_OK);
  sqlite3_close(database);
  EXPECT_FALSE(window.OpenProduct(lost));
  EXPECT_NE(OnlyMessage().find("lost.lumira"), std::string::npos);
  EXPECT_EQ(window.ServerText(), "Server: embedded, iea15.lumira");
  EXPECT_EQ(settings.RecentProducts(), QStringList{File()});
}

TEST_F(WindowTest, OpensTheProductThatTheUserChooses) {
  ASSERT_TRUE(QFile::copy(File(), folder.filePath("copy.lumira")));
  boxes.files = {KorUnicodeString(folder.filePath("copy.lumira").toStdString())};
  window.Command("OpenProduct")->trigger();
  EXPECT_EQ(window.ServerText(), "Server: embedded, copy.lumira");
}

TEST_F(WindowTest, ANewProductFileIsEmptyAndOpen) {
  ASSERT_TRUE(window.CreateProduct(folder.filePath("new.lumira")));
  EXPECT_EQ(window.ServerText(), "Server: embedded, new.lumira");
  EXPECT_EQ(window.Tree().rowCount(), 0);
  EXPECT_FALSE(window.Command("PartPanel")->isEnabled());
}

TEST_F(WindowTest, ANewProductFileDoesNotReplaceAnOldOne) {
  EXPECT_FALSE(window.CreateProduct(File()));
  EXPECT_NE(OnlyMessage().find("iea15.lumira"), std::string::npos);
  EXPECT_EQ(window.Tree().rowCount(), 1);
}

TEST_F(WindowTest, ALanguageChangesTheTextsOfTheWindow) {
  ASSERT_TRUE(window.ChooseLanguage("de"));
  EXPECT_EQ(window.Command("Units")->text(), QString::fromUtf8("Einheiten\u2026"));
  EXPECT_EQ(window.Tree().headerData(ProductTreeModel::Mass, Qt::Horizontal, Qt::DisplayRole).toString(),
            "Masse");
}

TEST_F(WindowTest, ALanguageThatThereIsNotLeavesTheOldOne) {
  EXPECT_FALSE(window.ChooseLanguage("xx"));
  EXPECT_EQ(window.Command("Units")->text(), QString::fromUtf8("Units\u2026"));
}

TEST_F(WindowTest, UnitsChangeWhatTreeAndPaneShow) {
  KorApplyUnitSystem("Imperial");
  window.UnitsChanged();
  EXPECT_EQ(window.UnitSystemText(), "Units: Imperial");
  Select({"nacelle.1", "Above_yaw.1", "platform.1"});
  // 48672 kg / 0.45359237 = 107303.39225...
  EXPECT_EQ(window.TreeView().currentIndex().siblingAtColumn(ProductTreeModel::Mass).data().toString(),
            "107303.3923 lb");
}

TEST_F(WindowTest, AThemeChangesThePalette) {
  window.ChooseTheme(ThemeChoice::Dark);
  EXPECT_TRUE(Theme::IsDark());
  window.ChooseTheme(ThemeChoice::Light);
  EXPECT_FALSE(Theme::IsDark());
}

TEST_F(WindowTest, ControlFLeadsToTheSearch) {
  QApplication::setActiveWindow(&window);
  QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(QApplication::focusWidget(), static_cast<QWidget*>(window.Search().Edit()));
}

TEST_F(WindowTest, EachCommandHasAnActionWithTextAndHelp) {
  ASSERT_FALSE(MainWindow::CommandNames().isEmpty());
  for (const QString& name : MainWindow::CommandNames()) {
    const QAction* action = window.Command(name.toStdString());
    ASSERT_NE(action, nullptr) << name.toStdString();
    EXPECT_FALSE(action->text().startsWith("Command.")) << name.toStdString();
    EXPECT_FALSE(action->statusTip().startsWith("Command.")) << name.toStdString();
  }
}

TEST_F(WindowTest, ThePaneShowsTheValuesOfTheActiveMassTypeBesideTheComputedOnes) {
  Select({"nacelle.1", "Above_yaw.1", "bedplate.1"});
  EXPECT_EQ(window.Selection().ActiveText("Selection.Mass"), "42274.27441 kg");
  EXPECT_EQ(window.Selection().ActiveText("Selection.Ixz"),
            QString::fromUtf8("-176991.4853 kg\u00b7m\u00b2"));
  EXPECT_EQ(window.Selection().ComputedText("Selection.Mass"), QString::fromUtf8("\u2013"));
}

TEST_F(WindowTest, ThePaneShowsOneColumnWhenTheComputedMassTypeIsActive) {
  Select({"nacelle.1", "Above_yaw.1"});
  EXPECT_EQ(window.Selection().PartText("Selection.Active"), "Computed");
  EXPECT_EQ(window.Selection().ActiveText("Selection.Mass"), "");
}

TEST_F(WindowTest, APartThatCannotBeReadGivesOneMessageAndLeavesThePane) {
  Select({"nacelle.1", "Above_yaw.1", "bedplate.1"});
  {
    ScriptedTransport server;
    server.answer = [](auto&...) { return "nonsense"; };
    window.Select("IEA15", {"nacelle.1", "Above_yaw.1", "nose.1"});
  }
  OnlyMessage();
  EXPECT_EQ(window.Selection().PartText("Selection.Part"), "bedplate");
}

TEST_F(WindowTest, F5ComputesWhatIsSelectedAndOpensThePanelForIt) {
  Select({"nacelle.1", "Above_yaw.1"});
  QApplication::setActiveWindow(&window);
  QTest::keyClick(&window, Qt::Key_F5);
  RunPendingEvents();
  EXPECT_TRUE(window.PartPanel().IsOpen());
  EXPECT_EQ(window.Selection().ComputedText("Selection.Mass"), "644856.5481 kg");
}

TEST_F(WindowTest, KeepsTheWidthsOfTheTreesColumnsForTheNextStart) {
  const int before = window.TreeView().columnWidth(ProductTreeModel::Mass);
  window.TreeView().setColumnWidth(ProductTreeModel::Mass, before + 37);
  window.close();
  MainWindow next(settings, backend);
  EXPECT_EQ(next.TreeView().columnWidth(ProductTreeModel::Mass), before + 37);
}

}  // namespace
}  // namespace desktop::test
