#pragma once

#include <concepts>
#include <string>

namespace lumira {

/// What is counted, as it stands behind a number.
struct Noun {
  const char* one;   ///< behind 1
  const char* many;  ///< behind any other number, 0 included
};

/// "1 part", "0 parts", "3 parts".
std::string Counted(std::integral auto number, Noun noun) {
  return std::to_string(number) + " " + (number == 1 ? noun.one : noun.many);
}

}  // namespace lumira
