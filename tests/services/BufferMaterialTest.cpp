#include <limits>

#include "tests/services/SamplePart.h"

namespace {

TEST(Material, HasNameDensityAndPriority) {
  const LoadedBuffer buffer;
  EXPECT_EQ(buffer->GetMaterialName(), "Cast iron");
  EXPECT_EQ(buffer->GetDensity(), 7200);
  EXPECT_EQ(buffer->GetDensityPriority(), 1);
}

TEST(Material, IsStored) {
  const LoadedBuffer buffer;
  EXPECT_EQ(buffer->SetMaterialName("Wood | oak"), S_OK);
  EXPECT_EQ(buffer->SetDensity(650.5), S_OK);
  EXPECT_EQ(buffer->SetDensityPriority(0), S_OK);
  EXPECT_EQ(buffer.Sent().material.name, "Wood | oak");
  EXPECT_EQ(buffer.Sent().material.density, 650.5);
  EXPECT_EQ(buffer.Sent().material.densityPriority, 0);
}

TEST(Material, ForgetsADensityThatIsNoLongerDefined) {
  const LoadedBuffer buffer;
  EXPECT_EQ(buffer->SetDensityDefined(false), S_OK);
  EXPECT_EQ(buffer->GetDensity(), 0);
  EXPECT_EQ(buffer.Sent().material.density, std::nullopt);
}

TEST(Material, KeepsTheDensityThatIsMarkedDefined) {
  const LoadedBuffer buffer;
  buffer->SetDensity(650.5);
  buffer->SetDensityDefined(true);
  EXPECT_EQ(buffer->GetDensity(), 650.5);
  buffer->SetDensityDefined(false);
  buffer->SetDensityDefined(true);
  EXPECT_EQ(buffer.Sent().material.density, 0);
}

TEST(Material, RefusesWhatTheServerWouldNotRead) {
  const LoadedBuffer buffer;
  const KorUnicodeString before = buffer.AllData();
  EXPECT_EQ(buffer->SetDensity(std::numeric_limits<double>::quiet_NaN()), E_FAIL);
  EXPECT_EQ(buffer->SetDensityPriority(2), E_FAIL);
  EXPECT_EQ(buffer->SetDensityPriority(-1), E_FAIL);
  EXPECT_EQ(buffer.AllData(), before);
}

TEST(Material, HasStatisticsAsThreeParallelLists) {
  KorListValKorUnicodeString names = {"left over"};
  std::vector<double> densities = {1};
  std::vector<int> kinds = {1};
  EXPECT_EQ(LoadedBuffer()->GetMaterialStatistics(names, densities, kinds), S_OK);
  EXPECT_EQ(names, (KorListValKorUnicodeString{"Cast iron", "Skin"}));
  EXPECT_EQ(densities, (std::vector<double>{7200, 12.5}));
  EXPECT_EQ(kinds, (std::vector<int>{1, 2}));
}

}  // namespace
