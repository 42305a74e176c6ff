#include "tests/support/FilterPanelHarness.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgMultiList.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "protocol/Codec.h"
#include "protocol/Constants.h"
#include "tests/support/FilterState.h"

namespace {

KorDlgObject* FindNamed(const KorDlgObject& parent, const std::string& name) {
  for (const auto& child : parent.Children()) {
    if (child->Name() == name) return child.get();
    if (KorDlgObject* found = FindNamed(*child, name)) return found;
  }
  return nullptr;
}

}  // namespace

FilterPanelHarness::FilterPanelHarness() {
  if (KorMsgCatalog::GetFolder().empty()) KorMsgCatalog::SetFolder(KORVO_SOURCE_DIR "/catalogues");
  ResetFilterState();
  KorApplicationFrame::SetBackend(&_backend);
}

FilterPanelHarness::~FilterPanelHarness() {
  Close();
  EXPECT_EQ(_backend.WidgetCount(), 0u);
  KorApplicationFrame::SetBackend(nullptr);
  ResetFilterState();
}

void FilterPanelHarness::Make(const std::string& pathsRelativeTo) {
  _panel.reset(static_cast<KorWBNymNavFilterPanel*>(KorClassDictionary::Create("KorWBNymNavFilterPanel")));
  if (!_panel) throw std::logic_error("no panel was made");
  _panel->SetParentCommand(&_host);
  _panel->SetPRCId(pathsRelativeTo);
}

void FilterPanelHarness::BuildAndShow() {
  _panel->Build();
  _panel->Attach(&_backend);
  _panel->SetVisibility(KorVisibility::Shown);
}

void FilterPanelHarness::ExpectOpening(const FilteredProduct& product) {
  using namespace protocol;
  std::vector<FilterEntry> filters;
  for (const std::string& name : product.filters) filters.push_back({"ID of " + name, name, ""});
  _server.Expect(std::string(kCommandCurrentRoot), WriteCurrentRoot({{{"ROOT", product.id}}, "Turbine"}));
  _server.Expect(std::string(kCommandFilters), WriteFilterList({filters}));
  _server.Expect(std::string(kCommandHandler), WriteConfigurationHandler({product.id, product.handler}));
}

void FilterPanelHarness::Open(const FilteredProduct& product, const std::string& pathsRelativeTo) {
  Make(pathsRelativeTo);
  ExpectOpening(product);
  BuildAndShow();
}

void FilterPanelHarness::OpenWithoutCurrentRoot() {
  Make();
  _server.Expect(std::string(protocol::kCommandCurrentRoot), protocol::WriteCurrentRoot({}));
  BuildAndShow();
}

void FilterPanelHarness::Close() {
  if (_panel && _backend.Knows(*_panel)) _backend.ExpectMirrorsDialog(*_panel);
  _panel.reset();
}

KorDlgObject& FilterPanelHarness::Widget(const std::string& name) {
  if (KorDlgObject* found = FindNamed(*_panel, name)) return *found;
  return _panel->Find(name);  // says what there is
}

void FilterPanelHarness::Press(const std::string& button) {
  EXPECT_TRUE(As<KorDlgPushButton>(button).Press());
}

void FilterPanelHarness::Check(const std::string& radio) {
  EXPECT_TRUE(As<KorDlgRadioButton>(radio).Check());
}

void FilterPanelHarness::Pick(const std::string& line) {
  EXPECT_TRUE(As<KorDlgCombo>("ConfigHandlerIDCombo").Pick(KorUnicodeString(line)));
}

void FilterPanelHarness::SelectRows(std::vector<int> rows) {
  EXPECT_TRUE(As<KorDlgMultiList>("FilterMultiList").PickLines(std::move(rows)));
}

void FilterPanelHarness::PressOK() { EXPECT_TRUE(_panel->PressOK()); }
void FilterPanelHarness::PressCancel() { EXPECT_TRUE(_panel->PressCancel()); }
void FilterPanelHarness::CloseWindow() { EXPECT_TRUE(_panel->CloseWindow()); }

void FilterPanelHarness::Add(const std::string& instance, const std::string& part, const std::string& version,
                             const std::string& path, int depth) {
  _panel->AddValuesInMultiList(instance, part, version, path, depth);
}

bool FilterPanelHarness::IsChecked(const std::string& radio) {
  return As<KorDlgRadioButton>(radio).IsChecked();
}

std::string FilterPanelHarness::SelectedLine() {
  return As<KorDlgCombo>("ConfigHandlerIDCombo").GetSelectedLine().Utf8();
}

std::vector<std::string> FilterPanelHarness::Lines() {
  std::vector<std::string> lines;
  for (const KorUnicodeString& line : As<KorDlgCombo>("ConfigHandlerIDCombo").GetLines())
    lines.push_back(line.Utf8());
  return lines;
}

std::vector<std::string> FilterPanelHarness::Rows() {
  auto& list = As<KorDlgMultiList>("FilterMultiList");
  std::vector<std::string> rows(static_cast<std::size_t>(list.GetLineCount()));
  for (int row = 0; row < list.GetLineCount(); ++row)
    for (int column = 0; column < list.GetColumnCount(); ++column)
      rows[static_cast<std::size_t>(row)] +=
          (column == 0 ? "" : ", ") + std::string(list.GetColumnItem(column, row));
  return rows;
}

std::vector<int> FilterPanelHarness::SelectedRows() {
  return As<KorDlgMultiList>("FilterMultiList").GetSelectedLines();
}
