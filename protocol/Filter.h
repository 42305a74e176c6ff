#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "protocol/Result.h"

namespace protocol {

/// One chosen instance of a user filter. Elements of `path` run from the top down.
struct FilterRow {
  std::string instanceId;
  std::string partId;
  std::string partVersion;
  std::vector<std::string> path;  ///< its size is the row's depth on the wire

  bool operator==(const FilterRow&) const = default;
};

/// Which instances a request is about: those that a named configuration filter lets pass, or a list of
/// instances.
struct Filter {
  enum class Kind { Configuration, User };

  Kind kind = Kind::Configuration;
  std::string name = "No Filter";  ///< of the configuration filter; "No Filter" lets everything pass
  std::vector<FilterRow> rows;     ///< of the user filter; an empty list lets everything pass

  /// Whether every instance passes.
  bool LetsAllPass() const;

  bool operator==(const Filter&) const = default;
};

/// "0|" and the name, or "1|", the number of rows and the rows: instance, part, version, depth and the path's
/// elements. The form knows no escapes, so an element that holds "|" cannot be written: BadValue.
Result<std::string> WriteFilter(const Filter& filter);

/// Reads either form whole. BadText names the field (number and name) when a count or depth is no number, is
/// negative or above its limit, or when fields are missing or left over.
Result<Filter> ReadFilter(std::string_view text);

}  // namespace protocol
