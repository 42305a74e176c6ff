#include <filesystem>
#include <map>
#include <set>

#include "framework/dialog/KorMsgCatalog.h"
#include "module/filter_panel/KorWBNymNavFilterPanel.h"
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
                                     "WB_ComputePart100"};

bool IsBlankOnPurpose(const KorDlgObject& widget) {
  // Spacers of the two rows of buttons and of the mass-types page.
  const std::string parent = widget.Parent()->Name();
  const std::set<std::string> pads = {"Label252", "Label251", "Label247", "ActiveDocsPad1"};
  return widget.Kind() == KorDlgKind::Label &&
         (pads.contains(widget.Name()) || (parent == "Frame231" && widget.GetTitle().Strip().IsEmpty()));
}

bool ShowsATitle(const KorDlgObject& widget) {
  switch (widget.Kind()) {
    case KorDlgKind::Label:
    case KorDlgKind::RadioButton:
    case KorDlgKind::CheckButton:
    case KorDlgKind::PushButton:
      return !IsBlankOnPurpose(widget);
    case KorDlgKind::TabPage:
      return true;
    case KorDlgKind::Frame:
      return widget.Style() == KorDlgStyle::kTitledFrame;
    default:
      return false;
  }
}

bool NeedsHelp(const KorDlgObject& widget) {
  const KorDlgKind kind = widget.Kind();
  if (kind == KorDlgKind::TabContainer || kind == KorDlgKind::Frame) return ShowsATitle(widget);
  return !IsBlankOnPurpose(widget);
}

class Catalogues : public PanelTest {
 protected:
  Catalogues() {
    protocol::PartData part = SamplePartWithDocuments();
    part.propertiesRequested = true;
    part.properties = SamplePartWithADate().properties;
    part.hasInstance = false;
    Open(part);
  }
  template <class Visit>
  static void ForEach(const KorDlgObject& parent, Visit visit) {
    for (const auto& child : parent.Children()) {
      visit(*child);
      ForEach(*child, visit);
    }
  }
  ~Catalogues() override { KorMsgCatalog::SetLanguage("en"); }

  using Texts = std::map<KorString, KorUnicodeString, std::less<>>;
  static Texts TextsOf(const KorString& language, const std::string& catalogue) {
    std::vector<KorUnicodeString> problems;
    Texts texts = KorMsgCatalog::ReadFile(
        KorMsgCatalog::GetFolder() + "/" + language + "/" + catalogue + ".txt", problems);
    EXPECT_TRUE(problems.empty()) << problems.front();
    return texts;
  }
  static std::set<std::string> KeysOf(const KorString& language, const std::string& catalogue) {
    std::set<std::string> keys;
    for (const auto& [key, text] : TextsOf(language, catalogue)) keys.insert(key);
    return keys;
  }
  /// Names of the catalogues of the module and its services.
  static std::set<std::string> NamesIn(const KorString& language) {
    std::set<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(KorMsgCatalog::GetFolder() + "/" + language))
      if (const std::string name = file.path().stem().string(); name.starts_with("KorWB")) names.insert(name);
    return names;
  }
  void Speak(const KorString& language) {
    ASSERT_EQ(KorMsgCatalog::SetLanguage(language), S_OK);
    Panel().ReloadTexts();
  }
};

TEST_F(Catalogues, EveryWidgetThatShowsATitleHasOne) {
  ForEach(Panel(), [](const KorDlgObject& widget) {
    EXPECT_TRUE(!ShowsATitle(widget) || !widget.GetTitle().Strip().IsEmpty()) << FullName(widget);
  });
  EXPECT_FALSE(Panel().GetTitle().IsEmpty());
}

TEST_F(Catalogues, EveryWidgetHasAShortHelpOfItsOwnInEveryLanguage) {
  for (const KorString& language : KorMsgCatalog::Languages()) {
    Speak(language);
    const Texts texts = TextsOf(language, kCatalogue);
    ForEach(Panel(), [&](const KorDlgObject& widget) {
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
  ForEach(Panel(), [&](const KorDlgObject& widget) {
    if (IsBlankOnPurpose(widget)) return;
    used.insert(widget.Path() + ".Title");
    used.insert(widget.Path() + ".ShortHelp");
  });
  for (const std::string& key : KeysOf("en", kCatalogue)) EXPECT_TRUE(used.contains(key)) << key;
}

TEST_F(Catalogues, StandInEveryLanguageWithTheKeysOfEnglishButTheMark) {
  const std::set<std::string> names = NamesIn("en");
  EXPECT_THAT(names, testing::ElementsAre("KorWBNymMainPanel", "KorWBNymNavFilterPanel", "KorWBServices"));
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
