#include <gtest/gtest.h>

#include <sstream>

#include "framework/system/KorUnicodeString.h"

namespace {

// "Größe 10 m²" has 11 characters in 14 bytes.
const KorUnicodeString kSize = "Größe 10 m²";

TEST(UnicodeString, StartsEmpty) {
  EXPECT_TRUE(KorUnicodeString().IsEmpty());
  EXPECT_EQ(KorUnicodeString().GetLengthInChar(), 0);
}

TEST(UnicodeString, TellsByANumberThatATextHasChanged) {
  KorUnicodeString text("abc");
  const auto before = text.ContentId();
  EXPECT_EQ(text.ContentId(), before);
  const KorUnicodeString copy = text;
  EXPECT_EQ(copy.ContentId(), before);
  text = KorUnicodeString("abd");
  EXPECT_NE(text.ContentId(), before);
  text = copy;
  EXPECT_EQ(text.ContentId(), before);
  KorUnicodeString moved = std::move(text);
  EXPECT_EQ(moved.ContentId(), before);
  moved += "d";
  EXPECT_NE(moved.ContentId(), before);
  const auto appended = moved.ContentId();
  moved.BuildFromNum(7);
  EXPECT_NE(moved.ContentId(), appended);
  const auto integer = moved.ContentId();
  moved.BuildFromNum(7.5);
  EXPECT_NE(moved.ContentId(), integer);
  EXPECT_NE(KorUnicodeString("abc").ContentId(), before) << "made apart, though alike";
  EXPECT_EQ(KorUnicodeString("abc"), copy) << "equal all the same";
}

TEST(UnicodeString, TakesANullTextAsEmpty) {
  EXPECT_TRUE(KorUnicodeString(static_cast<const char*>(nullptr)).IsEmpty());
}

TEST(UnicodeString, CountsCharactersAndNotBytes) {
  EXPECT_EQ(kSize.GetLengthInChar(), 11);
  EXPECT_EQ(KorUnicodeString("\U0001D11E").GetLengthInChar(), 1);
}

TEST(UnicodeString, CountsEachByteThatIsNoUtf8AsOneCharacter) {
  EXPECT_EQ(KorUnicodeString("a\xFFz").GetLengthInChar(), 3);
  EXPECT_EQ(KorUnicodeString("\xC3").GetLengthInChar(), 1);              // cut off
  EXPECT_EQ(KorUnicodeString("\xC0\x80").GetLengthInChar(), 2);          // overlong
  EXPECT_EQ(KorUnicodeString("\xED\xA0\x80").GetLengthInChar(), 3);      // surrogate
  EXPECT_EQ(KorUnicodeString("\xF4\x90\x80\x80").GetLengthInChar(), 4);  // above U+10FFFF
}

TEST(UnicodeString, KeepsBytesThatAreNoUtf8) {
  EXPECT_EQ(KorUnicodeString("a\xFFz").SubString(1, 1).Utf8(), "\xFF");
}

TEST(UnicodeString, ComparesNonZeroWhenEqual) {
  EXPECT_NE(KorUnicodeString("Computed").Compare("Computed"), 0);
  EXPECT_EQ(KorUnicodeString("Computed").Compare("computed"), 0);
}

TEST(UnicodeString, FindsTheFirstOccurrenceAtOrBehindAPosition) {
  const KorUnicodeString text = "ab|ab|ab";
  EXPECT_EQ(text.SearchSubString("ab"), 0);
  EXPECT_EQ(text.SearchSubString("ab", 1), 3);
  EXPECT_EQ(text.SearchSubString("ab", 6), 6);
  EXPECT_EQ(text.SearchSubString("ab", 7), -1);
  EXPECT_EQ(text.SearchSubString("b|b"), -1);
}

TEST(UnicodeString, FindsInCharacters) {
  EXPECT_EQ(kSize.SearchSubString("ß"), 3);
  EXPECT_EQ(kSize.SearchSubString("10", 5), 6);
  EXPECT_EQ(kSize.SearchSubString("²"), 10);
}

TEST(UnicodeString, FindsNoPieceOfACharacter) {
  EXPECT_EQ(KorUnicodeString("ö").SearchSubString("\xB6"), -1);
  EXPECT_EQ(KorUnicodeString("ö").SearchSubString("\xC3"), -1);
}

TEST(UnicodeString, FindsTheEmptyTextWhereTheSearchStarts) {
  EXPECT_EQ(KorUnicodeString("ab").SearchSubString("", 1), 1);
  EXPECT_EQ(KorUnicodeString("ab").SearchSubString("", 2), 2);
  EXPECT_EQ(KorUnicodeString("ab").SearchSubString("", 3), -1);
  EXPECT_EQ(KorUnicodeString().SearchSubString(""), 0);
}

TEST(UnicodeString, SearchesFromTheStartWhenThePositionIsNegative) {
  EXPECT_EQ(KorUnicodeString("ab").SearchSubString("a", -5), 0);
}

TEST(UnicodeString, CutsInCharacters) {
  EXPECT_EQ(kSize.SubString(0, 5), "Größe");
  EXPECT_EQ(kSize.SubString(9), "m²");
  EXPECT_EQ(kSize.SubString(2, 0), "");
}

TEST(UnicodeString, ClipsPositionsOutside) {
  EXPECT_EQ(KorUnicodeString("abc").SubString(1, 100), "bc");
  EXPECT_EQ(KorUnicodeString("abc").SubString(3), "");
  EXPECT_EQ(KorUnicodeString("abc").SubString(50, 2), "");
  EXPECT_EQ(KorUnicodeString("abc").SubString(-2, 3), "a");
  EXPECT_EQ(KorUnicodeString("abc").SubString(-2), "abc");
  EXPECT_EQ(KorUnicodeString("abc").SubString(2, 2147483647), "c");
}

TEST(UnicodeString, StripsBlanksAtBothEndsOnly) {
  EXPECT_EQ(KorUnicodeString(" \t a b\r\n").Strip(), "a b");
  EXPECT_EQ(KorUnicodeString(" \t\n ").Strip(), "");
}

TEST(UnicodeString, RaisesTheLettersAToZ) {
  EXPECT_EQ(KorUnicodeString("Korvo_wb é1").ToUpper(), "KORVO_WB é1");
}

TEST(UnicodeString, Appends) {
  KorUnicodeString text = "a";
  text.Append("b");
  text += "c";
  EXPECT_EQ(text + "d", "abcd");
  EXPECT_EQ(text, "abc");
}

TEST(UnicodeString, GoesIntoAStreamAsUtf8) {
  std::ostringstream out;
  out << kSize;
  EXPECT_EQ(out.str(), "Größe 10 m²");
}

}  // namespace
