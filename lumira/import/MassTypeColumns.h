#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#include "lumira/import/TableColumns.h"

/// The columns with which a table says what a part weighs, one mass type to a row; tables begin their own
/// columns behind them. What several columns are for (a vector, the elements of a tensor) begins at the one
/// that is named here.
namespace lumira::mass_type_columns {

enum Column : std::size_t {
  PartId,
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
  PrecisionSource,
  RelativePrecision,
  AbsolutePrecision = RelativePrecision + 4,
  MaterialName = AbsolutePrecision + 4,
  Density,
  ColumnCount
};

inline constexpr std::array<ColumnRule, ColumnCount> kColumns = {{
    {"part", Quantity::Text, Presence::Required},
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
    {"precision"},
    {"type lower precision", Quantity::Fraction},
    {"type upper precision", Quantity::Fraction},
    {"user lower precision", Quantity::Fraction},
    {"user upper precision", Quantity::Fraction},
    {"type lower bound", Quantity::Mass},
    {"type upper bound", Quantity::Mass},
    {"user lower bound", Quantity::Mass},
    {"user upper bound", Quantity::Mass},
    {"material"},
    {"density", Quantity::Density},
}};

/// These columns, and behind them those of one table.
template <std::size_t N>
constexpr auto WithColumns(const std::array<ColumnRule, N>& own) {
  std::array<ColumnRule, ColumnCount + N> all{};
  std::copy(kColumns.begin(), kColumns.end(), all.begin());
  std::copy(own.begin(), own.end(), all.begin() + ColumnCount);
  return all;
}

}  // namespace lumira::mass_type_columns
