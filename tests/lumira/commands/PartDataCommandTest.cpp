#include <gmock/gmock.h>

#include "ServerFixture.h"

namespace lumira::test {
namespace {

using protocol::MassTypeStatus;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::Pointwise;

class PartDataCommand : public ServerFixture {
 protected:
  std::string Refusal(const protocol::PartDataRequest& request) {
    return Run("WBGetPartData", protocol::WritePartDataRequest(request));
  }
};

TEST_F(PartDataCommand, GivesTheRootPartWhenOnlyTheProductIsNamed) {
  ImportBoxes();
  const protocol::PartData data = PartData({.product = "top"});
  EXPECT_EQ(data.partId, "top");
  EXPECT_EQ(data.instancePath, "");
  EXPECT_EQ(data.configurationHandler, "top");
  EXPECT_TRUE(data.hasInstance);
  EXPECT_FALSE(data.persisted);
  EXPECT_EQ(data.activeMassType, "Computed");
  EXPECT_THAT(data.placement, ElementsAre(1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0));
}

TEST_F(PartDataCommand, CallsOnlyValuesOfUsersPersisted) {
  ImportBoxes();
  protocol::ComputeRequest compute;
  compute.partId = "top";
  Run("WBComputeNymValues", protocol::WriteComputeRequest(compute));
  const protocol::PartData data = PartData({.product = "top"});
  EXPECT_TRUE(data.computed);
  EXPECT_FALSE(data.persisted);
}

TEST_F(PartDataCommand, MultipliesThePlacementsOnTheWayDown) {
  Import("parent,child,instance,x [m],y [m],tilt z [deg]\ntop,arm,a,10,0,90\narm,tip,t,2,0,0\n",
         "part,mass [kg]\ntip,1\n");
  const protocol::PartData data = PartData({.product = "top", .instancePath = {"a", "t"}});
  EXPECT_EQ(data.partId, "tip");
  EXPECT_EQ(data.instancePath, "a|t");
  // Turned by 90 degrees, 2 m along the arm is 2 m along y.
  const std::vector<double> expected = {0, -1, 0, 1, 0, 0, 0, 0, 1, 10, 2, 0};
  EXPECT_THAT(data.placement, Pointwise(DoubleNear(1e-15), expected));
}

TEST_F(PartDataCommand, GivesThePlacementOfAPartThatStandsInOnePlace) {
  Import("parent,child,x [m]\ntop,arm,10\narm,tip,2\n", "part,mass [kg]\ntip,1\n");
  EXPECT_EQ(PartDataOf("tip").placement.at(9), 12);
}

TEST_F(PartDataCommand, GivesNoPlacementOfAPartThatStandsInSeveralPlaces) {
  ImportBoxes();
  EXPECT_TRUE(PartDataOf("bolt").placement.empty());
}

TEST_F(PartDataCommand, PutsTheComputedMassTypeFirst) {
  Import("parent,child\ntop,a\n",
         "part,mass type,mass [kg],lower deviation [kg],upper deviation [kg],active\n"
         "a,Estimated,5,1,2,\na,Weighed,6,,,yes\na,Planned,,,,\n");
  const protocol::PartData data = PartDataOf("a");
  ASSERT_EQ(data.massTypes.size(), 4u);
  EXPECT_EQ(data.massTypes[0].name, "Computed");
  EXPECT_EQ(data.massTypes[0].status, MassTypeStatus::Undefined);
  EXPECT_FALSE(data.massTypes[0].mass.has_value());
  EXPECT_EQ(data.massTypes[1].name, "Estimated");
  EXPECT_EQ(data.massTypes[1].status, MassTypeStatus::Defined);
  EXPECT_EQ(data.massTypes[1].mass, 5);
  EXPECT_EQ(data.massTypes[1].lowerDeviation, 1);
  EXPECT_EQ(data.massTypes[1].upperDeviation, 2);
  EXPECT_EQ(data.massTypes[2].name, "Weighed");
  EXPECT_EQ(data.massTypes[3].status, MassTypeStatus::Undefined) << "a mass type without any value";
  EXPECT_EQ(data.activeMassType, "Weighed");
  EXPECT_TRUE(data.persisted);
}

TEST_F(PartDataCommand, NamesTheMaterialsBelowOnce) {
  Import("parent,child\ntop,a\ntop,b\ntop,c\ntop,d\n",
         "part,material,density [kg/m3],cad material,cad density [kg/m3],density priority\n"
         "a,Steel,7850,,,\nb,Steel,7850,,,\nc,Paper,700,Brass,8500,cad\nd,Lead,11340,Iron,7200,wb\n");
  const auto statistics = PartDataOf("top").material.statistics;
  ASSERT_EQ(statistics.size(), 3u);
  EXPECT_EQ(statistics[0].name, "Steel");
  EXPECT_EQ(statistics[1].name, "Brass");
  EXPECT_EQ(statistics[1].density, 8500);
  EXPECT_EQ(statistics[2].name, "Lead");
  EXPECT_EQ(PartDataOf("c").material.densityPriority, 1);
  EXPECT_EQ(PartDataOf("d").material.densityPriority, 0);
  EXPECT_EQ(PartDataOf("d").material.name, "Lead");
  EXPECT_EQ(PartDataOf("d").material.density, 11340);
}

TEST_F(PartDataCommand, GivesTheDetailsThatAreStored) {
  ImportBoxes();
  PartDetails details;
  details.precisions = {{"Estimated", 1, 1, 0.1, 0.2, 0.3, 0.4}};
  details.appliedOn = "Part Reference";
  details.referenceMaterial = "Lead";
  details.referenceDensity = 11340;
  ASSERT_TRUE(store->SaveDetails("bolt", details).Ok());
  const protocol::PartData data = PartDataOf("bolt");
  EXPECT_EQ(data.massTypes[1].upperPrecision, 0.2);
  EXPECT_EQ(data.massTypes[1].massTypeUpperPrecision, 0.4);
  EXPECT_EQ(data.massTypes[0].upperPrecision, 0);
  EXPECT_EQ(data.material.appliedOn, "Part Reference");
  EXPECT_EQ(data.material.referenceName, "Lead");
  EXPECT_EQ(data.material.referenceDensity, 11340);
}

TEST_F(PartDataCommand, SendsEveryPropertyOfTheProductWithTheValueOfThePart) {
  ImportTables tables{TableSource{"s.csv", "parent,child\ntop,a\ntop,b\n"},
                      {"m.csv", "part,mass [kg]\na,1\nb,1\n"}};
  tables.properties = TableSource{"p.csv",
                                  "property,type,magnitude,part,value,unit\nfinish,,,a,painted,\n"
                                  "checked,date,,b,2020-02-29,\nlength,magnitude,LENGTH,a,1.5,m\n"};
  ASSERT_TRUE(ImportProduct(*store, tables, {}).Ok());
  const protocol::PartData a = PartDataOf("a"), b = PartDataOf("b");
  EXPECT_TRUE(a.propertiesRequested);
  EXPECT_EQ(a.dateFormat, "YYYY-MM-DD");
  ASSERT_EQ(a.properties.size(), 3u);
  EXPECT_EQ(a.properties[0].value, "painted");
  EXPECT_EQ(a.properties[0].type, 3);
  EXPECT_EQ(a.properties[1].value, "");
  EXPECT_TRUE(a.properties[1].isDate);
  EXPECT_EQ(a.properties[2].value, "1.5") << "lengths are metres";
  EXPECT_TRUE(a.properties[2].isMagnitude);
  EXPECT_EQ(a.properties[2].magnitude, "LENGTH");
  EXPECT_EQ(b.properties.at(1).value, "2020-02-29");
  EXPECT_EQ(b.properties.at(2).value, "");
}

TEST_F(PartDataCommand, SendsNoPropertiesWhenTheProductDefinesNone) {
  ImportBoxes();
  EXPECT_FALSE(PartDataOf("bolt").propertiesRequested);
  EXPECT_EQ(PartDataOf("bolt").dateFormat, "");
}

TEST_F(PartDataCommand, TellsTheStateThatItWasReadFrom) {
  ImportBoxes();
  const std::string before = PartDataOf("bolt").stateToken;
  EXPECT_EQ(PartDataOf("bolt").stateToken, before);
  ChangeMass("bolt", 3);
  EXPECT_NE(PartDataOf("bolt").stateToken, before);
}

TEST_F(PartDataCommand, GivesBackTheFilterOfTheRequest) {
  ImportBoxes();
  protocol::PartDataRequest request{.product = "top"};
  request.filter = "1|0";
  EXPECT_EQ(PartData(request).filter, "1|0");
  request.filter = "7";
  EXPECT_EQ(Refusal(request), "LumiraError: Filter: field 1 (kind): \"7\" is neither 0 nor 1");
}

TEST_F(PartDataCommand, HasNoComputedValuesUnderAFilterAlthoughTheWholeIsComputed) {
  ImportBoxes();
  protocol::ComputeRequest compute;
  compute.partId = "top";
  Run("WBComputeNymValues", protocol::WriteComputeRequest(compute));
  EXPECT_TRUE(PartData({.product = "top"}).computed);
  protocol::PartDataRequest request{.product = "top"};
  request.filter = "1|1|left|box||0";
  const protocol::PartData data = PartData(request);
  EXPECT_FALSE(data.computed);
  EXPECT_EQ(data.massTypes[0].name, "Computed");
  EXPECT_EQ(data.massTypes[0].status, MassTypeStatus::Undefined);
  EXPECT_FALSE(data.massTypes[0].mass.has_value());
}

TEST_F(PartDataCommand, NamesTheElementOfThePathThatIsWrong) {
  ImportBoxes();
  EXPECT_EQ(Refusal({.product = "top", .instancePath = {"left", "nuts"}}),
            "LumiraError: element 2 of the instance path: there is no instance \"nuts\" in part \"box\"");
}

TEST_F(PartDataCommand, RefusesAPathThatLeadsToAnotherPart) {
  ImportBoxes();
  EXPECT_EQ(Refusal({.product = "top", .partId = "plate", .instancePath = {"left", "bolts"}}),
            "LumiraError: the instance path leads to part \"bolt\", not to \"plate\"");
  EXPECT_EQ(PartData({.product = "top", .partId = "bolt", .instancePath = {"left", "bolts"}}).partId, "bolt");
}

TEST_F(PartDataCommand, RefusesARequestThatNamesNothingOrSomethingUnknown) {
  ImportBoxes();
  EXPECT_EQ(Refusal({}), "LumiraError: the request names neither a product nor a part");
  EXPECT_EQ(Refusal({.partId = "nobody"}), "LumiraError: there is no part \"nobody\"");
  EXPECT_EQ(Refusal({.product = "top", .partId = "nobody"}),
            "LumiraError: there is no part \"nobody\" in product \"top\"");
}

TEST_F(PartDataCommand, RefusesAConfigurationFilterThatTheProductHasNot) {
  ImportBoxes();
  ASSERT_TRUE(store->SaveFilter("top", {"Kit"}).Ok());
  EXPECT_EQ(PartData({.partId = "top", .filter = "0|Kit"}).filter, "0|Kit");
  EXPECT_EQ(Run("WBGetPartData", protocol::WritePartDataRequest({.partId = "top", .filter = "0|Nobody"})),
            "LumiraError: there is no configuration filter \"Nobody\" in product \"top\"");
}

TEST_F(PartDataCommand, RefusesChosenInstancesThatTheProductHasNot) {
  ImportBoxes();
  EXPECT_EQ(PartData({.partId = "top", .filter = "1|1|bolts|bolt||1|left"}).filter, "1|1|bolts|bolt||1|left");
  const auto refusal = [&](const std::string& filter) {
    return Run("WBGetPartData", protocol::WritePartDataRequest({.partId = "top", .filter = filter}));
  };
  EXPECT_EQ(refusal("1|1|bolts|bolt||1|middle"),
            "LumiraError: Filter: row 1, path element 1: there is no instance \"middle\" in part \"top\"");
  EXPECT_EQ(refusal("1|1|bolts|bolt||-1"),
            "LumiraError: Filter: field 6 (row 1, depth): \"-1\" is not a number from 0 to 1000");
}

}  // namespace
}  // namespace lumira::test
