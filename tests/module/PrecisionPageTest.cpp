#include "tests/module/PanelTest.h"

namespace {

class PrecisionPage : public PanelTest {
 protected:
  static protocol::PartData WithBounds(int type, int valueType) {
    protocol::PartData part = SamplePart();
    protocol::MassType& computed = part.massTypes[0];
    computed.precisionType = type;
    computed.precisionValueType = valueType;
    computed.lowerPrecision = 0.05;
    computed.upperPrecision = 0.1;
    computed.massTypeLowerPrecision = 0.02;
    computed.massTypeUpperPrecision = 0.03;
    return part;
  }
  std::string Bounds() { return Text("LowerValueEditor") + ", " + Text("UpperValueEditor"); }
};

TEST_F(PrecisionPage, ShowsARelativeBoundOfTheUserAsPercent) {
  Open(WithBounds(1, 0));
  EXPECT_EQ(SelectedLine("TypeCombo"), "User Defined");
  EXPECT_EQ(SelectedLine("ValueTypeCombo"), "Relative");
  EXPECT_EQ(Bounds(), "5%, 10%");
}

TEST_F(PrecisionPage, ShowsAnAbsoluteBoundOfTheUserInTheCurrentMassUnit) {
  SetUnit("MASS", "GRAM");
  Open(WithBounds(1, 1));
  EXPECT_EQ(SelectedLine("ValueTypeCombo"), "Absolute");
  EXPECT_EQ(Bounds(), "50 g, 100 g");
}

TEST_F(PrecisionPage, ShowsTheBoundsThatComeWithTheMassType) {
  Open(WithBounds(0, 0));
  EXPECT_EQ(SelectedLine("TypeCombo"), "Mass Type");
  EXPECT_EQ(Bounds(), "2%, 3%");
}

TEST_F(PrecisionPage, ChoosingTheMassTypesOwnBoundsShowsThemAsPercent) {
  Open(WithBounds(1, 1));
  PickPage("TabPage005");
  Widget("TypeCombo").SetSensitivity(KorSensitivity::Enabled);
  Pick("TypeCombo", "Mass Type");
  EXPECT_EQ(SelectedLine("ValueTypeCombo"), "Relative");
  EXPECT_EQ(Bounds(), "2%, 3%");
}

}  // namespace
