#include <set>

#include "framework/dialog/KorMsgCatalog.h"
#include "tests/module/PanelTest.h"
#include "tests/support/ShownText.h"

namespace {

constexpr const char* kCatalogue = "KorWBNymMainPanel";

/// Keys that the panel's code asks for, besides those of its widgets.
constexpr const char* kMessages[] = {"ServerError.Title",
                                     "WBWarnings001.Title",
                                     "WBWarnings001.Message",
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
  static std::set<std::string> KeysOf(const char* language) {
    std::vector<KorUnicodeString> problems;
    const auto texts = KorMsgCatalog::ReadFile(
        KorMsgCatalog::GetFolder() + "/" + language + "/" + kCatalogue + ".txt", problems);
    EXPECT_TRUE(problems.empty()) << problems.front();
    std::set<std::string> keys;
    for (const auto& [key, text] : texts) keys.insert(key);
    return keys;
  }
};

TEST_F(Catalogues, EveryWidgetThatShowsATitleHasOne) {
  ForEach(Panel(), [](const KorDlgObject& widget) {
    EXPECT_TRUE(!ShowsATitle(widget) || !widget.GetTitle().Strip().IsEmpty()) << FullName(widget);
  });
  EXPECT_FALSE(Panel().GetTitle().IsEmpty());
}

TEST_F(Catalogues, EveryWidgetHasAShortHelp) {
  ForEach(Panel(), [](const KorDlgObject& widget) {
    EXPECT_TRUE(!NeedsHelp(widget) || !widget.GetShortHelp().Strip().IsEmpty()) << FullName(widget);
  });
}

TEST_F(Catalogues, EveryMessageOfThePanelHasAText) {
  for (const char* key : kMessages) EXPECT_NE(CatalogueText(key), "") << key;
}

TEST_F(Catalogues, NoKeyIsUnused) {
  std::set<std::string> used(std::begin(kMessages), std::end(kMessages));
  used.insert({"Title", "ShortHelp"});
  ForEach(Panel(), [&](const KorDlgObject& widget) {
    used.insert(widget.Path() + ".Title");
    used.insert(widget.Path() + ".ShortHelp");
  });
  for (const std::string& key : KeysOf("en")) EXPECT_TRUE(used.contains(key)) << key;
}

TEST_F(Catalogues, EveryOtherLanguageHasOnlyKeysThatEnglishHas) {
  const std::set<std::string> english = KeysOf("en");
  for (const KorString& language : KorMsgCatalog::Languages())
    for (const std::string& key : KeysOf(language.c_str()))
      EXPECT_TRUE(english.contains(key)) << language << ": " << key;
}

TEST_F(Catalogues, AnotherLanguageFallsBackToEnglishWhereItHasNoText) {
  const std::string english = Title("TabPage002");
  ASSERT_EQ(KorMsgCatalog::SetLanguage("de"), S_OK);
  Panel().ReloadTexts();
  EXPECT_NE(Title("TabPage002"), "");
  ForEach(Panel(), [](const KorDlgObject& widget) {
    EXPECT_TRUE(!ShowsATitle(widget) || !widget.GetTitle().IsEmpty()) << FullName(widget);
  });
  KorMsgCatalog::SetLanguage("en");
  Panel().ReloadTexts();
  EXPECT_EQ(Title("TabPage002"), english);
}

TEST_F(Catalogues, TheMarkOfErrorsAmongWarningsIsTheSameInEveryLanguage) {
  for (const KorString& language : KorMsgCatalog::Languages()) {
    KorMsgCatalog::SetLanguage(language);
    EXPECT_EQ(CatalogueText("WBWarnings001.Message"), "__ERROR__") << language;
  }
  KorMsgCatalog::SetLanguage("en");
}

}  // namespace
