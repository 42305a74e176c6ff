#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "lumira/engine/ExcludedInstances.h"
#include "tests/lumira/engine/Products.h"

namespace lumira::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto kKeep = ConditionSense::Keep;
constexpr auto kLeaveOut = ConditionSense::LeaveOut;

Instance Use(std::string id, std::string parent, std::string child, std::vector<InstanceAttribute> attributes,
             Effectivity effectivity = {}) {
  return {std::move(id), std::move(parent), std::move(child), 1, {}, effectivity, std::move(attributes)};
}

Part Revised(std::string id, std::string revision) {
  Part part = Plain(std::move(id));
  part.revision = std::move(revision);
  return part;
}

/// root > frame (with a bolt), root > motor (with a bolt of its own), root > cover. Bolts are the same part.
Product Machine() {
  Product machine{
      "machine",
      {Plain("root"), Revised("frame", "A"), Revised("motor", "B"), Plain("cover"), Revised("bolt", "B")},
      {Use("frame.1", "root", "frame", {{"system", "structure"}}),
       Use("motor.1", "root", "motor", {{"system", "drive"}, {"zone", "rear"}},
           {ParseDate("2020-01-01"), ParseDate("2021-12-31")}),
       Use("cover.1", "root", "cover", {}, {ParseDate("2022-01-01"), {}}),
       Use("bolt.1", "frame", "bolt", {{"system", "structure"}}),
       Use("bolt.2", "motor", "bolt", {{"zone", "rear"}})},
      {"root"}};
  return machine;
}

std::vector<std::string> LeftOut(std::vector<FilterCondition> conditions,
                                 const Product& product = Machine()) {
  const StructureIndex structure(product);
  const auto excluded = ExcludedInstances(structure, {"filter", "", std::move(conditions)});
  if (!excluded) return {excluded.Failure().message};
  std::vector<std::string> ids;
  for (std::size_t i = 0; i < excluded.Value().size(); ++i)
    if (excluded.Value()[i]) ids.push_back(product.instances[i].id);
  return ids;
}

TEST(FilterConditions, WithoutAnyEverythingPasses) { EXPECT_THAT(LeftOut({}), IsEmpty()); }

TEST(FilterConditions, KeepAnAttributeLeavesOutInstancesWithAnotherValueOnly) {
  EXPECT_THAT(LeftOut({{ConditionKind::Attribute, kKeep, "system", {"structure"}}}), ElementsAre("motor.1"))
      << "cover.1 and bolt.2 have no system, so that the condition is not about them";
  EXPECT_THAT(LeftOut({{ConditionKind::Attribute, kKeep, "system", {"structure", "drive"}}}), IsEmpty());
  EXPECT_THAT(LeftOut({{ConditionKind::Attribute, kKeep, "system", {"Structure"}}}),
              ElementsAre("frame.1", "motor.1", "bolt.1"))
      << "values are compared as they stand";
}

TEST(FilterConditions, LeaveOutAnAttributeLeavesOutInstancesWithAValueOfTheList) {
  EXPECT_THAT(LeftOut({{ConditionKind::Attribute, kLeaveOut, "zone", {"front", "rear"}}}),
              ElementsAre("motor.1", "bolt.2"));
}

TEST(FilterConditions, ARevisionIsThatOfThePlacedPartAndPartsWithoutOnePass) {
  EXPECT_THAT(LeftOut({{ConditionKind::Revision, kKeep, "", {"A"}}}),
              ElementsAre("motor.1", "bolt.1", "bolt.2"));
  EXPECT_THAT(LeftOut({{ConditionKind::Revision, kLeaveOut, "", {"A"}}}), ElementsAre("frame.1"));
}

TEST(FilterConditions, ARevisionMayBeAboutOnePartOnly) {
  EXPECT_THAT(LeftOut({{ConditionKind::Revision, kKeep, "bolt", {"C"}}}), ElementsAre("bolt.1", "bolt.2"));
  EXPECT_THAT(LeftOut({{ConditionKind::Revision, kLeaveOut, "motor", {"B"}}}), ElementsAre("motor.1"));
  EXPECT_THAT(LeftOut({{ConditionKind::Revision, kKeep, "cover", {"A"}}}), ElementsAre("cover.1"))
      << "the condition is about the cover, which has no revision";
}

