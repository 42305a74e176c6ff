#include <gtest/gtest.h>

#include "desktop/app/PartValues.h"
#include "protocol/Codec.h"

namespace desktop::test {
namespace {

/// Two kilograms with the centre of gravity at x = 1 m of a part that is turned by 90° about z and moved by 2
/// m along y.
protocol::PartData Turned() {
  protocol::PartData data;
  data.partId = "Arm";
  data.placement = {0, -1, 0, 1, 0, 0, 0, 0, 1, 0, 2, 0};
  protocol::MassType computed;
  computed.name = "Computed";
  computed.status = protocol::MassTypeStatus::Defined;
  computed.mass = 2;
  computed.cg = {{1, 0, 0}};
  computed.inertia = {{10, 20, 30, 0, 0, 0}};
  data.massTypes = {computed};
  return data;
}

LumWBAllDataBuffer_var BufferOf(const protocol::PartData& data) {
  auto buffer = LumWBAllDataBuffer_var::Adopt(new LumWBAllDataBuffer);
  EXPECT_EQ(buffer->SetAllData(protocol::WritePartData(data), true), S_OK);
  return buffer;
}

TEST(PartValues, PlaceTheCentreOfGravityInTheRootProduct) {
  const auto values = ReadPartValues(*BufferOf(Turned()));
  ASSERT_TRUE(values.has_value());
  EXPECT_EQ(values->mass, 2);
  EXPECT_EQ(values->cg, KorMathPoint(0, 3, 0));
}

TEST(PartValues, LeaveInertiaAboutTheCentreInThePartsOwnAxes) {
  const auto values = ReadPartValues(*BufferOf(Turned()));
  EXPECT_EQ(values->inertiaCg, KorMath3x3Matrix(10, 0, 0, 0, 20, 0, 0, 0, 30));
}

TEST(PartValues, TurnAndMoveInertiaToTheOriginOfTheRootProduct) {
  const auto values = ReadPartValues(*BufferOf(Turned()));
  EXPECT_EQ(values->inertiaRef, KorMath3x3Matrix(20 + 18, 0, 0, 0, 10, 0, 0, 0, 30 + 18));
}

TEST(PartValues, AreNoneOfAPartThatIsOutOfDate) {
  protocol::PartData data = Turned();
  data.massTypes[0].status = protocol::MassTypeStatus::OutOfDate;
  EXPECT_FALSE(ReadPartValues(*BufferOf(data)).has_value());
}

TEST(PartValues, AreNoneOfAPartWithoutAPlace) {
  protocol::PartData data = Turned();
  data.placement.clear();
  EXPECT_FALSE(ReadPartValues(*BufferOf(data)).has_value());
}

TEST(PartValues, AreWrittenWithSeventeenDigitsUnderTheNameInLowerCase) {
  PartValues values;
  values.mass = 0.1;
  values.cg = KorMathPoint(-0.0, 1, 2);
  const std::string text = FormatPartValues("Above_yaw", values);
  EXPECT_EQ(text.substr(0, text.find("above_yaw.inertia")),
            "above_yaw.mass_kg = 0.10000000000000001\nabove_yaw.cg_x_m = 0\nabove_yaw.cg_y_m = "
            "1\nabove_yaw.cg_z_m = 2\n");
  EXPECT_NE(text.find("above_yaw.inertia_ref_yz_kgm2 = 0\n"), std::string::npos);
}

}  // namespace
}  // namespace desktop::test
