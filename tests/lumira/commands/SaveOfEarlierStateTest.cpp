#include <optional>
#include <utility>

#include "SaveOriginFixture.h"

namespace lumira::test {
namespace {

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

TEST_F(SaveBesideRevisions, OfAnEarlierStateHasTheDeviationsOfThen) {
  for (const char* revision : {"A", "B"}) {
    ImportCoverWithTwoMassTypes();
    SaveWell(Choosing(Revision(revision), revision));
    SaveWell(StateBefore(1));
    EXPECT_EQ(Stored("Weighed").deviations.mass, 3) << revision;
    EXPECT_FALSE(Stored("Weighed").bounds) << revision;
  }
}

// The part has got deviations since then that tell the same.
TEST_F(SaveBesideRevisions, OfAnEarlierStateTakesNoneThatAPartHasGotSince) {
  ImportCoverWithDeviationsThatAreNotTold();
  SaveWell(Choosing(Revision("A"), "A"));
  EXPECT_EQ(Stored("Estimated").deviations.cg.x, 0.5);
  SaveWell(StateBefore(1));
  ExpectNoDeviations(5);
}

TEST_F(SaveBesideRevisions, OfAnEarlierStateHasLimitsAndStandardDeviationsOfThen) {
  const std::string inertia = "ixx [kg m2],iyy [kg m2],izz [kg m2],sd ixx [kg m2],sd ixy [kg m2]";
  ImportCover(
      "part,mass type,active,mass [kg],cg x [m],cg y [m],cg z [m],sd mass [kg],sd cg x [m],lower "
      "deviation [kg],upper deviation [kg]," +
          inertia + "\ncover,Weighed,yes,10,0,0,0,3,1,4,5,7,8,9,0.25,0.5\n",
      "part,document,revision,check in time,mass type,active,mass [kg]\n"
      "cover,D-3,A,2020-01-01 00:00:00,Weighed,yes,8\n");
  const MassTypeData then = Stored("Weighed");
  EXPECT_EQ(then.bounds, (MassBounds{4, 5}));
  EXPECT_EQ(then.deviations.inertia, (InertiaTensor{.xx = 0.25, .xy = 0.5}));
  SaveWell(Choosing(Revision("A"), "A"));
  EXPECT_EQ(Stored("Weighed").deviations, Deviations{});
  SaveWell(StateBefore(1));
  EXPECT_EQ(Stored("Weighed"), then);
}

TEST_F(SaveBesideRevisions, OfAMassTypeRemovedFromAnEarlierStateDropsItsDeviations) {
  for (const bool isOlder : {false, true}) {
    ImportCoverWithTwoMassTypes();
    SaveWell(Choosing(Revision("B"), "B"));
    if (isOlder) MakeHistoryOlder();
    protocol::PartData data = StateBefore(1);
    data.massTypes.at(2).status = protocol::MassTypeStatus::Undefined;
    SaveWell(data);
    EXPECT_EQ(Stored("Weighed"), (MassTypeData{"Weighed", {}, {}, {}})) << isOlder;
  }
}

TEST_F(SaveBesideRevisions, OfAnOlderHistoryMakesLimitsOfDeviationsUnlessThePartStillHasTheSame) {
  for (const auto& [revision, hasLimits] : {std::pair("A", true), std::pair("B", false)}) {
    ImportCoverWithTwoMassTypes();
    SaveWell(Choosing(Revision(revision), revision));
    MakeHistoryOlder();
    SaveWell(StateBefore(1));
    const MassTypeData stored = Stored("Weighed");
    EXPECT_EQ(stored.deviations.mass, hasLimits ? 0 : 3) << revision;
    EXPECT_EQ(stored.bounds, hasLimits ? std::optional(MassBounds{3, 3}) : std::nullopt) << revision;
  }
}

TEST_F(SaveBesideRevisions, OfAnOlderHistoryKeepsStandardDeviationsBesideTheSameLimitsOnly) {
  for (const double upper : {3.0, 5.0}) {
    ImportCoverWithLimits();
    protocol::PartData data = PartDataOf("cover");
    data.massTypes.at(1).mass = 11;
    data.massTypes.at(1).upperDeviation = upper;
    SaveWell(data);
    MakeHistoryOlder();
    SaveWell(StateBefore(1));
    EXPECT_EQ(Stored("Weighed").bounds, (MassBounds{3, 3})) << upper;
    EXPECT_EQ(Stored("Weighed").deviations.mass, upper == 3 ? 3 : 0);
  }
}

TEST_F(SaveBesideRevisions, OfAPartThatIsAsItWasInAnOlderHistoryIsNoConflict) {
  ImportCoverWithLimits();
  protocol::PartData mine = PartDataOf("cover");
  for (const double mass : {11, 10}) {
    protocol::PartData theirs = PartDataOf("cover");
    theirs.massTypes.at(1).mass = mass;
    SaveWell(theirs);
  }
  MakeHistoryOlder();
  mine.massTypes.at(1).mass = 12;
  SaveWell(mine);
  EXPECT_EQ(Stored("Weighed").properties.mass, 12);
}

TEST_F(SaveBesideRevisions, OfAnEarlierStateTakesNoneOfARevisionThatToldTheSameDeviations) {
  ImportCoverWithDeviationsThatAreNotTold();
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

TEST_F(SaveBesideRevisions, OfAnEarlierStateHasLimitsThatAreAsLargeAsItsStandardDeviation) {
  ImportCoverWithLimits();
  SaveWell(Choosing(Revision("A"), "A"));
  EXPECT_FALSE(Stored("Weighed").bounds);
  SaveWell(StateBefore(1));
  EXPECT_EQ(Stored("Weighed").bounds, (MassBounds{3, 3}));
}

// One record of an older program, and one of this one.
TEST_F(SaveOfWhatIsNotTold, IsNotOverwrittenWhenAnOlderHistoryGoesOn) {
  protocol::PartData data = PartDataOf("cover");
  data.massTypes.at(1).lowerPrecision = 0.5;
  SaveWell(data);
  MakeHistoryOlder();
  const protocol::PartData joes = ChoosingNone(Revision("B"));
  SaveWell(ChoosingNone(Revision("A")));
  EXPECT_THAT(Save(joes), testing::HasSubstr("standardDeviations[Weighed].cg (\"1 0 0\", now \"2 0 0\")"));
  EXPECT_EQ(Stored("Weighed").deviations.cg.x, 2);
}

}  // namespace
}  // namespace lumira::test
