#include "tests/module/EditTest.h"
#include "tests/support/TraceCapture.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

/// Three revisions of D-7, of which B is the active one.
protocol::PartData PartWithThreeRevisions() {
  protocol::PartData part = SamplePartWithDocuments();
  part.documents.revisions.push_back({"C", "2024-07-01 09:15:00", "kim", std::nullopt, "", 0});
  return part;
}

class Revisions : public EditTest {
 protected:
  std::string Attribute(int number) {
    return Text("FrameDocAttr.DocAttr1Editor[" + std::to_string(number) + "]");
  }
  std::string Attributes() {
    std::string all;
    for (int i = 1; i <= 5; ++i) all += (i == 1 ? "" : " / ") + Attribute(i);
    return all;
  }
  /// In edit mode on the documents page, with a revision chosen by hand.
  void EditByHand(protocol::PartData part = PartWithThreeRevisions()) {
    part.documents.usedSpecificRevisionBefore = true;
    Edit(part);
    PickPage("TabPageDocuments");
  }
  /// Chooses a revision and presses "Apply", which the server answers.
  void Apply(const std::string& line, const std::string& reply) {
    Server().Expect("WBGetActiveDocInfo", reply);
    Press("ChangeActiveDocButton");
    Pick("ActiveDocsCombo", line);
    Press("ApplyActiveDocButton");
  }
  /// What the server tells of revision A: 7 kg of it were estimated.
  static protocol::PartData RevisionA() {
    protocol::PartData part = PartWithThreeRevisions();
    part.massTypes[1].mass = 7;
    part.massTypes[0].mass = 3;
    part.material.name = "Brass";
    part.documents.activeVersion = "A";
    part.computed = false;
    return part;
  }
  void ExpectChoosing(bool choosing) {
    for (const char* name : {"ActiveDocsCombo", "ApplyActiveDocButton", "CancelActiveDocButton"})
      EXPECT_EQ(IsEnabled(name), choosing) << name;
    for (const char* name : {"ChangeActiveDocButton", "TabPage002", "TabPage003", "TabPage004", "TabPage005",
                             "SaveButton", "ActiveDocLatestButton"})
      EXPECT_EQ(IsEnabled(name), !choosing) << name;
  }
};

// ---- the page ----

TEST_F(Revisions, AreListedWithTheActiveOneFirst) {
  Open(PartWithThreeRevisions());
  EXPECT_THAT(Lines("ActiveDocsCombo"), ElementsAre("D-7 B", "D-7 A", "D-7 C"));
  EXPECT_EQ(SelectedLine("ActiveDocsCombo"), "D-7 B");
  EXPECT_THAT(Lines("DocumentsCombo"), ElementsAre("D-7 A", "D-7 B", "D-7 C"));
}

TEST_F(Revisions, AreListedBehindAnEmptyLineOnceTheAutomaticOneIsChosen) {
  Open(PartWithThreeRevisions());
  Panel().RefreshPanelWithInfo();
  EXPECT_THAT(Lines("ActiveDocsCombo"), ElementsAre("", "D-7 A", "D-7 B", "D-7 C"));
  EXPECT_EQ(SelectedLine("ActiveDocsCombo"), "");
}

TEST_F(Revisions, AreListedBehindAnActiveOneThatTheServerDoesNotList) {
  protocol::PartData part = PartWithThreeRevisions();
  part.documents.activeVersion = "Z";
  Open(part);
  EXPECT_THAT(Lines("ActiveDocsCombo"), ElementsAre("D-7 Z", "D-7 A", "D-7 B", "D-7 C"));
}

TEST_F(Revisions, ShowTheFirstOneAndTheAttachedOne) {
  Open(PartWithThreeRevisions());
  EXPECT_EQ(Attributes(), "2024-05-01 12:30:00 / eva /  / Computed / 2 kg");
  EXPECT_EQ(Text("CurrentlyAttachedDocEditor"), "A");
}

TEST_F(Revisions, AreNotRefreshedWithoutABufferOrThePage) {
  Open(SamplePart());
  EXPECT_EQ(Panel().RefreshDocsTab(), E_FAIL);
  Close();
  Open(PartWithThreeRevisions());
  EXPECT_EQ(Panel().RefreshDocsTab(), S_OK);
  Panel().SetModel(nullptr);
  EXPECT_EQ(Panel().RefreshDocsTab(), E_FAIL);
}

