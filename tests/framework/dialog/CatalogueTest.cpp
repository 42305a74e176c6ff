#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TemporaryCatalogues.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

struct Catalogue : testing::Test {
  KorUnicodeString Text(const char* key, const KorUnicodeString& fallback = {}) {
    return KorMsgCatalog::BuildMessage("Panel", key, nullptr, 0, fallback);
  }
  TemporaryCatalogues catalogues;
};

TEST_F(Catalogue, ReadsAKeyAndItsText) {
  catalogues.Write("en", "Panel", "Frame.Label.Title = \"Mass\"\n");
  EXPECT_EQ(Text("Frame.Label.Title"), "Mass");
  EXPECT_TRUE(KorMsgCatalog::Has("Panel", "Frame.Label.Title"));
  EXPECT_FALSE(KorMsgCatalog::Has("Panel", "Frame.Label"));
}

TEST_F(Catalogue, PassesOverEmptyLinesCommentsAndLineEndsOfWindows) {
  catalogues.Write("en", "Panel", "# a comment\r\n\r\n   \r\n  A = \"1\"  \r\nB=\"2\"\r\n");
  EXPECT_EQ(Text("A"), "1");
  EXPECT_EQ(Text("B"), "2");
  EXPECT_THAT(KorMsgCatalog::Problems(), IsEmpty());
}

TEST_F(Catalogue, ReadsEscapes) {
  catalogues.Write("en", "Panel",
                   R"(A = "say \"no\" to C:\\temp\nand go")"
                   "\n");
  EXPECT_EQ(Text("A"), "say \"no\" to C:\\temp\nand go");
}

TEST_F(Catalogue, KeysWithBlanksOrQuotesStandInQuotes) {
  catalogues.Write("en", "Panel",
                   R"("Hint for \"Date\" type.Title" = "Year first")"
                   "\n");
  EXPECT_EQ(Text("Hint for \"Date\" type.Title"), "Year first");
}

TEST_F(Catalogue, TextsAreUtf8) {
  catalogues.Write("en", "Panel", "A = \"Trägheit in kg·m²\"\n");
  EXPECT_EQ(Text("A"), "Trägheit in kg·m²");
}

TEST_F(Catalogue, PutsParametersIn) {
  catalogues.Write("en", "Panel", "A = \"{2} before {1}, {1} again, {3} stays, {x} too\"\n");
  const KorUnicodeString parameters[] = {"one", "two"};
  EXPECT_EQ(KorMsgCatalog::BuildMessage("Panel", "A", parameters, 2),
            "two before one, one again, {3} stays, {x} too");
}

TEST_F(Catalogue, AParameterIsPutInAsItIs) {
  catalogues.Write("en", "Panel", "A = \"{1} and {2}\"\n");
  const KorUnicodeString parameters[] = {"{2}", "b"};
  EXPECT_EQ(KorMsgCatalog::BuildMessage("Panel", "A", parameters, 2), "{2} and b");
}

TEST_F(Catalogue, WithoutTheKeyTheDefaultOfTheCallStandsInWithTheParameters) {
  catalogues.Write("en", "Panel", "A = \"x\"\n");
  const KorUnicodeString parameter = "one";
  EXPECT_EQ(KorMsgCatalog::BuildMessage("Panel", "B", &parameter, 1, "default {1}"), "default one");
  EXPECT_EQ(Text("B"), "");
}

TEST_F(Catalogue, AnEmptyTextIsATextAndNotTheDefault) {
  catalogues.Write("en", "Panel", "A = \"\"\n");
  EXPECT_EQ(Text("A", "default"), "");
  EXPECT_TRUE(KorMsgCatalog::Has("Panel", "A"));
}

TEST_F(Catalogue, FallsBackFromTheLanguageToEnglishToTheDefault) {
  catalogues.Write("en", "Panel", "A = \"mass\"\nB = \"length\"\n");
  catalogues.Write("de", "Panel", "A = \"Masse\"\n");
  ASSERT_EQ(KorMsgCatalog::SetLanguage("de"), S_OK);
  EXPECT_EQ(Text("A"), "Masse");
  EXPECT_EQ(Text("B"), "length");
  EXPECT_EQ(Text("C", "default"), "default");
  KorMsgCatalog::SetLanguage("en");
  EXPECT_EQ(Text("A"), "mass");
}

