// An earlier state brought back while somebody else saves the part, on the server of the sample.
#include <QPointer>

#include "desktop/app/SelectionPane.h"
#include "protocol/Codec.h"
#include "tests/desktop/app/EditingHarness.h"
#include "tests/desktop/app/HistoryHarness.h"

namespace desktop::test {
namespace {

/// Eva has the history of the bedplate open, with one save of hers; Max works on the same product file.
class HistoryOfTwoTest : public EditingTest {
 protected:
  void SetUp() override {
    EditingTest::SetUp();
    EditMass("43000");
    Save();
    window.ShowHistory();
    RunPendingEvents();
    qputenv("USER", "max");
    max = EmbeddedTransport::Open(File().toStdString()).Value();
    qputenv("USER", "eva");
  }
  protocol::PartData Stored() {
    protocol::PartDataRequest request;
    request.partId = "bedplate";
    return protocol::ReadPartData(max->Run("WBGetPartData", protocol::WritePartDataRequest(request))).Value();
  }
  static protocol::MassType& CalculatedOf(protocol::PartData& data) {
    for (protocol::MassType& type : data.massTypes)
      if (type.name == "Calculated") return type;
    throw std::logic_error("the bedplate has no mass type Calculated");
  }
  double StoredMass() {
    protocol::PartData data = Stored();
    return CalculatedOf(data).mass.value();
  }
  void MaxSaves(double mass) {
    protocol::PartData data = Stored();
    CalculatedOf(data).mass = mass;
    const std::string reply = max->Run("WBSaveNymValues", protocol::WritePartData(data));
    ASSERT_FALSE(protocol::IsErrorReply(reply)) << reply;
  }
  HistoryDialog& History() { return *window.History(); }
  /// What the oldest save, Eva's, replaced.
  void BringBackFirst() {
    boxes.answers = {0};
    History().SaveList().setCurrentIndex(History().Saves().index(History().Saves().rowCount() - 1, 0));
    History().BeforeButton().click();
    RunPendingEvents();
  }
  void ExpectRefusalThatNamesMax() {
    const std::string message = OnlyMessage();
    EXPECT_NE(message.find("part \"bedplate\" was changed by \"max\" on 20"), message.npos) << message;
    EXPECT_NE(message.find("massTypes[Calculated].mass"), message.npos) << message;
  }

  std::unique_ptr<EmbeddedTransport> max;
};

TEST_F(HistoryOfTwoTest, WhatSomebodyElseSavedSinceTheListWasReadIsNotReplacedButToldAndListed) {
  MaxSaves(41000);
  ASSERT_EQ(History().Saves().rowCount(), 1) << "Eva does not see it";
  BringBackFirst();
  ExpectRefusalThatNamesMax();
  EXPECT_EQ(StoredMass(), 41000);
  ASSERT_EQ(History().Saves().rowCount(), 2);
  EXPECT_EQ(Cell(History().Saves(), 0, HistoryModel::User), "max");
  EXPECT_EQ(FieldRow(History(), 0), "Mass, Calculated | 42274.27441 kg | 43000 kg") << "still the chosen one";
}

TEST_F(HistoryOfTwoTest, TheSecondClickReplacesWhatTheFirstOneTold) {
  MaxSaves(41000);
  BringBackFirst();
  BringBackFirst();
  EXPECT_EQ(boxes.Messages().size(), 1u);
  EXPECT_DOUBLE_EQ(StoredMass(), 42274.274414881819);
  EXPECT_EQ(window.Selection().ActiveText("Selection.Mass"), "42274.27441 kg");
  EXPECT_EQ(History().Saves().rowCount(), 3);
}

TEST_F(HistoryOfTwoTest, ASaveBetweenLookingAndSavingIsNotReplacedEither) {
  KorPdmTransport* real = KorPdmClient::GetTransport();
  ScriptedTransport server;
  server.answer = [&](const std::string& command, const std::string& request) {
    if (command == "WBSaveNymValues") MaxSaves(41000);
    return real->Run(command, request);
  };
  BringBackFirst();
  ExpectRefusalThatNamesMax();
  EXPECT_EQ(StoredMass(), 41000);
  EXPECT_EQ(History().Saves().rowCount(), 2);
}

TEST_F(HistoryOfTwoTest, ASaveThatWasTakenBackByItsOwnUserIsInNobodysWay) {
  MaxSaves(41000);
  MaxSaves(43000);
  BringBackFirst();
  EXPECT_TRUE(boxes.Messages().empty());
  EXPECT_DOUBLE_EQ(StoredMass(), 42274.274414881819);
  EXPECT_EQ(History().Saves().rowCount(), 4);
}

TEST_F(HistoryOfTwoTest, ARefusalLeavesWhatIsTypedInThePanel) {
  MaxSaves(41000);
  EditMass("44000");
  boxes.answers = {0, kGiveUp};
  History().BeforeButton().click();
  RunPendingEvents();
  ExpectRefusalThatNamesMax();
  EXPECT_TRUE(IsEditing());
  EXPECT_EQ(TextOf(kMass), "44000");
}

TEST_F(HistoryOfTwoTest, AServerThatDiesMeanwhileIsToldOnceAndTheListStays) {
  ScriptedTransport server;
  BringBackFirst();
  EXPECT_EQ(OnlyMessage(), "unexpected");
  EXPECT_EQ(History().Saves().rowCount(), 1);
}

}  // namespace
}  // namespace desktop::test
