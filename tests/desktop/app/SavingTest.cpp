// What a save changes on the screen, and that nothing typed is lost without a question.
#include <QFile>
#include <QStatusBar>
#include <QTreeView>

#include "desktop/app/SelectionPane.h"
#include "framework/knowledge/KorUnitSystems.h"
#include "protocol/Codec.h"
#include "tests/desktop/app/EditingHarness.h"
#include "tests/desktop/app/ScriptedTransport.h"

namespace desktop::test {
namespace {

class SavingTest : public EditingTest {
 protected:
  std::string PaneMass() { return window.Selection().ActiveText("Selection.Mass").toStdString(); }
};

TEST_F(SavingTest, ASaveMakesEveryAncestorOutOfDateInTheTree) {
  const std::vector<std::string> aboveYaw{"nacelle.1", "Above_yaw.1"};
  for (const std::vector<std::string>& path : {{}, {"nacelle.1"}, aboveYaw}) ComputeAt(path);
  OpenPanelOnBedplate();
  ASSERT_EQ(StatusAt({}), "up to date");
  EditMass("43000");
  Save();
  for (const std::vector<std::string>& path : {{}, {"nacelle.1"}, aboveYaw})
    EXPECT_EQ(StatusAt(path), "out of date") << path.size();
}

TEST_F(SavingTest, ASaveShowsTheNewValuesInTheSelectionPane) {
  EditMass("43000");
  EXPECT_EQ(PaneMass(), "42274.27441 kg");
  Save();
  EXPECT_EQ(PaneMass(), "43000 kg");
  EXPECT_TRUE(boxes.Messages().empty());
  EXPECT_FALSE(IsEditing());
}

TEST_F(SavingTest, TheStatusBarSaysThatTheServerSaves) {
  QString said;
  KorPdmTransport* real = KorPdmClient::GetTransport();
  ScriptedTransport server;
  server.answer = [&](const std::string& command, const std::string& request) {
    if (command == "WBSaveNymValues") said = window.statusBar()->currentMessage();
    return real->Run(command, request);
  };
  EditMass("43000");
  Save();
  EXPECT_EQ(said, "The server saves\u2026");
  EXPECT_EQ(window.statusBar()->currentMessage(), "");
}

TEST_F(SavingTest, AnErrorReplyChangesNothingButThePanelsOwnMessage) {
  ComputeAt({"nacelle.1", "Above_yaw.1"});
  OpenPanelOnBedplate();
  ScriptedTransport server;
  server.AnswerOnly("WBSaveNymValues", protocol::ErrorReply("the disk is full"));
  EditMass("43000");
  server.commands.clear();
  Save();
  EXPECT_EQ(OnlyMessage(), "the disk is full");
  EXPECT_EQ(server.commands, std::vector<std::string>{"WBSaveNymValues"});
  EXPECT_EQ(PaneMass(), "42274.27441 kg");
  EXPECT_EQ(StatusAt({"nacelle.1", "Above_yaw.1"}), "up to date");
}

class DeadServerTest : public SavingTest, public testing::WithParamInterface<const char*> {};

TEST_P(DeadServerTest, LeavesThePanelUsableAndTheNextSaveStoresWhatWasTyped) {
  {
    ScriptedTransport server;
    server.AnswerOnly("WBSaveNymValues", GetParam());
    EditMass("43000");
    Save();
    EXPECT_EQ(boxes.Messages().size(), 1u);
    EXPECT_EQ(PaneMass(), "42274.27441 kg");
  }
  ASSERT_TRUE(window.PartPanel().IsOpen());
  EXPECT_TRUE(window.PartPanel().HasUnsavedValues());
  EXPECT_EQ(TextOf(kMass), "43000 kg");
  ASSERT_TRUE(Press("EditButton"));
  Save();
  EXPECT_EQ(PaneMass(), "43000 kg");
  EXPECT_FALSE(window.PartPanel().HasUnsavedValues());
}

INSTANTIATE_TEST_SUITE_P(LastWords, DeadServerTest,
                         testing::Values("", "LumiraError: the server does not answer",
                                         "SaveReply/1|bedplate|8",         // cut short
                                         "ComputeReply/1|bedplate|end",    // of another form
                                         "SaveReply/1|generator|8|end"));  // about another part

class LostAnswerTest : public SavingTest, public testing::WithParamInterface<const char*> {};

TEST_P(LostAnswerTest, KeepsTheValuesAtRiskUntilAnAnswerCanBeRead) {
  {
    ScriptedTransport server;
    server.AnswerOnly("WBSaveNymValues", GetParam());
    EditMass("43000");
    Save();
  }
  EXPECT_NE(OnlyMessage().find("could not be read"), std::string::npos) << OnlyMessage();
  boxes.answers = {kKeep};
  Select({"nacelle.1", "Above_yaw.1", "generator.1"});
  RunPendingEvents();
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(CurrentInstance(), "bedplate.1");
  EXPECT_EQ(TextOf(kMass), "43000 kg");
}

INSTANTIATE_TEST_SUITE_P(Answers, LostAnswerTest,
                         testing::Values("", "SaveReply/1|bedplate|8", "ComputeReply/1|bedplate|end",
                                         "SaveReply/1|generator|8|end"));

TEST_F(SavingTest, WhatIsSavedIsSavedInTheNameOfTheUser) {
  EditMass("43000");
  Save();
  const std::string history =
      window.Session().Transport().Run("LumGetHistory", "HistoryRequest/1|bedplate|0|100|end");
  EXPECT_NE(history.find("|eva|"), std::string::npos) << history;
}

TEST_F(SavingTest, ASaveOverThatOfSomebodyElseIsRefusedWithANameAndThePartCanBeReadAgain) {
  EditMass("43000");
  qputenv("USER", "max");
  {
    const auto other = EmbeddedTransport::Open(File().toStdString());
    ASSERT_TRUE(other.Ok()) << other.Failure().message;
    auto data = protocol::ReadPartData(StoredPart());
    ASSERT_TRUE(data.Ok()) << data.Failure().message;
    for (protocol::MassType& type : data.Value().massTypes)
      if (type.name == "Calculated") type.mass = 41000;
    const std::string reply = other.Value()->Run("WBSaveNymValues", protocol::WritePartData(data.Value()));
    ASSERT_FALSE(protocol::IsErrorReply(reply)) << reply;
  }
  Save();
  EXPECT_NE(OnlyMessage().find("was changed by \"max\""), std::string::npos) << OnlyMessage();
  EXPECT_EQ(TextOf(kMass), "43000 kg");
  boxes.answers = {kGiveUp};
  window.ShowPartPanel();
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(TextOf(kMass), "41000 kg");
  EditMass("42000");
  Save();
  EXPECT_EQ(boxes.Messages().size(), 1u);
  EXPECT_EQ(PaneMass(), "42000 kg");
}

TEST_F(SavingTest, TheRevisionThatIsActiveAnywayIsStoredAsAChoiceWhenItIsChosenByHand) {
  ASSERT_NE(StoredPart().find("|DOC-BEDPLATE|C|0|0|"), std::string::npos) << StoredPart();
  Edit();
  ChooseRevision("C");
  Save();
  EXPECT_NE(StoredPart().find("|DOC-BEDPLATE|C|0|1|"), std::string::npos) << StoredPart();
  EXPECT_TRUE(boxes.Messages().empty());
}

// ---- nothing typed is lost without a question ----

TEST_F(SavingTest, NothingIsAskedOutsideEditMode) {
  Press("CloseButton");
  RunPendingEvents();
  EXPECT_FALSE(window.PartPanel().IsOpen());
  EXPECT_TRUE(boxes.Questions().empty());
}

TEST_F(SavingTest, ClosingInEditModeAsksAndKeepsThePanelWhenTheUserGoesOn) {
  EditMass("43000");
  boxes.answers = {kKeep};
  Press("CloseButton");
  RunPendingEvents();
  ASSERT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(boxes.Questions()[0].text,
            "What was typed for part bedplate has not been saved and would be lost.");
  ASSERT_TRUE(IsEditing());
  EXPECT_EQ(TextOf(kMass), "43000");
}

TEST_F(SavingTest, ClosingInEditModeClosesWhenTheUserGivesUp) {
  EditMass("43000");
  boxes.answers = {kGiveUp};
  window.PartPanel().Window()->close();
  RunPendingEvents();
  EXPECT_FALSE(window.PartPanel().IsOpen());
}

TEST_F(SavingTest, ClosingAfterAFailedSaveAsks) {
  EditMass("43000");
  {
    ScriptedTransport server;
    Save();
  }
  boxes.answers = {kKeep};
  Press("CloseButton");
  RunPendingEvents();
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_TRUE(window.PartPanel().IsOpen());
}

TEST_F(SavingTest, AnotherSelectionAsksOnceAndComesBackWhenTheUserGoesOn) {
  EditMass("43000");
  boxes.answers = {kKeep};
  Select({"nacelle.1", "Above_yaw.1", "generator.1"});
  RunPendingEvents();
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(CurrentInstance(), "bedplate.1");
  EXPECT_EQ(window.Selection().PartText("Selection.Part"), "bedplate");
  EXPECT_TRUE(IsEditing());
  EXPECT_EQ(TextOf(kMass), "43000");
}

TEST_F(SavingTest, AnotherSelectionIsShownInDisplayModeWhenTheUserGivesUp) {
  EditMass("43000");
  boxes.answers = {kGiveUp};
  Select({"nacelle.1", "Above_yaw.1", "generator.1"});
  RunPendingEvents();
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(window.Selection().PartText("Selection.Part"), "generator");
  ASSERT_TRUE(window.PartPanel().IsOpen());
  EXPECT_FALSE(IsEditing());
  EXPECT_NE(TextOf("Frame012.SelectionEditor").find("generator.1"), std::string::npos);
}

TEST_F(SavingTest, ThePartPanelCommandBringsAPanelInEditModeToTheFrontAndLosesNothing) {
  EditMass("43000");
  window.ShowPartPanel();
  EXPECT_TRUE(IsEditing());
  EXPECT_EQ(TextOf(kMass), "43000");
  EXPECT_TRUE(boxes.Questions().empty());
}

TEST_F(SavingTest, OpeningAnotherProductAsksOnce) {
  EditMass("43000");
  boxes.answers = {kKeep, kGiveUp};
  EXPECT_FALSE(window.OpenProduct(File()));
  EXPECT_TRUE(IsEditing());
  EXPECT_TRUE(window.OpenProduct(File()));
  EXPECT_FALSE(window.PartPanel().IsOpen());
  EXPECT_EQ(boxes.Questions().size(), 2u);
}

TEST_F(SavingTest, ANewProductFileIsNotMadeWhenTheUserGoesOnEditing) {
  EditMass("43000");
  boxes.answers = {kKeep};
  const QString file = folder.filePath("new.lumira");
  EXPECT_FALSE(window.CreateProduct(file));
  EXPECT_FALSE(QFile::exists(file));
}

TEST_F(SavingTest, TheSampleIsNotOpenedWhenTheUserGoesOnEditing) {
  EditMass("43000");
  boxes.answers = {kKeep};
  EXPECT_FALSE(window.OpenSample());
  EXPECT_TRUE(IsEditing());
  EXPECT_EQ(TextOf(kMass), "43000");
}

TEST_F(SavingTest, AnImportAsksWhenItIsAboutToWriteAndNotWhenItOnlyChecks) {
  EditMass("43000");
  boxes.answers = {kKeep};
  const auto reports = WorkTheImportDialog({&ImportDialog::CheckButton, &ImportDialog::ImportButton});
  EXPECT_EQ(reports[0], "Product");
  ASSERT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(window.Tree().rowCount(), 1) << "nothing was imported";
  EXPECT_TRUE(IsEditing());
  EXPECT_EQ(TextOf(kMass), "43000");
}

TEST_F(SavingTest, RowsOfTheFilterPanelAndTypedValuesAreBothAskedAboutBeforeAnotherProductIsOpened) {
  window.ShowFilterPanel();
  RunPendingEvents();
  window.AddToFilter();
  EditMass("43000");
  constexpr int kDiscardRows = 0;
  boxes.answers = {kDiscardRows, kKeep};
  EXPECT_FALSE(window.OpenProduct(File()));
  EXPECT_EQ(boxes.Questions().size(), 2u);
  EXPECT_EQ(TextOf(kMass), "43000");
  EXPECT_EQ(FilterRows().size(), 1u) << "neither is lost when one of them stays";
}

TEST_F(SavingTest, QuittingAsksAndStaysWhenTheUserGoesOn) {
  EditMass("43000");
  boxes.answers = {kKeep};
  EXPECT_FALSE(window.close());
  EXPECT_TRUE(window.isVisible());
  EXPECT_TRUE(IsEditing());
  boxes.answers = {kGiveUp};
  EXPECT_TRUE(window.close());
  EXPECT_FALSE(window.PartPanel().IsOpen());
}

TEST_F(SavingTest, ChoosingUnitsAsksBeforeWhatWasTypedWouldMeanSomethingElse) {
  EditMass("43000");
  boxes.answers = {kKeep};
  window.Command("Units")->trigger();
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(TextOf(kMass), "43000");
}

TEST_F(SavingTest, OtherUnitsShowTheStoredValuesInDisplayMode) {
  EditMass("43000");
  KorApplyUnitSystem("Imperial");
  window.UnitsChanged();
  EXPECT_FALSE(IsEditing());
  // 42274.27441488182 kg / 0.45359237
  EXPECT_EQ(TextOf(kMass), "93198.8217 lb");
}

TEST_F(SavingTest, AnotherLanguageLeavesWhatWasTyped) {
  EditMass("43000");
  ASSERT_TRUE(window.ChooseLanguage("de"));
  EXPECT_TRUE(IsEditing());
  EXPECT_EQ(TextOf(kMass), "43000");
}

TEST_F(SavingTest, AnotherFilterWaitsForThePanelUntilItsValuesAreSaved) {
  EditMass("43000");
  ChooseFilter("Structure only");
  EXPECT_EQ(TextOf(kMass), "43000");
  const std::string before = TextOf("Frame250.AdditionalFrame1.ConfigHandler.ConfigHandlerEditor");
  Save();
  EXPECT_NE(TextOf("Frame250.AdditionalFrame1.ConfigHandler.ConfigHandlerEditor"), before);
  EXPECT_NE(TextOf("Frame250.AdditionalFrame1.ConfigHandler.ConfigHandlerEditor").find("Structure only"),
            std::string::npos);
  EXPECT_EQ(PaneMass(), "43000 kg");
  ChooseFilter("No Filter");
}

}  // namespace
}  // namespace desktop::test
