#include <functional>

#include "tests/services/SamplePart.h"

namespace {

std::string SampleReply() {
  return protocol::WriteComputeReply(
      {"bedplate", {.name = "Computed", .mass = 1, .cg = protocol::Vector{}, .inertia = {}}});
}

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, text.npos) << from;
  return text.replace(at, from.size(), to);
}

/// Expects both readers to refuse a text and to leave the buffer as it was.
void ExpectRefused(const LoadedBuffer& buffer, const std::string& text) {
  const KorUnicodeString before = buffer.AllData();
  for (const std::function<HRESULT()>& read : std::initializer_list<std::function<HRESULT()>>{
           [&] { return buffer->SetAllData(text, true); }, [&] { return buffer->SetAllData(text, false); },
           [&] { return buffer->SetComputedData(text, false); }}) {
    ASSERT_EQ(read(), E_FAIL) << text;
    ASSERT_EQ(buffer.AllData(), before) << text;
    ASSERT_FALSE(buffer->GetLastRefusal().IsEmpty()) << text;
  }
}

TEST(Refusal, OfAnyTextThatIsNoneOfTheForms) {
  const LoadedBuffer buffer;
  for (const std::string& text :
       {std::string(), std::string("|"), std::string("LumiraError: no such part"), std::string("<xml/>"),
        std::string("PartData/2|x|end"), std::string("ComputeReply/9|x|end"), std::string("\0\0\0", 3),
        std::string("PartData/1|\xFF\xFE|end"), std::string(100'000, '|')})
    ExpectRefused(buffer, text);
}

TEST(Refusal, OfEveryBeginningOfAText) {
  const LoadedBuffer buffer;
  for (const std::string& whole : {protocol::WritePartData(SamplePart()), SampleReply()})
    for (std::size_t length = 0; length < whole.size(); ++length)
      ExpectRefused(buffer, whole.substr(0, length));
}

TEST(Refusal, OfATextWithMoreBehindIt) {
  const LoadedBuffer buffer;
  ExpectRefused(buffer, protocol::WritePartData(SamplePart()) + "|more");
  ExpectRefused(buffer, SampleReply() + "|more");
}

TEST(Refusal, OfNotANumberAndInfinities) {
  const LoadedBuffer buffer;
  for (const char* number : {"nan", "inf", "-inf", "1e999", "12,5", "", "0x10", " 1"}) {
    ExpectRefused(buffer,
                  Replaced(protocol::WritePartData(SamplePart()), "|12.5|", "|" + std::string(number) + "|"));
    ExpectRefused(buffer, Replaced(SampleReply(), "|0|1|0|0|0|", "|0|" + std::string(number) + "|0|0|0|"));
  }
}

TEST(Refusal, NamesTheFieldItsValueAndTheCause) {
  const LoadedBuffer buffer;
  buffer->SetAllData(Replaced(protocol::WritePartData(SamplePart()), "|12.5|", "|abc|"), true);
  EXPECT_EQ(buffer->GetLastRefusal(),
            "PartData: field 15 (massTypes[1].mass): \"abc\" is not a finite number");
}

TEST(Refusal, IsForgottenAfterATextThatWasTaken) {
  const LoadedBuffer buffer;
  buffer->SetAllData("", true);
  EXPECT_FALSE(buffer->GetLastRefusal().IsEmpty());
  EXPECT_EQ(buffer->SetComputedData(SampleReply(), true), S_OK) << buffer->GetLastRefusal();
  EXPECT_TRUE(buffer->GetLastRefusal().IsEmpty());
  buffer->SetComputedData("", true);
  EXPECT_EQ(buffer->SetAllData(protocol::WritePartData(SamplePart()), true), S_OK);
  EXPECT_TRUE(buffer->GetLastRefusal().IsEmpty());
}

TEST(Refusal, OfAComputeReplyAboutAnotherPart) {
  const LoadedBuffer buffer;
  ExpectRefused(buffer, Replaced(SampleReply(), "bedplate", "generator"));
  EXPECT_EQ(buffer->GetLastRefusal(),
            "ComputeReply: field 2 (partId): \"generator\" is not the part of this buffer, \"bedplate\"");
}

TEST(Refusal, OfAComputeReplyWithAnotherMassType) {
  const LoadedBuffer buffer;
  ExpectRefused(buffer, Replaced(SampleReply(), "Computed", "Weighed"));
  EXPECT_EQ(buffer->GetLastRefusal(),
            "ComputeReply: field 3 (computed.name): \"Weighed\" is not the computed mass type, \"Computed\"");
}

TEST(Refusal, OfARevisionOfAnotherPart) {
  const LoadedBuffer buffer;
  const KorUnicodeString before = buffer.AllData();
  protocol::PartData other = SamplePart();
  other.partId = "generator";
  EXPECT_EQ(buffer->SetAllData(protocol::WritePartData(other), false), E_FAIL);
  EXPECT_EQ(buffer->GetLastRefusal(),
            "PartData: field 2 (partId): \"generator\" is not the part of this buffer, \"bedplate\"");
  EXPECT_EQ(buffer.AllData(), before);
}

TEST(Refusal, OfAMassTypeThatIsListedTwice) {
  const LoadedBuffer buffer;
  protocol::PartData part = SamplePart();
  part.massTypes[2].name = "Estimated";
  ExpectRefused(buffer, protocol::WritePartData(part));
  EXPECT_EQ(buffer->SetAllData(protocol::WritePartData(part), true), E_FAIL);
  EXPECT_EQ(buffer->GetLastRefusal(), "PartData: massTypes[3].name: \"Estimated\" is listed twice");
}

}  // namespace
