#pragma once

#include <set>
#include <string>
#include <vector>

#include "protocol/Filter.h"

namespace desktop {

/// Which occurrences of a product take part under a list of chosen instances. Of a configuration filter only
/// the server knows it: all take part here.
class FilterMarks {
 public:
  enum class Mark {
    TakesPart,
    Partly,  ///< holds chosen instances, and is none itself
    LeftOut,
  };

  FilterMarks() = default;
  explicit FilterMarks(const protocol::Filter& filter);

  /// Of an occurrence by its instances from the root part down; the root's path is empty.
  Mark Of(const std::vector<std::string>& instancePath) const;

 private:
  using Path = std::vector<std::string>;
  std::set<Path> _chosen;  ///< empty: all take part
  std::set<Path> _above;   ///< what holds a chosen one
};

}  // namespace desktop
