// The active document in a save.

#include "framework/dialog/KorDlgRadioButton.h"
#include "tests/module/EditTest.h"

namespace {

class DocumentSave : public EditTest {
 protected:
  /// Edits the part on its documents page, where a revision was chosen by hand before.
  void EditDocuments() {
    _part.documents.usedSpecificRevisionBefore = true;
    Edit(_part);
    PickPage("TabPageDocuments");
  }
  protocol::PartData _part = SamplePartWithDocuments();
};

TEST_F(DocumentSave, WithoutRevisionsTellsOfNoActiveDocument) {
  Edit(SamplePart());
  const protocol::PartData sent = Save();
  EXPECT_EQ(sent.documents.activeId, "__null__");
  EXPECT_EQ(sent.documents.activeVersion, "__null__");
}

TEST_F(DocumentSave, OfDocumentsWithoutRevisionsTellsOfNoActiveDocument) {
  _part.documents.revisions.clear();
  Edit(_part);
  const protocol::PartData sent = Save();
  EXPECT_EQ(sent.documents.activeId, "__null__");
  EXPECT_EQ(sent.documents.activeVersion, "__null__");
}

TEST_F(DocumentSave, AfterALoadThatFailedMakesTheActiveDocumentAutomatic) {
  EditDocuments();
  Server().Expect("WBGetActiveDocInfo", "");
  Press("ChangeActiveDocButton");
  Pick("ActiveDocsCombo", "D-7 A");
  Press("ApplyActiveDocButton");
  EXPECT_EQ(Save().documents.activeVersion, "");
  Panel().RefreshPanelWithInfo();
  EXPECT_TRUE(IsChecked("ActiveDocLatestButton"));
  EXPECT_EQ(Text("Act"), "Automatic revision: latest");
}

TEST_F(DocumentSave, InAutomaticModeAfterALookAtAnotherRevisionKnowsTheStoredOneAgain) {
  EditDocuments();
  protocol::PartData other = _part;
  other.documents.activeVersion = "A";
  Server().Expect("WBGetActiveDocInfo", protocol::WritePartData(other));
  Press("ChangeActiveDocButton");
  Pick("ActiveDocsCombo", "D-7 A");
  Press("ApplyActiveDocButton");
  Check("ActiveDocLatestButton");
  Save();
  Panel().RefreshPanelWithInfo();
  Press("EditButton");
  Check("ActiveDocUsrSelButton");
  EXPECT_EQ(SelectedLine("ActiveDocsCombo"), "D-7 B");
}

TEST_F(DocumentSave, OfARevisionChosenByHandStoresAndShowsIt) {
  EditDocuments();
  Press("ChangeActiveDocButton");
  Pick("ActiveDocsCombo", "D-7 A");
  Press("CancelActiveDocButton");
  const protocol::PartData sent = Save();
  EXPECT_EQ(sent.documents.activeId, "D-7");
  EXPECT_EQ(sent.documents.activeVersion, "A");
  EXPECT_EQ(Text("Act"), "D-7 A");
  ExpectEnabled({"ChangeActiveDocButton", "ActiveDocLatestButton", "ActiveDocUsrSelButton"}, false);
}

TEST_F(DocumentSave, OfTheAutomaticRevisionStoresNothingAndShowsTheMode) {
  Edit(_part);
  const protocol::PartData sent = Save();
  EXPECT_EQ(sent.documents.activeId, "__null__");
  EXPECT_EQ(sent.documents.activeVersion, "__null__");
  EXPECT_EQ(Text("Act"), "Automatic revision: latest");
}

TEST_F(DocumentSave, InAutomaticModeWithALineSelectedLeavesTheDocumentAsItIs) {
  Edit(_part);
  As<KorDlgCombo>("ActiveDocsCombo").SetSelect(KorUnicodeString("D-7 A"));  // no user gets there
  const protocol::PartData sent = Save();
  EXPECT_EQ(sent.documents.activeId, "D-7");
  EXPECT_EQ(sent.documents.activeVersion, "B");
}

TEST_F(DocumentSave, WithNeitherModeChosenStoresAnError) {
  Edit(_part);
  As<KorDlgRadioButton>("ActiveDocLatestButton").SetState(KorCheckState::Unchecked);  // no user gets there
  const protocol::PartData sent = Save();
  EXPECT_EQ(sent.documents.activeId, "ERROR!");
  EXPECT_EQ(sent.documents.activeVersion, "ERROR!");
  EXPECT_EQ(Text("Act"), "ERROR");
}

TEST_F(DocumentSave, OfALineThatIsNoRevisionStoresTheDocumentWithoutOne) {
  EditDocuments();
  As<KorDlgCombo>("ActiveDocsCombo").ClearLines();
  const protocol::PartData sent = Save();
  EXPECT_EQ(sent.documents.activeId, "D-7");
  EXPECT_EQ(sent.documents.activeVersion, "");
}

TEST_F(DocumentSave, InAutomaticModeKnowsTheDocumentAgainOnceItIsStored) {
  Edit(_part);
  Save();
  KorUnicodeString id, version;
  Buffer().GetActiveDocId(id);
  Buffer().GetActiveDocVersion(version);
  EXPECT_EQ(id + " " + version, "D-7 B");
}

TEST_F(DocumentSave, OfARevisionChosenByHandStaysChosenByHandAtTheNextRefresh) {
  Edit(_part);
  PickPage("TabPageDocuments");
  Check("ActiveDocUsrSelButton");
  Press("ChangeActiveDocButton");
  Pick("ActiveDocsCombo", "D-7 A");
  Press("CancelActiveDocButton");
  Save();
  Panel().RefreshPanelWithInfo();
  EXPECT_TRUE(IsChecked("ActiveDocUsrSelButton"));
  EXPECT_EQ(Text("Act"), "D-7 A");
}

// The mark that goes with it tells the server that the same revision was chosen by hand.
TEST_F(DocumentSave, OfTheRevisionThatIsActiveAnywayIsAChoiceByHandAtTheNextRefresh) {
  Edit(_part);
  PickPage("TabPageDocuments");
  Check("ActiveDocUsrSelButton");
  Save();
  Panel().RefreshPanelWithInfo();
  EXPECT_TRUE(IsChecked("ActiveDocUsrSelButton"));
}

TEST_F(DocumentSave, OnAPanelWithoutTheDocumentsPageLeavesTheDocumentAsItIs) {
  Open(SamplePart());
  auto documents = BufferOf(_part);
  Panel().SetModel(documents.Get());
  Press("EditButton");
  EXPECT_EQ(Save().documents.activeId, "D-7");
}

TEST_F(DocumentSave, OfTheAutomaticRevisionAfterOneChosenByHandShowsTheMode) {
  EditDocuments();
  ASSERT_EQ(Text("Act"), "D-7 B");
  Check("ActiveDocLatestButton");
  Save();
  EXPECT_EQ(Text("Act"), "Automatic revision: latest");
}

}  // namespace
