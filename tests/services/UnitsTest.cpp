#include <gtest/gtest.h>

#include "framework/knowledge/KorUnitSystems.h"
#include "services/KorWBServices.h"

namespace {

/// Leaves every magnitude in its reference unit.
struct RestoreValue : testing::Test {
  ~RestoreValue() override {
    KorCkeGlobalFunctions::RestoreParmDictionary();
    for (const auto& magnitude : KorCkeGlobalFunctions::GetParmDictionary()->Magnitudes())
      magnitude->SetCurrentUnit(magnitude->ReferenceUnit()->Name());
  }
};

TEST_F(RestoreValue, LeavesANumberThatIsShownInTheStorageUnit) {
  EXPECT_EQ(KorWBServices::RestoreValue(12.3, "LENGTH"), 12.3);
  EXPECT_EQ(KorWBServices::RestoreValue(-4, "MASS"), -4);
}

TEST_F(RestoreValue, ConvertsFromTheCurrentUnit) {
  KorApplyUnitSystem("Imperial");
  EXPECT_DOUBLE_EQ(KorWBServices::RestoreValue(2, "LENGTH"), 50.8);
  EXPECT_DOUBLE_EQ(KorWBServices::RestoreValue(100, "MASS"), 45.359237);
  KorApplyUnitSystem("SI");
  EXPECT_DOUBLE_EQ(KorWBServices::RestoreValue(1.5, "LENGTH"), 1500);
}

TEST_F(RestoreValue, RestoresWhatEveryUnitShows) {
  for (const auto& magnitude : KorCkeGlobalFunctions::GetParmDictionary()->Magnitudes())
    for (const auto& unit : magnitude->Units()) {
      magnitude->SetCurrentUnit(unit->Name());
      double shown = 0;
      unit->ShowValue(1234.5).ConvertToNum(&shown, "%le");
      EXPECT_NEAR(KorWBServices::RestoreValue(shown, magnitude->Name()), 1234.5, 1234.5 * 1e-9)
          << unit->Name();
    }
}

TEST_F(RestoreValue, LeavesTheNumberWhenTheMagnitudeIsUnknown) {
  double stored = -77;
  EXPECT_EQ(KorWBServices::RestoreValue(5, "NONSENSE"), 5);
  EXPECT_EQ(KorWBServices::RestoreValue(5, "NONSENSE", stored), E_FAIL);
  EXPECT_EQ(stored, -77);
  EXPECT_EQ(KorWBServices::RestoreValue(5, "MASS", stored), S_OK);
  EXPECT_EQ(stored, 5);
}

TEST_F(RestoreValue, LeavesTheNumberWithoutADictionary) {
  KorCkeGlobalFunctions::SetParmDictionary(nullptr);
  double stored = -77;
  EXPECT_EQ(KorWBServices::RestoreValue(5, "MASS"), 5);
  EXPECT_EQ(KorWBServices::RestoreValue(5, "MASS", stored), E_FAIL);
}

}  // namespace
