#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "lumira/engine/MassResult.h"
#include "lumira/engine/StructureIndex.h"
#include "lumira/engine/Warnings.h"
#include "lumira/model/ConfigurationFilter.h"
#include "protocol/Filter.h"
#include "protocol/Result.h"

namespace lumira {

/// What a filter leaves of one part, and what a user should know about it.
struct FilteredResult {
  MassResult result;
  std::vector<Warning> warnings;
};

/// A product as a filter leaves it, rolled up once for all questions about its parts. An assembly of which
/// something is left out is the sum of what remains in it; mass data of its own do not count then, and a
/// warning says so. Of what takes no part at all the mass is zero, with a warning.
class FilteredProduct {
 public:
  virtual ~FilteredProduct() = default;

  /// Of a part by its index in the structure, in the part's own frame. BadValue when the part stands in
  /// several places and a list of chosen instances leaves different things in them. (A configuration filter
  /// can only leave it out in some of them; the result is that of the others then, with a warning.)
  virtual protocol::Result<FilteredResult> ResultOf(std::uint32_t part) const = 0;
};

/// Under a configuration filter. Fails as `ExcludedInstances` does. `structure` must outlive the answer.
protocol::Result<std::unique_ptr<FilteredProduct>> ApplyFilter(const StructureIndex& structure,
                                                               const ConfigurationFilter& filter);

/// With chosen instances only, each with everything below it; the assemblies above them only say where they
/// stand. Fails as `ChosenOccurrences::Find` does. `structure` must outlive the answer.
protocol::Result<std::unique_ptr<FilteredProduct>> ApplyFilter(const StructureIndex& structure,
                                                               const std::vector<protocol::FilterRow>& rows);

}  // namespace lumira
