#pragma once

#include <compare>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>

#include "framework/system/KorExport.h"

/// The host's narrow string.
using KorString = std::string;

/// The host's Unicode string: a value type that keeps UTF-8 and counts in characters (code points).
///
/// Every position and length below is in characters, from 0. Bytes that are no UTF-8 count one
/// character each, so that no text is ever lost.
class KOR_FRAMEWORK_API KorUnicodeString {
 public:
  KorUnicodeString() = default;
  KorUnicodeString(const char* utf8) : _utf8(utf8 ? utf8 : "") {}
  KorUnicodeString(std::string utf8) : _utf8(std::move(utf8)) {}
  KorUnicodeString(std::string_view utf8) : _utf8(utf8) {}

  KorUnicodeString(const KorUnicodeString&) = default;
  KorUnicodeString(KorUnicodeString&& other) noexcept
      : _utf8(std::move(other._utf8)), _contentId(std::exchange(other._contentId, 0)) {}
  KorUnicodeString& operator=(const KorUnicodeString&) = default;
  KorUnicodeString& operator=(KorUnicodeString&& other) noexcept {
    _utf8 = std::move(other._utf8);
    _contentId = std::exchange(other._contentId, 0);
    return *this;
  }
  ~KorUnicodeString() = default;

  const std::string& Utf8() const { return _utf8; }
  const char* ConvertToChar() const { return _utf8.c_str(); }

  /// Two texts with the same number are equal, as long as neither is changed; a change gives another number.
  /// For whoever keeps something that was worked out from a long text.
  std::uint64_t ContentId() const;

  bool IsEmpty() const { return _utf8.empty(); }
  int GetLengthInChar() const;

  void Append(const KorUnicodeString& text) {
    _utf8 += text._utf8;
    _contentId = 0;
  }
  KorUnicodeString& operator+=(const KorUnicodeString& text) {
    Append(text);
    return *this;
  }
  friend KorUnicodeString operator+(KorUnicodeString left, const KorUnicodeString& right) {
    return left += right;
  }

  /// Non-zero when both texts are equal, zero when they differ.
  int Compare(const KorUnicodeString& other) const { return _utf8 == other._utf8; }
  friend bool operator==(const KorUnicodeString& a, const KorUnicodeString& b) { return a._utf8 == b._utf8; }
  friend std::strong_ordering operator<=>(const KorUnicodeString& a, const KorUnicodeString& b) {
    return a._utf8 <=> b._utf8;
  }

  /// Position of `part` at or after `from`, searching forward; -1 when it does not occur.
  int SearchSubString(const KorUnicodeString& part, int from = 0) const;
  /// The text from `first` on, `count` characters or to the end when `count` is negative.
  /// Positions outside the text are clipped.
  KorUnicodeString SubString(int first, int count = -1) const;
  /// The text without blanks (space, tab, line ends) at both ends.
  KorUnicodeString Strip() const;
  /// The letters a to z in upper case; other characters stay.
  KorUnicodeString ToUpper() const;

  /// Reads a real number; the formats ("%le", "%lf", "%lg") all read the same. Leading blanks are skipped,
  /// what follows the number is ignored, '.' is the decimal separator in every locale. Returns 1, or 0 with
  /// `number` left alone: also for infinities, not-a-number and what does not fit a double.
  int ConvertToNum(double* number, const char* format = "%le") const;
  /// Reads an integer ("%d"). Returns 1, or 0 with `number` left alone (also when it does not fit).
  int ConvertToNum(int* number, const char* format = "%d") const;
  /// Replaces the text by the number printed with a printf format: "%g", "%le" or "%lf", with a precision up
  /// to 100 if wanted ("%.10g"), and "%d" for integers. '.' is the decimal separator in every locale.
  void BuildFromNum(double number, const char* format = "%g");
  void BuildFromNum(int number, const char* format = "%d");

 private:
  std::string _utf8;
  mutable std::uint64_t _contentId = 0;  ///< 0: nobody has asked since the last change
};

KOR_FRAMEWORK_API std::ostream& operator<<(std::ostream& out, const KorUnicodeString& text);
