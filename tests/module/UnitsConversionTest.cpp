#include <gtest/gtest.h>

#include "framework/knowledge/KorCkeParmDictionary.h"
#include "framework/knowledge/KorUnitSystems.h"
#include "module/shared/KorWBNymNavUnitsConversion.h"

namespace {

/// A manager of a test's own, built on the dictionary of the moment.
class OwnManager : public KorWBNymNavUnitsConversion {
 public:
  OwnManager() = default;
};

KorString NameOf(const KorBaseUnknown_var& handle) {
  if (auto* magnitude = dynamic_cast<KorCkeMagnitude*>(handle.Get())) return magnitude->Name();
  if (auto* unit = dynamic_cast<KorCkeUnit*>(handle.Get())) return unit->Name();
  return "null";
}

std::vector<KorString> NamesOf(const KorWBNymNavUnitsConversion::Handles& handles) {
  std::vector<KorString> names;
  for (const KorBaseUnknown_var& handle : handles) names.push_back(NameOf(handle));
  return names;
}

struct UnitsConversion : testing::Test {
  ~UnitsConversion() override {
    KorCkeGlobalFunctions::RestoreParmDictionary();
    KorApplyUnitSystem("Mixed");
  }
  KorWBNymNavUnitsConversion& manager = *KorWBNymNavUnitsConversion::Instance();
};

TEST_F(UnitsConversion, HasOneInstance) {
  EXPECT_EQ(KorWBNymNavUnitsConversion::Instance(), KorWBNymNavUnitsConversion::Instance());
  EXPECT_NE(KorWBNymNavUnitsConversion::Instance(), nullptr);
}

TEST_F(UnitsConversion, CountsItsTypesFromOne) {
  EXPECT_EQ(WBUnitsDensity, 1);
  EXPECT_EQ(WBUnitsLength, 2);
  EXPECT_EQ(WBUnitsMass, 3);
  EXPECT_EQ(WBUnitsMomentOfInertia, 4);
}

TEST_F(UnitsConversion, TypeThreeIsMassAndTypeOneDensityInTheEventNames) {
  EXPECT_STREQ(KorWBNymNavUnitsConversion::GetChangedEvent(3), "WBMassChangedEvent");
  EXPECT_STREQ(KorWBNymNavUnitsConversion::GetChangedEvent(1), "WBDensityChangedEvent");
}

TEST_F(UnitsConversion, NamesTheOtherEvents) {
  EXPECT_STREQ(KorWBNymNavUnitsConversion::GetChangedEvent(2), "WBLengthChangedEvent");
  EXPECT_STREQ(KorWBNymNavUnitsConversion::GetChangedEvent(4), "WBMomentOfInertiaChangedEvent");
}

TEST_F(UnitsConversion, HasNoEventForANumberThatIsNoType) {
  for (const int type : {0, 5, -1, 1000})
    EXPECT_EQ(KorWBNymNavUnitsConversion::GetChangedEvent(type), nullptr) << type;
}

TEST_F(UnitsConversion, LeavesALengthAsItIsOnPurpose) {
  EXPECT_EQ(manager.ConvertLengthValue(12.5), 12.5);
  EXPECT_EQ(manager.ConvertLengthValue(-1e300), -1e300);
}

TEST_F(UnitsConversion, LeavesAValueOfEveryTypeAsItIsWhateverUnitIsCurrent) {
  KorApplyUnitSystem("Imperial");
  for (const int type : {WBUnitsDensity, WBUnitsLength, WBUnitsMass, WBUnitsMomentOfInertia}) {
    double value = 0.1;
    manager.ConvertFromMksToCurrentUnit(type, value);
    EXPECT_EQ(value, 0.1) << type;
  }
}

TEST_F(UnitsConversion, HasAnEmptySymbolForEveryType) {
  for (const int type : {1, 2, 3, 4, 0, 9}) EXPECT_TRUE(manager.Symbol(type).IsEmpty()) << type;
}

TEST_F(UnitsConversion, KnowsTheStorageUnitsInTheOrderOfTheTypes) {
  EXPECT_EQ(NamesOf(manager.StorageUnits()),
            (std::vector<KorString>{"KG__M3", "METER", "KILOGRAM", "KG_M2"}));
}

TEST_F(UnitsConversion, KnowsTheMagnitudesInTheOrderOfTheTypes) {
  EXPECT_EQ(NamesOf(manager.Magnitudes()),
            (std::vector<KorString>{"DENSITY", "LENGTH", "MASS", "INERTIAMOMENT"}));
}

TEST_F(UnitsConversion, KeepsTheUnitsThatWereCurrentWhenItWasBuilt) {
  KorApplyUnitSystem("Imperial");
  const OwnManager own;
  const std::vector<KorString> built = {"LB__IN3", "INCH", "POUND", "LB_IN2"};
  EXPECT_EQ(NamesOf(own.CurrentUnits()), built);
  KorApplyUnitSystem("SI");
  EXPECT_EQ(NamesOf(own.CurrentUnits()), built) << "the lists are filled once";
}

TEST_F(UnitsConversion, SubscribesToTheChangeOfEachOfItsMagnitudesAndNoOther) {
  const KorCkeParmDictionary& dictionary = *KorCkeGlobalFunctions::GetParmDictionary();
  const auto callbacks = [&](const char* magnitude) {
    return dictionary.FindMagnitude(magnitude)->CallbackCount(KorCkeMagnitude::ChangedEvent());
  };
  const char* const kSubscribed[] = {"DENSITY", "LENGTH", "MASS", "INERTIAMOMENT"};
  std::vector<int> before;
  for (const char* magnitude : kSubscribed) before.push_back(callbacks(magnitude));
  const int areaBefore = callbacks("AREA");
  const OwnManager own;
  for (std::size_t i = 0; i < before.size(); ++i) EXPECT_EQ(callbacks(kSubscribed[i]), before[i] + 1);
  EXPECT_EQ(callbacks("AREA"), areaBefore);
}

TEST_F(UnitsConversion, NeverPublishesAChangeThatTheUserMakes) {
  struct Listener : KorEventSubscriber {
    void OnEvent(KorEventSubscriber*, const char*, KorCommandClientData) { ++heard; }
    int heard = 0;
  } listener;
  for (const int type : {1, 2, 3, 4})
    listener.AddCallback(&manager, KorWBNymNavUnitsConversion::GetChangedEvent(type), &Listener::OnEvent);
  KorApplyUnitSystem("CGS");
  KorApplyUnitSystem("Imperial");
  EXPECT_EQ(listener.heard, 0);
}

TEST_F(UnitsConversion, SkipsAMagnitudeThatTheDictionaryDoesNotKnow) {
  KorCkeParmDictionary dictionary;
  for (const KorCkeMagnitude_var& magnitude : KorCkeGlobalFunctions::GetParmDictionary()->Magnitudes())
    if (magnitude->Name() != "LENGTH") dictionary.AddMagnitude(magnitude);
  KorCkeGlobalFunctions::SetParmDictionary(&dictionary);
  const OwnManager own;
  EXPECT_EQ(NamesOf(own.Magnitudes()), (std::vector<KorString>{"DENSITY", "MASS", "INERTIAMOMENT"}));
  EXPECT_EQ(own.CurrentUnits().size(), 3u);
  EXPECT_EQ(NamesOf(own.StorageUnits()), (std::vector<KorString>{"KG__M3", "null", "KILOGRAM", "KG_M2"}))
      << "every storage unit is looked up and appended";
}

TEST_F(UnitsConversion, WithoutADictionaryItsConstructionRaisesTheNullHandleError) {
  KorCkeGlobalFunctions::SetParmDictionary(nullptr);
  EXPECT_THROW(OwnManager(), KorNullHandleError);
}

TEST_F(UnitsConversion, ACopyHasTheSameListsAndIsSubscribedToNothing) {
  const auto magnitude = KorCkeGlobalFunctions::GetParmDictionary()->FindMagnitude("MASS");
  const int before = magnitude->CallbackCount();
  const KorWBNymNavUnitsConversion copy(manager);
  EXPECT_EQ(NamesOf(copy.Magnitudes()), NamesOf(manager.Magnitudes()));
  EXPECT_EQ(NamesOf(copy.CurrentUnits()), NamesOf(manager.CurrentUnits()));
  EXPECT_EQ(NamesOf(copy.StorageUnits()), NamesOf(manager.StorageUnits()));
  EXPECT_EQ(magnitude->CallbackCount(), before);
}

TEST_F(UnitsConversion, AnAssignedManagerTakesOverTheThreeLists) {
  KorApplyUnitSystem("Imperial");
  const OwnManager source;
  KorCkeParmDictionary empty;
  KorCkeGlobalFunctions::SetParmDictionary(&empty);
  OwnManager target;
  target = source;
  EXPECT_EQ(NamesOf(target.Magnitudes()),
            (std::vector<KorString>{"DENSITY", "LENGTH", "MASS", "INERTIAMOMENT"}));
  EXPECT_EQ(NamesOf(target.CurrentUnits()), (std::vector<KorString>{"LB__IN3", "INCH", "POUND", "LB_IN2"}));
  EXPECT_EQ(NamesOf(target.StorageUnits()), (std::vector<KorString>{"KG__M3", "METER", "KILOGRAM", "KG_M2"}));
}

}  // namespace
