#include <gtest/gtest.h>

#include "framework/system/KorListValKorUnicodeString.h"

namespace {

TEST(ListOfTexts, CountsFromOne) {
  KorListValKorUnicodeString list = {"a", "b"};
  EXPECT_EQ(list.Size(), 2);
  EXPECT_EQ(list[1], "a");
  EXPECT_EQ(list[2], "b");
}

TEST(ListOfTexts, AppendsTextsAndLists) {
  KorListValKorUnicodeString list = {"a"};
  list.Append("b");
  list.Append(KorListValKorUnicodeString{"c", "d"});
  EXPECT_EQ(list, (KorListValKorUnicodeString{"a", "b", "c", "d"}));
  list.RemoveAll();
  EXPECT_EQ(list.Size(), 0);
}

TEST(ListOfTexts, LocatesTheFirstEqualTextAndAnswersZeroForNone) {
  const KorListValKorUnicodeString list = {"a", "b", "b"};
  EXPECT_EQ(list.Locate("b"), 2);
  EXPECT_EQ(list.Locate("x"), 0);
}

}  // namespace
