#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "protocol/FieldRules.h"
#include "protocol/FieldsOfValues.h"
#include "protocol/Numbers.h"

namespace lumira {

/// A field of a form with its value as a text, such as "massTypes[Weighed].mass" and "2.5".
struct FieldText {
  std::string field;
  std::optional<std::string> text;  ///< none for an absent value
};

/// Collects the fields of a form (protocol/Forms.h) for people: entries of a list are called by their name
/// when they have one, else by their number from 1; the numbers of a vector or tensor are one text.
class FieldTexts : public protocol::FieldsOfValues<FieldTexts> {
 public:
  template <class T>
  static std::vector<FieldText> Of(const T& form) {
    FieldTexts texts;
    protocol::Form<T>::Fields(texts, form);
    return std::move(texts._fields);
  }

  bool HasMore(bool present) const { return present; }

  using FieldsOfValues::Field;
  void Field(std::string_view name, const std::string& value, protocol::TextRule = {}) { Add(name, value); }

  template <std::size_t N>
  void Field(std::string_view name, const std::array<double, N>& values) {
    std::string text;
    for (double value : values) text += (text.empty() ? "" : " ") + protocol::FormatNumber(value);
    Add(name, std::move(text));
  }

  template <class T>
  void Field(std::string_view name, const std::vector<T>& entries, protocol::ListRule = {}) {
    for (std::size_t i = 0; i < entries.size(); ++i)
      Field(std::string(name) + '[' + NameOf(entries[i], i) + ']', entries[i]);
  }

  template <class T>
  requires requires { &protocol::Form<T>::template Fields<FieldTexts, const T>; }
  void Field(std::string_view name, const T& value) {
    const std::size_t outer = _place.size();
    _place.append(name).append(".");
    protocol::Form<T>::Fields(*this, value);
    _place.resize(outer);
  }

 private:
  friend class protocol::FieldsOfValues<FieldTexts>;

  void Plain(std::string_view name, std::string text) { Add(name, std::move(text)); }
  void Absent(std::string_view name) { Add(name, std::nullopt); }

  template <class T>
  static std::string NameOf(const T& entry, std::size_t index) {
    if constexpr (requires { entry.name; })
      return entry.name;
    else
      return std::to_string(index + 1);
  }

  void Add(std::string_view name, std::optional<std::string> text) {
    _fields.push_back({_place + std::string(name), std::move(text)});
  }

  std::string _place;  ///< names of the enclosing fields, each with a dot
  std::vector<FieldText> _fields;
};

}  // namespace lumira