// ---- preview ----

TEST_F(Revisions, CanBeLookedAt) {
  Open(PartWithThreeRevisions());
  PickPage("TabPageDocuments");
  Pick("DocumentsCombo", "D-7 B");
  EXPECT_EQ(Attributes(), "2024-06-01 08:00:00 / jan / eva / Computed, Estimated / 4 kg");
}

TEST_F(Revisions, ThatNobodyHasCheckedOutShowNobody) {
  Open(PartWithThreeRevisions());
  PickPage("TabPageDocuments");
  Pick("DocumentsCombo", "D-7 B");
  Pick("DocumentsCombo", "D-7 C");
  EXPECT_EQ(Attribute(3), "");
}

TEST_F(Revisions, WithAMassOfZeroShowItInTheCurrentUnit) {
  SetUnit("MASS", "GRAM");
  Open(PartWithThreeRevisions());
  PickPage("TabPageDocuments");
  Pick("DocumentsCombo", "D-7 C");
  EXPECT_EQ(Attribute(5), "0 g");
}

TEST_F(Revisions, ThatTheBufferNoLongerHasAreTraced) {
  EditByHand();
  protocol::PartData reply = RevisionA();
  reply.documents.revisions.pop_back();
  Apply("D-7 A", protocol::WritePartData(reply));
  TraceCapture trace("KorWBCompPart");
  const std::string before = Attributes();
  Pick("DocumentsCombo", "D-7 C");
  EXPECT_THAT(
      trace.Text(),
      HasSubstr("GetDocRevsInfo() failed to return the last checkin time in OnDocPreviewValueChange()\n"));
  EXPECT_THAT(trace.Text(), Not(HasSubstr("last checkin user"))) << "the first failure ends the preview";
  EXPECT_EQ(Attributes(), before);
}

// ---- choosing ----

TEST_F(Revisions, AreChosenWithNothingElseToDoMeanwhile) {
  EditByHand();
  ExpectChoosing(false);
  Press("ChangeActiveDocButton");
  ExpectChoosing(true);
}

TEST_F(Revisions, AreNoLongerChosenOnceAnotherPartIsBound) {
  EditByHand();
  Press("ChangeActiveDocButton");
  auto plain = BufferOf(SamplePart());
  Panel().SetModel(plain.Get());
  for (const char* name : {"ActiveDocsCombo", "ApplyActiveDocButton", "CancelActiveDocButton",
                           "ChangeActiveDocButton", "ActiveDocLatestButton", "SaveButton"})
    EXPECT_FALSE(IsEnabled(name)) << name;
  for (const char* name : {"TabPage002", "TabPage003", "TabPage004", "TabPage005", "EditButton"})
    EXPECT_TRUE(IsEnabled(name)) << name;
}

TEST_F(Revisions, AreNoLongerChosenAfterARefreshOfTheWholePanel) {
  EditByHand();
  Press("ChangeActiveDocButton");
  Panel().RefreshPanelWithInfo();
  for (const char* name : {"ActiveDocsCombo", "CancelActiveDocButton", "ChangeActiveDocButton", "SaveButton"})
    EXPECT_FALSE(IsEnabled(name)) << name;
  for (const char* name : {"TabPage002", "TabPage005", "EditButton"}) EXPECT_TRUE(IsEnabled(name)) << name;
}

TEST_F(Revisions, AfterCancelKeepTheChangedSelectionButNotTheSensitivities) {
  EditByHand();
  Press("ChangeActiveDocButton");
  Pick("ActiveDocsCombo", "D-7 C");
  Press("CancelActiveDocButton");
  ExpectChoosing(false);
  EXPECT_EQ(SelectedLine("ActiveDocsCombo"), "D-7 C");
}

TEST_F(Revisions, ThatAreActiveAlreadyAreNotAskedFor) {
  EditByHand();
  Press("ChangeActiveDocButton");
  Pick("ActiveDocsCombo", "D-7 B");
  Press("ApplyActiveDocButton");
  ExpectChoosing(false);
  EXPECT_THAT(Server().Requests(), testing::IsEmpty());
}

