#include "desktop/app/Texts.h"

#include <vector>

#include "desktop/toolkit/QtText.h"
#include "framework/dialog/KorMsgCatalog.h"

QString desktop::Text(const char* key, const QStringList& parameters) {
  std::vector<KorUnicodeString> values;
  for (const QString& parameter : parameters) values.push_back(FromQt(parameter));
  return ToQt(
      KorMsgCatalog::BuildMessage("KorvoDesktop", key, values.data(), static_cast<int>(values.size()), key));
}
