#include "desktop/app/UnreadQuestion.h"

#include "desktop/app/Questions.h"
#include "desktop/app/ReadableTexts.h"
#include "desktop/app/Texts.h"

namespace desktop {
namespace {

QString EntryOf(const UnreadText& text, const LumWBAllDataBuffer& buffer) {
  return Text("Unread.Line", {PlaceOf(text, buffer), Shortened(text.text)}) + '\n' +
         Text("Unread.Instead", {text.storedInstead});
}

}  // namespace

bool AgreesToStoreInstead(KorDlgDialog& panel, const LumWBAllDataBuffer& buffer,
                          const std::vector<UnreadText>& texts) {
  QStringList entries{CountedText(texts.size(), "Unread.One", "Unread.Many")};
  for (const UnreadText& text : texts) entries << EntryOf(text, buffer);
  return UserAgrees(&panel, {"Unread.Title", "Unread.Save", "Unread.Back"}, entries.join("\n\n"));
}

}  // namespace desktop
