#include <limits>

#include "tests/services/SamplePart.h"

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(MassTypes, AreListedInTheOrderOfTheText) {
  EXPECT_EQ(LoadedBuffer()->GetMassTypeList(),
            (KorListValKorUnicodeString{"Computed", "Estimated", "Weighed"}));
}

TEST(MassTypes, HaveTheStatusOfTheText) {
  const LoadedBuffer buffer;
  EXPECT_EQ(buffer->GetMassTypeDefined("Computed"), KorWBAllDataBuffer::kOutOfDate);
  EXPECT_EQ(buffer->GetMassTypeDefined("Estimated"), KorWBAllDataBuffer::kDefined);
  EXPECT_EQ(buffer->GetMassTypeDefined("Weighed"), KorWBAllDataBuffer::kNotDefined);
}

TEST(MassTypes, GiveAStatusOfFailureWhenUnknown) {
  const LoadedBuffer buffer;
  int status = -77;
  EXPECT_EQ(buffer->GetMassTypeDefined("Computed", status), S_OK);
  EXPECT_EQ(status, 2);
  EXPECT_EQ(buffer->GetMassTypeDefined("Nobody", status), E_FAIL);
  EXPECT_EQ(status, 2);
  EXPECT_EQ(buffer->GetMassTypeDefined("Nobody"), 0);
}

TEST(MassTypes, AreMarkedDefinedWithoutTouchingTheirValues) {
  const LoadedBuffer buffer;
  EXPECT_EQ(buffer->SetMassTypeDefined("Estimated", false), S_OK);
  EXPECT_EQ(buffer->GetMassTypeDefined("Estimated"), 0);
  EXPECT_EQ(buffer->GetMass("Estimated"), 10.1);
  EXPECT_EQ(buffer->SetMassTypeDefined("Computed", true), S_OK);
  EXPECT_EQ(buffer->GetMassTypeDefined("Computed"), 1);
}

TEST(MassTypes, GiveTheirValuesInTheUnitsOfTheBuffer) {
  const LoadedBuffer buffer;
  EXPECT_EQ(buffer->GetMass("Computed"), 12.5);
  const auto cg = buffer->GetCG("Computed");
  ASSERT_NE(cg, nullptr);
  EXPECT_DOUBLE_EQ(cg[0], 12.3);
  EXPECT_EQ(cg[1], -1000);
  EXPECT_EQ(cg[2], 2500);
  double lower = 0, upper = 0;
  EXPECT_EQ(buffer->GetLowerDeviation("Computed", lower), S_OK);
  EXPECT_EQ(buffer->GetUpperDeviation("Computed", upper), S_OK);
  EXPECT_EQ(lower, 0.25);
  EXPECT_EQ(upper, 0.75);
}

TEST(MassTypes, GiveInertiaAsTheSymmetricTensor) {
  const auto inertia = LoadedBuffer()->GetInertia("Computed");
  ASSERT_NE(inertia, nullptr);
  EXPECT_EQ(*inertia, KorMath3x3Matrix(1, -0.4, -0.5, -0.4, 2, -0.6, -0.5, -0.6, 3));
}

TEST(MassTypes, GiveNothingForWhatIsNotThere) {
  const LoadedBuffer buffer;
  for (const char* massType : {"Weighed", "Nobody"}) {
    EXPECT_EQ(buffer->GetMass(massType), 0);
    EXPECT_EQ(buffer->GetCG(massType), nullptr);
    EXPECT_EQ(buffer->GetInertia(massType), nullptr);
  }
  double deviation = -77;
  EXPECT_EQ(buffer->GetLowerDeviation("Nobody", deviation), E_FAIL);
  EXPECT_EQ(buffer->GetUpperDeviation("Nobody", deviation), E_FAIL);
  EXPECT_EQ(deviation, -77);
}

TEST(MassTypes, GiveInertiaCentreAndMassAtOnce) {
  const LoadedBuffer buffer;
  std::unique_ptr<KorMath3x3Matrix> inertia;
  std::unique_ptr<double[]> cg;
  double mass = -77;
  EXPECT_EQ(buffer->GetMassTypeValues("Nobody", inertia, cg, mass), E_FAIL);
  EXPECT_EQ(mass, -77);
  EXPECT_EQ(buffer->GetMassTypeValues("Estimated", inertia, cg, mass), S_OK);
  EXPECT_EQ(*inertia, KorMath3x3Matrix(4, 0, 0, 0, 5, 0, 0, 0, 6));
  EXPECT_EQ(cg[0], 1500);
  EXPECT_EQ(mass, 10.1);
  EXPECT_EQ(buffer->GetMassTypeValues("Weighed", inertia, cg, mass), S_OK);
  EXPECT_EQ(inertia, nullptr);
  EXPECT_EQ(cg, nullptr);
  EXPECT_EQ(mass, 0);
}

TEST(MassTypes, TakeValues) {
  const LoadedBuffer buffer;
  const double cg[3] = {100, 200, 300};
  EXPECT_EQ(buffer->SetMass("Weighed", 11), S_OK);
  EXPECT_EQ(buffer->SetCG("Weighed", cg), S_OK);
  EXPECT_EQ(buffer->SetInertia("Weighed", {1, -4, -5, -4, 2, -6, -5, -6, 3}), S_OK);
  const protocol::MassType sent = buffer.Sent().massTypes[2];
  EXPECT_EQ(sent.mass, 11);
  EXPECT_EQ(sent.cg, (protocol::Vector{0.1, 0.2, 0.3}));
  EXPECT_EQ(sent.inertia, (protocol::Tensor{1, 2, 3, -4, -5, -6}));
}