TEST_F(Revisions, AreAskedForByDocumentAndRevision) {
  EditByHand();
  Apply("D-7 A", protocol::WritePartData(RevisionA()));
  EXPECT_EQ(Server().Requests().back(), (ScriptedServer::Request{"WBGetActiveDocInfo", "D-7|A"}));
  ExpectChoosing(false);
}

TEST_F(Revisions, ShowTheirValuesOnTheOtherPages) {
  EditByHand();
  Apply("D-7 A", protocol::WritePartData(RevisionA()));
  EXPECT_EQ(Text("MassEditor"), "3 kg");
  EXPECT_EQ(Text("WBMaterialEditor"), "Brass");
  PickPage("TabPage003");
  Pick("MassTypeCombo", "Estimated");
  EXPECT_EQ(Text("MTMassEditor"), "7 kg");
}

TEST_F(Revisions, ShowTheirMassTypesAndPrecisionWithoutAnotherChoice) {
  protocol::PartData revision = RevisionA();
  revision.massTypes[0].precisionType = 1;
  revision.massTypes[0].upperPrecision = 0.5;
  EditByHand();
  Apply("D-7 A", protocol::WritePartData(revision));
  EXPECT_EQ(Text("MTMassEditor"), "3 kg");
  EXPECT_EQ(SelectedLine("TypeCombo"), "User Defined");
  EXPECT_EQ(Text("UpperValueEditor"), "50%");
}

TEST_F(Revisions, GoOnBelongingToTheDocumentWhateverIdTheAnswerNames) {
  protocol::PartData revision = RevisionA();
  revision.documents.activeId = "D-8";
  EditByHand();
  Apply("D-7 A", protocol::WritePartData(revision));
  Apply("D-7 C", protocol::WritePartData(revision));
  EXPECT_EQ(Server().Requests().back().text, "D-7|C");
}

TEST_F(Revisions, AfterALoadThatFailedAreAskedForWithoutARevisionOnPurpose) {
  EditByHand();
  Apply("D-7 A", "");
  Server().Expect("WBGetActiveDocInfo", "");
  Press("ChangeActiveDocButton");
  Press("ApplyActiveDocButton");
  EXPECT_EQ(Server().Requests().back().text, "D-7|");
}

TEST_F(Revisions, DoNotChangeWhetherTheComputedValuesAreUpToDate) {
  EditByHand();
  Apply("D-7 A", protocol::WritePartData(RevisionA()));
  bool upToDate = false;
  Buffer().GetCalculationUpToDate(upToDate);
  EXPECT_TRUE(upToDate);
}

TEST_F(Revisions, KeepWhatTheSelectionDecides) {
  protocol::PartData other = RevisionA();
  other.instancePath = "elsewhere";
  EditByHand();
  Apply("D-7 A", protocol::WritePartData(other));
  KorUnicodeString path;
  Buffer().GetInstancePath(path);
  EXPECT_EQ(path, "R.1|P-100.1");
}

TEST_F(Revisions, OnceLoadedAreTheActiveOneAndNotAskedForAgain) {
  EditByHand();
  Apply("D-7 A", protocol::WritePartData(RevisionA()));
  Press("ChangeActiveDocButton");
  Press("ApplyActiveDocButton");
  EXPECT_EQ(Server().Requests().size(), 1u);
  EXPECT_THAT(Lines("ActiveDocsCombo"), ElementsAre("D-7 B", "D-7 A", "D-7 C"))
      << "the page is not refreshed";
}

TEST_F(Revisions, ThatCannotBeLoadedLeaveTheBufferAndShowAnErrorAsTheOnlyLine) {
  protocol::PartData otherPart = RevisionA();
  otherPart.partId = "P-200";
  const std::string whole = protocol::WritePartData(RevisionA());
  for (const std::string& reply : {std::string(), std::string("LumiraError: revision A has vanished"),
                                   whole.substr(0, whole.size() / 2), protocol::WritePartData(otherPart)}) {
    EditByHand();
    KorUnicodeString before, after;
    Buffer().GetAllData(before);
    TraceCapture trace("KorWBCompPart");
    Apply("D-7 A", reply);
    Buffer().GetAllData(after);
    EXPECT_EQ(after, before);
    EXPECT_THAT(Lines("ActiveDocsCombo"), ElementsAre("ERROR!"));
    EXPECT_THAT(trace.Text(),
                HasSubstr("An error occurred while attempting to overwrite data in the buffer\n"));
    ExpectChoosing(false);
    Close();
  }
}

