#include "protocol/FieldReader.h"

#include <algorithm>
#include <cstdint>

#include "protocol/FieldWriter.h"
#include "protocol/Limits.h"
#include "protocol/Numbers.h"
#include "protocol/Utf8.h"

namespace protocol {
namespace {

bool IsControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F;
}

}  // namespace

std::string ProblemOfSize(std::string_view text) {
  if (text.size() <= kMaxTextBytes) return {};
  return "the text has " + std::to_string(text.size()) + " bytes, the limit is " +
         std::to_string(kMaxTextBytes);
}

std::string ProblemOfBytes(std::string_view field) {
  const auto bad = FindInvalidUtf8(field);
  return bad ? "is not well-formed UTF-8 at its byte " + std::to_string(*bad + 1) : "";
}

FieldReader::FieldReader(FormHead head, std::string_view text) : _head(head), _rest(text) {
  if (const std::string problem = ProblemOfSize(text); !problem.empty())
    Fail(ErrorKind::BadText, problem);
  else
    ReadHead();
}

void FieldReader::ReadHead() {
  const auto head = Take("form");
  if (!head) return;
  const std::size_t slash = head->find('/');
  if (head->substr(0, slash) != _head.name || slash == std::string_view::npos)
    return Refuse("form", *head,
                  "is not \"" + std::string(_head.name) + "/" + std::string(_head.version) + "\"");
  if (head->substr(slash + 1) != _head.version)
    Fail(ErrorKind::Unsupported, "version " + Quoted(head->substr(slash + 1)) +
                                     " is not known here, version " + std::string(_head.version) + " is");
}

std::optional<std::string_view> FieldReader::Take(std::string_view name, TextRule rule) {
  if (_failure) return std::nullopt;
  ++_number;
  if (_atEnd) {
    Fail(ErrorKind::BadText, "field " + std::to_string(_number) + " (" + _place + std::string(name) +
                                 ") is missing, the text ends after field " + std::to_string(_number - 1));
    return std::nullopt;
  }
  const std::size_t separator = _rest.find('|');
  const std::string_view field = _rest.substr(0, separator);
  _atEnd = separator == std::string_view::npos;
  _rest.remove_prefix(_atEnd ? _rest.size() : separator + 1);
  const std::string problem = field.size() > rule.mostBytes
                                  ? "longer than " + std::to_string(rule.mostBytes) + " bytes"
                                  : ProblemOfBytes(field);
  if (problem.empty()) return field;
  Refuse(name, field, problem);
  return std::nullopt;
}

bool FieldReader::TakeNull() {
  if (_failure || _atEnd || _rest.substr(0, _rest.find('|')) != kNull) return false;
  return Take({}).has_value();
}

void FieldReader::Field(std::string_view name, std::string& value, TextRule rule) {
  const auto field = Take(name, rule);
  if (!field) return;
  if (std::any_of(field->begin(), field->end(), IsControl))
    return Refuse(name, *field, "holds a control character that is not escaped");
  auto text = Unescape(*field);
  if (!text) return Refuse(name, *field, "holds a \"%\" without two hexadecimal digits");
  if (FindInvalidUtf8(*text)) return Refuse(name, *field, "is not well-formed UTF-8");
  value = std::move(*text);
}

void FieldReader::Field(std::string_view name, double& value) {
  const auto field = Take(name);
  if (!field) return;
  const auto number = ParseNumber(*field);
  if (!number) return Refuse(name, *field, "is not a finite number");
  value = *number;
}

void FieldReader::Field(std::string_view name, int& value, IntRange range) {
  const auto field = Take(name);
  if (!field) return;
  const auto number = ParseInteger(*field);
  if (!number || *number < range.from || *number > range.to)
    return Refuse(name, *field,
                  "is not an integer from " + std::to_string(range.from) + " to " + std::to_string(range.to));
  value = static_cast<int>(*number);
}

void FieldReader::Field(std::string_view name, bool& value) {
  const auto field = Take(name);
  if (!field) return;
  if (*field != "0" && *field != "1") return Refuse(name, *field, "is neither 0 nor 1");
  value = *field == "1";
}

std::size_t FieldReader::Count(std::string_view name, ListRule rule) {
  const auto field = Take(name);
  if (!field) return 0;
  // Every entry takes at least one separator, so what is left bounds the count before any memory is asked
  // for.
  const auto left = static_cast<long long>(_rest.size()) + 1;
  const auto most = static_cast<long long>(rule.most);
  const auto count = ParseInteger(*field);
  if (!count || *count < 0 || *count > most || *count % static_cast<long long>(rule.group) != 0) {
    Refuse(name, *field,
           "is not a number of entries up to " + std::to_string(most) +
               (rule.group > 1 ? " in groups of " + std::to_string(rule.group) : ""));
    return 0;
  }
  if (*count <= left) return static_cast<std::size_t>(*count);
  Refuse(name, *field, "entries announced, but the text is too short for them");
  return 0;
}

void FieldReader::Finish() {
  const auto mark = Take("end");
  if (!mark) return;
  if (*mark != kEndMark) return Refuse("end", *mark, "stands where the text should end with \"end\"");
  if (!_atEnd)
    Fail(ErrorKind::BadText, "there is more text after field " + std::to_string(_number) + " (end)");
}

void FieldReader::Refuse(std::string_view name, std::string_view value, std::string_view expected) {
  Fail(ErrorKind::BadText, "field " + std::to_string(_number) + " (" + _place + std::string(name) +
                               "): " + Quoted(value) + " " + std::string(expected));
}

void FieldReader::Fail(ErrorKind kind, std::string_view reason) {
  if (!_failure) _failure = Error{kind, std::string(_head.name) + ": " + std::string(reason)};
}

}  // namespace protocol
