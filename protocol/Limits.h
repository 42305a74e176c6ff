#pragma once

#include <cstddef>

namespace protocol {

/// Largest text of any form, bytes. A longer one is refused before it is looked at.
inline constexpr std::size_t kMaxTextBytes = std::size_t{64} << 20;

/// Largest single field, bytes, as it stands on the wire.
inline constexpr std::size_t kMaxFieldBytes = std::size_t{1} << 20;

/// Largest field that holds a filter: a hundred thousand chosen instances with names and paths of usual
/// length.
inline constexpr std::size_t kMaxFilterBytes = std::size_t{32} << 20;

/// Most entries of any list in a form.
inline constexpr std::size_t kMaxListEntries = 1'000'000;

/// Most elements of an occurrence path, and so the greatest depth of a filter row.
inline constexpr std::size_t kMaxPathDepth = 1'000;

/// Most rows of a user filter.
inline constexpr std::size_t kMaxFilterRows = 100'000;

/// Most children or hits that one reply carries; a request may ask for fewer.
inline constexpr int kMaxPageEntries = 10'000;

/// Most entries of a part's history that a request may ask for at once.
inline constexpr int kMaxHistoryEntries = 1'000;

/// Most changed fields that one entry of a history names.
inline constexpr std::size_t kMaxHistoryChanges = 1'000;

/// Longest value of a changed field in a history, bytes; a longer one is cut.
inline constexpr std::size_t kMaxShownValueBytes = 255;

}  // namespace protocol
