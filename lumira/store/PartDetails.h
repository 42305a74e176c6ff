#pragma once

#include <optional>
#include <string>
#include <vector>

#include "protocol/PartData.h"

namespace lumira {

/// How exactly the mass of one mass type is known, as the user sees it.
struct Precision {
  std::string massType;
  int precisionType = 0;              ///< 0: bounds of the mass type, 1: typed by the user
  int precisionValueType = 0;         ///< 0: relative (fractions), 1: absolute (kg)
  double lowerPrecision = 0;          ///< typed by the user; fraction or kg
  double upperPrecision = 0;          ///< typed by the user; fraction or kg
  double massTypeLowerPrecision = 0;  ///< comes with the mass type; fraction or kg
  double massTypeUpperPrecision = 0;  ///< comes with the mass type; fraction or kg
};

/// What is kept of a part beside the data that enters a computation.
struct PartDetails {
  std::vector<Precision> precisions;
  std::string appliedOn;                   ///< where the material applies: instance or reference
  std::string referenceMaterial;           ///< material of the part reference
  std::optional<double> referenceDensity;  ///< kg/m³
  protocol::Documents documents;
  bool propertiesRequested = false;
  std::string dateFormat;
  std::vector<protocol::ExtraProperty> properties;
};

}  // namespace lumira
