#include "lumira/app/ValueList.h"

#include "protocol/ValueLines.h"

namespace lumira {
namespace {

std::array<double, 3> Elements(const Vec3& v) { return {v.x, v.y, v.z}; }
std::array<double, 6> Elements(const InertiaTensor& i) { return {i.xx, i.yy, i.zz, i.xy, i.xz, i.yz}; }

}  // namespace

void WriteValues(std::ostream& out, const ComputedValues& values) {
  protocol::ValueLines lines(values.part);
  const auto& [mass, cg, inertia] = values.properties;
  if (mass) lines.Value("mass_kg", *mass);
  if (cg) lines.Vector("cg", Elements(values.placement * *cg));
  if (inertia) lines.Tensor("inertia_cg", Elements(*inertia));
  if (mass && cg && inertia)
    lines.Tensor("inertia_ref", Elements(ShiftedFromCg(Rotated(*inertia, values.placement.rotation), *mass,
                                                       values.placement * *cg)));
  if (values.firstMoment) lines.Vector("first_moment", Elements(*values.firstMoment), "kgm");
  if (values.inertiaAtOrigin) lines.Tensor("inertia_origin", Elements(*values.inertiaAtOrigin));
  if (values.lowerDeviation != 0 || values.upperDeviation != 0) {
    lines.Value("mass_lower_deviation_kg", values.lowerDeviation);
    lines.Value("mass_upper_deviation_kg", values.upperDeviation);
  }
  const Deviations& sd = values.deviations;
  if (sd.mass != 0) lines.Value("sd_mass_kg", sd.mass);
  if (sd.cg != Vec3{}) lines.Vector("sd_cg", Elements(sd.cg));
  if (sd.inertia != InertiaTensor{}) lines.Tensor("sd_inertia_cg", Elements(sd.inertia));
  out << lines.Text();
}

}  // namespace lumira
