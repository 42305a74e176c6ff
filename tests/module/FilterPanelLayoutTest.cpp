#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgMultiList.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "tests/module/BaseCatalogues.h"
#include "tests/module/FilterPanelTest.h"
#include "tests/support/ShownText.h"

using testing::ElementsAre;

namespace {

/// One widget: where it hangs, what it is, its place (row, column, columns, rows), the sides on which it
/// follows its cell, and its style.
struct LaidOut {
  const char* name;
  KorDlgKind kind;
  const char* parent;
  KorDlgGrid grid;
  unsigned style;
};

// In the order of creation.
constexpr LaidOut kWidgets[] = {
    {"TabContainer001", KorDlgKind::TabContainer, "KorWBNymNavFilterPanel", {1, 0, 1, 1, 30}, 0},
    {"TabPage001", KorDlgKind::TabPage, "TabContainer001", {0, 0, 1, 1, 30}, 1},
    {"MainFrame", KorDlgKind::Frame, "TabPage001", {0, 0, 1, 1, 30}, 0x80001},
    {"PVSFilterBtn", KorDlgKind::RadioButton, "MainFrame", {0, 0, 2, 1, 30}, 0},
    {"Frame001", KorDlgKind::Frame, "MainFrame", {1, 0, 2, 1, 30}, 0x80001},
    {"FilterMultiList", KorDlgKind::MultiList, "Frame001", {0, 0, 1, 1, 30}, 0x40000},
    {"Frame011", KorDlgKind::Frame, "Frame001", {1, 0, 1, 1, 22}, 0x80001},
    {"RemoveCriterionButton", KorDlgKind::PushButton, "Frame011", {0, 0, 1, 1, 30}, 0},
    {"ClearAllCriteriaButton", KorDlgKind::PushButton, "Frame011", {0, 1, 1, 1, 30}, 0},
    {"CfgFilterBtn", KorDlgKind::RadioButton, "MainFrame", {3, 0, 2, 1, 30}, 0},
    {"Frame002", KorDlgKind::Frame, "MainFrame", {4, 0, 2, 1, 30}, 0x80001},
    {"ConfigHandlerLabel", KorDlgKind::Label, "Frame002", {0, 0, 1, 1, 30}, 0},
    {"ConfigHandlerIDCombo", KorDlgKind::Combo, "Frame002", {0, 1, 1, 1, 30}, 0x40000},
};

void Collect(const KorDlgObject& parent, std::vector<const KorDlgObject*>& widgets) {
  for (const auto& child : parent.Children()) {
    widgets.push_back(child.get());
    Collect(*child, widgets);
  }
}

struct FilterPanelLayout : FilterPanelTest {
  KorDlgMultiList& FilterList() { return As<KorDlgMultiList>("FilterMultiList"); }
};

TEST_F(FilterPanelLayout, HasEachWidgetInItsPlaceInTheOrderOfCreation) {
  Open();
  std::vector<const KorDlgObject*> widgets;
  Collect(Panel(), widgets);
  ASSERT_EQ(widgets.size(), std::size(kWidgets));
  for (std::size_t i = 0; i < widgets.size(); ++i) {
    const LaidOut& expected = kWidgets[i];
    SCOPED_TRACE(expected.name);
    EXPECT_EQ(widgets[i]->Name(), expected.name);
    EXPECT_EQ(widgets[i]->Kind(), expected.kind);
    EXPECT_EQ(widgets[i]->Parent()->Name(), expected.parent);
    EXPECT_EQ(widgets[i]->GetGrid(), expected.grid);
    EXPECT_EQ(widgets[i]->Style(), expected.style);
  }
}

TEST_F(FilterPanelLayout, HasSixColumnsOfWhichDepthAndPathAreHidden) {
  Open();
  ASSERT_EQ(FilterList().GetColumnCount(), 6);
  constexpr bool kShown[] = {true, true, true, true, false, false};
  constexpr int kWidths[] = {19, 18, 6, 0, 0, 0};
  for (int column = 0; column < 6; ++column) {
    EXPECT_EQ(FilterList().GetColumn(column).shown, kShown[column]) << column;
    EXPECT_EQ(FilterList().GetColumn(column).textWidth, kWidths[column]) << column;
  }
  EXPECT_EQ(FilterList().GetVisibleColumnCount(), 3);
}

TEST_F(FilterPanelLayout, TitlesItsColumnsFromTheCatalogueInTheirOrder) {
  Open();
  for (int column = 0; column < 6; ++column) {
    const std::string key = "TabContainer001.TabPage001.MainFrame.Frame001.FilterMultiList.ColumnName" +
                            std::to_string(column + 1);
    ASSERT_TRUE(KorMsgCatalog::Has("KorWBNymNavFilterPanel", key)) << key;
    EXPECT_EQ(FilterList().GetColumn(column).title,
              KorMsgCatalog::BuildMessage("KorWBNymNavFilterPanel", key));
  }
}

TEST_F(FilterPanelLayout, IsNamedStyledAndOwnedAsTheHostExpects) {
  const KorWBNymNavFilterPanel panel;
  EXPECT_EQ(panel.Name(), "KorWBNymNavFilterPanel");
  EXPECT_EQ(panel.Style(), 0x2000001u);
  EXPECT_EQ(panel.Parent(), KorApplicationFrame::GetMainWindow());
  EXPECT_EQ(panel.GetParentCommand(), KorApplicationFrame::GetMainWindow());
  EXPECT_FALSE(panel.IsShown());
}

TEST_F(FilterPanelLayout, ItsColumnTitlesFollowTheLanguageAndItsRowsAndWidthsStay) {
  Open();
  Add("I1", "P1", "A", "R", 1);
  ASSERT_EQ(KorMsgCatalog::SetLanguage("de"), S_OK);
  Panel().ReloadTexts();
  KorMsgCatalog::SetLanguage("en");
  const char* const kTitles[] = {"Instanz", "Teil", "Version", "Ort im Produkt", "Tiefe", "Pfad"};
  for (int column = 0; column < 6; ++column)
    EXPECT_EQ(FilterList().GetColumn(column).title, kTitles[column]) << column;
  EXPECT_EQ(Rows(), std::vector<std::string>{"I1, P1, A, /R, 1, R"});
  EXPECT_EQ(FilterList().GetColumn(0).textWidth, 19);
  EXPECT_FALSE(FilterList().GetColumn(5).shown);
}

TEST_F(FilterPanelLayout, NamesItsCatalogueAndThenThatOfTheBaseClass) {
  const BaseCatalogues named;
  const KorWBNymNavFilterPanel panel;
  EXPECT_EQ(panel.GetResourceFilename(0), "KorWBNymNavFilterPanel");
  EXPECT_EQ(panel.GetResourceFilename(1), "Base 0");
  EXPECT_EQ(panel.GetResourceFilename(2), "Base 1");
}

TEST_F(FilterPanelLayout, HasNoWidgetsAndAsksTheServerNothingBeforeItIsBuilt) {
  Make();
  EXPECT_TRUE(Panel().Children().empty());
  EXPECT_TRUE(Server().Requests().empty());
}

TEST_F(FilterPanelLayout, BuildingASecondTimeAddsNothingAndAsksNothing) {
  Open();
  const std::size_t widgets = Backend().WidgetCount();
  Panel().Build();
  EXPECT_EQ(Backend().WidgetCount(), widgets);
  EXPECT_EQ(Server().Requests().size(), 3u);
}

/// The panel with each handler replaced by one that writes down its name, in the order of the class.
struct ProbeFilterPanel : KorWBNymNavFilterPanel {
  std::vector<std::string> calls;
#define KORVO_PROBE(handler)                                                          \
  void handler(KorCommand* sender, KorNotification*, KorCommandClientData) override { \
    calls.push_back(static_cast<KorDlgObject*>(sender)->Name() + " " #handler);       \
  }
  KORVO_PROBE(OnClearAllCriteriaNotification)
  KORVO_PROBE(OnRemoveCriterionNotification)
  KORVO_PROBE(OnCancelNotification)
  KORVO_PROBE(OnFilterNotification)
  KORVO_PROBE(OnFilterClickNotification)
#undef KORVO_PROBE
};

TEST_F(FilterPanelLayout, EachSourceCallsItsHandlerOnce) {
  ProbeFilterPanel panel;
  ExpectOpening({});
  panel.Build();
  panel.SetVisibility(KorVisibility::Shown);
  const KorString frame = "TabContainer001.TabPage001.MainFrame.";
  panel.calls.clear();
  EXPECT_TRUE(panel.Find<KorDlgPushButton>(frame + "Frame001.Frame011.RemoveCriterionButton").Press());
  EXPECT_TRUE(panel.Find<KorDlgPushButton>(frame + "Frame001.Frame011.ClearAllCriteriaButton").Press());
  EXPECT_TRUE(panel.Find<KorDlgRadioButton>(frame + "CfgFilterBtn").Check());
  EXPECT_TRUE(panel.PressCancel());
  EXPECT_TRUE(panel.CloseWindow());
  EXPECT_TRUE(panel.PressOK());
  EXPECT_THAT(panel.calls,
              ElementsAre("RemoveCriterionButton OnRemoveCriterionNotification",
                          "ClearAllCriteriaButton OnClearAllCriteriaNotification",
                          "PVSFilterBtn OnFilterClickNotification", "CfgFilterBtn OnFilterClickNotification",
                          "KorWBNymNavFilterPanel OnCancelNotification",
                          "KorWBNymNavFilterPanel OnCancelNotification",
                          "KorWBNymNavFilterPanel OnFilterNotification"));
}

TEST_F(FilterPanelLayout, SubscribesToNothingElse) {
  Open();
  std::vector<const KorDlgObject*> widgets;
  Collect(Panel(), widgets);
  widgets.push_back(&Panel());
  int subscriptions = 0;
  for (const KorDlgObject* widget : widgets)
    for (int event = 0; event <= static_cast<int>(KorEvent::WindowClose); ++event)
      subscriptions += widget->SubscriptionCount(static_cast<KorEvent>(event));
  EXPECT_EQ(subscriptions, 7);
}

}  // namespace
