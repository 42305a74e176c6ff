#include "desktop/app/Folders.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace desktop {

QString Folders::Catalogues() { return Find("KORVO_CATALOGUES", "catalogues", "en"); }

QString Folders::Samples() { return Find("KORVO_SAMPLES", "samples", "iea15"); }

QString Folders::UserData() { return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation); }

QString Folders::Find(const char* variable, const char* folder, const char* content) {
  if (qEnvironmentVariableIsSet(variable)) {
    const QString named = qEnvironmentVariable(variable);
    return QDir(named).exists(content) ? named : QString();
  }
  // Installed beside the program, or in the source tree that the program was built in.
  QDir above(QCoreApplication::applicationDirPath());
  do {
    for (const QString& place : {QString(folder), QString("share/korvo/") + folder})
      if (QDir(above.filePath(place)).exists(content)) return above.filePath(place);
  } while (above.cdUp());
  return {};
}

}  // namespace desktop
