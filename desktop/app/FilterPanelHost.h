#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <vector>

#include "desktop/app/CommandsLibrary.h"
#include "desktop/app/OccurrencePlace.h"
#include "desktop/app/Settings.h"
#include "desktop/toolkit/QtBackend.h"
#include "framework/system/KorCommand.h"
#include "protocol/Result.h"

class KorDlgMultiList;

namespace desktop {

class MultiListView;

/// The command "filter": opens the module's filter panel on a product, is its parent command, and adds what
/// the user picks in the product tree to its list. The panel hides itself at OK and Cancel; it is destroyed
/// when control is back in the event loop.
class FilterPanelHost : public QObject {
 public:
  /// All must outlive the host; the settings keep place and size of the panel.
  FilterPanelHost(const CommandsLibrary& library, QtBackend& backend, Settings& settings);
  ~FilterPanelHost() override;

  /// The filter in force may be another one. Called from the event loop.
  std::function<void()> onFilterChanged;
  /// Occurrences were dropped on the panel's list. Called from the event loop: a drag holds the program until
  /// the drop is over.
  std::function<void(const std::vector<OccurrenceKey>&)> onDropped;

  /// Tells the server that the product is the current root and opens the panel on it; one that is open on it
  /// comes to the front, one on another product is given up.
  protocol::Result<void> Open(const std::string& product);
  void Close();
  bool IsOpen() const { return _panel != nullptr; }
  bool IsOpenOn(const std::string& product) const;
  /// Whether the list of the open panel holds other rows than when it was opened: without OK they are lost.
  bool HasUnconfirmedRows() const;
  /// Whether the user chooses single instances at the moment.
  bool TakesInstances() const;

  /// What came of instances that were to be added.
  struct Additions {
    int added = 0;
    int wereThere = 0;
    int roots = 0;            ///< the product itself is no instance
    int ofOtherProducts = 0;  ///< the list is of one product
  };
  /// Only while the panel takes instances.
  Additions Add(const std::vector<OccurrencePlace>& places);

  /// After a change of language.
  void RefreshTexts();

  /// Null while the panel is closed.
  KorDlgDialog* Panel() const { return _panel ? &_panel->Dialog() : nullptr; }
  QWidget* Window() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// What the panel tells of its OK and Cancel.
  class ParentCommand : public KorCommand {
   public:
    explicit ParentCommand(FilterPanelHost& host) : _host(host) {}
    void AnalyseNotification(KorCommand* from, KorNotification* notification) override;

   private:
    FilterPanelHost& _host;
  };

  void Show();
  void CloseIfHidden();
  void TellOfChangeLater();
  KorDlgMultiList& List() const;
  MultiListView& ListView() const;
  std::string RowsText() const;

  const CommandsLibrary& _library;
  QtBackend& _backend;
  Settings& _settings;
  ParentCommand _command{*this};
  std::unique_ptr<KorWBFilterPanel> _panel;
  std::string _product;      ///< that the open panel is about
  std::string _rowsAtFirst;  ///< of its list, as it was opened
};

}  // namespace desktop
