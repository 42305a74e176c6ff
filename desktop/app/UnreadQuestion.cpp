#include "desktop/app/UnreadQuestion.h"

#include "desktop/app/Questions.h"
#include "desktop/app/ReadableTexts.h"
#include "desktop/app/Texts.h"

namespace desktop {
namespace {

QString LineOf(const UnreadText& text, const LumWBAllDataBuffer& buffer) {
  return Text("Unread.Line", {PlaceOf(text, buffer), Shortened(text.text), text.storedInstead});
}

}  // namespace

bool AgreesToStoreInstead(KorDlgDialog& panel, const LumWBAllDataBuffer& buffer,
                          const std::vector<UnreadText>& texts) {
  QStringList lines{CountedText(texts.size(), "Unread.One", "Unread.Many"), QString()};
  for (const UnreadText& text : texts) lines << LineOf(text, buffer);
  return UserAgrees(&panel, {"Unread.Title", "Unread.Save", "Unread.Back"}, lines.join('\n'));
}

}  // namespace desktop
