#include "desktop/app/CatalogueProblems.h"

#include <QDir>

#include "desktop/app/Texts.h"
#include "desktop/toolkit/QtText.h"
#include "framework/dialog/KorMsgCatalog.h"

namespace desktop {
namespace {

QString LanguageFolder(const QString& language) {
  return QDir(QString::fromStdString(KorMsgCatalog::GetFolder())).filePath(language);
}

}  // namespace

QStringList CatalogueProblems::TakeNew(const QString& wantedLanguage) {
  QStringList problems;
  const bool isCurrent = wantedLanguage.toStdString() == KorMsgCatalog::GetLanguage();
  if (!isCurrent && _told.insert(LanguageFolder(wantedLanguage).toStdString()).second)
    problems << TextOr("Error.LanguageFolder", "The folder \"{1}\" of the language \"{2}\" is missing.",
                       {LanguageFolder(wantedLanguage), wantedLanguage});
  for (const KorUnicodeString& problem : KorMsgCatalog::Problems())
    if (_told.insert(problem.Utf8()).second) problems << ToQt(problem);
  return problems;
}

}  // namespace desktop
