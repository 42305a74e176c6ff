#pragma once

#include <cmath>

#include "lumira/import/TableColumns.h"
#include "lumira/model/Rotation.h"
#include "lumira/model/Vec3.h"

namespace lumira {

/// Three angles (radians) from three columns that follow each other; an empty cell is no tilt.
inline Vec3 ReadTilts(const TableColumns& columns, std::size_t row, std::size_t first) {
  const auto at = [&](std::size_t i) { return columns.Number(row, first + i).value_or(0); };
  return {at(0), at(1), at(2)};
}

/// Turns about the fixed axes of the parent, right-handed: first about x, then about y, then about z
/// (radians).
inline Rotation RotationFromTilts(const Vec3& tilts) {
  const double cx = std::cos(tilts.x), sx = std::sin(tilts.x);
  const double cz = std::cos(tilts.z), sz = std::sin(tilts.z);
  const Rotation aboutX{{1, 0, 0, 0, cx, -sx, 0, sx, cx}};
  const Rotation aboutZ{{cz, -sz, 0, sz, cz, 0, 0, 0, 1}};
  return aboutZ * (RotationAboutY(tilts.y) * aboutX);
}

}  // namespace lumira
