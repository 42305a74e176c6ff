#include <gtest/gtest.h>

#include "protocol/Utf8.h"

namespace protocol {
namespace {

TEST(Utf8, TakesWellFormedTextOfEveryLength) {
  EXPECT_FALSE(FindInvalidUtf8("").has_value());
  EXPECT_FALSE(FindInvalidUtf8("a é € \xF0\x9F\x9B\xA0").has_value());
}

TEST(Utf8, FindsTheFirstByteThatDoesNotBelong) {
  EXPECT_EQ(FindInvalidUtf8("ab\xFF"), 2u);
  EXPECT_EQ(FindInvalidUtf8("caf\xE9 au lait"), 3u);   // Latin-1
  EXPECT_EQ(FindInvalidUtf8("\xC0\x80"), 0u);          // longer than needed
  EXPECT_EQ(FindInvalidUtf8("\xED\xA0\x80"), 0u);      // a surrogate
  EXPECT_EQ(FindInvalidUtf8("\xF4\x90\x80\x80"), 0u);  // above the last code point
  EXPECT_EQ(FindInvalidUtf8("x\xE2\x82"), 1u);         // cut off
}

TEST(Utf8, QuotesWhatAMessageCannotShow) {
  EXPECT_EQ(Quoted("a\nb\xFF"), "\"a\\x0Ab\\xFF\"");
  EXPECT_EQ(Quoted(std::string(100, 'x')), "\"" + std::string(60, 'x') + "...\"");
}

}  // namespace
}  // namespace protocol
