#include <gtest/gtest.h>

#include "services/KorLumWBCSCommonDefinitions.h"
#include "services/KorWBServices.h"

namespace {

using Definitions = KorLumWBCSCommonDefinitions;
using Fields = KorWBServices::DateFields;

constexpr std::time_t kUntouched = -77;

HRESULT Read(const char* text, const char* format, std::time_t& time, Fields fields = Fields::Date) {
  return KorWBServices::GetDateFromText(text, format, Definitions::dateFieldDelimiter1,
                                        Definitions::dateYMDFieldDelimiter1,
                                        Definitions::dateHMSFieldDelimiter1, fields, time);
}

void ExpectRefused(const char* text, const char* format, Fields fields = Fields::Date) {
  std::time_t time = kUntouched;
  EXPECT_EQ(Read(text, format, time, fields), E_FAIL) << text << " as " << format;
  EXPECT_EQ(time, kUntouched) << text;
}

struct Reading {
  const char* text;
  const char* format;
  Fields fields;
  std::time_t time;
};
class Dates : public testing::TestWithParam<Reading> {};

TEST_P(Dates, AreSecondsSince1970) {
  std::time_t time = kUntouched;
  EXPECT_EQ(Read(GetParam().text, GetParam().format, time, GetParam().fields), S_OK);
  EXPECT_EQ(time, GetParam().time);
}
INSTANTIATE_TEST_SUITE_P(Formats, Dates,
                         testing::Values(Reading{"1970-01-01", "YYYY-MM-DD", Fields::Date, 0},
                                         Reading{"2000-02-29", "YYYY-MM-DD", Fields::Date, 951782400},
                                         Reading{"29/02/2000", "DD/MM/YYYY", Fields::Date, 951782400},
                                         Reading{"20000229", "YYYYMMDD", Fields::Date, 951782400},
                                         Reading{"2000-02-29", "", Fields::Date, 951782400},
                                         Reading{"2000-02-29 01:02:03", "", Fields::DateAndTime, 951786123},
                                         Reading{"29.02.2000 23:59:59", "DD.MM.YYYY", Fields::DateAndTime,
                                                 951868799},
                                         Reading{"1969-12-31", "YYYY-MM-DD", Fields::Date, -86400}));

TEST(DatesThatDoNotExist, AreRefused) {
  for (const char* text : {"2023-02-29", "1900-02-29", "2024-04-31", "2024-13-01", "2024-00-10", "2024-01-00",
                           "2024-01-32", "0000-01-01"})
    ExpectRefused(text, "YYYY-MM-DD");
}

TEST(DatesThatDoNotExist, AreRefusedForTheirTimeOfDay) {
  for (const char* text : {"2024-01-01 24:00:00", "2024-01-01 00:60:00", "2024-01-01 00:00:60"})
    ExpectRefused(text, "YYYY-MM-DD", Fields::DateAndTime);
}

TEST(OtherTexts, AreNoDates) {
  for (const char* text : {"", "x", "2024-1-1", "24-01-01", "2024/01/01", "2024-01-01 ", " 2024-01-01",
                           "2024-01-0x", "+024-01-01", "2024-01-01 00:00:00", "2024--1-01"})
    ExpectRefused(text, "YYYY-MM-DD");
  ExpectRefused("2024-01-01", "YYYY-MM-DD", Fields::DateAndTime);
}

TEST(FormatsWithoutOneOfTheFields, ReadNoDate) {
  ExpectRefused("2024-01", "YYYY-MM");
  ExpectRefused("24-01-01", "YY-MM-DD");
  ExpectRefused("2024-01-01-01", "YYYY-MM-DD-DD");
  ExpectRefused("2024-01-001", "YYYY-MM-DDD");
  ExpectRefused("Day", "Day");
}

}  // namespace
