#include <algorithm>

#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/pdm/KorPdmClient.h"
#include "tests/module/PanelTest.h"
#include "tests/module/ProbeBuffer.h"
#include "tests/support/TraceCapture.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr const char* kCommand = "WBComputeNymValues";

/// 3 kg (-0.1, +0.2) at (0.5, 0, 0) m, Ixx 1, Iyy 2, Izz 3 kg·m².
constexpr const char* kReply =
    "ComputeReply/1|P-100|Computed|1|3|0.5|0|0|1|2|3|0|0|0|0.1|0.2|0|0|0|0|0|0|end";

class Compute : public PanelTest {
 protected:
  static protocol::PartData NotComputed() {
    protocol::PartData part = SamplePart();
    part.computed = false;
    return part;
  }
  void ComputeWith(const std::string& reply) {
    Server().Expect(kCommand, reply);
    Press("ComputeButton");
  }
  std::string AllData() {
    KorUnicodeString text;
    Buffer().GetAllData(text);
    return text.Utf8();
  }
  /// Everything that the user sees of the results.
  std::string Screen() {
    std::string screen =
        Masses() + CG() + Moments() + Products() + MTMoments() + MTProducts() + SelectedPage();
    for (const char* lamp : {"FlagRedLabel[1]", "FlagGreenLabel[1]", "FlagRedLabel[2]", "FlagGreenLabel[2]"})
      screen += IsShown(lamp) ? " shown" : " hidden";
    for (const char* frame : {"InertiaModeFrame", "ReferenceModeFrame"})
      screen += IsEnabled(frame) ? " on" : " off";
    return screen;
  }
};

// ---- the request ----

TEST_F(Compute, SendsInstanceFlagPartAndTheBuffersText) {
  Open(SamplePart());
  ComputeWith(kReply);
  EXPECT_THAT(Server().Requests(), ElementsAre(ScriptedServer::Request{
                                       kCommand, "1|P-100|ComputeOptions/1|0%7CNo Filter|0|0|Steel|end"}));
}

TEST_F(Compute, OfAPartWithoutAnInstanceSendsAZero) {
  protocol::PartData part = SamplePart();
  part.hasInstance = false;
  Open(part);
  ComputeWith(kReply);
  EXPECT_EQ(Server().Requests()[0].text, "0|P-100|ComputeOptions/1|0%7CNo Filter|0|0|Steel|end");
}

TEST_F(Compute, SendsThatTheUserLooksAtTheReference) {
  Open(SamplePart());
  Check("ReferenceButton");
  ComputeWith(kReply);
  EXPECT_EQ(Server().Requests()[0].text, "1|P-100|ComputeOptions/1|0%7CNo Filter|1|0|Steel|end");
  EXPECT_TRUE(Buffer().GetReferenceInertiaMode());
}

TEST_F(Compute, SendsTheMaterialThatThePanelShows) {
  Open(SamplePart());
  As<KorDlgEditor>("WBMaterialEditor").SetText("Titanium");
  ComputeWith(kReply);
  EXPECT_EQ(Server().Requests()[0].text, "1|P-100|ComputeOptions/1|0%7CNo Filter|0|0|Titanium|end");
}

TEST_F(Compute, KeepsTheMaterialOfAPartThatNobodyEdited) {
  Open(SamplePart());
  EXPECT_EQ(Text("WBMaterialEditor"), "Steel");
  ComputeWith(kReply);
  EXPECT_EQ(Buffer().GetMaterialName(), "Steel");
}

TEST_F(Compute, PreparesTheBufferInThisOrder) {
  auto buffer = ProbeBuffer::Of(SamplePart());
  Open(buffer);
  buffer->calls.clear();
  ComputeWith(kReply);
  ASSERT_GE(buffer->calls.size(), 4u);
  buffer->calls.resize(4);
  EXPECT_THAT(buffer->calls, ElementsAre("SetPreComputeSwitch(false)", "SetReferenceInertiaMode(false)",
                                         "SetMaterialName", "GetComputedInfo"));
}

