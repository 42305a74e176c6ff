#include "desktop/toolkit/QtText.h"

QString desktop::AsWrappedTip(const QStringList& lines) {
  if (lines.isEmpty()) return {};
  return "<qt>" + lines.join('\n').toHtmlEscaped().replace('\n', "<br>") + "</qt>";
}

int desktop::Utf16Position(const QString& text, int characters) {
  int position = 0;
  for (; characters > 0 && position < text.size(); --characters)
    position += text.at(position).isHighSurrogate() && position + 1 < text.size() ? 2 : 1;
  return position;
}
