#include "services/KorWBServices.h"

KorListValKorUnicodeString KorWBServices::StringTokenizer(const KorUnicodeString& text,
                                                          const KorUnicodeString& separator) {
  KorListValKorUnicodeString fields;
  if (text.IsEmpty()) return fields;
  const std::string& all = text.Utf8();
  std::size_t begin = 0;
  if (!separator.IsEmpty())
    for (std::size_t end; (end = all.find(separator.Utf8(), begin)) != std::string::npos;
         begin = end + separator.Utf8().size())
      fields.Append(all.substr(begin, end - begin));
  fields.Append(all.substr(begin));
  return fields;
}

void KorWBServices::CleanPathForDisplay(const KorUnicodeString& path, KorUnicodeString& display) {
  for (const KorUnicodeString& element : StringTokenizer(path, "|"))
    if (!element.IsEmpty()) display += "/" + element;
}
