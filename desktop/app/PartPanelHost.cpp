#include "desktop/app/PartPanelHost.h"

#include <QMetaObject>

#include "desktop/app/PartPanelEditors.h"
#include "desktop/app/Questions.h"
#include "desktop/app/Texts.h"
#include "desktop/app/UnreadQuestion.h"
#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/views/DialogView.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgTabContainer.h"
#include "protocol/Codec.h"
#include "protocol/ErrorReply.h"

namespace desktop {
namespace {

constexpr const char* kGeometryKey = "partPanel/geometry";
constexpr const char* kPages = "TabContainer001";
constexpr const char* kSave = "Frame238.SaveButton";
constexpr const char* kCompute = "Frame238.ComputeButton";

/// Which pages and handlers a panel has is decided when it is laid out, for its first part.
bool HasSamePages(const LumWBAllDataBuffer& one, const LumWBAllDataBuffer& other) {
  return one.AreOldDocumentsUsed() == other.AreOldDocumentsUsed() &&
         one.AdditionalInfoRequested() == other.AdditionalInfoRequested() &&
         one.AreDateTypePropertiesPresent() == other.AreDateTypePropertiesPresent() &&
         one.HasInstInLUMIRA() == other.HasInstInLUMIRA();
}

void BringToFront(KorDlgTabContainer& pages, const KorDlgObject& widget) {
  const KorDlgObject* page = &widget;
  while (page->Parent() != &pages) page = page->Parent();
  for (int index = 0; index < pages.GetPageCount(); ++index)
    if (pages.GetPage(index) == page) pages.Pick(index);
}

/// A pick of the property that is shown would make the panel take its text, and show it anew.
void ShowProperty(KorDlgDialog& panel, int property) {
  if (property != ShownProperty(panel)) panel.Find<KorDlgCombo>(kPropertyNamePath).Pick(property - 1);
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
  if (_panel && (HasTypedValues() || !HasSamePages(*_buffer, *buffer))) Close();
  _buffer = buffer;
  if (_panel)
    _panel->Bind(*_buffer);
  else
    Open();
  _stored.Take(*_buffer);
  _marks->Update();
  return {};
}

void PartPanelHost::Open() {
  _panel = _library.Commands()->CreatePartPanel(*_buffer);
  KorDlgDialog& dialog = _panel->Dialog();
  ListenToSaving();
  _marks = std::make_unique<PartPanelMarks>(
      dialog, [this]() -> auto& { return *_buffer; },
      [this](int index) { return _stored.HasProperty(*_buffer, index); });
  _typed = std::make_unique<TypedValues>(
      dialog, [this](const char* key, const auto& massType) { return MayDrop(key, massType); });
  _saveAtRisk = _answerWasLost = false;
  _answered = Answered::Nothing;
  ListenToClosing();
  dialog.Attach(&_backend);
  RestoreWantedGeometry(*Window(), _settings.WindowState(kGeometryKey));
  dialog.SetVisibility(KorVisibility::Shown);
}

void PartPanelHost::ListenToClosing() {
  KorDlgDialog& dialog = _panel->Dialog();
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
}

/// The panel has subscribed before: it is done with what the server answered when these are called.
void PartPanelHost::ListenToSaving() {
  KorDlgDialog& dialog = _panel->Dialog();
  auto& save = dialog.Find<KorDlgPushButton>(kSave);
  save.SetGuard([this] { return MaySave(); });
  for (KorDlgPushButton* button : {&save, &dialog.Find<KorDlgPushButton>(kCompute)})
    button->Subscribe(KorEvent::PushActivate, [this](auto...) { TakeWhatServerHas(); });
}

bool PartPanelHost::MaySave() {
  if (_isAsking) return false;
  const std::vector<UnreadText> texts = _marks->Find();
  if (texts.empty()) return true;
  _isAsking = true;
  const bool agrees = AgreesToStoreInstead(_panel->Dialog(), *_buffer, texts);
  _isAsking = false;
  if (!agrees) GoTo(texts.front());
  return agrees;
}

bool PartPanelHost::MayDrop(const char* textKey, const KorUnicodeString& massType) {
  if (_isAsking) return false;
  _isAsking = true;
  const bool agrees = UserAgrees(&_panel->Dialog(), {"Unsaved.Title", "Unsaved.GiveUp", "Unsaved.Keep"},
                                 Text(textKey, {ToQt(massType)}));
  _isAsking = false;
  return agrees;
}

void PartPanelHost::GoTo(const UnreadText& text) {
  KorDlgDialog& dialog = _panel->Dialog();
  BringToFront(dialog.Find<KorDlgTabContainer>(kPages), *text.editor);
  if (text.property) ShowProperty(dialog, text.property);
  // The list of revisions can be picked from in the choice of one only.
  const KorDlgObject& target = text.editor->IsEnabled() ? *text.editor : dialog.Find(kPages);
  if (const QtView* view = _backend.ViewOf(target)) view->Qt()->setFocus();
}

void PartPanelHost::SaveEnded(const KorUnicodeString& reply) {
  KorUnicodeString part;
  if (_buffer) _buffer->GetPartIdentifier(part);
  const auto read = protocol::ReadSaveReply(reply.Utf8());
  _saveAtRisk = !read || read.Value().partId != part.Utf8();
  // An error reply says that this save was not stored, and nothing about one before it.
  _answerWasLost = _saveAtRisk && (_answerWasLost || !protocol::IsErrorReply(reply.Utf8()));
  if (!_saveAtRisk) _answered = Answered::Save;
}

void PartPanelHost::TakeWhatServerHas() {
  const Answered answered = std::exchange(_answered, Answered::Nothing);
  if (answered == Answered::Save) _stored.Take(*_buffer);
  if (answered == Answered::Compute) _stored.TakeComputed(*_buffer);
}

void PartPanelHost::Close() {
  if (_panel) {
    _settings.SetWindowState(kGeometryKey, SaveWantedGeometry(*Window()));
    _panel->Dialog().Detach();
  }
  _panel.reset();
  _marks.reset();
  _typed.reset();
  _buffer = {};
}

void PartPanelHost::Raise() const {
  if (!_panel) return;
  Window()->raise();
  Window()->activateWindow();
}

bool PartPanelHost::Compute() { return _panel && _panel->Dialog().Find<KorDlgPushButton>(kCompute).Press(); }

void PartPanelHost::RefreshValues() {
  if (_panel) _panel->Refresh();
}

void PartPanelHost::RefreshTexts() {
  if (!_panel) return;
  _panel->Dialog().ReloadTexts();
  if (!HasTypedValues()) _panel->Refresh();
  _marks->Update();
}

QWidget* PartPanelHost::Window() const { return _panel ? _backend.WindowOf(&_panel->Dialog()) : nullptr; }

}  // namespace desktop
