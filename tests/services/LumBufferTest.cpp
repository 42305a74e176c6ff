#include "services/KorLumWBCSCommonDefinitions.h"
#include "tests/services/SamplePart.h"

namespace {

using Lum = LumWBAllDataBuffer;

TEST(LumBuffer, KeepsTheStandardPartFlag) {
  const LoadedBuffer buffer;
  EXPECT_FALSE(buffer->IsStandatadPart());
  EXPECT_EQ(buffer->SetStandardPart(true), S_OK);
  EXPECT_TRUE(buffer->IsStandatadPart());
  EXPECT_TRUE(buffer.Sent().standardPart);
}

TEST(LumBuffer, TellsWhetherTheObjectHasAnInstance) {
  protocol::PartData part = SamplePart();
  EXPECT_TRUE(LoadedBuffer(part)->HasInstInLUMIRA());
  part.hasInstance = false;
  EXPECT_FALSE(LoadedBuffer(part)->HasInstInLUMIRA());
}

TEST(LumBuffer, KeepsWhereTheMaterialApplies) {
  const LoadedBuffer buffer;
  EXPECT_EQ(TextOf<Lum>(*buffer.Get(), &Lum::GetAppliedOnObject), KorLumWBCSCommonDefinitions::partRef);
  EXPECT_EQ(buffer->SetAppliedOnObject(KorLumWBCSCommonDefinitions::partInst), S_OK);
  EXPECT_EQ(buffer.Sent().material.appliedOn, "Part Instance");
}

TEST(LumBuffer, TellsTheMaterialOfThePartReference) {
  protocol::PartData part = SamplePart();
  double density = 0;
  EXPECT_EQ(TextOf<Lum>(*LoadedBuffer(part).Get(), &Lum::GetPartRefWBMaterialName), "Steel");
  EXPECT_EQ(LoadedBuffer(part)->GetPartRefWBDensity(density), S_OK);
  EXPECT_EQ(density, 7850);
  part.material.referenceDensity.reset();
  EXPECT_EQ(LoadedBuffer(part)->GetPartRefWBDensity(density), S_OK);
  EXPECT_EQ(density, 0);
}

}  // namespace
