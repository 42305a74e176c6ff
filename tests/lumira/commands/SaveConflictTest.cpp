#include <gmock/gmock.h>

#include <array>
#include <thread>

#include "SaveFixture.h"

namespace lumira::test {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;

constexpr char kTime[] = "20..-..-..T..:..:..Z";

class SaveConflict : public SaveFixture {};

TEST_F(SaveConflict, NamesThePersonTheTimeAndTheFieldsAndOverwritesNothing) {
  protocol::PartData mine = PartDataOf("a");
  SaveMassAs("bob", 8);
  Type(mine, "Weighed").mass = 7;
  EXPECT_THAT(Save(mine),
              MatchesRegex(std::string("LumiraError: part \"a\" was changed by \"bob\" on ") + kTime +
                           " since it was read, nothing was saved; fields that differ: "
                           "massTypes.Weighed..mass .\"6\", now \"8\"."));
  EXPECT_EQ(PartDataOf("a").massTypes.at(2).mass, 8);
  EXPECT_EQ(HistoryOf("a").total, 1);
}

TEST_F(SaveConflict, IsFoundInEveryFieldThatASaveStores) {
  protocol::PartData mine = PartDataOf("a"), theirs = mine;
  theirs.material.name = "Brass";
  Property(theirs, "colour").value = "blue";
  theirs.material.density.reset();
  SaveWell(theirs);
  mine.standardPart = true;
  const std::string reply = Save(mine);
  EXPECT_THAT(reply, HasSubstr("material.name (\"Steel\", now \"Brass\")"));
  EXPECT_THAT(reply, HasSubstr("material.density (\"7850\", now none)"));
  EXPECT_THAT(reply, HasSubstr("properties[colour].value (\"red\", now \"blue\")"));
  EXPECT_FALSE(PartDataOf("a").standardPart);
}

// They stay limits, which a computation treats otherwise than nothing that is known.
TEST_F(SaveConflict, IsFoundInLimitsThatWereSetBackToTheSameNumbers) {
  protocol::PartData mine = PartDataOf("a");
  for (const double upper : {5.0, 0.0}) {
    protocol::PartData theirs = PartDataOf("a");
    Type(theirs, "Weighed").upperDeviation = upper;
    SaveWell(theirs);
  }
  Type(mine, "Estimated").mass = 7;
  EXPECT_THAT(Save(mine),
              HasSubstr("fields that differ: standardDeviations[Weighed].hasLimits (none, now \"1\")"));
}

TEST_F(SaveConflict, NamesEverybodyWhoHasSavedSince) {
  protocol::PartData mine = PartDataOf("a");
  SaveMassAs("bob", 8);
  SaveMassAs("joe", 9);
  Type(mine, "Weighed").mass = 7;
  const std::string reply = Save(mine);
  EXPECT_THAT(reply, MatchesRegex(std::string(".*by \"joe\" on ") + kTime + " and by \"bob\" on " + kTime +
                                  " since.*"));
  EXPECT_THAT(reply, HasSubstr("(\"6\", now \"9\")")) << "from what was read to what is there";
}

TEST_F(SaveConflict, NamesEachPersonOnceHoweverOftenTheyHaveSaved) {
  protocol::PartData mine = PartDataOf("a");
  SaveMassAs("bob", 8);
  for (double mass : {9, 10, 11, 12, 13, 14}) SaveMassAs("joe", mass);
  const std::string reply = Save(mine);
  EXPECT_THAT(reply, MatchesRegex(std::string(".* was changed by \"joe\" on ") + kTime +
                                  " and by \"bob\" on " + kTime + " since.*"));
}

TEST_F(SaveConflict, WithMoreThanFivePeopleSaysHowManyMore) {
  protocol::PartData mine = PartDataOf("a");
  double mass = 8;
  for (const char* user : {"p1", "p2", "p3", "p4", "p5", "p6", "p7"}) SaveMassAs(user, mass++);
  const std::string reply = Save(mine);
  EXPECT_THAT(reply, HasSubstr("was changed by \"p7\" on "));
  EXPECT_THAT(reply,
              MatchesRegex(std::string(".* and by \"p3\" on ") + kTime + " and by 2 more people since.*"));
}

TEST_F(SaveConflict, WithAPersonAndAProgramNamesBoth) {
  protocol::PartData mine = PartDataOf("a");
  PartDetails details = DetailsOfA();
  details.properties.at(3).value = "blue";
  ASSERT_TRUE(store->SaveDetails("a", details).Ok());
  SaveMassAs("bob", 8);
  EXPECT_THAT(Save(mine), MatchesRegex(std::string(".*by \"bob\" on ") + kTime +
                                       " and by a program that left no name since.*"));
}

TEST_F(SaveConflict, LeavesOutWhoSavedBeforeItWasRead) {
  SaveMassAs("bob", 8);
  protocol::PartData mine = PartDataOf("a");
  SaveMassAs("joe", 9);
  Type(mine, "Weighed").mass = 7;
  EXPECT_THAT(Save(mine), Not(HasSubstr("bob")));
}

// States are numbered for all parts together, so that their numbers do not tell how many saves there were.
TEST_F(SaveConflict, LeavesOutWhoSavedBeforeItWasReadWhenOtherPartsWereSavedSince) {
  SaveMassAs("bob", 8);
  protocol::PartData mine = PartDataOf("a");
  for (double mass : {11, 12, 13}) {
    protocol::PartData other = PartDataOf("b");
    Type(other, "Weighed").mass = mass;
    SaveWell(other);
  }
  SaveMassAs("joe", 9);
  const std::string reply = Save(mine);
  EXPECT_THAT(reply, HasSubstr("was changed by \"joe\" on "));
  EXPECT_THAT(reply, Not(HasSubstr("bob")));
}

TEST_F(SaveConflict, NamesAProgramThatCameAfterAPersonAsWell) {
  protocol::PartData mine = PartDataOf("a");
  SaveMassAs("bob", 8);
  PartDetails details = DetailsOfA();
  details.properties.at(3).value = "blue";
  ASSERT_TRUE(store->SaveDetails("a", details).Ok());
  EXPECT_THAT(Save(mine), MatchesRegex(std::string(".*by \"bob\" on ") + kTime +
                                       " and by a program that left no name since.*"));
}

TEST_F(SaveConflict, IsThereForOneselfInAnotherSessionToo) {
  protocol::PartData mine = PartDataOf("a");
  SaveMassAs("eva", 8);
  EXPECT_THAT(Save(mine), HasSubstr("was changed by \"eva\""));
}

TEST_F(SaveConflict, IsNotThereForSomebodyWhoSavesAnotherPart) {
  protocol::PartData mine = PartDataOf("a"), theirs = PartDataOf("b");
  Type(theirs, "Weighed").mass = 11;
  SaveWell(theirs);
  Type(mine, "Weighed").mass = 7;
  SaveWell(mine);
  EXPECT_EQ(PartDataOf("a").massTypes.at(2).mass, 7);
  EXPECT_EQ(PartDataOf("b").massTypes.at(1).mass, 11);
}

TEST_F(SaveConflict, IsNotThereForWhoSavesAgainWithTheTokenOfTheReply) {
  protocol::PartData data = PartDataOf("a");
  for (double mass : {7, 8, 9}) {
    Type(data, "Weighed").mass = mass;
    data.stateToken = SaveWell(data);
  }
  EXPECT_EQ(HistoryOf("a").total, 3);
}

TEST_F(SaveConflict, IsNotThereAfterACompute) {
  protocol::PartData data = PartDataOf("a");
  Compute("a");
  Compute("top");
  Type(data, "Weighed").mass = 7;
  SaveWell(data);
}

TEST_F(SaveConflict, IsNotThereWhenTheOtherHasChangedItBack) {
  protocol::PartData mine = PartDataOf("a");
  SaveMassAs("bob", 8);
  SaveMassAs("bob", 6);
  Type(mine, "Weighed").mass = 7;
  SaveWell(mine);
  EXPECT_EQ(PartDataOf("a").massTypes.at(2).mass, 7);
}

TEST_F(SaveConflict, WithAChangeThatLeftNoNameSaysSo) {
  protocol::PartData mine = PartDataOf("a");
  PartDetails details = DetailsOfA();
  details.properties.at(3).value = "blue";
  ASSERT_TRUE(store->SaveDetails("a", details).Ok());
  EXPECT_THAT(Save(mine),
              HasSubstr("was changed by a program that left no name since it was read, nothing was "
                        "saved; fields that differ: not known"));
  EXPECT_EQ(PartDataOf("a").properties.at(3).value, "blue");
}

TEST_F(SaveConflict, WithAnImportIsRefused) {
  protocol::PartData mine = PartDataOf("b");
  ImportOptions replace;
  replace.existing = Existing::Replace;
  Import("parent,child\ntop,b\n", "part,mass type,mass [kg],active\nb,Weighed,10,yes\n", replace);
  Type(mine, "Weighed").mass = 7;
  EXPECT_THAT(Save(mine), HasSubstr("part \"b\" was changed by a program that left no name"));
  EXPECT_EQ(PartDataOf("b").massTypes.at(1).mass, 10);
}

TEST_F(SaveConflict, OfManyFieldsNamesTwenty) {
  Part part = store->LoadPart("a").Value().part;
  for (int i = 0; i < 30; ++i) part.massTypes.push_back({"Type " + std::to_string(i), {1.0, {}, {}}, {}, {}});
  ASSERT_TRUE(store->UpdatePart(part).Ok());
  const protocol::PartData mine = PartDataOf("a");
  protocol::PartData theirs = mine;
  for (protocol::MassType& type : theirs.massTypes)
    if (type.name.starts_with("Type ")) type.mass = 2;
  SaveWell(theirs);
  const std::string reply = Save(mine);
  EXPECT_THAT(reply, HasSubstr("massTypes[Type 19].mass (\"1\", now \"2\") and 10 more"));
}

TEST_F(SaveConflict, BetweenTwoProgramsIsFoundAsWell) {
  protocol::PartData mine = PartDataOf("a");
  const auto otherStore = OpenSqliteStore(file).Value();
  Server other(*otherStore, {}, "bob");
  protocol::PartData theirs = mine;
  Type(theirs, "Weighed").mass = 8;
  ASSERT_TRUE(other.Execute(protocol::kCommandSavePart, protocol::WritePartData(theirs)).Ok());
  EXPECT_THAT(Save(mine), HasSubstr("was changed by \"bob\""));
}

// Adds a kilogram to "a" so many times, reading it again whenever somebody else was faster. How often one
// was; -1 when a save was refused without saying so.
int AddKilograms(const std::string& file, int count) {
  const auto store = OpenSqliteStore(file).Value();
  Server server(*store, {}, "adder");
  int conflicts = 0;
  while (count > 0) {
    auto data = protocol::ReadPartData(
                    server.Run(protocol::kCommandPartData, protocol::WritePartDataRequest({.partId = "a"})))
                    .Value();
    data.massTypes.at(2).mass = *data.massTypes.at(2).mass + 1;
    const auto saved = server.Execute(protocol::kCommandSavePart, protocol::WritePartData(data));
    if (!saved && !saved.Failure().message.starts_with("part \"a\" was changed by \"adder\" on ")) return -1;
    saved ? --count : ++conflicts;
  }
  return conflicts;
}

TEST_F(SaveConflict, BetweenProgramsThatSaveAtOnceLosesNoSave) {
  std::array<int, 3> conflicts{};
  {
    std::array<std::thread, 3> programs;
    for (std::size_t i = 0; i < programs.size(); ++i)
      programs[i] = std::thread([&, i] { conflicts[i] = AddKilograms(file, 40); });
    for (std::thread& program : programs) program.join();
  }
  EXPECT_THAT(conflicts, testing::Each(testing::Ge(0)));
  EXPECT_EQ(PartDataOf("a").massTypes.at(2).mass, 6 + 3 * 40);
  EXPECT_EQ(HistoryOf("a").total, 3 * 40);
}

}  // namespace
}  // namespace lumira::test