TEST_F(Revisions, ThatCannotBeSplitAreTracedAndNotAskedFor) {
  EditByHand();
  Press("ChangeActiveDocButton");
  protocol::PartData none = PartWithThreeRevisions();
  none.documents.revisions.clear();
  Buffer().SetAllData(protocol::WritePartData(none), true);
  TraceCapture trace("KorWBCompPart");
  Press("ApplyActiveDocButton");
  EXPECT_THAT(trace.Text(),
              HasSubstr("GetActiveDocSelection() failed within OnApplyActiveDocNotification()\n"));
  EXPECT_THAT(Server().Requests(), testing::IsEmpty());
  ExpectChoosing(false);
}

// ---- automatic or by hand ----

TEST_F(Revisions, AutomaticAppendsOneEmptyLineAndByHandTakesEveryEmptyLineAwayAgain) {
  EditByHand();
  Check("ActiveDocLatestButton");
  EXPECT_THAT(Lines("ActiveDocsCombo"), ElementsAre("D-7 B", "D-7 A", "D-7 C", ""));
  EXPECT_EQ(As<KorDlgCombo>("ActiveDocsCombo").GetSelect(), 3);
  EXPECT_FALSE(IsEnabled("ChangeActiveDocButton"));
  Check("ActiveDocUsrSelButton");
  EXPECT_THAT(Lines("ActiveDocsCombo"), ElementsAre("D-7 B", "D-7 A", "D-7 C"));
  EXPECT_EQ(SelectedLine("ActiveDocsCombo"), "D-7 B");
  EXPECT_TRUE(IsEnabled("ChangeActiveDocButton"));
}

TEST_F(Revisions, AutomaticOverAndOverKeepsOneEmptyLineAtTheEnd) {
  Open(PartWithThreeRevisions());
  for (int i = 0; i < 3; ++i) {
    Press("EditButton");
    Save();
  }
  Press("EditButton");
  EXPECT_THAT(Lines("ActiveDocsCombo"), ElementsAre("D-7 B", "D-7 A", "D-7 C", ""));
  PickPage("TabPageDocuments");
  Check("ActiveDocUsrSelButton");
  EXPECT_THAT(Lines("ActiveDocsCombo"), ElementsAre("D-7 B", "D-7 A", "D-7 C"));
}

TEST_F(Revisions, ByHandTakesTheEmptyLinesAtBothEndsAway) {
  Open(PartWithThreeRevisions());
  Panel().RefreshPanelWithInfo();
  Press("EditButton");
  EXPECT_THAT(Lines("ActiveDocsCombo"), ElementsAre("", "D-7 A", "D-7 B", "D-7 C", ""));
  PickPage("TabPageDocuments");
  Check("ActiveDocUsrSelButton");
  EXPECT_THAT(Lines("ActiveDocsCombo"), ElementsAre("D-7 A", "D-7 B", "D-7 C"));
  EXPECT_EQ(SelectedLine("ActiveDocsCombo"), "D-7 B") << "the active one, not the last one";
}

TEST_F(Revisions, ByHandAfterAnAutomaticSaveSelectsTheActiveOneAndNoneThatNobodyPicked) {
  Edit(PartWithThreeRevisions());
  Save();
  Press("EditButton");
  PickPage("TabPageDocuments");
  Check("ActiveDocUsrSelButton");
  EXPECT_EQ(SelectedLine("ActiveDocsCombo"), "D-7 B");
  const protocol::PartData sent = Save();
  EXPECT_EQ(sent.documents.activeVersion, "B");
  EXPECT_TRUE(sent.computed);
}

