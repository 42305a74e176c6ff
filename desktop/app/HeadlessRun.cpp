#include "desktop/app/HeadlessRun.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QImageWriter>
#include <QSaveFile>
#include <QTreeView>
#include <algorithm>

#include "desktop/app/Folders.h"
#include "desktop/app/PdmCommands.h"
#include "desktop/app/PictureCheck.h"
#include "desktop/app/SampleProduct.h"
#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgTabContainer.h"
#include "framework/dialog/KorDlgTabPage.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "framework/knowledge/KorUnitSystems.h"

namespace desktop {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Result;

/// What the picture of a page is called.
struct PageName {
  const char* page;
  const char* name;
  bool ofAssembly = true;
};

constexpr PageName kPageNames[] = {
    {"TabPage002", "results"},
    {"TabPage003", "mass-types"},
    {"TabPage004", "material"},
    {"TabPage005", "precision"},
    {"TabPageDocuments", "documents", false},
    {"TabPageAdditional", "additional", false},
};

/// A custom reference: a point and axes turned by a quarter about z.
struct EditorText {
  const char* editor;
  const char* text;
};

constexpr EditorText kCustomReference[] = {
    {"CustomRefModeFrame.Frame033.CPxEditor", "1000"},
    {"CustomRefModeFrame.Frame033.CPyEditor", "0"},
    {"CustomRefModeFrame.Frame033.CPzEditor", "500"},
    {"CustomRefModeFrame.DirectionsFrame.XAxisxEditor", "0"},
    {"CustomRefModeFrame.DirectionsFrame.XAxisYEditor", "-1"},
    {"CustomRefModeFrame.DirectionsFrame.XAxisZEditor", "0"},
    {"CustomRefModeFrame.DirectionsFrame.YAxisXEditor", "1"},
    {"CustomRefModeFrame.DirectionsFrame.YAxisYEditor", "0"},
    {"CustomRefModeFrame.DirectionsFrame.YAxisZEditor", "0"},
    {"CustomRefModeFrame.DirectionsFrame.ZAxisXEditor", "0"},
    {"CustomRefModeFrame.DirectionsFrame.ZAxisYEditor", "0"},
    {"CustomRefModeFrame.DirectionsFrame.ZAxisZEditor", "1"},
};

constexpr const char* kReferenceMode = "Frame250.AdditionalFrame2.ReferenceModeFrame.";

Error Fail(const std::string& what) { return {ErrorKind::Internal, what}; }

Error CannotWrite(const QString& path, const QString& reason) {
  return {ErrorKind::Storage, QString("\"%1\" cannot be written: %2").arg(path, reason).toStdString()};
}

/// Makes a file that is whole or, after a failure, as it was before. `write` answers why it failed; empty: it
/// did not.
template <class Write>
Result<void> WriteFile(const QString& path, Write&& write) {
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return CannotWrite(path, file.errorString());
  if (const QString reason = write(file); !reason.isEmpty()) return CannotWrite(path, reason);
  if (!file.commit()) return CannotWrite(path, file.errorString());
  return {};
}

/// Layouts settle in the event loop, from the innermost out: each turn takes in what the one before queued.
void SettleLayouts() {
  constexpr int kTurns = 10;  // more than widgets are nested
  for (int turn = 0; turn < kTurns; ++turn) QApplication::processEvents();
}

Result<protocol::Occurrence> FindPart(const std::string& product, const std::string& part) {
  protocol::SearchRequest request;
  request.product = product;
  request.text = part;
  const auto reply = SearchTree(request);
  if (!reply) return reply.Failure();
  for (const protocol::Occurrence& hit : reply.Value().hits)
    if (hit.node.partId == part) return hit;
  return Error{ErrorKind::NotFound, "the product has no part \"" + part + "\""};
}

}  // namespace

HeadlessRun::HeadlessRun(const QString& folder)
    : _folder(folder),
      _settings(_scratch.filePath("settings.ini")),
      _backend(&_boxes),
      _window(_settings, _backend) {
  KorApplicationFrame::SetBackend(&_backend);
  _settings.ApplyUnits();
}

HeadlessRun::~HeadlessRun() {
  _window.PartPanel().Close();
  KorApplicationFrame::SetBackend(nullptr);
}

