#include "lumira/app/ValueList.h"

#include <cctype>
#include <cstdio>

namespace lumira {
namespace {

std::string Prefix(std::string_view part) {
  std::string prefix;
  for (const char c : part) {
    const auto byte = static_cast<unsigned char>(c);
    prefix += std::isalnum(byte) != 0 || byte >= 0x80 ? static_cast<char>(std::tolower(byte)) : '_';
  }
  return prefix;
}

class Writer {
 public:
  Writer(std::ostream& out, std::string_view part) : _out(out), _prefix(Prefix(part)) {}

  void Value(const std::string& name, double value) {
    char digits[40];
    std::snprintf(digits, sizeof digits, "%.17g", value);
    _out << _prefix << '.' << name << " = " << digits << '\n';
  }

  void Vector(const std::string& name, const Vec3& v, const std::string& unit = "m") {
    Value(name + "_x_" + unit, v.x);
    Value(name + "_y_" + unit, v.y);
    Value(name + "_z_" + unit, v.z);
  }

  void Tensor(const std::string& name, const InertiaTensor& i) {
    Value(name + "_xx_kgm2", i.xx);
    Value(name + "_yy_kgm2", i.yy);
    Value(name + "_zz_kgm2", i.zz);
    Value(name + "_xy_kgm2", i.xy);
    Value(name + "_xz_kgm2", i.xz);
    Value(name + "_yz_kgm2", i.yz);
  }

 private:
  std::ostream& _out;
  std::string _prefix;
};

}  // namespace

void WriteValues(std::ostream& out, const ComputedValues& values) {
  Writer writer(out, values.part);
  const auto& [mass, cg, inertia] = values.properties;
  if (mass) writer.Value("mass_kg", *mass);
  if (cg) writer.Vector("cg", values.placement * *cg);
  if (inertia) writer.Tensor("inertia_cg", *inertia);
  if (mass && cg && inertia)
    writer.Tensor("inertia_ref", ShiftedFromCg(Rotated(*inertia, values.placement.rotation), *mass,
                                               values.placement * *cg));
  if (values.firstMoment) writer.Vector("first_moment", *values.firstMoment, "kgm");
  if (values.inertiaAtOrigin) writer.Tensor("inertia_origin", *values.inertiaAtOrigin);
  if (values.lowerDeviation != 0 || values.upperDeviation != 0) {
    writer.Value("mass_lower_deviation_kg", values.lowerDeviation);
    writer.Value("mass_upper_deviation_kg", values.upperDeviation);
  }
  const Deviations& sd = values.deviations;
  if (sd.mass != 0) writer.Value("sd_mass_kg", sd.mass);
  if (sd.cg != Vec3{}) writer.Vector("sd_cg", sd.cg);
  if (sd.inertia != InertiaTensor{}) writer.Tensor("sd_inertia_cg", sd.inertia);
}

}  // namespace lumira
