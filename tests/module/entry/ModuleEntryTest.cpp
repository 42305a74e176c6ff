// The module as the host gets hold of it: this program does not link it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "framework/system/KorClassDictionary.h"
#include "framework/system/TqTrace.h"
#include "module/filter_panel/KorWBNymNavFilterPanel.h"
#include "module/report_panel/KorWBNymNavReportPanel.h"
#include "tests/module/entry/ModuleOrder.h"
#include "tests/support/RecordingBackend.h"
#include "tests/support/ScriptedServer.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const SystemLoader g_module(KORVO_MODULE_FILE);

/// Each test begins and ends without the module.
struct ModuleEntry : testing::Test {
  ModuleEntry() { ExpectGone(); }
  ~ModuleEntry() override { ExpectGone(); }

  static void Load() { ASSERT_TRUE(g_module.Load()) << SystemLoader::Reason(); }
  static void Unload() { EXPECT_TRUE(g_module.Unload()); }
  static void ExpectGone() {
    EXPECT_FALSE(g_module.IsLoaded());
    EXPECT_FALSE(KorClassDictionary::Knows("KorWBNymNavFilterPanel"));
    EXPECT_FALSE(KorClassDictionary::Knows("KorWBNymNavReportPanel"));
    EXPECT_EQ(KorClassDictionary::Create("KorWBNymNavFilterPanel"), nullptr);
    EXPECT_THAT(TqTrace::GetComponents(), IsEmpty());
    EXPECT_EQ(ModuleOrder::ListenersToUnits(), 0);
  }
  template <class Panel>
  static std::unique_ptr<KorDlgDialog> CreateByName(const char* className) {
    return std::unique_ptr<KorDlgDialog>(static_cast<Panel*>(KorClassDictionary::Create(className)));
  }
  static KorUnicodeString& SelectedFilter() {
    return *static_cast<KorUnicodeString*>(g_module.Symbol("_ZN22KorWBNymNavFilterPanel14selectedFilterE"));
  }
};

// ---- order ----

TEST_F(ModuleEntry, ItsStaticObjectsComeIntoBeingInTheirOrder) {
  ModuleOrder order(g_module);
  Load();
  order.Look();
  EXPECT_EQ(order.Events(), kModuleComes);
  Unload();
}

TEST_F(ModuleEntry, ItsStaticObjectsGoInTheReverseOrder) {
  ModuleOrder order(g_module);
  Load();
  order.Look();
  order.AwaitEnd();
  Unload();
  EXPECT_EQ(order.Events(), kModuleGoes);
}

// ---- panels by class name ----

TEST_F(ModuleEntry, TheHostCreatesTheFilterPanelByItsNameBuildsItAndShowsIt) {
  Load();
  {
    ScriptedServer server;
    server.Expect("LumGetCurrentRoot", "CurrentRoot/1|1|ROOT|TURBINE|Turbine|end");
    server.Expect("LumGetConfigFilters", "FilterList/1|1|F1|Structure only||end");
    server.Expect("LumGetConfigHandler", "ConfigurationHandler/1|TURBINE|__null__|end");
    RecordingBackend backend;
    const auto panel = CreateByName<KorWBNymNavFilterPanel>("KorWBNymNavFilterPanel");
    ASSERT_TRUE(panel);
    EXPECT_TRUE(panel->Children().empty());
    panel->Build();  // the base class's; the panel's own is called
    panel->Attach(&backend);
    panel->SetVisibility(KorVisibility::Shown);
    EXPECT_EQ(panel->GetResourceFilename(0), "KorWBNymNavFilterPanel");
    EXPECT_EQ(backend.WidgetCount(), 14u) << "thirteen widgets and the window";
    EXPECT_TRUE(panel->PressOK());
    EXPECT_EQ(SelectedFilter(), "1|0");
    backend.ExpectMirrorsDialog(*panel);
  }
  Unload();
}

TEST_F(ModuleEntry, TheHostCreatesTheReportPanelByItsName) {
  Load();
  {
    const auto panel = CreateByName<KorWBNymNavReportPanel>("KorWBNymNavReportPanel");
    ASSERT_TRUE(panel);
    EXPECT_EQ(panel->Name(), "KorWBNymNavReportPanel");
    EXPECT_EQ(panel->GetResourceFilename(0), "KorWBNymNavReportPanel");
  }
  Unload();
}

TEST_F(ModuleEntry, TheFactoriesAreExportedUnderTheirPlainNames) {
  Load();
  for (const char* className : {"KorWBNymNavFilterPanel", "KorWBNymNavReportPanel"}) {
    void* const symbol = g_module.Symbol((std::string("fctCreate") + className).c_str());
    ASSERT_NE(symbol, nullptr) << className;
    const auto create = reinterpret_cast<void* (*)()>(symbol);
    void* const made = create();
    void* const byName = KorClassDictionary::Create(className);
    ASSERT_TRUE(made && byName);
    EXPECT_NE(made, byName);
    // Both are dialogs whose first base class is at their address.
    const std::unique_ptr<KorDlgDialog> first(static_cast<KorDlgDialog*>(made));
    const std::unique_ptr<KorDlgDialog> second(static_cast<KorDlgDialog*>(byName));
    EXPECT_EQ(typeid(*first), typeid(*second)) << "the same class";
    EXPECT_EQ(first->Name(), className);
  }
  Unload();
}

// ---- unloading ----

TEST_F(ModuleEntry, BeforeItIsLoadedNobodyKnowsItsClasses) { ExpectGone(); }

TEST_F(ModuleEntry, LoadedTwiceItIsThereOnceAndGoneAfterTheSecondUnloading) {
  Load();
  Load();
  EXPECT_THAT(TqTrace::GetComponents(),
              ElementsAre("KorWBCompPart", "KorWBCompGroup", "KorWBNymNavReportPanel"));
  Unload();
  EXPECT_TRUE(g_module.IsLoaded());
  EXPECT_TRUE(KorClassDictionary::Knows("KorWBNymNavFilterPanel"));
  Unload();
  EXPECT_FALSE(g_module.IsLoaded());
}

TEST_F(ModuleEntry, LoadedAgainItStartsAnew) {
  for (int round = 0; round < 3; ++round) {
    ModuleOrder order(g_module);
    Load();
    order.Look();
    EXPECT_EQ(order.Events().size(), 7u);
    EXPECT_EQ(SelectedFilter(), "0|No Filter") << "nothing is left of the round before";
    EXPECT_GT(ModuleOrder::ListenersToUnits(), 0);
    SelectedFilter() = "0|Winter";
    EXPECT_TRUE(CreateByName<KorWBNymNavFilterPanel>("KorWBNymNavFilterPanel"));
    EXPECT_TRUE(CreateByName<KorWBNymNavReportPanel>("KorWBNymNavReportPanel"));
    Unload();
    ExpectGone();
  }
}

TEST_F(ModuleEntry, ATracedComponentStaysSwitchedOnWhileTheModuleIsAway) {
  TqTrace::SwitchComponent("KorWBNymNavReportPanel", true);
  std::ostringstream text;
  TqTrace::SetOutput(&text);
  Load();
  CreateByName<KorWBNymNavReportPanel>("KorWBNymNavReportPanel");
  Unload();
  TqTrace::SetOutput(nullptr);
  TqTrace::SwitchComponent("KorWBNymNavReportPanel", false);
  EXPECT_THAT(text.str(), testing::HasSubstr("-> KorWBNymNavReportPanel::KorWBNymNavReportPanel"));
}

}  // namespace
