#pragma once

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "framework/dialog/KorDlgObject.h"
#include "framework/dialog/KorMsgCatalog.h"

// What the texts of a dialog are checked against.

inline bool IsBlankOnPurpose(const KorDlgObject& widget) {
  // Spacers of the two rows of buttons and of the mass-types page.
  const std::string parent = widget.Parent()->Name();
  const std::set<std::string> pads = {"Label252", "Label251", "Label247", "ActiveDocsPad1"};
  return widget.Kind() == KorDlgKind::Label &&
         (pads.contains(widget.Name()) || (parent == "Frame231" && widget.GetTitle().Strip().IsEmpty()));
}

inline bool ShowsATitle(const KorDlgObject& widget) {
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

inline bool NeedsHelp(const KorDlgObject& widget) {
  const KorDlgKind kind = widget.Kind();
  if (kind == KorDlgKind::TabContainer || kind == KorDlgKind::Frame) return ShowsATitle(widget);
  return !IsBlankOnPurpose(widget);
}

template <class Visit>
void ForEachBelow(const KorDlgObject& parent, Visit visit) {
  for (const auto& child : parent.Children()) {
    visit(*child);
    ForEachBelow(*child, visit);
  }
}

using CatalogueTexts = std::map<KorString, KorUnicodeString, std::less<>>;

inline CatalogueTexts TextsOf(const KorString& language, const std::string& catalogue) {
  std::vector<KorUnicodeString> problems;
  CatalogueTexts texts = KorMsgCatalog::ReadFile(
      KorMsgCatalog::GetFolder() + "/" + language + "/" + catalogue + ".txt", problems);
  EXPECT_TRUE(problems.empty()) << problems.front();
  return texts;
}

inline std::set<std::string> KeysOf(const KorString& language, const std::string& catalogue) {
  std::set<std::string> keys;
  for (const auto& [key, text] : TextsOf(language, catalogue)) keys.insert(key);
  return keys;
}
