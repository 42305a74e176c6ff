#pragma once

#include <cctype>
#include <string>
#include <string_view>

namespace lumira {

/// How titles and words in cells are compared: small letters, and a blank for "_".
inline std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = c == '_' ? ' ' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return lower;
}

/// Without the blanks around it.
inline std::string_view Trimmed(std::string_view text) {
  const std::size_t from = text.find_first_not_of(' ');
  return from == text.npos ? std::string_view{} : text.substr(from, text.find_last_not_of(' ') - from + 1);
}

}  // namespace lumira
