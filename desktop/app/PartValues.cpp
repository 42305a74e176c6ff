#include "desktop/app/PartValues.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>

#include "framework/math/KorMathTransformation.h"
#include "services/KorLumWBCSCommonDefinitions.h"
#include "services/KorWBServices.h"

namespace desktop {
namespace {

struct Element {
  const char* name;
  int row, column;
};

constexpr Element kElements[] = {{"xx", 1, 1}, {"yy", 2, 2}, {"zz", 3, 3},
                                 {"xy", 1, 2}, {"xz", 1, 3}, {"yz", 2, 3}};

std::string Line(const std::string& part, const std::string& quantity, double value) {
  std::array<char, 40> digits;
  // A negative zero says nothing that a zero does not.
  std::snprintf(digits.data(), digits.size(), "%.17g", value == 0 ? 0.0 : value);
  return part + "." + quantity + " = " + digits.data() + "\n";
}

std::string TensorLines(const std::string& part, const std::string& name, const KorMath3x3Matrix& tensor) {
  std::string lines;
  for (const Element& element : kElements)
    lines += Line(part, name + "_" + element.name + "_kgm2", tensor.GetCoef(element.row, element.column));
  return lines;
}

}  // namespace

std::optional<PartValues> ReadPartValues(const LumWBAllDataBuffer& buffer) {
  const KorUnicodeString computed = KorLumWBCSCommonDefinitions::Computed;
  std::unique_ptr<KorMath3x3Matrix> inertia;
  std::unique_ptr<double[]> cg;
  PartValues values;
  const std::vector<double> placement = buffer.GetPlacement();
  std::array<double, 12> coefficients;
  if (buffer.GetMassTypeDefined(computed) != KorWBAllDataBuffer::kDefined ||
      placement.size() != coefficients.size() ||
      Failed(buffer.GetMassTypeValues(computed, inertia, cg, values.mass)) || !inertia || !cg)
    return std::nullopt;
  std::copy(placement.begin(), placement.end(), coefficients.begin());
  const KorMathTransformation inRoot(coefficients);
  values.cg = 0.001 * (inRoot * KorMathPoint(cg[0], cg[1], cg[2]));
  values.inertiaCg = *inertia;
  values.inertiaRef = inRoot.GetMatrix() * *inertia * inRoot.GetMatrix().Transpose();
  KorWBServices::ConvertInertiaMatrix(values.inertiaRef, values.mass, values.cg, KorMathO, true);
  return values;
}

std::string FormatPartValues(const std::string& part, const PartValues& values) {
  std::string name = part;
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return Line(name, "mass_kg", values.mass) + Line(name, "cg_x_m", values.cg.GetX()) +
         Line(name, "cg_y_m", values.cg.GetY()) + Line(name, "cg_z_m", values.cg.GetZ()) +
         TensorLines(name, "inertia_cg", values.inertiaCg) +
         TensorLines(name, "inertia_ref", values.inertiaRef);
}

}  // namespace desktop
