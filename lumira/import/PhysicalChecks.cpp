#include "lumira/import/PhysicalChecks.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "protocol/Numbers.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using Matrix = std::array<std::array<double, 3>, 3>;

// One turn of the cyclic Jacobi method: makes element (p, q) zero. r is the third index.
void Turn(Matrix& a, std::size_t p, std::size_t q, std::size_t r) {
  if (a[p][q] == 0) return;
  const double theta = (a[q][q] - a[p][p]) / (2 * a[p][q]);
  const double t = (theta < 0 ? -1 : 1) / (std::abs(theta) + std::hypot(theta, 1.0));
  const double c = 1 / std::hypot(t, 1.0), s = t * c;
  a[p][p] -= t * a[p][q];
  a[q][q] += t * a[p][q];
  a[p][q] = a[q][p] = 0;
  const double arp = a[r][p], arq = a[r][q];
  a[r][p] = a[p][r] = c * arp - s * arq;
  a[r][q] = a[q][r] = s * arp + c * arq;
}

// Eigenvalues, ascending, by Jacobi's method: exact to the last places even where two of them are equal, as
// those of every body of revolution are (G. H. Golub and C. F. Van Loan, Matrix Computations, section on
// Jacobi methods).
std::array<double, 3> PrincipalMoments(const InertiaTensor& t) {
  constexpr int kSweeps = 12;  // it converges quadratically; 3x3 matrices take four or five
  Matrix a = {{{t.xx, t.xy, t.xz}, {t.xy, t.yy, t.yz}, {t.xz, t.yz, t.zz}}};
  for (int sweep = 0; sweep < kSweeps; ++sweep) {
    Turn(a, 0, 1, 2);
    Turn(a, 0, 2, 1);
    Turn(a, 1, 2, 0);
  }
  std::array moments = {a[0][0], a[1][1], a[2][2]};
  std::sort(moments.begin(), moments.end());
  return moments;
}

// How far eigenvalues can move when the elements of the matrix are off by these amounts: no further than the
// norm of what is added (Weyl), here the largest sum of a row.
double MovedBy(const InertiaTensor& e) {
  return std::max({e.xx + e.xy + e.xz, e.xy + e.yy + e.yz, e.xz + e.yz + e.zz});
}

std::string MomentsText(const std::array<double, 3>& moments, const char* unit) {
  return protocol::FormatNumber(moments[0]) + ", " + protocol::FormatNumber(moments[1]) + ", " +
         protocol::FormatNumber(moments[2]) + " " + unit;
}

bool IsZero(const InertiaTensor& t) { return t == InertiaTensor{}; }

void CheckMoments(const InertiaTensor& inertia, const InertiaTensor& rounding, const char* unit,
                  std::vector<std::string>& problems) {
  const auto moments = PrincipalMoments(inertia);
  const double tolerance = MovedBy(rounding) + 1e-12 * std::abs(moments[2]);  // and the arithmetic above
  if (moments[0] < -tolerance)
    problems.push_back("the inertia is not positive: its principal moments are " +
                       MomentsText(moments, unit));
  else if (moments[0] + moments[1] < moments[2] - 3 * tolerance)
    problems.push_back("the principal moments of inertia break the triangle inequality: " +
                       MomentsText(moments, unit) + "; no body has these");
}

}  // namespace

std::vector<std::string> FindPhysicalProblems(const MassProperties& properties,
                                              const InertiaTensor& rounding) {
  std::vector<std::string> problems;
  const auto& [mass, cg, inertia] = properties;
  if (!inertia || IsZero(*inertia)) return problems;
  if (mass == 0.0) return {"the mass is zero, but there is inertia"};
  if (!mass) problems.push_back("there is inertia but no mass, so it does not count");
  if (mass && !cg) problems.push_back("there is inertia but no centre of gravity, so it does not count");
  CheckMoments((mass.value_or(1) < 0 ? -1.0 : 1.0) * *inertia, rounding, "kg m2", problems);
  return problems;
}

std::vector<std::string> FindShapeProblems(const Geometry& shape, const InertiaTensor& rounding) {
  std::vector<std::string> problems;
  const auto& [volume, centroid, inertia] = shape;
  if (!inertia || IsZero(*inertia)) return problems;
  if (volume == 0) return {"the volume is zero, but the shape has inertia"};
  if (!centroid) problems.push_back("the shape has inertia but no centroid, so it does not count");
  CheckMoments(*inertia, rounding, "m5", problems);
  return problems;
}

void WarnOf(const std::vector<std::string>& problems, const Place& row, const std::string& partId,
            ImportLog& log) {
  for (const std::string& problem : problems)
    log.Warning(row, "part " + protocol::Quoted(partId) + ": " + problem);
}

}  // namespace lumira
