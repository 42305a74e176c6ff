#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "framework/system/KorUnicodeString.h"

/// One chosen instance of a user filter.
struct KorWBNymNavFilterRow {
  KorUnicodeString instanceId;
  KorUnicodeString partId;
  KorUnicodeString partVersion;
  KorUnicodeString path;  ///< as many fields, joined by "|", as the depth says
  std::int32_t depth = 0;

  // ---- columns of the list that hold a row ----
  static constexpr int kInstanceColumn = 0;
  static constexpr int kPartColumn = 1;
  static constexpr int kVersionColumn = 2;
  static constexpr int kShownPathColumn = 3;  ///< the path as people read it
  static constexpr int kDepthColumn = 4;      ///< decimal
  static constexpr int kPathColumn = 5;
};

/// The rows of a user filter list; nothing when the text breaks the form anywhere: a count or depth that is
/// no number or negative, fields missing or left over.
std::optional<std::vector<KorWBNymNavFilterRow>> KorWBNymNavReadFilterRows(const KorUnicodeString& text);
