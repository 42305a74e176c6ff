#include "tests/services/SamplePart.h"

namespace {

TEST(Properties, AreCountedFromOne) {
  const LoadedBuffer buffer;
  ASSERT_EQ(buffer->GetPropertyCount(), 3);
  EXPECT_EQ(buffer->GetPropertyName(1), "finish");
  EXPECT_EQ(buffer->GetPropertyName(3), "reach");
}

TEST(Properties, HaveValueTypeAndMagnitude) {
  const LoadedBuffer buffer;
  EXPECT_EQ(buffer->GetPropertyValue(1), "painted");
  EXPECT_EQ(buffer->GetPropertyType(2), 1);
  EXPECT_TRUE(buffer->GetIsDate(2));
  EXPECT_FALSE(buffer->GetIsDate(3));
  EXPECT_TRUE(buffer->GetIsMagnitude(3));
  EXPECT_EQ(buffer->GetPropMagnitudeType(3), "LENGTH");
  EXPECT_EQ(buffer->GetDateFormatForExtraProperties(), "YYYY-MM-DD");
}

TEST(Properties, StoreAnyText) {
  const LoadedBuffer buffer;
  EXPECT_EQ(buffer->SetPropertyValue(3, "abc|%"), S_OK);
  EXPECT_EQ(buffer->GetPropertyValue(3), "abc|%");
  EXPECT_EQ(buffer.Sent().properties[2].value, "abc|%");
}

TEST(Properties, OutsideAreUncheckedAndEmpty) {
  const LoadedBuffer buffer;
  const KorUnicodeString before = buffer.AllData();
  for (int index : {0, -1, 4}) {
    EXPECT_EQ(buffer->GetPropertyName(index), "");
    EXPECT_EQ(buffer->GetPropertyValue(index), "");
    EXPECT_EQ(buffer->GetPropertyType(index), 3);
    EXPECT_FALSE(buffer->GetIsDate(index));
    EXPECT_EQ(buffer->SetPropertyValue(index, "x"), E_FAIL);
  }
  EXPECT_EQ(buffer.AllData(), before);
}

TEST(Properties, TellWhetherTheyAreInUseAndWhetherThereAreDates) {
  protocol::PartData part = SamplePart();
  EXPECT_TRUE(LoadedBuffer(part)->AdditionalInfoRequested());
  EXPECT_TRUE(LoadedBuffer(part)->AreDateTypePropertiesPresent());
  part.propertiesRequested = false;
  part.properties[1].isDate = false;
  EXPECT_FALSE(LoadedBuffer(part)->AdditionalInfoRequested());
  EXPECT_FALSE(LoadedBuffer(part)->AreDateTypePropertiesPresent());
}

}  // namespace
