// The main window's filter: the panel, the instances that are added to it, and what is shown of the filter in
// force. And the list of warnings.
#include <QContextMenuEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMenu>
#include <QStatusBar>
#include <QTreeView>
#include <iostream>
#include <utility>

#include "desktop/app/ElidedLabel.h"
#include "desktop/app/FilterMarks.h"
#include "desktop/app/HistoryDialog.h"
#include "desktop/app/MainWindow.h"
#include "desktop/app/PdmCommands.h"
#include "desktop/app/Questions.h"
#include "desktop/app/SelectionPane.h"
#include "desktop/app/Texts.h"
#include "desktop/toolkit/QtText.h"
#include "lumira/commands/Findings.h"

namespace desktop {
namespace {

constexpr std::size_t kMostInABox = 20;  ///< warnings; more would not fit on the screen
constexpr int kSaidFor = 6'000;          ///< milliseconds that the status bar says what was added

const char* SeverityKey(protocol::Severity severity) {
  switch (severity) {
    case protocol::Severity::Error:
      return "Warnings.Error";
    case protocol::Severity::Warning:
      return "Warnings.Warning";
    case protocol::Severity::Information:
      break;
  }
  return "Warnings.Information";
}

using Lines = WarningListHost::Lines;

Lines LinesOf(const protocol::PendingWarnings& findings) {
  Lines lines;
  for (const protocol::Warning& finding : findings.warnings)
    lines.push_back(Text(SeverityKey(finding.severity), {ToQt(finding.text)}).toStdString());
  return lines;
}

Lines LinesOf(const std::vector<lumira::ImportReport>& reports) {
  Lines lines;
  for (const lumira::ImportReport& report : reports) {
    for (const std::string& text : report.leftOut)
      lines.push_back(Text("Warnings.LeftOut", {ToQt(text)}).toStdString());
    for (const std::string& text : report.warnings)
      lines.push_back(Text("Warnings.Warning", {ToQt(text)}).toStdString());
  }
  return lines;
}

}  // namespace

void MainWindow::ShowFilterPanel() {
  const std::string product = _model->ProductAt(_tree->currentIndex());
  if (!_filterPanel.IsOpenOn(product) && !MayLoseFilterRows()) return;
  if (const auto opened = _filterPanel.Open(product); !opened)
    ShowError("Error.Filter", opened.Failure().message);
  TellCatalogueProblems();
}

bool MainWindow::MayLoseFilterRows() {
  if (!_filterPanel.HasUnconfirmedRows()) return true;
  return UserAgrees(nullptr, {"Command.Filter.Title", "Filter.Discard", "Filter.GoBack"},
                    Text("Filter.Unconfirmed"));
}

std::vector<OccurrencePlace> MainWindow::SelectedPlaces() const {
  std::vector<OccurrencePlace> places;
  for (const QModelIndex& index : _tree->selectionModel()->selectedRows())
    places.push_back(_model->PlaceAt(index));
  return places;
}

void MainWindow::AddToFilter() {
  if (!_filterPanel.IsOpen()) ShowFilterPanel();
  if (_filterPanel.IsOpen()) AddToFilter(SelectedPlaces());
}

void MainWindow::AddToFilter(const std::vector<OccurrencePlace>& places) {
  if (!_filterPanel.TakesInstances())
    return ShowInformation("Command.AddToFilter.Title", Text("Filter.TakesNoInstances"));
  ShowAdditions(_filterPanel.Add(places));
}

void MainWindow::ShowAdditions(const FilterPanelHost::Additions& additions) {
  const auto said = [](const char* key, int count) { return Text(key, {QString::number(count)}); };
  QStringList refused;
  if (additions.roots > 0) refused << Text("Filter.RootRefused");
  if (additions.ofOtherProducts > 0) refused << said("Filter.OtherProduct", additions.ofOtherProducts);
  if (!refused.isEmpty()) ShowInformation("Command.AddToFilter.Title", refused.join("\n\n"));
  QStringList done{said("Filter.Added", additions.added)};
  if (additions.wereThere > 0) done << said("Filter.WereThere", additions.wereThere);
  statusBar()->showMessage(done.join(" "), kSaidFor);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == _tree && event->type() == QEvent::KeyPress && _filterPanel.TakesInstances()) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    // A double click goes on opening the part panel.
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      AddToFilter();
      return true;
    }
  }
  return QMainWindow::eventFilter(watched, event);
}

