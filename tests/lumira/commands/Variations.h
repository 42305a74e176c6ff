#pragma once

#include <random>
#include <string>

namespace lumira::test {

/// A text of which a piece is replaced, removed or doubled.
inline std::string Varied(std::string text, std::mt19937& random) {
  const std::string alphabet = "|0123456789%:_endtopbxKi\n\xFF";
  const std::size_t at = random() % text.size();
  const std::size_t size = 1 + random() % 6;
  if (random() % 2 == 0)
    text[at] = alphabet[random() % alphabet.size()];
  else if (random() % 2 == 0)
    text.erase(at, size);
  else
    text.insert(random() % text.size(), text.substr(at, size));
  return text;
}

}  // namespace lumira::test
