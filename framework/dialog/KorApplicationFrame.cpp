#include "framework/dialog/KorApplicationFrame.h"

namespace {
KorDlgBackend* g_backend = nullptr;
}  // namespace

KorDlgBackend::~KorDlgBackend() = default;

KorDlgDialog* KorApplicationFrame::GetMainWindow() {
  static KorDlgDialog mainWindow(nullptr, "MainWindow", KorDlgStyle::kNone);
  return &mainWindow;
}

void KorApplicationFrame::SetBackend(KorDlgBackend* backend) { g_backend = backend; }

KorDlgBackend* KorApplicationFrame::GetBackend() { return g_backend; }

void KorApplicationFrame::ShowMessage(const KorDlgMessage& message) {
  if (g_backend) g_backend->ShowMessage(message);
}

std::optional<int> KorApplicationFrame::Ask(const KorDlgQuestion& question) {
  return g_backend ? g_backend->Ask(question) : std::nullopt;
}

std::optional<KorUnicodeString> KorApplicationFrame::ChooseFile(const KorDlgFileRequest& request) {
  return g_backend ? g_backend->ChooseFile(request) : std::nullopt;
}