TEST_F(Compute, WithoutTheBuffersTextIsStillSentAndStandardOutputSaysSo) {
  auto buffer = ProbeBuffer::Of(SamplePart());
  buffer->failures["GetComputedInfo"] = E_FAIL;
  Open(buffer);
  ComputeWith(kReply);
  EXPECT_EQ(Server().Requests()[0].text, "1|P-100|");
  EXPECT_THAT(Output(), HasSubstr("GetComputedInfo Failed!\nString to send to the server for compute : "));
  EXPECT_EQ(Text("MassEditor"), "3 kg");
}

TEST_F(Compute, WritesRequestAndReplyToTheStandardOutput) {
  Open(SamplePart());
  ComputeWith(kReply);
  EXPECT_THAT(Output(), HasSubstr("String to send to the server for compute : "
                                  "1|P-100|ComputeOptions/1|0%7CNo Filter|0|0|Steel|end"));
  EXPECT_THAT(Output(),
              HasSubstr(std::string("\n\nSERVER ANSWER FOR NYMCOMPUTEVALUES : ") + kReply + "\n\n"));
  EXPECT_THAT(Output(), Not(HasSubstr("Failed")));
}

TEST_F(Compute, WithoutABufferDoesNothing) {
  Open(SamplePart());
  Panel().SetModel(nullptr);
  Press("ComputeButton");
  EXPECT_TRUE(Server().Requests().empty());
}

TEST_F(Compute, WithoutABufferDoesNotAskForTheCustomAxesEither) {
  Open(SamplePart());
  Check("CustomReferenceButton");  // its axes are all zero
  Panel().SetModel(nullptr);
  Press("ComputeButton");
  EXPECT_TRUE(Boxes().Messages().empty());
}

/// Writes a part of the text before it fails.
class HalfTextBuffer : public LumWBAllDataBuffer {
 public:
  HRESULT GetComputedInfo(KorUnicodeString& text) const override {
    text = "half a text";
    return E_FAIL;
  }
};

TEST_F(Compute, WithHalfOfTheBuffersTextSendsNothingOfIt) {
  auto buffer = LumWBAllDataBuffer_var::Adopt(new HalfTextBuffer);
  ASSERT_EQ(buffer->SetAllData(protocol::WritePartData(SamplePart()), true), S_OK);
  Open(buffer);
  ComputeWith(kReply);
  EXPECT_EQ(Server().Requests()[0].text, "1|P-100|");
}

// ---- the reply ----

TEST_F(Compute, ShowsTheNewValues) {
  Open(SamplePart());
  ComputeWith(kReply);
  EXPECT_EQ(Masses(), "3 kg, 0.1 kg, 0.2 kg");
  EXPECT_EQ(CG(), "500 mm, 0 mm, 0 mm");
  EXPECT_EQ(Moments(), "1 kg·m², 2 kg·m², 3 kg·m²");
  EXPECT_EQ(Products(), "0 kg·m², 0 kg·m², 0 kg·m²");
}

TEST_F(Compute, ShowsTheNewValuesAtTheReferenceWhenThatIsChosen) {
  Open(SamplePart());
  Check("ReferenceButton");
  ComputeWith(kReply);
  EXPECT_EQ(Moments(), "1 kg·m², 2.75 kg·m², 3.75 kg·m²");  // 3 kg · (0.5 m)²
}

TEST_F(Compute, TurnsTheCalculationLampGreenAndLeavesThePersistencyLamp) {
  protocol::PartData part = NotComputed();
  part.persisted = false;
  Open(part);
  EXPECT_TRUE(IsShown("FlagRedLabel[1]"));
  ComputeWith(kReply);
  EXPECT_FALSE(IsShown("FlagRedLabel[1]"));
  EXPECT_TRUE(IsShown("FlagGreenLabel[1]"));
  EXPECT_TRUE(IsShown("FlagRedLabel[2]"));
  EXPECT_FALSE(IsShown("FlagGreenLabel[2]"));
}

TEST_F(Compute, MarksTheBufferComputed) {
  Open(NotComputed());
  ComputeWith(kReply);
  bool computed = false;
  Buffer().GetCalculationUpToDate(computed);
  EXPECT_TRUE(computed);
}

