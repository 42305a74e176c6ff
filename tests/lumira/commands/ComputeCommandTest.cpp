#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>

#include "ServerFixture.h"

namespace lumira::test {
namespace {

using protocol::MassTypeStatus;

class ComputeCommand : public ServerFixture {};

TEST_F(ComputeCommand, RollsUpInThePartsOwnFrame) {
  ImportBoxes();
  const protocol::MassType box = Compute("box");
  EXPECT_EQ(box.name, "Computed");
  EXPECT_EQ(box.status, MassTypeStatus::Defined);
  EXPECT_EQ(box.mass, 18);
  EXPECT_EQ(box.cg, (protocol::Vector{0, 0, 0}));
  EXPECT_EQ(box.inertia, (protocol::Tensor{5, 5, 5, 0, 0, 0}));
  const protocol::MassType top = Compute("top");
  EXPECT_EQ(top.mass, 36);
  EXPECT_EQ(top.inertia, (protocol::Tensor{10, 46, 46, 0, 0, 0}));  // each box 1 m beside the middle
}

TEST_F(ComputeCommand, TakesARequestWithOptions) {
  ImportBoxes();
  const auto reply = Run("WBComputeNymValues", "0|box|ComputeOptions/1|0%7CNo Filter|1|0|Steel|end");
  EXPECT_EQ(protocol::ReadComputeReply(reply).Value().computed.mass, 18);
}

TEST_F(ComputeCommand, IsUpToDateAfterwardsAndAfterARestart) {
  ImportBoxes();
  EXPECT_EQ(PartDataOf("top").massTypes[0].status, MassTypeStatus::Undefined);
  Compute("top");
  EXPECT_EQ(PartDataOf("top").massTypes[0].status, MassTypeStatus::Defined);
  Restart();
  const protocol::PartData data = PartDataOf("top");
  EXPECT_EQ(data.massTypes[0].status, MassTypeStatus::Defined);
  EXPECT_EQ(data.massTypes[0].mass, 36);
  EXPECT_TRUE(data.computed);
}

TEST_F(ComputeCommand, IsOutOfDateAfterAChangeAnywhereBelow) {
  ImportBoxes();
  Compute("top");
  Compute("box");
  Compute("plate");
  ChangeMass("bolt", 3);
  EXPECT_EQ(PartDataOf("top").massTypes[0].status, MassTypeStatus::OutOfDate);
  EXPECT_EQ(PartDataOf("top").massTypes[0].mass, 36) << "the old value stays until it is computed anew";
  EXPECT_FALSE(PartDataOf("top").computed);
  EXPECT_EQ(PartDataOf("box").massTypes[0].status, MassTypeStatus::OutOfDate);
  EXPECT_EQ(PartDataOf("plate").massTypes[0].status, MassTypeStatus::Defined)
      << "nothing below it has changed";
  EXPECT_EQ(Compute("top").mass, 44);
  EXPECT_EQ(PartDataOf("top").massTypes[0].status, MassTypeStatus::Defined);
}

TEST_F(ComputeCommand, IsUpToDateAgainWhenAChangeIsTakenBack) {
  ImportBoxes();
  Compute("top");
  ChangeMass("bolt", 3);
  ChangeMass("bolt", 2);
  EXPECT_EQ(PartDataOf("top").massTypes[0].status, MassTypeStatus::Defined);
}

TEST_F(ComputeCommand, OfALeafGivesItsOwnNumbers) {
  ImportBoxes();
  EXPECT_EQ(Compute("plate").mass, 10);
}

TEST_F(ComputeCommand, LeavesOutWhatAConfigurationFilterExcludesAndStoresNothing) {
  ImportBoxes();
  ASSERT_TRUE(store->SaveFilter("top", LeavingOut("Without bolts", {"bolts"})).Ok());
  const auto reply = Run("WBComputeNymValues", "1|top|ComputeOptions/1|0%7CWithout bolts|0|1||end");
  EXPECT_EQ(protocol::ReadComputeReply(reply).Value().computed.mass, 20);
  EXPECT_EQ(PartDataOf("top").massTypes[0].status, MassTypeStatus::Undefined);
}

TEST_F(ComputeCommand, AnswersAFilterThatItCannotApplyWithAnErrorReply) {
  ImportBoxes();
  EXPECT_EQ(Run("WBComputeNymValues", "1|top|ComputeOptions/1|0%7CNobody|0|1||end"),
            "LumiraError: there is no configuration filter \"Nobody\" in product \"top\"");
}

TEST_F(ComputeCommand, TakesAnEmptyListOfInstancesAsNoFilter) {
  ImportBoxes();
  EXPECT_FALSE(protocol::IsErrorReply(Run("WBComputeNymValues", "1|top|ComputeOptions/1|1%7C0|0|1||end")));
}

TEST_F(ComputeCommand, RefusesSumsThatOverflowAndStoresNothing) {
  Import("parent,child,quantity\ntop,a,1000000000\n", "part,mass [kg]\na,1e300\n");
  const std::string reply = Run("WBComputeNymValues", "1|top|");
  EXPECT_TRUE(protocol::IsErrorReply(reply)) << reply;
  EXPECT_NE(reply.find("too large"), std::string::npos) << reply;
  EXPECT_EQ(PartDataOf("top").massTypes[0].status, MassTypeStatus::Undefined);
}

TEST_F(ComputeCommand, RefusesLimitsOfTheMassThatOverflowAndStoresNothing) {
  Import("parent,child\ntop,a\ntop,b\n",
         "part,mass [kg],lower deviation [kg],upper deviation [kg]\na,1,0,1e308\nb,1,0,1e308\n");
  const auto reply = server->Execute("WBComputeNymValues", "1|top|");
  ASSERT_FALSE(reply.Ok()) << reply.Value();
  EXPECT_EQ(reply.Failure().kind, protocol::ErrorKind::BadValue);
  EXPECT_NE(reply.Failure().message.find("too large to be computed"), std::string::npos);
  EXPECT_TRUE(store->LoadResults("top").Value().empty());
  EXPECT_EQ(Compute("a").upperDeviation, 1e308);
}

TEST_F(ComputeCommand, RefusesStandardDeviationsThatOverflowAsValuesNotAsStorage) {
  Import("parent,child\ntop,a\ntop,b\n",
         "part,mass [kg],cg x [m],cg y [m],cg z [m],sd mass [kg]\na,1,0,0,0,1e155\nb,1,1,0,0,1e155\n");
  const auto reply = server->Execute("WBComputeNymValues", "1|top|");
  ASSERT_FALSE(reply.Ok()) << reply.Value();
  EXPECT_EQ(reply.Failure().kind, protocol::ErrorKind::BadValue);
  EXPECT_EQ(reply.Failure().message,
            "part \"top\": 2 parts add up to numbers that are too large to be computed");
}

TEST_F(ComputeCommand, FailsWhenTheResultCannotBeStored) {
  ImportBoxes();
  auto impatient = OpenSqliteStore(file, 0).Value();
  Server blocked(*impatient);
  SQLite::Database other(file, SQLite::OPEN_READWRITE);
  SQLite::Transaction writing(other, SQLite::TransactionBehavior::EXCLUSIVE);
  const std::string reply = blocked.Run("WBComputeNymValues", "1|top|");
  EXPECT_TRUE(protocol::IsErrorReply(reply));
  EXPECT_NE(reply.find("locked by another program"), std::string::npos) << reply;
}

TEST_F(ComputeCommand, LeavesWarningsBehindUntilTheyAreFetched) {
  Import("parent,child\ntop,a\ntop,b\ntop,c\n",
         "part,mass [kg],cg x [m],cg y [m],cg z [m]\na,5,,,\nb,7,0,0,0\n");
  Compute("top");
  Run("LumGetChildren", "ChildrenRequest/1|top|0|10|end");  // looking at the tree does not disturb them
  const auto warnings = Warnings();
  ASSERT_EQ(warnings.size(), 3u);
  EXPECT_EQ(warnings[0].text, "1 part has no mass data and is left out (c)");
  EXPECT_EQ(warnings[1].text,
            "1 part has a mass but no centre of gravity and counts in the mass only, 5 kg in all (a)");
  EXPECT_EQ(warnings[2].text, "1 part has no inertia of its own and counts as a point mass, 7 kg in all (b)");
  EXPECT_TRUE(Warnings().empty());
}

TEST_F(ComputeCommand, WithoutWarningsTakesThoseOfTheLastOneAway) {
  Import("parent,child\ntop,a\ntop,b\n",
         "part,mass [kg],cg x [m],cg y [m],cg z [m],ixx [kg m2],iyy [kg m2],izz [kg m2]\n"
         "a,5,0,0,0,1,1,1\n");
  Compute("top");
  Compute("a");
  EXPECT_TRUE(Warnings().empty());
}

TEST_F(ComputeCommand, ThatFailsTakesTheWarningsOfTheLastOneAway) {
  Import("parent,child\ntop,a\n", "part\na\n");
  Compute("top");
  Run("WBComputeNymValues", "1|nobody|");
  EXPECT_TRUE(Warnings().empty());
}

TEST_F(ComputeCommand, KeepsMomentsOfATotalMassOfZero) {
  Import("parent,child\ntop,a\ntop,b\n",
         "part,mass [kg],cg x [m],cg y [m],cg z [m],ixx [kg m2],iyy [kg m2],izz [kg m2]\n"
         "a,5,0,0,0,1,1,1\nb,-5,1,0,0,-1,-1,-1\n");
  const auto reply = protocol::ReadComputeReply(Run("WBComputeNymValues", "1|top|")).Value();
  EXPECT_EQ(reply.computed.mass, 0);
  EXPECT_FALSE(reply.computed.cg.has_value());
  EXPECT_EQ(reply.firstMoment, (protocol::Vector{-5, 0, 0}));                // 5·0 + -5·1
  EXPECT_EQ(reply.inertiaAtOrigin, (protocol::Tensor{0, -5, -5, 0, 0, 0}));  // 1 - 1, and -5·1² across x
  const auto warnings = Warnings();
  ASSERT_EQ(warnings.size(), 2u);
  EXPECT_EQ(warnings[0].text, "1 part has a negative mass (b)");
  EXPECT_EQ(warnings[0].severity, protocol::Severity::Information);
  EXPECT_EQ(warnings[1].text, "2 parts add up to a mass of zero, so that there is no centre of gravity");
}

TEST_F(ComputeCommand, TellsNoMomentsBesideACentre) {
  ImportBoxes();
  const auto reply = protocol::ReadComputeReply(Run("WBComputeNymValues", "1|top|")).Value();
  EXPECT_FALSE(reply.firstMoment.has_value());
  EXPECT_FALSE(reply.inertiaAtOrigin.has_value());
}

TEST_F(ComputeCommand, TellsNoMomentsWhereNoCentreIsKnownAtAll) {
  Import("parent,child\ntop,a\ntop,b\n", "part,mass [kg]\na,5\n");
  for (const char* part : {"top", "a", "b"}) {
    const auto reply =
        protocol::ReadComputeReply(Run("WBComputeNymValues", "1|" + std::string(part) + "|")).Value();
    EXPECT_FALSE(reply.firstMoment.has_value()) << part;
    EXPECT_FALSE(reply.inertiaAtOrigin.has_value()) << part;
  }
}

TEST_F(ComputeCommand, QuotesAndShortensThePartThatItCannotFind) {
  EXPECT_EQ(Run("WBComputeNymValues", "1|a\nb|"), "LumiraError: there is no part \"a\\x0Ab\"");
  EXPECT_LT(Run("WBComputeNymValues", "1|" + std::string(100'000, 'x') + "|").size(), 120u);
}

TEST_F(ComputeCommand, SaysHowFarLoadingAndComputingAre) {
  ImportBoxes();
  std::vector<std::string> told;
  Server listened(*store, [&](std::string_view what, std::size_t done, std::size_t total) {
    told.push_back(std::string(what) + " " + std::to_string(done) + "/" + std::to_string(total));
  });
  listened.Run("WBComputeNymValues", "1|top|");
  // Four parts and four instances.
  EXPECT_THAT(told, testing::ElementsAre("Loading the product 8/8", "Computing 0/4", "Computing 4/4"));
}

TEST_F(ComputeCommand, CallsAStructureThatCannotBeComputedDamageOfTheFile) {
  ImportBoxes();
  SQLite::Database(file, SQLite::OPEN_READWRITE)
      .exec("UPDATE instances SET r_11 = 2 WHERE instance = 'left'");
  const auto reply = server->Execute("WBComputeNymValues", "1|top|");
  ASSERT_FALSE(reply.Ok());
  EXPECT_EQ(reply.Failure().kind, protocol::ErrorKind::Storage);
  EXPECT_NE(reply.Failure().message.find("\"" + file + "\": the file is damaged"), std::string::npos)
      << reply.Failure().message;
  EXPECT_NE(reply.Failure().message.find("'left'"), std::string::npos) << reply.Failure().message;
}

TEST_F(ComputeCommand, CallsACycleInTheFileDamageOfTheFile) {
  ImportBoxes();
  SQLite::Database(file, SQLite::OPEN_READWRITE)
      .exec("UPDATE instances SET parent = 'plate' WHERE instance = 'plate'");
  const auto reply = server->Execute("WBComputeNymValues", "1|top|");
  ASSERT_FALSE(reply.Ok());
  EXPECT_EQ(reply.Failure().kind, protocol::ErrorKind::Storage);
  EXPECT_NE(reply.Failure().message.find("cycle of 1 part: 'plate' > 'plate'"), std::string::npos)
      << reply.Failure().message;
}

TEST_F(ComputeCommand, OfASharedPartTellsTheTruthForEveryProductThatIsStored) {
  ImportBoxes();
  Import("parent,child\nother,thing\n", "part,mass [kg]\nthing,3\n");
  EXPECT_EQ(Compute("other").mass, 3);
  EXPECT_EQ(Compute("top").mass, 36);
}

}  // namespace
}  // namespace lumira::test
