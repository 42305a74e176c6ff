#include <gmock/gmock.h>

#include "SaveContentFixture.h"

namespace lumira::test {
namespace {

using protocol::FieldChange;
using protocol::HistoryMoment;
using testing::ElementsAre;
using testing::HasSubstr;

class SaveContent : public SaveContentFixture {};

TEST_F(SaveContent, ComesBackAsTheAutomaticRevisionUnlessOneWasChosen) {
  EXPECT_EQ(Choice(Plate()), "D-1 B automatic");
  protocol::PartData data = ChoosingNone(Plate());
  data.material.name = "Brass";
  SaveWell(data);
  Restart();
  EXPECT_EQ(Choice(Plate()), "D-1 B automatic");
  EXPECT_EQ(Plate().material.name, "Brass");
}

TEST_F(SaveContent, ComesBackAsTheRevisionThatWasChosen) {
  SaveWell(Choosing(Plate(), "C"));
  Restart();
  EXPECT_EQ(Choice(Plate()), "D-1 C by hand");
  SaveWell(ChoosingNone(Plate()));
  EXPECT_EQ(Choice(Plate()), "D-1 B automatic");
}

TEST_F(SaveContent, ComesBackAsTheAutomaticRevisionThatWasChosenByHand) {
  SaveWell(Choosing(Plate(), "B"));
  Restart();
  EXPECT_EQ(Choice(Plate()), "D-1 B by hand");
}

TEST_F(SaveContent, OfARevisionThatWasTakenOverGivesThePartItsMassTypes) {
  SaveWell(Choosing(Revision("A"), "A"));
  Restart();
  const protocol::PartData data = Plate();
  EXPECT_EQ(Choice(data), "D-1 A by hand");
  ASSERT_EQ(data.massTypes.size(), 2u);
  EXPECT_EQ(data.massTypes[1].name, "Planned");
  EXPECT_EQ(data.massTypes[1].mass, 7);
  EXPECT_EQ(data.massTypes[1].upperDeviation, 0.75);
  EXPECT_EQ(data.activeMassType, "Planned");
  EXPECT_EQ(data.material.name, "Iron");
  EXPECT_EQ(Compute("top").mass, 7);
}

// A panel that goes back to the automatic revision after it has shown another loads nothing.
TEST_F(SaveContent, OfTheValuesOfALoadedRevisionUnderTheAutomaticChoiceMakesThemThoseOfThePart) {
  SaveWell(ChoosingNone(Revision("A")));
  const protocol::PartData data = Plate();
  EXPECT_EQ(Choice(data), "D-1 B automatic");
  ASSERT_EQ(data.massTypes.size(), 2u);
  EXPECT_EQ(data.massTypes[1].name, "Planned");
  EXPECT_EQ(data.massTypes[1].mass, 7);
  EXPECT_EQ(data.material.name, "Iron");
}

TEST_F(SaveContent, OfMassTypesThatNobodyWasToldIsRefused) {
  protocol::PartData data = ChoosingNone(Revision("A"));
  data.massTypes.at(1).name = "Guessed";
  EXPECT_THAT(Save(data), HasSubstr("massTypes[2].name: \"Guessed\" is no mass type of part \"plate\""));
  data = Plate();
  data.massTypes.push_back(Revision("A").massTypes.at(1));
  EXPECT_THAT(Save(data), HasSubstr("massTypes[4].name: \"Planned\" is no mass type of part \"plate\""));
}

TEST_F(SaveContent, OfTheStateBeforeATakeOverBringsAllItsMassTypesBack) {
  protocol::PartData data = Plate();
  data.massTypes.at(1).lowerDeviation = 0.25;
  data.massTypes.at(2).cg = protocol::Vector{1, 2, 3};
  data.massTypes.at(2).upperPrecision = 0.5;
  SaveWell(data);
  protocol::PartData before = Plate();
  SaveWell(Choosing(Revision("A"), "A"));
  SaveWell(StateOf(2, HistoryMoment::Before));
  const protocol::PartData back = Plate();
  before.stateToken = back.stateToken;
  EXPECT_EQ(protocol::WritePartData(back), protocol::WritePartData(before));
  EXPECT_EQ(Compute("top").mass, 10);
}

TEST_F(SaveContent, OfTheStateBeforeATakeOverCanBeEditedAsWell) {
  SaveWell(Choosing(Revision("A"), "A"));
  protocol::PartData old = StateOf(1, HistoryMoment::Before);
  old.massTypes.at(2).mass = 12;
  SaveWell(old);
  EXPECT_EQ(Plate().massTypes.at(1).mass, 9);
  EXPECT_EQ(Plate().massTypes.at(2).mass, 12);
}

TEST_F(SaveContent, ThatFollowsASaveGoesOnWithTheTokenOfTheRevision) {
  protocol::PartData data = Plate();
  data.material.name = "Brass";
  SaveWell(data);
  const protocol::PartData revision = Revision("B");
  EXPECT_EQ(revision.stateToken, Plate().stateToken);
  SaveWell(Choosing(revision, "B"));
}

TEST_F(SaveContent, BringsBackPropertiesOfEveryType) {
  EXPECT_THAT(Values(Plate()), ElementsAre("finish=painted", "count=-7", "checked=2020-02-29", "factor=0.5",
                                           "reach=1.25", "load="));
  protocol::PartData data = Plate();
  const char* const values[] = {"blank | 50%", "2147483647", "2024-02-29", "-1e-300", "0.001", "3e4"};
  for (std::size_t i = 0; i < std::size(values); ++i) data.properties.at(i).value = values[i];
  SaveWell(data);
  Restart();
  EXPECT_THAT(Values(Plate()), ElementsAre("finish=blank | 50%", "count=2147483647", "checked=2024-02-29",
                                           "factor=-1e-300", "reach=0.001", "load=3e4"));
}

TEST_F(SaveContent, TakesValuesOfPropertiesAway) {
  protocol::PartData data = Plate();
  for (auto& property : data.properties) property.value.clear();
  SaveWell(data);
  EXPECT_THAT(Values(Plate()), ElementsAre("finish=", "count=", "checked=", "factor=", "reach=", "load="));
}

TEST_F(SaveContent, LeavesTheDataOfRevisionsAsTheyAre) {
  protocol::PartData data = Choosing(Plate(), "B");
  data.massTypes.at(2).mass = 11;
  SaveWell(data);
  EXPECT_EQ(Revision("B").massTypes.at(2).mass, 10);
  EXPECT_EQ(Plate().massTypes.at(2).mass, 11);
}

TEST_F(SaveContent, TellsTheChoiceAndThePropertiesInTheHistory) {
  protocol::PartData data = Choosing(Plate(), "B");
  data.properties.at(4).value = "2.5";
  data.properties.at(5).value = "10";
  SaveWell(data);
  EXPECT_THAT(LatestChanges(), ElementsAre(FieldChange{"documents.activeVersion", "", "B"},
                                           FieldChange{"documents.usedSpecificRevisionBefore", "0", "1"},
                                           FieldChange{"properties[reach].value", "1.25", "2.5"},
                                           FieldChange{"properties[load].value", "", "10"}));
}

TEST_F(SaveContent, OfAStateOfTheHistoryBringsChoiceAndPropertiesBack) {
  protocol::PartData data = Choosing(Plate(), "B");
  data.properties.at(0).value = "raw";
  data.properties.at(4).value = "";
  SaveWell(data);
  SaveWell(StateOf(1, HistoryMoment::Before));
  EXPECT_EQ(Choice(Plate()), "D-1 B automatic");
  EXPECT_EQ(Values(Plate()).at(0), "finish=painted");
  EXPECT_EQ(Values(Plate()).at(4), "reach=1.25");
  SaveWell(StateOf(1, HistoryMoment::After));
  EXPECT_EQ(Choice(Plate()), "D-1 B by hand");
  EXPECT_EQ(Values(Plate()).at(0), "finish=raw");
}

TEST_F(SaveContent, IsRefusedWhenSomebodyElseHasChosenOrTypedMeanwhile) {
  protocol::PartData mine = Plate();
  protocol::PartData theirs = Choosing(mine, "A");
  theirs.properties.at(1).value = "8";
  SaveWell(theirs);
  mine.material.name = "Brass";
  const std::string reply = Save(mine);
  EXPECT_THAT(reply, HasSubstr("documents.activeVersion (\"\", now \"A\")"));
  EXPECT_THAT(reply, HasSubstr("properties[count].value (\"-7\", now \"8\")"));
  EXPECT_EQ(Plate().material.name, "Steel");
}

// The choice is what people save; which revision it leads to is not.
TEST_F(SaveContent, IsNotRefusedForAnAutomaticRevisionThatIsAnotherOneByNow) {
  protocol::PartData mine = Plate();
  mine.material.name = "Brass";
  SaveWell(mine);
  mine = Plate();
  PartDetails details = store->LoadDetails("plate").Value();
  details.documents.revisions.push_back({"D", "2026-01-01 00:00:00", "", {}, "", 0});
  ASSERT_TRUE(store->SaveDetails("plate", details).Ok());
  EXPECT_EQ(Choice(Plate()), "D-1 D automatic");
  mine = ChoosingNone(mine);
  mine.material.name = "Bronze";
  SaveWell(mine);
  EXPECT_EQ(Plate().material.name, "Bronze");
}

TEST_F(SaveContent, OfAStateWhoseDocumentHasNoRevisionsAnyMoreKeepsTheChoiceOfNow) {
  protocol::PartData data = Choosing(Plate(), "B");
  data.material.name = "Brass";
  SaveWell(data);
  PartDetails details = store->LoadDetails("plate").Value();
  details.documents.revisions.clear();
  ASSERT_TRUE(store->SaveDetails("plate", details).Ok());
  SaveWell(StateOf(1, HistoryMoment::Before));
  EXPECT_EQ(Plate().material.name, "Steel");
  EXPECT_EQ(Plate().documents.activeId, "__EXCEPTION__");
}

TEST_F(SaveContent, OfAStateWhoseChosenRevisionHasVanishedKeepsTheChoiceOfNow) {
  protocol::PartData data = Choosing(Plate(), "C");
  data.material.name = "Brass";
  SaveWell(data);
  SaveWell(ChoosingNone(Plate()));
  PartDetails details = store->LoadDetails("plate").Value();
  std::erase_if(details.documents.revisions, [](const auto& revision) { return revision.revision == "C"; });
  ASSERT_TRUE(store->SaveDetails("plate", details).Ok());
  data = StateOf(1, HistoryMoment::After);
  data.material.name = "Bronze";
  SaveWell(data);
  EXPECT_EQ(Plate().material.name, "Bronze");
  EXPECT_EQ(Choice(Plate()), "D-1 B automatic");
}

}  // namespace
}  // namespace lumira::test
