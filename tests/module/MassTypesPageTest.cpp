#include "framework/dialog/KorDlgCombo.h"
#include "tests/module/PanelTest.h"

namespace {

class MassTypesPage : public PanelTest {
 protected:
  std::string MTCG() { return Text("MTCGxEditor") + ", " + Text("MTCGyEditor") + ", " + Text("MTCGzEditor"); }
  void ExpectNoDistribution() {
    EXPECT_EQ(MTCG(), "..., ..., ...");
    EXPECT_EQ(MTMoments(), "..., ..., ...");
    EXPECT_EQ(MTProducts(), "..., ..., ...");
  }
  void OpenPage(const protocol::PartData& part) {
    Open(part);
    PickPage("TabPage003");
  }
};

TEST_F(MassTypesPage, ShowsTheValuesOfTheChosenMassType) {
  OpenPage(SamplePart());
  Pick("MassTypeCombo", "Estimated");
  EXPECT_EQ(Text("MTMassEditor"), "4 kg");
  EXPECT_EQ(MTCG(), "1000 mm, 0 mm, 0 mm");
  EXPECT_EQ(MTMoments(), "5 kg·m², 6 kg·m², 7 kg·m²");
  EXPECT_EQ(MTProducts(), "0 kg·m², 0 kg·m², 0 kg·m²");
}

TEST_F(MassTypesPage, ShowsAnUndefinedMassTypeAsDotsInAllTenEditors) {
  OpenPage(SamplePart());
  Pick("MassTypeCombo", "Weighed");
  EXPECT_EQ(Text("MTMassEditor"), "...");
  ExpectNoDistribution();
}

TEST_F(MassTypesPage, ShowsAUserMassTypeOfAStandardPartByItsMassAlone) {
  protocol::PartData part = SamplePart();
  part.standardPart = true;
  OpenPage(part);
  EXPECT_EQ(MTMoments(), "10 kg·m², 20 kg·m², 30 kg·m²");  // the computed type keeps its values
  Pick("MassTypeCombo", "Estimated");
  EXPECT_EQ(Text("MTMassEditor"), "4 kg");
  ExpectNoDistribution();
  EXPECT_EQ(Panel().RefreshLengthUnits(), S_OK);
  EXPECT_EQ(Panel().RefreshMomentOfInertiaUnits(), S_OK);
  ExpectNoDistribution();
}

TEST_F(MassTypesPage, TellsThePrecisionPageWhichMassTypeIsActive) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  Open(part);
  EXPECT_EQ(Text("ActiveMassTypeSelectedEditor"), "Estimated");
}

TEST_F(MassTypesPage, ShowsDotsAgainWhenTheUnitsAreShownAgain) {
  OpenPage(SamplePart());
  Pick("MassTypeCombo", "Weighed");
  SetUnit("LENGTH", "METER");
  SetUnit("INERTIAMOMENT", "G_CM2");
  EXPECT_EQ(Panel().RefreshLengthUnits(), S_OK);
  EXPECT_EQ(Panel().RefreshMomentOfInertiaUnits(), S_OK);
  EXPECT_EQ(Panel().RefreshMassUnits(), S_OK);
  EXPECT_EQ(Text("MTMassEditor"), "...");
  ExpectNoDistribution();
}

TEST_F(MassTypesPage, ShowsTheInertiaOfAMasslessTypeAgainWhereItIs) {
  protocol::PartData part = SamplePart();
  part.massTypes[1].mass = 0;
  OpenPage(part);
  Pick("MassTypeCombo", "Estimated");
  SetUnit("INERTIAMOMENT", "KG_MM2");
  PickPage("TabPage002");
  Check("ReferenceButton");
  EXPECT_EQ(Panel().RefreshMomentOfInertiaUnits(), S_OK);
  EXPECT_EQ(MTMoments(), "5000000 kg·mm², 6000000 kg·mm², 7000000 kg·mm²");
}

TEST_F(MassTypesPage, WithCustomAxesThatSpanNoSpaceTheUnitsAreShownAgainAllTheSame) {
  Open(SamplePart());
  Check("CustomReferenceButton");
  SetUnit("LENGTH", "METER");
  EXPECT_EQ(Panel().RefreshLengthUnits(), S_OK);
  EXPECT_EQ(MTCG(), "0.1 m, 0.2 m, 0.3 m");
}

}  // namespace
