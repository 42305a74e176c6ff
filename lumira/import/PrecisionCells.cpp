#include "lumira/import/PrecisionCells.h"

#include <array>

#include "lumira/import/MassTypeColumns.h"

namespace lumira {
namespace {

using namespace mass_type_columns;

constexpr std::string_view kSources[] = {"mass type", "user"};
constexpr std::size_t kBounds = 4;  ///< of the mass type lower and upper, of the user lower and upper
constexpr std::size_t kFirstOfUser = 2;

std::array<double, kBounds> ReadBounds(const TableColumns& columns, std::size_t row, std::size_t first) {
  std::array<double, kBounds> bounds{};
  for (std::size_t i = 0; i < kBounds; ++i) {
    bounds[i] = columns.Number(row, first + i).value_or(0);
    if (bounds[i] < 0) columns.Error(row, first + i, "a bound may not be negative");
  }
  return bounds;
}

// Without a word about it, the user's bounds count where there are any.
int ReadSource(const TableColumns& columns, std::size_t row, std::size_t first) {
  if (columns.Text(row, PrecisionSource).empty()) return columns.IsAnyGiven(row, first + kFirstOfUser, 2);
  return static_cast<int>(columns.Choice(row, PrecisionSource, kSources));
}

}  // namespace

std::optional<Precision> ReadPrecision(const TableColumns& columns, std::size_t row,
                                       const std::string& massType) {
  if (!columns.IsAnyGiven(row, PrecisionSource, 1 + 2 * kBounds)) return std::nullopt;
  const auto relative = ReadBounds(columns, row, RelativePrecision);
  const auto absolute = ReadBounds(columns, row, AbsolutePrecision);
  const bool isAbsolute = columns.IsAnyGiven(row, AbsolutePrecision, kBounds);
  if (isAbsolute && columns.IsAnyGiven(row, RelativePrecision, kBounds))
    columns.Error(row, columns.FirstGiven(row, AbsolutePrecision, kBounds),
                  "bounds of one mass type are either relative or absolute; the row has both");
  const auto& bounds = isAbsolute ? absolute : relative;
  return Precision{
      massType,           ReadSource(columns, row, isAbsolute ? AbsolutePrecision : RelativePrecision),
      isAbsolute ? 1 : 0, bounds[2],
      bounds[3],          bounds[0],
      bounds[1]};
}

}  // namespace lumira
