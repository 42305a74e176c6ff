#include "framework/dialog/KorMsgCatalog.h"
#include "framework/pdm/KorPdmClient.h"
#include "tests/module/EditTest.h"
#include "tests/support/TemporaryCatalogues.h"

namespace {

using testing::HasSubstr;

/// A save that does not come to its good end, and one of what cannot be read.
class SaveFailures : public EditTest {
 protected:
  std::string AllData() {
    KorUnicodeString text;
    Buffer().GetAllData(text);
    return text.Utf8();
  }
  void ExpectUnreadableReply(const char* reason) {
    const KorUnicodeString parameter(reason);
    Boxes().ExpectMessage(
        {"MainWindow", CatalogueText("ServerError.Title"),
         KorMsgCatalog::BuildMessage("KorWBNymMainPanel", "SaveReplyNotRead.Message", &parameter, 1).Utf8(),
         kErrorFlags});
  }
  /// The panel can be edited and saved again, and the server is sent what was typed.
  void ExpectThatASecondSaveWorks() {
    Press("EditButton");
    PickPage("TabPage003");
    EXPECT_EQ(TypeOf(Save(), "Estimated").mass, 9);
  }
};

TEST_F(SaveFailures, AnErrorOfTheServerIsShownAndLeavesThePanelOutOfEditMode) {
  protocol::PartData part = SamplePart();
  part.stateToken = "7";
  Edit(part);
  Type("MTMassEditor", "9");
  Boxes().ExpectMessage({"MainWindow", CatalogueText("ServerError.Title"), "eva has saved it", kErrorFlags});
  Save("LumiraError: eva has saved it");
  EXPECT_FALSE(IsEnabled("SaveButton"));
  EXPECT_FALSE(IsEnabled("MTMassEditor"));
  EXPECT_FALSE(IsEnabled("ComputeButton")) << "as edit mode left it";
  EXPECT_TRUE(IsEnabled("EditButton"));
  EXPECT_EQ(Buffer().GetMass("Estimated"), 9);
  EXPECT_EQ(Sent().stateToken, "7");
  ExpectThatASecondSaveWorks();
  EXPECT_EQ(Sent().stateToken, "7") << "nothing was stored in between";
}

TEST_F(SaveFailures, AnErrorHeaderInTheMiddleCutsTheReplyAtItsLength) {
  Edit(SamplePart());
  Boxes().ExpectMessage(
      {"MainWindow", CatalogueText("ServerError.Title"), "90abcLumiraError: no", kErrorFlags});
  Save("123456789012390abcLumiraError: no");
}

struct BadReply {
  const char* name;
  const char* text;
  const char* reason;
};
class UnreadableReplies : public SaveFailures, public testing::WithParamInterface<BadReply> {};

TEST_P(UnreadableReplies, AreToldOfAndLeaveTheBufferAsItWasSent) {
  protocol::PartData part = SamplePart();
  part.stateToken = "7";
  Edit(part);
  Type("MTMassEditor", "9");
  ExpectUnreadableReply(GetParam().reason);
  Save(GetParam().text);
  EXPECT_EQ(AllData(), Server().Requests().back().text);
  EXPECT_TRUE(IsEnabled("ComputeButton")) << "what is no error counts as saved";
  ExpectThatASecondSaveWorks();
}
INSTANTIATE_TEST_SUITE_P(
    Kinds, UnreadableReplies,
    testing::Values(BadReply{"NoAnswer", "", "SaveReply: field 1 (form): \"\" is not \"SaveReply/1\""},
                    BadReply{"CutShort", "SaveReply/1|P-100|8",
                             "SaveReply: field 4 (end) is missing, the text ends after field 3"},
                    BadReply{"OtherForm", "ComputeReply/1|P-100|end",
                             "SaveReply: field 1 (form): \"ComputeReply/1\" is not \"SaveReply/1\""},
                    BadReply{
                        "OtherPart", "SaveReply/1|P-200|8|end",
                        "SaveReply: field 2 (partId): \"P-200\" is not the part of this buffer, \"P-100\""}),
    [](const auto& one) { return one.param.name; });

TEST_F(SaveFailures, WithoutAServerAreToldOf) {
  Edit(SamplePart());
  KorPdmClient::SetTransport(nullptr);
  ExpectUnreadableReply("SaveReply: field 1 (form): \"\" is not \"SaveReply/1\"");
  Press("SaveButton");
  KorPdmClient::SetTransport(&Server());
  EXPECT_TRUE(IsEnabled("EditButton"));
}

// ---- what is typed ----

TEST_F(SaveFailures, AMassThatIsNoNumberKeepsTheStoredValuesAndTheSaveGoesOn) {
  Edit(SamplePart());
  Type("MTMassEditor", "heavy");
  Type("MTCGxEditor", "50");
  const protocol::PartData sent = Save();
  EXPECT_EQ(TypeOf(sent, "Estimated").mass, 4);
  EXPECT_EQ(TypeOf(sent, "Estimated").cg, (protocol::Vector{1, 0, 0}));
}

TEST_F(SaveFailures, AMassThatIsNoNumberKeepsTheStandardPartFlagAsItWas) {
  Edit(SamplePart());
  Type("MTMassEditor", "heavy");
  Buffer().SetStandardPart(true);
  EXPECT_TRUE(Save().standardPart) << "the check button says no";
}

TEST_F(SaveFailures, ACentreOrInertiaThatIsNoNumberIsStoredAsZero) {
  Edit(SamplePart());
  Type("MTCGxEditor", "left");
  Type("MTIyyEditor", "");
  const protocol::MassType sent = TypeOf(Save(), "Estimated");
  EXPECT_EQ(sent.cg, (protocol::Vector{0, 0, 0}));
  EXPECT_EQ(sent.inertia, (protocol::Tensor{5, 0, 7, 0, 0, 0}));
}

TEST_F(SaveFailures, ADensityThatIsNoNumberIsNotDefined) {
  Edit(SamplePart());
  PickPage("TabPage004");
  Type("DensityEditor", "dense");
  EXPECT_EQ(Save().material.density, std::nullopt);
}

TEST_F(SaveFailures, ADensityThatIsNoNumberOfAPartWithoutAnInstanceStopsTheSaveOnPurpose) {
  protocol::PartData part = SamplePart();
  part.hasInstance = false;
  Edit(part);
  PickPage("TabPage004");
  Type("DensityEditor", "dense");
  Boxes().ExpectMessage(
      {"MainWindow", CatalogueText("DensityZero.Title"), CatalogueText("DensityZero.Message"), kErrorFlags});
  Press("SaveButton");
  EXPECT_THAT(Server().Requests(), testing::IsEmpty());
  EXPECT_TRUE(IsEnabled("SaveButton"));
  EXPECT_FALSE(Buffer().IsDensityDefined());
}

TEST_F(SaveFailures, AMassThatIsNoNumberOfAStandardPartStoresItsOriginAllTheSame) {
  protocol::PartData part = SamplePart();
  part.standardPart = true;
  Edit(part);
  Type("MTMassEditor", "heavy");
  const protocol::MassType sent = TypeOf(Save(), "Estimated");
  EXPECT_EQ(sent.mass, 4);
  EXPECT_EQ(sent.cg, (protocol::Vector{0, 0, 0}));
  EXPECT_EQ(sent.inertia, (protocol::Tensor{0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(Text("MTCGxEditor") + MTMoments(), "......, ..., ...");
}

TEST_F(SaveFailures, WithoutACatalogueWarnOfAnEmptyMaterialWithADefaultText) {
  TemporaryCatalogues empty;
  protocol::PartData part = SamplePart();
  part.hasInstance = false;
  part.material.name = "";
  Edit(part);
  Boxes().ExpectMessage({"KorWBNymMainPanel", "", "--Empty Material field--", kErrorFlags});
  Save();
}

// ---- the document that the buffer holds after it ----

class SaveFailuresOfDocuments : public SaveFailures {
 protected:
  void SaveRefused(const protocol::PartData& part) {
    Edit(part);
    Boxes().ExpectMessage({"MainWindow", CatalogueText("ServerError.Title"), "no", kErrorFlags});
    Save("LumiraError: no");
  }
  std::string ActiveDocument() {
    KorUnicodeString id, version;
    Buffer().GetActiveDocId(id);
    Buffer().GetActiveDocVersion(version);
    return (id + " " + version).Utf8();
  }
};

TEST_F(SaveFailuresOfDocuments, InAutomaticModeLeaveNoDocumentForTheNextRefreshOnPurpose) {
  SaveRefused(SamplePartWithDocuments());
  EXPECT_EQ(ActiveDocument(), "__null__ __null__");
  Panel().RefreshPanelWithInfo();
  EXPECT_THAT(Lines("ActiveDocsCombo"), testing::ElementsAre("", "__null__ A", "__null__ B"));
  EXPECT_EQ(Text("Act"), "Automatic revision: latest");
}

TEST_F(SaveFailuresOfDocuments, OfAnAnswerThatCannotBeReadLeaveNoDocumentOnPurpose) {
  Edit(SamplePartWithDocuments());
  ExpectUnreadableReply("SaveReply: field 1 (form): \"\" is not \"SaveReply/1\"");
  Save("");
  EXPECT_EQ(ActiveDocument(), "__null__ __null__");
}

TEST_F(SaveFailuresOfDocuments, OfAPartWithoutADocumentShowTheAutomaticModeForItOnPurpose) {
  protocol::PartData part = SamplePartWithDocuments();
  part.documents.activeId = "0";
  part.documents.revisions.clear();
  SaveRefused(part);
  EXPECT_EQ(Text("Act"), "NONE");
  Panel().RefreshPanelWithInfo();
  EXPECT_EQ(Text("Act"), "Automatic revision: latest");
  EXPECT_TRUE(IsEnabled("TabPageDocuments"));
}

TEST_F(SaveFailuresOfDocuments, AreMadeGoodByTheNextSaveThatSucceeds) {
  SaveRefused(SamplePartWithDocuments());
  Press("EditButton");
  Save();
  EXPECT_EQ(ActiveDocument(), "D-7 B");
}

// ---- numbers ----

TEST_F(SaveFailures, NumbersThatAreNotFiniteAreNoNumbers) {
  SetUnit("MASS", "TONNE");
  for (const char* mass : {"1e400", "inf", "nan", "1e307"}) {  // the last one in kilograms
    Edit(SamplePart());
    Type("MTMassEditor", mass);
    Type("MTIxxEditor", "-1e999");
    EXPECT_EQ(TypeOf(Save(), "Estimated").mass, 4) << mass;
    Close();
  }
}

TEST_F(SaveFailures, NamesWithTheSeparatorOrTheErrorHeaderInThemComeThrough) {
  Edit(SamplePart());
  PickPage("TabPage004");
  Type("WBMaterialEditor", "a|b%7C|end|LumiraError: __null__");
  EXPECT_EQ(Save().material.name, "a|b%7C|end|LumiraError: __null__");
}

TEST_F(SaveFailures, AFiveMegabyteTextIsSentAndTheServersRefusalShown) {
  const std::string huge(5'000'000, 'x');
  Edit(SamplePart());
  PickPage("TabPage004");
  Type("WBMaterialEditor", huge);
  Server().Expect("WBSaveNymValues", "LumiraError: too long");
  Boxes().ExpectMessage({"MainWindow", CatalogueText("ServerError.Title"), "too long", kErrorFlags});
  Press("SaveButton");
  EXPECT_THAT(Server().Requests().back().text, HasSubstr("|" + huge + "|"));
  Press("EditButton");
  Type("WBMaterialEditor", "Brass");
  EXPECT_EQ(Save().material.name, "Brass");
}

TEST_F(SaveFailures, DoNothingWithoutABuffer) {
  Edit(SamplePart());
  Panel().SetModel(nullptr);
  Press("SaveButton");
  EXPECT_TRUE(IsEnabled("SaveButton"));
}

}  // namespace
