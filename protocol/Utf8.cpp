#include "protocol/Utf8.h"

#include <array>

namespace protocol {
namespace {

// Lead byte range, number of continuation bytes, and the range of the first of them (the others are 80..BF).
struct SequenceRule {
  unsigned char leadFrom, leadTo;
  int continuations;
  unsigned char nextFrom, nextTo;
};

constexpr std::array<SequenceRule, 9> kRules = {{
    {0x00, 0x7F, 0, 0, 0},
    {0xC2, 0xDF, 1, 0x80, 0xBF},
    {0xE0, 0xE0, 2, 0xA0, 0xBF},
    {0xE1, 0xEC, 2, 0x80, 0xBF},
    {0xED, 0xED, 2, 0x80, 0x9F},  // no surrogates
    {0xEE, 0xEF, 2, 0x80, 0xBF},
    {0xF0, 0xF0, 3, 0x90, 0xBF},
    {0xF1, 0xF3, 3, 0x80, 0xBF},
    {0xF4, 0xF4, 3, 0x80, 0x8F},
}};

constexpr bool Within(unsigned char byte, unsigned char from, unsigned char to) {
  return byte >= from && byte <= to;
}

// Length of the well-formed sequence at the start of the text, 0 when there is none.
std::size_t SequenceLength(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  for (const SequenceRule& rule : kRules) {
    if (!Within(byte(0), rule.leadFrom, rule.leadTo)) continue;
    const std::size_t length = 1 + static_cast<std::size_t>(rule.continuations);
    if (text.size() < length) return 0;
    if (length > 1 && !Within(byte(1), rule.nextFrom, rule.nextTo)) return 0;
    for (std::size_t i = 2; i < length; ++i)
      if (!Within(byte(i), 0x80, 0xBF)) return 0;
    return length;
  }
  return 0;
}

constexpr std::size_t kShownBytes = 60;

void AppendHex(std::string& out, char c) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto byte = static_cast<unsigned char>(c);
  out += {'\\', 'x', kDigits[byte >> 4], kDigits[byte & 15]};
}

// U+0000 to U+001F, U+007F and U+0080 to U+009F, some of which a terminal would obey.
bool IsControl(std::string_view character) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(character[i]); };
  return byte(0) < 0x20 || byte(0) == 0x7F || (byte(0) == 0xC2 && byte(1) < 0xA0);
}

// Appends the first character of the text; how many bytes it has.
std::size_t AppendPrintable(std::string& out, std::string_view text) {
  const std::size_t length = SequenceLength(text);
  const std::string_view character = text.substr(0, length == 0 ? 1 : length);
  if (length != 0 && !IsControl(character))
    out += character;
  else
    for (const char c : character) AppendHex(out, c);
  return character.size();
}

}  // namespace

std::optional<std::size_t> FindInvalidUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = SequenceLength(text.substr(at));
    if (length == 0) return at;
    at += length;
  }
  return std::nullopt;
}

std::string Printable(std::string_view text) {
  std::string shown;
  for (std::size_t at = 0; at < text.size();) at += AppendPrintable(shown, text.substr(at));
  return shown;
}

std::string Quoted(std::string_view text) {
  std::string shown = "\"";
  std::size_t at = 0;
  while (at < text.size() && at < kShownBytes) at += AppendPrintable(shown, text.substr(at));
  return shown + (at < text.size() ? "...\"" : "\"");
}

}  // namespace protocol
