#include <filesystem>
#include <fstream>

#include "ImportFixture.h"
#include "lumira/store/OpenSqliteStore.h"

namespace lumira::test {
namespace {

TEST(ImportErrors, NameFileLineColumnAndWhatWasExpected) {
  EXPECT_EQ(MassErrors("part,name,mass [kg]\na,A,1.5.2\n"),
            "m.csv, line 2, column 3 (mass [kg]): \"1.5.2\" is not a finite number");
}

TEST(ImportErrors, AreAllCollected) {
  EXPECT_EQ(Errors("parent,child,quantity\ntop,a,0\ntop,b|c,1\n", "part,mass [kg]\na,x\na,y\n"),
            "m.csv, line 2, column 2 (mass [kg]): \"x\" is not a finite number\n"
            "m.csv, line 3, column 2 (mass [kg]): \"y\" is not a finite number\n"
            "s.csv, line 2, column 3 (quantity): \"0\" is not a whole number from 1 to 1000000000\n"
            "s.csv, line 3, column 2 (child): \"b|c\" holds \"|\", which an identifier may not");
}

TEST(ImportErrors, AreCountedAboveAHundred) {
  std::string mass = "part,mass [kg]\n";
  for (int i = 0; i < 101; ++i) mass += "a,x\n";
  EXPECT_TRUE(MassErrors(mass).ends_with("\nand 1 more error"));
  mass += "a,x\na,x\n";
  const std::string message = MassErrors(mass);
  EXPECT_NE(message.find("line 101,"), std::string::npos);
  EXPECT_EQ(message.find("line 102,"), std::string::npos);
  EXPECT_TRUE(message.ends_with("\nand 3 more errors"));
}

TEST(ImportErrors, OfNumbersThatAreNotFinite) {
  for (const char* number :
       {"nan", "NaN", "inf", "-inf", "1e999", "--1", "+-5", "-+5", "++5", "+", "0x10", "1 2", "1/2"})
    EXPECT_EQ(MassErrors("part,mass [kg]\na," + std::string(number) + "\n"),
              "m.csv, line 2, column 2 (mass [kg]): \"" + std::string(number) + "\" is not a finite number");
}

TEST(ImportErrors, OfNumbersThatOverflowInSiUnits) {
  EXPECT_EQ(MassErrors("part,mass [t]\na,1e308\n"),
            "m.csv, line 2, column 2 (mass [t]): \"1e308\" is too large");
}

TEST(ImportErrors, OfNumbersThatAreTooSmall) {
  for (const char* number : {"1e-400", "-1E-400", "+1e-400", "1e-99999"})
    EXPECT_EQ(MassErrors("part,mass [kg]\na," + std::string(number) + "\n"),
              "m.csv, line 2, column 2 (mass [kg]): \"" + std::string(number) +
                  "\" is too small; the least number above 0 is about 5e-324");
  EXPECT_EQ(MassErrors("part,mass [kg]\na,5e-324\n"), "imported");
}

TEST(ImportErrors, OfAnglesBeyondAFullTurn) {
  EXPECT_EQ(
      StructureErrors("parent,child,tilt y [rad]\ntop,a,1e308\n"),
      "s.csv, line 2, column 3 (tilt y [rad]): \"1e308\" is more than a full turn (360 deg, 6.2832 rad)");
  EXPECT_EQ(
      StructureErrors("parent,child,tilt y [deg]\ntop,a,-361\n"),
      "s.csv, line 2, column 3 (tilt y [deg]): \"-361\" is more than a full turn (360 deg, 6.2832 rad)");
  EXPECT_EQ(StructureErrors("parent,child,tilt y [deg],tilt z [rad]\ntop,a,-360,6.2832\n"), "imported");
}

TEST(ImportErrors, OfDecimalCommasSayThatAPointIsExpected) {
  EXPECT_EQ(MassErrors("part;mass [kg]\na;1,5\n"),
            "m.csv, line 2, column 2 (mass [kg]): \"1,5\" is not a finite number; a decimal point expected");
}

TEST(ImportErrors, OfUnits) {
  EXPECT_EQ(MassErrors("part,mass\na,1\n"),
            "m.csv, line 1, column 2 (mass): the unit is missing; one of kg, g, t, lb "
            "expected, in brackets");
  EXPECT_EQ(
      MassErrors("part,mass [mm]\na,1\n"),
      "m.csv, line 1, column 2 (mass [mm]): \"mm\" is no unit known here; one of kg, g, t, lb expected");
  EXPECT_EQ(MassErrors("part,name [kg]\na,1\n"),
            "m.csv, line 1, column 2 (name [kg]): this column has no unit, \"kg\" found");
}

TEST(ImportErrors, OfColumnsThatAreMissingOrTwice) {
  EXPECT_EQ(MassErrors("mass [kg]\n1\nx\n"), "m.csv, line 1: there is no column \"part\"")
      << "and no word of the rows";
  EXPECT_EQ(StructureErrors("parent,quantity\ntop,0\n"), "s.csv, line 1: there is no column \"child\"");
  const auto single = ReadProductTables({std::nullopt, {"m.csv", "parent,mass [kg]\n,1\ntop,2\n"}}, {});
  EXPECT_EQ(single.Failure().message, "m.csv, line 1: there is no column \"part\"");
  EXPECT_EQ(MassErrors("part,mass [kg],mass [g]\na,1,1\n"),
            "m.csv, line 1, column 3 (mass [g]): there is a column of this name already");
}

TEST(ImportErrors, OfEmptyTables) {
  EXPECT_EQ(Errors("", ""),
            "m.csv: is empty; a header row and at least one row expected\n"
            "s.csv: is empty; a header row and at least one row expected");
  EXPECT_EQ(StructureErrors("parent,child\n"), "s.csv, line 1: no row follows the header");
}

TEST(ImportErrors, OfATableWithoutAnyStructure) {
  const auto imported = ReadProductTables({std::nullopt, {"m.csv", "part,mass [kg]\na,1\n"}}, {});
  EXPECT_EQ(imported.Failure().message,
            "m.csv, line 1: there is no column \"parent\" and no structure table");
}

TEST(ImportErrors, OfIdentifiers) {
  EXPECT_EQ(StructureErrors("parent,child\n,a\n"),
            "s.csv, line 2, column 1 (parent): is empty, an identifier expected");
  EXPECT_EQ(
      StructureErrors("parent,child\ntop,\"a\nb\"\n"),
      "s.csv, line 2, column 2 (child): \"a\\x0Ab\" holds a control character, which an identifier may not");
  EXPECT_EQ(StructureErrors("parent,child\ntop," + std::string(256, 'x') + "\n"),
            "s.csv, line 2, column 2 (child): \"" + std::string(60, 'x') +
                "...\" has 256 bytes, an identifier has at most 255");
}

TEST(ImportErrors, OfInstancesWhoseNameCannotBeMadeOfTheChild) {
  const std::string child(254, 'x');
  const std::string shown = std::string(60, 'x');
  const auto errors = [](const std::string& columns, const std::string& part) {
    return Errors("parent,child" + columns + "\ntop," + part + (columns.empty() ? "" : ",") + "\n",
                  "part\n" + part + "\n");
  };
  const std::string reason =
      "the instance is not named, and what is made of the child for a name cannot be one: \"" + shown +
      "...\" has 256 bytes, an identifier has at most 255";
  EXPECT_EQ(errors("", child), "s.csv, line 2, column 2 (child): " + reason);
  EXPECT_EQ(errors(",instance", child), "s.csv, line 2, column 3 (instance): " + reason);
  EXPECT_EQ(errors("", std::string(253, 'x')), "imported");
  const auto single = ReadProductTables({std::nullopt, {"m.csv", "part,parent\n" + child + ",top\n"}}, {});
  EXPECT_EQ(single.Failure().message, "m.csv, line 2, column 1 (part): " + reason);
}

std::string OneTableErrors(const std::string& table) {
  const auto imported = ReadProductTables({std::nullopt, {"m.csv", table}}, {});
  return imported.Ok() ? "imported" : imported.Failure().message;
}

TEST(ImportErrors, OfThePlacementOnRowsWithoutAParent) {
  const std::string columns = "part,parent,instance,quantity,x [m],tilt x [deg],r11\n";
  EXPECT_EQ(OneTableErrors(columns + "top,,a|b,none,far,askew,big\na,top,,,,,\n"),
            "m.csv, line 2, column 3 (instance): \"a|b\" holds \"|\", which an identifier may not\n"
            "m.csv, line 2, column 4 (quantity): \"none\" is not a whole number from 1 to 1000000000\n"
            "m.csv, line 2, column 6 (tilt x [deg]): \"askew\" is not a finite number\n"
            "m.csv, line 2, column 7 (r11): \"big\" is not a finite number\n"
            "m.csv, line 2, column 7 (r11): the rotation is given twice, by r11 to r33 and by tilts\n"
            "m.csv, line 2, column 5 (x [m]): \"far\" is not a finite number");
}

TEST(ImportErrors, OfCellsOfARowWhosePartCannotBeRead) {
  EXPECT_EQ(MassErrors("part,mass [kg],density [kg/m3],active\na|b,heavy,-1,maybe\n"),
            "m.csv, line 2, column 1 (part): \"a|b\" holds \"|\", which an identifier may not\n"
            "m.csv, line 2, column 3 (density [kg/m3]): a density may not be negative\n"
            "m.csv, line 2, column 4 (active): \"maybe\" is none of \"no\", \"yes\"\n"
            "m.csv, line 2, column 2 (mass [kg]): \"heavy\" is not a finite number");
}

TEST(ImportErrors, OfTheActiveMarkOfAMassTypeThatIsThereTwice) {
  EXPECT_EQ(MassErrors("part,mass [kg],active\na,1,yes\na,2,maybe\n"),
            "m.csv, line 3, column 3 (active): \"maybe\" is none of \"no\", \"yes\"\n"
            "m.csv, line 3, column 1 (part): part \"a\" has the mass type \"Estimated\" twice");
}

TEST(ImportErrors, OfWhatIsSaidAboutAnInertiaThatIsNotGiven) {
  EXPECT_EQ(
      MassErrors("part,mass [kg],products,inertia about,inertia tilt y [deg]\na,1,minus,tip,steep\n"),
      "m.csv, line 2, column 4 (inertia about): \"tip\" is none of \"cg\", \"origin\"\n"
      "m.csv, line 2, column 3 (products): \"minus\" is none of \"-\", \"+\", \"tensor\", \"integral\"\n"
      "m.csv, line 2, column 5 (inertia tilt y [deg]): \"steep\" is not a finite number");
}

TEST(ImportErrors, OfAFigureDoNotBringErrorsOfThoseThatNeedIt) {
  EXPECT_EQ(MassErrors("part,ixx [kg m2],iyy [kg m2],izz [kg m2],ixy [kg m2],products\na,x,1,1,1,-\n"),
            "m.csv, line 2, column 2 (ixx [kg m2]): \"x\" is not a finite number");
  EXPECT_EQ(MassErrors("part,mass [kg],cg x [m],cg y [m],cg z [m],ixx [kg m2],iyy [kg m2],izz [kg m2],"
                       "inertia about\na,x,0,0,0,1,1,1,origin\n"),
            "m.csv, line 2, column 2 (mass [kg]): \"x\" is not a finite number");
}

TEST(ImportErrors, OfTheStructureAreToldTogetherWithThoseOfMassCells) {
  const std::string mass = "part,mass [kg]\na,x\nbedplat,1\n";
  const std::string cells = "m.csv, line 2, column 2 (mass [kg]): \"x\" is not a finite number\n";
  const std::string unknown = "m.csv, line 3, column 1 (part): part \"bedplat\" is not in the structure";
  EXPECT_EQ(Errors("parent,child\ntop,a\n", mass), cells + unknown);
  EXPECT_EQ(
      Errors("parent,child\ntop,a\na,b\nb,a\n", mass),
      cells + "s.csv, line 4, column 2 (child): part \"a\" would contain itself: a > b > a\n" + unknown);
  EXPECT_EQ(Errors("parent,child\ntop,a\nother,a\n", mass),
            cells + unknown +
                "\ns.csv, line 3, column 1 (parent): a product has one top part, here are 2: \"top\", "
                "\"other\"");
  EXPECT_EQ(OneTableErrors("part,parent,mass [kg]\ntop,,x\na,top,1\nother,,\nb,other,1\n"),
            "m.csv, line 2, column 3 (mass [kg]): \"x\" is not a finite number\n"
            "m.csv, line 5, column 2 (parent): a product has one top part, here are 2: \"top\", \"other\"");
}

TEST(ImportErrors, OfStructureCellsLeaveUnknownPartsToBeToldButNoCyclesAndTops) {
  const std::string quantity =
      "s.csv, line 2, column 3 (quantity): \"0\" is not a whole number from 1 to 1000000000";
  EXPECT_EQ(Errors("parent,child,quantity\ntop,a,0\nother,other,1\n", "part\nz\n"),
            quantity + "\nm.csv, line 2, column 1 (part): part \"z\" is not in the structure");
}

TEST(ImportErrors, OfPartsOfTheStructureDoNotMakeOthersUnknown) {
  EXPECT_EQ(Errors("parent,child\ntop,\ntop,b\n", "part\na\n"),
            "s.csv, line 2, column 2 (child): is empty, an identifier expected")
      << "\"a\" may be meant";
  EXPECT_EQ(Errors("parent,child\ntop,a,b\n", "part\nz\n"),
            "s.csv, line 2, column 3: the row has 3 cells, the header has 2\n"
            "m.csv, line 2, column 1 (part): part \"z\" is not in the structure");
  EXPECT_EQ(Errors("parent\ntop\n", "part,mass [kg]\na,x\n"),
            "m.csv, line 2, column 2 (mass [kg]): \"x\" is not a finite number\n"
            "s.csv, line 1: there is no column \"child\"");
  EXPECT_EQ(OneTableErrors("part,parent\ntop,\na|b,top\n|,z\nc,top\n"),
            "m.csv, line 3, column 1 (part): \"a|b\" holds \"|\", which an identifier may not\n"
            "m.csv, line 4, column 1 (part): \"|\" holds \"|\", which an identifier may not");
  EXPECT_EQ(OneTableErrors("part,mass [kg]\na,x\nb,1\n"),
            "m.csv, line 2, column 2 (mass [kg]): \"x\" is not a finite number\n"
            "m.csv, line 1: there is no column \"parent\" and no structure table");
}

TEST(ImportErrors, OfTheNameOfTheProduct) {
  const auto named = [](const std::string& product) {
    return StructureErrors("parent,child\ntop,a\n", {.product = product});
  };
  EXPECT_EQ(named("\xff"), "name of the product: \"\\xFF\" is not UTF-8, which an identifier must be");
  EXPECT_EQ(named("a\tb"),
            "name of the product: \"a\\x09b\" holds a control character, which an identifier may not");
  EXPECT_EQ(named("a|b"), "name of the product: \"a|b\" holds \"|\", which an identifier may not");
  EXPECT_EQ(named(std::string(100'000, 'x')), "name of the product: \"" + std::string(60, 'x') +
                                                  "...\" has 100000 bytes, an identifier has at most 255");
  EXPECT_EQ(named(std::string(255, 'x')), "imported");
}

TEST(ImportErrors, OfInstancesThatAreThereTwice) {
  EXPECT_EQ(StructureErrors("parent,child,instance\ntop,a,i\ntop,b,j\na,b,i\n"),
            "s.csv, line 4, column 3 (instance): \"i\" is the instance of line 2 already; instances are "
            "unique in a "
            "product");
}

TEST(ImportErrors, OfQuantities) {
  for (const char* quantity : {"0", "-1", "1.5", "x", "1000000001", "99999999999999999999"})
    EXPECT_EQ(StructureErrors("parent,child,quantity\ntop,a," + std::string(quantity) + "\n"),
              "s.csv, line 2, column 3 (quantity): \"" + std::string(quantity) +
                  "\" is not a whole number from 1 to 1000000000");
}

TEST(ImportErrors, OfCyclesNameTheChainOfParts) {
  EXPECT_EQ(StructureErrors("parent,child\ntop,a\na,b\nb,a\n"),
            "s.csv, line 4, column 2 (child): part \"a\" would contain itself: a > b > a");
  EXPECT_EQ(StructureErrors("parent,child\na,a\n"),
            "s.csv, line 2, column 2 (child): part \"a\" would contain itself: a > a");
}

TEST(ImportErrors, OfSeveralTops) {
  EXPECT_EQ(StructureErrors("parent,child\ntop,a\nother,a\n"),
            "s.csv, line 3, column 1 (parent): a product has one top part, here are 2: \"top\", \"other\"");
}

TEST(ImportErrors, OfPartsThatTheStructureDoesNotHave) {
  EXPECT_EQ(MassErrors("part,mass [kg]\na,1\nbedplat,2\n"),
            "m.csv, line 3, column 1 (part): part \"bedplat\" is not in the structure");
}

constexpr char kCoefficients[] = "parent,child,r11,r12,r13,r21,r22,r23,r31,r32,r33,tilt y [deg]\n";

TEST(ImportErrors, OfAPlacementThatIsNoRotation) {
  const std::string table = kCoefficients;
  EXPECT_EQ(StructureErrors(table + "top,a,1,0,0,0,1,0,0,0,1.5,\n"),
            "s.csv, line 2, column 3 (r11): r11 to r33 are no rotation: the axes are off orthonormal by "
            "1.25, the limit is 1e-06");
  EXPECT_EQ(StructureErrors(table + "top,a,1,0,0,0,1,0,0,0,-1,\n"),
            "s.csv, line 2, column 3 (r11): r11 to r33 are no rotation but a mirror (determinant -1)");
  EXPECT_EQ(StructureErrors(table + "top,a,0,0,0,0,0,0,0,0,0,\n"),
            "s.csv, line 2, column 3 (r11): r11 to r33 are no rotation: the axes are off orthonormal by 1, "
            "the limit is 1e-06");
  EXPECT_EQ(StructureErrors(table + "top,a,1,0,0,0,1,0,0,0,nan,\n"),
            "s.csv, line 2, column 11 (r33): \"nan\" is not a finite number");
}

TEST(ImportErrors, OfARotationThatIsGivenTwiceOrInPart) {
  const std::string table = kCoefficients;
  EXPECT_EQ(StructureErrors(table + "top,a,1,0,nan,,,,,,,x\n"),
            "s.csv, line 2, column 12 (tilt y [deg]): \"x\" is not a finite number\n"
            "s.csv, line 2, column 5 (r13): \"nan\" is not a finite number\n"
            "s.csv, line 2, column 3 (r11): the rotation is given twice, by r11 to r33 and by tilts")
      << "every cell is read";
  EXPECT_EQ(StructureErrors(table + "top,a,1,0,0,0,1,0,0,0,1,6\n"),
            "s.csv, line 2, column 3 (r11): the rotation is given twice, by r11 to r33 and by tilts");
  EXPECT_EQ(StructureErrors(table + "top,a,1,0,0,,,,,,,\n"),
            "s.csv, line 2, column 3 (r11): only 3 of the nine coefficients r11 to r33 are given");
  EXPECT_EQ(StructureErrors(table + "top,a,1,,,,,,,,,\n"),
            "s.csv, line 2, column 3 (r11): only 1 of the nine coefficients r11 to r33 is given");
}

TEST(ImportErrors, OfACentreOrInertiaThatIsGivenInPart) {
  EXPECT_EQ(
      MassErrors("part,mass [kg],cg x [m],cg z [m]\na,1,1,2\n"),
      "m.csv, line 2, column 3 (cg x [m]): only 2 of the 3 numbers of the centre (from cg x on) are given");
  EXPECT_EQ(MassErrors("part,mass [kg],ixx [kg m2]\na,1,1\n"),
            "m.csv, line 2, column 3 (ixx [kg m2]): only 1 of the 3 numbers of the moments of inertia (from "
            "ixx on) is given");
  EXPECT_EQ(MassErrors("part,ixy [kg m2],products\na,1,-\n"),
            "m.csv, line 2, column 2 (ixy [kg m2]): there are products of inertia without moments");
}

TEST(ImportErrors, OfProductsWithoutTheirSign) {
  const std::string columns = "part,ixx [kg m2],iyy [kg m2],izz [kg m2],ixy [kg m2]";
  EXPECT_EQ(MassErrors(columns + "\na,1,1,1,0.1\n"),
            "m.csv, line 1: there are products of inertia but no column \"products\" that says their sign: "
            "\"-\" for "
            "tensor elements, \"+\" for integrals");
  EXPECT_EQ(
      MassErrors(columns + ",products\na,1,1,1,0.1,\n"),
      "m.csv, line 2, column 6 (products): is empty; \"-\" (tensor elements) or \"+\" (integrals) expected");
  EXPECT_EQ(
      MassErrors(columns + ",products\na,1,1,1,0.1,minus\n"),
      "m.csv, line 2, column 6 (products): \"minus\" is none of \"-\", \"+\", \"tensor\", \"integral\"");
}

TEST(ImportErrors, OfInertiaAboutTheOriginWithoutMassOrCentre) {
  EXPECT_EQ(MassErrors("part,ixx [kg m2],iyy [kg m2],izz [kg m2],inertia about\na,1,1,1,origin\n"),
            "m.csv, line 2, column 5 (inertia about): inertia about the origin needs mass and cg");
}

TEST(ImportErrors, OfDeviationsThatAreNegativeOrInOtherAxes) {
  EXPECT_EQ(
      MassErrors("part,mass [kg],sd mass [kg],lower deviation [kg],upper deviation [kg]\na,1,-1,-2,-3\n"),
      "m.csv, line 2, column 4 (lower deviation [kg]): a deviation may not be negative\n"
      "m.csv, line 2, column 5 (upper deviation [kg]): a deviation may not be negative\n"
      "m.csv, line 2, column 3 (sd mass [kg]): a standard deviation may not be negative");
  EXPECT_EQ(
      MassErrors("part,mass [kg],ixx [kg m2],iyy [kg m2],izz [kg m2],sd ixx [kg m2],inertia tilt y [deg]\n"
                 "a,1,1,1,1,0.1,6\n"),
      "m.csv, line 2, column 6 (sd ixx [kg m2]): standard deviations of inertia can only be given with "
      "inertia about the cg in part "
      "axes");
}

TEST(ImportErrors, OfMassTypes) {
  EXPECT_EQ(MassErrors("part,mass type,mass [kg]\na,Weighed,1\na,Weighed,2\n"),
            "m.csv, line 3, column 2 (mass type): part \"a\" has the mass type \"Weighed\" twice");
  EXPECT_EQ(
      MassErrors("part,mass type,mass [kg]\na,Computed,1\n"),
      "m.csv, line 2, column 2 (mass type): \"Computed\" is filled by the server and cannot be imported");
  EXPECT_EQ(MassErrors("part,mass type,mass [kg],active\na,A,1,yes\na,B,1,yes\n"),
            "m.csv, line 3, column 4 (active): part \"a\" has an active mass type already, \"A\"");
  EXPECT_EQ(MassErrors("part,mass [kg],active\na,1,maybe\n"),
            "m.csv, line 2, column 3 (active): \"maybe\" is none of \"no\", \"yes\"");
}

TEST(ImportErrors, OfRowsThatContradictEachOther) {
  EXPECT_EQ(
      MassErrors("part,mass type,material,density [kg/m3]\na,A,Steel,7850\na,B,Brass,8500\n"),
      "m.csv, line 3, column 3 (material): \"Brass\" differs from \"Steel\" on another row of the same part\n"
      "m.csv, line 3, column 4 (density [kg/m3]): differs from what another row of the same part says");
}

TEST(ImportErrors, OfNegativeDensitiesAndVolumes) {
  EXPECT_EQ(MassErrors("part,density [kg/m3],volume [m3]\na,-1,-2\n"),
            "m.csv, line 2, column 2 (density [kg/m3]): a density may not be negative\n"
            "m.csv, line 2, column 3 (volume [m3]): a volume may not be negative");
}

TEST(ImportErrors, OfInertiaThatIsTooLargeAboutTheCentre) {
  const std::string columns =
      "part,mass [kg],cg x [m],cg y [m],cg z [m],ixx [kg m2],iyy [kg m2],izz [kg m2],iyz [kg m2],products,"
      "inertia about,inertia tilt x [deg]\n";
  const std::string refusal =
      "m.csv, line 2, column 6 (ixx [kg m2]): the inertia about the cg in part axes is too large to be "
      "computed";
  EXPECT_EQ(MassErrors(columns + "a,1,1e200,0,0,1,1,1,,,origin,\n"), refusal) << "1 kg at 1e200 m";
  EXPECT_EQ(MassErrors(columns + "a,1,0,0,0,1,1.7e308,1.7e308,1.7e308,-,cg,45\n"), refusal)
      << "a product turned into a moment";
  EXPECT_EQ(MassErrors(columns + "a,1,1e150,0,0,1,1,1,,,origin,\n"), "imported");
}

TEST(ImportErrors, OfShapesThatAreTooLargeWithTheirDensityWhateverRowSaysIt) {
  EXPECT_EQ(MassErrors("part,density [kg/m3],volume [m3]\na,1e200,1e200\n"),
            "m.csv, line 2, column 3 (volume [m3]): volume times density is too large to be computed");
  EXPECT_EQ(MassErrors("part,mass type,density [kg/m3],volume [m3],mass [kg]\na,A,,1e200,1\na,B,1e200,,1\n"),
            "m.csv, line 2, column 4 (volume [m3]): volume times density is too large to be computed");
  EXPECT_EQ(
      MassErrors("part,cad density [kg/m3],volume [m3],centroid x [m],centroid y [m],centroid z [m],"
                 "shape ixx [m5],shape iyy [m5],shape izz [m5]\na,1e200,1,0,0,0,1e200,1e200,1e200\n"),
      "m.csv, line 2, column 7 (shape ixx [m5]): the inertia of the shape times density is too large to be "
      "computed");
}

TEST(ImportErrors, OfAPartAreToldOnceWhenOneTableHoldsEverything) {
  const auto errors = [](const std::string& table) {
    return ReadProductTables({std::nullopt, {"m.csv", table}}, {}).Failure().message;
  };
  EXPECT_EQ(errors("part,parent\ntop,\na|b,top\n"),
            "m.csv, line 3, column 1 (part): \"a|b\" holds \"|\", which an identifier may not");
  EXPECT_EQ(errors("part [kg],parent\ntop,\na,top\n"),
            "m.csv, line 1, column 1 (part [kg]): this column has no unit, \"kg\" found");
  EXPECT_EQ(errors("part,part,parent\ntop,,\na,,top\n"),
            "m.csv, line 1, column 2 (part): there is a column of this name already");
}

TEST(ImportErrors, OfAChoiceAreToldOnce) {
  EXPECT_EQ(MassErrors("part,mass [kg],ixx [kg m2],iyy [kg m2],izz [kg m2],inertia about\na,1,1,1,1,tip\n"),
            "m.csv, line 2, column 6 (inertia about): \"tip\" is none of \"cg\", \"origin\"");
}

class ImportIntoStore : public testing::Test {
 protected:
  ImportIntoStore() {
    std::filesystem::remove(file);
    store = CreateSqliteStore(file).Value();
  }
  ~ImportIntoStore() override {
    store.reset();
    for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(file + suffix);
  }

  protocol::Result<ImportReport> Import(const ImportOptions& options,
                                        const std::string& mass = "part,mass [kg]\na,1\n") {
    return ImportProduct(*store, {TableSource{"s.csv", "parent,child\ntop,a\n"}, TableSource{"m.csv", mass}},
                         options);
  }

  std::string file = testing::TempDir() + "import-" + std::to_string(getpid()) + ".lumira";
  std::unique_ptr<Store> store;
};

TEST_F(ImportIntoStore, WritesTheProduct) {
  ASSERT_TRUE(Import({}).Ok());
  EXPECT_EQ(store->LoadProduct("top").Value().parts.size(), 2u);
}

TEST_F(ImportIntoStore, WritesNothingWhenOneCellIsWrong) {
  EXPECT_FALSE(Import({}, "part,mass [kg]\na,1\na,x\n").Ok());
  EXPECT_TRUE(store->Products().Value().empty());
}

TEST_F(ImportIntoStore, WritesNothingInADryRun) {
  const auto report = Import({.mode = ImportMode::DryRun});
  ASSERT_TRUE(report.Ok());
  EXPECT_EQ(report.Value().parts, 2u);
  EXPECT_TRUE(store->Products().Value().empty());
}

constexpr char kBothTaken[] =
    "s.csv, line 2, column 1 (parent): part \"top\" belongs to product \"top\" already\n"
    "s.csv, line 2, column 2 (child): part \"a\" belongs to product \"top\" already";

TEST_F(ImportIntoStore, RefusesInADryRunWhatItWouldRefuseToWrite) {
  ASSERT_TRUE(Import({}).Ok());
  EXPECT_EQ(Import({.mode = ImportMode::DryRun}).Failure().message, "product \"top\" exists already");
  EXPECT_EQ(Import({.product = "Second", .mode = ImportMode::DryRun}).Failure().message, kBothTaken);
  EXPECT_EQ(Import({.product = "Second"}).Failure().message, kBothTaken);
  EXPECT_TRUE(Import({.existing = Existing::Replace, .mode = ImportMode::DryRun}).Ok());
}

TEST_F(ImportIntoStore, RefusesAStructureThatIsTooDeepInADryRunAsWell) {
  std::string structure = "parent,child\n";
  for (int i = 0; i < 1001; ++i) structure += "p" + std::to_string(i) + ",p" + std::to_string(i + 1) + "\n";
  const ImportTables tables{TableSource{"s.csv", structure}, TableSource{"m.csv", "part\np0\n"}};
  for (const ImportMode mode : {ImportMode::DryRun, ImportMode::Write})
    EXPECT_EQ(ImportProduct(*store, tables, {.mode = mode}).Failure().message,
              "s.csv, line 1002, column 2 (child): part \"p1001\" stands 1001 levels below the top, the "
              "limit is 1000");
}

TEST_F(ImportIntoStore, ReplacesAProductWhenAsked) {
  ASSERT_TRUE(Import({}).Ok());
  EXPECT_EQ(Import({}).Failure().kind, protocol::ErrorKind::Conflict);
  ASSERT_TRUE(Import({.existing = Existing::Replace}, "part,mass [kg]\na,7\n").Ok());
  EXPECT_EQ(store->LoadProduct("top").Value().parts[1].massTypes[0].properties.mass, 7);
}

TEST_F(ImportIntoStore, MakesAFailureOfAWantOfMemory) {
  ImportOptions options;
  options.progress = [](std::string_view, std::size_t, std::size_t) { throw std::bad_alloc(); };
  EXPECT_EQ(Import(options).Failure().kind, protocol::ErrorKind::Internal);
  EXPECT_EQ(Import(options).Failure().message, "there is not enough memory");
  options.progress = [](std::string_view, std::size_t, std::size_t) { throw std::length_error("too long"); };
  EXPECT_EQ(Import(options).Failure().message, "an unexpected failure: too long");
  EXPECT_TRUE(store->Products().Value().empty());
}

TEST(TableFile, ThatIsNotThereOrTooLargeIsRefusedWithItsName) {
  EXPECT_EQ(ReadTableFile("/no/such.csv").Failure().message, "/no/such.csv: there is no such file");
  EXPECT_EQ(ReadTableFile("/").Failure().message, "/: is not a file");
  EXPECT_EQ(ReadTableFile("/").Failure().kind, protocol::ErrorKind::BadValue);
  const std::string path = testing::TempDir() + "table-" + std::to_string(getpid()) + ".csv";
  std::ofstream(path) << "part\na\n";
  EXPECT_EQ(ReadTableFile(path).Value().text, "part\na\n");
  EXPECT_EQ(ReadTableFile(path, {.bytes = 3}).Failure().message, path + ": has 7 bytes, the limit is 3");
  std::filesystem::remove(path);
}

}  // namespace
}  // namespace lumira::test
