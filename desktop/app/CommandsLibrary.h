#pragma once

#include <QLibrary>
#include <memory>

#include "desktop/commands/KorWBCommands.h"

namespace desktop {

/// The library of weight-and-balance commands, with the module behind it: loaded for as long as an object of
/// this class lives. Whatever the commands made must be gone before.
class CommandsLibrary {
 public:
  /// Looks in the folders of Folders::Libraries.
  CommandsLibrary();
  CommandsLibrary(const CommandsLibrary&) = delete;
  CommandsLibrary& operator=(const CommandsLibrary&) = delete;

  /// Null when the library cannot be loaded.
  const KorWBCommands* Commands() const { return _commands; }
  /// Why it cannot be loaded, for people; empty when it is.
  QString WhyNot() const;

 private:
  QString Reason() const;

  std::shared_ptr<QLibrary> _library;  ///< null when there is no file
  const KorWBCommands* _commands = nullptr;
};

}  // namespace desktop
