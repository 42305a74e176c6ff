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
  std::map<std::string, bool> isRelative;         ///< bounds of a mass type in percent, by name

  /// As a part is now.
  static HistoryContext Of(const protocol::PartData& data);
  /// Takes the context after a save to that before it.
  void GoBackOver(const protocol::HistoryEntry& save);
};

/// A changed field for people: what it is called, and its values in the units in which values are shown
/// elsewhere. What is not known here stands as the server sent it.
struct HistoryTexts {
  QString field;
  QString before;
  QString after;

  /// The contexts after and before the save that changed the field.
  static HistoryTexts Of(const protocol::FieldChange& change, const HistoryContext& after,
                         const HistoryContext& before);
};

}  // namespace desktop
