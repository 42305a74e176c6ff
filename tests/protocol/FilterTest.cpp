#include <gtest/gtest.h>

#include "protocol/Filter.h"

namespace protocol {
namespace {

std::string Refusal(std::string_view text) {
  const auto filter = ReadFilter(text);
  return filter.Ok() ? "read" : filter.Failure().message;
}

TEST(FilterString, ReadsAConfigurationFilter) {
  const auto filter = ReadFilter("0|Service kit");
  ASSERT_TRUE(filter.Ok());
  EXPECT_EQ(filter.Value().kind, Filter::Kind::Configuration);
  EXPECT_EQ(filter.Value().name, "Service kit");
  EXPECT_FALSE(filter.Value().LetsAllPass());
}

TEST(FilterString, LetsAllPassWithoutAFilterOrWithAnEmptyList) {
  EXPECT_TRUE(ReadFilter("0|No Filter").Value().LetsAllPass());
  EXPECT_TRUE(ReadFilter("1|0").Value().LetsAllPass());
}

TEST(FilterString, ReadsRowsWhosePathLengthIsTheirDepth) {
  const auto filter = ReadFilter("1|2|I1|P1|A|2|R|S|I2|P2|B|0");
  ASSERT_TRUE(filter.Ok()) << filter.Failure().message;
  const std::vector<FilterRow> rows = {{"I1", "P1", "A", {"R", "S"}}, {"I2", "P2", "B", {}}};
  EXPECT_EQ(filter.Value().rows, rows);
  EXPECT_FALSE(filter.Value().LetsAllPass());
}

TEST(FilterString, WritesWhatItReads) {
  for (const char* text : {"0|No Filter", "0|", "1|0", "1|1|I|P|A|1|x", "1|1||||0"})
    EXPECT_EQ(WriteFilter(ReadFilter(text).Value()).Value(), text);
}

TEST(FilterString, CannotBeWrittenWithASeparatorInsideAnElement) {
  const Filter filter{.kind = Filter::Kind::User, .name = {}, .rows = {{"I", "P", "A", {"x|y"}}}};
  const auto text = WriteFilter(filter);
  ASSERT_FALSE(text.Ok());
  EXPECT_EQ(text.Failure().message, "Filter: row 1 holds a \"|\" in an element");
}

TEST(FilterString, IsRefusedWithTheFieldThatIsWrong) {
  EXPECT_EQ(Refusal(""), "Filter: field 1 (kind): \"\" is neither 0 nor 1");
  EXPECT_EQ(Refusal("2|x"), "Filter: field 1 (kind): \"2\" is neither 0 nor 1");
  EXPECT_EQ(Refusal("0"), "Filter: field 2 is missing");
  EXPECT_EQ(Refusal("1|x"), "Filter: field 2 (row count): \"x\" is not a number from 0 to 100000");
  for (const char* odd : {"01", "-0", "+1", "00"})
    EXPECT_EQ(Refusal("1|" + std::string(odd)),
              "Filter: field 2 (row count): \"" + std::string(odd) + "\" is not a number from 0 to 100000");
  EXPECT_EQ(Refusal("1|100001"), "Filter: field 2 (row count): \"100001\" is not a number from 0 to 100000");
  EXPECT_EQ(Refusal("1|1|I|P|A"), "Filter: field 6 (row 1, depth) is missing");
  EXPECT_EQ(Refusal("1|0|I"), "Filter: there is more text after field 2, the last of the rows");
}

TEST(FilterString, RefusesDepthsThatAreNegativeOrHuge) {
  EXPECT_EQ(Refusal("1|1|I|P|A|-1"), "Filter: field 6 (row 1, depth): \"-1\" is not a number from 0 to 1000");
  EXPECT_EQ(Refusal("1|1|I|P|A|1001"),
            "Filter: field 6 (row 1, depth): \"1001\" is not a number from 0 to 1000");
  EXPECT_EQ(Refusal("1|1|I|P|A|99999999999999999999|x"),
            "Filter: field 6 (row 1, depth): \"99999999999999999999\" is not a number from 0 to 1000");
}

TEST(FilterString, RefusesARowCountThatDoesNotMatchTheRows) {
  EXPECT_EQ(Refusal("1|2|I|P|A|0"), "Filter: field 7 (row 2, instance id) is missing");
  EXPECT_EQ(Refusal("1|1|I|P|A|2|R"), "Filter: field 8 (row 1, path element 2) is missing");
}

}  // namespace
}  // namespace protocol
