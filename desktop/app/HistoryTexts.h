#pragma once

#include <QString>
#include <map>
#include <string>

#include "protocol/History.h"
#include "protocol/PartData.h"

namespace desktop {

/// What the values of a save mean that their fields alone do not tell.
struct HistoryContext {
  std::map<std::string, std::string> magnitudes;  ///< of extra properties, by name
  /// Whether the bounds of a mass type, by name, are parts of its mass, and no masses. Those of a mass type
  /// that is not here may be either.
  std::map<std::string, bool> isRelative;

  /// As a part is now.
  static HistoryContext Of(const protocol::PartData& data);
  /// Takes the context after a save to that before it. What a save may have changed of the kinds of bounds
  /// without listing it is not known any more.
  void GoBackOver(const protocol::HistoryEntry& save);
};

/// Whether a save changed more fields than are listed.
bool IsCut(const protocol::HistoryEntry& save);

/// A changed field for people: what it is called, and its values in the units in which values are shown
/// elsewhere. What is not known here stands as the server sent it.
struct HistoryTexts {
  QString field;
  QString before;
  QString after;
  bool hasUnknownKind = false;  ///< a bound of which it is not known whether it is a mass

  /// The contexts after and before the save that changed the field.
  static HistoryTexts Of(const protocol::FieldChange& change, const HistoryContext& after,
                         const HistoryContext& before);
};

}  // namespace desktop
