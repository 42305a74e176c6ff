#include "desktop/app/Texts.h"

#include <string>
#include <vector>

#include "desktop/toolkit/QtText.h"
#include "framework/dialog/KorMsgCatalog.h"

namespace desktop {

QString Text(const char* key, const QStringList& parameters) { return TextOr(key, key, parameters); }

QString TextOr(const char* key, const char* fallback, const QStringList& parameters) {
  std::vector<KorUnicodeString> values;
  for (const QString& parameter : parameters) values.push_back(FromQt(parameter));
  return ToQt(KorMsgCatalog::BuildMessage("KorvoDesktop", key, values.data(), static_cast<int>(values.size()),
                                          fallback));
}

QString CountedText(qulonglong number, const char* one, const char* many) {
  return Text(number == 1 ? one : many, {QString::number(number)});
}

QString ProgressText(std::string_view what) {
  const std::string own(what);
  return TextOr(("Progress." + own).c_str(), own.c_str());
}

}  // namespace desktop
