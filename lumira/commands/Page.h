#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "protocol/Limits.h"

namespace lumira {

/// At most so many bytes of texts stand in one page: written, a byte takes three at the most, and the
/// numbers beside them the rest of the largest text.
inline constexpr std::size_t kPageBytes = protocol::kMaxTextBytes / 8;

/// The entries of one reply, filled as long as its text has room.
template <class T>
class Page {
 public:
  /// `entries` must outlive the page.
  explicit Page(std::vector<T>& entries) : _entries(entries) {}

  /// Adds an entry with texts of so many bytes, if there is room for it; the first one always fits.
  bool Add(T entry, std::size_t bytes) {
    _bytes += bytes;
    if (!_entries.empty() && _bytes > kPageBytes) return false;
    _entries.push_back(std::move(entry));
    return true;
  }

 private:
  std::vector<T>& _entries;
  std::size_t _bytes = 0;
};

}  // namespace lumira
