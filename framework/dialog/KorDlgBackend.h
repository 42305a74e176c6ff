#pragma once

#include <optional>
#include <vector>

#include "framework/dialog/KorDlgConstants.h"
#include "framework/system/KorUnicodeString.h"

class KorDlgDialog;
class KorDlgObject;

/// A message box.
struct KorDlgMessage {
  KorDlgDialog* parent = nullptr;  ///< null: the main window
  KorUnicodeString title;
  KorUnicodeString text;
  unsigned flags = 0;

  static constexpr unsigned kError = 0x10000000;  ///< errors and warnings
  static constexpr unsigned kInformation = 0x8000000;
};

/// A question with named answers.
struct KorDlgQuestion {
  KorDlgDialog* parent = nullptr;
  KorUnicodeString title;
  KorUnicodeString text;
  std::vector<KorUnicodeString> answers;
  int preferred = 0;  ///< index of the answer that Enter gives
};

/// A request for the name of a file to open or to write.
struct KorDlgFileRequest {
  enum class Mode { Open, Save };
  KorDlgDialog* parent = nullptr;
  KorUnicodeString title;
  KorUnicodeString pattern;  ///< such as "*.csv"
  Mode mode = Mode::Open;
};

/// The whole contract of a toolkit.
///
/// A backend shows what the widgets hold. When a dialog is attached it is told each widget, parents first, by
/// Created and then each of its properties by Changed; from then on each change. It reads the values from the
/// widget, skips what it already shows, keeps no state of its own and takes no decision. What a user does it
/// hands to the verbs of the widgets (Press, Type, Pick, Check, ...), which answer through Changed.
class KOR_FRAMEWORK_API KorDlgBackend {
 public:
  virtual ~KorDlgBackend();

  // ---- widgets ----
  virtual void Created(KorDlgObject& widget) = 0;
  virtual void Changed(KorDlgObject& widget, KorDlgProperty property) = 0;
  /// The widget is about to go, its children have gone.
  virtual void Destroyed(KorDlgObject& widget) = 0;

  // ---- boxes; each returns when the user has answered ----
  virtual void ShowMessage(const KorDlgMessage& message) = 0;
  /// Index of the answer; nothing when the user closed the box.
  virtual std::optional<int> Ask(const KorDlgQuestion& question) = 0;
  virtual std::optional<KorUnicodeString> ChooseFile(const KorDlgFileRequest& request) = 0;
};