TEST_F(Compute, BringsTheResultsToTheFrontAndLetsTheModesBeChosen) {
  Open(SamplePart());
  PickPage("TabPage004");
  EXPECT_FALSE(IsEnabled("InertiaModeFrame"));
  ComputeWith(kReply);
  EXPECT_EQ(SelectedPage(), "TabPage002");
  EXPECT_TRUE(IsEnabled("InertiaModeFrame"));
  EXPECT_TRUE(IsEnabled("ReferenceModeFrame"));
}

TEST_F(Compute, LetsTheModesBeChosenAlsoWhereNoChangeOfPageDoes) {
  Open(SamplePart());
  for (const char* frame : {"InertiaModeFrame", "ReferenceModeFrame"})
    Widget(frame).SetSensitivity(KorSensitivity::Disabled);  // the results are in front already
  ComputeWith(kReply);
  EXPECT_TRUE(IsEnabled("InertiaModeFrame"));
  EXPECT_TRUE(IsEnabled("ReferenceModeFrame"));
}

TEST_F(Compute, RefreshesThePanelBeforeItMarksTheBufferComputed) {
  auto buffer = ProbeBuffer::Of(NotComputed());
  Open(buffer);
  buffer->calls.clear();
  ComputeWith(kReply);
  const auto refreshed = std::find(buffer->calls.begin(), buffer->calls.end(), "GetMassTypeList");
  const auto marked = std::find(buffer->calls.begin(), buffer->calls.end(), "SetCalculationUpToDate");
  ASSERT_NE(refreshed, buffer->calls.end());
  ASSERT_NE(marked, buffer->calls.end());
  EXPECT_LT(refreshed, marked);
}

TEST_F(Compute, OnAComputedPartWithAnotherActiveMassTypeTheReplyIsNotStoredButThePanelTurnsGreenOnPurpose) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  Open(part);
  Buffer().SetCalculationUpToDate(false);
  Panel().RefreshPanelWithInfo();
  EXPECT_TRUE(IsShown("FlagRedLabel[1]"));
  ComputeWith(kReply);
  EXPECT_EQ(Buffer().GetMass("Computed"), 2.0);
  EXPECT_EQ(Text("MassEditor"), "2 kg");
  EXPECT_TRUE(IsShown("FlagGreenLabel[1]"));
}

TEST_F(Compute, AReplyThatIsNotStoredIsNotReadEitherAndAlsoNoneTurnsThePanelGreenOnPurpose) {
  for (const char* reply : {"whatever it says", ""}) {
    protocol::PartData part = SamplePart();
    part.activeMassType = "Estimated";
    Open(part);
    Buffer().SetCalculationUpToDate(false);
    ComputeWith(reply);
    EXPECT_EQ(Text("MassEditor"), "2 kg");
    EXPECT_TRUE(IsShown("FlagGreenLabel[1]"));
    Close();
  }
}

TEST_F(Compute, OnAPartThatWasNotComputedTheReplyIsStoredWhateverMassTypeIsActive) {
  protocol::PartData part = NotComputed();
  part.activeMassType = "Estimated";
  Open(part);
  ComputeWith(kReply);
  EXPECT_EQ(Buffer().GetMass("Computed"), 3.0);
}

TEST_F(Compute, WhetherThePartWasComputedIsWhatItWasWhenItWasBound) {
  protocol::PartData part = NotComputed();
  part.activeMassType = "Estimated";
  Open(part);
  ComputeWith(kReply);
  ComputeWith("ComputeReply/1|P-100|Computed|1|4|0.5|0|0|1|2|3|0|0|0|0.1|0.2|0|0|0|0|0|0|end");
  EXPECT_EQ(Buffer().GetMass("Computed"), 4.0) << "the second reply is stored too";
}

TEST_F(Compute, KeepsTheInstanceFlagOfTheBuffer) {
  for (const bool hasInstance : {true, false}) {
    protocol::PartData part = SamplePart();
    part.hasInstance = hasInstance;
    Open(part);
    ComputeWith(kReply);
    EXPECT_EQ(Buffer().HasInstInLUMIRA(), hasInstance);
    Close();
  }
}

// ---- warnings ----