void MainWindow::ShowTreeMenu(const QPoint& place) {
  if (!_tree->indexAt(place).isValid()) return;
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (const char* command : {"PartPanel", "Compute", "Filter", "AddToFilter", "History"})
    menu->addAction(_actions[command]);
  menu->popup(_tree->viewport()->mapToGlobal(place));
}

void MainWindow::FilterChanged() {
  const FilterInForce before = _shownFilter;
  ShowFilter();
  // A panel with unsaved values goes on under its filter, which it names; the other one counts after the
  // save.
  if (_shownFilter == before) return;
  if (_partPanel.IsOpen() && !_partPanel.HasUnsavedValues())
    if (const auto text = ShowSelection()) BindPartPanel(*text);
  SayWhyMarked();
}

void MainWindow::ShowFilter() {
  const QModelIndex index = _tree->currentIndex();
  if (!_shownFilter.Follow(_library.Commands(), _model->ProductAt(index))) return;
  const FilterInForce& filter = _shownFilter;
  const bool isInForce = !filter.LetsAllPass();
  QModelIndex top = index.isValid() ? index : _model->index(0, 0);
  while (top.parent().isValid()) top = top.parent();
  const bool isKnown = top.isValid() && !filter.Name().isEmpty();
  _filter->setText(isKnown ? Text("Status.Filter", {filter.Name()}) : QString());
  _filter->setToolTip(isKnown ? filter.Meaning(_model->PlaceAt(top).node) : QString());
  _filter->setAccessibleDescription(_filter->toolTip());
  QFont font = statusBar()->font();
  font.setBold(isInForce);
  _filter->setFont(font);
  _model->MarkFilter(filter.Product(), FilterMarks(filter.Definition()));
  _pane->ShowFilter(isInForce ? filter.Name() : QString());
}

void MainWindow::SayWhyMarked() {
  const QModelIndex index = _tree->currentIndex();
  const QString note = index.isValid() ? _model->FilterNoteAt(index) : QString();
  const QString said = std::exchange(_saidOfMark, note);
  if (!note.isEmpty())
    statusBar()->showMessage(note);
  else if (statusBar()->currentMessage() == said)
    statusBar()->clearMessage();
}

void MainWindow::TellFilter() {
  ShowInformation("Command.TellFilter.Title", _filter->text() + "\n\n" + _filter->toolTip());
}

QString MainWindow::FilterText() const { return _filter->text(); }

QString MainWindow::FilterMeaning() const { return _filter->toolTip(); }

void MainWindow::ShowWarnings(const std::function<Lines()>& linesOfNow) {
  if (_warnings.Show(linesOfNow)) return;
  const Lines lines = linesOfNow();
  QStringList shown;
  for (const std::string& line : lines) std::cerr << "korvo: " << line << "\n";
  for (std::size_t i = 0; i < std::min(lines.size(), kMostInABox); ++i) shown << ToQt(lines[i]);
  if (lines.size() > kMostInABox) shown << Text("Filter.More", {QString::number(lines.size() - kMostInABox)});
  ShowInformation("Warnings.Title", shown.join('\n'));
}

void MainWindow::ShowImportReports(const std::vector<lumira::ImportReport>& reports) {
  ShowWarnings([reports] { return LinesOf(reports); });
}

void MainWindow::ShowFindings() {
  ShowWarnings([findings = GetFindings()] {
    if (findings) return LinesOf(findings.Value());
    return Lines{Text("Warnings.NoFindings", {ToQt(findings.Failure().message)}).toStdString()};
  });
}

// The server has said at its start what it found then; an import may have mended it, or made it worse.
void MainWindow::ShowImportReportsAndFindings(const std::vector<lumira::ImportReport>& reports) {
  ShowWarnings([reports, findings = lumira::CollectFindings(_session.Transport().Store())] {
    Lines lines = LinesOf(reports);
    for (const std::string& line : LinesOf(findings)) lines.push_back(line);
    return lines;
  });
}

void MainWindow::ClosePanels() {
  _partPanel.Close();
  _filterPanel.Close();
  _warnings.Close();
  if (_history) _history->close();
}

}  // namespace desktop
