#include <gmock/gmock.h>

#include <optional>
#include <utility>

#include "SaveContentFixture.h"
#include "lumira/model/Part.h"

namespace lumira::test {
namespace {

using protocol::HistoryMoment;

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

/// A part "cover" with a document "D-3", each test with the data of its own.
class SaveBesideRevisions : public SaveContentFixture {
 protected:
  void ImportCover(const std::string& mass, const std::string& documents) {
    ImportTables tables{TableSource{"s2.csv", "parent,child\nother,cover\n"}, {"m2.csv", mass}};
    tables.documents = TableSource{"d2.csv", documents};
    ImportOptions replace;
    replace.existing = Existing::Replace;
    const auto imported = ImportProduct(*store, tables, replace);
    ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  }

  protocol::PartData Revision(const std::string& revision) {
    return protocol::ReadPartData(Run("WBGetActiveDocInfo", "D-3|" + revision)).Value();
  }

  protocol::PartData State(int number, HistoryMoment moment) {
    return protocol::ReadPartData(Run(protocol::kCommandHistoryState,
                                      protocol::WriteHistoryStateRequest({"cover", number, moment})))
        .Value();
  }

  protocol::PartData StateBefore(int number) { return State(number, HistoryMoment::Before); }

  MassTypeData Stored(const std::string& massType) {
    const Part part = store->LoadPart("cover").Value().part;
    const MassTypeData* const found = FindMassType(part, massType);
    EXPECT_NE(found, nullptr) << massType;
    return found == nullptr ? MassTypeData{"", {}, {}, {}} : *found;
  }

  /// Revision "A" has the mass type of the part, with standard deviations, "B" another one.
  void ImportCoverWithoutDeviations(const std::string& chosen) {
    ImportCover(
        "part,mass type,active,mass [kg],type lower precision [%],type upper precision [%]\n"
        "cover,Estimated,yes,5,10,10\n",
        "part,document,revision,check in time,chosen,mass type,active,mass [kg],cg x [m],cg y [m],cg z "
        "[m],sd "
        "mass [kg],sd cg x [m],type lower precision [%],type upper precision [%]\n"
        "cover,D-3,A,2020-01-01 00:00:00," +
            chosen +
            ",Estimated,yes,7,0,0,0,2,0.5,10,10\n"
            "cover,D-3,B,2022-01-01 00:00:00,,Calculated,yes,8,,,,,,,\n");
  }

  /// Part and revision "A" tell the same deviations, and have others of the centre of gravity, which no
  /// client sees: 1 m and 2 m.
  void ImportCoverThatDiffersInWhatIsNotTold(const std::string& chosen) {
    ImportCover(
        "part,mass type,active,mass [kg],cg x [m],cg y [m],cg z [m],sd mass [kg],sd cg x [m]\n"
        "cover,Weighed,yes,10,0,0,0,3,1\n",
        "part,document,revision,check in time,chosen,mass type,active,mass [kg],cg x [m],cg y [m],cg z "
        "[m],sd "
        "mass [kg],sd cg x [m]\ncover,D-3,A,2020-01-01 00:00:00," +
            chosen + ",Weighed,yes,8,0,0,0,3,2\n");
  }

  /// Both revisions have one of the two alone, "A" with another deviation, "B" with that of the part.
  void ImportCoverWithTwoMassTypes() {
    ImportCover("part,mass type,active,mass [kg],sd mass [kg]\ncover,Estimated,,9,\ncover,Weighed,yes,10,3\n",
                "part,document,revision,check in time,mass type,active,mass [kg],sd mass [kg]\n"
                "cover,D-3,A,2020-01-01 00:00:00,Weighed,yes,8,1\n"
                "cover,D-3,B,2022-01-01 00:00:00,Weighed,yes,9,3\n");
  }