TEST_F(Compute, WithoutWarningsShowsNoMessage) {
  Open(SamplePart());
  ComputeWith(kReply);
  EXPECT_EQ(Server().WarningRequestCount(), 1);
  EXPECT_TRUE(Boxes().Messages().empty());
}

TEST_F(Compute, ShowsTheServersWarningsAndGoesOn) {
  Open(SamplePart());
  Server().SetPendingWarnings("PendingWarnings/1|1|1|2 parts have no mass|end");
  Boxes().ExpectMessage(
      {"KorWBNymMainPanel", CatalogueText("WBWarnings001.Title"), "2 parts have no mass", kErrorFlags});
  ComputeWith(kReply);
  EXPECT_EQ(Text("MassEditor"), "3 kg");
  EXPECT_TRUE(IsShown("FlagGreenLabel[1]"));
}

TEST_F(Compute, StoresTheReplyBeforeTheWarningsAndRefreshesThePanelBehindThem) {
  Open(SamplePart());
  Server().SetPendingWarnings("PendingWarnings/1|1|1|2 parts have no mass|end");
  std::string shown;
  double stored = 0;
  Boxes().ExpectMessage(
      {"KorWBNymMainPanel", CatalogueText("WBWarnings001.Title"), "2 parts have no mass", kErrorFlags}, [&] {
        shown = Text("MassEditor");
        stored = Buffer().GetMass("Computed");
      });
  ComputeWith(kReply);
  EXPECT_EQ(shown, "2 kg");
  EXPECT_EQ(stored, 3.0);
  EXPECT_EQ(Text("MassEditor"), "3 kg");
}

TEST_F(Compute, WarningsThatHoldAnErrorAreTitledAsErrors) {
  Open(SamplePart());
  Server().SetPendingWarnings("PendingWarnings/1|2|1|first|2|second|end");
  Boxes().ExpectMessage(
      {"KorWBNymMainPanel", CatalogueText("WBErrors001.Title"), "first\nsecond", kErrorFlags});
  ComputeWith(kReply);
  EXPECT_NE(CatalogueText("WBErrors001.Title"), CatalogueText("WBWarnings001.Title"));
}

// ---- errors of the server ----

TEST_F(Compute, AnErrorIsShownOverTheMainWindowAndNothingChanges) {
  Open(NotComputed());
  PickPage("TabPage003");
  const std::string screen = Screen();
  const std::string data = AllData();
  Boxes().ExpectMessage({KorApplicationFrame::GetMainWindow()->Name(), CatalogueText("ServerError.Title"),
                         "the part \"P-100\" is unknown", kErrorFlags});
  ComputeWith("LumiraError: the part \"P-100\" is unknown");
  EXPECT_EQ(Screen(), screen);
  EXPECT_EQ(AllData(), data);
  EXPECT_THAT(Output(), Not(HasSubstr("SERVER ANSWER")));
  EXPECT_EQ(Server().WarningRequestCount(), 0) << "warnings are fetched behind an accepted reply only";
}

TEST_F(Compute, AReplyThatIsExactlyTheErrorHeaderShowsAnEmptyText) {
  Open(SamplePart());
  Boxes().ExpectMessage(
      {KorApplicationFrame::GetMainWindow()->Name(), CatalogueText("ServerError.Title"), "", kErrorFlags});
  ComputeWith("LumiraError: ");
}

TEST_F(Compute, AnErrorHeaderInTheMiddleCutsTheReplyAtTheHeadersLengthOnPurpose) {
  Open(SamplePart());
  Boxes().ExpectMessage({KorApplicationFrame::GetMainWindow()->Name(), CatalogueText("ServerError.Title"),
                         "1|P-100|LumiraError: cut", kErrorFlags});
  ComputeWith("ComputeReply/1|P-100|LumiraError: cut");
  EXPECT_EQ(Text("MassEditor"), "2 kg");
}

// ---- replies that cannot be read ----

struct Hostile {
  const char* name;
  std::string reply;
  const char* reason;
};
std::ostream& operator<<(std::ostream& out, const Hostile& hostile) { return out << hostile.name; }
class HostileReply : public Compute, public testing::WithParamInterface<Hostile> {};

