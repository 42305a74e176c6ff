#pragma once

#include "framework/dialog/KorDlgObject.h"

/// A window of widgets. Created hidden and without a backend; the host attaches it and shows it.
class KOR_FRAMEWORK_API KorDlgDialog : public KorDlgObject {
 public:
  KorDlgDialog(KorDlgDialog* parent, const char* name, unsigned style);
  KorDlgDialog(const KorDlgDialog& other);
  KorDlgDialog& operator=(const KorDlgDialog& other);
  ~KorDlgDialog() override;

  KorDlgKind Kind() const override { return KorDlgKind::Dialog; }

  /// Lays the widgets out; derived dialogs build their tree here.
  virtual void Build() {}
  /// The message catalogues of the dialog, most derived first; empty behind the last. The base has none.
  virtual KorString GetResourceFilename(int index) const;

  /// Shows the whole current state on `backend` and keeps it told from then on.
  void Attach(KorDlgBackend* backend);
  void Detach();

  /// A text of the dialog's own catalogues; `fallback` when none has the key.
  KorUnicodeString CatalogueText(const KorString& key, const KorUnicodeString& fallback = {}) const;
  /// Reads all texts from the catalogues again, after a change of language. Texts set by code stay.
  void ReloadTexts();

  // ---- verbs ----
  bool PressOK();
  bool PressCancel();
  /// The window's close button, and the Close button of a list dialog, which is hidden by it.
  bool CloseWindow();

 protected:
  KorDlgBackend* Backend() const override { return _backend; }

 private:
  friend class KorDlgObject;
  KorDlgBackend* _backend = nullptr;
};
