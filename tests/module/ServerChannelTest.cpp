#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgDialog.h"
#include "framework/pdm/KorPdmClient.h"
#include "module/shared/KorWBNymNavServerChannel.h"
#include "tests/support/RecordingBackend.h"
#include "tests/support/ScriptedServer.h"
#include "tests/support/TemporaryCatalogues.h"

namespace {

struct ServerChannel : testing::Test {
  ServerChannel() {
    catalogues.Write("en", "Panel",
                     "ServerError.Title = \"The server refuses\"\nWBWarnings001.Title = \"Warnings\"\n"
                     "WBWarnings001.Message = \"__ERROR__\"\nWBErrors001.Title = \"Errors\"\n");
    KorApplicationFrame::SetBackend(&backend);
  }
  ~ServerChannel() override { KorApplicationFrame::SetBackend(nullptr); }

  KorDlgDialog panel{nullptr, "Sender", 0};
  TemporaryCatalogues catalogues;
  RecordingBackend backend;
  ScriptedServer server;
  KorWBNymNavServerChannel channel{KorWBNymNavMessages{&panel, "Panel"}};
};

TEST_F(ServerChannel, SendsTheRequestAsItIsAndGivesTheReplyAsItIs) {
  server.Expect("WBSomething", "a|__null__|größe\n");
  EXPECT_EQ(KorWBNymNavServerChannel::Send("WBSomething", "1|P|"), "a|__null__|größe\n");
  EXPECT_THAT(server.Requests(), testing::ElementsAre(ScriptedServer::Request{"WBSomething", "1|P|"}));
}

TEST_F(ServerChannel, WithoutAServerTheReplyIsEmpty) {
  KorPdmClient::SetTransport(nullptr);
  EXPECT_EQ(KorWBNymNavServerChannel::Send("WBSomething", "1|P|"), "");
}

TEST_F(ServerChannel, AnEmptyReplyIsNoError) {
  EXPECT_FALSE(KorWBNymNavServerChannel::ErrorOf(""));
  EXPECT_FALSE(channel.ShowError("", &panel));
}

TEST_F(ServerChannel, AReplyWithoutTheHeaderIsNoError) {
  EXPECT_FALSE(channel.ShowError("ComputeReply/1|P|end", &panel));
  EXPECT_FALSE(channel.ShowError("LumiraError", &panel)) << "only part of the header";
}

TEST_F(ServerChannel, AReplyThatIsExactlyTheHeaderShowsAnEmptyText) {
  backend.Boxes().ExpectMessage({"Sender", "The server refuses", "", kErrorFlags});
  EXPECT_TRUE(channel.ShowError("LumiraError: ", &panel));
}

TEST_F(ServerChannel, TheTextBehindTheHeaderIsShown) {
  backend.Boxes().ExpectMessage({"Sender", "The server refuses", "no such part", kErrorFlags});
  EXPECT_TRUE(channel.ShowError("LumiraError: no such part", &panel));
}

TEST_F(ServerChannel, AHeaderInTheMiddleCutsTheReplyAtTheHeadersLengthOnPurpose) {
  // The first 13 characters of the reply go, wherever the header stands.
  backend.Boxes().ExpectMessage({"Sender", "The server refuses", "789 LumiraError: broken", kErrorFlags});
  EXPECT_TRUE(channel.ShowError("reply 0123456789 LumiraError: broken", &panel));
}

TEST_F(ServerChannel, TheHeaderCountsCharactersAndNotBytes) {
  backend.Boxes().ExpectMessage({"Sender", "The server refuses", "nLumiraError: x", kErrorFlags});
  EXPECT_TRUE(channel.ShowError("ääääääääääääänLumiraError: x", &panel));
}

TEST_F(ServerChannel, AnErrorIsShownOverTheParentThatTheCommandSays) {
  KorDlgDialog* mainWindow = KorApplicationFrame::GetMainWindow();
  backend.Boxes().ExpectMessage({mainWindow->Name(), "The server refuses", "no", kErrorFlags});
  EXPECT_TRUE(channel.ShowError("LumiraError: no", mainWindow));
}

TEST_F(ServerChannel, WithoutPendingWarningsNothingIsShown) {
  channel.ShowWarnings();
  EXPECT_EQ(server.WarningRequestCount(), 1);
}

TEST_F(ServerChannel, PendingWarningsAreShownCleanOverThePanel) {
  server.SetPendingWarnings("PendingWarnings/1|2|1|2 parts have no mass|0|done|end");
  backend.Boxes().ExpectMessage({"Sender", "Warnings", "2 parts have no mass\ndone", kErrorFlags});
  channel.ShowWarnings();
}

TEST_F(ServerChannel, WarningsAmongWhichIsAnErrorAreTitledErrors) {
  server.SetPendingWarnings("PendingWarnings/1|2|1|no mass|2|not reliable|end");
  backend.Boxes().ExpectMessage({"Sender", "Errors", "no mass\nnot reliable", kErrorFlags});
  channel.ShowWarnings();
}

TEST_F(ServerChannel, WithoutAMarkInTheCatalogueEveryWarningIsTitledAnErrorOnPurpose) {
  catalogues.Write("en", "Marked", "WBWarnings001.Title = \"Warnings\"\nWBErrors001.Title = \"Errors\"\n");
  server.SetPendingWarnings("PendingWarnings/1|1|0|done|end");
  backend.Boxes().ExpectMessage({"Sender", "Errors", "done", kErrorFlags});
  KorWBNymNavServerChannel(KorWBNymNavMessages{&panel, "Marked"}).ShowWarnings();
}

TEST_F(ServerChannel, WarningsAreShownOnce) {
  server.SetPendingWarnings("PendingWarnings/1|1|1|no mass|end");
  backend.Boxes().ExpectMessage({"Sender", "Warnings", "no mass", kErrorFlags});
  channel.ShowWarnings();
  channel.ShowWarnings();
}

TEST_F(ServerChannel, WithoutACatalogueAnErrorHasNoTitle) {
  const TemporaryCatalogues empty;
  backend.Boxes().ExpectMessage({"Sender", "", "no", kErrorFlags});
  EXPECT_TRUE(channel.ShowError("LumiraError: no", &panel));
}

}  // namespace
