#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lumira/model/Geometry.h"
#include "lumira/model/MassTypeData.h"

namespace lumira {

/// Which density counts when both are known; the values are those of the wire.
enum class DensityPriority {
  WbFirst = 0,   ///< the weight-and-balance density, then that of the CAD model
  CadFirst = 1,  ///< the CAD model's density, then the weight-and-balance one
};

/// A part revision with its weight-and-balance data. A part that instances place children in is an assembly.
struct Part {
  std::string id;  ///< unique in its product
  std::string revision;
  std::string name;

  std::vector<MassTypeData> massTypes;            ///< user mass types; names are unique in the part
  std::string activeMassType{kComputedMassType};  ///< `kComputedMassType` or one of `massTypes`

  std::string material;              ///< weight-and-balance material
  std::optional<double> density;     ///< weight-and-balance density, kg/m³
  std::string cadMaterial;           ///< material of the CAD model
  std::optional<double> cadDensity;  ///< density of the CAD model, kg/m³
  DensityPriority densityPriority = DensityPriority::CadFirst;
  std::optional<double> surfaceMass = {};  ///< of a part made of sheet material, kg/m²

  std::optional<Geometry> geometry;  ///< when imported from a shape
  bool standardPart = false;         ///< bought by the catalogue: known by its mass alone

  friend bool operator==(const Part&, const Part&) = default;
};

/// The density that counts, kg/m³; none when neither is known.
inline std::optional<double> EffectiveDensity(const Part& part) {
  const bool cadFirst = part.densityPriority == DensityPriority::CadFirst;
  const auto& first = cadFirst ? part.cadDensity : part.density;
  return first ? first : (cadFirst ? part.density : part.cadDensity);
}

/// The data of a user mass type; nullptr when the part has none of that name. Owned by the part.
inline const MassTypeData* FindMassType(const Part& part, std::string_view name) {
  for (const auto& type : part.massTypes) {
    if (type.name == name) return &type;
  }
  return nullptr;
}

}  // namespace lumira
