#pragma once

#include <string>

namespace lumira {

/// How exactly the mass of one mass type is known, as the user sees it. The engine does not count with it;
/// what it counts with are `MassBounds` and `Deviations`.
struct Precision {
  std::string massType;
  int precisionType = 0;              ///< 0: bounds of the mass type, 1: typed by the user
  int precisionValueType = 0;         ///< 0: relative (fractions), 1: absolute (kg)
  double lowerPrecision = 0;          ///< typed by the user; fraction or kg
  double upperPrecision = 0;          ///< typed by the user; fraction or kg
  double massTypeLowerPrecision = 0;  ///< comes with the mass type; fraction or kg
  double massTypeUpperPrecision = 0;  ///< comes with the mass type; fraction or kg

  friend bool operator==(const Precision&, const Precision&) = default;
};

}  // namespace lumira
