#pragma once

#include <QString>
#include <functional>

#include "desktop/toolkit/Boxes.h"

class QWidget;

namespace desktop {

/// Boxes on the screen, modal to the window they belong to.
class QtBoxes : public Boxes {
 public:
  /// Finds the window of a dialog; null: the application's main window.
  using WindowOf = std::function<QWidget*(KorDlgDialog* dialog)>;
  explicit QtBoxes(WindowOf windowOf) : _windowOf(std::move(windowOf)) {}

  void ShowMessage(const KorDlgMessage& message) override;
  std::optional<int> Ask(const KorDlgQuestion& question) override;
  std::optional<KorUnicodeString> ChooseFile(const KorDlgFileRequest& request) override;

 private:
  WindowOf _windowOf;
  QString _folder;  ///< of the file chosen last; empty before the first
};

}  // namespace desktop
