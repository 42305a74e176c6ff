#include "framework/dialog/KorDlgDialog.h"

#include "framework/dialog/KorDlgBackend.h"
#include "framework/dialog/KorMsgCatalog.h"

KorDlgDialog::KorDlgDialog(KorDlgDialog* parent, const char* name, unsigned style)
    : KorDlgObject(parent, name, style) {
  SetVisibility(KorVisibility::Hidden);
}

KorDlgDialog::KorDlgDialog(const KorDlgDialog& other) : KorDlgObject(other) {}

KorDlgDialog& KorDlgDialog::operator=(const KorDlgDialog& other) {
  KorDlgObject::operator=(other);
  if (_backend) LoadTexts();  // an original that was never attached has no texts of its catalogues yet
  return *this;
}

KorDlgDialog::~KorDlgDialog() { Detach(); }

KorString KorDlgDialog::GetResourceFilename(int) const { return {}; }

void KorDlgDialog::Attach(KorDlgBackend* backend) {
  if (backend == _backend) return;
  Detach();
  _backend = backend;
  LoadTexts();  // only now: the constructor of the base does not know the derived dialog's catalogues
  if (_backend) Replay(*_backend);
}

void KorDlgDialog::Detach() {
  if (!_backend) return;
  NotifyDestroyed(*_backend);
  _backend = nullptr;
}

KorUnicodeString KorDlgDialog::CatalogueText(const KorString& key, const KorUnicodeString& fallback) const {
  for (int level = 0;; ++level) {
    const KorString catalogue = GetResourceFilename(level);
    if (catalogue.empty()) return fallback;
    if (KorMsgCatalog::Has(catalogue, key)) return KorMsgCatalog::BuildMessage(catalogue, key);
  }
}

void KorDlgDialog::ReloadTexts() { LoadTextsBelow(); }

bool KorDlgDialog::PressOK() {
  if (!CanAct("PressOK")) return false;
  Notify(KorEvent::DialogOK);
  return true;
}

bool KorDlgDialog::PressCancel() {
  if (!CanAct("PressCancel")) return false;
  Notify(KorEvent::DialogCancel);
  return true;
}

bool KorDlgDialog::CloseWindow() {
  if (!CanAct("CloseWindow")) return false;
  Notify(KorEvent::WindowClose);
  // A list has nothing to ask or to keep: it goes by itself.
  if (Style() == KorDlgStyle::kListDialog) SetVisibility(KorVisibility::Hidden);
  return true;
}
