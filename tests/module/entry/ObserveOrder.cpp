// Loads and unloads the module and compares the order in which its static objects come and go with the one
// there must be. Needs no test library, so that it can be built for Windows. Usage: observe_module_order
// MODULE

#include <cstdio>

#include "framework/system/KorClassDictionary.h"
#include "framework/system/TqTrace.h"
#include "module/filter_panel/KorWBNymNavFilterPanel.h"
#include "tests/module/entry/ModuleOrder.h"

namespace {

bool g_good = true;

void Require(bool condition, const char* what) {
  std::printf("%s: %s\n", condition ? "good" : "WRONG", what);
  g_good = g_good && condition;
}

void Compare(const std::vector<std::string>& seen, const std::vector<std::string>& expected,
             const char* what) {
  for (const std::string& event : seen) std::printf("  %s\n", event.c_str());
  Require(seen == expected, what);
}

void RequireThatPanelsCanBeMade() {
  for (const char* className : {"KorWBNymNavFilterPanel", "KorWBNymNavReportPanel"}) {
    // Both are dialogs whose first base class is at their address.
    auto* panel = static_cast<KorDlgDialog*>(KorClassDictionary::Create(className));
    Require(panel && panel->Name() == className, className);
    if (panel) panel->Build();
    delete panel;
  }
}

void ObserveOnce(const SystemLoader& module) {
  ModuleOrder order(module);
  Require(!module.IsLoaded(), "not loaded before");
  Require(module.Load(), "loads");
  order.Look();
  Compare(order.Events(), kModuleComes, "order of construction");
  Require(
      module.Symbol("fctCreateKorWBNymNavFilterPanel") && module.Symbol("fctCreateKorWBNymNavReportPanel"),
      "factories under their plain names");
  RequireThatPanelsCanBeMade();
  order.AwaitEnd();
  Require(module.Unload(), "unloads");
  Compare(order.Events(), kModuleGoes, "order of destruction");
  Require(!module.IsLoaded() && TqTrace::GetComponents().empty() &&
              !KorClassDictionary::Knows("KorWBNymNavFilterPanel"),
          "gone");
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::fprintf(stderr, "usage: observe_module_order MODULE\n");
    return 2;
  }
  const SystemLoader module(arguments[1]);
  for (int round = 0; round < 2; ++round) ObserveOnce(module);
  return g_good ? 0 : 1;
}
