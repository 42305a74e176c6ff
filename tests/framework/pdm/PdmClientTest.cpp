#include <gtest/gtest.h>

#include <vector>

#include "framework/pdm/KorPdmClient.h"

namespace {

using Log = std::vector<std::string>;

/// Answers with what it was asked, and logs.
struct Echo : KorPdmTransport {
  explicit Echo(Log& log) : log(log) { KorPdmClient::SetTransport(this); }
  ~Echo() override { KorPdmClient::SetTransport(nullptr); }
  std::string Run(const std::string& command, const std::string& request) override {
    log.push_back("run " + command);
    return command + "(" + request + ")";
  }
  std::string Address() const override { return "echo"; }
  Log& log;
};

struct Window : KorPdmClient::Observer {
  explicit Window(Log& log) : log(log) { KorPdmClient::SetObserver(this); }
  ~Window() override { KorPdmClient::SetObserver(nullptr); }
  void CommandStarted(const KorUnicodeString& command) override {
    log.push_back("started " + command.Utf8());
  }
  void CommandEnded(const KorUnicodeString& command, const KorUnicodeString& reply) override {
    log.push_back("ended " + command.Utf8() + " with " + reply.Utf8());
  }
  Log& log;
};

KorUnicodeString TextOf(const VARIANT& variant) {
  KorUnicodeString text = "before";
  EXPECT_EQ(ConvertVariant(variant, text), S_OK);
  return text;
}

TEST(Variant, CarriesATextBothWays) {
  VARIANT variant;
  EXPECT_EQ(BuildVariant(KorUnicodeString("1|é|"), variant), S_OK);
  EXPECT_EQ(TextOf(variant), "1|é|");
  EXPECT_EQ(BuildVariant("", variant), S_OK);
  EXPECT_EQ(TextOf(variant), "");
}

TEST(RunServerCode, HandsCommandAndRequestToTheTransport) {
  Log log;
  const Echo server(log);
  VARIANT request, reply;
  BuildVariant("1|P|", request);
  BuildVariant("", reply);
  EXPECT_EQ(RunServerCode("WBComputeNymValues", request, reply), S_OK);
  EXPECT_EQ(TextOf(reply), "WBComputeNymValues(1|P|)");
}

TEST(RunServerCode, LeavesTheReplyAloneWithoutATransport) {
  VARIANT request, reply;
  BuildVariant("before", reply);
  EXPECT_EQ(RunServerCode("WBComputeNymValues", request, reply), E_FAIL);
  EXPECT_EQ(TextOf(reply), "before");
}

TEST(RunServerCode, MayUseOneVariantForRequestAndReply) {
  Log log;
  const Echo server(log);
  VARIANT both;
  BuildVariant("x", both);
  EXPECT_EQ(RunServerCode("C", both, both), S_OK);
  EXPECT_EQ(TextOf(both), "C(x)");
}

TEST(RunServerCode, TellsTheObserverOfStartEndAndReply) {
  Log log;
  const Window window(log);
  const Echo server(log);
  VARIANT request, reply;
  BuildVariant("x", request);
  RunServerCode("C", request, reply);
  EXPECT_EQ(log, (Log{"started C", "run C", "ended C with C(x)"}));
}

TEST(RunServerCode, TellsTheObserverNothingWithoutATransport) {
  Log log;
  const Window window(log);
  VARIANT request, reply;
  RunServerCode("C", request, reply);
  EXPECT_TRUE(log.empty());
}

}  // namespace
