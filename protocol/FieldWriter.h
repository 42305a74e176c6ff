#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "protocol/Constants.h"
#include "protocol/FieldRules.h"
#include "protocol/FieldsOfValues.h"

namespace protocol {

/// Writes the fields of a form, separated by "|". Names and rules matter to the reader only.
class FieldWriter : public FieldsOfValues<FieldWriter> {
 public:
  explicit FieldWriter(FormHead head);

  using FieldsOfValues::Field;
  void Field(std::string_view name, const std::string& value, TextRule = {});

  template <std::size_t N>
  void Field(std::string_view name, const std::array<double, N>& values) {
    for (double value : values) Field(name, value);
  }

  template <class T>
  void Field(std::string_view name, const std::vector<T>& entries, ListRule = {}) {
    Raw(std::to_string(entries.size()));
    for (const T& entry : entries) Field(name, entry);
  }

  template <class T>
  requires requires { &Form<T>::template Fields<FieldWriter, const T>; }
  void Field(std::string_view, const T& value) { Form<T>::Fields(*this, value); }

  /// Whether the fields that follow, which a text may leave out, are written.
  bool HasMore(bool present) const { return present; }

  /// Closes the form and hands its text over; the writer is empty afterwards.
  std::string Finish();

 private:
  friend class FieldsOfValues<FieldWriter>;

  void Plain(std::string_view /*name*/, std::string_view text) { Raw(text); }
  void Absent(std::string_view /*name*/) { Raw(kNull); }
  void Raw(std::string_view text);

  std::string _text;
};

/// A value with "|", "%", ":" and control characters as %XX, so that neither a separator nor the error header
/// can stand inside; a value that reads like the absent one has its first character escaped.
std::string Escape(std::string_view value);

/// The value back, or none when a "%" is not followed by two hexadecimal digits.
std::optional<std::string> Unescape(std::string_view text);

}  // namespace protocol
