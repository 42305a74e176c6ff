#include "framework/knowledge/KorBuiltInMagnitudes.h"

#include <numbers>

namespace {

// Exact by definition: international yard and pound agreement of 1959; standard gravity of the 3rd CGPM,
// 1901. NIST Special Publication 811, Appendix B, lists the units that follow from them.
constexpr double kInch = 0.0254;        // m
constexpr double kFoot = 12 * kInch;    // m
constexpr double kYard = 3 * kFoot;     // m
constexpr double kMile = 1760 * kYard;  // m
constexpr double kPound = 0.45359237;   // kg
constexpr double kOunce = kPound / 16;
constexpr double kGravity = 9.80665;                     // m/s²
constexpr double kPoundForce = kPound * kGravity;        // N
constexpr double kSlug = kPoundForce / kFoot;            // kg: accelerated by 1 ft/s² by one pound-force
constexpr double kGallon = 231 * kInch * kInch * kInch;  // m³, US liquid gallon
constexpr double kMillimetre = 0.001;                    // m
constexpr double kCubicFoot = kFoot * kFoot * kFoot;
constexpr double kCubicInch = kInch * kInch * kInch;

struct UnitRow {
  const char* name;
  const char* symbol;
  double factor;      ///< of this unit in the reference unit
  double offset = 0;  ///< zero of this unit in the reference unit
};

struct MagnitudeRow {
  const char* name;
  std::vector<UnitRow> units;  ///< the reference unit first
};

// A name reads `_` as a product and `__` as a quotient. Lengths refer to the millimetre, everything else to
// SI.
const std::vector<MagnitudeRow>& Rows() {
  // clang-format off
  static const std::vector<MagnitudeRow> rows = {
      {"LENGTH",
       {{"MILLIMETER", "mm", 1},
        {"CENTIMETER", "cm", 10},
        {"METER", "m", 1000},
        {"KILOMETER", "km", 1e6},
        {"MICROMETER", "µm", 1e-3},
        {"INCH", "in", kInch / kMillimetre},
        {"FOOT", "ft", kFoot / kMillimetre},
        {"YARD", "yd", kYard / kMillimetre},
        {"MILE", "mi", kMile / kMillimetre}}},
      {"MASS",
       {{"KILOGRAM", "kg", 1},
        {"GRAM", "g", 1e-3},
        {"MILLIGRAM", "mg", 1e-6},
        {"TONNE", "t", 1000},
        {"POUND", "lb", kPound},
        {"OUNCE", "oz", kOunce},
        {"SLUG", "slug", kSlug},
        {"SHORT_TON", "tn", 2000 * kPound}}},
      {"DENSITY",
       {{"KG__M3", "kg/m³", 1},
        {"G__CM3", "g/cm³", 1000},
        {"T__M3", "t/m³", 1000},
        {"KG__MM3", "kg/mm³", 1e9},
        {"LB__FT3", "lb/ft³", kPound / kCubicFoot},
        {"LB__IN3", "lb/in³", kPound / kCubicInch},
        {"SLUG__FT3", "slug/ft³", kSlug / kCubicFoot}}},
      {"INERTIAMOMENT",
       {{"KG_M2", "kg·m²", 1},
        {"KG_MM2", "kg·mm²", 1e-6},
        {"KG_CM2", "kg·cm²", 1e-4},
        {"G_CM2", "g·cm²", 1e-7},
        {"G_MM2", "g·mm²", 1e-9},
        {"T_M2", "t·m²", 1000},
        {"LB_IN2", "lb·in²", kPound * kInch * kInch},
        {"LB_FT2", "lb·ft²", kPound * kFoot * kFoot},
        {"SLUG_FT2", "slug·ft²", kSlug * kFoot * kFoot}}},
      {"SURFACICMASS",
       {{"KG__M2", "kg/m²", 1},
        {"G__M2", "g/m²", 1e-3},
        {"G__CM2", "g/cm²", 10},
        {"LB__FT2", "lb/ft²", kPound / (kFoot * kFoot)},
        {"LB__IN2", "lb/in²", kPound / (kInch * kInch)},
        {"OZ__YD2", "oz/yd²", kOunce / (kYard * kYard)}}},
      {"LINEICMASS",
       {{"KG__M", "kg/m", 1},
        {"G__CM", "g/cm", 0.1},
        {"LB__FT", "lb/ft", kPound / kFoot},
        {"LB__IN", "lb/in", kPound / kInch}}},
      {"AREA",
       {{"M2", "m²", 1},
        {"CM2", "cm²", 1e-4},
        {"MM2", "mm²", 1e-6},
        {"IN2", "in²", kInch * kInch},
        {"FT2", "ft²", kFoot * kFoot},
        {"YD2", "yd²", kYard * kYard}}},
      {"VOLUME",
       {{"M3", "m³", 1},
        {"LITER", "L", 1e-3},
        {"CM3", "cm³", 1e-6},
        {"MM3", "mm³", 1e-9},
        {"IN3", "in³", kCubicInch},
        {"FT3", "ft³", kCubicFoot},
        {"GALLON", "gal", kGallon}}},
      {"TIME",
       {{"SECOND", "s", 1},
        {"MILLISECOND", "ms", 1e-3},
        {"MINUTE", "min", 60},
        {"HOUR", "h", 3600},
        {"DAY", "d", 86400}}},
      {"ANGLE",
       {{"RADIAN", "rad", 1},
        {"DEGREE", "°", std::numbers::pi / 180},
        {"ARC_MINUTE", "′", std::numbers::pi / 10800},
        {"ARC_SECOND", "″", std::numbers::pi / 648000},
        {"GRADIAN", "gon", std::numbers::pi / 200},
        {"TURN", "tr", 2 * std::numbers::pi}}},
      {"TEMPERATURE",
       {{"KELVIN", "K", 1},
        {"CELSIUS", "°C", 1, 273.15},
        {"FAHRENHEIT", "°F", 5.0 / 9, 459.67 * 5 / 9},
        {"RANKINE", "°R", 5.0 / 9}}},
      {"FORCE",
       {{"NEWTON", "N", 1},
        {"KILONEWTON", "kN", 1000},
        {"DYNE", "dyn", 1e-5},
        {"KILOGRAM_FORCE", "kgf", kGravity},
        {"POUND_FORCE", "lbf", kPoundForce}}},
      {"TORQUE",
       {{"N_M", "N·m", 1},
        {"DYN_CM", "dyn·cm", 1e-7},
        {"LBF_FT", "lbf·ft", kPoundForce * kFoot},
        {"LBF_IN", "lbf·in", kPoundForce * kInch}}},
      {"PRESSURE",
       {{"PASCAL", "Pa", 1},
        {"KILOPASCAL", "kPa", 1e3},
        {"MEGAPASCAL", "MPa", 1e6},
        {"BAR", "bar", 1e5},
        {"DYN__CM2", "dyn/cm²", 0.1},
        {"PSI", "psi", kPoundForce / (kInch * kInch)}}},
      {"SPEED",
       {{"M__S", "m/s", 1},
        {"CM__S", "cm/s", 0.01},
        {"KM__H", "km/h", 1 / 3.6},
        {"FT__S", "ft/s", kFoot},
        {"MILE__H", "mph", kMile / 3600},
        {"KNOT", "kn", 1852.0 / 3600}}},
      {"ACCELERATION",
       {{"M__S2", "m/s²", 1}, {"CM__S2", "cm/s²", 0.01}, {"FT__S2", "ft/s²", kFoot}, {"GRAVITY", "g₀", kGravity}}},
      {"ENERGY",
       {{"JOULE", "J", 1},
        {"ERG", "erg", 1e-7},
        {"KILOWATT_HOUR", "kWh", 3.6e6},
        {"FT_LBF", "ft·lbf", kFoot * kPoundForce}}},
      {"POWER",
       {{"WATT", "W", 1}, {"KILOWATT", "kW", 1e3}, {"MEGAWATT", "MW", 1e6}, {"ERG__S", "erg/s", 1e-7},
        {"HORSEPOWER", "hp", 550 * kFoot * kPoundForce}}},
      {"FREQUENCY", {{"HERTZ", "Hz", 1}, {"KILOHERTZ", "kHz", 1e3}, {"RPM", "rpm", 1.0 / 60}}},
  };
  // clang-format on
  return rows;
}

KorCkeMagnitude_var MakeMagnitude(const MagnitudeRow& row) {
  std::vector<KorCkeUnit_var> units;
  for (const UnitRow& unit : row.units)
    units.push_back(KorCkeUnit_var::Adopt(new KorCkeUnit(unit.name, unit.symbol, unit.factor, unit.offset)));
  return KorCkeMagnitude_var::Adopt(new KorCkeMagnitude(row.name, std::move(units)));
}

}  // namespace

std::vector<KorCkeMagnitude_var> KorMakeBuiltInMagnitudes() {
  std::vector<KorCkeMagnitude_var> magnitudes;
  for (const MagnitudeRow& row : Rows()) magnitudes.push_back(MakeMagnitude(row));
  return magnitudes;
}
