#include <gmock/gmock.h>

#include <cmath>

#include "ImportFixture.h"

namespace lumira::test {
namespace {

using testing::ElementsAre;

TEST(Import, ReadsStructureAndMass) {
  const auto imported = ReadTables(kTwoChildren, "part,mass [kg]\na,1.5\nb,2\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  const ImportReport& report = imported.Value().report;
  EXPECT_EQ(report.product, "top");
  EXPECT_EQ(report.parts, 3u);
  EXPECT_EQ(report.instances, 2u);
  EXPECT_EQ(report.massTypes, 2u);
  EXPECT_THAT(report.warnings, ElementsAre());
  EXPECT_THAT(report.leftOut, ElementsAre());
  EXPECT_THAT(imported.Value().product.roots, ElementsAre("top"));
  EXPECT_EQ(PartOf(imported.Value(), "a").massTypes[0].properties.mass, 1.5);
}

TEST(Import, NamesTheProductAsAsked) {
  const auto imported = ReadTables(kTwoChildren, "part\na\n", {.product = "My product"});
  EXPECT_EQ(imported.Value().product.id, "My product");
}

TEST(Import, ConvertsUnitsOfEachColumn) {
  const auto imported = ReadTables(
      "parent,child,instance,x [mm],y [in],z [m]\ntop,a,i,1500,10,2\n",
      "part,mass [lb],cg x [mm],cg y [cm],cg z [m],ixx [kg mm^2],iyy [t m2],izz [kg m2],density [g/cm3]\n"
      "a,2,1000,100,1,5e6,6e-3,7,7.5\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  const Part& a = PartOf(imported.Value(), "a");
  const MassProperties& p = a.massTypes[0].properties;
  EXPECT_EQ(p.mass, 2 * 0.45359237);
  EXPECT_EQ(p.cg, (Vec3{1, 1, 1}));
  EXPECT_EQ(p.inertia, (InertiaTensor{5, 6, 7, 0, 0, 0}));
  EXPECT_EQ(a.density, 7500);
  EXPECT_EQ(InstanceOf(imported.Value(), "i").placement.translation, (Vec3{1.5, 0.254, 2}));
}

TEST(Import, TakesTitlesInAnyCaseAndWithUnderscores) {
  const auto imported = ReadTables("Parent,CHILD\ntop,a\n", "Part,Mass_Type,MASS [kg]\na,Weighed,3\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_EQ(PartOf(imported.Value(), "a").massTypes[0].name, "Weighed");
}

TEST(Import, NamesInstancesThatHaveNoName) {
  const auto imported = ReadTables("parent,child,instance\ntop,a,\ntop,a,a.1\ntop,a,\n", "part\na\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_EQ(imported.Value().product.instances[0].id, "a.2");
  EXPECT_EQ(imported.Value().product.instances[1].id, "a.1");
  EXPECT_EQ(imported.Value().product.instances[2].id, "a.3");
}

TEST(Import, TakesQuantities) {
  const auto imported = ReadTables("parent,child,quantity\ntop,a,4\ntop,b,\n", "part\na\n");
  EXPECT_EQ(imported.Value().product.instances[0].quantity, 4);
  EXPECT_EQ(imported.Value().product.instances[1].quantity, 1);
}

TEST(Import, TurnsByTiltsAboutFixedAxesXThenYThenZ) {
  const auto imported =
      ReadTables("parent,child,tilt x [deg],tilt y [deg],tilt z [deg]\ntop,a,90,0,90\n", "part\na\n");
  const Rotation& r = imported.Value().product.instances[0].placement.rotation;
  // x stays x in the first turn and becomes y in the second; y becomes z, which the second leaves.
  const double expected[] = {0, 0, 1, 1, 0, 0, 0, 1, 0};
  for (std::size_t i = 0; i < 9; ++i) EXPECT_NEAR(r.m[i], expected[i], 1e-15) << i;
}

TEST(Import, TurnsZTowardsXByATiltAboutY) {
  const auto imported = ReadTables("parent,child,tilt y [rad]\ntop,a,0.5\n", "part\na\n");
  const Vec3 z = imported.Value().product.instances[0].placement.rotation * Vec3{0, 0, 1};
  EXPECT_EQ(z.x, std::sin(0.5));
  EXPECT_EQ(z.z, std::cos(0.5));
}

TEST(Import, TakesARotationAsNineCoefficients) {
  const auto imported =
      ReadTables("parent,child,r11,r12,r13,r21,r22,r23,r31,r32,r33\ntop,a,0,-1,0,1,0,0,0,0,1\n", "part\na\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_EQ(imported.Value().product.instances[0].placement.rotation.m,
            (std::array<double, 9>{0, -1, 0, 1, 0, 0, 0, 0, 1}));
}

constexpr char kProducts[] =
    "part,mass [kg],ixx [kg m2],iyy [kg m2],izz [kg m2],ixy [kg m2],ixz [kg m2],iyz [kg m2],";

TEST(Import, TurnsTheSignOfProductsThatAreIntegrals) {
  const auto tensor = [](const std::string& sign) {
    const auto imported =
        ReadTables("parent,child\ntop,a\n", std::string(kProducts) + "products\na,1,9,9,9,1,2,3," + sign);
    return PartOf(imported.Value(), "a").massTypes[0].properties.inertia.value();
  };
  EXPECT_EQ(tensor("-\n"), (InertiaTensor{9, 9, 9, 1, 2, 3}));
  EXPECT_EQ(tensor("tensor\n"), (InertiaTensor{9, 9, 9, 1, 2, 3}));
  EXPECT_EQ(tensor("+\n"), (InertiaTensor{9, 9, 9, -1, -2, -3}));
  EXPECT_EQ(tensor("integral\n"), (InertiaTensor{9, 9, 9, -1, -2, -3}));
}

TEST(Import, MovesInertiaAboutTheOriginToTheCentreOfGravity) {
  const auto imported = ReadTables(
      "parent,child\ntop,a\n",
      "part,mass [kg],cg x [m],cg y [m],cg z [m],ixx [kg m2],iyy [kg m2],izz [kg m2],inertia about\n"
      "a,2,3,0,0,5,25,27,origin\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  // 2 kg at 3 m: 18 kg·m² about y and z.
  EXPECT_EQ(PartOf(imported.Value(), "a").massTypes[0].properties.inertia, (InertiaTensor{5, 7, 9, 0, 0, 0}));
}

TEST(Import, TurnsInertiaGivenInTiltedAxes) {
  const auto imported =
      ReadTables("parent,child\ntop,a\n",
                 "part,mass [kg],ixx [kg m2],iyy [kg m2],izz [kg m2],inertia tilt y [deg]\na,1,5,6,7,90\n");
  const InertiaTensor i = PartOf(imported.Value(), "a").massTypes[0].properties.inertia.value();
  EXPECT_NEAR(i.xx, 7, 1e-12);
  EXPECT_NEAR(i.yy, 6, 1e-12);
  EXPECT_NEAR(i.zz, 5, 1e-12);
}

TEST(Import, TakesDeviationsAndBounds) {
  const auto imported =
      ReadTables("parent,child\ntop,a\n",
                 "part,mass [kg],sd mass [g],sd cg x [mm],sd iyz [kg m2],lower deviation [kg],"
                 "upper deviation [kg]\na,1,2,3,4,0.5,\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  const MassTypeData& type = PartOf(imported.Value(), "a").massTypes[0];
  EXPECT_EQ(type.deviations.mass, 0.002);
  EXPECT_EQ(type.deviations.cg.x, 0.003);
  EXPECT_EQ(type.deviations.inertia.yz, 4);
  EXPECT_EQ(type.bounds, (MassBounds{0.5, 0}));
}

TEST(Import, TakesSeveralMassTypesAndTheActiveOne) {
  const auto imported = ReadTables("parent,child\ntop,a\n",
                                   "part,mass type,mass [kg],active\na,Estimated,1,\na,Weighed,2,yes\n");
  const Part& a = PartOf(imported.Value(), "a");
  ASSERT_EQ(a.massTypes.size(), 2u);
  EXPECT_EQ(a.activeMassType, "Weighed");
}

TEST(Import, MakesTheFirstMassTypeOfALeafActive) {
  const auto imported =
      ReadTables("parent,child\ntop,a\n", "part,mass type,mass [kg]\na,First,1\na,Second,2\n");
  EXPECT_EQ(PartOf(imported.Value(), "a").activeMassType, "First");
}

TEST(Import, LeavesAnAssemblyToItsChildrenUnlessARowSaysOtherwise) {
  const std::string structure = "parent,child\ntop,a\n";
  const auto silent =
      ReadTables(structure, "part,mass type,mass [kg],active\ntop,Weighed,9,\na,Weighed,1,\n");
  EXPECT_EQ(PartOf(silent.Value(), "top").activeMassType, kComputedMassType);
  const auto said =
      ReadTables(structure, "part,mass type,mass [kg],active\ntop,Weighed,9,yes\na,Weighed,1,\n");
  EXPECT_EQ(PartOf(said.Value(), "top").activeMassType, "Weighed");
}

TEST(Import, TakesMaterialAndShape) {
  const auto imported = ReadTables(
      "parent,child\ntop,a\n",
      "part,name,revision,material,density [kg/m3],cad material,cad density [kg/m3],density priority,"
      "standard part,volume [m3],centroid x [m],centroid y [m],centroid z [m],shape ixx [m5],"
      "shape iyy [m5],shape izz [m5]\n"
      "a,Bolt,C,Steel,7850,Brass,8500,wb,yes,0.5,1,2,3,4,5,6\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  const Part& a = PartOf(imported.Value(), "a");
  EXPECT_EQ(a.name + a.revision + a.material + a.cadMaterial, "BoltCSteelBrass");
  EXPECT_EQ(a.density, 7850);
  EXPECT_EQ(a.cadDensity, 8500);
  EXPECT_EQ(a.densityPriority, DensityPriority::WbFirst);
  EXPECT_TRUE(a.standardPart);
  EXPECT_EQ(a.geometry, (Geometry{0.5, Vec3{1, 2, 3}, InertiaTensor{4, 5, 6, 0, 0, 0}}));
  EXPECT_TRUE(a.massTypes.empty());
}

TEST(Import, ReadsTheStructureFromTheMassTableWhenItHasParents) {
  const auto imported = ReadProductTables(
      {std::nullopt,
       {"m.csv", "part,parent,mass type,mass [kg],x [m]\ntop,,,,\na,top,Estimated,1,7\na,,Weighed,2,\n"}},
      {});
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  ASSERT_EQ(imported.Value().product.instances.size(), 1u);
  EXPECT_EQ(imported.Value().product.instances[0].placement.translation.x, 7);
  EXPECT_EQ(PartOf(imported.Value(), "a").massTypes.size(), 2u);
}

TEST(Import, TakesAProductOfOnePart) {
  const auto imported = ReadProductTables({std::nullopt, {"m.csv", "part,parent,mass [kg]\nonly,,5\n"}}, {});
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_THAT(imported.Value().product.roots, ElementsAre("only"));
  EXPECT_EQ(imported.Value().product.parts.size(), 1u);
}

TEST(Import, NamesWhatItLeavesOut) {
  const auto imported =
      ReadTables("parent,child,remark\ntop,a,x\n,,\n", "part,mass [kg],colour\na,1,red\nz,2,blue\n",
                 {.unknownParts = UnknownParts::LeaveOut});
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_THAT(imported.Value().report.leftOut,
              ElementsAre("s.csv, line 1, column 3 (remark): the column is not known", "s.csv: 1 blank row",
                          "m.csv, line 1, column 3 (colour): the column is not known",
                          "m.csv, line 3, column 1 (part): part \"z\" is not in the structure"));
}

TEST(Import, WarnsOfLeavesWithoutData) {
  const auto imported = ReadTables(kTwoChildren, "part,mass [kg]\na,1\n");
  EXPECT_THAT(imported.Value().report.warnings,
              ElementsAre("m.csv: 1 part has neither children nor mass data: \"b\""));
}

TEST(Import, WarnsOfPhysicsAndTakesTheDataAllTheSame) {
  const auto imported = ReadTables(kTwoChildren,
                                   "part,mass [kg],ixx [kg m2],iyy [kg m2],izz [kg m2],"
                                   "cg x [m],cg y [m],cg z [m]\n"
                                   "a,0,1,1,1,0,0,0\nb,1,1.0,1.0,3.0,0,0,0\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_THAT(
      imported.Value().report.warnings,
      ElementsAre(
          "m.csv, line 2: part \"a\": the mass is zero, but there is inertia",
          "m.csv, line 3: part \"b\": the principal moments of inertia break the triangle inequality: "
          "1, 1, 3 kg m2; no body has these"));
  EXPECT_EQ(PartOf(imported.Value(), "b").massTypes[0].properties.inertia->zz, 3);
}

TEST(Import, DoesNotWarnOfAThinPlateWhoseFiguresAreRounded) {
  // Two thirds and a third of a plate, rounded to two digits: 0.67 + 0.33 < 1.01.
  const auto imported = ReadTables(kTwoChildren,
                                   "part,mass [kg],ixx [kg m2],iyy [kg m2],izz [kg m2],"
                                   "cg x [m],cg y [m],cg z [m]\n"
                                   "a,1,0.67,0.33,1.01,0,0,0\nb,1,0.6700,0.3300,1.0100,0,0,0\n");
  ASSERT_EQ(imported.Value().report.warnings.size(), 1u);
  EXPECT_NE(imported.Value().report.warnings[0].find("part \"b\""), std::string::npos);
}

TEST(Import, TakesThePlusOfAnExponentIntoAccountWhenItAllowsForRounding) {
  // The digits of the thin plate above, in grams times square metres.
  const auto imported = ReadTables(kTwoChildren,
                                   "part,mass [kg],ixx [kg m2],iyy [kg m2],izz [kg m2],"
                                   "cg x [m],cg y [m],cg z [m]\n"
                                   "a,1,+0.67e+3,0.33e+3,1.01e+3,0,0,0\nb,1,,,,,,\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_THAT(imported.Value().report.warnings, ElementsAre());
}

TEST(Import, AllowsForTheRoundingOfMassAndCentreWhenItShiftsFromTheOrigin) {
  // A ball of 1 kg whose centre is 10 m away. The moment about x has no shift; 0.3 about the centre. The
  // others lost 0.1 of their 100.3 to the rounding of the centre, of which one digit is given at a and four
  // at b.
  const auto imported = ReadTables(kTwoChildren,
                                   "part,mass [kg],ixx [kg m2],iyy [kg m2],izz [kg m2],"
                                   "cg x [m],cg y [m],cg z [m],inertia about\n"
                                   "a,1.0000,0.3,100.0,100.3,10.0,0,0,origin\n"
                                   "b,1.0000,0.3000,99.9000,100.3000,10.0000,0,0,origin\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_THAT(imported.Value().report.warnings,
              ElementsAre(testing::StartsWith("m.csv, line 3: part \"b\": the inertia is not positive")));
}

TEST(Import, WarnsOfInertiaThatDoesNotCount) {
  const auto imported = ReadTables(kTwoChildren,
                                   "part,mass [kg],ixx [kg m2],iyy [kg m2],izz [kg m2]\n"
                                   "a,,1,1,1\nb,1,1,1,1\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_THAT(
      imported.Value().report.warnings,
      ElementsAre(
          "m.csv, line 2: part \"a\": there is inertia but no mass, so it does not count",
          "m.csv, line 3: part \"b\": there is inertia but no centre of gravity, so it does not count"));
}

constexpr char kShapes[] =
    "part,density [kg/m3],volume [m3],centroid x [m],centroid y [m],centroid z [m],shape ixx [m5],"
    "shape iyy [m5],shape izz [m5]\n";

TEST(Import, DoesNotInventWhatAShapeLacks) {
  const auto imported = ReadTables(kTwoChildren, std::string(kShapes) + "a,1,8,,,,,,\nb,1,8,0,0,0,,,\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_EQ(PartOf(imported.Value(), "a").geometry, (Geometry{8, {}, {}}));
  EXPECT_EQ(PartOf(imported.Value(), "b").geometry, (Geometry{8, Vec3{0, 0, 0}, {}}));
}

TEST(Import, WarnsOfShapesThatNoBodyHas) {
  const auto imported =
      ReadTables("parent,child\ntop,a\ntop,b\ntop,c\n",
                 std::string(kShapes) + "a,1,8,0,0,0,-1,1,1\nb,1,8,,,,1,1,1\nc,1,0,0,0,0,1,1,1\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_THAT(
      imported.Value().report.warnings,
      ElementsAre(
          "m.csv, line 2: part \"a\": the inertia is not positive: its principal moments are -1, 1, 1 m5",
          "m.csv, line 3: part \"b\": the shape has inertia but no centroid, so it does not count",
          "m.csv, line 4: part \"c\": the volume is zero, but the shape has inertia"));
}

TEST(Import, NamesAShapeWithoutVolumeAndAnActiveRowWithoutDataAsLeftOut) {
  const auto imported = ReadTables("parent,child\ntop,a\n",
                                   "part,centroid x [m],centroid y [m],centroid z [m],shape ixx [m5],shape "
                                   "iyy [m5],shape izz [m5],active\n"
                                   "a,1,2,3,4,5,6,yes\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_THAT(
      imported.Value().report.leftOut,
      ElementsAre("m.csv, line 2, column 2 (centroid x [m]): there is no volume, the centroid is left out",
                  "m.csv, line 2, column 5 (shape ixx [m5]): there is no volume, the inertia of the shape is "
                  "left out",
                  "m.csv, line 2, column 8 (active): the row has no mass data that could be active"));
  EXPECT_FALSE(PartOf(imported.Value(), "a").geometry);
}

TEST(Import, ARowThatIsTooShortForItsParentIsOneErrorInOneTable) {
  const auto imported =
      ReadProductTables({std::nullopt, {"m.csv", "part,parent,mass [kg]\ntop,,\na,top,5\nb\n"}}, {});
  ASSERT_FALSE(imported.Ok());
  EXPECT_EQ(imported.Failure().message,
            "m.csv, line 4, column 2 (parent): the row has 1 cell, the header has 3");
}

TEST(Import, NamesThePlacementOfARowWithoutAParentAsLeftOut) {
  const auto imported = ReadProductTables(
      {std::nullopt,
       {"m.csv", "part,parent,mass type,quantity,x [m]\ntop,,,,\na,top,Estimated,2,7\na,,Weighed,,8\n"}},
      {});
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_THAT(imported.Value().report.leftOut,
              ElementsAre("m.csv, line 4, column 5 (x [m]): there is no parent, so instance, quantity, "
                          "placement and dates are left out"));
  ASSERT_EQ(imported.Value().product.instances.size(), 1u);
  EXPECT_EQ(imported.Value().product.instances[0].placement.translation.x, 7);
}

TEST(Import, NamesTheTiltOfAnInertiaThatIsNotGivenAsLeftOut) {
  const auto imported = ReadTables("parent,child\ntop,a\n",
                                   "part,mass [kg],products,inertia about,inertia tilt y [deg]\n"
                                   "a,1,-,origin,30\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_THAT(imported.Value().report.leftOut,
              ElementsAre("m.csv, line 2, column 5 (inertia tilt y [deg]): there is no inertia, the tilt of "
                          "its axes is left out"));
}

TEST(Import, WarnsOfDeviationsOfWhatIsNotKnownAndTakesThemAllTheSame) {
  const auto imported =
      ReadTables(kTwoChildren,
                 "part,mass [kg],sd mass [kg],sd cg y [m],sd izz [kg m2],upper deviation [kg]\n"
                 "a,,1,2,3,4\nb,1,1,0,0,4\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_THAT(
      imported.Value().report.warnings,
      ElementsAre("m.csv, line 2, column 3 (sd mass [kg]): part \"a\": there is no mass, so its standard "
                  "deviation does not count",
                  "m.csv, line 2, column 4 (sd cg y [m]): part \"a\": there is no centre of gravity, so its "
                  "standard deviations do not count",
                  "m.csv, line 2, column 5 (sd izz [kg m2]): part \"a\": there is no inertia, so its "
                  "standard deviations do not count",
                  "m.csv, line 2, column 6 (upper deviation [kg]): part \"a\": there is no mass, so its "
                  "limits do not count"));
  EXPECT_EQ(PartOf(imported.Value(), "a").massTypes.at(0).deviations.cg.y, 2);
}

TEST(Import, WarnsOfALeafWithAShapeButNoDensity) {
  const auto imported = ReadTables(kTwoChildren, "part,density [kg/m3],volume [m3]\na,,1\nb,7,1\n");
  EXPECT_THAT(imported.Value().report.warnings,
              ElementsAre("m.csv: 1 part has neither children nor mass data: \"a\""));
}

TEST(Import, TellsHowFarItIsInRows) {
  std::string mass = "part,mass type,mass [kg]\n";
  for (int i = 0; i < 20'000; ++i) mass += "a,T" + std::to_string(i) + ",1\n";
  std::vector<std::string> heard;
  ImportOptions options;
  options.progress = [&](std::string_view what, std::size_t done, std::size_t total) {
    if (total > 0)
      heard.push_back(std::string(what) + " " + std::to_string(done) + "/" + std::to_string(total));
  };
  ASSERT_TRUE(ReadTables("parent,child\ntop,a\n", mass, options).Ok());
  EXPECT_THAT(heard, ElementsAre("Reading the mass table 0/208915", "Reading mass data 0/20000",
                                 "Reading mass data 16384/20000", "Reading the structure table 0/19",
                                 "Reading the structure 0/1"));
}

}  // namespace
}  // namespace lumira::test
