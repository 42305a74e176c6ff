#include "desktop/app/FilterPanelHost.h"

#include <QDropEvent>
#include <QMetaObject>
#include <QTableView>

#include "desktop/app/OccurrenceMime.h"
#include "desktop/app/PdmCommands.h"
#include "desktop/app/Texts.h"
#include "desktop/toolkit/views/DialogView.h"
#include "desktop/toolkit/views/MultiListView.h"
#include "framework/dialog/KorDlgMultiList.h"
#include "framework/dialog/KorDlgRadioButton.h"

namespace desktop {
namespace {

constexpr const char* kGeometryKey = "filterPanel/geometry";
constexpr const char* kColumnsKey = "filterPanel/columns";
constexpr QSize kFirstSize(680, 460);  ///< device-independent pixels; room for the place in the product
constexpr const char* kUserFilter = "TabContainer001.TabPage001.MainFrame.PVSFilterBtn";
constexpr const char* kConfigurationFilter = "TabContainer001.TabPage001.MainFrame.CfgFilterBtn";
constexpr const char* kList = "TabContainer001.TabPage001.MainFrame.Frame001.FilterMultiList";

KorWBPickedInstance Picked(const OccurrencePlace& place) {
  return {place.node.instanceId,
          place.node.partId,
          place.node.revision,
          {place.instancePath.begin(), place.instancePath.end() - 1}};
}

}  // namespace

FilterPanelHost::FilterPanelHost(const CommandsLibrary& library, QtBackend& backend, Settings& settings)
    : _library(library), _backend(backend), _settings(settings) {}

FilterPanelHost::~FilterPanelHost() = default;

protocol::Result<void> FilterPanelHost::Open(const std::string& product) {
  if (!_library.Commands())
    return protocol::Error{protocol::ErrorKind::NotFound, _library.WhyNot().toStdString()};
  if (IsOpenOn(product)) {
    Window()->raise();
    Window()->activateWindow();
    return {};
  }
  if (const auto told = SetCurrentRoot({product}); !told) return told.Failure();
  Close();
  _panel = _library.Commands()->CreateFilterPanel(product, _command);
  if (!_panel) return protocol::Error{protocol::ErrorKind::NotFound, Text("Filter.NoPanel").toStdString()};
  _product = product;
  Show();
  return {};
}

void FilterPanelHost::Show() {
  KorDlgDialog& dialog = *Panel();
  // Which kind of filter is chosen counts at once, before OK, and Cancel does not bring it back.
  for (const char* button : {kUserFilter, kConfigurationFilter})
    dialog.Find<KorDlgRadioButton>(button).Subscribe(KorEvent::RadioModify,
                                                     [this](auto...) { TellOfChangeLater(); });
  dialog.Attach(&_backend);
  auto* table = ListView().Qt();
  table->viewport()->setAcceptDrops(true);
  table->viewport()->installEventFilter(this);
  if (!RestoreWantedGeometry(*Window(), _settings.WindowState(kGeometryKey))) Window()->resize(kFirstSize);
  ListView().RestoreWidths(_settings.WindowState(kColumnsKey));
  dialog.SetVisibility(KorVisibility::Shown);
  _rowsAtFirst = RowsText();
  TellOfChangeLater();  // it may have taken over what the server says is set on the product
}

void FilterPanelHost::Close() {
  if (_panel) {
    _settings.SetWindowState(kGeometryKey, SaveWantedGeometry(*Window()));
    _settings.SetWindowState(kColumnsKey, ListView().SaveWidths());
    Panel()->Detach();
  }
  _panel.reset();
}

void FilterPanelHost::CloseIfHidden() {
  if (_panel && !Panel()->IsShown()) Close();
}

void FilterPanelHost::ParentCommand::AnalyseNotification(KorCommand*, KorNotification*) {
  // The panel has yet to hide itself.
  QMetaObject::invokeMethod(
      &_host, [host = &_host] { host->CloseIfHidden(); }, Qt::QueuedConnection);
  _host.TellOfChangeLater();
}

void FilterPanelHost::TellOfChangeLater() {
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (onFilterChanged) onFilterChanged();
      },
      Qt::QueuedConnection);
}

KorDlgMultiList& FilterPanelHost::List() const { return Panel()->Find<KorDlgMultiList>(kList); }

MultiListView& FilterPanelHost::ListView() const {
  return static_cast<MultiListView&>(*_backend.ViewOf(List()));
}

std::string FilterPanelHost::RowsText() const {
  const KorDlgMultiList& list = List();
  std::string text;
  for (int row = 0; row < list.GetLineCount(); ++row)
    for (int column = 0; column < list.GetColumnCount(); ++column)
      (text += list.GetColumnItem(column, row)) += '\n';
  return text;
}

bool FilterPanelHost::IsOpenOn(const std::string& product) const {
  return _panel && _product == product && Panel()->IsShown();
}

bool FilterPanelHost::HasUnconfirmedRows() const {
  return _panel && Panel()->IsShown() && RowsText() != _rowsAtFirst;
}

bool FilterPanelHost::TakesInstances() const { return _panel && Panel()->IsShown() && List().IsEnabled(); }

FilterPanelHost::Additions FilterPanelHost::Add(const std::vector<OccurrencePlace>& places) {
  Additions result;
  for (const OccurrencePlace& place : places) {
    if (place.product != _product)
      ++result.ofOtherProducts;
    else if (place.instancePath.empty())
      ++result.roots;
    else
      ++(_panel->Add(Picked(place)) ? result.added : result.wereThere);
  }
  return result;
}

bool FilterPanelHost::eventFilter(QObject* watched, QEvent* event) {
  const bool isDrag = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove;
  if (!isDrag && event->type() != QEvent::Drop) return QObject::eventFilter(watched, event);
  auto* drop = static_cast<QDropEvent*>(event);
  const std::vector<OccurrenceKey> dragged = DraggedOccurrences(*drop->mimeData());
  if (dragged.empty() || !TakesInstances()) {
    drop->ignore();
    return true;
  }
  drop->setDropAction(Qt::CopyAction);
  drop->accept();
  if (isDrag) return true;
  QMetaObject::invokeMethod(
      this,
      [this, dragged] {
        if (onDropped) onDropped(dragged);
      },
      Qt::QueuedConnection);
  return true;
}

void FilterPanelHost::RefreshTexts() {
  if (_panel) Panel()->ReloadTexts();
}

QWidget* FilterPanelHost::Window() const { return _panel ? _backend.WindowOf(Panel()) : nullptr; }

}  // namespace desktop
