// The filters and warnings of the run without a display.
#include <QApplication>
#include <QItemSelectionModel>
#include <QTreeView>

#include "desktop/app/Folders.h"
#include "desktop/app/HeadlessRun.h"
#include "desktop/app/PdmCommands.h"
#include "desktop/app/SampleProduct.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgRadioButton.h"

namespace desktop {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Result;

constexpr const char* kComputed = "Above_yaw";
constexpr const char* kMainFrame = "TabContainer001.TabPage001.MainFrame.";
constexpr const char* kByInstances = "PVSFilterBtn";
constexpr const char* kByConfiguration = "CfgFilterBtn";
constexpr const char* kNoFilter = "No Filter";

/// The two instances of the user filter.
const std::vector<std::string> kChosen[] = {{"nacelle.1", "Above_yaw.1", "bedplate.1"},
                                            {"nacelle.1", "Above_yaw.1", "generator.1"}};

Error Fail(const std::string& what) { return {ErrorKind::Internal, what}; }

void AddWhatIsOfNoUse(std::string& massTable) {
  QStringList lines = QString::fromStdString(massTable).split('\n', Qt::SkipEmptyParts);
  const auto columns = lines[0].count(',') + 1;
  lines[0] += ",supplier";
  for (qsizetype i = 1; i < lines.size(); ++i) lines[i] += ",-";
  lines << "crane,Service crane,Weighed,1250" + QString(",").repeated(columns - 3);
  massTable = lines.join('\n').toStdString();
}

}  // namespace

Result<void> HeadlessRun::ComputeUnderFilters() {
  const std::string product = _window.Tree().ProductAt({});
  const std::string root = _window.Tree().PlaceAt(_window.Tree().index(0, 0)).node.partId;
  const auto filters = GetConfigFilters({{root}, {product}});
  if (!filters) return filters.Failure();
  for (const protocol::FilterEntry& filter : filters.Value().filters)
    if (auto done = ComputeUnderConfiguration(filter.name); !done) return done;
  // The name of the last one in the greyed combo would look like a second filter in force.
  if (auto done = ChooseConfiguration(kNoFilter); !done) return done;
  if (auto done = ComputeUnderInstances(); !done) return done;
  return ChooseConfiguration(kNoFilter);
}

Result<void> HeadlessRun::ComputeUnderConfiguration(const std::string& name) {
  if (auto done = ChooseConfiguration(name); !done) return done;
  return ComputeInPanel(kComputed, name);
}

Result<KorDlgDialog*> HeadlessRun::OpenFilterPanel(const std::string& kind) {
  _window.ShowFilterPanel();
  KorDlgDialog* panel = _window.FilterPanel().Panel();
  if (!panel) return Fail("the filter panel did not open");
  auto& radio = panel->Find<KorDlgRadioButton>(kMainFrame + kind);
  if (!radio.IsChecked() && !radio.Check()) return Fail("\"" + kind + "\" cannot be checked");
  return panel;
}

Result<void> HeadlessRun::ChooseConfiguration(const std::string& name) {
  const auto panel = OpenFilterPanel(kByConfiguration);
  if (!panel) return panel.Failure();
  auto& names = panel.Value()->Find<KorDlgCombo>(std::string(kMainFrame) + "Frame002.ConfigHandlerIDCombo");
  if (names.GetSelectedLine() != KorUnicodeString(name) && !names.Pick(name))
    return Fail("the filter \"" + name + "\" cannot be picked");
  if (!panel.Value()->PressOK()) return Fail("OK cannot be pressed on the filter panel");
  QApplication::processEvents();
  return {};
}

Result<void> HeadlessRun::AddInstances() {
  QItemSelection chosen;
  for (const std::vector<std::string>& path : kChosen) {
    if (!_window.Select(_window.Tree().ProductAt({}), path))
      return Fail("\"" + path.back() + "\" cannot be selected");
    chosen.select(_window.TreeView().currentIndex(), _window.TreeView().currentIndex());
  }
  _window.TreeView().selectionModel()->select(
      chosen, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  _window.AddToFilter();
  return {};
}

Result<void> HeadlessRun::ComputeUnderInstances() {
  const auto panel = OpenFilterPanel(kByInstances);
  if (!panel) return panel.Failure();
  if (auto done = AddInstances(); !done) return done;
  if (auto done = SaveLooks(_window.FilterPanel().Window(), "filter-panel"); !done) return done;
  if (!panel.Value()->PressOK()) return Fail("OK cannot be pressed on the filter panel");
  QApplication::processEvents();
  if (auto done = ComputeInPanel(kComputed, "User Filter"); !done) return done;
  if (auto done = Save(&_window, "window-filter.png"); !done) return done;
  return Save(_window.PartPanel().Window(), "part-panel-filter.png");
}

/// What the import says of the sample with a column and a row that it has no use for.
Result<void> HeadlessRun::SaveWarnings() {
  auto tables = ReadSampleTables(Folders::Samples().toStdString());
  if (!tables) return tables.Failure();
  AddWhatIsOfNoUse(tables.Value().mass.text);
  lumira::ImportOptions options;
  options.product = "IEA15";
  options.existing = lumira::Existing::Replace;
  options.unknownParts = lumira::UnknownParts::LeaveOut;
  options.mode = lumira::ImportMode::DryRun;
  const auto report = lumira::ImportProduct(_window.Session().Transport().Store(), tables.Value(), options);
  if (!report) return report.Failure();
  _window.ShowImportReports({report.Value()});
  if (!_window.Warnings().Dialog()) return Fail("the list of warnings did not open");
  return SaveLooks(_window.Warnings().Window(), "warning-dialog");
}

}  // namespace desktop
