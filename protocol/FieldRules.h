#pragma once

#include <cstddef>
#include <limits>
#include <string_view>

#include "protocol/Limits.h"

namespace protocol {

/// Allowed values of an integer field, both ends included.
struct IntRange {
  int from = std::numeric_limits<int>::min();
  int to = std::numeric_limits<int>::max();
};

/// Allowed sizes of a list: at most `most`, and either empty or a multiple of `group`.
struct ListRule {
  std::size_t most = kMaxListEntries;
  std::size_t group = 1;
};

/// Allowed length of a text field as it stands on the wire.
struct TextRule {
  std::size_t mostBytes = kMaxFieldBytes;
};

inline constexpr TextRule kFilterText = {.mostBytes = kMaxFilterBytes};

/// The last field of every form, so that a text cut short is never taken for a whole one.
inline constexpr std::string_view kEndMark = "end";

/// What a message or a request is called and which version of it this library knows.
struct FormHead {
  std::string_view name;
  std::string_view version;
};

/// The fields of a struct in their order on the wire. A specialisation has
/// `template <class Archive, class X> static void Fields(Archive&, X&)`, used to write and to read;
/// one for a whole text also has `static constexpr FormHead kHead`.
template <class T>
struct Form;

}  // namespace protocol
