#include <gtest/gtest.h>

#include <algorithm>

#include "framework/knowledge/KorUnitSystems.h"

namespace {

KorString Current(const char* magnitude) {
  return KorCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(magnitude)->CurrentUnit()->Name();
}

/// Leaves every magnitude in its reference unit.
struct UnitSystems : testing::Test {
  ~UnitSystems() override {
    for (const auto& magnitude : KorCkeGlobalFunctions::GetParmDictionary()->Magnitudes())
      magnitude->SetCurrentUnit(magnitude->ReferenceUnit()->Name());
  }
};

TEST_F(UnitSystems, AreFourWithTheInternationalOneFirst) {
  ASSERT_EQ(KorGetUnitSystems().size(), 4u);
  EXPECT_STREQ(KorGetUnitSystems()[0].name, "SI");
}

TEST_F(UnitSystems, ChooseAKnownUnitForEveryMagnitude) {
  const auto& magnitudes = KorCkeGlobalFunctions::GetParmDictionary()->Magnitudes();
  for (const KorUnitSystem& system : KorGetUnitSystems()) {
    EXPECT_EQ(system.choices.size(), magnitudes.size()) << system.name;
    for (const auto& magnitude : magnitudes) {
      const auto choice = std::find_if(system.choices.begin(), system.choices.end(),
                                       [&](const auto& c) { return c.magnitude == magnitude->Name(); });
      ASSERT_NE(choice, system.choices.end()) << system.name << " " << magnitude->Name();
      EXPECT_TRUE(magnitude->FindUnit(choice->unit)) << system.name << " " << choice->unit;
    }
  }
}

TEST_F(UnitSystems, MakeTheirUnitsCurrent) {
  EXPECT_EQ(KorApplyUnitSystem("Imperial"), S_OK);
  EXPECT_EQ(Current("LENGTH"), "INCH");
  EXPECT_EQ(Current("MASS"), "POUND");
  EXPECT_EQ(Current("INERTIAMOMENT"), "LB_IN2");
  EXPECT_EQ(KorApplyUnitSystem("CGS"), S_OK);
  EXPECT_EQ(Current("LENGTH"), "CENTIMETER");
  EXPECT_EQ(KorApplyUnitSystem("SI"), S_OK);
  EXPECT_EQ(Current("LENGTH"), "METER");
}

TEST_F(UnitSystems, AreNamedWhenAllTheirUnitsAreCurrent) {
  for (const KorUnitSystem& system : KorGetUnitSystems()) {
    KorApplyUnitSystem(system.name);
    EXPECT_EQ(KorCurrentUnitSystem(), system.name);
  }
}

TEST_F(UnitSystems, HaveNoNameForTheUsersOwnChoice) {
  KorApplyUnitSystem("SI");
  KorCkeGlobalFunctions::GetParmDictionary()->FindMagnitude("MASS")->SetCurrentUnit("POUND");
  EXPECT_EQ(KorCurrentUnitSystem(), "");
}

TEST_F(UnitSystems, RefuseAnUnknownNameAndChangeNothing) {
  KorApplyUnitSystem("Imperial");
  EXPECT_EQ(KorApplyUnitSystem("Nautical"), E_FAIL);
  EXPECT_EQ(KorCurrentUnitSystem(), "Imperial");
}

TEST_F(UnitSystems, PassOverMagnitudesThatTheDictionaryDoesNotHave) {
  KorCkeParmDictionary empty;
  KorCkeGlobalFunctions::SetParmDictionary(&empty);
  EXPECT_EQ(KorApplyUnitSystem("SI"), S_OK);
  KorCkeGlobalFunctions::SetParmDictionary(nullptr);
  EXPECT_EQ(KorApplyUnitSystem("SI"), S_OK);
  KorCkeGlobalFunctions::RestoreParmDictionary();
}

}  // namespace
