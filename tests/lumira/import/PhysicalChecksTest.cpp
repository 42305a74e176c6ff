#include <gmock/gmock.h>

#include "lumira/import/PhysicalChecks.h"

namespace lumira {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Problems(double mass, const InertiaTensor& inertia,
                                  const InertiaTensor& rounding = {}) {
  return FindPhysicalProblems({mass, Vec3{}, inertia}, rounding);
}

TEST(PhysicalChecks, AreSilentForABody) { EXPECT_THAT(Problems(1, {1, 1.5, 2, 0.1, 0, 0}), IsEmpty()); }

TEST(PhysicalChecks, AreSilentForThinPlatesAndRods) {
  EXPECT_THAT(Problems(1, {1, 2, 3, 0, 0, 0}),
              IsEmpty());  // a plate: the two in its plane add up to the third
  EXPECT_THAT(Problems(1, {0, 1, 1, 0, 0, 0}), IsEmpty());         // a rod
  EXPECT_THAT(Problems(1, {0.5, 0.5, 1, -0.5, 0, 0}), IsEmpty());  // a rod at 45 degrees
  EXPECT_THAT(Problems(1, {}), IsEmpty());                         // a point
}

TEST(PhysicalChecks, FindInertiaThatIsNotPositive) {
  EXPECT_THAT(
      Problems(1, {-1, 2, 3, 0, 0, 0}),
      ElementsAre(testing::StartsWith("the inertia is not positive: its principal moments are -1, ")));
  // Positive moments, but products that are too large for them.
  EXPECT_THAT(Problems(1, {1, 1, 1, 2, 0, 0}), ElementsAre(testing::HasSubstr("not positive")));
}

TEST(PhysicalChecks, FindABrokenTriangleInequality) {
  EXPECT_THAT(Problems(1, {1, 1, 2.1, 0, 0, 0}), ElementsAre(testing::HasSubstr("triangle inequality")));
  EXPECT_THAT(Problems(1, {0, 0, 1, 0, 0, 0}), ElementsAre(testing::HasSubstr("triangle inequality")));
}

TEST(PhysicalChecks, LookAtThePrincipalMomentsWhateverTheAxes) {
  // The moments 1, 1, 2.1 turned by 45 degrees about x.
  EXPECT_THAT(Problems(1, {1, 1.55, 1.55, 0, 0, -0.55}),
              ElementsAre(testing::HasSubstr("triangle inequality")));
}

TEST(PhysicalChecks, AllowForRounding) {
  EXPECT_THAT(Problems(1, {1, 1, 2.01, 0, 0, 0}, {0.005, 0.005, 0.005, 0, 0, 0}), IsEmpty());
  EXPECT_THAT(Problems(1, {-0.001, 1, 1, 0, 0, 0}, {0.005, 0.005, 0.005, 0, 0, 0}), IsEmpty());
  EXPECT_THAT(Problems(1, {1, 1, 2.01, 0, 0, 0}, {0, 0, 0, 0.01, 0, 0}), IsEmpty());
  EXPECT_FALSE(Problems(1, {1, 1, 2.1, 0, 0, 0}, {0.005, 0.005, 0.005, 0, 0, 0}).empty());
}

TEST(PhysicalChecks, FindInertiaWithoutMass) {
  EXPECT_THAT(Problems(0, {1, 1, 1, 0, 0, 0}), ElementsAre("the mass is zero, but there is inertia"));
  EXPECT_THAT(Problems(0, {}), IsEmpty());
}

TEST(PhysicalChecks, TurnTheSignForANegativeMass) {
  EXPECT_THAT(Problems(-1, {-1, -1.5, -2, 0, 0, 0}), IsEmpty());
  EXPECT_THAT(Problems(-1, {1, 1.5, 2, 0, 0, 0}), ElementsAre(testing::HasSubstr("not positive")));
}

}  // namespace
}  // namespace lumira
