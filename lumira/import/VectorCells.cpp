#include "lumira/import/VectorCells.h"

#include <array>
#include <string>

namespace lumira {
namespace {

using Three = std::array<double, 3>;

std::optional<Three> ReadThree(const TableColumns& columns, std::size_t row, std::size_t first,
                               const char* what) {
  Three numbers{};
  std::size_t given = 0, read = 0;
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    given += !columns.Text(row, first + i).empty();
    const auto number = columns.Number(row, first + i);
    read += number.has_value();
    numbers[i] = number.value_or(0);
  }
  if (given != 0 && given != numbers.size())
    columns.Error(row, columns.FirstGiven(row, first, numbers.size()),
                  "only " + std::to_string(given) + " of the 3 numbers of the " + what + " (from " +
                      std::string(columns.Name(first)) + (given == 1 ? " on) is given" : " on) are given"));
  return read == numbers.size() ? std::optional(numbers) : std::nullopt;
}

}  // namespace

std::optional<Vec3> ReadVector(const TableColumns& columns, std::size_t row, std::size_t first) {
  const auto n = ReadThree(columns, row, first, "centre");
  if (!n) return std::nullopt;
  return Vec3{(*n)[0], (*n)[1], (*n)[2]};
}

std::optional<InertiaTensor> ReadTensor(const TableColumns& columns, std::size_t row, std::size_t first) {
  const auto moments = ReadThree(columns, row, first, "moments of inertia");
  const std::size_t firstProduct = first + 3;
  std::array<std::optional<double>, 3> products;
  for (std::size_t i = 0; i < 3; ++i) products[i] = columns.Number(row, firstProduct + i);
  if (!moments) {
    const bool hasMoments = columns.IsAnyGiven(row, first, 3);  // none that could be read
    if (!hasMoments && columns.IsAnyGiven(row, firstProduct, 3))
      columns.Error(row, columns.FirstGiven(row, firstProduct, 3),
                    "there are products of inertia without moments");
    return std::nullopt;
  }
  return InertiaTensor{(*moments)[0],           (*moments)[1],           (*moments)[2],
                       products[0].value_or(0), products[1].value_or(0), products[2].value_or(0)};
}

Vec3 VectorRounding(const TableColumns& columns, std::size_t row, std::size_t first) {
  const auto r = [&](std::size_t i) { return columns.Rounding(row, first + i); };
  return {r(0), r(1), r(2)};
}

InertiaTensor TensorRounding(const TableColumns& columns, std::size_t row, std::size_t first) {
  const auto r = [&](std::size_t i) { return columns.Rounding(row, first + i); };
  return {r(0), r(1), r(2), r(3), r(4), r(5)};
}

}  // namespace lumira