Result<void> HeadlessRun::Run() {
  auto done = RunSteps();
  if (!done) return done;
  if (!_boxes.Messages().empty())
    return Fail("a message box came up: " + _boxes.Messages().front().text.Utf8());
  if (_boxes.UnexpectedCount() > 0) return Fail("a question or file chooser came up");
  return done;
}

Result<void> HeadlessRun::RunSteps() {
  _window.TellStartProblems();
  if (!QDir().mkpath(_folder))
    return Error{ErrorKind::Storage, "the folder \"" + _folder.toStdString() + "\" cannot be made"};
  if (auto done = OpenSample(); !done) return done;
  if (auto done = ComputeInPanel("Above_yaw"); !done) return done;
  _window.TreeView().expand(_window.TreeView().currentIndex());
  if (auto done = Save(&_window, "window.png"); !done) return done;
  if (auto done = SavePages("part-panel-", Pages::OfAssembly, Looks::AsItIs); !done) return done;
  if (auto done = SaveUnitSystem("Imperial", "part-panel-imperial.png"); !done) return done;
  if (auto done = SaveUnitSystem("Mixed", "part-panel-mixed.png"); !done) return done;
  if (auto done = SaveTheme(ThemeChoice::Dark, "window-dark.png", "part-panel-dark.png"); !done) return done;
  if (auto done = SaveCustomReference(); !done) return done;
  if (auto done = ComputeInPanel("generator"); !done) return done;
  if (auto done = ComputeUnderFilters(); !done) return done;
  if (auto done = SaveWarnings(); !done) return done;
  if (auto done = EditAndSave(); !done) return done;
  if (auto done = SaveValues(); !done) return done;
  _window.TellOfLostTrace();
  return {};
}

Result<void> HeadlessRun::OpenSample() {
  const QString samples = Folders::Samples();
  if (samples.isEmpty()) return Error{ErrorKind::NotFound, Folders::WhyNoSamples().toStdString()};
  const QString file = _scratch.filePath("iea15.lumira");
  if (const auto made = CreateSampleProduct(samples.toStdString(), file.toStdString()); !made)
    return made.Failure();
  _window.show();
  if (!_window.OpenProduct(file)) return Fail("the sample product cannot be opened");
  return {};
}

Result<void> HeadlessRun::ShowInPanel(const std::string& part) {
  const std::string product = _window.Tree().ProductAt({});
  const auto place = FindPart(product, part);
  if (!place) return place.Failure();
  if (!_window.Select(product, place.Value().instancePath))
    return Fail("\"" + part + "\" cannot be selected");
  _window.ShowPartPanel();
  if (!_window.PartPanel().IsOpen()) return Fail("the part panel did not open on \"" + part + "\"");
  return {};
}

Result<PartValues> HeadlessRun::Compute(const std::string& part) {
  if (auto done = ShowInPanel(part); !done) return done.Failure();
  if (!_window.PartPanel().Compute()) return Fail("the button that computes cannot be pressed");
  QApplication::processEvents();
  const auto values = ReadPartValues(*_window.PartPanel().Buffer());
  if (!values) return Fail("computing \"" + part + "\" gave no values");
  return *values;
}

Result<void> HeadlessRun::ComputeInPanel(const std::string& part, const std::string& filter) {
  const auto values = Compute(part);
  if (!values) return values.Failure();
  _values += FormatPartValues(part, values.Value(), filter);
  return {};
}

Result<void> HeadlessRun::SavePages(const QString& start, Pages wanted, Looks looks) {
  auto& pages = _window.PartPanel().Panel()->Find<KorDlgTabContainer>("TabContainer001");
  for (int i = 0; i < pages.GetPageCount(); ++i) {
    const KorDlgTabPage& page = *pages.GetPage(i);
    const auto named = std::find_if(std::begin(kPageNames), std::end(kPageNames),
                                    [&](const PageName& one) { return page.Name() == one.page; });
    if (named == std::end(kPageNames) || !page.IsShown() || !page.IsEnabled()) continue;
    if (wanted == Pages::OfAssembly && !named->ofAssembly) continue;
    const QString name = start + named->name;
    if (_pictures.contains(name + ".png")) continue;
    if (!pages.Pick(i)) return Fail("the page \"" + page.Name() + "\" cannot be picked");
    QWidget* panel = _window.PartPanel().Window();
    if (auto done = looks == Looks::All ? SaveLooks(panel, name) : Save(panel, name + ".png"); !done)
      return done;
  }
  return pages.Pick(0) ? Result<void>() : Fail("the first page cannot be picked");
}

