#include <gmock/gmock.h>

#include <sstream>

#include "lumira/app/ValueList.h"

namespace lumira {
namespace {

using testing::HasSubstr;

std::string Written(const ComputedValues& values) {
  std::ostringstream out;
  WriteValues(out, values);
  return out.str();
}

ComputedValues Values(const std::string& part) {
  ComputedValues values;
  values.part = part;
  return values;
}

TEST(ValueList, NamesValuesAfterThePartInSmallLetters) {
  ComputedValues values = Values("Above_yaw");
  values.properties.mass = 0.1;
  EXPECT_THAT(Written(values), HasSubstr("above_yaw.mass_kg = 0.10000000000000001\n"));
  values.part = "Rotor-Hub 2.5 é";
  EXPECT_THAT(Written(values), HasSubstr("rotor_hub_2_5_é.mass_kg = "));
}

TEST(ValueList, LeavesOutWhatIsNotKnown) {
  EXPECT_EQ(Written(Values("a")), "");
  ComputedValues values = Values("a");
  values.properties.mass = 4;
  EXPECT_EQ(Written(values), "a.mass_kg = 4\n");
}

TEST(ValueList, WritesTheDeviationsThatAreKnown) {
  ComputedValues values = Values("a");
  values.upperDeviation = 3;
  values.deviations.cg.y = 0.5;
  EXPECT_EQ(Written(values),
            "a.mass_lower_deviation_kg = 0\na.mass_upper_deviation_kg = 3\n"
            "a.sd_cg_x_m = 0\na.sd_cg_y_m = 0.5\na.sd_cg_z_m = 0\n");
  values = Values("a");
  values.deviations.mass = 2;
  EXPECT_EQ(Written(values), "a.sd_mass_kg = 2\n");
  values = Values("a");
  values.deviations.inertia.xz = 7;
  EXPECT_THAT(Written(values), HasSubstr("a.sd_inertia_cg_xz_kgm2 = 7\n"));
}

TEST(ValueList, WritesMomentsWhereThereIsNoCentre) {
  ComputedValues values = Values("a");
  values.properties.mass = 0;
  values.firstMoment = Vec3{1, 2, 3};
  values.inertiaAtOrigin = InertiaTensor{4, 5, 6, 7, 8, 9};
  EXPECT_EQ(Written(values),
            "a.mass_kg = 0\na.first_moment_x_kgm = 1\na.first_moment_y_kgm = 2\na.first_moment_z_kgm = 3\n"
            "a.inertia_origin_xx_kgm2 = 4\na.inertia_origin_yy_kgm2 = 5\na.inertia_origin_zz_kgm2 = 6\n"
            "a.inertia_origin_xy_kgm2 = 7\na.inertia_origin_xz_kgm2 = 8\na.inertia_origin_yz_kgm2 = 9\n");
}

TEST(ValueList, RefersToTheFrameOfThePlacement) {
  ComputedValues values = Values("a");
  // 2 kg at 1 m along the part's x; the part stands at z = 3 m, turned so that its x is the frame's y.
  values.properties = {2.0, Vec3{1, 0, 0}, InertiaTensor{10, 20, 30, 0, 0, 0}};
  values.placement = {Rotation{{0, -1, 0, 1, 0, 0, 0, 0, 1}}, {0, 0, 3}};
  const std::string text = Written(values);
  EXPECT_THAT(text, HasSubstr("a.cg_x_m = 0\na.cg_y_m = 1\na.cg_z_m = 3\n"));
  EXPECT_THAT(text, HasSubstr("a.inertia_cg_xx_kgm2 = 10\na.inertia_cg_yy_kgm2 = 20\n"))
      << "in the part's axes";
  // Turned: 20, 10, 30. Moved by (0, 1, 3): 2·10, 2·9, 2·1 more, and -2·1·3 off the diagonal.
  EXPECT_THAT(
      text,
      HasSubstr("a.inertia_ref_xx_kgm2 = 40\na.inertia_ref_yy_kgm2 = 28\na.inertia_ref_zz_kgm2 = 32\n"));
  EXPECT_THAT(text, HasSubstr("a.inertia_ref_yz_kgm2 = -6\n"));
}

}  // namespace
}  // namespace lumira
