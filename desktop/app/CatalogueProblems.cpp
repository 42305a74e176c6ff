#include "desktop/app/CatalogueProblems.h"

#include "desktop/toolkit/QtText.h"
#include "framework/dialog/KorMsgCatalog.h"

namespace desktop {

QStringList CatalogueProblems::TakeNew() {
  QStringList problems;
  for (const KorUnicodeString& problem : KorMsgCatalog::Problems())
    if (_told.insert(problem.Utf8()).second) problems << ToQt(problem);
  return problems;
}

}  // namespace desktop
