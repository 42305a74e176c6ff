#include "lumira/engine/MassResult.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace lumira {
namespace {

/// A sum of masses that cancel is zero when it is not larger than what rounding leaves of them.
constexpr double kCancelled = 1e-14;

Vec3 VecOf(const double (&v)[3]) { return {v[0], v[1], v[2]}; }

InertiaTensor TensorOf(const double (&v)[6]) { return {v[0], v[1], v[2], v[3], v[4], v[5]}; }

/// 2(d·s)E - dsᵀ - sdᵀ, see the kernel.
InertiaTensor CrossInertia(const Vec3& d, const Vec3& s) {
  return {2.0 * (d.y * s.y + d.z * s.z), 2.0 * (d.x * s.x + d.z * s.z), 2.0 * (d.x * s.x + d.y * s.y),
          -(d.x * s.y + d.y * s.x),      -(d.x * s.z + d.z * s.x),      -(d.y * s.z + d.z * s.y)};
}

/// The sums about a point from which their reference is seen at `d`.
InertiaTensor InertiaSeenAt(const NodeState& state, const Vec3& d) {
  return TensorOf(state.inertia) + CrossInertia(d, VecOf(state.moment)) + state.mass * PointInertia(d);
}

/// One of the ten sums as a linear form of the ten: mass, moments x y z, inertia xx yy zz xy xz yz.
using Form = std::array<double, 10>;

/// Entry (a, b) of the packed covariance.
double Entry(const NodeCovariance& covariance, std::size_t a, std::size_t b) {
  using At = CovarianceLayout;
  if (a > b) std::swap(a, b);
  std::size_t at = At::mm;
  if (a == 0) {
    at = b == 0 ? At::mm : b < 4 ? At::ms + b - 1 : At::mj + b - 4;
  } else if (b < 4) {
    at = a == b ? At::ss + a - 1 : At::ss + a + b;  // (x,y) (x,z) (y,z) are a + b = 3, 4, 5
  } else if (a < 4) {
    at = At::sj + 6 * (a - 1) + b - 4;
  } else {
    const std::size_t row = a - 4;
    at = At::jj + row * 6 - row * (row - 1) / 2 + (b - a);
  }
  return covariance.packed[at];
}

double Deviation(const NodeCovariance& covariance, const Form& form) {
  double variance = 0.0;
  for (std::size_t a = 0; a < form.size(); ++a) {
    if (form[a] == 0.0) continue;
    for (std::size_t b = 0; b < form.size(); ++b) variance += form[a] * form[b] * Entry(covariance, a, b);
  }
  return std::sqrt(std::max(variance, 0.0));
}

/// The first moment along one axis about a point from which the reference is seen at `d`: s + d·m.
Form MomentForm(std::size_t axis, double d) {
  Form form{};
  form[0] = d;
  form[1 + axis] = 1.0;
  return form;
}

/// The elements of J + A(d)·s + K(d)·m.
std::array<Form, 6> InertiaForms(const Vec3& d) {
  const auto elements = [](const InertiaTensor& t) {
    return std::array<double, 6>{t.xx, t.yy, t.zz, t.xy, t.xz, t.yz};
  };
  const std::array<std::array<double, 6>, 4> columns = {
      elements(PointInertia(d)), elements(CrossInertia(d, {1.0, 0.0, 0.0})),
      elements(CrossInertia(d, {0.0, 1.0, 0.0})), elements(CrossInertia(d, {0.0, 0.0, 1.0}))};
  std::array<Form, 6> forms{};
  for (std::size_t a = 0; a < 6; ++a) {
    for (std::size_t i = 0; i < 4; ++i) forms[a][i] = columns[i][a];
    forms[a][4 + a] = 1.0;
  }
  return forms;
}

/// Seen from the centre of gravity the first moments vanish. There the centre moves by ds/m, and the inertia
/// by dJ: it does not answer to the centre to first order.
Deviations DeviationsAtCg(const NodeSums& sums, const std::optional<Vec3>& cg) {
  const auto& covariance = *sums.covariance;
  Deviations result;
  result.mass = std::sqrt(covariance.packed[CovarianceLayout::mm] + sums.coverage.varianceWithoutCg);
  if (!cg) return result;
  const Vec3 d = VecOf(sums.state.reference) - *cg;
  const double perMass = 1.0 / std::abs(sums.state.mass);
  result.cg = {perMass * Deviation(covariance, MomentForm(0, d.x)),
               perMass * Deviation(covariance, MomentForm(1, d.y)),
               perMass * Deviation(covariance, MomentForm(2, d.z))};
  const auto forms = InertiaForms(d);
  const auto of = [&](std::size_t a) { return Deviation(covariance, forms[a]); };
  result.inertia = {of(0), of(1), of(2), of(3), of(4), of(5)};
  return result;
}

NodeState StateOf(const Item& item) {
  NodeState state;
  if (!item.cgKnown) return state;
  const auto& [x, y, z] = item.cg;
  const auto& [xx, yy, zz, xy, xz, yz] = item.inertia;
  std::ranges::copy(std::array{x, y, z}, state.reference);
  std::ranges::copy(std::array{xx, yy, zz, xy, xz, yz}, state.inertia);
  state.mass = item.mass;
  state.absMass = std::abs(item.mass);
  return state;
}

}  // namespace

MassResult ResultFrom(const NodeSums& sums) {
  const auto& [state, coverage, covariance] = sums;
  MassResult result;
  result.coverage = coverage;
  if (coverage.items > coverage.withoutMass) result.mass = state.mass + coverage.massWithoutCg;
  const Vec3 reference = VecOf(state.reference);
  const Vec3 moment = VecOf(state.moment);
  result.firstMoment = moment + state.mass * reference;
  result.inertiaAtOrigin = InertiaSeenAt(state, reference);
  if (std::abs(state.mass) > kCancelled * state.absMass) {
    const Vec3 fromReference = (1.0 / state.mass) * moment;
    result.cg = reference + fromReference;
    result.inertiaAtCg = TensorOf(state.inertia) - state.mass * PointInertia(fromReference);
  }
  if (covariance != nullptr) result.deviations = DeviationsAtCg(sums, result.cg);
  return result;
}

MassResult ResultFrom(const GraphPart& part) {
  const auto& item = part.item;
  MassResult result = ResultFrom(NodeSums{StateOf(item), CoverageOf(part), nullptr});
  if (!item.inertiaKnown) result.inertiaAtCg.reset();
  if (item.deviations != Deviations{}) result.deviations = item.deviations;
  return result;
}

}  // namespace lumira
