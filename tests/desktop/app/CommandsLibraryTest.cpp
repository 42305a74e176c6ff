// The library of commands and the module behind it: loaded by the system loader, and gone without a trace.
#include <QAction>
#include <QFile>
#include <QPushButton>

#include "desktop/app/CommandsLibrary.h"
#include "desktop/app/SampleProduct.h"
#include "desktop/app/SelectionPane.h"
#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgDialog.h"
#include "framework/system/KorClassDictionary.h"
#include "framework/system/TqTrace.h"
#include "lumira/import/ImportProduct.h"
#include "lumira/store/OpenSqliteStore.h"
#include "tests/desktop/app/WindowHarness.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

/// The file of a library that is loaded into this process; empty when none of that name is.
QString FileOf(const char* library) {
  QFile maps("/proc/self/maps");
  EXPECT_TRUE(maps.open(QIODevice::ReadOnly));
  for (const QByteArray& line : maps.readAll().split('\n'))
    if (line.contains(library)) return QString::fromUtf8(line.mid(line.indexOf('/')));
  return {};
}

bool IsLoaded(const char* library) { return !FileOf(library).isEmpty(); }

class LibrariesElsewhere {
 public:
  explicit LibrariesElsewhere(const QString& folder) { qputenv("KORVO_LIBRARIES", folder.toUtf8()); }
  ~LibrariesElsewhere() { qunsetenv("KORVO_LIBRARIES"); }
  LibrariesElsewhere(const LibrariesElsewhere&) = delete;
  LibrariesElsewhere& operator=(const LibrariesElsewhere&) = delete;
};

TEST(CommandsLibrary, BringsTheModuleAndItsClassesAndTakesThemAway) {
  ASSERT_FALSE(IsLoaded("KorWBNymNavGUI"));
  ASSERT_FALSE(KorClassDictionary::Knows("KorWBNymNavFilterPanel"));
  {
    const CommandsLibrary library;
    ASSERT_NE(library.Commands(), nullptr) << library.WhyNot().toStdString();
    EXPECT_EQ(library.WhyNot(), "");
    EXPECT_TRUE(IsLoaded("KorWBNymNavGUI"));
    EXPECT_TRUE(IsLoaded("KorWBNymNavCommands"));
    EXPECT_TRUE(KorClassDictionary::Knows("KorWBNymNavFilterPanel"));
    EXPECT_TRUE(KorClassDictionary::Knows("KorWBNymNavReportPanel"));
  }
  EXPECT_FALSE(KorClassDictionary::Knows("KorWBNymNavFilterPanel"));
  EXPECT_FALSE(KorClassDictionary::Knows("KorWBNymNavReportPanel"));
  EXPECT_TRUE(TqTrace::GetComponents().empty());
  EXPECT_FALSE(IsLoaded("KorWBNymNavGUI"));
  EXPECT_FALSE(IsLoaded("KorWBNymNavCommands"));
}

TEST(CommandsLibrary, MakesTheReportPanelByItsClassNameThoughTheDesktopDoesNotOfferIt) {
  const CommandsLibrary library;
  const std::unique_ptr<KorDlgDialog> panel(
      static_cast<KorDlgDialog*>(KorClassDictionary::Create("KorWBNymNavReportPanel")));
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(panel->GetResourceFilename(0), "KorWBNymNavReportPanel");
  EXPECT_FALSE(MainWindow::CommandNames().contains("Report"));
}

TEST(CommandsLibrary, StartsWithoutAChoiceEachTime) {
  const CommandsLibrary library;
  EXPECT_EQ(library.Commands()->GetFilter("IEA15"), "0|No Filter");
  EXPECT_EQ(library.Commands()->GetDisplayFilter("IEA15"), "No Filter");
}

TEST(CommandsLibrary, MissingIsToldOfWithTheFolderThatWasLookedIn) {
  const LibrariesElsewhere nowhere("/no/such/folder");
  const CommandsLibrary library;
  EXPECT_EQ(library.Commands(), nullptr);
  EXPECT_TRUE(library.WhyNot().contains("/no/such/folder")) << library.WhyNot().toStdString();
}

