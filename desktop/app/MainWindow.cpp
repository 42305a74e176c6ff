#include "desktop/app/MainWindow.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>
#include <QTreeView>
#include <QVBoxLayout>
#include <array>

#include "desktop/app/ElidedLabel.h"
#include "desktop/app/HistoryDialog.h"
#include "desktop/app/Icons.h"
#include "desktop/app/SearchBox.h"
#include "desktop/app/SelectionPane.h"
#include "desktop/app/Texts.h"
#include "desktop/toolkit/QtText.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "framework/knowledge/KorUnitSystems.h"

namespace desktop {
namespace {

constexpr const char* kGeometryKey = "mainWindow/geometry";
constexpr const char* kSplitterKey = "mainWindow/splitter";
constexpr const char* kColumnsKey = "mainWindow/columns";
constexpr const char* kRecentMenu = "Menu.Recent";
constexpr const char* kThemeMenu = "Menu.Theme";
constexpr const char* kLanguageMenu = "Menu.Language";

constexpr int kMostOfFilterName = 40;  ///< characters that the status bar has room for

enum class OnToolbar { No, Yes };
/// What must be there for a command; with the library of weight-and-balance commands, a selection too.
enum class Needs { Nothing, Selection, Library };

/// Widths of the tree's columns at the first start, characters; the names take what is left.
constexpr std::array kColumnWidths{18, 18, 12, 20, 21};

}  // namespace

/// One command: where it stands, how it looks, what it does. Its texts have the keys "Command.<name>.Title"
/// and ".ShortHelp".
struct MainWindow::CommandRow {
  const char* name;
  const char* menu;
  QIcon (*icon)();   ///< null: none
  const char* keys;  ///< empty: none
  OnToolbar onToolbar;
  void (MainWindow::*run)();
  Needs needs = Needs::Nothing;
};

const MainWindow::CommandRow MainWindow::kCommands[] = {
    {"OpenProduct", "Menu.File", icons::OpenProduct, "Ctrl+O", OnToolbar::Yes, &MainWindow::AskForProduct},
    {"NewProduct", "Menu.File", nullptr, "Ctrl+N", OnToolbar::No, &MainWindow::AskForNewProduct},
    {"ImportTables", "Menu.File", icons::Import, "Ctrl+I", OnToolbar::Yes, &MainWindow::AskForTables},
    {"OpenSample", "Menu.File", nullptr, "", OnToolbar::No, &MainWindow::OpenSampleCommand},
    {"Quit", "Menu.File", nullptr, "Ctrl+Q", OnToolbar::No, &MainWindow::Quit},
    {"PartPanel", "Menu.Weight", icons::PartPanel, "Ctrl+P", OnToolbar::Yes, &MainWindow::ShowPartPanel,
     Needs::Library},
    {"Compute", "Menu.Weight", nullptr, "F5", OnToolbar::No, &MainWindow::Compute, Needs::Library},
    {"Filter", "Menu.Weight", icons::Filter, "Ctrl+L", OnToolbar::Yes, &MainWindow::ShowFilterPanel,
     Needs::Library},
    {"TellFilter", "Menu.Weight", nullptr, "Ctrl+Shift+F", OnToolbar::No, &MainWindow::TellFilter,
     Needs::Library},
    {"AddToFilter", "Menu.Weight", nullptr, "Ctrl+Shift+L", OnToolbar::No, &MainWindow::AddToFilter,
     Needs::Library},
    {"History", "Menu.Weight", nullptr, "Ctrl+H", OnToolbar::No, &MainWindow::ShowHistory, Needs::Selection},
    {"Find", "Menu.View", icons::Find, "Ctrl+F", OnToolbar::No, &MainWindow::FocusSearch},
    {"Units", "Menu.Settings", icons::Units, "Ctrl+U", OnToolbar::Yes, &MainWindow::AskForUnits},
    {"Tracing", "Menu.Settings", nullptr, "", OnToolbar::No, &MainWindow::AskForTracing},
    {"About", "Menu.Help", nullptr, "", OnToolbar::No, &MainWindow::ShowAbout},
};

MainWindow::MainWindow(Settings& settings, QtBackend& backend)
    : _settings(settings),
      _backend(backend),
      _busy(statusBar()),
      _partPanel(_library, backend, settings),
      _filterPanel(_library, backend, settings),
      _warnings(_library, backend, settings),
      _model(new ProductTreeModel(this)),
      _tree(new QTreeView),
      _pane(new SelectionPane),
      _search(new SearchBox),
      _filter(new ElidedLabel(kMostOfFilterName)),
      _server(new QLabel),
      _units(new QLabel) {
  _backend.SetMainWindow(this);
  BuildCommands();
  BuildChoices();
  BuildCentre();
  BuildStatusBar();
  _model->onError = [this](const protocol::Error& error) { ShowError("Error.Tree", error.message); };
  _partPanel.mayClose = [this] { return MayGiveUpValues(); };
  _filterPanel.onFilterChanged = [this] { FilterChanged(); };
  _filterPanel.onDropped = [this](const std::vector<OccurrenceKey>& keys) {
    std::vector<OccurrencePlace> places;
    for (const OccurrenceKey& key : keys)
      if (const QModelIndex index = _model->IndexOf(key.product, key.instancePath); index.isValid())
        places.push_back(_model->PlaceAt(index));
    AddToFilter(places);
  };
  StartTracing();
  _busy.onEnded = [this](const auto& command, const auto& reply) { ServerCommandEnded(command, reply); };
  resize(1220, 760);
  restoreGeometry(_settings.WindowState(kGeometryKey));
  ShowTexts();
}

void MainWindow::StartTracing() {
  const TraceChoice choice = Tracing::ChoiceAtStart(_settings);
  if (const QString unknown = Tracing::UnknownAtStart(choice); !unknown.isEmpty())
    _tracingProblems << unknown;
  if (const auto traced = _tracing.Start(choice); !traced) _tracingProblems << ToQt(traced.Failure().message);
}

MainWindow::~MainWindow() { _backend.SetMainWindow(nullptr); }

QMenu* MainWindow::Menu(const char* key) {
  QMenu*& menu = _menus[key];
  if (!menu) menu = menuBar()->addMenu(QString());
  return menu;
}

void MainWindow::BuildCommands() {
  auto* toolbar = addToolBar(QString());
  toolbar->setObjectName("MainToolBar");
  toolbar->setMovable(false);
  toolbar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  toolbar->setIconSize({20, 20});
  for (const CommandRow& row : kCommands) {
    auto* action = new QAction(this);
    if (*row.keys) action->setShortcut(QKeySequence(row.keys));
    QObject::connect(action, &QAction::triggered, this, row.run);
    Menu(row.menu)->addAction(action);
    if (row.onToolbar == OnToolbar::Yes) toolbar->addAction(action);
    _actions[row.name] = action;
  }
  _menus[kRecentMenu] = new QMenu(this);
  Menu("Menu.File")->insertMenu(_actions["OpenSample"], _menus[kRecentMenu]);
  Menu("Menu.File")->insertSeparator(_actions["Quit"]);
}

void MainWindow::BuildChoices() {
  _menus[kThemeMenu] = Menu("Menu.View")->addMenu(QString());
  _menus[kLanguageMenu] = Menu("Menu.Settings")->addMenu(QString());
  for (const char* menu : {kThemeMenu, kLanguageMenu}) _choices[menu] = new QActionGroup(this);
  for (const ThemeChoice theme : {ThemeChoice::System, ThemeChoice::Light, ThemeChoice::Dark})
    AddChoice(_menus[kThemeMenu], QString::number(static_cast<int>(theme)),
              [this, theme] { ChooseTheme(theme); });
  for (const KorString& language : KorMsgCatalog::Languages())
    AddChoice(_menus[kLanguageMenu], QString::fromStdString(language),
              [this, language] { ChooseLanguage(QString::fromStdString(language)); });
}

void MainWindow::AddChoice(QMenu* menu, const QString& value, std::function<void()> choose) {
  auto* action = menu->addAction(QString());
  action->setCheckable(true);
  action->setData(value);
  _choices[menu == _menus[kThemeMenu] ? kThemeMenu : kLanguageMenu]->addAction(action);
  QObject::connect(action, &QAction::triggered, this, choose);
}

QTreeView* MainWindow::BuildTree() {
  _tree->setModel(_model);
  _tree->setUniformRowHeights(true);
  _tree->setAlternatingRowColors(true);
  _tree->setSelectionBehavior(QAbstractItemView::SelectRows);
  _tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
  _tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
  _tree->setExpandsOnDoubleClick(false);
  _tree->setDragDropMode(QAbstractItemView::DragOnly);
  _tree->setContextMenuPolicy(Qt::CustomContextMenu);
  _tree->installEventFilter(this);
  for (std::size_t i = 0; i < kColumnWidths.size(); ++i)
    _tree->setColumnWidth(static_cast<int>(i), kColumnWidths[i] * fontMetrics().averageCharWidth());
  _tree->header()->setStretchLastSection(false);
  _tree->header()->setSectionResizeMode(ProductTreeModel::Name, QHeaderView::Stretch);
  _tree->header()->restoreState(_settings.WindowState(kColumnsKey));
  QObject::connect(_tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
                   [this] { SelectionChanged(); });
  QObject::connect(_tree, &QTreeView::activated, this, [this] { ShowPartPanel(); });
  QObject::connect(_tree, &QWidget::customContextMenuRequested, this,
                   [this](const QPoint& place) { ShowTreeMenu(place); });
  return _tree;
}

void MainWindow::BuildCentre() {
  _search->product = [this] { return _model->ProductAt(_tree->currentIndex()); };
  _search->onPicked = [this](const std::string& product, const protocol::Occurrence& hit) {
    Select(product, hit.instancePath);
  };
  QObject::connect(_pane->PanelButton(), &QPushButton::clicked, this, [this] { ShowPartPanel(); });

  auto* left = new QWidget;
  auto* column = new QVBoxLayout(left);
  column->setContentsMargins(8, 8, 4, 8);
  column->addWidget(_search);
  column->addWidget(BuildTree(), 1);
  auto* right = new QScrollArea;
  right->setWidget(_pane);
  right->setWidgetResizable(true);
  right->setFrameShape(QFrame::NoFrame);
  auto* splitter = new QSplitter;
  splitter->setObjectName("MainSplitter");
  splitter->addWidget(left);
  splitter->addWidget(right);
  splitter->setStretchFactor(0, 1);
  splitter->setChildrenCollapsible(false);
  splitter->setSizes({780, 440});
  splitter->restoreState(_settings.WindowState(kSplitterKey));
  setCentralWidget(splitter);
}

void MainWindow::BuildStatusBar() {
  for (QLabel* label : {static_cast<QLabel*>(_filter), _server, _units}) {
    label->setContentsMargins(8, 2, 8, 2);
    statusBar()->addPermanentWidget(label);
  }
}

void MainWindow::ShowTexts() {
  for (const auto& [key, menu] : _menus) menu->setTitle(Text(key.c_str()));
  for (const CommandRow& row : kCommands) {
    QAction* action = _actions[row.name];
    const QString key = QString("Command.") + row.name;
    action->setText(Text(qPrintable(key + ".Title")));
    action->setToolTip(
        Text(qPrintable(key + ".ShortHelp")) +
        (*row.keys ? " (" + action->shortcut().toString(QKeySequence::NativeText) + ")" : QString()));
    action->setStatusTip(Text(qPrintable(key + ".ShortHelp")));
    if (row.icon) action->setIcon(row.icon());
  }
  _tree->setAccessibleName(Text("Tree.Title"));
  ShowChoices();
  ShowRecentProducts();
  _search->RefreshTexts();
  _model->RefreshTexts();
  _pane->RefreshTexts();
  if (_history) _history->RefreshTexts();
  _shownFilter = {};  // so that its texts are shown anew
  ShowStatus();
}

void MainWindow::ShowChoices() {
  const auto show = [this](const char* menu, const char* prefix, const QString& chosen) {
    for (QAction* action : _choices[menu]->actions()) {
      action->setText(Text(qPrintable(prefix + action->data().toString())));
      action->setChecked(action->data().toString() == chosen);
    }
  };
  show(kThemeMenu, "Theme.", QString::number(static_cast<int>(_settings.Theme())));
  show(kLanguageMenu, "Language.", QString::fromStdString(KorMsgCatalog::GetLanguage()));
}

void MainWindow::ShowRecentProducts() {
  QMenu* menu = _menus[kRecentMenu];
  menu->clear();
  for (const QString& file : _settings.RecentProducts())
    QObject::connect(menu->addAction(QString(file).replace('&', "&&")), &QAction::triggered, this,
                     [this, file] { OpenProduct(file); });
  menu->setEnabled(!menu->isEmpty());
}

void MainWindow::ShowStatus() {
  _server->setText(ServerText());
  _units->setText(UnitSystemText());
  const std::string product = _model->ProductAt({});
  setWindowTitle(product.empty() ? Text("Title") : ToQt(product) + " \u2013 " + Text("Title"));
  _actions["ImportTables"]->setEnabled(_session.IsOpen());
  for (const CommandRow& row : kCommands)
    if (row.needs != Needs::Nothing)
      _actions[row.name]->setEnabled(_tree->currentIndex().isValid() &&
                                     (row.needs == Needs::Selection || _library.Commands()));
  _pane->PanelButton()->setEnabled(_library.Commands());
  ShowFilter();
}

QString MainWindow::ServerText() const {
  return _session.IsOpen() ? Text("Status.Server", {ToQt(_session.Transport().Address())})
                           : Text("Status.NoServer");
}

QString MainWindow::UnitSystemText() const {
  const KorString system = KorCurrentUnitSystem();
  return Text("Status.Units", {Text(system.empty() ? "Units.Own" : ("Units." + system).c_str())});
}

QAction* MainWindow::Command(const std::string& name) const {
  const auto found = _actions.find(name);
  return found == _actions.end() ? nullptr : found->second;
}

QStringList MainWindow::CommandNames() {
  QStringList names;
  for (const CommandRow& row : kCommands) names << row.name;
  return names;
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (!MayGiveUpValues()) return event->ignore();
  _settings.SetWindowState(kGeometryKey, saveGeometry());
  _settings.SetWindowState(kColumnsKey, _tree->header()->saveState());
  if (auto* splitter = findChild<QSplitter*>("MainSplitter"))
    _settings.SetWindowState(kSplitterKey, splitter->saveState());
  ClosePanels();
  TellOfLostTrace();
  QMainWindow::closeEvent(event);
}

}  // namespace desktop
