#include "SaveOriginFixture.h"

namespace lumira::test {
namespace {

/// A part whose revision has mass types of the same names, with other precisions and deviations.
class SaveOfARevisionWithTheSameNames : public SaveContentFixture {
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
class SaveOfARevisionWithOtherDeviations : public SaveContentFixture {
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

TEST_F(SaveBesideRevisions, KeepsThePartsDeviationsWhenARevisionIsChosenWithoutBeingLoaded) {
  ImportCover("part,mass type,active,mass [kg],sd mass [kg]\ncover,Estimated,yes,5,3\n",
              "part,document,revision,check in time,mass type,active,mass [kg],sd mass [kg]\n"
              "cover,D-3,A,2020-01-01 00:00:00,Estimated,yes,7,0.5\n");
  protocol::PartData data = Choosing(PartDataOf("cover"), "A");
  data.massTypes.at(1).mass = 6;
  SaveWell(data);
  EXPECT_EQ(Stored("Estimated").properties.mass, 6);
  EXPECT_EQ(Stored("Estimated").deviations.mass, 3);
  EXPECT_FALSE(Stored("Estimated").bounds);
  EXPECT_EQ(Choice(PartDataOf("cover")), "D-3 A by hand");
}

TEST_F(SaveBesideRevisions, KeepsThePartsDeviationsWhenNothingButTheChoiceIsEdited) {
  ImportCoverThatDiffersInWhatIsNotTold("");
  SaveWell(Choosing(PartDataOf("cover"), "A"));
  EXPECT_EQ(Stored("Weighed").deviations.cg.x, 1);
}

TEST_F(SaveBesideRevisions, KeepsThePartsDeviationsUnderTheRevisionThatWasChosenBefore) {
  ImportCoverThatDiffersInWhatIsNotTold("yes");
  protocol::PartData data = PartDataOf("cover");
  ASSERT_EQ(Choice(data), "D-3 A by hand");
  data.massTypes.at(1).mass = 11;
  SaveWell(data);
  EXPECT_EQ(Stored("Weighed").deviations.cg.x, 1);
}

TEST_F(SaveBesideRevisions, TakesEditedValuesOfALoadedRevisionWithOtherNamesUnderTheAutomaticChoice) {
  ImportCoverWithoutDeviations("");
  protocol::PartData data = ChoosingNone(Revision("B"));
  data.massTypes.at(1).mass = 8.5;
  SaveWell(data);
  EXPECT_EQ(Stored("Calculated").properties.mass, 8.5);
}

TEST_F(SaveBesideRevisions, IsOfThePartOnceItIsSaved) {
  ImportCoverWithTwoMassTypes();
  SaveWell(Choosing(Revision("A"), "A"));
  EXPECT_EQ(PartDataOf("cover").massTypesOrigin, protocol::Origin{});
}

TEST_F(SaveBesideRevisions, IsRefusedForAnOriginThatIsNotThere) {
  ImportCoverWithTwoMassTypes();
  const auto refusal = [this](const protocol::Origin& origin) {
    protocol::PartData data = PartDataOf("cover");
    data.massTypesOrigin = origin;
    return Save(data);
  };
  using protocol::OriginKind;
  const std::string place = "LumiraError: PartData: massTypesOrigin.name: ";
  EXPECT_EQ(refusal({OriginKind::Revision, "Z"}),
            place + "\"Z\" is no revision with mass types of part \"cover\"");
  EXPECT_EQ(refusal({OriginKind::BeforeSave, "1"}), place + "\"1\" is no save of part \"cover\"");
  EXPECT_EQ(refusal({OriginKind::AfterSave, "-1"}), place + "\"-1\" is no save of part \"cover\"");
  EXPECT_EQ(refusal({OriginKind::AfterSave, "first"}), place + "\"first\" is no number of a save");
  EXPECT_EQ(store->LoadHistory("cover", 0, 1).Value().total, 0);
}

// With the mass types of the part and the word that they are those of a revision.
TEST_F(SaveBesideRevisions, IsRefusedForMassTypesThatTheOriginHasNot) {
  ImportCoverWithTwoMassTypes();
  protocol::PartData data = PartDataOf("cover");
  data.massTypesOrigin = {protocol::OriginKind::Revision, "A"};
  EXPECT_THAT(Save(data),
              testing::HasSubstr("massTypes[2].name: \"Estimated\" is no mass type of part \"cover\""));
}

TEST_F(SaveOfWhatIsNotTold, IsASaveWithAHistory) {
  SaveWell(PartDataOf("cover"));
  EXPECT_EQ(store->LoadHistory("cover", 0, 1).Value().total, 0) << "nothing was changed";
  SaveWell(ChoosingNone(Revision("A")));
  EXPECT_EQ(Stored("Weighed").deviations.cg.x, 2);
  const auto history =
      protocol::ReadHistory(Run(protocol::kCommandHistory, protocol::WriteHistoryRequest({"cover", 0, 10})));
  EXPECT_THAT(
      history.Value().entries.at(0).changes,
      testing::ElementsAre(protocol::FieldChange{"standardDeviations[Weighed].cg", "1 0 0", "2 0 0"}));
  SaveWell(StateBefore(1));
  EXPECT_EQ(Stored("Weighed").deviations.cg.x, 1);
}

TEST_F(SaveOfWhatIsNotTold, IsNotOverwrittenByWhoHasReadThePartBefore) {
  const protocol::PartData joes = ChoosingNone(Revision("B"));
  SaveWell(ChoosingNone(Revision("A")));
  EXPECT_THAT(Save(joes), testing::HasSubstr("standardDeviations[Weighed].cg (\"1 0 0\", now \"2 0 0\")"));
  EXPECT_EQ(Stored("Weighed").deviations.cg.x, 2);
}

TEST_F(SaveBesideRevisions, OfTheSameMassTypesInAnotherOrderChangesNothing) {
  ImportCover(
      "part,mass type,active,mass [kg]\ncover,Estimated,,9\ncover,Weighed,yes,10\n",
      "part,document,revision,check in time,mass type,active,mass [kg]\n"
      "cover,D-3,A,2020-01-01 00:00:00,Weighed,yes,10\ncover,D-3,A,2020-01-01 00:00:00,Estimated,,9\n");
  SaveWell(ChoosingNone(Revision("A")));
  EXPECT_EQ(store->LoadHistory("cover", 0, 1).Value().total, 0);
}

// Of what a mass type has not, nothing is said.
TEST_F(SaveBesideRevisions, TellsWhatAnAddedMassTypeHas) {
  ImportCover(
      "part,mass type,active,mass [kg]\ncover,Weighed,yes,10\n",
      "part,document,revision,check in time,mass type,active,mass [kg]\n"
      "cover,D-3,A,2020-01-01 00:00:00,Weighed,yes,10\ncover,D-3,A,2020-01-01 00:00:00,Estimated,,9\n");
  SaveWell(ChoosingNone(Revision("A")));
  const auto history =
      protocol::ReadHistory(Run(protocol::kCommandHistory, protocol::WriteHistoryRequest({"cover", 0, 10})));
  for (const protocol::FieldChange& change : history.Value().entries.at(0).changes)
    EXPECT_TRUE(change.before || change.after) << change.field;
}

}  // namespace
}  // namespace lumira::test
