#include "desktop/app/QtTranslation.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace desktop {
namespace {
constexpr const char* kName = "QtTranslation";
}

void TranslateQt(const QString& language) {
  // Qt lets go of a translator that is destroyed.
  delete qApp->findChild<QTranslator*>(kName);
  auto* translator = new QTranslator(qApp);
  translator->setObjectName(kName);
  if (translator->load("qtbase_" + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(translator);
}

}  // namespace desktop
