#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "framework/knowledge/KorCkeParmDictionary.h"

namespace {

const KorCkeParmDictionary& Dictionary() { return *KorCkeGlobalFunctions::GetParmDictionary(); }

double Factor(const char* unit) {
  const KorCkeUnit_var found = Dictionary().FindUnit(unit);
  EXPECT_TRUE(found) << unit;
  return found ? found->ConvertToReference(1) - found->ConvertToReference(0) : 0;
}

TEST(BuiltInMagnitudes, HaveTheReferenceUnitsOfTheDataBuffer) {
  const auto reference = [](const char* magnitude) {
    return Dictionary().FindMagnitude(magnitude)->ReferenceUnit()->Name();
  };
  EXPECT_EQ(reference("LENGTH"), "MILLIMETER");
  EXPECT_EQ(reference("MASS"), "KILOGRAM");
  EXPECT_EQ(reference("DENSITY"), "KG__M3");
  EXPECT_EQ(reference("INERTIAMOMENT"), "KG_M2");
  EXPECT_EQ(reference("SURFACICMASS"), "KG__M2");
  EXPECT_EQ(Dictionary().LengthMagnitude(), Dictionary().FindMagnitude("LENGTH"));
}

TEST(BuiltInMagnitudes, HaveTheStorageUnitsByName) {
  for (const char* name : {"KG__M3", "METER", "KILOGRAM", "KG_M2"})
    EXPECT_TRUE(Dictionary().FindUnit(name)) << name;
}

// Figures of NIST Special Publication 811 (2008), Appendix B.8; "=" marks those that are exact there.
TEST(BuiltInMagnitudes, HavePublishedFactors) {
  EXPECT_DOUBLE_EQ(Factor("INCH"), 25.4);             // =
  EXPECT_DOUBLE_EQ(Factor("FOOT"), 304.8);            // =
  EXPECT_DOUBLE_EQ(Factor("YARD"), 914.4);            // =
  EXPECT_DOUBLE_EQ(Factor("MILE"), 1609344);          // =
  EXPECT_DOUBLE_EQ(Factor("METER"), 1000);            // =
  EXPECT_DOUBLE_EQ(Factor("POUND"), 0.45359237);      // =
  EXPECT_DOUBLE_EQ(Factor("OUNCE"), 0.028349523125);  // =
  EXPECT_NEAR(Factor("SLUG"), 14.59390, 5e-6);
  EXPECT_NEAR(Factor("LB__FT3"), 16.01846, 5e-6);
  EXPECT_NEAR(Factor("LB__IN3"), 27679.90, 5e-3);
  EXPECT_NEAR(Factor("SLUG__FT3"), 515.3788, 5e-5);
  EXPECT_DOUBLE_EQ(Factor("G__CM3"), 1000);  // =
  EXPECT_NEAR(Factor("LB_FT2"), 0.04214011, 5e-9);
  EXPECT_NEAR(Factor("LB_IN2"), 2.926397e-4, 5e-11);
  EXPECT_DOUBLE_EQ(Factor("G_CM2"), 1e-7);   // =
  EXPECT_DOUBLE_EQ(Factor("KG_MM2"), 1e-6);  // =
  EXPECT_NEAR(Factor("LB__FT2"), 4.882428, 5e-7);
  EXPECT_NEAR(Factor("OZ__YD2"), 0.03390575, 5e-9);
  EXPECT_NEAR(Factor("POUND_FORCE"), 4.448222, 5e-7);
  EXPECT_NEAR(Factor("PSI"), 6894.757, 5e-4);
  EXPECT_NEAR(Factor("LBF_IN"), 0.1129848, 5e-8);
  EXPECT_NEAR(Factor("GALLON"), 0.003785412, 5e-10);
  EXPECT_NEAR(Factor("HORSEPOWER"), 745.6999, 5e-5);
  EXPECT_NEAR(Factor("DEGREE"), 0.01745329, 5e-9);
  EXPECT_NEAR(Factor("KNOT"), 0.5144444, 5e-8);
}

// A slug accelerated by 1 ft/s² needs one pound-force; so a slug·ft² is 1.355818 kg·m² (the foot-pound's
// figure).
TEST(BuiltInMagnitudes, HaveTheSlugFootSquared) { EXPECT_NEAR(Factor("SLUG_FT2"), 1.355818, 5e-7); }

TEST(BuiltInMagnitudes, HaveTemperaturesWithTheirZero) {
  EXPECT_DOUBLE_EQ(Dictionary().FindUnit("CELSIUS")->ConvertToReference(100), 373.15);
  EXPECT_NEAR(Dictionary().FindUnit("FAHRENHEIT")->ConvertToReference(32), 273.15, 1e-12);
  EXPECT_NEAR(Dictionary().FindUnit("FAHRENHEIT")->ConvertToReference(212), 373.15, 1e-12);
}

TEST(BuiltInMagnitudes, ConvertEveryUnitThereAndBack) {
  for (const KorCkeMagnitude_var& magnitude : Dictionary().Magnitudes())
    for (const KorCkeUnit_var& unit : magnitude->Units())
      for (double value : {0.0, 1.0, -2.5, 1234.56789, 7.3e-9, 8.1e12}) {
        const double back = unit->ConvertFromReference(unit->ConvertToReference(value));
        const double zero = std::abs(unit->ConvertFromReference(0));
        EXPECT_NEAR(back, value, 4e-16 * (std::abs(value) + zero)) << unit->Name() << " " << value;
      }
}

TEST(BuiltInMagnitudes, ShowEveryUnitSoThatItReadsBack) {
  for (const KorCkeMagnitude_var& magnitude : Dictionary().Magnitudes())
    for (const KorCkeUnit_var& unit : magnitude->Units()) {
      double number = 0;
      EXPECT_EQ(unit->FormatValue(-12.5e-7).ConvertToNum(&number, "%le"), 1) << unit->Name();
      EXPECT_EQ(number, -12.5e-7) << unit->Name();
    }
}

TEST(BuiltInMagnitudes, HaveNoNameTwiceAndEverySymbolOnceInItsMagnitude) {
  std::set<KorString> names;
  for (const KorCkeMagnitude_var& magnitude : Dictionary().Magnitudes()) {
    std::set<KorUnicodeString> symbols;
    for (const KorCkeUnit_var& unit : magnitude->Units()) {
      EXPECT_TRUE(names.insert(unit->Name()).second) << unit->Name();
      EXPECT_TRUE(symbols.insert(unit->Symbol()).second) << unit->Name();
    }
  }
}

}  // namespace
