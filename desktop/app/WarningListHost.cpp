#include "desktop/app/WarningListHost.h"

#include <QMetaObject>

#include "desktop/toolkit/views/DialogView.h"
#include "framework/dialog/KorDlgMultiList.h"

namespace desktop {
namespace {

constexpr const char* kGeometryKey = "warnings/geometry";
constexpr const char* kList = "MultiList001";
constexpr QSize kFirstSize(760, 320);  ///< device-independent pixels; room for a line of a report

}  // namespace

WarningListHost::WarningListHost(const CommandsLibrary& library, QtBackend& backend, Settings& settings)
    : _library(library), _backend(backend), _settings(settings) {}

WarningListHost::~WarningListHost() = default;

bool WarningListHost::Show(const Lines& lines) {
  return Show(std::function<Lines()>([lines] { return lines; }));
}

bool WarningListHost::Show(const std::function<Lines()>& lines) {
  const Lines texts = lines();
  if (texts.empty()) return true;
  if (!_library.Commands()) return false;
  Close();
  _lines = lines;
  _dialog = _library.Commands()->CreateWarningList({texts.begin(), texts.end()});
  _dialog->Subscribe(KorEvent::WindowClose, [this](auto...) {
    QMetaObject::invokeMethod(
        this, [this] { CloseIfHidden(); }, Qt::QueuedConnection);
  });
  _dialog->Attach(&_backend);
  if (!RestoreWantedGeometry(*Window(), _settings.WindowState(kGeometryKey))) Window()->resize(kFirstSize);
  _dialog->SetVisibility(KorVisibility::Shown);
  return true;
}

void WarningListHost::Close() {
  if (!_dialog) return;
  _settings.SetWindowState(kGeometryKey, SaveWantedGeometry(*Window()));
  _dialog->Detach();
  _dialog.reset();
}

void WarningListHost::CloseIfHidden() {
  if (_dialog && !_dialog->IsShown()) Close();
}

void WarningListHost::RefreshTexts() {
  if (!_dialog) return;
  _dialog->ReloadTexts();
  auto& list = _dialog->Find<KorDlgMultiList>(kList);
  int row = 0;
  for (const std::string& line : _lines()) list.SetColumnItem(0, line, row++);
}

}  // namespace desktop
