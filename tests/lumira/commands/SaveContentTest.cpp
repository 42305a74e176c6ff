#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>

#include "SaveFixture.h"

namespace lumira::test {
namespace {

using protocol::FieldChange;
using protocol::HistoryMoment;
using testing::ElementsAre;
using testing::HasSubstr;

/// A product whose part "plate" has a document of three revisions, the automatic one being "B", and extra
/// properties of every type. Revision "A" has the mass type "Planned" alone, revision "C" no data.
class SaveContent : public ServerFixture {
 protected:
  SaveContent() {
    ImportTables tables{TableSource{"s.csv", "parent,child\ntop,plate\n"},
                        {"m.csv",
                         "part,material,density [kg/m3],mass type,active,mass [kg]\n"
                         "plate,Steel,7850,Estimated,,9\nplate,,,Weighed,yes,10\n"}};
    tables.documents =
        TableSource{"d.csv",
                    "part,document,revision,check in time,attached,material,density [kg/m3],mass "
                    "type,active,mass [kg],lower deviation [kg],upper deviation [kg]\n"
                    "plate,D-1,A,2020-01-01 00:00:00,yes,Iron,7200,Planned,yes,7,0.5,0.75\n"
                    "plate,D-1,B,2022-01-01 00:00:00,,Steel,7850,Estimated,,9,,\n"
                    "plate,D-1,B,,,,,Weighed,yes,10,,\n"
                    "plate,D-1,C,2021-01-01 00:00:00,,,,,,,,\n"};
    tables.properties = TableSource{
        "p.csv",
        "property,type,magnitude,part,value\nfinish,text,,plate,painted\ncount,integer,,plate,-7\n"
        "checked,date,,plate,2020-02-29\nfactor,real,,plate,0.5\n"
        "reach,magnitude,LENGTH,plate,1.25\nload,magnitude,FORCE,,\n"};
    const auto imported = ImportProduct(*store, tables, {});
    EXPECT_TRUE(imported.Ok()) << imported.Failure().message;
  }

  std::string Save(const protocol::PartData& data) {
    return Run(protocol::kCommandSavePart, protocol::WritePartData(data));
  }

  void SaveWell(const protocol::PartData& data) {
    const std::string reply = Save(data);
    EXPECT_TRUE(protocol::ReadSaveReply(reply).Ok()) << reply;
  }

  protocol::PartData Plate() { return PartDataOf("plate"); }

  protocol::PartData Revision(const std::string& revision) {
    const auto data = protocol::ReadPartData(Run("WBGetActiveDocInfo", "D-1|" + revision));
    EXPECT_TRUE(data.Ok()) << data.Failure().message;
    return data.Ok() ? data.Value() : protocol::PartData{};
  }

  // As the panel of a client sends it.
  static protocol::PartData Choosing(protocol::PartData data, const std::string& revision) {
    data.documents.activeVersion = revision;
    data.documents.usedSpecificRevisionBefore = true;
    return data;
  }

  static protocol::PartData ChoosingNone(protocol::PartData data) {
    data.documents.activeId = data.documents.activeVersion = "__null__";
    data.documents.usedSpecificRevisionBefore = false;
    return data;
  }

  static std::string Choice(const protocol::PartData& data) {
    const protocol::Documents& documents = data.documents;
    return documents.activeId + " " + documents.activeVersion +
           (documents.usedSpecificRevisionBefore ? " by hand" : " automatic");
  }

  static std::vector<std::string> Values(const protocol::PartData& data) {
    std::vector<std::string> values;
    for (const auto& property : data.properties) values.push_back(property.name + "=" + property.value);
    return values;
  }

  std::vector<FieldChange> LatestChanges() {
    const auto history =
        protocol::ReadHistory(Run(protocol::kCommandHistory, protocol::WriteHistoryRequest({"plate", 0, 1})));
    EXPECT_TRUE(history.Ok() && history.Value().entries.size() == 1);
    return history.Value().entries.at(0).changes;
  }

  protocol::PartData StateOf(int number, HistoryMoment moment) {
    return protocol::ReadPartData(Run(protocol::kCommandHistoryState,
                                      protocol::WriteHistoryStateRequest({"plate", number, moment})))
        .Value();
  }
};

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

/// A part whose revision has mass types of the same names, with other precisions and deviations.
class SaveOfARevisionWithTheSameNames : public SaveContent {
 protected:
  SaveOfARevisionWithTheSameNames() {
    ImportTables tables{TableSource{"s2.csv", "parent,child\nother,cover\n"},
                        {"m2.csv", "part,mass type,active,mass [kg],sd mass [kg]\ncover,Weighed,yes,10,3\n"}};
    tables.documents = TableSource{
        "d2.csv",
        "part,document,revision,check in time,mass type,active,mass [kg],sd mass [kg],type lower precision "
        "[%],type upper precision [%]\ncover,D-2,A,2020-01-01 00:00:00,Weighed,yes,8,1,10,20\n"
        "cover,D-2,B,2022-01-01 00:00:00,Weighed,yes,10,3,,\n"};
    const auto imported = ImportProduct(*store, tables, {});
    EXPECT_TRUE(imported.Ok()) << imported.Failure().message;
  }

  protocol::PartData RevisionA() {
    return protocol::ReadPartData(Run("WBGetActiveDocInfo", "D-2|A")).Value();
  }

