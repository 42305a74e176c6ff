#include "desktop/toolkit/QtText.h"

QString desktop::AsWrappedTip(const QStringList& lines) {
  if (lines.isEmpty()) return {};
  return "<qt>" + lines.join('\n').toHtmlEscaped().replace('\n', "<br>") + "</qt>";
}

QString desktop::BreakableAnywhere(const QString& text) {
  constexpr int kLongestWhole = 16;  // characters
  constexpr QChar kMayBreakHere(0x200B);
  QString broken;
  int run = 0;
  for (const QChar letter : text) {
    run = letter.isSpace() ? 0 : run + 1;
    if (run > kLongestWhole && !letter.isLowSurrogate() && !letter.isMark()) {
      broken += kMayBreakHere;
      run = 1;
    }
    broken += letter;
  }
  return broken;
}

int desktop::Utf16Position(const QString& text, int characters) {
  int position = 0;
  for (; characters > 0 && position < text.size(); --characters)
    position += text.at(position).isHighSurrogate() && position + 1 < text.size() ? 2 : 1;
  return position;
}
