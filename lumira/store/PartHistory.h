#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "lumira/model/Part.h"
#include "lumira/store/PartDetails.h"

namespace lumira {

/// Everything that is kept of one part, as it was at one moment.
struct StoredPart {
  Part part;
  PartDetails details;
  std::int64_t state = 0;  ///< another one with every change of part or details, never the same again
};

/// Who changes something, and when.
struct Signature {
  std::string user;
  std::string time;  ///< UTC, "YYYY-MM-DDThh:mm:ssZ"

  friend bool operator==(const Signature&, const Signature&) = default;
};

/// What a user saves of a part, with what goes into its history. The store does not look into the texts.
struct PartSaving {
  StoredPart saved;  ///< `state` is the one that the saving stands on
  Signature by;
  std::string before;  ///< the saved values as a text, as they were in that state
  std::string after;   ///< as they are from now on
};

/// What a saving leads to.
struct SavedState {
  std::int64_t state = 0;          ///< of the part
  std::string product;             ///< that has the part
  std::int64_t productBefore = 0;  ///< `ProductInfo::state`
  std::int64_t productAfter = 0;   ///< greater by one when the data of a computation changed, else the same
};

/// One saving of a part, as its history keeps it.
struct HistoryRecord {
  std::int64_t number = 0;  ///< 1 for the first of the part, without gaps
  Signature by;
  std::int64_t stateBefore = 0;  ///< of the part
  std::int64_t stateAfter = 0;

  friend bool operator==(const HistoryRecord&, const HistoryRecord&) = default;
};

/// Some records of a part's history, the latest first.
struct HistoryPage {
  std::int64_t total = 0;  ///< records that the part has
  std::vector<HistoryRecord> records;
};

/// The texts of `PartSaving` that belong to a record.
struct HistoryTexts {
  std::string before;
  std::string after;

  friend bool operator==(const HistoryTexts&, const HistoryTexts&) = default;
};

}  // namespace lumira
