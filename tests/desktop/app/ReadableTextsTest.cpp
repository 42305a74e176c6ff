// Which property values a user can type, by the type of the property.
#include <gtest/gtest.h>

#include "desktop/app/ReadableTexts.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "framework/knowledge/KorCkeParmDictionary.h"
#include "protocol/Codec.h"

namespace desktop::test {
namespace {

struct Case {
  const char* what;
  int type;
  bool isDate;
  const char* magnitude;
  const char* text;
  bool readable;
};

class PropertyTextTest : public testing::TestWithParam<Case> {
 protected:
  static LumWBAllDataBuffer_var BufferWith(const Case& one) {
    protocol::PartData data;
    data.partId = "p";
    data.propertiesRequested = true;
    data.dateFormat = "YYYY-MM-DD";
    data.properties = {{"property", "", one.type, one.isDate, *one.magnitude != 0, one.magnitude}};
    auto buffer = LumWBAllDataBuffer_var::Adopt(new LumWBAllDataBuffer);
    EXPECT_EQ(buffer->SetAllData(protocol::WritePartData(data), true), S_OK);
    return buffer;
  }
};

TEST_P(PropertyTextTest, IsReadableOrItsProblemIsTold) {
  const auto buffer = BufferWith(GetParam());
  const QString problem = FindPropertyProblem(*buffer.Get(), 1, GetParam().text);
  EXPECT_EQ(problem.isEmpty(), GetParam().readable) << problem.toStdString();
}

TEST(PropertyTexts, OfMagnitudesTooLargeForTheStorageUnitAreNotReadableWhateverTheType) {
  auto mass = KorCkeGlobalFunctions::GetParmDictionary()->FindMagnitude("MASS");
  const KorString before = mass->CurrentUnit()->Name();
  ASSERT_EQ(mass->SetCurrentUnit("TONNE"), S_OK);
  protocol::PartData data;
  data.partId = "p";
  for (const int type : {0, 2}) data.properties.push_back({"property", "", type, false, true, "MASS"});
  auto buffer = LumWBAllDataBuffer_var::Adopt(new LumWBAllDataBuffer);
  EXPECT_EQ(buffer->SetAllData(protocol::WritePartData(data), true), S_OK);
  for (const int property : {1, 2}) {
    EXPECT_FALSE(FindPropertyProblem(*buffer.Get(), property, "1e306").isEmpty()) << property;
    EXPECT_TRUE(FindPropertyProblem(*buffer.Get(), property, "1e305").isEmpty()) << property;
  }
  mass->SetCurrentUnit(before);
}

INSTANTIATE_TEST_SUITE_P(Types, PropertyTextTest,
                         testing::Values(Case{"Integer", 1, false, "", " 42 ", true},
                                         Case{"IntegerWithMore", 1, false, "", "4x", false},
                                         Case{"IntegerWithFraction", 1, false, "", "4.5", false},
                                         Case{"Date", 1, true, "", "2020-02-29", true},
                                         Case{"DateThatDoesNotExist", 1, true, "", "2021-02-29", false},
                                         Case{"DateOfAnotherForm", 1, true, "", "29.02.2020", false},
                                         Case{"Real", 2, false, "", "-1.5e3", true},
                                         Case{"RealWithUnit", 2, false, "", "1.5 kg", false},
                                         Case{"RealText", 2, false, "", "abc", false},
                                         Case{"Magnitude", 2, false, "MASS", "1.5 kg", true},
                                         Case{"MagnitudeInAnotherUnit", 2, false, "MASS", "1.5 lb", false},
                                         Case{"Unchecked", 0, false, "", "anything", true},
                                         Case{"Blanks", 2, false, "", "  ", true}),
                         [](const auto& one) { return one.param.what; });

}  // namespace
}  // namespace desktop::test
