#include "desktop/toolkit/QtText.h"

int desktop::Utf16Position(const QString& text, int characters) {
  int position = 0;
  for (; characters > 0 && position < text.size(); --characters)
    position += text.at(position).isHighSurrogate() && position + 1 < text.size() ? 2 : 1;
  return position;
}
