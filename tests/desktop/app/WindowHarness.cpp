#include "tests/desktop/app/WindowHarness.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QTreeView>

#include "desktop/app/QtTranslation.h"
#include "desktop/app/SampleProduct.h"
#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

/// The window is made before the first line of a test runs.
const struct UseCatalogues {
  UseCatalogues() { KorMsgCatalog::SetFolder(KORVO_SOURCE_DIR "/catalogues"); }
} g_useCatalogues;

}  // namespace

WindowTest::WindowTest()
    : settings(folder.filePath("settings.ini")), backend(&boxes), window(settings, backend) {
  KorApplicationFrame::SetBackend(&backend);
}

WindowTest::~WindowTest() { KorApplicationFrame::SetBackend(nullptr); }

void WindowTest::SetUp() {
  ASSERT_TRUE(KorMsgCatalog::Has("KorvoDesktop", "Title")) << KorMsgCatalog::GetFolder();
  settings.ApplyUnits();
  const auto made = CreateSampleProduct(KORVO_SOURCE_DIR "/samples", File().toStdString());
  ASSERT_TRUE(made.Ok()) << made.Failure().message;
  window.show();
  ASSERT_TRUE(window.OpenProduct(File()));
}

void WindowTest::TearDown() {
  window.PartPanel().Close();
  window.FilterPanel().Close();
  window.Warnings().Close();
  RunPendingEvents();
  KorMsgCatalog::SetLanguage("en");
  TranslateQt("en");
  settings.ApplyUnits();
}

void WindowTest::Select(const std::vector<std::string>& instancePath) {
  ASSERT_TRUE(window.Select("IEA15", instancePath));
}

void WindowTest::SelectAll(const std::vector<std::vector<std::string>>& instancePaths) {
  QItemSelection all;
  for (const std::vector<std::string>& path : instancePaths) {
    Select(path);
    all.select(window.TreeView().currentIndex(), window.TreeView().currentIndex());
  }
  window.TreeView().selectionModel()->select(all,
                                             QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

KorDlgDialog& WindowTest::OpenFilterPanel() {
  window.ShowFilterPanel();
  EXPECT_TRUE(window.FilterPanel().IsOpen());
  RunPendingEvents();
  QApplication::setActiveWindow(window.FilterPanel().Window());
  return *window.FilterPanel().Panel();
}

void WindowTest::ChooseFilter(const std::string& name) {
  KorDlgDialog& panel = OpenFilterPanel();
  auto& radio = InFilterPanel<KorDlgRadioButton>("CfgFilterBtn");
  if (!radio.IsChecked()) radio.Check();
  EXPECT_TRUE(InFilterPanel<KorDlgCombo>("Frame002.ConfigHandlerIDCombo").Pick(name)) << name;
  EXPECT_TRUE(panel.PressOK());
  RunPendingEvents();
}

std::vector<std::string> WindowTest::FilterRows() {
  const auto& list = InFilterPanel<KorDlgMultiList>("Frame001.FilterMultiList");
  std::vector<std::string> rows;
  for (int row = 0; row < list.GetLineCount(); ++row) {
    std::string cells;
    for (int column = 0; column < list.GetColumnCount(); ++column)
      cells += (column ? ", " : "") + std::string(list.GetColumnItem(column, row));
    rows.push_back(cells);
  }
  return rows;
}

QStringList WindowTest::WorkTheImportDialog(
    std::initializer_list<QPushButton* (ImportDialog::*)() const> buttons) {
  QFile table(folder.filePath("mass.csv"));
  EXPECT_TRUE(table.open(QIODevice::WriteOnly));
  table.write("part,parent,mass [kg]\ncart,,\naxle,cart,20\n");
  table.close();
  QStringList reports;
  QTimer::singleShot(0, &window, [&] {
    auto* dialog = dynamic_cast<ImportDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    dialog->MassEdit()->setText(table.fileName());
    dialog->ReplaceBox()->setChecked(true);
    for (const auto button : buttons) {
      (dialog->*button)()->click();
      reports << dialog->ReportText().section(' ', 0, 0);
    }
    dialog->reject();
  });
  window.Command("ImportTables")->trigger();
  RunPendingEvents();
  return reports;
}

void WindowTest::AddSecondProduct() {
  lumira::ImportTables tables;
  tables.structure = {"structure.csv", "parent,child,instance\ncar,wheel,wheel.1\n"};
  tables.mass = {"mass.csv", "part,mass [kg]\nwheel,20\n"};
  lumira::ImportOptions options;
  options.product = "Car";
  const auto imported = lumira::ImportProduct(window.Session().Transport().Store(), tables, options);
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  ASSERT_TRUE(window.OpenProduct(File()));
}

void WindowTest::OpenPanelOnAboveYaw() {
  Select({"nacelle.1", "Above_yaw.1"});
  window.ShowPartPanel();
  ASSERT_TRUE(window.PartPanel().IsOpen());
  RunPendingEvents();
  QApplication::setActiveWindow(window.PartPanel().Window());
}

std::string WindowTest::OnlyMessage() const {
  EXPECT_EQ(boxes.Messages().size(), 1u);
  return boxes.Messages().empty() ? std::string() : boxes.Messages().back().text.Utf8();
}

}  // namespace desktop::test
