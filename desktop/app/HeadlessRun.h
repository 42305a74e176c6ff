#pragma once

#include <QTemporaryDir>

#include "desktop/app/MainWindow.h"
#include "desktop/app/PartValues.h"
#include "desktop/toolkit/HeadlessBoxes.h"

namespace desktop {

/// The main job without a display: makes and opens the sample product, computes an assembly in the part panel
/// by the verbs that a user's clicks end in, and leaves the screens as pictures and the values as text in a
/// folder. The same under each filter of the product, and under one of two instances. At last it edits and
/// saves a part, and computes the assembly anew.
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
  /// `filter` names the one in force in the values; empty: none is.
  protocol::Result<void> ComputeInPanel(const std::string& part, const std::string& filter = {});
  /// Selects the part, opens the panel on it and computes it there.
  protocol::Result<PartValues> Compute(const std::string& part);
  protocol::Result<void> ShowInPanel(const std::string& part);
  /// Pages of an assembly, which has neither documents nor properties of its own, or all.
  enum class Pages { OfAssembly, All };
  enum class Looks { AsItIs, All };
  /// Pictures of each page that can be picked, named `start` and the page; those that are there stay.
  protocol::Result<void> SavePages(const QString& start, Pages pages, Looks looks);
  protocol::Result<void> PickPage(const std::string& page);
  protocol::Result<void> SaveCustomReference();
  protocol::Result<void> CheckInPanel(const std::string& button);
  protocol::Result<void> SaveUnitSystem(const char* system, const QString& file);
  protocol::Result<void> SaveTheme(ThemeChoice theme, const QString& windowFile, const QString& panelFile);
  protocol::Result<void> Save(QWidget* window, const QString& file);
  /// As it is, on a dark ground and in the other languages.
  protocol::Result<void> SaveLooks(QWidget* window, const QString& name);
  protocol::Result<void> SaveValues();
  // editing
  protocol::Result<void> EditAndSave();
  protocol::Result<void> ShowContent();
  protocol::Result<void> SaveChoiceOfRevision();
  protocol::Result<void> TypeMass(const std::string& massType, const std::string& mass);
  protocol::Result<void> PressInPanel(const std::string& button);
  protocol::Result<void> SaveMark();
  protocol::Result<void> SaveQuestion(const KorDlgQuestion& question, const QString& file);
  protocol::Result<void> SaveConsequences();
  protocol::Result<void> TellChange();
  protocol::Result<void> SaveHistory(const std::string& part);
  // filters and warnings
  protocol::Result<void> ComputeUnderFilters();
  protocol::Result<void> ComputeUnderConfiguration(const std::string& name);
  protocol::Result<void> ComputeUnderInstances();
  protocol::Result<KorDlgDialog*> OpenFilterPanel(const std::string& kind);
  protocol::Result<void> ChooseConfiguration(const std::string& name);
  protocol::Result<void> AddInstances();
  protocol::Result<void> SaveWarnings();

  QString _folder;
  QTemporaryDir _scratch;  ///< product and settings of this run alone
  Settings _settings;
  HeadlessBoxes _boxes;
  QtBackend _backend;
  MainWindow _window;
  std::string _values;
  QStringList _pictures;  ///< files made so far
};

}  // namespace desktop
