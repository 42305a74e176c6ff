#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "protocol/FieldRules.h"
#include "protocol/Numbers.h"

namespace protocol {

/// What archives have in common that make a text of each value of a form: numbers, values of an enumeration
/// and absent values. An archive derives from it with itself as `Archive`, brings these fields in beside its
/// own (`using FieldsOfValues::Field`), and has `Plain(name, text)`, which takes the text of a number, and
/// `Absent(name)`.
template <class Archive>
class FieldsOfValues {
 public:
  void Field(std::string_view name, double value) { Self().Plain(name, FormatNumber(value)); }
  void Field(std::string_view name, int value, IntRange = {}) { Self().Plain(name, std::to_string(value)); }
  void Field(std::string_view name, bool value) { Self().Plain(name, value ? "1" : "0"); }

  template <class E>
  requires std::is_enum_v<E>
  void Field(std::string_view name, E value, E /*last*/) { Field(name, static_cast<int>(value)); }

  template <class T>
  void Field(std::string_view name, const std::optional<T>& value) {
    if (value)
      Self().Field(name, *value);
    else
      Self().Absent(name);
  }

 private:
  Archive& Self() { return static_cast<Archive&>(*this); }
};

}  // namespace protocol
