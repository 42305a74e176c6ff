#include "lumira/import/PartCells.h"

#include <cmath>
#include <optional>
#include <string>

#include "lumira/import/MassColumns.h"
#include "lumira/import/PhysicalChecks.h"
#include "lumira/import/VectorCells.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using namespace mass_columns;
using protocol::Quoted;

constexpr std::string_view kPriorities[] = {"cad", "wb"};

template <class T>
void Set(const TableColumns& columns, std::size_t row, Column column, std::optional<T>& member,
         const T& value) {
  if (member && *member != value)
    columns.Error(row, column, "differs from what another row of the same part says");
  member = value;
}

void SetText(const TableColumns& columns, std::size_t row, Column column, std::string& member) {
  const std::string text(columns.Text(row, column));
  if (text.empty()) return;
  if (!member.empty() && member != text)
    columns.Error(row, column,
                  Quoted(text) + " differs from " + Quoted(member) + " on another row of the same part");
  member = text;
}

void SetDensity(const TableColumns& columns, std::size_t row, Column column, std::optional<double>& member) {
  const auto density = columns.Number(row, column);
  if (!density) return;
  if (*density < 0) columns.Error(row, column, "a density may not be negative");
  Set(columns, row, column, member, *density);
}

std::optional<Geometry> ReadGeometry(const TableColumns& columns, std::size_t row) {
  const auto volume = columns.Number(row, Volume);
  const auto centroid = ReadVector(columns, row, CentroidX);
  const auto inertia = ReadTensor(columns, row, ShapeIxx);
  if (!volume) {
    if (centroid) columns.LeftOut(row, CentroidX, "there is no volume, the centroid is left out");
    if (inertia) columns.LeftOut(row, ShapeIxx, "there is no volume, the inertia of the shape is left out");
    return std::nullopt;
  }
  if (*volume < 0) columns.Error(row, Volume, "a volume may not be negative");
  return Geometry{*volume, centroid, inertia};
}

}  // namespace

void ReadPartCells(const TableColumns& columns, std::size_t row, Part& part, ImportLog& log) {
  SetText(columns, row, Name, part.name);
  SetText(columns, row, Revision, part.revision);
  SetText(columns, row, MaterialName, part.material);
  SetText(columns, row, CadMaterial, part.cadMaterial);
  SetDensity(columns, row, Density, part.density);
  SetDensity(columns, row, CadDensity, part.cadDensity);
  if (!columns.Text(row, Priority).empty())
    part.densityPriority = columns.Choice(row, Priority, kPriorities) == 0 ? DensityPriority::CadFirst
                                                                           : DensityPriority::WbFirst;
  part.standardPart |= columns.Flag(row, Standard);
  if (const auto geometry = ReadGeometry(columns, row)) {
    Set(columns, row, Volume, part.geometry, *geometry);
    WarnOf(FindShapeProblems(*geometry, TensorRounding(columns, row, ShapeIxx)), columns.RowPlace(row),
           part.id, log);
  }
}

void CheckShapeWithDensity(const TableColumns& columns, std::size_t row, const Part& part) {
  const auto density = EffectiveDensity(part);
  if (!density || !part.geometry) return;
  if (!std::isfinite(*density * part.geometry->volume))
    columns.Error(row, Volume, "volume times density is too large to be computed");
  if (!IsFinite(*density * part.geometry->unitInertia.value_or(InertiaTensor{})))
    columns.Error(row, ShapeIxx, "the inertia of the shape times density is too large to be computed");
}

}  // namespace lumira
