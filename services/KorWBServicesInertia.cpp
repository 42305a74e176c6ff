#include "services/KorWBServices.h"

#include <array>

void KorWBServices::ConvertInertiaMatrix(KorMath3x3Matrix& inertia, double mass,
                                         const KorMathPoint& fromPoint, const KorMathPoint& toPoint,
                                         bool fromCentreOfGravity) {
  const KorMathPoint d = toPoint - fromPoint;
  const double x = d.GetX(), y = d.GetY(), z = d.GetZ();
  // |d|²·E − d·dᵀ, with the squares of the diagonal left in the form in which nothing cancels.
  // clang-format off
  const std::array<double, 9> steiner = {y * y + z * z, -x * y, -x * z,
                                         -x * y, x * x + z * z, -y * z,
                                         -x * z, -y * z, x * x + y * y};
  // clang-format on
  const double factor = fromCentreOfGravity ? mass : -mass;
  std::array<double, 9> moved = inertia.Coefficients();
  for (std::size_t i = 0; i < moved.size(); ++i) moved[i] += factor * steiner[i];
  inertia.SetCoefficients(moved);
}
