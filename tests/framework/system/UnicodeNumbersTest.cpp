#include <gtest/gtest.h>

#include <clocale>
#include <limits>
#include <locale>
#include <sstream>

#include "framework/system/KorUnicodeString.h"

namespace {

double Read(const char* text) {
  double number = -77;
  EXPECT_EQ(KorUnicodeString(text).ConvertToNum(&number, "%le"), 1) << text;
  return number;
}

void ExpectNoNumber(const char* text) {
  double number = -77;
  EXPECT_EQ(KorUnicodeString(text).ConvertToNum(&number, "%le"), 0) << text;
  EXPECT_EQ(number, -77) << text;
}

TEST(ReadingAReal, TakesEveryDecimalForm) {
  EXPECT_EQ(Read("12.5"), 12.5);
  EXPECT_EQ(Read("-0.25"), -0.25);
  EXPECT_EQ(Read("+3"), 3.0);
  EXPECT_EQ(Read(".5"), 0.5);
  EXPECT_EQ(Read("5."), 5.0);
  EXPECT_EQ(Read("1.5e3"), 1500.0);
  EXPECT_EQ(Read("1.5E-3"), 0.0015);
}

TEST(ReadingAReal, SkipsLeadingBlanks) { EXPECT_EQ(Read(" \t\n 7"), 7.0); }

TEST(ReadingAReal, IgnoresWhatFollowsTheNumber) {
  EXPECT_EQ(Read("100 kg"), 100.0);
  EXPECT_EQ(Read("5%"), 5.0);
  EXPECT_EQ(Read("2,5"), 2.0);
  EXPECT_EQ(Read("0x10"), 0.0);
  EXPECT_EQ(Read("1e"), 1.0);
}

TEST(ReadingAReal, LeavesTheNumberAloneWhenThereIsNone) {
  for (const char* text : {"", "   ", "...", "abc", ".", "-", "+", "+-5", "--5", "e5"}) ExpectNoNumber(text);
}

TEST(ReadingAReal, TakesNoInfinityAndNoNotANumber) {
  for (const char* text : {"inf", "-inf", "INFINITY", "nan", "NaN(1)"}) ExpectNoNumber(text);
}

TEST(ReadingAReal, TakesNothingThatDoesNotFitADouble) {
  ExpectNoNumber("1e999");
  ExpectNoNumber("-1e999");
}

TEST(ReadingAnInteger, ReadsTheFrontOfTheText) {
  int number = 0;
  EXPECT_EQ(KorUnicodeString(" -12.9").ConvertToNum(&number, "%d"), 1);
  EXPECT_EQ(number, -12);
  EXPECT_EQ(KorUnicodeString("+8 pieces").ConvertToNum(&number), 1);
  EXPECT_EQ(number, 8);
}

TEST(ReadingAnInteger, LeavesTheNumberAloneWhenThereIsNoneThatFits) {
  for (const char* text : {"x", "", ".5", "2147483648", "-2147483649"}) {
    int number = -77;
    EXPECT_EQ(KorUnicodeString(text).ConvertToNum(&number), 0) << text;
    EXPECT_EQ(number, -77) << text;
  }
}

KorUnicodeString Print(double number, const char* format) {
  KorUnicodeString text = "before";
  text.BuildFromNum(number, format);
  return text;
}

TEST(PrintingANumber, FollowsTheFormat) {
  EXPECT_EQ(Print(7.5, "%g"), "7.5");
  EXPECT_EQ(Print(1234567, "%g"), "1.23457e+06");
  EXPECT_EQ(Print(1.0 / 3, "%.10g"), "0.3333333333");
  EXPECT_EQ(Print(1.0 / 3, "%.17g"), "0.33333333333333331");
  EXPECT_EQ(Print(1500, "%le"), "1.500000e+03");
  EXPECT_EQ(Print(1500, "%.2lf"), "1500.00");
  EXPECT_EQ(Print(0.002, "%.17g"), "0.002");
}

TEST(PrintingANumber, TakesTheLargestDoubleInFull) {
  EXPECT_EQ(Print(std::numeric_limits<double>::max(), "%.100lf").GetLengthInChar(), 309 + 1 + 100);
}

TEST(PrintingANumber, PrintsIntegers) {
  KorUnicodeString text;
  text.BuildFromNum(-42, "%d");
  EXPECT_EQ(text, "-42");
}

struct CommaPunctuation : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

/// While it lives, streams write a decimal comma, and so do the functions of C where the machine has such a
/// locale.
class CommaLocale {
 public:
  CommaLocale()
      : _cBefore(std::setlocale(LC_NUMERIC, nullptr)),
        _before(std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation))) {
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "es_ES.UTF-8"})
      if (std::setlocale(LC_NUMERIC, name)) return;
  }
  ~CommaLocale() {
    std::locale::global(_before);
    std::setlocale(LC_NUMERIC, _cBefore.c_str());
  }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;

 private:
  std::string _cBefore;
  std::locale _before;
};

TEST(PrintingANumber, UsesThePointWhereTheLocaleHasAComma) {
  const CommaLocale locale;
  std::ostringstream out;
  out << 1234.5;
  ASSERT_EQ(out.str(), "1.234,5");
  EXPECT_EQ(Print(1234.5, "%g"), "1234.5");
  EXPECT_EQ(Print(1234.5, "%.1lf"), "1234.5");
  EXPECT_EQ(Read("1234.5"), 1234.5);
}

}  // namespace