  /// That the part has the values that it had before there were any deviations.
  void ExpectNoDeviations(double mass) {
    const MassTypeData stored = Stored("Estimated");
    EXPECT_EQ(stored.properties.mass, mass);
    EXPECT_EQ(stored.deviations, Deviations{});
    EXPECT_FALSE(stored.bounds);
  }
};

TEST_F(SaveBesideRevisions, OfAnEarlierStateTakesNoHiddenDeviationsOfARevisionOfTheSameNames) {
  ImportCoverWithoutDeviations("");
  SaveWell(Choosing(Revision("B"), "B"));
  SaveWell(StateBefore(1));
  ExpectNoDeviations(5);
}

TEST_F(SaveBesideRevisions, OfAnEarlierStateThatIsEditedTakesNoneEither) {
  ImportCoverWithoutDeviations("");
  SaveWell(Choosing(Revision("B"), "B"));
  protocol::PartData data = StateBefore(1);
  data.massTypes.at(1).mass = 5.5;
  SaveWell(data);
  ExpectNoDeviations(5.5);
}

TEST_F(SaveBesideRevisions, OfAnEarlierStateThatHadChosenThatRevisionTakesNoneEither) {
  ImportCoverWithoutDeviations("yes");
  SaveWell(Choosing(Revision("B"), "B"));
  SaveWell(StateBefore(1));
  ExpectNoDeviations(5);
  EXPECT_EQ(Choice(PartDataOf("cover")), "D-3 A by hand");
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

// Standard deviations stand in no history.
TEST_F(SaveBesideRevisions, OfAnEarlierStateMakesLimitsOfDeviationsUnlessThePartStillHasTheSame) {
  for (const auto& [revision, hasLimits] : {std::pair("A", true), std::pair("B", false)}) {
    ImportCoverWithTwoMassTypes();
    SaveWell(Choosing(Revision(revision), revision));
    SaveWell(StateBefore(1));
    const MassTypeData stored = Stored("Weighed");
    EXPECT_EQ(stored.deviations.mass, hasLimits ? 0 : 3) << revision;
    EXPECT_EQ(stored.bounds, hasLimits ? std::optional(MassBounds{3, 3}) : std::nullopt) << revision;
  }
}

// What nobody is told differs between part and revision, and everything that is told is the same.
TEST_F(SaveBesideRevisions, OfAnEarlierStateTakesNoneOfARevisionThatToldTheSameDeviations) {
  ImportCover(
      "part,mass type,active,mass [kg],cg x [m],cg y [m],cg z [m],type lower precision [%],type upper "
      "precision [%]\ncover,Estimated,yes,5,0,0,0,10,10\n",
      "part,document,revision,check in time,chosen,mass type,active,mass [kg],cg x [m],cg y [m],cg z [m],sd "
      "cg x [m],type lower precision [%],type upper precision [%]\n"
      "cover,D-3,A,2020-01-01 00:00:00,yes,Estimated,yes,7,0,0,0,0.5,10,10\n"
      "cover,D-3,B,2022-01-01 00:00:00,,Calculated,yes,8,,,,,,\n");
  SaveWell(Choosing(Revision("B"), "B"));
  SaveWell(StateBefore(1));
  ExpectNoDeviations(5);
  SaveWell(Choosing(Revision("B"), "B"));
  protocol::PartData data = StateBefore(1);
  data.massTypes.at(1).mass = 7;
  SaveWell(data);
  ExpectNoDeviations(7);
  SaveWell(Choosing(Revision("A"), "A"));
  EXPECT_EQ(Stored("Estimated").deviations.cg.x, 0.5);
}

TEST_F(SaveBesideRevisions, TakesTheStateAfterASaveAsWellAsTheOneBefore) {
  ImportCoverWithTwoMassTypes();
  SaveWell(Choosing(Revision("A"), "A"));
  SaveWell(StateBefore(1));
  protocol::PartData data = State(1, HistoryMoment::After);
  EXPECT_EQ(data.massTypes.size(), 2u);
  SaveWell(data);
  EXPECT_EQ(store->LoadPart("cover").Value().part.massTypes.size(), 1u);
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

// The revision tells what the part tells, and differs in what is not told.
TEST_F(SaveBesideRevisions, TakesStandardDeviationsOfARevisionThatDiffersInNothingElse) {
  ImportCover(
      "part,mass type,active,mass [kg],cg x [m],cg y [m],cg z [m],sd cg x [m]\ncover,Weighed,yes,8,0,0,0,1\n",
      "part,document,revision,check in time,chosen,mass type,active,mass [kg],cg x [m],cg y [m],cg z [m],sd "
      "cg x [m]\ncover,D-3,A,2020-01-01 00:00:00,yes,Weighed,yes,8,0,0,0,2\n");
  const std::string token = PartDataOf("cover").stateToken;
  SaveWell(Choosing(Revision("A"), "A"));
  EXPECT_EQ(Stored("Weighed").deviations.cg.x, 2);
  EXPECT_NE(PartDataOf("cover").stateToken, token) << "results above are out of date";
}

// Values that a user has removed since, with the deviations of then, which the part still has.
TEST_F(SaveBesideRevisions, OfAnEarlierStateWithoutValuesKeepsDeviationsThatAreStillTheSame) {
  ImportCover("part,mass type,active,mass [kg],sd mass [kg]\ncover,Estimated,,,3\ncover,Weighed,yes,10,\n",
              "part,document,revision,check in time,mass type,active,mass [kg]\n"
              "cover,D-3,A,2020-01-01 00:00:00,Weighed,yes,8\n");
  protocol::PartData data = PartDataOf("cover");
  protocol::MassType& estimated = data.massTypes.at(1);
  ASSERT_EQ(estimated.status, protocol::MassTypeStatus::Undefined);
  ASSERT_EQ(estimated.upperDeviation, 3);
  estimated.mass = 5;
  estimated.status = protocol::MassTypeStatus::Defined;
  SaveWell(data);
  EXPECT_EQ(Stored("Estimated").deviations.mass, 3);
  SaveWell(StateBefore(1));
  EXPECT_FALSE(Stored("Estimated").properties.mass);
  EXPECT_EQ(Stored("Estimated").deviations.mass, 3);
  EXPECT_FALSE(Stored("Estimated").bounds);
}

}  // namespace
}  // namespace lumira::test
