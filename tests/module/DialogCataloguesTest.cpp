#include <functional>
#include <memory>

#include "module/filter_panel/KorWBNymNavFilterPanel.h"
#include "module/report_panel/KorWBNymNavReportPanel.h"
#include "module/shared/KorIWBWarning.h"
#include "tests/module/CatalogueChecks.h"
#include "tests/support/ShownText.h"

namespace {

/// A dialog, and the keys that it asks for besides those of its widgets' titles and helps.
struct Dialog {
  const char* catalogue;
  std::function<std::unique_ptr<KorDlgDialog>()> make;
  std::set<std::string> messages;
};
void PrintTo(const Dialog& dialog, std::ostream* out) { *out << dialog.catalogue; }

const std::string kList = "TabContainer001.TabPage001.MainFrame.Frame001.FilterMultiList.";

struct DialogCatalogues : testing::TestWithParam<Dialog> {
  DialogCatalogues() {
    if (KorMsgCatalog::GetFolder().empty()) KorMsgCatalog::SetFolder(KORVO_SOURCE_DIR "/catalogues");
    dialog->Build();
    dialog->ReloadTexts();
  }
  ~DialogCatalogues() override { KorMsgCatalog::SetLanguage("en"); }

  std::unique_ptr<KorDlgDialog> dialog = GetParam().make();
};

TEST_P(DialogCatalogues, GiveTheWindowATitleAndAHelpInEveryLanguage) {
  for (const KorString& language : KorMsgCatalog::Languages()) {
    const CatalogueTexts texts = TextsOf(language, GetParam().catalogue);
    ASSERT_EQ(KorMsgCatalog::SetLanguage(language), S_OK);
    dialog->ReloadTexts();
    for (const auto& [key, shown] : {std::pair<const char*, KorUnicodeString>{"Title", dialog->GetTitle()},
                                     {"ShortHelp", dialog->GetShortHelp()}}) {
      const auto text = texts.find(key);
      ASSERT_NE(text, texts.end()) << language << ": " << key;
      EXPECT_EQ(shown, text->second);
      EXPECT_FALSE(shown.Strip().IsEmpty()) << language << ": " << key;
    }
  }
}

TEST_P(DialogCatalogues, GiveEveryWidgetItsTitleAndHelpInEveryLanguage) {
  for (const KorString& language : KorMsgCatalog::Languages()) {
    const CatalogueTexts texts = TextsOf(language, GetParam().catalogue);
    ForEachBelow(*dialog, [&](const KorDlgObject& widget) {
      EXPECT_TRUE(!ShowsATitle(widget) || texts.contains(widget.Path() + ".Title")) << FullName(widget);
      EXPECT_TRUE(!NeedsHelp(widget) || texts.contains(widget.Path() + ".ShortHelp")) << FullName(widget);
    });
  }
}

TEST_P(DialogCatalogues, HaveTheTextsOfTheCodeAndNoneThatNobodyUses) {
  std::set<std::string> used = GetParam().messages;
  used.insert({"Title", "ShortHelp"});
  ForEachBelow(*dialog, [&](const KorDlgObject& widget) {
    if (ShowsATitle(widget)) used.insert(widget.Path() + ".Title");
    if (NeedsHelp(widget)) used.insert(widget.Path() + ".ShortHelp");
  });
  EXPECT_EQ(KeysOf("en", GetParam().catalogue), used);
}

TEST_P(DialogCatalogues, AreThoseThatTheDialogNames) {
  EXPECT_EQ(dialog->GetResourceFilename(0), GetParam().catalogue);
}

INSTANTIATE_TEST_SUITE_P(
    Dialogs, DialogCatalogues,
    testing::Values(
        Dialog{"KorWBNymNavFilterPanel",
               [] { return std::make_unique<KorWBNymNavFilterPanel>(); },
               {kList + "ColumnName1", kList + "ColumnName2", kList + "ColumnName3", kList + "ColumnName4",
                kList + "ColumnName5", kList + "ColumnName6"}},
        Dialog{
            "KorIWBWarning", [] { return std::make_unique<KorIWBWarning>(); }, {"MultiList001.ColumnTitle1"}},
        Dialog{"KorWBNymNavReportPanel", [] { return std::make_unique<KorWBNymNavReportPanel>(); }, {}}));

}  // namespace
