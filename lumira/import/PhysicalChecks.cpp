#include "lumira/import/PhysicalChecks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "protocol/Numbers.h"

namespace lumira {
namespace {

// Eigenvalues of a symmetric 3x3 matrix, ascending, by the trigonometric solution of its characteristic equation
// (O. K. Smith, Communications of the ACM 4, 1961).
std::array<double, 3> PrincipalMoments(const InertiaTensor& t) {
  const double mean = Trace(t) / 3;
  const InertiaTensor d = t - InertiaTensor{mean, mean, mean, 0, 0, 0};
  const double offDiagonal = d.xy * d.xy + d.xz * d.xz + d.yz * d.yz;
  const double radius = std::sqrt((d.xx * d.xx + d.yy * d.yy + d.zz * d.zz + 2 * offDiagonal) / 6);
  if (radius == 0) return {mean, mean, mean};
  const double determinant = d.xx * (d.yy * d.zz - d.yz * d.yz) - d.xy * (d.xy * d.zz - d.yz * d.xz) +
                             d.xz * (d.xy * d.yz - d.yy * d.xz);
  const double cosine = std::clamp(determinant / (2 * radius * radius * radius), -1.0, 1.0);
  const double angle = std::acos(cosine) / 3;
  const auto moment = [&](double turn) { return mean + 2 * radius * std::cos(angle + turn); };
  constexpr double kThird = 2 * std::numbers::pi / 3;
  return {moment(kThird), moment(2 * kThird), moment(0)};
}

std::string MomentsText(const std::array<double, 3>& moments) {
  return protocol::FormatNumber(moments[0]) + ", " + protocol::FormatNumber(moments[1]) + ", " +
         protocol::FormatNumber(moments[2]) + " kg m2";
}

bool IsZero(const InertiaTensor& t) { return t == InertiaTensor{}; }

}  // namespace

std::vector<std::string> FindPhysicalProblems(const MassProperties& properties, double rounding) {
  std::vector<std::string> problems;
  if (!properties.inertia || IsZero(*properties.inertia)) return problems;
  const double mass = properties.mass.value_or(1);
  if (mass == 0) return {"the mass is zero, but there is inertia"};

  const auto moments = PrincipalMoments((mass < 0 ? -1.0 : 1.0) * *properties.inertia);
  // Eigenvalues move by no more than the norm of what is added to the matrix (Weyl): 3 for nine elements that
  // are each off by `rounding`, and the arithmetic above adds a few units of the last place.
  const double tolerance = 3 * rounding + 1e-12 * std::abs(moments[2]);
  if (moments[0] < -tolerance)
    problems.push_back("the inertia is not positive: its principal moments are " + MomentsText(moments));
  else if (moments[0] + moments[1] < moments[2] - 3 * tolerance)
    problems.push_back("the principal moments of inertia break the triangle inequality: " + MomentsText(moments) +
                       "; no body has these");
  return problems;
}

}  // namespace lumira