TEST(FilterConditions, EffectivityCoversBothItsDaysAndInstancesWithoutDatesPass) {
  const auto on = [](const char* date, ConditionSense sense = kKeep) {
    return LeftOut({{ConditionKind::Effectivity, sense, "", {date}}});
  };
  EXPECT_THAT(on("2019-12-31"), ElementsAre("motor.1", "cover.1"));
  EXPECT_THAT(on("2020-01-01"), ElementsAre("cover.1"));
  EXPECT_THAT(on("2021-12-31"), ElementsAre("cover.1"));
  EXPECT_THAT(on("2022-01-01"), ElementsAre("motor.1"));
  EXPECT_THAT(on("2022-01-01", kLeaveOut), ElementsAre("cover.1"));
  EXPECT_THAT(on("0000-02-29"), ElementsAre("motor.1", "cover.1")) << "as older programs have stored it";
}

TEST(FilterConditions, InstancesLeftOutAreThoseOfTheList) {
  EXPECT_THAT(LeftOut({{ConditionKind::Instances, kLeaveOut, "", {"motor.1", "bolt.1"}}}),
              ElementsAre("motor.1", "bolt.1"));
}

TEST(FilterConditions, InstancesKeptKeepTheWayToThemAndWhatTheyConsistOf) {
  EXPECT_THAT(LeftOut({{ConditionKind::Instances, kKeep, "", {"motor.1"}}}),
              ElementsAre("frame.1", "cover.1", "bolt.1"));
  EXPECT_THAT(LeftOut({{ConditionKind::Instances, kKeep, "", {"bolt.1"}}}),
              ElementsAre("motor.1", "cover.1", "bolt.2"));
}

TEST(FilterConditions, AnInstanceHasToPassAllOfThem) {
  EXPECT_THAT(LeftOut({{ConditionKind::Attribute, kKeep, "system", {"structure"}},
                       {ConditionKind::Effectivity, kKeep, "", {"2021-01-01"}}}),
              ElementsAre("motor.1", "cover.1"));
}

TEST(FilterConditions, ThatCannotBeAppliedAreRefusedWithFilterConditionAndValue) {
  EXPECT_THAT(LeftOut({{ConditionKind::Attribute, kKeep, "zone", {"rear"}},
                       {ConditionKind::Instances, kKeep, "", {"motor.1", "motor.2"}}}),
              ElementsAre("configuration filter \"filter\", condition 2: there is no instance \"motor.2\""));
  EXPECT_THAT(LeftOut({{ConditionKind::Revision, kKeep, "wheel", {"A"}}}),
              ElementsAre("configuration filter \"filter\", condition 1: there is no part \"wheel\""));
  EXPECT_THAT(
      LeftOut({{ConditionKind::Effectivity, kKeep, "", {"2021-02-29"}}}),
      ElementsAre("configuration filter \"filter\", condition 1: \"2021-02-29\" is no date; a day of the "
                  "calendar as YYYY-MM-DD expected"));
  EXPECT_THAT(LeftOut({{ConditionKind::Effectivity, kKeep, "", {"2021-01-01", "2022-01-01"}}}),
              ElementsAre("configuration filter \"filter\", condition 1: one date expected, there are 2"));
  EXPECT_THAT(LeftOut({{ConditionKind::Attribute, kKeep, "zone", {}}}),
              ElementsAre("configuration filter \"filter\", condition 1: there are no values"));
}

TEST(FilterConditions, CountWhatStandsBelowTheInstancesLeftOutToo) {
  const auto count = [](const Product& product, std::vector<FilterCondition> conditions) {
    const StructureIndex structure(product);
    return CountLeftOut(structure, ExcludedInstances(structure, {"filter", "", conditions}).Value());
  };
  const std::vector<FilterCondition> noMotor = {{ConditionKind::Instances, kLeaveOut, "", {"motor.1"}}};
  EXPECT_EQ(count(Machine(), noMotor), 2u) << "motor.1 and bolt.2";
  Product twice = Machine();
  twice.instances.push_back(Use("motor.2", "root", "motor", {}));
  EXPECT_EQ(count(twice, noMotor), 1u) << "bolt.2 stands in the other motor still";
}

}  // namespace
}  // namespace lumira::test
