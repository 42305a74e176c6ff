#include <gtest/gtest.h>

#include <random>
#include <string>

#include "module/filter_panel/KorWBNymNavFilterIndex.h"

namespace {

/// The index of a text must answer as a search in the text does.
void ExpectSameAnswers(const std::string& text, const std::vector<std::string>& keys) {
  const KorWBNymNavFilterIndex index(text);
  for (const std::string& key : keys)
    EXPECT_EQ(index.Contains(key), text.find(key) != text.npos) << '"' << key << "\" in \"" << text << '"';
}

/// Keys that a text holds, and keys that it lacks.
struct Keys {
  const char* name;
  const char* text;
  std::vector<const char*> held;
  std::vector<const char*> lacking;
};

void PrintTo(const Keys& keys, std::ostream* out) { *out << keys.name; }

struct FilterIndexKeys : testing::TestWithParam<Keys> {};

TEST_P(FilterIndexKeys, AreFoundWhenTheTextHoldsThem) {
  const KorWBNymNavFilterIndex index(GetParam().text);
  for (const char* key : GetParam().held) EXPECT_TRUE(index.Contains(key)) << key;
  for (const char* key : GetParam().lacking) EXPECT_FALSE(index.Contains(key)) << key;
}

const Keys kKeys[] = {
    {"InTheMiddleAtTheBeginningAndAtTheEnd",
     "1|2|I1|P1|A|2|R|S|I2|P2|B|0",
     {"I1|P1|A|2|R|S", "1|2|I1", "I2|P2|B|0", "1|2|I1|P1|A|2|R|S|I2|P2|B|0"},
     {"I1|P1|A|2|R|T", "I2|P2|B|0|", "01|2|I1|P1|A|2|R|S|I2|P2|B|0"}},
    {"ThatBeginAndEndInsideFields", "1|1|XI1|P1|A|2|R|S2", {"I1|P1|A|2|R|S", "|S", "1|"}, {"XI|P1"}},
    {"WhoseFirstFieldWouldHaveToReachBeyondAFieldBackwards", "xa|b|a|c", {"b|a|c"}, {"b|b", "a|b|b", "xa|c"}},
};

INSTANTIATE_TEST_SUITE_P(Keys, FilterIndexKeys, testing::ValuesIn(kKeys),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(FilterIndex, AnswersForTextsAndKeysWithoutSeparatorsAndForEmptyOnes) {
  for (const char* text : {"", "a", "|", "||", "a|", "|a", "ab|ba"})
    ExpectSameAnswers(text, {"", "a", "b", "ab", "|", "||", "|||", "a|", "|a", "b|b", "ab|ba", "ab|ba|"});
}

TEST(FilterIndex, TellsFieldsApartThatOnlyDifferBehindALongCommonText) {
  const std::string common(600, 'x');
  ExpectSameAnswers("1|" + common + "1|" + common + "2|" + common + "1",
                    {"|" + common + "1", "|" + common + "2", "|" + common + "3", "x1|" + common + "2",
                     "x2|" + common + "2", "1|" + common + "1|" + common + "2|" + common + "1"});
}

TEST(FilterIndex, ComparesBytesWithoutSign) {
  ExpectSameAnswers(
      "\x01|\x7f|\x80|\xff|a\xff|\xff"
      "a|b",
      {"\x80|\xff", "\xff|a\xff",
       "\xff|\xff"
       "a",
       "\x7f|\x80", "\x80|\x7f",
       "\xff"
       "a|b",
       "a|b"});
}

/// Texts and keys of few different letters, so that much of them repeats.
struct RandomTexts : testing::TestWithParam<unsigned> {
  std::string Text(std::size_t length, unsigned letters) {
    std::string text(length, '|');
    for (char& letter : text)
      if (const unsigned one = dice() % (letters + 1); one > 0) letter = static_cast<char>('a' + one - 1);
    return text;
  }
  /// Part of the text, now and then with one letter changed.
  std::string Piece(const std::string& text, unsigned letters) {
    const std::size_t first = dice() % (text.size() + 1);
    std::string piece = text.substr(first, dice() % 24);
    if (!piece.empty() && dice() % 2 == 0) piece[dice() % piece.size()] = Text(1, letters)[0];
    return piece;
  }
  std::mt19937 dice{GetParam()};
};

TEST_P(RandomTexts, AreSearchedAsStandardSearchDoes) {
  for (int round = 0; round < 200; ++round) {
    const unsigned letters = 1 + dice() % 3;
    const std::string text = Text(dice() % 300, letters);
    std::vector<std::string> keys;
    for (int i = 0; i < 100; ++i) keys.push_back(Piece(text, letters));
    for (int i = 0; i < 100; ++i) keys.push_back(Text(dice() % 8, letters));
    ExpectSameAnswers(text, keys);
    if (HasFailure()) return;
  }
}

TEST_P(RandomTexts, ThatAreLongAreSearchedAsStandardSearchDoes) {
  const std::string text = Text(100'000, 2);
  std::vector<std::string> keys;
  for (int i = 0; i < 5'000; ++i) keys.push_back(Piece(text, 2));
  ExpectSameAnswers(text, keys);
}
INSTANTIATE_TEST_SUITE_P(Seeds, RandomTexts, testing::Values(1u, 2u, 3u, 4u));

}  // namespace
