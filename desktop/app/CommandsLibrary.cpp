#include "desktop/app/CommandsLibrary.h"

#include <QDir>

#include "desktop/app/Folders.h"
#include "desktop/app/Texts.h"

namespace desktop {
namespace {

constexpr const char* kName = "KorWBNymNavCommands";

/// The file of the library in the first folder that has one; empty when none has.
QString FindFile() {
  for (const QString& folder : Folders::Libraries())
    for (const QString& file : QDir(folder).entryList({QString("*%1.*").arg(kName)}, QDir::Files))
      if (QLibrary::isLibrary(file)) return QDir(folder).filePath(file);
  return {};
}

}  // namespace

CommandsLibrary::CommandsLibrary() {
  const QString file = FindFile();
  if (file.isEmpty()) return;
  _library.setFileName(file);
  // What the module lacks must show now, not when a panel opens.
  _library.setLoadHints(QLibrary::ResolveAllSymbolsHint);
  if (!_library.load()) return;
  const auto factory = reinterpret_cast<KorWBCommandsFactory>(_library.resolve(kKorWBCommandsFactory));
  if (factory) _commands = factory();
}

CommandsLibrary::~CommandsLibrary() {
  if (_library.isLoaded()) _library.unload();
}

QString CommandsLibrary::WhyNot() const {
  if (_commands) return {};
  const QString reason = _library.fileName().isEmpty()
                             ? Text("Error.NoLibrary", {Folders::Libraries().join("\", \"")})
                             : _library.errorString();
  return Text("Error.LibraryText", {kName, reason});
}

}  // namespace desktop
