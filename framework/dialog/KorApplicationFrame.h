#pragma once

#include "framework/dialog/KorDlgBackend.h"
#include "framework/dialog/KorDlgDialog.h"

/// The application: its main window, its toolkit, its boxes.
class KOR_FRAMEWORK_API KorApplicationFrame {
 public:
  /// The main window; parent of dialogs that have none. Never null.
  static KorDlgDialog* GetMainWindow();

  /// The toolkit that shows boxes; null: none, and boxes are answered as if closed. Must outlive its use
  /// here.
  static void SetBackend(KorDlgBackend* backend);
  static KorDlgBackend* GetBackend();

  static void ShowMessage(const KorDlgMessage& message);
  static std::optional<int> Ask(const KorDlgQuestion& question);
  static std::optional<KorUnicodeString> ChooseFile(const KorDlgFileRequest& request);
};
