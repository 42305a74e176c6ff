#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <optional>

#include "framework/pdm/KorPdmClient.h"
#include "tests/support/ScriptedServer.h"

namespace {

std::string Ask(const char* command, const char* text) {
  VARIANT request, reply;
  BuildVariant(text, request);
  BuildVariant("", reply);
  RunServerCode(command, request, reply);
  KorUnicodeString answer;
  ConvertVariant(reply, answer);
  return answer.Utf8();
}

TEST(ScriptedServer, AnswersInTheOrderOfTheScriptAndRecordsTheRequests) {
  ScriptedServer server;
  server.Expect("First", "one");
  server.Expect("Second", "two");
  EXPECT_EQ(Ask("First", "a|b"), "one");
  EXPECT_EQ(Ask("Second", ""), "two");
  EXPECT_THAT(server.Requests(), testing::ElementsAre(ScriptedServer::Request{"First", "a|b"},
                                                      ScriptedServer::Request{"Second", ""}));
}

TEST(ScriptedServer, HandsOutPendingWarningsOnce) {
  ScriptedServer server;
  server.SetPendingWarnings("PendingWarnings/1|1|1|old data|end");
  EXPECT_EQ(Ask("WBGetPendingWarnings", ""), "PendingWarnings/1|1|1|old data|end");
  EXPECT_EQ(Ask("WBGetPendingWarnings", ""), "PendingWarnings/1|0|end");
  EXPECT_EQ(server.WarningRequestCount(), 2);
}

TEST(ScriptedServer, ACommandThatNoScriptExpectsFailsTheTest) {
  ScriptedServer server;
  EXPECT_NONFATAL_FAILURE(Ask("Surprise", "x"), "unexpected request: Surprise");
  server.Expect("First", "one");
  EXPECT_NONFATAL_FAILURE(Ask("Second", ""), "First");
}

TEST(ScriptedServer, AnExpectedCommandThatNeverComesFailsTheTest) {
  EXPECT_NONFATAL_FAILURE(
      {
        ScriptedServer server;
        server.Expect("Never", "");
      },
      "never asked for Never");
}

TEST(ScriptedServer, IsConnectedForAsLongAsItLives) {
  std::optional<ScriptedServer> server(std::in_place);
  EXPECT_EQ(KorPdmClient::GetTransport(), &*server);
  server.reset();
  EXPECT_EQ(KorPdmClient::GetTransport(), nullptr);
}

}  // namespace
