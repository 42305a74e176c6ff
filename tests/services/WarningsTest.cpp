#include <gtest/gtest.h>

#include "framework/pdm/KorPdmClient.h"
#include "protocol/Codec.h"
#include "protocol/ErrorReply.h"
#include "services/KorLumWBCSCommonDefinitions.h"
#include "services/KorWBServices.h"
#include "tests/support/ScriptedServer.h"
#include "tests/support/TemporaryCatalogues.h"

namespace {

using protocol::Severity;

KorUnicodeString Clean(const KorUnicodeString& text) {
  KorUnicodeString shown = "before";
  KorWBServices::CleanWarningForDisplay(text, shown);
  return shown;
}

TEST(ServerWarnings, AreEmptyWhenTheServerHasNone) {
  const ScriptedServer server;
  KorUnicodeString text = "before";
  EXPECT_EQ(KorWBServices::GetWarningMsgFromLumira(text), S_OK);
  EXPECT_EQ(text, "");
  EXPECT_EQ(server.WarningRequestCount(), 1);
}

TEST(ServerWarnings, AreEmptyWhenTheServerAnswersNothing) {
  ScriptedServer server;
  server.SetPendingWarnings("");
  KorUnicodeString text = "before";
  EXPECT_EQ(KorWBServices::GetWarningMsgFromLumira(text), S_OK);
  EXPECT_EQ(text, "");
}

TEST(ServerWarnings, AreLinesBehindTheMarkOfTheirSeverity) {
  ScriptedServer server;
  server.SetPendingWarnings(
      protocol::WritePendingWarnings({{{Severity::Warning, "3 parts have no data"},
                                       {Severity::Error, "The mass is negative"},
                                       {Severity::Information, "Stored results were reused"}}}));
  KorUnicodeString text;
  EXPECT_EQ(KorWBServices::GetWarningMsgFromLumira(text), S_OK);
  EXPECT_EQ(text,
            "__WARNING__: 3 parts have no data\n"
            "__ERROR__: The mass is negative\n"
            "__INFORMATION__: Stored results were reused\n");
}

TEST(ServerWarnings, ShowWhetherAnErrorIsAmongThem) {
  ScriptedServer server;
  KorUnicodeString text;
  server.SetPendingWarnings(protocol::WritePendingWarnings({{{Severity::Warning, "w"}}}));
  KorWBServices::GetWarningMsgFromLumira(text);
  EXPECT_EQ(text.SearchSubString(KorLumWBCSCommonDefinitions::warningMarkError), -1);
  server.SetPendingWarnings(
      protocol::WritePendingWarnings({{{Severity::Warning, "w"}, {Severity::Error, "e"}}}));
  KorWBServices::GetWarningMsgFromLumira(text);
  EXPECT_NE(text.SearchSubString(KorLumWBCSCommonDefinitions::warningMarkError), -1);
}

TEST(ServerWarnings, ThatCannotBeFetchedTellWhy) {
  ScriptedServer server;
  server.SetPendingWarnings(protocol::ErrorReply("the session has ended"));
  KorUnicodeString text;
  EXPECT_EQ(KorWBServices::GetWarningMsgFromLumira(text), E_FAIL);
  EXPECT_EQ(Clean(text), "The server's warnings could not be fetched: the session has ended");
}

TEST(ServerWarnings, ThatCannotBeFetchedTellSoInTheWordsOfTheCatalogue) {
  TemporaryCatalogues catalogues;
  catalogues.Write("en", "KorWBServices", "WarningsNotFetched.Message = \"No word from the server ({1})\"\n");
  ScriptedServer server;
  server.SetPendingWarnings(protocol::ErrorReply("the session has ended"));
  KorUnicodeString text;
  EXPECT_EQ(KorWBServices::GetWarningMsgFromLumira(text), E_FAIL);
  EXPECT_EQ(Clean(text), "No word from the server (the session has ended)");
}

TEST(ServerWarnings, ThatCannotBeReadTellWhy) {
  ScriptedServer server;
  server.SetPendingWarnings("PendingWarnings/1|1|7|text|end");
  KorUnicodeString text;
  EXPECT_EQ(KorWBServices::GetWarningMsgFromLumira(text), E_FAIL);
  EXPECT_EQ(Clean(text),
            "The server's warnings could not be fetched: PendingWarnings: field 3 (warnings[1].severity): "
            "\"7\" is not "
            "an integer from 0 to 2");
}

TEST(ServerWarnings, AreLeftAloneWithoutAServer) {
  KorUnicodeString text = "before";
  EXPECT_EQ(KorWBServices::GetWarningMsgFromLumira(text), E_FAIL);
  EXPECT_EQ(text, "before");
}

TEST(CleanWarning, TakesTheMarksOut) {
  EXPECT_EQ(Clean("__WARNING__: one\n__ERROR__: two\n__INFORMATION__: three\n"), "one\ntwo\nthree");
}

TEST(CleanWarning, TakesEmptyLinesOut) {
  EXPECT_EQ(Clean("\n\n__WARNING__: one\n  \nmore\n\n"), "one\nmore");
  EXPECT_EQ(Clean(""), "");
}

TEST(CleanWarning, KeepsAMarkThatDoesNotOpenALine) {
  EXPECT_EQ(Clean("the text __ERROR__: stays"), "the text __ERROR__: stays");
}

TEST(CleanWarning, MayReadAndWriteOneText) {
  KorUnicodeString text = "__ERROR__: one\n";
  KorWBServices::CleanWarningForDisplay(text, text);
  EXPECT_EQ(text, "one");
}

}  // namespace
