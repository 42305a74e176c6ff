#include "tests/support/PanelHarness.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgCheckButton.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgSpinner.h"
#include "framework/dialog/KorDlgTabContainer.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "framework/knowledge/KorUnitSystems.h"
#include "protocol/Codec.h"
#include "tests/support/FilterState.h"
#include "tests/support/ShownText.h"

namespace {

constexpr const char* kCatalogue = "KorWBNymMainPanel";

/// The process-wide choices that one test could leave to the next.
void ResetProcess() {
  KorCkeGlobalFunctions::RestoreParmDictionary();
  KorApplyUnitSystem("Mixed");
  ResetFilterState();
}

/// Path with the occurrence behind each repeated name.
std::string IndexedPath(const KorDlgObject& widget) {
  const std::string full = FullName(widget);
  return full.substr(full.find(": ") + 2);
}

void CollectEndingWith(const KorDlgObject& parent, const std::string& name,
                       std::vector<KorDlgObject*>& found) {
  for (const auto& child : parent.Children()) {
    const std::string path = "." + IndexedPath(*child);
    if (path.ends_with("." + name) || ("." + child->Path()).ends_with("." + name))
      found.push_back(child.get());
    CollectEndingWith(*child, name, found);
  }
}

}  // namespace

PanelHarness::PanelHarness()
    : _maker([](KorWBAllDataBuffer* buffer) { return std::make_unique<KorWBNymMainPanel>(buffer); }) {
  if (KorMsgCatalog::GetFolder().empty()) KorMsgCatalog::SetFolder(KORVO_SOURCE_DIR "/catalogues");
  ResetProcess();
  KorApplicationFrame::SetBackend(&_backend);
}

PanelHarness::~PanelHarness() {
  if (_panel) _backend.ExpectMirrorsDialog(*_panel);
  Close();
  KorApplicationFrame::SetBackend(nullptr);
  ResetProcess();
}

LumWBAllDataBuffer_var PanelHarness::BufferOf(const protocol::PartData& part) {
  auto buffer = LumWBAllDataBuffer_var::Adopt(new LumWBAllDataBuffer);
  EXPECT_EQ(buffer->SetAllData(protocol::WritePartData(part), true), S_OK) << buffer->GetLastRefusal();
  return buffer;
}

void PanelHarness::Open(const protocol::PartData& part) { Open(BufferOf(part)); }

void PanelHarness::Open(LumWBAllDataBuffer_var buffer) {
  _buffer = std::move(buffer);
  _panel = _maker(_buffer.Get());
  _panel->Attach(&_backend);
  _panel->SetVisibility(KorVisibility::Shown);
}

void PanelHarness::OpenWithoutBuffer() { Open(LumWBAllDataBuffer_var()); }

void PanelHarness::Close() { _panel.reset(); }

void PanelHarness::Press(const std::string& button) { EXPECT_TRUE(As<KorDlgPushButton>(button).Press()); }

void PanelHarness::Type(const std::string& editor, const std::string& text) {
  EXPECT_TRUE(As<KorDlgEditor>(editor).Type(text));
}

void PanelHarness::Pick(const std::string& combo, const std::string& line) {
  EXPECT_TRUE(As<KorDlgCombo>(combo).Pick(KorUnicodeString(line)));
}

void PanelHarness::Check(const std::string& radio) { EXPECT_TRUE(As<KorDlgRadioButton>(radio).Check()); }

void PanelHarness::Toggle(const std::string& check) { EXPECT_TRUE(As<KorDlgCheckButton>(check).Toggle()); }

void PanelHarness::PickPage(const std::string& page) {
  auto& tabs = As<KorDlgTabContainer>("TabContainer001");
  const KorDlgObject& wanted = Widget(page);
  for (int index = 0; index < tabs.GetPageCount(); ++index)
    if (tabs.GetPage(index) == &wanted) {
      EXPECT_TRUE(tabs.Pick(index));
      return;
    }
  ADD_FAILURE() << page << " is no page of the panel.";
}

KorDlgObject& PanelHarness::Widget(const std::string& name) {
  std::vector<KorDlgObject*> found;
  CollectEndingWith(*_panel, name, found);
  if (found.empty()) return _panel->Find(name);  // says what there is
  if (found.size() > 1)
    throw std::logic_error("\"" + name + "\" is the name of several widgets of the panel.");
  return *found.front();
}

bool PanelHarness::Has(const std::string& name) {
  std::vector<KorDlgObject*> found;
  CollectEndingWith(*_panel, name, found);
  return !found.empty();
}

std::string PanelHarness::Text(const std::string& editorOrSpinner) {
  return ShownText(Widget(editorOrSpinner), KorDlgProperty::Text);
}

std::string PanelHarness::Title(const std::string& name) { return Widget(name).GetTitle().Utf8(); }

bool PanelHarness::IsEnabled(const std::string& name) { return Widget(name).IsEnabled(); }

bool PanelHarness::IsShown(const std::string& name) { return Widget(name).IsShown(); }

bool PanelHarness::IsChecked(const std::string& button) { return As<KorDlgCheckable>(button).IsChecked(); }

std::string PanelHarness::SelectedLine(const std::string& combo) {
  return As<KorDlgCombo>(combo).GetSelectedLine().Utf8();
}

std::string PanelHarness::SelectedPage() {
  auto& tabs = As<KorDlgTabContainer>("TabContainer001");
  return tabs.GetPage(tabs.GetSelectedPage())->Name();
}

std::string PanelHarness::Joined(std::initializer_list<const char*> editors) {
  std::string text;
  for (const char* editor : editors) text += (editor == *editors.begin() ? "" : ", ") + Text(editor);
  return text;
}

std::string PanelHarness::Masses() {
  return Joined({"MassEditor", "LowerDeviationEditor", "UpperDeviationEditor"});
}
std::string PanelHarness::CG() { return Joined({"CGxEditor", "CGyEditor", "CGzEditor"}); }
std::string PanelHarness::Moments() { return Joined({"IxxEditor", "IyyEditor", "IzzEditor"}); }
std::string PanelHarness::Products() { return Joined({"IxyEditor", "IxzEditor", "IyzEditor"}); }
std::string PanelHarness::MTMoments() { return Joined({"MTIxxEditor", "MTIyyEditor", "MTIzzEditor"}); }
std::string PanelHarness::MTProducts() { return Joined({"MTIxyEditor", "MTIxzEditor", "MTIyzEditor"}); }

std::string PanelHarness::CatalogueText(const std::string& key) {
  EXPECT_TRUE(KorMsgCatalog::Has(kCatalogue, key)) << key;
  return KorMsgCatalog::BuildMessage(kCatalogue, key).Utf8();
}

void PanelHarness::SetUnit(const std::string& magnitude, const std::string& unit) {
  EXPECT_EQ(KorCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(magnitude)->SetCurrentUnit(unit), S_OK);
}
