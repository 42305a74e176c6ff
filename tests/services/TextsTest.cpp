#include <gtest/gtest.h>

#include "services/KorWBServices.h"

namespace {

using List = KorListValKorUnicodeString;

TEST(StringTokenizer, GivesTheFieldsBetweenTheSeparators) {
  EXPECT_EQ(KorWBServices::StringTokenizer("a|bc|d", "|"), (List{"a", "bc", "d"}));
  EXPECT_EQ(KorWBServices::StringTokenizer("alone", "|"), (List{"alone"}));
}

TEST(StringTokenizer, GivesAnEmptyFieldBetweenAdjacentSeparatorsAndAtTheEnds) {
  EXPECT_EQ(KorWBServices::StringTokenizer("a||b", "|"), (List{"a", "", "b"}));
  EXPECT_EQ(KorWBServices::StringTokenizer("|a|", "|"), (List{"", "a", ""}));
  EXPECT_EQ(KorWBServices::StringTokenizer("|", "|"), (List{"", ""}));
}

TEST(StringTokenizer, GivesNoFieldsOfAnEmptyText) {
  EXPECT_EQ(KorWBServices::StringTokenizer("", "|").Size(), 0);
}

TEST(StringTokenizer, TakesSeparatorsOfSeveralCharactersOrNone) {
  EXPECT_EQ(KorWBServices::StringTokenizer("a, b,c", ", "), (List{"a", "b,c"}));
  EXPECT_EQ(KorWBServices::StringTokenizer("a|b", ""), (List{"a|b"}));
}

KorUnicodeString Cleaned(const char* path, const char* handler) {
  KorUnicodeString display = handler;
  KorWBServices::CleanPathForDisplay(path, display);
  return display;
}

TEST(CleanPath, FollowsTheHandlerBehindOneSeparator) {
  EXPECT_EQ(Cleaned("bedplate|nacelle.1|bedplate.1|", "IEA15"), "IEA15/bedplate/nacelle.1/bedplate.1");
  EXPECT_EQ(Cleaned("bedplate|", "IEA15"), "IEA15/bedplate");
}

TEST(CleanPath, StandsBehindTheHandlerAndOneCharacterInEveryScript) {
  const KorUnicodeString handler = "Gondel–Ä";
  EXPECT_EQ(Cleaned("ß|", "Gondel–Ä").SubString(handler.GetLengthInChar() + 1), "ß");
}

TEST(CleanPath, LeavesOutEmptyElements) {
  EXPECT_EQ(Cleaned("a||b", "IEA15"), "IEA15/a/b");
  EXPECT_EQ(Cleaned("|", "IEA15"), "IEA15");
  EXPECT_EQ(Cleaned("", "IEA15"), "IEA15");
}

TEST(CleanPath, KeepsTheSeparatorBehindAnEmptyHandler) { EXPECT_EQ(Cleaned("a|b", ""), "/a/b"); }

}  // namespace
