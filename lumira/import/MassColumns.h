#pragma once

#include <array>
#include <cstddef>

#include "lumira/import/MassTypeColumns.h"

/// The columns of the mass table behind those of mass types. What several columns are for (a vector, the
/// elements of a tensor) begins at the one that is named here.
namespace lumira::mass_columns {

enum Column : std::size_t {
  Name = mass_type_columns::ColumnCount,
  Revision,
  CadMaterial,
  CadDensity,
  Priority,
  SurfaceMass,
  AppliedOn,
  ReferenceMaterial,
  ReferenceDensity,
  Standard,
  Volume,
  CentroidX,
  ShapeIxx = CentroidX + 3,
};

inline constexpr auto kColumns = mass_type_columns::WithColumns(std::array{
    ColumnRule{"name"},
    ColumnRule{"revision"},
    ColumnRule{"cad material"},
    ColumnRule{"cad density", Quantity::Density},
    ColumnRule{"density priority"},
    ColumnRule{"surface mass", Quantity::SurfaceMass},
    ColumnRule{"applied on"},
    ColumnRule{"reference material"},
    ColumnRule{"reference density", Quantity::Density},
    ColumnRule{"standard part", Quantity::Flag},
    ColumnRule{"volume", Quantity::Volume},
    ColumnRule{"centroid x", Quantity::Length},
    ColumnRule{"centroid y", Quantity::Length},
    ColumnRule{"centroid z", Quantity::Length},
    ColumnRule{"shape ixx", Quantity::ShapeInertia},
    ColumnRule{"shape iyy", Quantity::ShapeInertia},
    ColumnRule{"shape izz", Quantity::ShapeInertia},
    ColumnRule{"shape ixy", Quantity::ShapeInertia},
    ColumnRule{"shape ixz", Quantity::ShapeInertia},
    ColumnRule{"shape iyz", Quantity::ShapeInertia},
});

}  // namespace lumira::mass_columns
