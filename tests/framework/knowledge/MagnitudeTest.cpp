#include <gtest/gtest.h>

#include "framework/knowledge/KorCkeParmDictionary.h"

namespace {

KorCkeUnit_var Unit(const char* name, double factor) {
  return KorCkeUnit_var::Adopt(new KorCkeUnit(name, name, factor));
}

KorCkeMagnitude_var Speed() {
  return KorCkeMagnitude_var::Adopt(new KorCkeMagnitude("MY_SPEED", {Unit("SLOW", 1), Unit("FAST", 10)}));
}

TEST(Magnitude, HasItsFirstUnitAsReferenceAndAsCurrentUnit) {
  const auto magnitude = Speed();
  EXPECT_EQ(magnitude->ReferenceUnit()->Name(), "SLOW");
  EXPECT_EQ(magnitude->CurrentUnit()->Name(), "SLOW");
}

TEST(Magnitude, TellsWhoWaitsWhenItsCurrentUnitChanges) {
  const auto magnitude = Speed();
  KorEventSubscriber listener;
  int changes = 0;
  listener.AddCallback(magnitude.Get(), KorCkeMagnitude::ChangedEvent(),
                       [&](auto*, auto*, auto) { ++changes; });
  EXPECT_EQ(magnitude->SetCurrentUnit("FAST"), S_OK);
  EXPECT_EQ(magnitude->CurrentUnit()->Name(), "FAST");
  EXPECT_EQ(magnitude->SetCurrentUnit("FAST"), S_OK);
  EXPECT_EQ(changes, 1);
}

TEST(Magnitude, RefusesAUnitThatIsNotItsOwn) {
  const auto magnitude = Speed();
  EXPECT_EQ(magnitude->SetCurrentUnit("KILOGRAM"), E_FAIL);
  EXPECT_EQ(magnitude->CurrentUnit()->Name(), "SLOW");
  EXPECT_FALSE(magnitude->FindUnit("KILOGRAM"));
}

TEST(Magnitude, MayHaveNoUnits) {
  const auto empty = KorCkeMagnitude_var::Adopt(new KorCkeMagnitude("EMPTY", {}));
  EXPECT_FALSE(empty->ReferenceUnit());
  EXPECT_FALSE(empty->CurrentUnit());
}

TEST(ParmDictionary, FindsMagnitudesAndUnitsByName) {
  KorCkeParmDictionary dictionary;
  dictionary.AddMagnitude(Speed());
  EXPECT_TRUE(dictionary.FindMagnitude("MY_SPEED"));
  EXPECT_EQ(dictionary.FindUnit("FAST")->ConvertToReference(2), 20);
  EXPECT_FALSE(dictionary.FindMagnitude("MASS"));
  EXPECT_FALSE(dictionary.FindUnit("KILOGRAM"));
  EXPECT_FALSE(dictionary.LengthMagnitude());
}

TEST(ParmDictionary, ReplacesAMagnitudeOfTheSameName) {
  KorCkeParmDictionary dictionary;
  dictionary.AddMagnitude(Speed());
  dictionary.AddMagnitude(KorCkeMagnitude_var::Adopt(new KorCkeMagnitude("MY_SPEED", {Unit("OTHER", 1)})));
  EXPECT_EQ(dictionary.Magnitudes().size(), 1u);
  EXPECT_TRUE(dictionary.FindUnit("OTHER"));
  dictionary.RemoveMagnitude("MY_SPEED");
  EXPECT_TRUE(dictionary.Magnitudes().empty());
}

TEST(GlobalDictionary, CanBeReplacedTakenAwayAndRestored) {
  KorCkeParmDictionary* const builtIn = KorCkeGlobalFunctions::GetParmDictionary();
  ASSERT_NE(builtIn, nullptr);
  KorCkeParmDictionary other;
  KorCkeGlobalFunctions::SetParmDictionary(&other);
  EXPECT_EQ(KorCkeGlobalFunctions::GetParmDictionary(), &other);
  KorCkeGlobalFunctions::SetParmDictionary(nullptr);
  EXPECT_EQ(KorCkeGlobalFunctions::GetParmDictionary(), nullptr);
  KorCkeGlobalFunctions::RestoreParmDictionary();
  EXPECT_EQ(KorCkeGlobalFunctions::GetParmDictionary(), builtIn);
}

}  // namespace
