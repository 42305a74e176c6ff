// What the pages show, read back, is what the buffer holds: under every unit.

#include <cmath>

#include "framework/dialog/KorDlgEditor.h"
#include "framework/knowledge/KorCkeParmDictionary.h"
#include "services/KorWBServices.h"
#include "tests/module/PanelTest.h"

namespace {

/// An editor, its magnitude and what the buffer holds for it (kg, mm, kg·m², kg/m³).
struct ShownCase {
  const char* editor;
  const char* magnitude;
  double stored;
};
constexpr ShownCase kShown[] = {{"MassEditor", "MASS", 1234.56789},
                                {"MTMassEditor", "MASS", 1234.56789},
                                {"LowerValueEditor", "MASS", 0.0625},
                                {"UpperValueEditor", "MASS", 1000.0 / 9},
                                {"LowerDeviationEditor", "MASS", 0.75},
                                {"UpperDeviationEditor", "MASS", 1e-5},
                                {"CGxEditor", "LENGTH", 100},
                                {"MTCGyEditor", "LENGTH", -2000.5},
                                {"MTCGzEditor", "LENGTH", 1000.0 / 3},
                                {"MTIxxEditor", "INERTIAMOMENT", 98765.4321},
                                {"MTIyyEditor", "INERTIAMOMENT", 2e7},
                                {"IzzEditor", "INERTIAMOMENT", 3.5},
                                {"MTIxyEditor", "INERTIAMOMENT", 1.25},
                                {"MTIxzEditor", "INERTIAMOMENT", -2.5},
                                {"IyzEditor", "INERTIAMOMENT", 1000.0 / 7},
                                {"DensityEditor", "DENSITY", 7850.25},
                                {"MatStatDensityEditor", "SURFACICMASS", 12.125}};

protocol::PartData PartWithThese() {
  protocol::PartData part = SamplePart();
  protocol::MassType& computed = part.massTypes[0];
  computed.mass = 1234.56789;
  computed.lowerDeviation = 0.75;
  computed.upperDeviation = 1e-5;
  computed.precisionType = computed.precisionValueType = 1;  // the user's, absolute
  computed.lowerPrecision = 0.0625;
  computed.upperPrecision = 1000.0 / 9;
  computed.cg = {0.1, -2.0005, 1.0 / 3};
  computed.inertia = {98765.4321, 2e7, 3.5, -1.25, 2.5, -1000.0 / 7};  // tensor: products negated
  part.material.density = 7850.25;
  part.material.statistics = {{"Skin", 12.125, 2}};
  return part;
}

class ShownValues : public PanelTest, public testing::WithParamInterface<ShownCase> {};

TEST_P(ShownValues, ReadBackAsTheyAreStoredUnderEveryUnit) {
  const auto [editor, magnitude, stored] = GetParam();
  for (const auto& unit : KorCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(magnitude)->Units()) {
    SetUnit(magnitude, unit->Name());
    Open(PartWithThese());
    const double read = KorWBServices::RestoreValue(As<KorDlgEditor>(editor).GetValue(), magnitude);
    // Ten digits are shown: off by half a unit of the last one at most.
    EXPECT_NEAR(read, stored, std::abs(stored) * 5.000001e-10) << unit->Name() << ": " << Text(editor);
    Close();
  }
}
INSTANTIATE_TEST_SUITE_P(Pages, ShownValues, testing::ValuesIn(kShown),
                         [](const auto& shown) { return std::string(shown.param.editor); });

}  // namespace
