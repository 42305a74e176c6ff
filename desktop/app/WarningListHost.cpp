#include "desktop/app/WarningListHost.h"

#include <QMetaObject>

namespace desktop {
namespace {

constexpr const char* kGeometryKey = "warnings/geometry";
constexpr QSize kFirstSize(760, 320);  ///< device-independent pixels; room for a line of a report

}  // namespace

WarningListHost::WarningListHost(const CommandsLibrary& library, QtBackend& backend, Settings& settings)
    : _library(library), _backend(backend), _settings(settings) {}

WarningListHost::~WarningListHost() = default;

bool WarningListHost::Show(const std::vector<std::string>& lines) {
  if (lines.empty()) return true;
  if (!_library.Commands()) return false;
  Close();
  _dialog = _library.Commands()->CreateWarningList({lines.begin(), lines.end()});
  _dialog->Subscribe(KorEvent::WindowClose, [this](auto...) {
    QMetaObject::invokeMethod(
        this, [this] { CloseIfHidden(); }, Qt::QueuedConnection);
  });
  _dialog->Attach(&_backend);
  if (!Window()->restoreGeometry(_settings.WindowState(kGeometryKey))) Window()->resize(kFirstSize);
  _dialog->SetVisibility(KorVisibility::Shown);
  return true;
}

void WarningListHost::Close() {
  if (!_dialog) return;
  _settings.SetWindowState(kGeometryKey, Window()->saveGeometry());
  _dialog->Detach();
  _dialog.reset();
}

void WarningListHost::CloseIfHidden() {
  if (_dialog && !_dialog->IsShown()) Close();
}

void WarningListHost::RefreshTexts() {
  if (_dialog) _dialog->ReloadTexts();
}

}  // namespace desktop
