// The main window while values are edited: what must not be lost without a question, what a save changes on
// the screen, and the history of a part.
#include <QItemSelectionModel>
#include <QStatusBar>
#include <QTreeView>
#include <utility>

#include "desktop/app/HistoryDialog.h"
#include "desktop/app/MainWindow.h"
#include "desktop/app/PdmCommands.h"
#include "desktop/app/Questions.h"
#include "desktop/app/Texts.h"
#include "desktop/toolkit/QtText.h"

namespace desktop {
namespace {

constexpr int kSaidFor = 6'000;  ///< milliseconds that the status bar says what was saved

const char* AgainKey(protocol::HistoryMoment moment) {
  return moment == protocol::HistoryMoment::Before ? "History.AskBefore" : "History.AskAfter";
}

/// The catalogue key of the question whether unsaved values may go.
const char* QuestionKey(const PartPanelHost& panel) {
  if (!panel.HasTypedValues()) return "Unsaved.Changed";
  return panel.MayHaveBeenSaved() ? "Unsaved.NotKnown" : "Unsaved.Text";
}

}  // namespace

bool MainWindow::MayGiveUpValues() {
  if (!_partPanel.HasUnsavedValues()) return true;
  if (_asksForValues || _partPanel.IsAsking()) return false;
  KorUnicodeString part;
  _partPanel.Buffer()->GetPartIdentifier(part);
  _asksForValues = true;
  const bool agrees = UserAgrees(_partPanel.Panel(), {"Unsaved.Title", "Unsaved.GiveUp", "Unsaved.Keep"},
                                 Text(QuestionKey(_partPanel), {ToQt(part)}));
  _asksForValues = false;
  return agrees;
}

void MainWindow::SelectionChanged() {
  if (!_partPanel.HasUnsavedValues()) return ShowChangedSelection();
  ShowStatus();
  // One decision, on what is selected then: the question lets further changes of the selection come in.
  if (std::exchange(_decidesOnSelection, true)) return;
  // The tree is not done with the click or key: the question, and going back, come after it.
  QMetaObject::invokeMethod(
      this, [this] { DecideOnSelection(); }, Qt::QueuedConnection);
}

bool MainWindow::IsOnPanelLine() const {
  return _panelLine.isValid() && _tree->currentIndex().siblingAtColumn(0) == _panelLine;
}

void MainWindow::DecideOnSelection() {
  const bool isBack = IsOnPanelLine();
  const bool mayGo = isBack || MayGiveUpValues();
  _decidesOnSelection = false;
  if (isBack) return;
  if (mayGo) return ShowChangedSelection();
  if (!_panelLine.isValid()) return;
  _tree->selectionModel()->setCurrentIndex(_panelLine,
                                           QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void MainWindow::ShowChangedSelection() {
  ShowStatus();
  const auto text = ShowSelection();
  if (text && _partPanel.IsOpen()) BindPartPanel(*text);
  SayWhyMarked();
}

void MainWindow::ValuesSaved(const KorUnicodeString& reply) {
  if (!_savesAgain) _partPanel.SaveEnded(reply);
}

HistoryDialog* MainWindow::History() const { return _history; }

void MainWindow::ShowHistory() {
  const QModelIndex line = _tree->currentIndex();
  if (!line.isValid()) return ShowError("Error.History", Text("Error.NothingSelected").toStdString());
  if (_history) _history->close();
  _history = new HistoryDialog(_model->PlaceAt(line).node.partId, this);
  _history->setAttribute(Qt::WA_DeleteOnClose);
  _history->onSaveAgain = [this](const auto& wanted, const auto& seenToken) { SaveAgain(wanted, seenToken); };
  _history->onError = [this](const protocol::Error& error) { ShowError("Error.History", error.message); };
  _history->show();
  _history->Reload();
}

void MainWindow::ReloadHistoryOf(const std::string& part) {
  if (_history && _history->Part() == part) _history->Reload();
}

bool MainWindow::AskToSaveAgain(const protocol::HistoryStateRequest& wanted) const {
  return UserAgrees(nullptr, {"History.AskTitle", "History.AskSave", "History.AskLeave"},
                    Text(AgainKey(wanted.moment), {ToQt(wanted.partId), QString::number(wanted.number)}));
}

/// Saved by somebody else in the meantime, or by a program: the history takes in what there is now, and the
/// user decides anew.
void MainWindow::RefuseToSaveAgain(const std::string& part, const std::string& why) {
  ShowError("Error.SaveAgain", why);
  ReloadHistoryOf(part);
}

bool MainWindow::ShowsInPanel(const std::string& part) const {
  if (!_partPanel.IsOpen()) return false;
  KorUnicodeString shown;
  _partPanel.Buffer()->GetPartIdentifier(shown);
  return shown == KorUnicodeString(part);
}

void MainWindow::SaveAgain(const protocol::HistoryStateRequest& wanted, const std::string& seenToken) {
  const std::string& part = wanted.partId;
  const bool shown = ShowsInPanel(part);
  if (!AskToSaveAgain(wanted) || (shown && !MayGiveUpValues())) return;
  auto state = GetHistoryState(wanted);
  if (!state) return ShowError("Error.SaveAgain", state.Failure().message);
  // It came with the token of now, which would replace what the user has not seen.
  state.Value().stateToken = seenToken;
  const bool before = std::exchange(_savesAgain, true);
  const auto saved = SavePart(protocol::WritePartData(state.Value()));
  _savesAgain = before;
  if (!saved) return RefuseToSaveAgain(part, saved.Failure().message);
  _panelIsOld = true;
  if (shown)
    if (const auto text = ShowSelection()) BindPartPanel(*text);
  // Each server call clears the status bar, also those that wait until this save is done with.
  QMetaObject::invokeMethod(
      this, [this, part] { statusBar()->showMessage(Text("History.SavedAgain", {ToQt(part)}), kSaidFor); },
      Qt::QueuedConnection);
}

}  // namespace desktop
