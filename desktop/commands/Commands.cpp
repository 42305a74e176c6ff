// The host's weight-and-balance commands on the module's panels.
#include "desktop/commands/KorWBCommands.h"
#include "framework/dialog/KorDlgMultiList.h"
#include "framework/system/KorClassDictionary.h"
#include "framework/system/KorExport.h"
#include "module/filter_panel/KorWBNymNavFilterPanel.h"
#include "module/main_panel/KorWBNymMainPanel.h"
#include "module/shared/KorIWBWarning.h"

namespace {

class PartPanel : public KorWBPartPanel {
 public:
  explicit PartPanel(KorWBAllDataBuffer& buffer) : _panel(&buffer) {}

  KorDlgDialog& Dialog() override { return _panel; }
  void Bind(KorWBAllDataBuffer& buffer) override { _panel.SetModel(&buffer); }
  void Refresh() override { _panel.RefreshPanelWithInfo(); }

 private:
  KorWBNymMainPanel _panel;
};

KorUnicodeString Joined(const std::vector<KorUnicodeString>& instances) {
  KorUnicodeString path;
  for (const KorUnicodeString& instance : instances) path += (path.IsEmpty() ? "" : "|") + instance;
  return path;
}

class FilterPanel : public KorWBFilterPanel {
 public:
  explicit FilterPanel(std::unique_ptr<KorWBNymNavFilterPanel> panel) : _panel(std::move(panel)) {}

  KorDlgDialog& Dialog() override { return *_panel; }
  bool Add(const KorWBPickedInstance& one) override {
    const KorUnicodeString path = Joined(one.above);
    if (_panel->IsDuplicate(one.instanceId, one.partId, one.partVersion, path)) return false;
    _panel->AddValuesInMultiList(one.instanceId, one.partId, one.partVersion, path,
                                 static_cast<std::int32_t>(one.above.size()));
    return true;
  }

 private:
  std::unique_ptr<KorWBNymNavFilterPanel> _panel;
};

/// Null when the dictionary does not know the class, or its factory fails. The name must be that of the
/// class.
template <class Panel>
std::unique_ptr<Panel> CreateByClassName(const char* className) {
  return std::unique_ptr<Panel>(static_cast<Panel*>(KorClassDictionary::Create(className)));
}

class Commands : public KorWBCommands {
 public:
  std::unique_ptr<KorWBPartPanel> CreatePartPanel(KorWBAllDataBuffer& buffer) const override {
    return std::make_unique<PartPanel>(buffer);
  }

  std::unique_ptr<KorWBFilterPanel> CreateFilterPanel(const KorUnicodeString& product,
                                                      KorCommand& parent) const override {
    auto panel = CreateByClassName<KorWBNymNavFilterPanel>("KorWBNymNavFilterPanel");
    if (!panel) return nullptr;
    panel->SetPRCId(product);
    panel->SetParentCommand(&parent);
    panel->Build();
    return std::make_unique<FilterPanel>(std::move(panel));
  }

  std::unique_ptr<KorDlgDialog> CreateWarningList(
      const std::vector<KorUnicodeString>& warnings) const override {
    auto dialog = std::make_unique<KorIWBWarning>();
    dialog->Build();
    auto& list = dialog->Find<KorDlgMultiList>("MultiList001");
    for (const KorUnicodeString& warning : warnings) list.SetColumnItem(0, warning, list.GetLineCount());
    return dialog;
  }

  KorUnicodeString GetFilter(const KorUnicodeString& product) const override {
    return KorWBNymNavFilterPanel::GetFilter(product);
  }
  KorUnicodeString GetDisplayFilter(const KorUnicodeString& product) const override {
    return KorWBNymNavFilterPanel::GetDisplayFilter(product);
  }
};

}  // namespace

extern "C" KOR_SYMBOL_EXPORT const KorWBCommands* fctGetKorWBCommands() {
  static const Commands commands;
  return &commands;
}