TEST_F(Catalogue, ListsItsLanguagesInAlphabeticalOrder) {
  for (const char* language : {"fr", "de", "en"}) catalogues.Write(language, "Panel", "");
  EXPECT_THAT(KorMsgCatalog::Languages(), ElementsAre("de", "en", "fr"));
}

TEST_F(Catalogue, ALanguageThatThereIsNotIsRefused) {
  catalogues.Write("en", "Panel", "");
  EXPECT_EQ(KorMsgCatalog::SetLanguage("xx"), E_FAIL);
  EXPECT_EQ(KorMsgCatalog::GetLanguage(), "en");
}

TEST_F(Catalogue, AnEmptyLanguageIsRefused) {
  catalogues.Write("en", "Panel", "");
  EXPECT_EQ(KorMsgCatalog::SetLanguage(""), E_FAIL);
  EXPECT_EQ(KorMsgCatalog::GetLanguage(), "en");
}

TEST_F(Catalogue, ALineThatCannotBeReadIsNamedByFileAndLineAndTheOthersAreKept) {
  const std::string file = catalogues.Write(
      "en", "Panel",
      "A = \"1\"\nno equals sign\nB = \"unended\nC = bare\nD = \"2\" rest\nE = \"3\"\n = \"4\"\n");
  EXPECT_EQ(Text("A"), "1");
  EXPECT_EQ(Text("E"), "3");
  EXPECT_FALSE(KorMsgCatalog::Has("Panel", "D"));
  ASSERT_EQ(KorMsgCatalog::Problems().size(), 5u);
  for (const char* line : {":2:", ":3:", ":4:", ":5:", ":7:"})
    EXPECT_THAT(KorMsgCatalog::Problems(),
                testing::Contains(testing::Property(&KorUnicodeString::Utf8, HasSubstr(file + line))));
}

TEST_F(Catalogue, AKeyThatStandsTwiceIsNamedAsAProblem) {
  const std::string file = catalogues.Write("en", "Panel", "A = \"1\"\nA = \"2\"\n");
  Text("A");
  ASSERT_EQ(KorMsgCatalog::Problems().size(), 1u);
  EXPECT_THAT(KorMsgCatalog::Problems()[0].Utf8(), HasSubstr(file + ":2:"));
}

TEST_F(Catalogue, AMissingFileIsAProblemAndTheDefaultStandsIn) {
  EXPECT_EQ(Text("A", "default"), "default");
  ASSERT_EQ(KorMsgCatalog::Problems().size(), 1u);
  EXPECT_THAT(KorMsgCatalog::Problems()[0].Utf8(), HasSubstr("Panel.txt"));
}

TEST_F(Catalogue, AMissingFileIsNamedOnceHoweverOftenItIsAskedFor) {
  Text("A");
  Text("B");
  EXPECT_EQ(KorMsgCatalog::Problems().size(), 1u);
}

TEST_F(Catalogue, WithoutAFolderEveryTextIsTheDefault) {
  KorMsgCatalog::SetFolder("");
  EXPECT_EQ(Text("A", "default"), "default");
  EXPECT_THAT(KorMsgCatalog::Languages(), IsEmpty());
  KorMsgCatalog::SetFolder(catalogues.Folder());
}

TEST_F(Catalogue, AnotherFolderIsReadAfresh) {
  catalogues.Write("en", "Panel", "A = \"old\"\n");
  EXPECT_EQ(Text("A"), "old");
  catalogues.Write("en", "Panel", "A = \"new\"\n");
  KorMsgCatalog::SetFolder(catalogues.Folder());
  EXPECT_EQ(Text("A"), "new");
}

TEST_F(Catalogue, AByteOrderMarkAtTheFrontOfAFileIsPassedOver) {
  catalogues.Write("en", "Panel",
                   "\xEF\xBB\xBF"
                   "A = \"1\"\n");
  EXPECT_EQ(Text("A"), "1");
}

TEST_F(Catalogue, ReadsOneFileByItself) {
  const std::string file = catalogues.Write("en", "Other", "A = \"1\"\nB = \"2\"\n");
  std::vector<KorUnicodeString> problems;
  const auto texts = KorMsgCatalog::ReadFile(file, problems);
  EXPECT_EQ(texts.size(), 2u);
  EXPECT_EQ(texts.at("B"), "2");
  EXPECT_THAT(problems, IsEmpty());
  EXPECT_THAT(KorMsgCatalog::ReadFile(file + ".missing", problems), IsEmpty());
  EXPECT_EQ(problems.size(), 1u);
}

}  // namespace
