#include "protocol/FieldWriter.h"

#include <utility>

namespace protocol {
namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

bool NeedsEscape(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F || c == '|' || c == '%' || c == ':';
}

void AppendEscaped(std::string& out, char c) {
  const auto byte = static_cast<unsigned char>(c);
  out += {'%', kHexDigits[byte >> 4], kHexDigits[byte & 15]};
}

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

}  // namespace

std::string Escape(std::string_view value) {
  std::string out;
  out.reserve(value.size());
  const bool readsAsNull = value == kNull;
  for (char c : value) {
    if (NeedsEscape(c) || (readsAsNull && out.empty()))
      AppendEscaped(out, c);
    else
      out += c;
  }
  return out;
}

std::optional<std::string> Unescape(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      out += text[i];
      continue;
    }
    if (i + 2 >= text.size()) return std::nullopt;
    const int high = HexValue(text[i + 1]);
    const int low = HexValue(text[i + 2]);
    if (high < 0 || low < 0) return std::nullopt;
    out += static_cast<char>(high * 16 + low);
    i += 2;
  }
  return out;
}

FieldWriter::FieldWriter(FormHead head) : _text(head.name) { _text.append("/").append(head.version); }

void FieldWriter::Raw(std::string_view text) { _text.append("|").append(text); }

void FieldWriter::Field(std::string_view, const std::string& value, TextRule) { Raw(Escape(value)); }

std::string FieldWriter::Finish() {
  Raw(kEndMark);
  return std::exchange(_text, {});
}

}  // namespace protocol
