// The published figures of the sample, as the ten editors of the panel's results show them.
#include <QLineEdit>
#include <array>
#include <cmath>

#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/knowledge/KorCkeParmDictionary.h"
#include "tests/desktop/app/WindowHarness.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

constexpr const char* kResults = "TabContainer001.TabPage002.";
constexpr const char* kModes = "Frame250.AdditionalFrame2.";
constexpr std::array kEditors{
    "MassFrame.MassEditor",           "CenterOfGravityFrame.CGxEditor",  "CenterOfGravityFrame.CGyEditor",
    "CenterOfGravityFrame.CGzEditor", "MomentOfInertiaFrame.IxxEditor",  "MomentOfInertiaFrame.IyyEditor",
    "MomentOfInertiaFrame.IzzEditor", "ProductOfInertiaFrame.IxyEditor", "ProductOfInertiaFrame.IxzEditor",
    "ProductOfInertiaFrame.IyzEditor"};
using Figures = std::array<double, kEditors.size()>;

/// About the centre of gravity in the part's own axes, which the published table uses too (the generator's
/// are tilted by 6° about y, with the origin in its centre); at the tower top in those of the root product.
enum class About { CentreOfGravity, TowerTop };

struct Case {
  const char* name;
  std::vector<std::string> instancePath;
  About about;
  const char* massUnit;
  const char* inertiaUnit;
  std::array<const char*, 3> symbols;  ///< of mass, lengths and inertia
  Figures figures;                     ///< in millimetres and the units above; products as integrals
};

const std::vector<std::string> kAboveYaw{"nacelle.1", "Above_yaw.1"};
const std::vector<std::string> kGenerator{"nacelle.1", "Above_yaw.1", "generator.1"};
constexpr std::array kMetric{"kg", "mm", "kg\u00b7m\u00b2"};
constexpr std::array kPounds{"lb", "mm", "lb\u00b7in\u00b2"};

// The rows "Above_yaw" and "generator" of the published table: kilograms, millimetres and kg·m² as they stand
// there, products with the sign changed; then divided by 0.45359237 kg/lb and by 0.0254² m²/in².
const Case kCases[] = {
    {"AboveYawAboutItsCentreInKilograms",
     kAboveYaw,
     About::CentreOfGravity,
     "KILOGRAM",
     "KG_M2",
     kMetric,
     {644856.548088461, -5124.694874749737, -146.481697382938, 4314.502124176699, 9474045.437011357,
      10608608.72268249, 10536262.58048209, -484077.0468450342, -2197871.805292473, 236144.6819962184}},
    {"AboveYawAtTheTowerTopInKilograms",
     kAboveYaw,
     About::TowerTop,
     "KILOGRAM",
     "KG_M2",
     kMetric,
     {644856.548088461, -5124.694874749737, -146.481697382938, 4314.502124176699, 21491840.63823167,
      39548110.82965133, 27485642.71525947, 0, -16455976.97605734, -171401.8154877078}},
    {"AboveYawAboutItsCentreInPounds",
     kAboveYaw,
     About::CentreOfGravity,
     "POUND",
     "LB_IN2",
     kPounds,
     {1421665.334, -5124.694875, -146.4816974, 4314.502124, 3.237444183e10, 3.625143961e10, 3.60042204e10,
      -1654174481, -7510505769, 806946971.2}},
    {"AboveYawAtTheTowerTopInPounds",
     kAboveYaw,
     About::TowerTop,
     "POUND",
     "LB_IN2",
     kPounds,
     {1421665.334, -5124.694875, -146.4816974, 4314.502124, 7.344131387e10, 1.35142693e11, 9.392316589e10, 0,
      -5.623290208e10, -585709467.2}},
    {"GeneratorAboutItsCentreInKilograms",
     kGenerator,
     About::CentreOfGravity,
     "KILOGRAM",
     "KG_M2",
     kMetric,
     {368839.4071518108, 0, 0, 0, 5197408.244421278, 2752875.38606201, 2752875.38606201, 0, 0, 0}},
    {"GeneratorAtTheTowerTopInKilograms",
     kGenerator,
     About::TowerTop,
     "KILOGRAM",
     "KG_M2",
     kMetric,
     {368839.4071518108, -6516.676090182924, 0, 5034.389671180861, 14518962.83623591, 27764667.34516002,
      18443112.75334539, 0, -11846570.5011075, 0}},
    {"GeneratorAboutItsCentreInPounds",
     kGenerator,
     About::CentreOfGravity,
     "POUND",
     "LB_IN2",
     kPounds,
     {813151.7008, 0, 0, 0, 1.77604374e10, 9407048409, 9407048409, 0, 0, 0}},
    {"GeneratorAtTheTowerTopInPounds",
     kGenerator,
     About::TowerTop,
     "POUND",
     "LB_IN2",
     kPounds,
     {813151.7008, -6516.67609, 0, 5034.389671, 4.96137918e10, 9.487664102e10, 6.302328662e10, 0,
      -4.048176781e10, 0}},
};

class PublishedFigures : public WindowTest, public ::testing::WithParamInterface<Case> {
 protected:
  static void ChooseUnit(const char* magnitude, const char* unit) {
    KorCkeMagnitude_var found = KorCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(magnitude);
    ASSERT_EQ(found->SetCurrentUnit(unit), S_OK) << unit;
  }
  void Check(const char* radio) {
    ASSERT_TRUE(Panel().Find<KorDlgRadioButton>(std::string(kModes) + radio).Check()) << radio;
  }
  /// Each digit of the ten that are shown: half a unit of the tenth, of the greatest figure of the group.
  void ExpectShown(std::size_t first, std::size_t count, const char* symbol) {
    double greatest = 0;
    for (std::size_t i = first; i < first + count; ++i)
      greatest = std::max(greatest, std::abs(GetParam().figures[i]));
    for (std::size_t i = first; i < first + count; ++i) {
      auto* edit = backend.ControlOf<QLineEdit>(Panel().Find(std::string(kResults) + kEditors[i]));
      ASSERT_NE(edit, nullptr) << kEditors[i];
      const QStringList shown = edit->text().split(' ');
      ASSERT_EQ(shown.size(), 2) << kEditors[i] << ": " << edit->text().toStdString();
      EXPECT_NEAR(shown[0].toDouble(), GetParam().figures[i], 1e-9 * greatest) << kEditors[i];
      EXPECT_EQ(shown[1].toStdString(), symbol) << kEditors[i];
    }
  }
};

TEST_P(PublishedFigures, StandInTheEditorsOfThePanel) {
  ChooseUnit("MASS", GetParam().massUnit);
  ChooseUnit("INERTIAMOMENT", GetParam().inertiaUnit);
  window.UnitsChanged();
  Select(GetParam().instancePath);
  window.ShowPartPanel();
  ASSERT_TRUE(window.PartPanel().IsOpen());
  if (GetParam().about == About::TowerTop) {
    Check("ReferenceModeFrame.RootProductButton");
    Check("InertiaModeFrame.ReferenceButton");
  }
  ASSERT_TRUE(window.PartPanel().Compute());
  RunPendingEvents();
  EXPECT_TRUE(boxes.Messages().empty());
  ExpectShown(0, 1, GetParam().symbols[0]);
  ExpectShown(1, 3, GetParam().symbols[1]);
  ExpectShown(4, 6, GetParam().symbols[2]);
}

INSTANTIATE_TEST_SUITE_P(OfTheSample, PublishedFigures, ::testing::ValuesIn(kCases),
                         [](const auto& one) { return std::string(one.param.name); });

}  // namespace
}  // namespace desktop::test
