#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <limits>
#include <random>

#include "protocol/Numbers.h"

namespace protocol {
namespace {

TEST(Numbers, AreWrittenInTheShortestFormThatReadsBack) {
  EXPECT_EQ(FormatNumber(0.1), "0.1");
  EXPECT_EQ(FormatNumber(-0.0), "-0");
  EXPECT_EQ(FormatNumber(368839.4071518108), "368839.4071518108");
  EXPECT_EQ(FormatNumber(1e300), "1e+300");
}

TEST(Numbers, ReadBackToTheSameBits) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 100'000; ++i) {
    const auto value = std::bit_cast<double>(random());
    const auto back = ParseNumber(FormatNumber(value));
    if (!(value - value == 0)) {  // not finite
      EXPECT_FALSE(back.has_value());
      continue;
    }
    ASSERT_TRUE(back.has_value());
    ASSERT_EQ(std::bit_cast<std::uint64_t>(*back), std::bit_cast<std::uint64_t>(value));
  }
}

TEST(Numbers, ReadBackAtTheEdgesOfTheType) {
  using Limits = std::numeric_limits<double>;
  for (double value :
       {Limits::max(), Limits::lowest(), Limits::min(), Limits::denorm_min(), Limits::epsilon()})
    EXPECT_EQ(ParseNumber(FormatNumber(value)), value);
}

TEST(Numbers, AreRefusedWhenTheyAreNone) {
  for (const char* text : {"", " ", "nan", "-nan", "inf", "-inf", "infinity", "1e999", "1e-999", "0x10", "+1",
                           "1 ", " 1", "1,5", "1.5.2", "1e", "--1", "abc"})
    EXPECT_FALSE(ParseNumber(text).has_value()) << text;
}

TEST(Numbers, RefuseIntegersThatAreNone) {
  for (const char* text : {"", "1.0", "9223372036854775808", "+1", "1 ", "1e3", "x"})
    EXPECT_FALSE(ParseInteger(text).has_value()) << text;
  EXPECT_EQ(ParseInteger("-9223372036854775808"), std::numeric_limits<long long>::min());
}

}  // namespace
}  // namespace protocol