Result<void> HeadlessRun::PickPage(const std::string& page) {
  auto& pages = _window.PartPanel().Panel()->Find<KorDlgTabContainer>("TabContainer001");
  for (int i = 0; i < pages.GetPageCount(); ++i)
    if (pages.GetPage(i)->Name() == page && pages.Pick(i)) return {};
  return Fail("the page \"" + page + "\" cannot be picked");
}

Result<void> HeadlessRun::SaveUnitSystem(const char* system, const QString& file) {
  KorApplyUnitSystem(system);
  _window.UnitsChanged();
  return Save(_window.PartPanel().Window(), file);
}

Result<void> HeadlessRun::SaveTheme(ThemeChoice theme, const QString& windowFile, const QString& panelFile) {
  const ThemeChoice before = _settings.Theme();
  _window.ChooseTheme(theme);
  if (auto done = Save(&_window, windowFile); !done) return done;
  if (auto done = Save(_window.PartPanel().Window(), panelFile); !done) return done;
  _window.ChooseTheme(before);
  return {};
}

Result<void> HeadlessRun::SaveCustomReference() {
  if (auto done = CheckInPanel(kReferenceMode + std::string("CustomReferenceButton")); !done) return done;
  for (const EditorText& one : kCustomReference)
    if (!_window.PartPanel().Panel()->Find<KorDlgEditor>(one.editor).Type(one.text))
      return Fail(std::string("\"") + one.editor + "\" cannot be typed into");
  if (!_window.PartPanel().Compute()) return Fail("the custom reference cannot be computed");
  if (auto done = Save(_window.PartPanel().Window(), "part-panel-custom.png"); !done) return done;
  return CheckInPanel(kReferenceMode + std::string("CurrentPartButton"));
}

Result<void> HeadlessRun::CheckInPanel(const std::string& button) {
  auto& radio = _window.PartPanel().Panel()->Find<KorDlgRadioButton>(button);
  return radio.Check() ? Result<void>() : Fail("\"" + button + "\" cannot be checked");
}

Result<void> HeadlessRun::Save(QWidget* window, const QString& file) {
  _backend.Settle();
  SettleLayouts();
  const QString path = QDir(_folder).filePath(file);
  _pictures << file;
  QImage picture = window->grab().toImage();
  picture.setText("Title", window->windowTitle());
  if (const QStringList missing = TextsNotDrawn(*window, picture); !missing.isEmpty())
    return Fail(file.toStdString() + " does not show \"" + missing.join("\", \"").toStdString() + "\"");
  return WriteFile(path, [&picture](QSaveFile& target) {
    QImageWriter writer(&target, "PNG");
    if (writer.write(picture)) return QString();
    return target.error() == QFileDevice::NoError ? writer.errorString() : target.errorString();
  });
}

Result<void> HeadlessRun::SaveLooks(QWidget* window, const QString& name) {
  const ThemeChoice theme = _settings.Theme();
  const KorString language = KorMsgCatalog::GetLanguage();
  if (auto done = Save(window, name + ".png"); !done) return done;
  _window.ChooseTheme(ThemeChoice::Dark);
  if (auto done = Save(window, name + "-dark.png"); !done) return done;
  _window.ChooseTheme(theme);
  for (const KorString& other : KorMsgCatalog::Languages()) {
    if (other == language) continue;
    _window.ChooseLanguage(QString::fromStdString(other));
    if (auto done = Save(window, name + "-" + QString::fromStdString(other) + ".png"); !done) return done;
  }
  _window.ChooseLanguage(QString::fromStdString(language));
  return {};
}

Result<void> HeadlessRun::SaveValues() {
  return WriteFile(QDir(_folder).filePath("values.txt"), [this](QSaveFile& file) {
    const QByteArray text = QByteArray::fromStdString(_values);
    return file.write(text) == text.size() ? QString() : file.errorString();
  });
}

}  // namespace desktop
