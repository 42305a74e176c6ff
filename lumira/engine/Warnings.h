#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "lumira/engine/Compile.h"
#include "lumira/engine/MassResult.h"

namespace lumira {

enum class WarningKind {
  WithoutMass,       ///< items of which no mass is known; they are not in the result
  WithoutCg,         ///< items in the mass, but not in the centre of gravity and the inertia
  WithoutInertia,    ///< items that count as point masses in the inertia
  NegativeMass,      ///< items with a mass below zero
  ZeroMass,          ///< the masses add up to zero: there is no centre of gravity
  WithoutBounds,     ///< some items have worst-case bounds, these have none: the bounds are too narrow
  ReplacesChildren,  ///< assemblies that count with a mass type of their own instead of their children
  ShapeNotAdded,     ///< parts with children whose own shape is not added to them
  PartlyKept,   ///< assemblies whose own mass type does not count since a filter leaves things out of them
  NothingLeft,  ///< the part itself: a filter leaves nothing of it, so that its mass is zero
  AlsoLeftOut,  ///< the part itself: a filter leaves it out in some of its places, but not in all
  NotFinite,    ///< the sums, their deviations or the bounds of the mass overflow
};

/// One thing that a user should know about a result; the text is made where it is shown.
struct Warning {
  WarningKind kind;
  /// How many items, quantities multiplied in; from `ShapeNotAdded` to `AlsoLeftOut`: parts.
  double occurrences = 0.0;
  double mass = 0.0;                  ///< of `WithoutCg`, `WithoutInertia`: the mass that is concerned, kg
  std::vector<std::string> examples;  ///< ids of the first parts concerned, in the order of the structure

  friend bool operator==(const Warning&, const Warning&) = default;
};

/// The warnings about the result of a part, in the order of the kinds, each kind once at most.
std::vector<Warning> CollectWarnings(const CompiledProduct& product, std::uint32_t part,
                                     const MassResult& result, std::size_t maxExamples);

}  // namespace lumira
