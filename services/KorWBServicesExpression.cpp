#include "services/KorWBServices.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr int kDeepestNesting = 64;
/// As many significant digits as every decimal number keeps in a double: 0.1+0.2 is 0.3.
constexpr const char* kValueFormat = "%.15g";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Decimal numbers, + - * /, parentheses and signs, read from left to right. What cannot be read, and every
/// step whose result is not finite, has no value.
class Expression {
 public:
  explicit Expression(std::string_view text) : _rest(text) {}

  std::optional<double> Value() {
    const Number value = Sum();
    return Ended() ? value : std::nullopt;
  }

  /// Whether the text is nothing but a number, perhaps a negative one.
  bool IsPlainNumber() {
    if (_rest.starts_with('-')) _rest.remove_prefix(1);
    return Literal() && _rest.empty();
  }

 private:
  using Number = std::optional<double>;

  Number Sum() { return Chain("+-", &Expression::Product); }
  Number Product() { return Chain("*/", &Expression::Signed); }

  Number Chain(std::string_view operators, Number (Expression::*operand)()) {
    Number value = (this->*operand)();
    while (value) {
      const char op = Take(operators);
      if (!op) break;
      value = Apply(op, *value, (this->*operand)());
    }
    return value;
  }

  static Number Apply(char op, double left, Number right) {
    if (!right) return std::nullopt;
    const double result = op == '+'   ? left + *right
                          : op == '-' ? left - *right
                          : op == '*' ? left * *right
                                      : left / *right;  // by zero: not finite
    return std::isfinite(result) ? Number(result) : std::nullopt;
  }

  Number Signed() {
    double sign = 1;
    while (const char one = Take("+-"))
      if (one == '-') sign = -sign;
    const Number value = Primary();
    return value ? Number(sign * *value) : value;
  }

  Number Primary() {
    if (!Take("(")) return Literal();
    if (_depth == kDeepestNesting) return std::nullopt;
    ++_depth;
    const Number value = Sum();
    --_depth;
    return Take(")") ? value : std::nullopt;
  }

  Number Literal() {
    const std::string_view digits = _rest.starts_with('.') ? _rest.substr(1) : _rest;
    if (digits.empty() || !IsDigit(digits[0])) return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(_rest.data(), _rest.data() + _rest.size(), value);
    if (error != std::errc{}) return std::nullopt;
    _rest.remove_prefix(static_cast<std::size_t>(end - _rest.data()));
    return value;
  }

  bool Ended() {
    _rest.remove_prefix(std::min(_rest.find_first_not_of(kBlanks), _rest.size()));
    return _rest.empty();
  }

  /// The next character when it is one of these, else 0. Blanks in front of it are passed over.
  char Take(std::string_view characters) {
    if (Ended() || characters.find(_rest[0]) == characters.npos) return 0;
    const char taken = _rest[0];
    _rest.remove_prefix(1);
    return taken;
  }

  std::string_view _rest;
  int _depth = 0;
};

std::string_view WithoutSymbol(std::string_view text, std::string_view symbol) {
  if (!symbol.empty() && text.ends_with(symbol)) text.remove_suffix(symbol.size());
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

}  // namespace

HRESULT KorWBServices::EvaluateSimpleExpression(KorUnicodeString& text, const KorUnicodeString& unitSymbol) {
  const KorUnicodeString whole = text.Strip();
  const std::string_view body = WithoutSymbol(whole.Utf8(), unitSymbol.Utf8());
  if (Expression(body).IsPlainNumber()) return S_OK;
  const std::optional<double> value = Expression(body).Value();
  if (!value) return E_FAIL;
  KorUnicodeString shown;
  shown.BuildFromNum(*value == 0 ? 0.0 : *value, kValueFormat);
  // Rounding up the largest numbers would leave what no reader takes.
  if (double read = 0; !shown.ConvertToNum(&read)) return E_FAIL;
  text = shown + std::string_view(whole.Utf8()).substr(body.size());
  return S_OK;
}
