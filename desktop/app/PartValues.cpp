#include "desktop/app/PartValues.h"

#include <algorithm>
#include <array>

#include "framework/math/KorMathTransformation.h"
#include "protocol/ValueLines.h"
#include "services/KorLumWBCSCommonDefinitions.h"
#include "services/KorWBServices.h"

namespace desktop {
namespace {

std::array<double, 3> Elements(const KorMathPoint& point) {
  return {point.GetX(), point.GetY(), point.GetZ()};
}

std::array<double, 6> Elements(const KorMath3x3Matrix& tensor) {
  return {tensor.GetCoef(1, 1), tensor.GetCoef(2, 2), tensor.GetCoef(3, 3),
          tensor.GetCoef(1, 2), tensor.GetCoef(1, 3), tensor.GetCoef(2, 3)};
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

std::string FormatPartValues(const std::string& part, const PartValues& values, const std::string& filter) {
  protocol::ValueLines lines(part, filter);
  lines.Value("mass_kg", values.mass);
  lines.Vector("cg", Elements(values.cg));
  lines.Tensor("inertia_cg", Elements(values.inertiaCg));
  lines.Tensor("inertia_ref", Elements(values.inertiaRef));
  return lines.Text();
}

}  // namespace desktop