TEST(CommandsLibrary, DamagedIsToldOfWithTheReason) {
  const QTemporaryDir folder;
  QFile file(folder.filePath("libKorWBNymNavCommands.so"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("no library at all");
  file.close();
  const LibrariesElsewhere there(folder.path());
  const CommandsLibrary library;
  EXPECT_EQ(library.Commands(), nullptr);
  EXPECT_TRUE(library.WhyNot().contains(file.fileName())) << library.WhyNot().toStdString();
}

TEST(CommandsLibrary, OfAnotherProgramIsToldOfAndNotUsed) {
  const QString some = FileOf("libm.so");
  ASSERT_FALSE(some.isEmpty());
  const QTemporaryDir folder;
  ASSERT_TRUE(QFile::copy(some, folder.filePath("libKorWBNymNavCommands.so")));
  const LibrariesElsewhere there(folder.path());
  const CommandsLibrary library;
  EXPECT_EQ(library.Commands(), nullptr);
  EXPECT_TRUE(library.WhyNot().contains("fctGetKorWBCommands")) << library.WhyNot().toStdString();
}

TEST_F(WindowTest, AllPanelsCanHaveBeenOpenWhenTheModuleGoes) {
  {
    MainWindow other(settings, backend);
    other.show();
    ASSERT_TRUE(other.OpenProduct(File()));
    other.ShowPartPanel();
    other.ShowFilterPanel();
    other.Warnings().Show({"a warning"});
    RunPendingEvents();
  }
  RunPendingEvents();
  // The window of this test goes on with it.
  EXPECT_TRUE(IsLoaded("KorWBNymNavGUI"));
  ASSERT_TRUE(window.OpenProduct(File()));
  window.ShowPartPanel();
  EXPECT_TRUE(window.PartPanel().IsOpen());
}

/// A window whose library of commands is missing.
class WithoutCommands : public ::testing::Test {
 protected:
  QTemporaryDir folder;
  Settings settings{folder.filePath("settings.ini")};
  HeadlessBoxes boxes;
  QtBackend backend{&boxes};
};

TEST_F(WithoutCommands, TheWindowSaysSoAndOffersNoPanel) {
  KorApplicationFrame::SetBackend(&backend);
  const LibrariesElsewhere nowhere("/no/such/folder");
  MainWindow window(settings, backend);
  const QString file = folder.filePath("iea15.lumira");
  ASSERT_TRUE(CreateSampleProduct(KORVO_SOURCE_DIR "/samples", file.toStdString()).Ok());
  window.show();
  EXPECT_TRUE(window.OpenProduct(file));
  window.TellStartProblems();
  KorApplicationFrame::SetBackend(nullptr);
  ASSERT_EQ(boxes.Messages().size(), 1u);
  EXPECT_EQ(boxes.Messages()[0].title, "Weight and balance is missing");
  EXPECT_NE(boxes.Messages()[0].text.Utf8().find("/no/such/folder"), std::string::npos);
  for (const char* command : {"PartPanel", "Compute", "Filter", "AddToFilter"})
    EXPECT_FALSE(window.Command(command)->isEnabled()) << command;
  EXPECT_FALSE(window.Selection().PanelButton()->isEnabled());
  EXPECT_TRUE(window.Command("OpenProduct")->isEnabled());
  EXPECT_EQ(window.Tree().rowCount(), 1);
  EXPECT_EQ(window.FilterText(), "") << "nobody knows which filter is in force";
}

TEST_F(WithoutCommands, WhatTheServerFoundIsSaidInABoxInPlaceOfTheList) {
  KorApplicationFrame::SetBackend(&backend);
  const LibrariesElsewhere nowhere("/no/such/folder");
  MainWindow window(settings, backend);
  const std::string file = folder.filePath("car.lumira").toStdString();
  {
    auto store = lumira::CreateSqliteStore(file);
    ASSERT_TRUE(store.Ok());
    lumira::ImportTables tables;
    tables.structure = {"structure.csv", "parent,child,instance\ncar,wheel,wheel.1\n"};
    tables.mass = {"mass.csv", "part,name\nwheel,Wheel\n"};
    ASSERT_TRUE(lumira::ImportProduct(*store.Value(), tables, {}).Ok());
  }
  EXPECT_TRUE(window.OpenProduct(QString::fromStdString(file)));
  lumira::ImportReport report;
  for (int line = 1; line <= 25; ++line) report.leftOut.push_back("line " + std::to_string(line));
  ::testing::internal::CaptureStderr();
  window.ShowImportReports({report});
  const std::string onStandardError = ::testing::internal::GetCapturedStderr();
  KorApplicationFrame::SetBackend(nullptr);
  ASSERT_EQ(boxes.Messages().size(), 2u);
  EXPECT_EQ(boxes.Messages()[0].title, "Warnings");
  EXPECT_EQ(boxes.Messages()[0].text, "Warning: Product \"car\" has no mass data at all.");
  const std::string& shown = boxes.Messages()[1].text.Utf8();
  EXPECT_TRUE(shown.ends_with("Left out: line 20\nand 5 more")) << shown;
  EXPECT_NE(onStandardError.find("Left out: line 25"), std::string::npos) << onStandardError;
}

}  // namespace
}  // namespace desktop::test
