#pragma once

#include <array>

namespace lumira {

struct GraphPart;

/// What a roll-up covers, and the sums that need no geometry. "Item" is one occurrence of a part that brings
/// its own data (or should). Everything is additive. Counts are floating-point numbers because a heavily
/// shared structure has more occurrences than 64 bits can count; below 2^53 they are exact.
struct Coverage {
  double items = 0.0;                ///< occurrences of parts that bring their own data or should
  double withoutMass = 0.0;          ///< items of which nothing is known
  double withoutCg = 0.0;            ///< items with a mass but no centre of gravity
  double withoutInertia = 0.0;       ///< items with a centre of gravity but no inertia: point masses
  double negative = 0.0;             ///< items with a mass below zero
  double withBounds = 0.0;           ///< items with worst-case mass bounds
  double withoutBounds = 0.0;        ///< items with a mass but no bounds
  double replacing = 0.0;            ///< assemblies whose own mass type stands for their children
  double massWithoutCg = 0.0;        ///< kg
  double varianceWithoutCg = 0.0;    ///< variance of that mass, kg²
  double massWithInertia = 0.0;      ///< kg
  double lower = 0.0;                ///< worst-case deviation of the mass downwards, kg, 0 or above
  double upper = 0.0;                ///< upwards
  double spreadWithoutBounds = 0.0;  ///< sum of the standard deviations of mass of items without bounds, kg

  /// Adds `quantity` independent copies of `other`.
  void Add(const Coverage& other, double quantity) {
    for (const auto field : Fields()) this->*field += quantity * other.*field;
  }
  static constexpr std::array<double Coverage::*, 14> Fields();
  friend bool operator==(const Coverage&, const Coverage&) = default;
};

constexpr std::array<double Coverage::*, 14> Coverage::Fields() {
  return {&Coverage::items,           &Coverage::withoutMass,
          &Coverage::withoutCg,       &Coverage::withoutInertia,
          &Coverage::negative,        &Coverage::withBounds,
          &Coverage::withoutBounds,   &Coverage::replacing,
          &Coverage::massWithoutCg,   &Coverage::varianceWithoutCg,
          &Coverage::massWithInertia, &Coverage::lower,
          &Coverage::upper,           &Coverage::spreadWithoutBounds};
}
static_assert(sizeof(Coverage) == 14 * sizeof(double), "a new field belongs in Fields()");

/// The coverage of one occurrence of a part that counts with its own numbers. Bounds are those of the amount
/// of mass: for a negative mass the lower bound of the amount is the upper bound of the signed mass, so the
/// two change places.
Coverage CoverageOf(const GraphPart& part);

}  // namespace lumira
