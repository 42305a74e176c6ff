#include "desktop/app/Folders.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include "desktop/app/Texts.h"

namespace desktop {
namespace {

/// A folder that comes with the program, and what tells it from another of its name.
struct OwnFolder {
  const char* variable;  ///< of the environment; names the folder where it is not beside the program
  const char* name;
  const char* content;
};

constexpr OwnFolder kCatalogues{"KORVO_CATALOGUES", "catalogues", "en"};
constexpr OwnFolder kSamples{"KORVO_SAMPLES", "samples", "iea15"};

QString Find(const OwnFolder& own) {
  if (qEnvironmentVariableIsSet(own.variable)) {
    const QString named = qEnvironmentVariable(own.variable);
    return QDir(named).exists(own.content) ? named : QString();
  }
  // Installed beside the program, or in the source tree that the program was built in.
  QDir above(QCoreApplication::applicationDirPath());
  do {
    for (const QString& place : {QString(own.name), QString("share/korvo/") + own.name})
      if (QDir(above.filePath(place)).exists(own.content)) return above.filePath(place);
  } while (above.cdUp());
  return {};
}

QString WhyMissing(const OwnFolder& own) {
  if (qEnvironmentVariableIsSet(own.variable))
    return TextOr("Error.NamedFolder",
                  "The folder \"{1}\", which the environment variable {2} names, is missing or has no "
                  "\"{3}\" in it.",
                  {qEnvironmentVariable(own.variable), own.variable, own.content});
  return TextOr("Error.OwnFolder",
                "The folder \"{1}\" is missing in \"{2}\" and above it. The environment variable {3} can "
                "name it.",
                {own.name, QCoreApplication::applicationDirPath(), own.variable});
}

}  // namespace

QString Folders::Catalogues() { return Find(kCatalogues); }

QString Folders::WhyNoCatalogues() { return WhyMissing(kCatalogues); }

QString Folders::Samples() { return Find(kSamples); }

QString Folders::WhyNoSamples() { return WhyMissing(kSamples); }

QStringList Folders::Libraries() {
  if (qEnvironmentVariableIsSet("KORVO_LIBRARIES")) return {qEnvironmentVariable("KORVO_LIBRARIES")};
  const QDir program(QCoreApplication::applicationDirPath());
  QStringList folders{program.path()};
  for (const char* beside : {"../lib", "../lib/korvo"}) folders << QDir::cleanPath(program.filePath(beside));
  return folders;
}

QString Folders::UserData() { return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation); }

}  // namespace desktop
