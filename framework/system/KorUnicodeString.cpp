#include "framework/system/KorUnicodeString.h"

#include <algorithm>
#include <atomic>
#include <charconv>
#include <ostream>
#include <system_error>

namespace {

constexpr std::string_view kBlanks = " \t\r\n\v\f";

constexpr bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

// Length that the lead byte announces; 0 for a byte that cannot lead (C0, C1 and F5 upwards never occur in
// UTF-8).
constexpr std::size_t AnnouncedLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

// Overlong forms, surrogates and values above U+10FFFF show in the second byte.
constexpr bool SecondByteFits(unsigned char lead, unsigned char second) {
  switch (lead) {
    case 0xE0:
      return second >= 0xA0;
    case 0xED:
      return second <= 0x9F;
    case 0xF0:
      return second >= 0x90;
    case 0xF4:
      return second <= 0x8F;
    default:
      return true;
  }
}

// Bytes of the character at the front of a text that is not empty; a byte that is no UTF-8 is a character of
// its own.
std::size_t CharacterLength(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const std::size_t length = AnnouncedLength(byte(0));
  if (length < 2 || text.size() < length || !SecondByteFits(byte(0), byte(1))) return 1;
  for (std::size_t i = 1; i < length; ++i)
    if (!IsContinuation(byte(i))) return 1;
  return length;
}

// Offset in bytes of the character at `position`, the text's size when it has no more than that many
// characters.
std::size_t OffsetOf(std::string_view text, long long position) {
  std::size_t offset = 0;
  for (; position > 0 && offset < text.size(); --position) offset += CharacterLength(text.substr(offset));
  return offset;
}

// Whether characters end exactly `bytes` behind the front of the text.
bool EndsBetweenCharacters(std::string_view text, std::size_t bytes) {
  std::size_t offset = 0;
  while (offset < bytes) offset += CharacterLength(text.substr(offset));
  return offset == bytes;
}

std::string_view SkipBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text;
}

bool StartsWithDigit(std::string_view text) { return !text.empty() && text[0] >= '0' && text[0] <= '9'; }

// The number at the front of the text, as strtod reads it in the "C" locale, but decimal only: no hexadecimal
// form, no "inf" or "nan". std::from_chars takes no '+', which is why the sign is looked at here.
template <class Number>
int ReadNumber(std::string_view text, Number* number) {
  text = SkipBlanks(text);
  const bool plus = text.starts_with('+');
  if (plus) text.remove_prefix(1);
  std::string_view digits = text;
  if (!plus && digits.starts_with('-')) digits.remove_prefix(1);
  if (digits.starts_with('.')) digits.remove_prefix(1);
  if (!StartsWithDigit(digits)) return 0;
  Number value{};
  if (std::from_chars(text.data(), text.data() + text.size(), value).ec != std::errc{}) return 0;
  *number = value;
  return 1;
}

struct NumberFormat {
  std::chars_format notation = std::chars_format::general;
  int precision = 6;
};

// Reads "%", an optional "." with digits, an optional "l", and one of g, e, f.
NumberFormat ParseFormat(std::string_view format) {
  NumberFormat parsed;
  if (format.starts_with('%')) format.remove_prefix(1);
  if (format.starts_with('.')) {
    parsed.precision = 0;
    const char* const end = format.data() + format.size();
    const char* const stop = std::from_chars(format.data() + 1, end, parsed.precision).ptr;
    format.remove_prefix(static_cast<std::size_t>(stop - format.data()));
  }
  if (format.starts_with('l')) format.remove_prefix(1);
  if (format.starts_with('e')) parsed.notation = std::chars_format::scientific;
  if (format.starts_with('f')) parsed.notation = std::chars_format::fixed;
  return parsed;
}

}  // namespace

int KorUnicodeString::GetLengthInChar() const {
  int length = 0;
  for (std::string_view rest = _utf8; !rest.empty(); rest.remove_prefix(CharacterLength(rest))) ++length;
  return length;
}

int KorUnicodeString::SearchSubString(const KorUnicodeString& part, int from) const {
  const std::string_view text = _utf8;
  int position = std::max(from, 0);
  std::size_t offset = OffsetOf(text, position);
  if (position > 0 && offset == text.size() && GetLengthInChar() < position) return -1;
  for (std::size_t found = text.find(part._utf8, offset); found != text.npos;
       found = text.find(part._utf8, found + 1)) {
    for (; offset < found; ++position) offset += CharacterLength(text.substr(offset));
    if (offset == found && EndsBetweenCharacters(text.substr(found), part._utf8.size())) return position;
  }
  return -1;
}

KorUnicodeString KorUnicodeString::SubString(int first, int count) const {
  const std::size_t begin = OffsetOf(_utf8, first);
  if (count < 0) return _utf8.substr(begin);
  const std::size_t end = OffsetOf(_utf8, static_cast<long long>(first) + count);
  return end > begin ? _utf8.substr(begin, end - begin) : std::string();
}

KorUnicodeString KorUnicodeString::Strip() const {
  const std::size_t first = _utf8.find_first_not_of(kBlanks);
  if (first == std::string::npos) return {};
  return _utf8.substr(first, _utf8.find_last_not_of(kBlanks) - first + 1);
}

KorUnicodeString KorUnicodeString::ToUpper() const {
  std::string upper = _utf8;
  for (char& c : upper)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return upper;
}

int KorUnicodeString::ConvertToNum(double* number, const char*) const { return ReadNumber(_utf8, number); }

int KorUnicodeString::ConvertToNum(int* number, const char*) const { return ReadNumber(_utf8, number); }

void KorUnicodeString::BuildFromNum(double number, const char* format) {
  constexpr int kMostPrecision = 100;
  constexpr int kMostIntegerDigits = 309;  // of the largest double
  char buffer[kMostIntegerDigits + kMostPrecision + 8];
  const NumberFormat parsed = ParseFormat(format);
  const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, number, parsed.notation,
                                          std::clamp(parsed.precision, 0, kMostPrecision));
  _utf8.assign(buffer, end);
  _contentId = 0;
}

void KorUnicodeString::BuildFromNum(int number, const char*) {
  _utf8 = std::to_string(number);
  _contentId = 0;
}

std::uint64_t KorUnicodeString::ContentId() const {
  static std::atomic<std::uint64_t> last{0};
  if (_contentId == 0) _contentId = ++last;
  return _contentId;
}

std::ostream& operator<<(std::ostream& out, const KorUnicodeString& text) { return out << text.Utf8(); }
