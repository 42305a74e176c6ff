#pragma once

#include <QMainWindow>
#include <QPersistentModelIndex>
#include <QPointer>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "desktop/app/BusyIndicator.h"
#include "desktop/app/CatalogueProblems.h"
#include "desktop/app/CommandsLibrary.h"
#include "desktop/app/FilterInForce.h"
#include "desktop/app/FilterPanelHost.h"
#include "desktop/app/PartPanelHost.h"
#include "desktop/app/ProductSession.h"
#include "desktop/app/ProductTreeModel.h"
#include "desktop/app/Settings.h"
#include "desktop/app/Tracing.h"
#include "desktop/app/WarningListHost.h"
#include "lumira/import/ImportReport.h"
#include "protocol/History.h"

class QAction;
class QActionGroup;
class QLabel;
class QMenu;
class QTreeView;

namespace desktop {

class ElidedLabel;
class HistoryDialog;
class SearchBox;
class SelectionPane;

/// The main window: the product tree, what is selected, the commands, and a status bar with server and unit
/// system.
class MainWindow : public QMainWindow {
 public:
  /// Settings and backend must outlive the window.
  MainWindow(Settings& settings, QtBackend& backend);
  ~MainWindow() override;

  /// Opens a product file; tells the user why not and keeps the open one on failure.
  bool OpenProduct(const QString& file);
  /// Makes an empty product file and opens it; tells the user why not on failure.
  bool CreateProduct(const QString& file);
  /// Opens the sample product in the user's data folder, making it first where there is none. Where there is
  /// one that is damaged or of another version, the user may have it made anew.
  bool OpenSample();
  /// Opens a product at the start: the named one, else the last one, else the sample. A last one that cannot
  /// be opened gives way to the sample.
  void OpenAtStart(const QString& product);

  /// Selects an occurrence, expanding the tree down to it; false when there is none.
  bool Select(const std::string& product, const std::vector<std::string>& instancePath);
  /// Opens the part panel on what is selected.
  void ShowPartPanel();
  /// Shows the saves of the selected part.
  void ShowHistory();
  /// Saves a part again as it was before or after one of its saves, after asking the user. Tells why not when
  /// the server refuses it, as it does when the part is not in the state of the token any more: that in which
  /// the user has seen it.
  void SaveAgain(const protocol::HistoryStateRequest& wanted, const std::string& seenToken);
  /// Computes what is selected by the part panel, opening it first where it is closed.
  void Compute();
  /// Opens the filter panel on the product of what is selected.
  void ShowFilterPanel();
  /// Adds what is selected to the open filter panel; tells the user what cannot be added.
  void AddToFilter();
  /// Shows what imports left out and what looks wrong; nothing when there is neither.
  void ShowImportReports(const std::vector<lumira::ImportReport>& reports);
  /// Shows all values anew, after a change of units.
  void UnitsChanged();
  /// False, with the language as it was, when there is no such language.
  bool ChooseLanguage(const QString& language);
  void ChooseTheme(ThemeChoice theme);
  /// Tells of catalogues with problems that nobody has been told of, and of a chosen language without its
  /// folder, in a box and on standard error.
  void TellCatalogueProblems();
  /// Tells of what went wrong while the program started: commands that cannot be loaded, traces that cannot
  /// be written, catalogues.
  void TellStartProblems();
  /// Tells once of a trace that could not be written.
  void TellOfLostTrace();

  const ProductSession& Session() const { return _session; }
  PartPanelHost& PartPanel() { return _partPanel; }
  FilterPanelHost& FilterPanel() { return _filterPanel; }
  WarningListHost& Warnings() { return _warnings; }
  ProductTreeModel& Tree() { return *_model; }
  QTreeView& TreeView() { return *_tree; }
  SelectionPane& Selection() { return *_pane; }
  /// Null while none is open.
  HistoryDialog* History() const;
  SearchBox& Search() { return *_search; }
  /// A command by its name in the table of commands, such as "PartPanel"; null when there is none.
  QAction* Command(const std::string& name) const;
  static QStringList CommandNames();
  QString UnitSystemText() const;
  QString ServerText() const;
  /// The filter of the selected product, and what it means.
  QString FilterText() const;
  QString FilterMeaning() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  struct CommandRow;
  static const CommandRow kCommands[];

  // building
  void BuildCentre();
  QTreeView* BuildTree();
  void BuildCommands();
  void BuildChoices();
  void StartTracing();
  void BuildStatusBar();
  QMenu* Menu(const char* key);
  void AddChoice(QMenu* menu, const QString& value, std::function<void()> choose);
  void ShowTexts();
  void ShowRecentProducts();
  void ShowChoices();