  MassTypeData Stored() { return store->LoadPart("cover").Value().part.massTypes.at(0); }
};

TEST_F(SaveOfARevisionWithTheSameNames, TakesItsPrecisionsAndStandardDeviationsOver) {
  SaveWell(Choosing(RevisionA(), "A"));
  EXPECT_EQ(PartDataOf("cover").massTypes.at(1).massTypeUpperPrecision, 0.2);
  EXPECT_EQ(Stored().deviations.mass, 1);
  EXPECT_FALSE(Stored().bounds) << "nobody has set limits";
}

TEST_F(SaveOfARevisionWithTheSameNames, TakesThemOverWithEditedValues) {
  protocol::PartData data = Choosing(RevisionA(), "A");
  data.massTypes.at(1).mass = 8.5;
  SaveWell(data);
  EXPECT_EQ(Stored().properties.mass, 8.5);
  EXPECT_EQ(Stored().deviations.mass, 1);
  EXPECT_FALSE(Stored().bounds);
}

TEST_F(SaveOfARevisionWithTheSameNames, LeavesThoseOfThePartWhenTheRevisionIsNotTaken) {
  protocol::PartData data = PartDataOf("cover");
  data.massTypes.at(1).mass = 11;
  SaveWell(data);
  EXPECT_EQ(PartDataOf("cover").massTypes.at(1).massTypeUpperPrecision, 0);
  EXPECT_EQ(Stored().deviations.mass, 3);
  EXPECT_FALSE(Stored().bounds);
}

/// A part whose revisions have mass types of the same names and precisions, and differ in standard
/// deviations.
class SaveOfARevisionWithOtherDeviations : public SaveContent {
 protected:
  SaveOfARevisionWithOtherDeviations() {
    ImportTables tables{TableSource{"s2.csv", "parent,child\nother,cover\n"},
                        {"m2.csv", "part,mass type,active,mass [kg],sd mass [kg]\ncover,Weighed,yes,10,3\n"}};
    tables.documents = TableSource{"d2.csv",
                                   "part,document,revision,check in time,mass type,active,mass [kg],sd mass "
                                   "[kg]\ncover,D-2,A,2020-01-01 00:00:00,Weighed,yes,8,1\n"
                                   "cover,D-2,B,2022-01-01 00:00:00,Weighed,yes,9,2\n"};
    const auto imported = ImportProduct(*store, tables, {});
    EXPECT_TRUE(imported.Ok()) << imported.Failure().message;
  }

  protocol::PartData Revision(const std::string& revision) {
    return protocol::ReadPartData(Run("WBGetActiveDocInfo", "D-2|" + revision)).Value();
  }

  /// That the part has a mass and a standard deviation of it, and no limits, which nobody has set.
  void ExpectStored(double mass, double deviation) {
    const MassTypeData stored = store->LoadPart("cover").Value().part.massTypes.at(0);
    EXPECT_EQ(stored.properties.mass, mass);
    EXPECT_EQ(stored.deviations.mass, deviation);
    EXPECT_FALSE(stored.bounds);
  }
};

TEST_F(SaveOfARevisionWithOtherDeviations, TakesThoseOfTheRevisionThatIsChosen) {
  SaveWell(Choosing(Revision("A"), "A"));
  ExpectStored(8, 1);
}

TEST_F(SaveOfARevisionWithOtherDeviations, TakesThemWithValuesThatAreEditedToThoseOfThePart) {
  protocol::PartData data = Choosing(Revision("A"), "A");
  data.massTypes.at(1).mass = 10;
  SaveWell(data);
  ExpectStored(10, 1);
}

TEST_F(SaveOfARevisionWithOtherDeviations, TakesThoseOfOneRevisionAfterTheOther) {
  SaveWell(Choosing(Revision("A"), "A"));
  SaveWell(Choosing(Revision("B"), "B"));
  ExpectStored(9, 2);
  SaveWell(Choosing(Revision("A"), "A"));
  ExpectStored(8, 1);
}

TEST_F(SaveOfARevisionWithOtherDeviations, TakesThoseOfTheChosenRevisionThatIsLoadedAgain) {
  SaveWell(Choosing(Revision("A"), "A"));
  protocol::PartData edited = PartDataOf("cover");
  edited.massTypes.at(1).mass = 12;
  edited.massTypes.at(1).lowerDeviation = 0.5;
  edited.massTypes.at(1).upperDeviation = 0.25;
  SaveWell(edited);
  SaveWell(Choosing(Revision("A"), "A"));
  ExpectStored(8, 1);
}

TEST_F(SaveOfARevisionWithOtherDeviations, TakesThoseOfALoadedRevisionUnderTheAutomaticChoice) {
  SaveWell(ChoosingNone(Revision("A")));
  ExpectStored(8, 1);
  EXPECT_FALSE(PartDataOf("cover").documents.usedSpecificRevisionBefore);
}

TEST_F(SaveOfARevisionWithOtherDeviations, MakesLimitsOfDeviationsThatAUserHasTyped) {
  protocol::PartData data = PartDataOf("cover");
  data.massTypes.at(1).lowerDeviation = 1;
  data.massTypes.at(1).upperDeviation = 2;
  SaveWell(data);
  const MassTypeData stored = store->LoadPart("cover").Value().part.massTypes.at(0);
  EXPECT_EQ(stored.bounds->upper, 2);
  EXPECT_EQ(stored.deviations.mass, 3);
}

}  // namespace
}  // namespace lumira::test