TEST_F(Revisions, ChosenByHandOutsideEditModeCannotBeChanged) {
  Open(PartWithThreeRevisions());
  PickPage("TabPageDocuments");
  Widget("ActiveDocUsrSelButton").SetSensitivity(KorSensitivity::Enabled);  // no user gets there
  Check("ActiveDocUsrSelButton");
  EXPECT_FALSE(IsEnabled("ChangeActiveDocButton"));
}

TEST_F(Revisions, ByHandSelectsTheLineOfTheLastSave) {
  EditByHand();
  Press("ChangeActiveDocButton");
  Pick("ActiveDocsCombo", "D-7 C");
  Press("CancelActiveDocButton");
  Save();
  Press("EditButton");
  Check("ActiveDocLatestButton");
  Check("ActiveDocUsrSelButton");
  EXPECT_EQ(SelectedLine("ActiveDocsCombo"), "D-7 C");
}

// ---- the selection ----

TEST_F(Revisions, OfTheSelectionAreSplitIntoDocumentAndRevision) {
  EditByHand();
  Press("ChangeActiveDocButton");
  Pick("ActiveDocsCombo", "D-7 C");
  KorUnicodeString id, revision;
  EXPECT_EQ(Panel().GetActiveDocSelection(id, revision), S_OK);
  EXPECT_EQ(id, "D-7");
  EXPECT_EQ(revision, "C");
}

TEST_F(Revisions, OfASelectionThatMatchesNoneAreLeftUnsetWithSuccessOnPurpose) {
  Edit(PartWithThreeRevisions());  // the empty line is selected
  KorUnicodeString id, revision = "before";
  EXPECT_EQ(Panel().GetActiveDocSelection(id, revision), S_OK);
  EXPECT_EQ(id, "D-7");
  EXPECT_EQ(revision, "before");
}

TEST_F(Revisions, CannotBeSelectedWithoutABufferOrRevisions) {
  Open(SamplePart());
  KorUnicodeString id, revision;
  EXPECT_EQ(Panel().GetActiveDocSelection(id, revision), E_FAIL) << "no revisions";
  Panel().SetModel(nullptr);
  TraceCapture trace("KorWBCompPart");
  EXPECT_EQ(Panel().GetActiveDocSelection(id, revision), E_FAIL);
  EXPECT_THAT(trace.Text(), HasSubstr("_dataBuffer is null here\n"));
}

// ---- what is the part's own ----

TEST_F(Revisions, LeaveTheStateThatTheNextSaveStandsOnSoThatItFindsWhatOthersHaveSaved) {
  protocol::PartData part = PartWithThreeRevisions();
  part.stateToken = "7";
  protocol::PartData revision = RevisionA();
  revision.stateToken = "8";
  revision.standardPart = true;  // what somebody has saved since the part was read
  EditByHand(part);
  Apply("D-7 A", protocol::WritePartData(revision));
  const protocol::PartData sent = Save();
  EXPECT_EQ(sent.stateToken, "7");
  EXPECT_FALSE(sent.standardPart);
}

TEST_F(Revisions, LeavePropertiesThatWereTyped) {
  protocol::PartData part = PartWithThreeRevisions();
  part.propertiesRequested = true;
  part.properties = {{"Finish", "painted", 3, false, false, ""}, {"Count", "12", 1, false, false, ""}};
  protocol::PartData revision = part;
  revision.documents.activeVersion = "A";
  EditByHand(part);
  PickPage("TabPageAdditional");
  Pick("PropertyNameCombo", "Count");
  Type("PropertyValueEditor", "13");
  Pick("PropertyNameCombo", "Finish");
  Type("PropertyValueEditor", "zinc");
  PickPage("TabPageDocuments");
  Apply("D-7 A", protocol::WritePartData(revision));
  const protocol::PartData sent = Save();
  EXPECT_EQ(sent.properties[0].value, "zinc");
  EXPECT_EQ(sent.properties[1].value, "13");
}

TEST_F(Revisions, LeaveTheStandardPartThatWasChecked) {
  EditByHand();
  Toggle("StdPartCheckButton");
  Apply("D-7 A", protocol::WritePartData(RevisionA()));
  EXPECT_TRUE(IsChecked("StdPartCheckButton"));
  EXPECT_TRUE(Buffer().IsStandatadPart());
  EXPECT_TRUE(Save().standardPart);
}

}  // namespace