  // commands
  void AskForProduct();
  void AskForNewProduct();
  void AskForTables();
  void OpenSampleCommand() { OpenSample(); }
  void FocusSearch();
  void AskForUnits();
  void AskForTracing();
  void ShowAbout();
  void Quit() { close(); }

  protocol::Result<void> Open(const QString& file);
  bool MakeSample();
  /// Asks for leave to replace a sample that will never open; of any other failure it only tells.
  bool MayMakeSampleAnew(const protocol::Error& why);
  bool AskToMakeSampleAnew(const std::string& reason);
  void ForgetIfGone(const QString& file, const protocol::Error& why);
  void ReloadTree();
  void SelectionChanged();
  /// Whether the current cell of the tree is one of the line that the part panel is bound to, in any column.
  bool IsOnPanelLine() const;
  void DecideOnSelection();
  void ShowChangedSelection();
  /// Asks for leave to lose what has been typed into the part panel and not been saved; true when there is
  /// nothing of the kind. Everything that closes or binds the panel asks here first. While one question
  /// stands open the answer to any other is no.
  bool MayGiveUpValues();
  bool AskToSaveAgain(const protocol::HistoryStateRequest& wanted) const;
  void RefuseToSaveAgain(const std::string& part, const std::string& why);
  void ReloadHistoryOf(const std::string& part);
  bool ShowsInPanel(const std::string& part) const;
  void ValuesSaved(const KorUnicodeString& reply);
  /// Shows the selected part in the pane. Its data as the server sent it; nothing, with the pane as it was,
  /// when they cannot be read.
  std::optional<std::string> ShowSelection();
  void BindPartPanel(const std::string& partDataText);
  void ServerCommandEnded(const KorUnicodeString& command, const KorUnicodeString& reply);
  /// After a save of a part; after a compute, of none.
  void ValuesChanged(const std::string& savedPart);
  void FilterChanged();
  void ShowFilter();
  /// Says in the status bar why the current line is grey or in italics: its tooltip needs a mouse.
  void SayWhyMarked();
  void TellFilter();
  void AddToFilter(const std::vector<OccurrencePlace>& places);
  void ShowAdditions(const FilterPanelHost::Additions& additions);
  std::vector<OccurrencePlace> SelectedPlaces() const;
  void ShowTreeMenu(const QPoint& place);
  /// Without the library of commands, which has the list of warnings, in a box.
  void ShowWarnings(const std::function<WarningListHost::Lines()>& linesOfNow);
  void ShowFindings();
  void ShowImportReportsAndFindings(const std::vector<lumira::ImportReport>& reports);
  /// Asks whether rows of the filter panel that were not confirmed may go; true when there are none.
  bool MayLoseFilterRows();
  /// Asks for leave to lose what panels on the open product hold and nobody has confirmed or saved.
  bool MayCloseProduct() { return MayLoseFilterRows() && MayGiveUpValues(); }
  bool OpenAndTell(const QString& file);
  void ClosePanels();
  void ShowInformation(const char* titleKey, const QString& text);
  void ShowError(const char* titleKey, const std::string& text);
  void ShowStatus();
  QString SampleFile() const;

  Settings& _settings;
  QtBackend& _backend;
  ProductSession _session;
  BusyIndicator _busy;
  CatalogueProblems _catalogueProblems;
  Tracing _tracing;
  QStringList _tracingProblems;
  CommandsLibrary _library;  ///< unloaded when the panels are gone
  PartPanelHost _partPanel;
  FilterPanelHost _filterPanel;
  WarningListHost _warnings;
  FilterInForce _shownFilter;
  QString _saidOfMark;               ///< what the status bar was last told of the current line's mark
  FilterInForce _panelFilter;        ///< that the part panel is bound under
  QPersistentModelIndex _panelLine;  ///< of the tree, column 0, that the part panel is bound to
  bool _panelIsOld = false;          ///< a part was saved elsewhere since the part panel was bound
  bool _savesAgain = false;          ///< a save that runs is not the panel's
  bool _asksForValues = false;       ///< whether typed values may go; a question stands open
  bool _decidesOnSelection = false;  ///< a decision waits or is being made
  QPointer<HistoryDialog> _history;
  ProductTreeModel* _model;
  QTreeView* _tree;
  SelectionPane* _pane;
  SearchBox* _search;
  ElidedLabel* _filter;
  QLabel* _server;
  QLabel* _units;
  std::map<std::string, QMenu*> _menus;           ///< by the key of the title
  std::map<std::string, QAction*> _actions;       ///< by the name of the command
  std::map<std::string, QActionGroup*> _choices;  ///< by the key of the menu
};

}  // namespace desktop
