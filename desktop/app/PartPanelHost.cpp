#include "desktop/app/PartPanelHost.h"

#include <QMetaObject>

#include "desktop/toolkit/views/DialogView.h"
#include "framework/dialog/KorDlgPushButton.h"

namespace desktop {
namespace {

constexpr const char* kGeometryKey = "partPanel/geometry";

/// Which pages and handlers a panel has is decided when it is laid out, for its first part.
bool HasSamePages(const LumWBAllDataBuffer& one, const LumWBAllDataBuffer& other) {
  return one.AreOldDocumentsUsed() == other.AreOldDocumentsUsed() &&
         one.AdditionalInfoRequested() == other.AdditionalInfoRequested() &&
         one.AreDateTypePropertiesPresent() == other.AreDateTypePropertiesPresent() &&
         one.HasInstInLUMIRA() == other.HasInstInLUMIRA();
}

}  // namespace

PartPanelHost::PartPanelHost(const CommandsLibrary& library, QtBackend& backend, Settings& settings)
    : _library(library), _backend(backend), _settings(settings) {}

PartPanelHost::~PartPanelHost() = default;

protocol::Result<void> PartPanelHost::Show(const std::string& partDataText) {
  if (!_library.Commands())
    return protocol::Error{protocol::ErrorKind::NotFound, _library.WhyNot().toStdString()};
  auto buffer = LumWBAllDataBuffer_var::Adopt(new LumWBAllDataBuffer);
  if (Failed(buffer->SetAllData(partDataText, true)))
    return protocol::Error{protocol::ErrorKind::BadText, buffer->GetLastRefusal().Utf8()};
  // After a save that failed, binding would leave "ComputeButton" off for a part that nobody has edited.
  if (_panel && (HasUnsavedValues() || !HasSamePages(*_buffer, *buffer))) Close();
  _buffer = buffer;
  if (_panel)
    _panel->Bind(*_buffer);
  else
    Open();
  _marks->Update();
  return {};
}

void PartPanelHost::Open() {
  _panel = _library.Commands()->CreatePartPanel(*_buffer);
  KorDlgDialog& dialog = _panel->Dialog();
  _marks = std::make_unique<PartPanelMarks>(
      dialog, [this]() -> auto& { return *_buffer; });
  _saveFailed = false;
  // A notification may not destroy its sender: the panel goes when control is back in the event loop.
  const auto close = [this](auto...) {
    QMetaObject::invokeMethod(
        this,
        [this] {
          if (mayClose()) Close();
        },
        Qt::QueuedConnection);
  };
  dialog.Find<KorDlgPushButton>("Frame238.CloseButton").Subscribe(KorEvent::PushActivate, close);
  dialog.Subscribe(KorEvent::WindowClose, close);
  dialog.Attach(&_backend);
  RestoreWantedGeometry(*Window(), _settings.WindowState(kGeometryKey));
  dialog.SetVisibility(KorVisibility::Shown);
}

void PartPanelHost::Close() {
  if (_panel) {
    _settings.SetWindowState(kGeometryKey, SaveWantedGeometry(*Window()));
    _panel->Dialog().Detach();
  }
  _panel.reset();
  _marks.reset();
  _buffer = {};
}

void PartPanelHost::Raise() const {
  if (!_panel) return;
  Window()->raise();
  Window()->activateWindow();
}

bool PartPanelHost::Compute() {
  return _panel && _panel->Dialog().Find<KorDlgPushButton>("Frame238.ComputeButton").Press();
}

void PartPanelHost::RefreshValues() {
  if (_panel) _panel->Refresh();
}

void PartPanelHost::RefreshTexts() {
  if (!_panel) return;
  _panel->Dialog().ReloadTexts();
  if (!HasUnsavedValues()) _panel->Refresh();
  _marks->Update();
}

QWidget* PartPanelHost::Window() const { return _panel ? _backend.WindowOf(&_panel->Dialog()) : nullptr; }

}  // namespace desktop