TEST(MassTypes, TakeTheUpperTriangleOfATensorThatIsNotSymmetric) {
  const LoadedBuffer buffer;
  EXPECT_EQ(buffer->SetInertia("Weighed", {1, -4, -5, 99, 2, -6, 98, 97, 3}), S_OK);
  EXPECT_EQ(buffer.Sent().massTypes[2].inertia, (protocol::Tensor{1, 2, 3, -4, -5, -6}));
  EXPECT_EQ(*buffer->GetInertia("Weighed"), KorMath3x3Matrix(1, -4, -5, -4, 2, -6, -5, -6, 3));
}

TEST(MassTypes, MayHaveANegativeOrZeroMass) {
  const LoadedBuffer buffer;
  EXPECT_EQ(buffer->SetMass("Weighed", -2.5), S_OK);
  EXPECT_EQ(buffer->GetMass("Weighed"), -2.5);
  EXPECT_EQ(buffer->SetMass("Weighed", 0), S_OK);
  EXPECT_EQ(buffer.Sent().massTypes[2].mass, 0);
}

TEST(MassTypes, ForgetValues) {
  const LoadedBuffer buffer;
  EXPECT_EQ(buffer->RemoveMass("Estimated"), S_OK);
  EXPECT_EQ(buffer->RemoveCG("Estimated"), S_OK);
  EXPECT_EQ(buffer->RemoveInertia("Estimated"), S_OK);
  EXPECT_EQ(buffer->GetCG("Estimated"), nullptr);
  const protocol::MassType sent = buffer.Sent().massTypes[1];
  EXPECT_EQ(sent.mass, std::nullopt);
  EXPECT_EQ(sent.cg, std::nullopt);
  EXPECT_EQ(sent.inertia, std::nullopt);
}

TEST(MassTypes, TakeACentreOfGravityAgainAfterItWasForgotten) {
  const LoadedBuffer buffer;
  const auto cg = buffer->GetCG("Estimated");
  buffer->RemoveCG("Estimated");
  EXPECT_EQ(buffer->SetCG("Estimated", cg.get()), S_OK);
  EXPECT_EQ(buffer.Sent().massTypes[1].cg, (protocol::Vector{1.5, 0, 0}));
}

TEST(MassTypes, RefuseNotANumberAndInfinities) {
  const LoadedBuffer buffer;
  const KorUnicodeString before = buffer.AllData();
  for (double bad : {kNan, kInfinity, -kInfinity}) {
    const double cg[3] = {0, bad, 0};
    EXPECT_EQ(buffer->SetMass("Estimated", bad), E_FAIL);
    EXPECT_EQ(buffer->SetCG("Estimated", cg), E_FAIL);
    EXPECT_EQ(buffer->SetInertia("Estimated", {1, 0, 0, 0, 1, 0, 0, 0, bad}), E_FAIL);
  }
  EXPECT_EQ(buffer->SetCG("Estimated", nullptr), E_FAIL);
  EXPECT_EQ(buffer.AllData(), before);
}

TEST(MassTypes, ThatAreUnknownAreNeverWritten) {
  const LoadedBuffer buffer;
  const KorUnicodeString before = buffer.AllData();
  const double cg[3] = {0, 0, 0};
  EXPECT_EQ(buffer->SetMass("Nobody", 1), E_FAIL);
  EXPECT_EQ(buffer->SetCG("Nobody", cg), E_FAIL);
  EXPECT_EQ(buffer->SetInertia("Nobody", {}), E_FAIL);
  EXPECT_EQ(buffer->SetMassTypeDefined("Nobody", true), E_FAIL);
  EXPECT_EQ(buffer->SetActiveMassType("Nobody"), E_FAIL);
  EXPECT_EQ(buffer->RemoveMass("Nobody"), E_FAIL);
  EXPECT_EQ(buffer->RemoveCG("Nobody"), E_FAIL);
  EXPECT_EQ(buffer->RemoveInertia("Nobody"), E_FAIL);
  EXPECT_EQ(buffer.AllData(), before);
}

TEST(MassTypes, HaveOneThatIsActive) {
  const LoadedBuffer buffer;
  EXPECT_EQ(buffer->GetActiveMassType(), "Estimated");
  EXPECT_EQ(buffer->SetActiveMassType("Computed"), S_OK);
  EXPECT_EQ(buffer.Sent().activeMassType, "Computed");
}

TEST(MassTypes, TellAMassOfZeroFromNone) {
  const LoadedBuffer buffer;
  EXPECT_TRUE(buffer->HasMass("Estimated"));
  EXPECT_FALSE(buffer->HasMass("Weighed"));
  EXPECT_FALSE(buffer->HasMass("of another part"));
  buffer->SetMass("Weighed", 0);
  EXPECT_TRUE(buffer->HasMass("Weighed"));
  buffer->RemoveMass("Weighed");
  EXPECT_FALSE(buffer->HasMass("Weighed"));
}

}  // namespace
