#include <gtest/gtest.h>

#include "FormTable.h"
#include "protocol/Limits.h"

namespace protocol::test {
namespace {

std::string ExampleOf(const std::string& form) {
  for (const Example& example : DocumentExamples())
    if (example.form == form) return example.text;
  return {};
}

template <class Form>
std::string Refusal(const Result<Form>& result) {
  return result.Ok() ? "read" : result.Failure().message;
}

TEST(Refusal, MeetsEveryTruncatedPrefixOfEveryForm) {
  for (const FormCase& form : EndedForms()) {
    const std::string text = ExampleOf(form.name);
    ASSERT_FALSE(text.empty()) << form.name;
    for (std::size_t size = 0; size < text.size(); ++size) {
      // A compute request that ends after its second separator is one without options.
      if (form.name == "ComputeRequest" && text.substr(0, size) == "1|Above_yaw|") continue;
      EXPECT_FALSE(form.rewrite(text.substr(0, size)).Ok()) << form.name << ": " << text.substr(0, size);
    }
  }
}

TEST(Refusal, MeetsTextAfterTheEndOfEveryForm) {
  for (const FormCase& form : EndedForms())
    for (const char* tail : {"|", "|x", "x", "\n"})
      EXPECT_FALSE(form.rewrite(ExampleOf(form.name) + tail).Ok()) << form.name << tail;
}

TEST(Refusal, MeetsEveryFormReadAsAnother) {
  const auto forms = EndedForms();
  for (const FormCase& reader : forms)
    for (const FormCase& writer : forms)
      if (reader.name != writer.name) {
        EXPECT_FALSE(reader.rewrite(ExampleOf(writer.name)).Ok()) << reader.name << ", " << writer.name;
      }
}

TEST(Refusal, NamesTheFieldItsValueAndWhatWasExpected) {
  EXPECT_EQ(Refusal(ReadSearchRequest("SearchRequest/1|P|text|0|end")),
            "SearchRequest: field 4 (limit): \"0\" is not an integer from 1 to 10000");
  EXPECT_EQ(Refusal(ReadSearchRequest("SearchRequest/1|P")),
            "SearchRequest: field 3 (text) is missing, the text ends after field 2");
  EXPECT_EQ(Refusal(ReadSearchRequest("SearchRequest/1|P|%4|5|end")),
            "SearchRequest: field 3 (text): \"%4\" holds a \"%\" without two hexadecimal digits");
  EXPECT_EQ(Refusal(ReadSearchRequest("SearchRequest/1|P|a\nb|5|end")),
            "SearchRequest: field 3 (text): \"a\\x0Ab\" holds a control character that is not escaped");
  EXPECT_EQ(Refusal(ReadSearchRequest("SearchRequest/1|P|%FF|5|end")),
            "SearchRequest: field 3 (text): \"%FF\" is not well-formed UTF-8");
  EXPECT_EQ(Refusal(ReadSearchRequest("SearchRequest/1|P|t|5|stop")),
            "SearchRequest: field 5 (end): \"stop\" stands where the text should end with \"end\"");
  EXPECT_EQ(Refusal(ReadSearchRequest("SearchRequest/1|P|\xFF|5|end")),
            "SearchRequest: field 3 (text): \"\\xFF\" is not well-formed UTF-8 at its byte 1");
}

TEST(Refusal, NamesTheFieldThatIsNotUtf8WhereverItStands) {
  EXPECT_EQ(Refusal(ReadSearchRequest("Search\xE9|P|t|5|end")),
            "SearchRequest: field 1 (form): \"Search\\xE9\" is not well-formed UTF-8 at its byte 7");
  EXPECT_EQ(Refusal(ReadSearchRequest("SearchRequest/1|P|t|\xC3|end")),
            "SearchRequest: field 4 (limit): \"\\xC3\" is not well-formed UTF-8 at its byte 1");
  EXPECT_EQ(Refusal(ReadSearchRequest("SearchRequest/1|P|t|5|end\xFF")),
            "SearchRequest: field 5 (end): \"end\\xFF\" is not well-formed UTF-8 at its byte 4");
  EXPECT_EQ(Refusal(ReadTreeNodes("TreeNodes/1|T|1|0|1|i|caf\xE9|n|r|1|0|0|__null__|end")),
            "TreeNodes: field 7 (nodes[1].partId): \"caf\\xE9\" is not well-formed UTF-8 at its byte 4");
}

TEST(Refusal, NamesTheByteThatIsNotUtf8AlsoBehindWhatIsShownOfTheValue) {
  const std::string shown(60, 'x');
  EXPECT_EQ(Refusal(ReadSearchRequest("SearchRequest/1|P|" + shown + "yz\xFF|5|end")),
            "SearchRequest: field 3 (text): \"" + shown + "...\" is not well-formed UTF-8 at its byte 63");
}

TEST(Refusal, TellsASequenceThatASeparatorCutsAsTheFieldsBeforeIt) {
  EXPECT_EQ(Refusal(ReadSearchRequest("SearchRequest/1|\xE2\x82|\xAC|5|end")),
            "SearchRequest: field 2 (product): \"\\xE2\\x82\" is not well-formed UTF-8 at its byte 1");
}

TEST(Refusal, NamesTheEntryOfAListAndTheFieldInside) {
  const auto reply = ReadComputeReply("ComputeReply/1|P|Computed|1|1|0|0|x|__null__|0|0|0|0|0|0|0|0|end");
  ASSERT_FALSE(reply.Ok());
  EXPECT_EQ(reply.Failure().message, "ComputeReply: field 8 (computed.cg[3]): \"x\" is not a finite number");
  const auto nodes = ReadTreeNodes("TreeNodes/1|T|1|0|1|i|p|n|r|0|0|0|__null__|end");
  ASSERT_FALSE(nodes.Ok());
  EXPECT_EQ(nodes.Failure().message,
            "TreeNodes: field 10 (nodes[1].quantity): \"0\" is not an integer from 1 to 2147483647");
}

TEST(Refusal, SaysThatAVersionIsUnknown) {
  const auto result = ReadSearchRequest("SearchRequest/2|P|text|1|end");
  ASSERT_FALSE(result.Ok());
  EXPECT_EQ(result.Failure().kind, ErrorKind::Unsupported);
  EXPECT_EQ(result.Failure().message, "SearchRequest: version \"2\" is not known here, version 1 is");
}

TEST(Refusal, MeetsNumbersThatAreNotFinite) {
  for (const char* number : {"nan", "inf", "-inf", "1e999", "", "0x1p3", "1,5"}) {
    const std::string text =
        "ComputeReply/1|P|Computed|1|" + std::string(number) + "|__null__|__null__|0|0|0|0|0|0|0|0|end";
    EXPECT_FALSE(ReadComputeReply(text).Ok()) << number;
  }
}

TEST(Refusal, MeetsAWrittenNumberThatIsNotFinite) {
  ComputeReply reply;
  reply.computed.mass = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(ReadComputeReply(WriteComputeReply(reply)).Ok());
}

TEST(Refusal, MeetsACountAboveTheLimitBeforeAnyMemoryIsTaken) {
  const auto result = ReadPendingWarnings("PendingWarnings/1|1000001|end");
  ASSERT_FALSE(result.Ok());
  EXPECT_EQ(result.Failure().message,
            "PendingWarnings: field 2 (warnings): \"1000001\" is not a number of entries up to 1000000");
}

TEST(Refusal, MeetsACountThatTheTextHasNoRoomFor) {
  const auto result = ReadPendingWarnings("PendingWarnings/1|1000000|end");
  ASSERT_FALSE(result.Ok());
  EXPECT_EQ(result.Failure().message,
            "PendingWarnings: field 2 (warnings): \"1000000\" entries announced, "
            "but the text is too short for them");
}

TEST(Refusal, MeetsNegativeAndFractionalCounts) {
  for (const char* count : {"-1", "1.5", "", "x", "99999999999999999999"})
    EXPECT_FALSE(ReadPendingWarnings("PendingWarnings/1|" + std::string(count) + "|end").Ok()) << count;
}

TEST(Refusal, MeetsAPlacementThatHasNotTwelveNumbers) {
  PartData part;
  part.placement.assign(9, 0.0);
  const auto result = ReadPartData(WritePartData(part));
  ASSERT_FALSE(result.Ok());
  EXPECT_EQ(result.Failure().message,
            "PartData: field 13 (placement): \"9\" is not a number of entries up to 12 in groups of 12");
}

TEST(Refusal, MeetsAFieldAboveItsLimit) {
  const auto result =
      ReadSearchRequest("SearchRequest/1|P|" + std::string(kMaxFieldBytes + 1, 'x') + "|5|end");
  ASSERT_FALSE(result.Ok());
  EXPECT_EQ(result.Failure().message,
            "SearchRequest: field 3 (text): \"" + std::string(60, 'x') + "...\" longer than 1048576 bytes");
  EXPECT_TRUE(ReadSearchRequest("SearchRequest/1|P|" + std::string(kMaxFieldBytes, 'x') + "|5|end").Ok());
}

TEST(Refusal, MeetsATextAboveTheLimit) {
  const auto result = ReadSearchRequest(std::string(kMaxTextBytes + 1, '|'));
  ASSERT_FALSE(result.Ok());
  EXPECT_EQ(result.Failure().message, "SearchRequest: the text has 67108865 bytes, the limit is 67108864");
  EXPECT_FALSE(ReadFilter(std::string(kMaxTextBytes + 1, '|')).Ok());
}

TEST(Refusal, OfAComputeRequestNamesItsThreeFields) {
  const auto refusal = [](std::string_view text) { return ReadComputeRequest(text).Failure().message; };
  EXPECT_EQ(refusal(""), "ComputeRequest: field 1 (instance flag): \"\" is neither 0 nor 1");
  EXPECT_EQ(refusal("2|p|"), "ComputeRequest: field 1 (instance flag): \"2\" is neither 0 nor 1");
  EXPECT_EQ(refusal("1"), "ComputeRequest: field 2 (partId): is missing");
  EXPECT_EQ(refusal("1|p"), "ComputeRequest: field 3 (options): is missing");
  EXPECT_EQ(refusal("1||"), "ComputeRequest: field 2 (partId): is empty");
  EXPECT_EQ(refusal("1|p|x"),
            "ComputeRequest: field 3 (options): ComputeOptions: field 1 (form): \"x\" is not "
            "\"ComputeOptions/1\"");
}

TEST(Refusal, OfADocumentRequestNamesItsTwoFields) {
  const auto refusal = [](std::string_view text) { return ReadDocumentRequest(text).Failure().message; };
  EXPECT_EQ(refusal("D-1"), "DocumentRequest: field 2 (revision): is missing");
  EXPECT_EQ(refusal("|A"), "DocumentRequest: field 1 (documentId): is empty");
  EXPECT_EQ(refusal("D-1|"), "DocumentRequest: field 2 (revision): is empty");
  EXPECT_EQ(refusal("D-1|A|B"), "DocumentRequest: field 2 (revision): \"A|B\" holds \"|\"");
  EXPECT_NE(refusal(std::string(kMaxFieldBytes + 1, 'D') + "|A").find("longer than 1048576 bytes"),
            std::string::npos);
  EXPECT_FALSE(ReadDocumentRequest("\xff|A").Ok()) << "not UTF-8";
}

TEST(Refusal, NamesWhatIsWrongWithTheBytesOfAComputeRequest) {
  const auto badByte = ReadComputeRequest("1|a\xff|");
  ASSERT_FALSE(badByte.Ok());
  EXPECT_EQ(badByte.Failure().message,
            "ComputeRequest: field 2 (partId): \"a\\xFF\" is not well-formed UTF-8 at its byte 2");
  const auto badOptions = ReadComputeRequest("1|p|ComputeOptions/1|\xff");
  ASSERT_FALSE(badOptions.Ok());
  EXPECT_EQ(badOptions.Failure().message,
            "ComputeRequest: field 3 (options): ComputeOptions: field 2 (filter): \"\\xFF\" is not "
            "well-formed UTF-8 at its byte 1");
  const auto tooLong = ReadComputeRequest("1|" + std::string(kMaxTextBytes, 'x') + "|");
  ASSERT_FALSE(tooLong.Ok());
  EXPECT_EQ(tooLong.Failure().message, "ComputeRequest: the text has 67108867 bytes, the limit is 67108864");
  const auto longPart = ReadComputeRequest("1|" + std::string(kMaxFieldBytes + 1, 'x') + "|");
  ASSERT_FALSE(longPart.Ok());
  EXPECT_NE(longPart.Failure().message.find("field 2 (partId)"), std::string::npos);
  EXPECT_LT(longPart.Failure().message.size(), 200u);
}

TEST(Refusal, MeetsMomentsOfAComputeReplyThatAreCutShort) {
  const std::string reply = "ComputeReply/1|P|Computed|1|0|__null__|__null__|0|0|0|0|0|0|0|0|";
  EXPECT_TRUE(ReadComputeReply(reply + "end").Ok());
  EXPECT_TRUE(ReadComputeReply(reply + "1|2|3|1|2|3|4|5|6|end").Ok());
  EXPECT_FALSE(ReadComputeReply(reply + "1|2|3|end").Ok());
  EXPECT_FALSE(ReadComputeReply(reply + "1|2|3|1|2|3|4|5|6").Ok());
}

}  // namespace
}  // namespace protocol::test
