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

/// Counted here: Qt unloads a library at the first call that asks for it, whoever else has it loaded.
std::shared_ptr<QLibrary> Loaded(const QString& file) {
  static std::weak_ptr<QLibrary> kept;
  if (auto library = kept.lock(); library && library->fileName() == file) return library;
  std::shared_ptr<QLibrary> library(new QLibrary(file), [](QLibrary* one) {
    one->unload();
    delete one;
  });
  // What the module lacks must show now, not when a panel opens.
  library->setLoadHints(QLibrary::ResolveAllSymbolsHint);
  library->load();
  kept = library;
  return library;
}

}  // namespace

CommandsLibrary::CommandsLibrary() {
  const QString file = FindFile();
  if (file.isEmpty()) return;
  _library = Loaded(file);
  if (!_library->isLoaded()) return;
  const auto factory = reinterpret_cast<KorWBCommandsFactory>(_library->resolve(kKorWBCommandsFactory));
  if (factory) _commands = factory();
}

QString CommandsLibrary::WhyNot() const {
  return _commands ? QString() : Text("Error.LibraryText", {kName, Reason()});
}

QString CommandsLibrary::Reason() const {
  if (!_library) return Text("Error.NoLibrary", {Folders::Libraries().join("\", \"")});
  return _library->isLoaded() ? Text("Error.OtherLibrary", {_library->fileName(), kKorWBCommandsFactory})
                              : _library->errorString();
}

}  // namespace desktop
