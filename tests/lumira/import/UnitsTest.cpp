#include <gtest/gtest.h>

#include "lumira/import/Units.h"

namespace lumira {
namespace {

TEST(Units, KnowTheInternationalPoundAndInch) {
  EXPECT_EQ(FindUnit(Quantity::Mass, "lb"), 0.45359237);
  EXPECT_EQ(FindUnit(Quantity::Length, "in"), 0.0254);
  EXPECT_DOUBLE_EQ(FindUnit(Quantity::Length, "ft").value(), 0.3048);
  EXPECT_DOUBLE_EQ(FindUnit(Quantity::Inertia, "lb in^2").value(), 0.45359237 * 0.00064516);
  EXPECT_DOUBLE_EQ(FindUnit(Quantity::Density, "lb/in^3").value(), 27679.904710203125);
}

TEST(Units, KnowMetricMultiples) {
  EXPECT_EQ(FindUnit(Quantity::Mass, "g"), 1e-3);
  EXPECT_EQ(FindUnit(Quantity::Mass, "t"), 1e3);
  EXPECT_EQ(FindUnit(Quantity::Length, "mm"), 1e-3);
  EXPECT_EQ(FindUnit(Quantity::Inertia, "kg mm2"), 1e-6);
  EXPECT_EQ(FindUnit(Quantity::Inertia, "g mm2"), 1e-9);
  EXPECT_EQ(FindUnit(Quantity::Density, "g/cm3"), 1e3);
  EXPECT_EQ(FindUnit(Quantity::ShapeInertia, "mm5"), 1e-15);
}

TEST(Units, AreSpelledAsEngineersSpellThem) {
  for (const char* spelling : {"kg m2", "kg m^2", "kg*m^2", "kg·m²", "kgm2", "kg m²"})
    EXPECT_EQ(FindUnit(Quantity::Inertia, spelling), 1) << spelling;
  EXPECT_TRUE(FindUnit(Quantity::Angle, "°").has_value());
}

TEST(Units, AreThoseOfTheirQuantityOnly) {
  EXPECT_FALSE(FindUnit(Quantity::Mass, "mm").has_value());
  EXPECT_FALSE(FindUnit(Quantity::Length, "").has_value());
  EXPECT_FALSE(FindUnit(Quantity::Text, "kg").has_value());
  EXPECT_FALSE(FindUnit(Quantity::Mass, "KG").has_value());
}

}  // namespace
}  // namespace lumira
