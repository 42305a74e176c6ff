#include <limits>

#include "tests/services/SamplePart.h"

namespace {

TEST(Precision, IsThatOfTheText) {
  const LoadedBuffer buffer;
  EXPECT_EQ(buffer->GetPrecisionType("Estimated"), 1);
  EXPECT_EQ(buffer->GetPrecisionValueType("Estimated"), 1);
  EXPECT_EQ(buffer->GetLowerPrecision("Estimated"), 0.5);
  EXPECT_EQ(buffer->GetUpperPrecision("Estimated"), 0.6);
  EXPECT_EQ(buffer->GetMassTypeLowerPrecision("Estimated"), 0.01);
  EXPECT_EQ(buffer->GetMassTypeUpperPrecision("Estimated"), 0.02);
}

TEST(Precision, IsStoredForOneMassTypeOnly) {
  const LoadedBuffer buffer;
  EXPECT_EQ(buffer->SetPrecisionType("Weighed", 1), S_OK);
  EXPECT_EQ(buffer->SetPrecisionValueType("Weighed", 1), S_OK);
  EXPECT_EQ(buffer->SetLowerPrecision("Weighed", 0.05), S_OK);
  EXPECT_EQ(buffer->SetUpperPrecision("Weighed", 0.07), S_OK);
  protocol::PartData expected = SamplePart();
  expected.massTypes[2].precisionType = 1;
  expected.massTypes[2].precisionValueType = 1;
  expected.massTypes[2].lowerPrecision = 0.05;
  expected.massTypes[2].upperPrecision = 0.07;
  EXPECT_EQ(buffer.AllData(), protocol::WritePartData(expected));
}

TEST(Precision, IsZeroForAnUnknownMassType) {
  const LoadedBuffer buffer;
  EXPECT_EQ(buffer->GetPrecisionType("Nobody"), 0);
  EXPECT_EQ(buffer->GetPrecisionValueType("Nobody"), 0);
  EXPECT_EQ(buffer->GetLowerPrecision("Nobody"), 0);
  EXPECT_EQ(buffer->GetMassTypeUpperPrecision("Nobody"), 0);
}

TEST(Precision, RefusesWhatTheServerWouldNotRead) {
  const LoadedBuffer buffer;
  const KorUnicodeString before = buffer.AllData();
  EXPECT_EQ(buffer->SetPrecisionType("Estimated", -1), E_FAIL);
  EXPECT_EQ(buffer->SetPrecisionType("Estimated", 2), E_FAIL);
  EXPECT_EQ(buffer->SetPrecisionValueType("Estimated", 2), E_FAIL);
  EXPECT_EQ(buffer->SetLowerPrecision("Estimated", std::numeric_limits<double>::quiet_NaN()), E_FAIL);
  EXPECT_EQ(buffer->SetUpperPrecision("Estimated", std::numeric_limits<double>::infinity()), E_FAIL);
  EXPECT_EQ(buffer->SetPrecisionType("Nobody", 1), E_FAIL);
  EXPECT_EQ(buffer.AllData(), before);
}

}  // namespace
