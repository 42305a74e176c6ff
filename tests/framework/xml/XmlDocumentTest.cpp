#include <gtest/gtest.h>

#include "framework/xml/KorXmlDocument.h"

namespace {

KorXmlDocument_var Parsed(const char* xml) {
  auto document = KorXmlDocument_var::Adopt(new KorXmlDocument);
  EXPECT_EQ(document->Parse(xml), S_OK) << xml;
  return document;
}

TEST(XmlDocument, GivesNamesTextsAndAttributes) {
  const auto document = Parsed("<?xml version=\"1.0\"?><Report unit=\"kg\"><Mass>12.5</Mass></Report>");
  const KorXmlElement root = document->Root();
  EXPECT_EQ(root.Name(), "Report");
  EXPECT_EQ(root.Attribute("unit"), "kg");
  EXPECT_EQ(root.FirstChild("Mass").Text(), "12.5");
}

TEST(XmlDocument, TellsAnEmptyAttributeFromNone) {
  const auto document = Parsed("<a empty=''/>");
  EXPECT_TRUE(document->Root().HasAttribute("empty"));
  EXPECT_FALSE(document->Root().HasAttribute("none"));
  EXPECT_EQ(document->Root().Attribute("none"), "");
}

TEST(XmlDocument, WalksElementsByNameAndPassesOverWhatIsNone) {
  const auto document = Parsed("<a>text<!-- no --><b i='1'/><c/><b i='2'/></a>");
  const KorXmlElement root = document->Root();
  EXPECT_EQ(root.Children().size(), 3u);
  ASSERT_EQ(root.Children("b").size(), 2u);
  EXPECT_EQ(root.Children("b")[1].Attribute("i"), "2");
  EXPECT_EQ(root.FirstChild().NextSibling().Name(), "c");
  EXPECT_EQ(root.FirstChild("b").NextSibling("b").Attribute("i"), "2");
  EXPECT_FALSE(root.FirstChild("d"));
  EXPECT_FALSE(root.FirstChild("c").NextSibling("c"));
}

TEST(XmlDocument, JoinsTheTextDirectlyInsideAnElement) {
  const auto document = Parsed("<a>one <b>not this</b><![CDATA[& two]]></a>");
  EXPECT_EQ(document->Root().Text(), "one & two");
}

TEST(XmlDocument, KeepsAnElementThatHoldsBlanksOnly) { EXPECT_EQ(Parsed("<a>  </a>")->Root().Text(), "  "); }

TEST(XmlDocument, ReadsEntitiesAndUtf8) {
  EXPECT_EQ(Parsed("<a>&lt;5 kg·m² &#x41;</a>")->Root().Text(), "<5 kg·m² A");
}

TEST(XmlDocument, AnswersNothingForANullElement) {
  const KorXmlElement null;
  EXPECT_FALSE(null);
  EXPECT_EQ(null.Name(), "");
  EXPECT_EQ(null.Text(), "");
  EXPECT_FALSE(null.FirstChild());
  EXPECT_TRUE(null.Children().empty());
}

TEST(XmlDocument, IsBuiltAndReadBack) {
  KorXmlDocument document;
  KorXmlElement root = document.CreateRoot("Report");
  root.SetAttribute("title", "a \"b\" <c> & é");
  KorXmlElement mass = root.AppendChild("Mass");
  mass.SetText("1 < 2");
  mass.SetText("2 > 1");
  root.SetAttribute("title", "new");
  const auto again = Parsed(document.Write().ConvertToChar());
  EXPECT_EQ(again->Root().Attribute("title"), "new");
  EXPECT_EQ(again->Root().FirstChild("Mass").Text(), "2 > 1");
}

TEST(XmlDocument, WritesTextsSoThatTheyReadBack) {
  const char* hostile = "a \"b\" <c> & 'd' ]]> é";
  KorXmlDocument document;
  KorXmlElement root = document.CreateRoot("a");
  root.SetAttribute("x", hostile);
  root.SetText(hostile);
  const auto again = Parsed(document.Write().ConvertToChar());
  EXPECT_EQ(again->Root().Attribute("x"), hostile);
  EXPECT_EQ(again->Root().Text(), hostile);
}

TEST(XmlDocument, ReplacesTheTextOfAnElementAndKeepsItsChildren) {
  const auto document = Parsed("<a>one<b/>two</a>");
  document->Root().SetText("new");
  EXPECT_EQ(document->Root().Text(), "new");
  EXPECT_TRUE(document->Root().FirstChild("b"));
  document->Root().SetText("");
  EXPECT_EQ(document->Root().Text(), "");
}

TEST(XmlDocument, DropsItsContentWhenANewRootIsCreated) {
  const auto document = Parsed("<old/>");
  document->CreateRoot("new");
  EXPECT_EQ(document->Root().Name(), "new");
  EXPECT_EQ(document->Write().SearchSubString("old"), -1);
}

struct Refusal {
  const char* xml;
  const char* reason;
};

class XmlRefusal : public testing::TestWithParam<Refusal> {};

TEST_P(XmlRefusal, LeavesTheContentAndTellsOffsetAndCause) {
  const auto document = Parsed("<kept/>");
  KorUnicodeString reason;
  EXPECT_EQ(document->Parse(GetParam().xml, &reason), E_FAIL);
  EXPECT_EQ(document->Parse(GetParam().xml), E_FAIL);
  EXPECT_EQ(document->Root().Name(), "kept");
  EXPECT_EQ(reason, GetParam().reason);
}

INSTANTIATE_TEST_SUITE_P(Texts, XmlRefusal,
                         testing::Values(Refusal{"", "At offset 0: there is no root element"},
                                         Refusal{"   ", "At offset 0: there is no root element"},
                                         Refusal{"<!-- only -->", "At offset 0: there is no root element"},
                                         Refusal{"LumiraError: no", "At offset 0: there is no root element"},
                                         Refusal{"<a/><b/>", "At offset 5: there is a second root element"},
                                         Refusal{"<a/>rest",
                                                 "At offset 4: there is text outside the root element"},
                                         Refusal{"<a><b></a>", "At offset 8: Start-end tags mismatch"},
                                         Refusal{"<a", "At offset 1: Error parsing start element tag"}));

TEST(XmlDocument, RefusesEveryBeginningOfADocument) {
  const std::string whole = "<a x='1'><b>text</b><![CDATA[c]]></a>";
  for (std::size_t length = 0; length < whole.size(); ++length) {
    KorXmlDocument document;
    EXPECT_EQ(document.Parse(whole.substr(0, length)), E_FAIL) << whole.substr(0, length);
  }
}

TEST(XmlDocument, TakesDeepNesting) {
  constexpr int kDepth = 100'000;
  std::string xml;
  for (int i = 0; i < kDepth; ++i) xml += "<a>";
  for (int i = 0; i < kDepth; ++i) xml += "</a>";
  KorXmlDocument document;
  EXPECT_EQ(document.Parse(xml), S_OK);
  EXPECT_EQ(document.Root().FirstChild().Name(), "a");
}

}  // namespace
