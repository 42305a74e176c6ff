// The widgets of the filter panel. Their names are the keys of the message catalogue.

#include "module/filter_panel/KorWBNymNavFilterPanel.h"

#include "module/filter_panel/KorWBNymNavFilterRow.h"
#include "module/shared/KorWBNymNavLayout.h"
#include "module/shared/KorWBNymNavWiring.h"

using namespace KorDlgStyle;
using namespace KorWBNymNavLayout;

namespace {

constexpr int kAtTheTop = KorDlgAttach::kLeft | KorDlgAttach::kRight | KorDlgAttach::kTop;

/// How the list shows a column.
struct Column {
  int index;
  bool shown;
  int textWidth;  ///< characters; 0: as the place gives it
};

constexpr Column kColumns[] = {
    {KorWBNymNavFilterRow::kInstanceColumn, true, 19}, {KorWBNymNavFilterRow::kPartColumn, true, 18},
    {KorWBNymNavFilterRow::kVersionColumn, true, 6},   {KorWBNymNavFilterRow::kShownPathColumn, true, 0},
    {KorWBNymNavFilterRow::kDepthColumn, false, 0},    {KorWBNymNavFilterRow::kPathColumn, false, 0},
};

constexpr int kColumnsAtOnce = 3;

}  // namespace

// Each widget has its row.
// clang-format off
void KorWBNymNavFilterPanel::BuildWidgets() {
  auto& w = _widgets;
  BuildLayout(*this, {TabContainer("TabContainer001", {1, 0}, &w.tabs, {
    TabPage("TabPage001", &w.page, {
      Frame("MainFrame", kPlainFrame, {0, 0}, &w.mainFrame, {
        RadioButton("PVSFilterBtn", {0, 0, 2}, &w.userFilter),
        Frame("Frame001", kPlainFrame, {1, 0, 2}, &w.listFrame, {
          MultiList("FilterMultiList", kMultiSelection, {0, 0}, &w.list),
          Frame("Frame011", kPlainFrame, {1, 0, 1, 1, kAtTheTop}, &w.listCommands, {
            PushButton("RemoveCriterionButton",  {0, 0}, &w.removeRows),
            PushButton("ClearAllCriteriaButton", {0, 1}, &w.clearRows)})}),
        RadioButton("CfgFilterBtn", {3, 0, 2}, &w.configurationFilter),
        Frame("Frame002", kPlainFrame, {4, 0, 2}, &w.configurationFrame, {
          Label("ConfigHandlerLabel",   {0, 0}, &w.configurationLabel),
          Combo("ConfigHandlerIDCombo", {0, 1}, &w.configurations)})})})})});
}

void KorWBNymNavFilterPanel::WireHandlers() {
  using Panel = KorWBNymNavFilterPanel;
  using enum KorEvent;
  const auto& w = _widgets;
  KorWBNymNavWireHandlers(this, {
    {w.removeRows,          PushActivate, &Panel::OnRemoveCriterionNotification},
    {w.clearRows,           PushActivate, &Panel::OnClearAllCriteriaNotification},
    {w.userFilter,          RadioModify,  &Panel::OnFilterClickNotification},
    {w.configurationFilter, RadioModify,  &Panel::OnFilterClickNotification},
    {this,                  DialogCancel, &Panel::OnCancelNotification},
    {this,                  WindowClose,  &Panel::OnCancelNotification},
    {this,                  DialogOK,     &Panel::OnFilterNotification}});
}
// clang-format on

void KorWBNymNavFilterPanel::BuildColumns() {
  std::vector<KorString> titles;
  for (std::size_t number = 1; number <= std::size(kColumns); ++number)
    titles.push_back("TabContainer001.TabPage001.MainFrame.Frame001.FilterMultiList.ColumnName" +
                     std::to_string(number));
  _widgets.list->SetColumnTitleKeys(titles);
  _widgets.list->SetVisibleColumnCount(kColumnsAtOnce);
  for (const Column& column : kColumns) {
    _widgets.list->SetColumnVisible(column.index, column.shown);
    _widgets.list->SetColumnTextWidth(column.index, column.textWidth);
  }
}
