#include <gtest/gtest.h>

#include "lumira/store/MassTypesKey.h"

namespace lumira::test {
namespace {

protocol::MassType Type(const std::string& name, double lower = 0, double upper = 0) {
  protocol::MassType type;
  type.name = name;
  type.massTypeLowerPrecision = lower;
  type.massTypeUpperPrecision = upper;
  return type;
}

std::int64_t KeyOf(const std::vector<protocol::MassType>& types) {
  protocol::PartData data;
  data.massTypes = types;
  return MassTypesKey(data);
}

TEST(MassTypesKey, IsThatOfNamesAndPrecisionsWhateverTheValuesAre) {
  protocol::MassType weighed = Type("Weighed", 0.5);
  const std::int64_t key = KeyOf({weighed});
  weighed.mass = 7;
  weighed.lowerPrecision = 0.25;
  EXPECT_EQ(KeyOf({weighed}), key);
  EXPECT_NE(KeyOf({Type("weighed", 0.5)}), key);
  EXPECT_NE(KeyOf({Type("Weighed", 0.25)}), key);
  EXPECT_NE(KeyOf({Type("Weighed", 0, 0.5)}), key);
}

TEST(MassTypesKey, DoesNotDependOnTheOrderAndCountsEachMassType) {
  EXPECT_EQ(KeyOf({Type("A"), Type("B")}), KeyOf({Type("B"), Type("A")}));
  EXPECT_NE(KeyOf({Type("A"), Type("B")}), KeyOf({Type("A")}));
  EXPECT_NE(KeyOf({Type("A"), Type("A")}), KeyOf({Type("A")}));
  EXPECT_NE(KeyOf({Type("A", 1), Type("B", 2)}), KeyOf({Type("A", 2), Type("B", 1)}));
}

TEST(MassTypesKey, LeavesTheComputedMassTypeAndTheSignOfZeroOut) {
  EXPECT_EQ(KeyOf({Type("Computed", 1), Type("A")}), KeyOf({Type("A")}));
  EXPECT_EQ(KeyOf({Type("A", -0.0)}), KeyOf({Type("A", 0.0)}));
}

// Keys are stored, so that they stay what they are.
TEST(MassTypesKey, IsTheSameInEveryVersion) {
  EXPECT_EQ(KeyOf({}), 0);
  EXPECT_EQ(KeyOf({Type("Weighed", 0.5, 0.25)}), 1426050145166093065);
}

}  // namespace
}  // namespace lumira::test
