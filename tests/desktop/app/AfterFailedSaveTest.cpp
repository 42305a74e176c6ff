// A save that failed, or whose answer was lost: what the user is asked and told, and how it goes on.
#include "framework/knowledge/KorUnitSystems.h"
#include "tests/desktop/app/EditingHarness.h"
#include "tests/desktop/app/ScriptedTransport.h"

namespace desktop::test {
namespace {

constexpr const char* kNotSaved = "What was typed for part bedplate has not been saved and would be lost.";
constexpr const char* kNotKnown =
    "Whether what was typed for part bedplate has been saved is not known: the answer to a save could not be "
    "read. What has not been saved would be lost.";

class AfterFailedSaveTest : public EditingTest {
 protected:
  void TearDown() override {
    EditingTest::TearDown();
    KorApplyUnitSystem("Mixed");
  }
  void SaveWithReply(const std::string& reply) {
    ScriptedTransport server;
    server.AnswerOnly("WBSaveNymValues", reply);
    Save();
  }
  void SaveAndBeRefused() { SaveWithReply(protocol::ErrorReply("the disk is full")); }
  /// The server stores, and its answer does not come.
  void SaveAndLoseTheAnswer() {
    KorPdmTransport* real = KorPdmClient::GetTransport();
    ScriptedTransport server;
    server.answer = [real](const std::string& command, const std::string& request) {
      const std::string reply = real->Run(command, request);
      return command == "WBSaveNymValues" ? std::string() : reply;
    };
    Save();
  }
  void TryAgain() {
    ASSERT_TRUE(Press("EditButton"));
    Save();
  }
  /// The question when the panel is to be closed; the user goes on.
  std::string QuestionAtClosing() {
    boxes.answers = {kKeep};
    Press("CloseButton");
    RunPendingEvents();
    return boxes.Questions().empty() ? "none" : boxes.Questions().back().text.Utf8();
  }
};

// ---- the answer was lost ----

TEST_F(AfterFailedSaveTest, ARefusedSaveHasNotBeenSaved) {
  EditMass("43000");
  SaveAndBeRefused();
  EXPECT_EQ(QuestionAtClosing(), kNotSaved);
}

TEST_F(AfterFailedSaveTest, ASaveWhoseAnswerWasLostMayHaveBeenSaved) {
  EditMass("43000");
  SaveAndLoseTheAnswer();
  EXPECT_NE(StoredPart().find("|43000|"), std::string::npos);
  EXPECT_EQ(QuestionAtClosing(), kNotKnown);
}

TEST_F(AfterFailedSaveTest, ASaveWhoseAnswerIsAboutAnotherPartMayHaveBeenSaved) {
  EditMass("43000");
  SaveWithReply("SaveReply/1|generator|8|end");
  EXPECT_EQ(QuestionAtClosing(), kNotKnown);
}

TEST_F(AfterFailedSaveTest, TryingAgainAfterAStoredSaveIsRefusedAsAConflictWithTheUserThatShowsWhatIsStored) {
  EditMass("43000");
  SaveAndLoseTheAnswer();
  TryAgain();
  ASSERT_EQ(boxes.Messages().size(), 2u);
  const std::string refusal = boxes.Messages().back().text.Utf8();
  EXPECT_NE(refusal.find("part \"bedplate\" was changed by \"eva\""), std::string::npos) << refusal;
  EXPECT_NE(refusal.find("now \"43000\""), std::string::npos) << refusal;
}

TEST_F(AfterFailedSaveTest, ARefusalAfterALostAnswerDoesNotTellWhetherTheFirstSaveWasStored) {
  EditMass("43000");
  SaveAndLoseTheAnswer();
  TryAgain();
  EXPECT_EQ(QuestionAtClosing(), kNotKnown);
}

TEST_F(AfterFailedSaveTest, ThePartReadAgainAfterALostAnswerShowsWhatIsStoredAndCanBeSaved) {
  EditMass("43000");
  SaveAndLoseTheAnswer();
  boxes.answers = {kGiveUp};
  window.ShowPartPanel();
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(TextOf(kMass), "43000 kg");
  EXPECT_FALSE(window.PartPanel().HasUnsavedValues());
  EditMass("42000");
  EXPECT_EQ(QuestionAtClosing(), kNotSaved);
  Save();
  EXPECT_EQ(boxes.Messages().size(), 1u) << "that of the lost answer";
  EXPECT_NE(StoredPart().find("|42000|"), std::string::npos);
}

TEST_F(AfterFailedSaveTest, AConfirmedSaveEndsTheDoubtOfALostAnswer) {
  EditMass("43000");
  SaveWithReply("");
  TryAgain();
  EditMass("42000");
  EXPECT_EQ(QuestionAtClosing(), kNotSaved);
}

// ---- values that are given up after it ----

/// Generator and yaw system have the same pages, so that one panel would do for both.
TEST_F(AfterFailedSaveTest, ThePanelOfTheNextPartAsksNothingAndCanCompute) {
  Select({"nacelle.1", "Above_yaw.1", "generator.1"});
  ASSERT_TRUE(Press("EditButton"));
  SaveAndBeRefused();
  boxes.answers = {kGiveUp};
  Select({"nacelle.1", "yaw.1"});
  RunPendingEvents();
  ASSERT_EQ(boxes.Questions().size(), 1u);
  EXPECT_FALSE(window.PartPanel().HasUnsavedValues());
  EXPECT_TRUE(window.PartPanel().Compute());
  RunPendingEvents();
  Press("CloseButton");
  RunPendingEvents();
  EXPECT_FALSE(window.PartPanel().IsOpen());
  EXPECT_EQ(boxes.Questions().size(), 1u) << "that of the other selection";
}

TEST_F(AfterFailedSaveTest, OtherUnitsShowTheStoredValuesInPlaceOfTheRefusedOnes) {
  EditMass("43000");
  SaveAndBeRefused();
  KorApplyUnitSystem("Imperial");
  window.UnitsChanged();
  GoTo(kMassTypesPage);
  ASSERT_TRUE(Panel()
                  .Find<KorDlgCombo>("TabContainer001.TabPage003.Frame107.Frame231.MassTypeCombo")
                  .Pick("Calculated"));
  // 42274.27441488182 kg / 0.45359237
  EXPECT_EQ(TextOf(kMass), "93198.8217 lb");
  EXPECT_FALSE(window.PartPanel().HasUnsavedValues());
}

}  // namespace
}  // namespace desktop::test
