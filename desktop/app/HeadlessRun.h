#pragma once

#include <QTemporaryDir>

#include "desktop/app/MainWindow.h"
#include "desktop/toolkit/HeadlessBoxes.h"

namespace desktop {

/// The main job without a display: makes and opens the sample product, computes an assembly in the part panel
/// by the verbs that a user's clicks end in, and leaves the screens as pictures and the values as text in a
/// folder.
class HeadlessRun {
 public:
  explicit HeadlessRun(const QString& folder);
  ~HeadlessRun();

  /// Stops at the first step that fails. A message box is a failure, too: nobody is there to read it.
  protocol::Result<void> Run();
  /// What was shown in message boxes.
  const std::vector<KorDlgMessage>& Messages() const { return _boxes.Messages(); }

 private:
  protocol::Result<void> RunSteps();
  protocol::Result<void> OpenSample();
  protocol::Result<void> ComputeInPanel(const std::string& part);
  protocol::Result<void> SavePages();
  protocol::Result<void> SaveCustomReference();
  protocol::Result<void> CheckReference(const std::string& button);
  protocol::Result<void> SaveUnitSystem(const char* system, const QString& file);
  protocol::Result<void> SaveTheme(ThemeChoice theme, const QString& windowFile, const QString& panelFile);
  protocol::Result<void> Save(QWidget* window, const QString& file);
  protocol::Result<void> SaveValues();

  QString _folder;
  QTemporaryDir _scratch;  ///< product and settings of this run alone
  Settings _settings;
  HeadlessBoxes _boxes;
  QtBackend _backend;
  MainWindow _window;
  std::string _values;
};

}  // namespace desktop
