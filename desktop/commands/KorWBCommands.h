#pragma once

#include <memory>
#include <vector>

#include "desktop/commands/KorWBFilterPanel.h"
#include "desktop/commands/KorWBPartPanel.h"

class KorCommand;

/// The host's weight-and-balance commands: all that the desktop needs of the module's panels.
///
/// They live in a library of their own that the desktop loads when it starts. A panel comes laid out, hidden
/// and without a toolkit; whoever has it made attaches and shows it, and destroys it before the library is
/// unloaded. Everything happens on the user-interface thread.
class KorWBCommands {
 public:
  /// A part panel on a buffer, to which the panel holds a reference.
  virtual std::unique_ptr<KorWBPartPanel> CreatePartPanel(KorWBAllDataBuffer& buffer) const = 0;

  /// A filter panel, made by its class name. `product` must be the server's current root. `parent` is told
  /// when OK or Cancel is pressed or the window closed, before the panel hides itself, and must outlive the
  /// panel. Null when there is no class of that name, or no memory.
  virtual std::unique_ptr<KorWBFilterPanel> CreateFilterPanel(const KorUnicodeString& product,
                                                              KorCommand& parent) const = 0;

  /// A list of warnings, one to a line. Its Close button hides it.
  virtual std::unique_ptr<KorDlgDialog> CreateWarningList(
      const std::vector<KorUnicodeString>& warnings) const = 0;

  /// The filter in force for a product, as requests carry it, and as people read it.
  virtual KorUnicodeString GetFilter(const KorUnicodeString& product) const = 0;
  virtual KorUnicodeString GetDisplayFilter(const KorUnicodeString& product) const = 0;

 protected:
  ~KorWBCommands() = default;
};

/// What the library exports: a function of this name and type. The commands belong to the library.
inline constexpr const char* kKorWBCommandsFactory = "fctGetKorWBCommands";
using KorWBCommandsFactory = const KorWBCommands* (*)();
