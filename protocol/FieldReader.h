#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "protocol/Constants.h"
#include "protocol/FieldRules.h"
#include "protocol/Result.h"

namespace protocol {

/// Why a text as a whole cannot be any form: it is too long. Empty when it can.
std::string ProblemOfSize(std::string_view text);

/// Why a field as it stands in a text is no field: it is not well-formed UTF-8. Empty when it can be.
std::string ProblemOfBytes(std::string_view field);

/// Reads the fields of a form one after the other. The first thing that is wrong is kept as the failure;
/// every later call does nothing, so a table of fields needs no checks in between.
class FieldReader {
 public:
  /// Checks size and head; that the text is well-formed UTF-8, field by field as they are read. `text` must
  /// outlive the reader.
  FieldReader(FormHead head, std::string_view text);

  void Field(std::string_view name, std::string& value, TextRule rule = {});
  void Field(std::string_view name, double& value);
  void Field(std::string_view name, int& value, IntRange range = {});
  void Field(std::string_view name, bool& value);

  template <class E>
  requires std::is_enum_v<E>
  void Field(std::string_view name, E& value, E last) {
    int number = 0;
    Field(name, number, {0, static_cast<int>(last)});
    value = static_cast<E>(number);
  }

  template <class T>
  void Field(std::string_view name, std::optional<T>& value) {
    if (TakeNull()) return value.reset();
    Field(name, value.emplace());
  }

  template <std::size_t N>
  void Field(std::string_view name, std::array<double, N>& values) {
    for (std::size_t i = 0; i < N && !_failure; ++i) Entry(name, i, values[i]);
  }

  template <class T>
  void Field(std::string_view name, std::vector<T>& entries, ListRule rule = {}) {
    const std::size_t count = Count(name, rule);
    entries.clear();
    entries.reserve(count);
    for (std::size_t i = 0; i < count && !_failure; ++i) Entry(name, i, entries.emplace_back());
  }

  template <class T>
  requires requires { &Form<T>::template Fields<FieldReader, T>; }
  void Field(std::string_view name, T& value) {
    const std::size_t outer = _place.size();
    if (!name.empty()) _place.append(name).append(".");
    Form<T>::Fields(*this, value);
    _place.resize(outer);
  }

  /// Whether fields stand before the end mark that a text may leave out. The argument matters to the writer
  /// only. What follows the mark is left to `Finish`.
  bool HasMore(bool /*present*/ = true) const { return !_failure && !_atEnd && !IsAtEndMark(); }

  /// Reads the end mark and checks that nothing follows.
  void Finish();

  const std::optional<Error>& Failure() const { return _failure; }

 private:
  template <class T>
  void Entry(std::string_view name, std::size_t index, T& value) {
    const std::string numbered = std::string(name) + '[' + std::to_string(index + 1) + ']';
    Field(numbered, value);
  }

  bool IsAtEndMark() const {
    return _rest.starts_with(kEndMark) && (_rest.size() == kEndMark.size() || _rest[kEndMark.size()] == '|');
  }
  std::optional<std::string_view> Take(std::string_view name, TextRule rule = {});
  bool TakeNull();
  std::size_t Count(std::string_view name, ListRule rule);
  void ReadHead();
  void Refuse(std::string_view name, std::string_view value, std::string_view expected);
  void Fail(ErrorKind kind, std::string_view reason);

  FormHead _head;
  std::string_view _rest;  ///< what follows the last separator
  bool _atEnd = false;     ///< no field is left in `_rest`
  int _number = 0;         ///< of the field taken last, from 1
  std::string _place;      ///< names of the enclosing fields, each with a dot
  std::optional<Error> _failure;
};

}  // namespace protocol
