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

TEST(Properties, ThatAreLengthsAreMetresInTheTextsAndMillimetresInTheBuffer) {
  const LoadedBuffer buffer;
  EXPECT_EQ(buffer->GetPropertyValue(3), "1200");
  EXPECT_EQ(buffer->SetPropertyValue(3, "250"), S_OK);
  EXPECT_EQ(buffer->GetPropertyValue(3), "250");
  EXPECT_EQ(buffer.Sent().properties[2].value, "0.25");
  EXPECT_EQ(LoadedBuffer(buffer.Sent())->GetPropertyValue(3), "250");
}

TEST(Properties, ThatAreLengthsAreConvertedWithAPlusAndBlanksAroundThem) {
  protocol::PartData part = SamplePart();
  part.properties[2].value = " +2.50 ";
  const LoadedBuffer buffer(part);
  EXPECT_EQ(buffer->GetPropertyValue(3), "2500");
}

TEST(Properties, ThatNobodyHasChangedGoBackDigitByDigit) {
  protocol::PartData part = SamplePart();
  for (const char* metres : {"0.10", "1e-1", "0.3333333333333333", "1e308", "+5", "about 3", ""}) {
    part.properties[2].value = metres;
    const LoadedBuffer buffer(part);
    EXPECT_EQ(buffer->SetPropertyValue(3, buffer->GetPropertyValue(3)), S_OK);
    EXPECT_EQ(buffer.Sent().properties[2].value, metres);
  }
}

TEST(Properties, ThatAreTheSameLengthInOtherDigitsKeepTheirMetres) {
  protocol::PartData part = SamplePart();
  part.properties[2].value = "0.10";
  const LoadedBuffer buffer(part);
  EXPECT_EQ(buffer->SetPropertyValue(3, "100.0000"), S_OK);
  EXPECT_EQ(buffer->GetPropertyValue(3), "100.0000");
  EXPECT_EQ(buffer.Sent().properties[2].value, "0.10");
}

TEST(Properties, OfOtherMagnitudesAreTheSameInTextsAndBuffer) {
  protocol::PartData part = SamplePart();
  part.properties[2].magnitude = "MASS";
  const LoadedBuffer buffer(part);
  EXPECT_EQ(buffer->GetPropertyValue(3), "1.2");
  buffer->SetPropertyValue(3, "7");
  EXPECT_EQ(buffer.Sent().properties[2].value, "7");
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
