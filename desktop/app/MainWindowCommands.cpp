#include <QDir>
#include <QFileInfo>
#include <QTreeView>

#include "desktop/app/Folders.h"
#include "desktop/app/ImportDialog.h"
#include "desktop/app/MainWindow.h"
#include "desktop/app/PdmCommands.h"
#include "desktop/app/SampleProduct.h"
#include "desktop/app/SearchBox.h"
#include "desktop/app/SelectionPane.h"
#include "desktop/app/Texts.h"
#include "desktop/app/UnitsDialog.h"
#include "desktop/toolkit/QtText.h"
#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "lumira/store/OpenSqliteStore.h"

namespace desktop {

bool MainWindow::OpenProduct(const QString& file) {
  const auto progress = [this](std::string_view what, std::size_t done, std::size_t total) {
    _busy.ShowProgress(what, done, total);
  };
  if (const auto opened = _session.Open(file.toStdString(), progress); !opened) {
    _settings.RemoveRecentProduct(file);
    ShowRecentProducts();
    ShowError("Error.Open", opened.Failure().message);
    return false;
  }
  _partPanel.Close();
  _settings.AddRecentProduct(QFileInfo(file).absoluteFilePath());
  ShowRecentProducts();
  ReloadTree();
  return true;
}

bool MainWindow::CreateProduct(const QString& file) {
  if (const auto made = lumira::CreateSqliteStore(file.toStdString()); !made) {
    ShowError("Error.New", made.Failure().message);
    return false;
  }
  return OpenProduct(file);
}

QString MainWindow::SampleFile() const { return QDir(Folders::UserData()).filePath("iea15.lumira"); }

bool MainWindow::OpenSample() {
  if (!QFileInfo::exists(SampleFile())) {
    if (Folders::Samples().isEmpty()) {
      ShowError("Error.Open", Text("Error.NoSamples").toStdString());
      return false;
    }
    const auto made = CreateSampleProduct(Folders::Samples().toStdString(), SampleFile().toStdString());
    if (!made) {
      ShowError("Error.Sample", made.Failure().message);
      return false;
    }
  }
  return OpenProduct(SampleFile());
}

void MainWindow::ReloadTree() {
  const auto loaded = _model->Reload();
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

void MainWindow::SelectionChanged() {
  ShowStatus();
  const auto text = ShowSelection();
  if (text && _partPanel.IsOpen()) BindPartPanel(*text);
}

void MainWindow::ShowPartPanel() {
  if (!_tree->currentIndex().isValid())
    return ShowError("Error.Part", Text("Error.NothingSelected").toStdString());
  if (const auto text = ShowSelection()) BindPartPanel(*text);
}

void MainWindow::ValuesComputed() {
  _model->RefreshValues();
  ShowSelection();
}

std::optional<std::string> MainWindow::ShowSelection() {
  const QModelIndex index = _tree->currentIndex();
  _pane->ShowNothing();
  if (!index.isValid()) return std::nullopt;
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
  if (const auto shown = _partPanel.Show(partDataText); !shown)
    ShowError("Error.Part", shown.Failure().message);
}

void MainWindow::UnitsChanged() {
  _model->RefreshTexts();
  _pane->RefreshTexts();
  _partPanel.RefreshValues();
  ShowStatus();
}

bool MainWindow::ChooseLanguage(const QString& language) {
  if (Failed(KorMsgCatalog::SetLanguage(language.toStdString()))) return false;
  _settings.SetLanguage(language);
  ShowTexts();
  _partPanel.RefreshTexts();
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
  dialog.exec();
  if (!dialog.HasImported()) return;
  _partPanel.Close();
  ReloadTree();
}

void MainWindow::AskForUnits() {
  if (UnitsDialog(this).exec() != QDialog::Accepted) return;
  _settings.KeepUnits();
  UnitsChanged();
}

void MainWindow::FocusSearch() {
  _search->Edit()->setFocus();
  _search->Edit()->selectAll();
}

void MainWindow::ShowAbout() {
  KorDlgMessage message;
  message.title = FromQt(Text("Command.About.Title"));
  message.text = FromQt(Text("About.Text", {QCoreApplication::applicationVersion(), qVersion()}));
  message.flags = KorDlgMessage::kInformation;
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
