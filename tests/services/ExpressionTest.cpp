#include <gtest/gtest.h>

#include <string>

#include "services/KorWBServices.h"

namespace {

struct SumCase {
  const char* typed;
  const char* value;
};
struct SimpleExpression : testing::TestWithParam<SumCase> {};

TEST_P(SimpleExpression, IsReplacedByItsValue) {
  KorUnicodeString text = GetParam().typed;
  EXPECT_EQ(KorWBServices::EvaluateSimpleExpression(text), S_OK);
  EXPECT_EQ(text, GetParam().value);
}
INSTANTIATE_TEST_SUITE_P(Typed, SimpleExpression,
                         testing::Values(SumCase{"1+2", "3"}, SumCase{"7-10", "-3"}, SumCase{"2.5*4", "10"},
                                         SumCase{"9/2", "4.5"}, SumCase{"1+2*3", "7"},
                                         SumCase{"(1+2)*3", "9"}, SumCase{"8/4/2", "1"},
                                         SumCase{"10-4-3", "3"}, SumCase{"-2*3", "-6"}, SumCase{"2*-3", "-6"},
                                         SumCase{"2--3", "5"}, SumCase{"-(1+2)", "-3"}, SumCase{"+5", "5"},
                                         SumCase{"- 5", "-5"}, SumCase{" 1 +\t2 ", "3"},
                                         SumCase{"((2))", "2"}, SumCase{".5+1.", "1.5"},
                                         SumCase{"1e3+1E-1", "1000.1"}, SumCase{"0.1+0.2", "0.3"},
                                         SumCase{"0*-1", "0"}, SumCase{"1/3", "0.333333333333333"}));

struct OtherText : testing::TestWithParam<const char*> {};

TEST_P(OtherText, StaysAsItWas) {
  KorUnicodeString text = GetParam();
  EXPECT_EQ(KorWBServices::EvaluateSimpleExpression(text, "kg"), E_FAIL);
  EXPECT_EQ(text, GetParam());
}
INSTANTIATE_TEST_SUITE_P(WithBadSyntax, OtherText,
                         testing::Values("", " ", "...", "abc", "1+", "*2", "1 2", "(1", "1)", "()", "2(3)",
                                         "1,5", "0x10", "inf", "nan", "1e", "1..2", "2 kg + 3 kg", "kg",
                                         "12.5 lb", "5%", "2^3", "1×2"));
INSTANTIATE_TEST_SUITE_P(DividingByZero, OtherText,
                         testing::Values("1/0", "0/0", "1/(2-2)", "1/(1/0)", "2/-0"));
INSTANTIATE_TEST_SUITE_P(BeyondAllNumbers, OtherText,
                         testing::Values("1e308*10", "1/(1e308*10)", "-1e308-1e308", "1e400", "1e-400",
                                         "1.7976931348623157e308*1"));

struct NumberText : testing::TestWithParam<const char*> {};

TEST_P(NumberText, StaysAsItIs) {
  KorUnicodeString text = GetParam();
  EXPECT_EQ(KorWBServices::EvaluateSimpleExpression(text, "kg"), S_OK);
  EXPECT_EQ(text, GetParam());
}
INSTANTIATE_TEST_SUITE_P(Plain, NumberText,
                         testing::Values("12.5", "12.50", "-7", "0.1234567890123456789", "1.23456789e+10",
                                         "-1.23456789e-10 kg", "12.5 kg", "12.5kg", " 3 kg "));

TEST(UnitSymbol, StaysBehindTheValue) {
  for (const auto& [typed, value] :
       {std::pair("10 + 2.5 kg", "12.5 kg"), std::pair("(2+3)kg", "5kg"), std::pair("-(4) kg ", "-4 kg")}) {
    KorUnicodeString text = typed;
    EXPECT_EQ(KorWBServices::EvaluateSimpleExpression(text, "kg"), S_OK) << typed;
    EXPECT_EQ(text, value);
  }
}

TEST(UnitSymbol, MayItselfHoldASlash) {
  KorUnicodeString text = "7.8/2 g/cm³";
  EXPECT_EQ(KorWBServices::EvaluateSimpleExpression(text, "g/cm³"), S_OK);
  EXPECT_EQ(text, "3.9 g/cm³");
}

std::string Nested(int depth) { return std::string(depth, '(') + "1+1" + std::string(depth, ')'); }

TEST(Nesting, IsTakenUpTo64Parentheses) {
  KorUnicodeString text = Nested(64);
  EXPECT_EQ(KorWBServices::EvaluateSimpleExpression(text), S_OK);
  EXPECT_EQ(text, "2");
}

TEST(Nesting, LeavesTheTextWhenItIsDeeper) {
  KorUnicodeString text = Nested(65);
  EXPECT_EQ(KorWBServices::EvaluateSimpleExpression(text), E_FAIL);
  EXPECT_EQ(text, Nested(65));
}

TEST(Nesting, OfFiveMegabytesDoesNoHarm) {
  const std::string parentheses(5'000'000, '(');
  KorUnicodeString text = parentheses;
  EXPECT_EQ(KorWBServices::EvaluateSimpleExpression(text), E_FAIL);
  EXPECT_EQ(text, parentheses);
}

TEST(Signs, OfFiveMegabytesAreWorkedOut) {
  std::string signs(5'000'000, '-');
  signs.push_back('1');
  KorUnicodeString text = signs;
  EXPECT_EQ(KorWBServices::EvaluateSimpleExpression(text), S_OK);
  EXPECT_EQ(text, "1");
}

}  // namespace
