#include <filesystem>
#include <set>

#include "framework/dialog/KorMsgCatalog.h"
#include "module/filter_panel/KorWBNymNavFilterPanel.h"
#include "tests/module/CatalogueChecks.h"
#include "tests/module/PanelTest.h"
#include "tests/support/ShownText.h"
#include "tests/support/TemporaryCatalogues.h"

namespace {

constexpr const char* kCatalogue = "KorWBNymMainPanel";
/// No text: it stands in English only.
constexpr const char* kMark = "WBWarnings001.Message";

/// Keys that the panel's code asks for, besides those of its widgets.
constexpr const char* kMessages[] = {"ServerError.Title",
                                     "WBWarnings001.Title",
                                     kMark,
                                     "WBErrors001.Title",
                                     "KorWBNymMainPanel.CustomModeEmptyValue.Title",
                                     "KorWBNymMainPanel.CustomModeEmptyValue.Message",
                                     "DocumentsNotFound001.Title",
                                     "NoDocsFoundMessage",
                                     "WB_ComputePart100",
                                     "EmptyField.Title",
                                     "EmptyMaterialField.Message",
                                     "DensityZero.Title",
                                     "DensityZero.Message",
                                     "WrongPropertyValue001.Title",
                                     "UnsuitablePropertyValue100",
                                     "SaveReplyNotRead.Message"};

class Catalogues : public PanelTest {
 protected:
  Catalogues() {
    protocol::PartData part = SamplePartWithDocuments();
    part.propertiesRequested = true;
    part.properties = SamplePartWithADate().properties;
    part.hasInstance = false;
    Open(part);
  }
  ~Catalogues() override { KorMsgCatalog::SetLanguage("en"); }

  /// Names of the catalogues of the module and its services.
  static std::set<std::string> NamesIn(const KorString& language) {
    std::set<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(KorMsgCatalog::GetFolder() + "/" + language))
      if (const std::string name = file.path().stem().string();
          name.starts_with("KorWB") || name.starts_with("KorIWB"))
        names.insert(name);
    return names;
  }
  void Speak(const KorString& language) {
    ASSERT_EQ(KorMsgCatalog::SetLanguage(language), S_OK);
    Panel().ReloadTexts();
  }
};

TEST_F(Catalogues, EveryWidgetThatShowsATitleHasOne) {
  ForEachBelow(Panel(), [](const KorDlgObject& widget) {
    EXPECT_TRUE(!ShowsATitle(widget) || !widget.GetTitle().Strip().IsEmpty()) << FullName(widget);
  });
  EXPECT_FALSE(Panel().GetTitle().IsEmpty());
}

TEST_F(Catalogues, EveryWidgetHasAShortHelpOfItsOwnInEveryLanguage) {
  for (const KorString& language : KorMsgCatalog::Languages()) {
    Speak(language);
    const CatalogueTexts texts = TextsOf(language, kCatalogue);
    ForEachBelow(Panel(), [&](const KorDlgObject& widget) {
      if (!NeedsHelp(widget)) return;
      const auto help = texts.find(widget.Path() + ".ShortHelp");
      ASSERT_NE(help, texts.end()) << language << ": " << FullName(widget);
      EXPECT_FALSE(help->second.Strip().IsEmpty()) << language << ": " << FullName(widget);
      if (widget.Name() == "SelectionEditor") return;  // shows its whole text there
      EXPECT_EQ(widget.GetShortHelp(), help->second) << language << ": " << FullName(widget);
    });
  }
}

TEST_F(Catalogues, EveryMessageOfThePanelHasAText) {
  for (const char* key : kMessages) EXPECT_NE(CatalogueText(key), "") << key;
}

TEST_F(Catalogues, NoKeyIsUnused) {
  std::set<std::string> used(std::begin(kMessages), std::end(kMessages));
  used.insert({"Title", "ShortHelp"});
  ForEachBelow(Panel(), [&](const KorDlgObject& widget) {
    if (IsBlankOnPurpose(widget)) return;
    used.insert(widget.Path() + ".Title");
    used.insert(widget.Path() + ".ShortHelp");
  });
  for (const std::string& key : KeysOf("en", kCatalogue)) EXPECT_TRUE(used.contains(key)) << key;
}

TEST_F(Catalogues, StandInEveryLanguageWithTheKeysOfEnglishButTheMark) {
  const std::set<std::string> names = NamesIn("en");
  EXPECT_THAT(names, testing::ElementsAre("KorIWBWarning", "KorWBNymMainPanel", "KorWBNymNavFilterPanel",
                                          "KorWBNymNavReportPanel", "KorWBServices"));
  for (const KorString& language : KorMsgCatalog::Languages()) {
    EXPECT_EQ(NamesIn(language), names) << language;
    for (const std::string& name : names) {
      std::set<std::string> expected = KeysOf("en", name);
      if (language != "en") expected.erase(kMark);
      EXPECT_EQ(KeysOf(language, name), expected) << language << ": " << name;
    }
  }
}

TEST_F(Catalogues, HoldNoEmptyText) {
  for (const KorString& language : KorMsgCatalog::Languages())
    for (const std::string& name : NamesIn(language))
      for (const auto& [key, text] : TextsOf(language, name))
        EXPECT_FALSE(text.Strip().IsEmpty()) << language << ": " << name << ": " << key;
}

TEST_F(Catalogues, ThePanelChangesItsLanguageWhileItIsOpen) {
  EXPECT_EQ(Title("TabPage002"), "Results");
  Speak("de");
  EXPECT_EQ(Title("TabPage002"), "Ergebnisse");
  Speak("en");
  EXPECT_EQ(Title("TabPage002"), "Results");
}

TEST_F(Catalogues, AnotherLanguageFallsBackToEnglishWhereItHasNoText) {
  TemporaryCatalogues catalogues;
  catalogues.Write("en", kCatalogue,
                   "TabContainer001.TabPage002.Title = \"Only in English\"\n"
                   "TabContainer001.TabPage003.Title = \"In both\"\n");
  catalogues.Write("de", kCatalogue, "TabContainer001.TabPage003.Title = \"In beiden\"\n");
  Speak("de");
  EXPECT_EQ(Title("TabPage002"), "Only in English");
  EXPECT_EQ(Title("TabPage003"), "In beiden");
  Speak("en");
  EXPECT_EQ(Title("TabPage003"), "In both");
}

TEST_F(Catalogues, TheFilterPanelHasItsTitleAndHelpInEveryLanguage) {
  KorWBNymNavFilterPanel panel;
  panel.ReloadTexts();
  EXPECT_EQ(panel.GetTitle(), "Product filter");
  EXPECT_EQ(panel.GetShortHelp(), "Chooses which part of the product is computed.");
  Speak("de");
  panel.ReloadTexts();
  EXPECT_EQ(panel.GetTitle(), "Produktfilter");
  EXPECT_EQ(panel.GetShortHelp(), "Bestimmt, welcher Teil des Produkts berechnet wird.");
}

TEST_F(Catalogues, TheMarkOfErrorsAmongWarningsIsTheSameInEveryLanguage) {
  for (const KorString& language : KorMsgCatalog::Languages()) {
    KorMsgCatalog::SetLanguage(language);
    EXPECT_EQ(CatalogueText(kMark), "__ERROR__") << language;
  }
}

}  // namespace
