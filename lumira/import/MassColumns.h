#pragma once

#include <array>
#include <cstddef>

#include "lumira/import/TableColumns.h"

/// The columns of the mass table. What several columns are for (a vector, the elements of a tensor) begins at
/// the one that is named here.
namespace lumira::mass_columns {

enum Column : std::size_t {
  PartId,
  Name,
  Revision,
  MassType,
  Active,
  Mass,
  CgX,
  Ixx = CgX + 3,
  Products = Ixx + 6,
  InertiaAbout,
  AxesTiltX,
  SdMass = AxesTiltX + 3,
  SdCgX,
  SdIxx = SdCgX + 3,
  Lower = SdIxx + 6,
  Upper,
  MaterialName,
  Density,
  CadMaterial,
  CadDensity,
  Priority,
  Standard,
  Volume,
  CentroidX,
  ShapeIxx = CentroidX + 3,
  ColumnCount = ShapeIxx + 6
};

inline constexpr std::array<ColumnRule, ColumnCount> kColumns = {{
    {"part", Quantity::Text, Presence::Required},
    {"name"},
    {"revision"},
    {"mass type"},
    {"active", Quantity::Flag},
    {"mass", Quantity::Mass},
    {"cg x", Quantity::Length},
    {"cg y", Quantity::Length},
    {"cg z", Quantity::Length},
    {"ixx", Quantity::Inertia},
    {"iyy", Quantity::Inertia},
    {"izz", Quantity::Inertia},
    {"ixy", Quantity::Inertia},
    {"ixz", Quantity::Inertia},
    {"iyz", Quantity::Inertia},
    {"products"},
    {"inertia about"},
    {"inertia tilt x", Quantity::Angle},
    {"inertia tilt y", Quantity::Angle},
    {"inertia tilt z", Quantity::Angle},
    {"sd mass", Quantity::Mass},
    {"sd cg x", Quantity::Length},
    {"sd cg y", Quantity::Length},
    {"sd cg z", Quantity::Length},
    {"sd ixx", Quantity::Inertia},
    {"sd iyy", Quantity::Inertia},
    {"sd izz", Quantity::Inertia},
    {"sd ixy", Quantity::Inertia},
    {"sd ixz", Quantity::Inertia},
    {"sd iyz", Quantity::Inertia},
    {"lower deviation", Quantity::Mass},
    {"upper deviation", Quantity::Mass},
    {"material"},
    {"density", Quantity::Density},
    {"cad material"},
    {"cad density", Quantity::Density},
    {"density priority"},
    {"standard part", Quantity::Flag},
    {"volume", Quantity::Volume},
    {"centroid x", Quantity::Length},
    {"centroid y", Quantity::Length},
    {"centroid z", Quantity::Length},
    {"shape ixx", Quantity::ShapeInertia},
    {"shape iyy", Quantity::ShapeInertia},
    {"shape izz", Quantity::ShapeInertia},
    {"shape ixy", Quantity::ShapeInertia},
    {"shape ixz", Quantity::ShapeInertia},
    {"shape iyz", Quantity::ShapeInertia},
}};

}  // namespace lumira::mass_columns
