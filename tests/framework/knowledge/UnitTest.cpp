#include <gtest/gtest.h>

#include "framework/knowledge/KorCkeUnit.h"

namespace {

using Unit_var = KorCkeUnit_var;

Unit_var Make(const char* symbol, double factor, double offset = 0) {
  return Unit_var::Adopt(new KorCkeUnit("NAME", symbol, factor, offset));
}

/// Puts the number of shown digits back.
struct ShownDigits : testing::Test {
  ~ShownDigits() override { KorCkeUnit::SetShownDigits(10); }
};

TEST(Unit, ConvertsWithFactorAndOffset) {
  const Unit_var celsius = Make("°C", 1, 273.15);
  EXPECT_EQ(celsius->ConvertToReference(0), 273.15);
  EXPECT_EQ(celsius->ConvertFromReference(273.15), 0);
  const Unit_var inch = Make("in", 25.4);
  EXPECT_EQ(inch->ConvertToReference(2), 50.8);
  EXPECT_EQ(inch->ConvertFromReference(50.8), 2);
}

TEST(Unit, ShowsTheConvertedValueABlankAndTheSymbol) {
  EXPECT_EQ(Make("m²", 2)->ShowValue(25), "12.5 m²");
  EXPECT_EQ(Make("kg·m²", 1)->ShowValue(1.0 / 3), "0.3333333333 kg·m²");
}

TEST(Unit, ShowsNoSymbolOnRequestOrWhenThereIsNone) {
  EXPECT_EQ(Make("kg", 1)->ShowValue(2, 1), "2");
  EXPECT_EQ(Make("", 1)->ShowValue(2), "2");
}

TEST(Unit, FormatsAValueOfItsOwnWithoutConverting) {
  EXPECT_EQ(Make("in", 25.4)->FormatValue(3.5), "3.5 in");
}

TEST(Unit, ShowsNegativeZeroAsZero) {
  EXPECT_EQ(Make("kg", 1)->ShowValue(-0.0), "0 kg");
  EXPECT_EQ(Make("kg", -1)->ShowValue(0.0), "0 kg");
}

TEST(Unit, ShowsATextThatReadsBackToTheShownNumber) {
  double number = 0;
  EXPECT_EQ(Make("kg·m²", 1)->ShowValue(-1234567.8).ConvertToNum(&number, "%le"), 1);
  EXPECT_EQ(number, -1234567.8);
}

TEST_F(ShownDigits, AreTenAtTheStart) {
  EXPECT_EQ(KorCkeUnit::GetShownDigits(), 10);
  EXPECT_EQ(Make("m", 1)->ShowValue(0.123456789012345), "0.123456789 m");
  EXPECT_EQ(Make("m", 1)->ShowValue(12345678901.5), "1.23456789e+10 m");
}

TEST_F(ShownDigits, CanBeChosenForAllUnits) {
  KorCkeUnit::SetShownDigits(3);
  EXPECT_EQ(Make("m", 1)->ShowValue(1234.5), "1.23e+03 m");
  KorCkeUnit::SetShownDigits(17);
  EXPECT_EQ(Make("m", 1)->ShowValue(0.1), "0.10000000000000001 m");
}

TEST_F(ShownDigits, StayWithinOneToSeventeen) {
  KorCkeUnit::SetShownDigits(0);
  EXPECT_EQ(KorCkeUnit::GetShownDigits(), 1);
  KorCkeUnit::SetShownDigits(99);
  EXPECT_EQ(KorCkeUnit::GetShownDigits(), 17);
}

}  // namespace
