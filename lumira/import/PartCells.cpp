#include "lumira/import/PartCells.h"

#include <cmath>
#include <optional>
#include <string>

#include "lumira/import/MassColumns.h"
#include "lumira/import/PhysicalChecks.h"
#include "lumira/import/VectorCells.h"
#include "protocol/Constants.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using namespace mass_columns;
using mass_type_columns::Density;
using mass_type_columns::MaterialName;
using protocol::Quoted;

constexpr std::string_view kPriorities[] = {"cad", "wb"};
constexpr std::string_view kPlaces[] = {"", "instance", "reference"};
constexpr std::string_view kWirePlaces[] = {"", protocol::kPartInstance, protocol::kPartReference};
constexpr std::string_view kPart = "part";
constexpr std::string_view kDensity = "a density";

template <class T>
void Set(const TableColumns& columns, std::size_t row, std::size_t column, std::optional<T>& member,
         const T& value) {
  if (member && *member != value)
    columns.Error(row, column, "differs from what another row of the same part says");
  member = value;
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
  SetText(columns, row, Name, kPart, part.name);
  SetText(columns, row, Revision, kPart, part.revision);
  SetText(columns, row, MaterialName, kPart, part.material);
  SetText(columns, row, CadMaterial, kPart, part.cadMaterial);
  SetAmount(columns, row, Density, kDensity, part.density);
  SetAmount(columns, row, CadDensity, kDensity, part.cadDensity);
  SetAmount(columns, row, SurfaceMass, "a surface mass", part.surfaceMass);
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

void ReadReferenceCells(const TableColumns& columns, std::size_t row, PartDetails& details) {
  if (const std::size_t place = columns.Choice(row, AppliedOn, kPlaces); place != 0) {
    if (!details.appliedOn.empty() && details.appliedOn != kWirePlaces[place])
      columns.Error(row, AppliedOn, "differs from what another row of the same part says");
    details.appliedOn = kWirePlaces[place];
  }
  SetText(columns, row, ReferenceMaterial, kPart, details.referenceMaterial);
  SetAmount(columns, row, ReferenceDensity, kDensity, details.referenceDensity);
}

void SetText(const TableColumns& columns, std::size_t row, std::size_t column, std::string_view whose,
             std::string& member) {
  const std::string text(columns.Text(row, column));
  if (text.empty()) return;
  if (!member.empty() && member != text)
    columns.Error(row, column,
                  Quoted(text) + " differs from " + Quoted(member) + " on another row of the same " +
                      std::string(whose));
  member = text;
}

void SetAmount(const TableColumns& columns, std::size_t row, std::size_t column, std::string_view what,
               std::optional<double>& member) {
  const auto amount = columns.Number(row, column);
  if (!amount) return;
  if (*amount < 0) columns.Error(row, column, std::string(what) + " may not be negative");
  Set(columns, row, column, member, *amount);
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
