#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "framework/system/KorClassDictionary.h"
#include "module/filter_panel/KorWBNymNavFilterPanel.h"
#include "tests/support/RecordingBackend.h"
#include "tests/support/ScriptedServer.h"
#include "tests/support/UnreachableGuard.h"

/// The command of the host that opened a panel; writes down what the panel sends on to it.
class HostCommand : public KorCommand {
 public:
  struct Heard {
    KorCommand* from = nullptr;
    KorEvent event = KorEvent::DialogOK;
  };

  void AnalyseNotification(KorCommand* from, KorNotification* notification) override {
    heard.push_back({from, notification->event});
    if (whenHeard) whenHeard();
  }

  std::vector<Heard> heard;
  std::function<void()> whenHeard;
};

/// What the server knows of the product that the filter panel opens on. Its root part is "ROOT".
struct FilteredProduct {
  std::string id = "TURBINE";
  std::vector<std::string> filters = {"No generator", "Structure only"};
  std::optional<std::string> handler = {};  ///< the configuration handler that is set on it
};

/// A user in front of the filter panel, in a test: the host makes it by its class name, shows it on the
/// recording toolkit, and the server answers from a script.
///
/// The filter is the process's and outlives the panel, as it does for the user: a test may open one panel
/// after the other. Each harness begins and ends without a choice. A verb on a widget that the user could not
/// reach fails the test, and so does a window that does not show the panel as it is.
class FilterPanelHarness {
 public:
  FilterPanelHarness();
  ~FilterPanelHarness();
  FilterPanelHarness(const FilterPanelHarness&) = delete;
  FilterPanelHarness& operator=(const FilterPanelHarness&) = delete;

  // ---- opening ----
  void Open(const FilteredProduct& product = {}, const std::string& pathsRelativeTo = "");
  void OpenWithoutCurrentRoot();
  /// The panel as the factory makes it, owned by the test; nothing is laid out yet.
  void Make(const std::string& pathsRelativeTo = "");
  void BuildAndShow();
  void Close();
  void ExpectOpening(const FilteredProduct& product);

  KorWBNymNavFilterPanel& Panel() { return *_panel; }
  HostCommand& Host() { return _host; }
  ScriptedServer& Server() { return _server; }
  RecordingBackend& Backend() { return _backend; }

  // ---- what the user does ----
  void Press(const std::string& button);
  void Check(const std::string& radio);
  void Pick(const std::string& line);
  void SelectRows(std::vector<int> rows);
  void PressOK();
  void PressCancel();
  void CloseWindow();

  // ---- what the host does when the user picks instances in the product tree ----
  void Add(const std::string& instance, const std::string& part, const std::string& version,
           const std::string& path, int depth);

  // ---- what the user sees ----
  template <class Kind>
  Kind& As(const std::string& name) {
    return dynamic_cast<Kind&>(Widget(name));
  }
  KorDlgObject& Widget(const std::string& name);
  bool IsEnabled(const std::string& name) { return Widget(name).IsEnabled(); }
  bool IsChecked(const std::string& radio);
  std::string SelectedLine();
  std::vector<std::string> Lines();
  /// The cells of each row joined by ", ", hidden columns included.
  std::vector<std::string> Rows();
  std::vector<int> SelectedRows();

 private:
  UnreachableGuard _guard;
  RecordingBackend _backend;
  ScriptedServer _server;
  HostCommand _host;
  std::unique_ptr<KorWBNymNavFilterPanel> _panel;
};
