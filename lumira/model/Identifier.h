#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "protocol/Utf8.h"

namespace lumira {

/// Longest identifier of a product, part, instance or mass type, bytes.
inline constexpr std::size_t kMaxIdentifierBytes = 255;

/// Why a text cannot be an identifier, as the end of a sentence that may follow a place; none when it can: 1
/// to 255 bytes of UTF-8 without "|" and control characters.
inline std::optional<std::string> FindIdentifierProblem(std::string_view text) {
  using protocol::Quoted;
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
  if (text.empty()) return "is empty, an identifier expected";
  if (text.size() > kMaxIdentifierBytes)
    return Quoted(text) + " has " + std::to_string(text.size()) + " bytes, an identifier has at most " +
           std::to_string(kMaxIdentifierBytes);
  if (protocol::FindInvalidUtf8(text)) return Quoted(text) + " is not UTF-8, which an identifier must be";
  if (text.find('|') != text.npos) return Quoted(text) + " holds \"|\", which an identifier may not";
  if (std::any_of(text.begin(), text.end(), isControl))
    return Quoted(text) + " holds a control character, which an identifier may not";
  return std::nullopt;
}

}  // namespace lumira