TEST_P(HostileReply, IsShownWithItsReasonAndNothingChanges) {
  Open(NotComputed());
  PickPage("TabPage003");
  const std::string screen = Screen();
  const std::string data = AllData();
  Boxes().ExpectMessage(
      {"KorWBNymMainPanel", CatalogueText("ServerError.Title"), GetParam().reason, kErrorFlags});
  ComputeWith(GetParam().reply);
  EXPECT_EQ(Screen(), screen);
  EXPECT_EQ(AllData(), data);
  EXPECT_EQ(Server().WarningRequestCount(), 0);
}

const Hostile kHostile[] = {
    {"Empty", "", "ComputeReply: field 1 (form): \"\" is not \"ComputeReply/1\""},
    {"Blank", " ", "ComputeReply: field 1 (form): \" \" is not \"ComputeReply/1\""},
    {"Garbage", "\x01\x02\xff\xfe garbage",
     "ComputeReply: field 1 (form): \"\\x01\\x02\\xFF\\xFE garbage\" is not well-formed UTF-8 at its byte 3"},
    {"Cut", "ComputeReply/1|P-100|Computed|1|3|0.5|0|0|1|2|3|0|0|0|0.1|0.2|0|0|0|0|0|0",
     "ComputeReply: field 23 (end) is missing, the text ends after field 22"},
    {"CutInTheMiddle", "ComputeReply/1|P-100|Computed|1|3|0.5",
     "ComputeReply: field 7 (computed.cg[2]) is missing, the text ends after field 6"},
    {"OfAnotherVersion", "ComputeReply/99|P-100|Computed|1|3|0.5|0|0|1|2|3|0|0|0|0.1|0.2|0|0|0|0|0|0|end",
     "ComputeReply: version \"99\" is not known here, version 1 is"},
    {"OfAnotherForm", "PendingWarnings/1|0|end",
     "ComputeReply: field 1 (form): \"PendingWarnings/1\" is not \"ComputeReply/1\""},
    {"OfAnotherPart", "ComputeReply/1|P-999|Computed|1|3|0.5|0|0|1|2|3|0|0|0|0.1|0.2|0|0|0|0|0|0|end",
     "ComputeReply: field 2 (partId): \"P-999\" is not the part of this buffer, \"P-100\""},
    {"OfAnotherMassType", "ComputeReply/1|P-100|Estimated|1|3|0.5|0|0|1|2|3|0|0|0|0.1|0.2|0|0|0|0|0|0|end",
     "ComputeReply: field 3 (computed.name): \"Estimated\" is not the computed mass type, \"Computed\""},
    {"NotANumber", "ComputeReply/1|P-100|Computed|1|nan|0.5|0|0|1|2|3|0|0|0|0.1|0.2|0|0|0|0|0|0|end",
     "ComputeReply: field 5 (computed.mass): \"nan\" is not a finite number"},
    {"Infinite", "ComputeReply/1|P-100|Computed|1|3|inf|0|0|1|2|3|0|0|0|0.1|0.2|0|0|0|0|0|0|end",
     "ComputeReply: field 6 (computed.cg[1]): \"inf\" is not a finite number"},
    {"WronglyTyped", "ComputeReply/1|P-100|Computed|1|heavy|0.5|0|0|1|2|3|0|0|0|0.1|0.2|0|0|0|0|0|0|end",
     "ComputeReply: field 5 (computed.mass): \"heavy\" is not a finite number"},
    {"WithMoreBehindTheEnd", std::string(kReply) + "|more",
     "ComputeReply: there is more text after field 23 (end)"},
    {"Oversized", std::string(65 * 1024 * 1024, 'x'),
     "ComputeReply: the text has 68157440 bytes, the limit is 67108864"},
};
INSTANTIATE_TEST_SUITE_P(Replies, HostileReply, testing::ValuesIn(kHostile),
                         [](const testing::TestParamInfo<Hostile>& one) { return one.param.name; });

TEST_F(Compute, WithoutAServerTheEmptyReplyIsRefused) {
  Open(SamplePart());
  const std::string screen = Screen();
  KorPdmClient::SetTransport(nullptr);
  Boxes().ExpectMessage({"KorWBNymMainPanel", CatalogueText("ServerError.Title"),
                         "ComputeReply: field 1 (form): \"\" is not \"ComputeReply/1\"", kErrorFlags});
  Press("ComputeButton");
  EXPECT_EQ(Screen(), screen);
}

