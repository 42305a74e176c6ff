#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "lumira/model/Date.h"
#include "lumira/model/Identifier.h"
#include "lumira/model/PropertyDefinition.h"
#include "lumira/model/PropertyMagnitudes.h"
#include "protocol/Numbers.h"
#include "protocol/Utf8.h"

namespace lumira {

/// A text without the blanks around it.
inline std::string_view WithoutBlanks(std::string_view text) {
  constexpr std::string_view kBlanks = " \t";
  const std::size_t from = text.find_first_not_of(kBlanks);
  if (from == text.npos) return {};
  return text.substr(from, text.find_last_not_of(kBlanks) - from + 1);
}

/// A number without the blanks around it and without one plus before it, as people type them. A plus alone is
/// no number, and stays.
inline std::string_view BareNumber(std::string_view text) {
  text = WithoutBlanks(text);
  const bool hasPlus = text.size() > 1 && text.front() == '+' && text.find_first_of("+-", 1) != 1;
  return hasPlus ? text.substr(1) : text;
}

/// Why a text is no value of a property, as the end of a sentence that may follow a place; none when it is
/// one. A blank text is no value yet and always allowed.
inline std::optional<std::string> FindValueProblem(const PropertyDefinition& property,
                                                   std::string_view text) {
  using protocol::Quoted;
  if (protocol::FindInvalidUtf8(text)) return Quoted(text) + " is not UTF-8";
  const std::string_view bare = BareNumber(text);
  if (bare.empty()) return std::nullopt;
  switch (property.type) {
    case PropertyType::Text:
      return std::nullopt;
    case PropertyType::Integer: {
      const auto number = protocol::ParseInteger(bare);
      const bool fits = number && *number >= std::numeric_limits<std::int32_t>::min() &&
                        *number <= std::numeric_limits<std::int32_t>::max();
      if (fits) return std::nullopt;
      return Quoted(text) + " is not a whole number from -2147483648 to 2147483647";
    }
    case PropertyType::Date:
      if (ParseDate(WithoutBlanks(text))) return std::nullopt;
      return NoDate(Quoted(text));
    case PropertyType::Real:
    case PropertyType::Magnitude:
      if (protocol::ParseNumber(bare)) return std::nullopt;
      return Quoted(text) + " is not a finite number";
  }
  return std::nullopt;
}

/// Why a product cannot have such a property, likewise.
inline std::optional<std::string> FindDefinitionProblem(const PropertyDefinition& property) {
  using protocol::Quoted;
  if (const auto problem = FindIdentifierProblem(property.name)) return problem;
  const bool isMagnitude = property.type == PropertyType::Magnitude;
  if (isMagnitude && FindMagnitude(property.magnitude) == nullptr)
    return Quoted(property.magnitude) + " is no magnitude known here";
  if (!isMagnitude && !property.magnitude.empty())
    return "has the magnitude " + Quoted(property.magnitude) + ", but is not of the type that has one";
  return std::nullopt;
}

}  // namespace lumira
