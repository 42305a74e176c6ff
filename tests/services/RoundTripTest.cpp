// What is shown and read back is what was stored, to the last shown digit, under every unit of every
// magnitude.

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "framework/knowledge/KorCkeParmDictionary.h"
#include "services/KorWBServices.h"

namespace {

struct UnitCase {
  KorString magnitude;
  KorString unit;
};

std::vector<UnitCase> EveryUnit() {
  std::vector<UnitCase> units;
  for (const auto& magnitude : KorCkeGlobalFunctions::GetParmDictionary()->Magnitudes())
    for (const auto& unit : magnitude->Units()) units.push_back({magnitude->Name(), unit->Name()});
  return units;
}

// Whole and broken, large and small, with fewer and with more digits than are shown.
constexpr double kStored[] = {0,      1,      -2.5,        12.5,          1.0 / 3,
                              7850.1, 1234.5, -0.00123456, 6.02214076e23, 9.87654321098765e11,
                              1e-7,   1e-290, 299792458.1, 273.15 + 77,   -45.359237};

/// Half a unit of the tenth digit of a shown number.
double HalfOfTheLastDigit(double shown) {
  return shown == 0 ? 0 : 0.5 * std::pow(10, std::floor(std::log10(std::abs(shown))) - 9);
}

class RoundTrip : public testing::TestWithParam<UnitCase> {
 protected:
  RoundTrip() { _magnitude->SetCurrentUnit(GetParam().unit); }
  ~RoundTrip() override { _magnitude->SetCurrentUnit(_magnitude->ReferenceUnit()->Name()); }

  const KorCkeUnit& Unit() const { return *_magnitude->CurrentUnit(); }
  double Restored(const KorUnicodeString& text) const {
    double shown = NAN;
    EXPECT_EQ(text.ConvertToNum(&shown, "%le"), 1) << text;
    return KorWBServices::RestoreValue(shown, GetParam().magnitude);
  }

 private:
  KorCkeMagnitude_var _magnitude =
      KorCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(GetParam().magnitude);
};

TEST_P(RoundTrip, LeavesTheStoredNumberToTheLastShownDigit) {
  for (const double stored : kStored) {
    const double shown = Unit().ConvertFromReference(stored);
    const double factor = Unit().ConvertToReference(1) - Unit().ConvertToReference(0);
    const double rounding = 1e-14 * (std::abs(stored) + std::abs(Unit().ConvertToReference(0)));
    EXPECT_NEAR(Restored(Unit().ShowValue(stored)), stored,
                std::abs(factor) * HalfOfTheLastDigit(shown) + rounding)
        << stored;
  }
}

TEST_P(RoundTrip, ShowsTheRestoredNumberWithTheSameText) {
  for (const double stored : kStored) {
    const KorUnicodeString shown = Unit().ShowValue(stored);
    EXPECT_EQ(Unit().ShowValue(Restored(shown)), shown) << stored;
  }
}

TEST_P(RoundTrip, FindsNothingToWorkOutInAShownText) {
  for (const double stored : kStored) {
    const KorUnicodeString shown = Unit().ShowValue(stored);
    KorUnicodeString text = shown;
    EXPECT_EQ(KorWBServices::EvaluateSimpleExpression(text, Unit().Symbol()), S_OK) << shown;
    EXPECT_EQ(text, shown);
  }
}

INSTANTIATE_TEST_SUITE_P(Units, RoundTrip, testing::ValuesIn(EveryUnit()),
                         [](const auto& unit) { return unit.param.magnitude + "_in_" + unit.param.unit; });

}  // namespace
