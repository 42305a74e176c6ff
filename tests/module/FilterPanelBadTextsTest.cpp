// User filter texts that nobody should write. The panel takes over all of a text or nothing.

#include "module/filter_panel/KorWBNymNavFilterRow.h"
#include "tests/module/FilterPanelTest.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct BadText {
  const char* what;
  const char* text;
};
void PrintTo(const BadText& bad, std::ostream* out) { *out << bad.what << ": " << bad.text; }

constexpr BadText kBadTexts[] = {
    {"only a kind", "1"},
    {"an empty count", "1|"},
    {"only separators", "|||||||"},
    {"a count without rows", "1|2"},
    {"a count that is too small", "1|1|I1|P1|A|0|I2|P2|B|0"},
    {"a count that is too large", "1|3|I1|P1|A|0|I2|P2|B|0"},
    {"a negative count", "1|-1|I1|P1|A|0"},
    {"a huge count", "1|2000000000|I1|P1|A|0"},
    {"a count beyond all numbers", "1|99999999999|I1|P1|A|0"},
    {"a count with something behind it", "1|1x|I1|P1|A|0"},
    {"a count with a sign", "1|+1|I1|P1|A|0"},
    {"a count with a blank", "1| 1|I1|P1|A|0"},
    {"a count with a leading zero", "1|01|I1|P1|A|0"},
    {"a count that is no number", "1|x|I1|P1|A|0"},
    {"a row without depth", "1|1|I1|P1|A"},
    {"a row without version and depth", "1|1|I1|P1"},
    {"a last row that is cut off", "1|2|I1|P1|A|0|I2|P2"},
    {"an empty depth", "1|1|I1|P1|A|"},
    {"a negative depth", "1|1|I1|P1|A|-1"},
    {"a negative depth and a path", "1|1|I1|P1|A|-1|R"},
    {"a depth that is too large", "1|1|I1|P1|A|3|R|S"},
    {"a depth that is too small", "1|1|I1|P1|A|1|R|S"},
    {"a huge depth", "1|1|I1|P1|A|2000000000|R"},
    {"a depth beyond all numbers", "1|1|I1|P1|A|99999999999|R"},
    {"a depth with something behind it", "1|1|I1|P1|A|1x|R"},
    {"a depth with a sign", "1|1|I1|P1|A|+1|R"},
    {"a depth with a blank", "1|1|I1|P1|A| 1|R"},
    {"a depth with a leading zero", "1|1|I1|P1|A|01|R"},
    {"a real depth", "1|1|I1|P1|A|1.0|R"},
    {"a path at depth zero", "1|1|I1|P1|A|0|R"},
    {"a separator at the end", "1|1|I1|P1|A|0|"},
    {"fields left over behind an empty list", "1|0|I1"},
    {"a separator inside an instance identifier", "1|1|I|1|P1|A|0"},
    {"a separator inside a version", "1|2|I1|P1|A|B|0|I2|P2|B|0"},
    {"a name of a configuration filter", "0|Structure only"},
};

struct FilterPanelBadTexts : FilterPanelTest, testing::WithParamInterface<BadText> {};

TEST_P(FilterPanelBadTexts, ListsNothingAndKeepsTheTextAsItIs) {
  LeaveUserFilter(GetParam().text);
  Open();
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_EQ(Panel().SetCurrentFilters(), S_OK);
  EXPECT_EQ(UserFilter(), GetParam().text);
  EXPECT_FALSE(KorWBNymNavReadFilterRows(GetParam().text));
}
INSTANTIATE_TEST_SUITE_P(Texts, FilterPanelBadTexts, testing::ValuesIn(kBadTexts));

struct FilterPanelOddRows : FilterPanelTest {};

TEST_F(FilterPanelOddRows, ASeparatorInsideAnIdentifierIsWrittenAsItIsAndNothingOfTheTextIsReadBack) {
  Open();
  Add("I|1", "P1", "A", "R", 1);
  Add("I2", "P2", "B", "", 0);
  PressOK();
  EXPECT_EQ(UserFilter(), "1|2|I|1|P1|A|1|R|I2|P2|B|0");
  Open();
  EXPECT_THAT(Rows(), IsEmpty());
}

TEST_F(FilterPanelOddRows, ADepthThatIsNotThatOfThePathIsWrittenAsItIsAndNothingOfTheTextIsReadBack) {
  Open();
  Add("I1", "P1", "A", "R|S", 1);
  PressOK();
  EXPECT_EQ(UserFilter(), "1|1|I1|P1|A|1|R|S");
  Open();
  EXPECT_THAT(Rows(), IsEmpty());
}

TEST_F(FilterPanelOddRows, ANegativeDepthIsWrittenWithItsPathAndNothingOfTheTextIsReadBack) {
  Open();
  Add("I1", "P1", "A", "R", -2147483647 - 1);
  EXPECT_THAT(Rows(), ElementsAre("I1, P1, A, /R, -2147483648, R"));
  PressOK();
  EXPECT_EQ(UserFilter(), "1|1|I1|P1|A|-2147483648|R");
  Open();
  EXPECT_THAT(Rows(), IsEmpty());
}

TEST_F(FilterPanelOddRows, ARowThatStandsInTheTextTwiceIsListedOnce) {
  LeaveUserFilter("1|2|I1|P1|A|1|R|I1|P1|A|1|R");
  Open();
  EXPECT_THAT(Rows(), ElementsAre("I1, P1, A, /R, 1, R"));
}

TEST_F(FilterPanelOddRows, TextsOfAnyLanguageAndBytesOfNoneAreKept) {
  Open();
  Add("Größe-翼", "P\xff\xfe", "A B", " ", 1);
  PressOK();
  EXPECT_EQ(UserFilter(), "1|1|Größe-翼|P\xff\xfe|A B|1| ");
  Open();
  EXPECT_THAT(Rows(), ElementsAre("Größe-翼, P\xff\xfe, A B, / , 1,  "));
}

TEST_F(FilterPanelOddRows, ALongPathIsReadBackWhole) {
  std::string path = "E0";
  for (int element = 1; element < 5000; ++element) path += "|E" + std::to_string(element);
  Open();
  Add("I1", "P1", "A", path, 5000);
  PressOK();
  Open();
  ASSERT_EQ(Rows().size(), 1u);
  EXPECT_TRUE(Panel().IsDuplicate("I1", "P1", "A", path));
}

}  // namespace
