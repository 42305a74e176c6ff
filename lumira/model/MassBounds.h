#pragma once

namespace lumira {

/// Worst-case limits of a mass, as absolute deviations (kg, each 0 or above): the amount of mass lies
/// between |mass| - lower and |mass| + upper.
struct MassBounds {
  double lower = 0.0;
  double upper = 0.0;

  friend bool operator==(const MassBounds&, const MassBounds&) = default;
};

}  // namespace lumira
