#pragma once

#include <optional>
#include <string>
#include <vector>

namespace protocol {

/// One field that a save has changed, for people: its name and values as texts, none for an absent value.
struct FieldChange {
  std::string field = {};
  std::optional<std::string> before = {};  ///< cut to `kMaxShownValueBytes`
  std::optional<std::string> after = {};   ///< cut in the same way

  friend bool operator==(const FieldChange&, const FieldChange&) = default;
};

/// One save of a part.
struct HistoryEntry {
  int number = 1;                         ///< 1 for the first save of the part, without gaps
  std::string time = {};                  ///< UTC, "YYYY-MM-DDThh:mm:ssZ"
  std::string user = {};                  ///< who saved
  int changeCount = 0;                    ///< fields that the save changed
  std::vector<FieldChange> changes = {};  ///< the first `kMaxHistoryChanges` of them
};

/// Asks for the saves of a part, the latest first, one page at a time.
struct HistoryRequest {
  std::string partId = {};
  int before = 0;   ///< only entries with a smaller number; 0: from the latest on
  int limit = 100;  ///< most entries in the reply
};

/// Answers "LumGetHistory".
struct History {
  std::string partId = {};
  int total = 0;  ///< saves of the part, and the number of the latest one
  std::vector<HistoryEntry> entries = {};
};

/// Which side of a save is meant. On the wire as the number.
enum class HistoryMoment : int { Before = 0, After = 1 };

/// Asks for the part as it was before or after one of its saves; PartData answers it.
struct HistoryStateRequest {
  std::string partId = {};
  int number = 1;
  HistoryMoment moment = HistoryMoment::Before;
};

}  // namespace protocol
