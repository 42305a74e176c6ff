#include <gmock/gmock.h>

#include "ServerFixture.h"
#include "lumira/commands/MaterialStatistics.h"

namespace lumira::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MaterialStatisticsOf : public ServerFixture {
 protected:
  std::vector<std::string> Of(const std::string& part) {
    const protocol::PartData data = PartDataOf(part);
    std::vector<std::string> lines;
    for (const auto& s : data.material.statistics)
      lines.push_back(s.name + " " + std::to_string(static_cast<int>(s.density)) + " kind " +
                      std::to_string(s.kind));
    return lines;
  }
};

TEST_F(MaterialStatisticsOf, PartsAreInTheOrderInWhichTheTreeIsReadFromTheTop) {
  Import("parent,child\ntop,z\ntop,y\nz,w\nz,v\n",
         "part,material,density [kg/m3]\ny,Yarn,1\nv,Vinyl,2\nw,Wood,3\nz,Zinc,4\ntop,Tin,5\n");
  EXPECT_THAT(Of("top"), ElementsAre("Tin 5 kind 1", "Zinc 4 kind 1", "Wood 3 kind 1", "Vinyl 2 kind 1",
                                     "Yarn 1 kind 1"));
  EXPECT_THAT(Of("z"), ElementsAre("Zinc 4 kind 1", "Wood 3 kind 1", "Vinyl 2 kind 1"));
  EXPECT_THAT(Of("v"), ElementsAre("Vinyl 2 kind 1"));
}

TEST_F(MaterialStatisticsOf, PartsNameAMaterialOnceForEachDensity) {
  Import("parent,child\ntop,a\ntop,b\ntop,c\n",
         "part,material,density [kg/m3]\na,Steel,7850\nb,Steel,7800\nc,Steel,7850\n");
  EXPECT_THAT(Of("top"), ElementsAre("Steel 7850 kind 1", "Steel 7800 kind 1"));
}

TEST_F(MaterialStatisticsOf, SheetMaterialHasItsSurfaceMass) {
  Import("parent,child\ntop,a\ntop,b\ntop,c\n",
         "part,material,density [kg/m3],surface mass [kg/m2]\na,Felt,,3\nb,Felt,3,\nc,Foil,2700,9\n");
  EXPECT_THAT(Of("top"), ElementsAre("Felt 3 kind 2", "Felt 3 kind 1", "Foil 9 kind 2"));
}

TEST_F(MaterialStatisticsOf, MaterialsNeedANameAndADensity) {
  Import("parent,child\ntop,a\ntop,b\ntop,c\n",
         "part,material,density [kg/m3],surface mass [kg/m2]\na,Steel,,\nb,,7850,\nc,,,3\n");
  EXPECT_THAT(Of("top"), IsEmpty());
}

// Unfolded, the product has 2^60 parts.
TEST_F(MaterialStatisticsOf, SharedPartsAreLookedAtOnce) {
  std::string structure = "parent,child\n", mass = "part,material,density [kg/m3]\n";
  for (int level = 0; level < 60; ++level) {
    const std::string row = "p" + std::to_string(level) + ",p" + std::to_string(level + 1) + "\n";
    structure += row + row;
    mass += "p" + std::to_string(level) + ",M" + std::to_string(level) + ",1\n";
  }
  Import(structure, mass);
  EXPECT_EQ(Of("p0").size(), 60u);
  EXPECT_EQ(Of("p0").back(), "M59 1 kind 1");
}

TEST_F(MaterialStatisticsOf, LargeProductsAreWhole) {
  std::string structure = "parent,child\n", mass = "part,material,density [kg/m3]\n";
  for (int i = 0; i < 2'500; ++i) {
    structure += "top,p" + std::to_string(i) + "\n";
    mass += "p" + std::to_string(i) + ",M" + std::to_string(i) + ",1\n";
  }
  Import(structure, mass);
  EXPECT_EQ(Of("top").size(), 2'500u);
}

}  // namespace
}  // namespace lumira::test