// ---- the custom frame ----

class ComputeInCustomFrame : public Compute {
 protected:
  /// Chooses the custom frame and types it, then counts the notifications of its editors.
  void OpenWith(const std::array<const char*, 12>& texts) {
    Open(SamplePart());
    Check("CustomReferenceButton");
    TypeCustomFrame(texts);
    for (const char* editor : kCustomFrameEditors)
      Widget(editor).Subscribe(KorEvent::EditorModify,
                               [this, editor](KorCommand*, KorNotification*, KorCommandClientData) {
                                 rewritten.push_back(editor);
                               });
  }
  void ExpectRefusedFrame(std::function<void()> whileShown = {}) {
    Boxes().ExpectMessage({"KorWBNymMainPanel", CatalogueText("KorWBNymMainPanel.CustomModeEmptyValue.Title"),
                           CatalogueText("KorWBNymMainPanel.CustomModeEmptyValue.Message"), kErrorFlags},
                          std::move(whileShown));
  }
  std::vector<std::string> rewritten;
};

TEST_F(ComputeInCustomFrame, WithAxesThatAreAllZeroTheMessageIsShownTheEditorsAreRewrittenAndNothingIsSent) {
  OpenWith({"1.50", "abc", "3", "0", "0.0", "0", "0", "0", "0", "0", "0", "0"});
  ExpectRefusedFrame([this] {
    EXPECT_TRUE(rewritten.empty());
    EXPECT_EQ(Text("CPxEditor"), "1.50");
  });
  Press("ComputeButton");
  EXPECT_TRUE(Server().Requests().empty());
  EXPECT_THAT(rewritten, testing::ElementsAreArray(kCustomFrameEditors));
  EXPECT_EQ(Text("CPxEditor"), "1.5");
  EXPECT_EQ(Text("CPyEditor"), "0");
  EXPECT_EQ(Text("CPzEditor"), "3");
  EXPECT_EQ(Text("XAxisYEditor"), "0");
}

TEST_F(ComputeInCustomFrame, ParallelAxesAreRefused) {
  OpenWith({"0", "0", "0", "1", "0", "0", "2", "0", "0", "0", "0", "1"});
  ExpectRefusedFrame();
  Press("ComputeButton");
  EXPECT_TRUE(Server().Requests().empty());
}

TEST_F(ComputeInCustomFrame, RefusedAxesLeaveTheBufferUnprepared) {
  Open(SamplePart());
  Check("ReferenceButton");
  Check("CustomReferenceButton");
  const std::string data = AllData();
  ExpectRefusedFrame();
  Press("ComputeButton");
  EXPECT_EQ(AllData(), data);
}

TEST_F(ComputeInCustomFrame, AxesThatAreNotOrthonormalButNotSingularAreAccepted) {
  OpenWith({"0", "0", "0", "1", "1", "0", "0", "2", "0", "0", "0", "3"});
  ComputeWith(kReply);
  EXPECT_EQ(Server().Requests().size(), 1u);
  EXPECT_TRUE(rewritten.empty());
}

TEST_F(ComputeInCustomFrame, AxesOfOtherLengthsAreAccepted) {
  OpenWith({"0", "0", "0", "2", "0", "0", "0", "3", "0", "0", "0", "1"});
  ComputeWith(kReply);
  EXPECT_EQ(Server().Requests().size(), 1u);
}

TEST_F(ComputeInCustomFrame, ThePointIsNotRewrittenByReadingIt) {
  OpenWith({"1.50", "0", "0", "1", "0", "0", "0", "1", "0", "0", "0", "1"});
  ComputeWith(kReply);
  EXPECT_EQ(Text("CPxEditor"), "1.50");
}

TEST_F(ComputeInCustomFrame, SingularAxesDoNotMatterInTheOtherModes) {
  OpenWith({"0", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0"});
  Check("RootProductButton");
  ComputeWith(kReply);
  EXPECT_EQ(Server().Requests().size(), 1u);
}

}  // namespace
