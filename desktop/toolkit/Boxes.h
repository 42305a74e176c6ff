#pragma once

#include "framework/dialog/KorDlgBackend.h"

namespace desktop {

/// Who answers message boxes, questions and file choosers: the user, or a script.
class Boxes {
 public:
  virtual ~Boxes() = default;
  virtual void ShowMessage(const KorDlgMessage& message) = 0;
  /// Index of the answer; nothing when the box was closed.
  virtual std::optional<int> Ask(const KorDlgQuestion& question) = 0;
  virtual std::optional<KorUnicodeString> ChooseFile(const KorDlgFileRequest& request) = 0;
};

}  // namespace desktop
