#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QTreeView>
#include <iostream>

#include "desktop/app/Folders.h"
#include "desktop/app/HistoryDialog.h"
#include "desktop/app/ImportDialog.h"
#include "desktop/app/MainWindow.h"
#include "desktop/app/PdmCommands.h"
#include "desktop/app/QtTranslation.h"
#include "desktop/app/Questions.h"
#include "desktop/app/SampleProduct.h"
#include "desktop/app/SearchBox.h"
#include "desktop/app/SelectionPane.h"
#include "desktop/app/Texts.h"
#include "desktop/app/TracingDialog.h"
#include "desktop/app/UnitsDialog.h"
#include "desktop/toolkit/QtText.h"
#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "lumira/store/OpenSqliteStore.h"
#include "protocol/Codec.h"
#include "protocol/Constants.h"
#include "protocol/ErrorReply.h"

namespace desktop {
namespace {

/// Empty for a reply that cannot be read.
std::string SavedPartIn(const std::string& reply) {
  const auto saved = protocol::ReadSaveReply(reply);
  return saved ? saved.Value().partId : std::string();
}

}  // namespace

bool MainWindow::OpenProduct(const QString& file) { return MayCloseProduct() && OpenAndTell(file); }

bool MainWindow::OpenAndTell(const QString& file) {
  const auto opened = Open(file);
  if (opened) return true;
  ForgetIfGone(file, opened.Failure());
  ShowError("Error.Open", opened.Failure().message);
  return false;
}

protocol::Result<void> MainWindow::Open(const QString& file) {
  const auto progress = [this](std::string_view what, std::size_t done, std::size_t total) {
    _busy.ShowProgress(what, done, total);
  };
  {
    const BusyIndicator::Scope busy(_busy, Text("Busy.Open"));
    if (auto opened = _session.Open(file.toStdString(), progress); !opened) return opened;
  }
  ClosePanels();
  _settings.AddRecentProduct(QFileInfo(file).absoluteFilePath());
  ShowRecentProducts();
  ReloadTree();
  ShowFindings();
  return {};
}

/// A product that is locked, read-only or of a newer version may open the next time; one that is not there
/// would only be in the way.
void MainWindow::ForgetIfGone(const QString& file, const protocol::Error& why) {
  if (why.kind != protocol::ErrorKind::NotFound) return;
  _settings.RemoveRecentProduct(QFileInfo(file).absoluteFilePath());
  ShowRecentProducts();
}

bool MainWindow::CreateProduct(const QString& file) {
  if (!MayCloseProduct()) return false;
  if (const auto made = lumira::CreateSqliteStore(file.toStdString()); !made) {
    ShowError("Error.New", made.Failure().message);
    return false;
  }
  return OpenAndTell(file);
}

QString MainWindow::SampleFile() const { return QDir(Folders::UserData()).filePath("iea15.lumira"); }

bool MainWindow::OpenSample() {
  if (!MayCloseProduct()) return false;
  if (QFileInfo::exists(SampleFile())) {
    const auto opened = Open(SampleFile());
    if (opened) return true;
    if (!MayMakeSampleAnew(opened.Failure())) return false;
  }
  return MakeSample() && OpenAndTell(SampleFile());
}

/// A sample that is only locked or read-only is whole, and would open the next time.
bool MainWindow::MayMakeSampleAnew(const protocol::Error& why) {
  if (why.storedData == protocol::StoredData::Unusable) return AskToMakeSampleAnew(why.message);
  ShowError("Error.Open", why.message);
  return false;
}

bool MainWindow::AskToMakeSampleAnew(const std::string& reason) {
  return UserAgrees(nullptr, {"Error.Open", "Sample.Make", "Sample.Leave"},
                    Text("Sample.MakeAnew", {ToQt(reason), ToQt(NameSetAside(SampleFile().toStdString()))}));
}

bool MainWindow::MakeSample() {
  if (Folders::Samples().isEmpty()) {
    ShowError("Error.Sample", Folders::WhyNoSamples().toStdString());
    return false;
  }
  const auto made = [this] {
    const BusyIndicator::Scope busy(_busy, Text("Busy.Sample"));
    return CreateSampleProduct(Folders::Samples().toStdString(), SampleFile().toStdString());
  }();
  if (!made) ShowError("Error.Sample", made.Failure().message);
  return made.Ok();
}

void MainWindow::OpenAtStart(const QString& product) {
  const QString first = product.isEmpty() ? _settings.RecentProducts().value(0) : product;
  // The sample is opened as such: it is not tried twice, and a damaged one can be made anew.
  const bool isSample = QFileInfo(first).absoluteFilePath() == QFileInfo(SampleFile()).absoluteFilePath();
  if (first.isEmpty() || isSample)
    OpenSample();
  else if (!OpenProduct(first) && product.isEmpty())
    OpenSample();
}

void MainWindow::ReloadTree() {
  const auto loaded = _model->Reload();
  _shownFilter = {};  // another file may know other filters
  _search->Clear();
  _pane->ShowNothing();
  if (!loaded) ShowError("Error.Tree", loaded.Failure().message);
  const QModelIndex top = _model->index(0, 0);
  _tree->expand(top);
  _tree->setCurrentIndex(top);
  ShowStatus();
}

bool MainWindow::Select(const std::string& product, const std::vector<std::string>& instancePath) {
  const QModelIndex index = _model->IndexOf(product, instancePath);
  if (!index.isValid()) return false;
  for (QModelIndex above = index.parent(); above.isValid(); above = above.parent()) _tree->expand(above);
  _tree->setCurrentIndex(index);
  _tree->scrollTo(index);
  return true;
}

void MainWindow::ShowPartPanel() {
  if (!_tree->currentIndex().isValid())
    return ShowError("Error.Part", Text("Error.NothingSelected").toStdString());
  if (_partPanel.IsOpen() && IsInEditMode(*_partPanel.Panel()) && IsOnPanelLine()) return _partPanel.Raise();
  if (_decidesOnSelection) return;  // that decision shows what is selected in the panel, or goes back
  if (!MayGiveUpValues()) return;
  if (const auto text = ShowSelection()) BindPartPanel(*text);
}

void MainWindow::Compute() {
  if (!_partPanel.IsOpen()) ShowPartPanel();
  _partPanel.Compute();
}

void MainWindow::ServerCommandEnded(const KorUnicodeString& command, const KorUnicodeString& reply) {
  QMetaObject::invokeMethod(
      this, [this] { TellOfLostTrace(); }, Qt::QueuedConnection);
  const bool saves = command == KorUnicodeString(protocol::kCommandSavePart);
  const bool failed = reply.IsEmpty() || protocol::IsErrorReply(reply.Utf8());
  if (saves) ValuesSaved(reply);
  // After a failure nothing has changed, and whoever sent the command tells of it.
  if (failed || (!saves && command != KorUnicodeString(protocol::kCommandComputePart))) return;
  const std::string part = saves ? SavedPartIn(reply.Utf8()) : std::string();
  if (!saves) _partPanel.ComputeEnded();
  // The panel is not done with the reply: its own server calls come before those of the window.
  QMetaObject::invokeMethod(
      this, [this, part] { ValuesChanged(part); }, Qt::QueuedConnection);
}

void MainWindow::ValuesChanged(const std::string& savedPart) {
  ReloadHistoryOf(savedPart);
  if (const auto refreshed = _model->RefreshValues(); !refreshed)
    return ShowError("Error.Tree", refreshed.Failure().message);
  const auto text = ShowSelection();
  // Another filter, and another state of parts below, wait for the panel until what was typed there has been
  // saved.
  const bool isBehind = _panelIsOld || !(_panelFilter == _shownFilter);
  if (text && _partPanel.IsOpen() && !_partPanel.HasUnsavedValues() && isBehind) BindPartPanel(*text);
}

std::optional<std::string> MainWindow::ShowSelection() {
  const QModelIndex index = _tree->currentIndex();
  if (!index.isValid()) {
    _pane->ShowNothing();
    return std::nullopt;
  }
  const OccurrencePlace place = _model->PlaceAt(index);
  protocol::PartDataRequest request;
  request.product = place.product;
  request.partId = place.node.partId;
  request.instancePath = place.instancePath;
  const auto text = GetPartDataText(request);
  const auto data = text ? protocol::ReadPartData(text.Value()) : text.Failure();
  if (!data) {
    ShowError("Error.Part", data.Failure().message);
    return std::nullopt;
  }
  _pane->Show(place, data.Value());
  return text.Value();
}

void MainWindow::BindPartPanel(const std::string& partDataText) {
  if (const auto shown = _partPanel.Show(_shownFilter.PartDataFor(partDataText)); !shown) {
    ShowError("Error.Part", shown.Failure().message);
  } else {
    _panelLine = _tree->currentIndex().siblingAtColumn(0);
    _panelFilter = _shownFilter;
    _panelIsOld = false;
  }
  TellCatalogueProblems();
}

void MainWindow::UnitsChanged() {
  _model->RefreshTexts();
  _pane->RefreshTexts();
  if (_history) _history->RefreshTexts();
  // What was typed was meant in the units before: it would be stored as something else.
  const auto text = _partPanel.HasTypedValues() ? ShowSelection() : std::nullopt;
  if (text)
    BindPartPanel(*text);
  else
    _partPanel.RefreshValues();
  ShowStatus();
}

bool MainWindow::ChooseLanguage(const QString& language) {
  if (Failed(KorMsgCatalog::SetLanguage(language.toStdString()))) return false;
  _settings.SetLanguage(language);
  TranslateQt(language);
  ShowTexts();
  _partPanel.RefreshTexts();
  _filterPanel.RefreshTexts();
  _warnings.RefreshTexts();
  TellCatalogueProblems();
  return true;
}

void MainWindow::ChooseTheme(ThemeChoice theme) {
  _settings.SetTheme(theme);
  Theme::Apply(theme);
  ShowTexts();
}

void MainWindow::AskForProduct() {
  KorDlgFileRequest request;
  request.title = FromQt(Text("Command.OpenProduct.Title"));
  request.pattern = FromQt(Text("Open.Pattern"));
  if (const auto file = KorApplicationFrame::ChooseFile(request)) OpenProduct(ToQt(*file));
}

void MainWindow::AskForNewProduct() {
  KorDlgFileRequest request;
  request.title = FromQt(Text("Command.NewProduct.Title"));
  request.pattern = FromQt(Text("Open.Pattern"));
  request.mode = KorDlgFileRequest::Mode::Save;
  const auto file = KorApplicationFrame::ChooseFile(request);
  if (file && CreateProduct(ToQt(*file))) AskForTables();
}

void MainWindow::AskForTables() {
  if (!_session.IsOpen()) return;
  ImportDialog dialog(_session.Transport().Store(), this);
  // The panels are closed after the dialog; leave that was given counts until then.
  bool hasLeave = false;
  dialog.mayImport = [&] { return hasLeave = hasLeave || MayCloseProduct(); };
  dialog.exec();
  if (dialog.Imported().empty()) return;
  ClosePanels();
  ReloadTree();
  ShowImportReportsAndFindings(dialog.Imported());
}

void MainWindow::AskForUnits() {
  if (_partPanel.HasTypedValues() && !MayGiveUpValues()) return;
  if (UnitsDialog(this).exec() != QDialog::Accepted) return;
  _settings.KeepUnits();
  UnitsChanged();
}

void MainWindow::AskForTracing() {
  TracingDialog dialog(_tracing, this);
  const TraceChoice before = dialog.Choice();
  if (dialog.exec() != QDialog::Accepted) return;
  TellOfLostTrace();
  // What the user left as it was may come from the environment, which is for one start. Of components that
  // there are not the user has been told; the dialog does not show them.
  const TraceChoice after = dialog.Choice();
  _settings.SetTracing(after.components == before.components ? Tracing::KnownOf(_settings.TracedComponents())
                                                             : after.components,
                       after.file == before.file ? _settings.TraceFile() : after.file);
}

void MainWindow::TellOfLostTrace() {
  if (const auto written = _tracing.CheckWritten(); !written)
    ShowError("Error.Tracing", written.Failure().message);
}

void MainWindow::FocusSearch() {
  _search->Edit()->setFocus();
  _search->Edit()->selectAll();
}

void MainWindow::ShowAbout() {
  ShowInformation("Command.About.Title",
                  Text("About.Text", {QCoreApplication::applicationVersion(), qVersion()}));
}

void MainWindow::ShowInformation(const char* titleKey, const QString& text) {
  KorDlgMessage message;
  message.title = FromQt(Text(titleKey));
  message.text = FromQt(text);
  message.flags = KorDlgMessage::kInformation;
  KorApplicationFrame::ShowMessage(message);
}

void MainWindow::TellStartProblems() {
  if (const QString reason = _library.WhyNot(); !reason.isEmpty())
    ShowError("Error.Library", reason.toStdString());
  if (!_tracingProblems.isEmpty()) ShowError("Error.Tracing", _tracingProblems.join("\n\n").toStdString());
  TellCatalogueProblems();
}

void MainWindow::TellCatalogueProblems() {
  const QStringList problems = _catalogueProblems.TakeNew(_settings.Language());
  if (problems.isEmpty()) return;
  const std::string text = problems.join('\n').toStdString();
  std::cerr << "korvo: " << text << "\n";
  KorDlgMessage message;
  message.title = FromQt(TextOr("Error.Texts", "Some texts are missing"));
  message.text = text;
  message.flags = KorDlgMessage::kError;
  KorApplicationFrame::ShowMessage(message);
}

void MainWindow::ShowError(const char* titleKey, const std::string& text) {
  KorDlgMessage message;
  message.title = FromQt(Text(titleKey));
  message.text = text;
  message.flags = KorDlgMessage::kError;
  KorApplicationFrame::ShowMessage(message);
}

}  // namespace desktop
