#include "ServerFixture.h"

namespace lumira::test {
namespace {

class ComputedDeviations : public ServerFixture {
 protected:
  protocol::MassType TopOf(const std::string& rows) {
    Import("parent,child\ntop,a\ntop,b\n",
           "part,mass [kg],sd mass [kg],lower deviation [kg],upper deviation [kg]\n" + rows);
    return Compute("top");
  }
};

TEST_F(ComputedDeviations, AreZeroWhenNothingIsKnown) {
  const protocol::MassType top = TopOf("a,10,,,\nb,20,,,\n");
  EXPECT_EQ(top.lowerDeviation, 0);
  EXPECT_EQ(top.upperDeviation, 0);
}

TEST_F(ComputedDeviations, ArePlusMinusTheStandardDeviationWhenOnlyThoseAreKnown) {
  const protocol::MassType top = TopOf("a,10,3,,\nb,20,4,,\n");
  EXPECT_DOUBLE_EQ(top.lowerDeviation, 5);  // independent: the root of the sum of squares
  EXPECT_DOUBLE_EQ(top.upperDeviation, 5);
}

TEST_F(ComputedDeviations, AreTheWorstCaseWhenLimitsAreKnown) {
  const protocol::MassType top = TopOf("a,10,,1,2\nb,20,,0.5,0.25\n");
  EXPECT_EQ(top.lowerDeviation, 1.5);
  EXPECT_EQ(top.upperDeviation, 2.25);
}

TEST_F(ComputedDeviations, CountOneStandardDeviationForAPartWithoutLimitsAmongPartsWithLimits) {
  const protocol::MassType top = TopOf("a,10,,1,2\nb,20,4,,\n");
  EXPECT_EQ(top.lowerDeviation, 5);
  EXPECT_EQ(top.upperDeviation, 6);
  const auto warnings = Warnings();
  EXPECT_EQ(warnings.back().text,
            "1 part has no limits of the mass; in the limits of the total it counts with its "
            "standard deviation, if it has one (b)");
}

TEST_F(ComputedDeviations, CountNothingForAPartWithNeitherLimitsNorAStandardDeviation) {
  const protocol::MassType top = TopOf("a,10,,1,2\nb,20,,,\n");
  EXPECT_EQ(top.lowerDeviation, 1);
  EXPECT_EQ(top.upperDeviation, 2);
}

TEST_F(ComputedDeviations, ChangePlacesForANegativeMass) {
  const protocol::MassType top = TopOf("a,-10,,1,2\nb,20,,0,0\n");
  EXPECT_EQ(top.lowerDeviation, 2);
  EXPECT_EQ(top.upperDeviation, 1);
}

TEST_F(ComputedDeviations, AreKeptWithTheStoredResult) {
  TopOf("a,10,3,,\nb,20,4,,\n");
  Restart();
  EXPECT_DOUBLE_EQ(PartDataOf("top").massTypes[0].upperDeviation, 5);
  EXPECT_DOUBLE_EQ(store->LoadResults("top").Value().at(0).computed.deviations.mass, 5);
}

}  // namespace
}  // namespace lumira::test
