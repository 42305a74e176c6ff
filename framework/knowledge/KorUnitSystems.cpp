#include "framework/knowledge/KorUnitSystems.h"

#include <algorithm>
#include <array>

namespace {

// clang-format off
constexpr KorUnitChoice kSi[] = {
    {"LENGTH", "METER"},        {"MASS", "KILOGRAM"},   {"DENSITY", "KG__M3"},     {"INERTIAMOMENT", "KG_M2"},
    {"SURFACICMASS", "KG__M2"}, {"LINEICMASS", "KG__M"}, {"AREA", "M2"},           {"VOLUME", "M3"},
    {"TIME", "SECOND"},         {"ANGLE", "RADIAN"},    {"TEMPERATURE", "KELVIN"}, {"FORCE", "NEWTON"},
    {"TORQUE", "N_M"},          {"PRESSURE", "PASCAL"}, {"SPEED", "M__S"},         {"ACCELERATION", "M__S2"},
    {"ENERGY", "JOULE"},        {"POWER", "WATT"},      {"FREQUENCY", "HERTZ"}};

constexpr KorUnitChoice kCgs[] = {
    {"LENGTH", "CENTIMETER"},   {"MASS", "GRAM"},         {"DENSITY", "G__CM3"},     {"INERTIAMOMENT", "G_CM2"},
    {"SURFACICMASS", "G__CM2"}, {"LINEICMASS", "G__CM"},  {"AREA", "CM2"},           {"VOLUME", "CM3"},
    {"TIME", "SECOND"},         {"ANGLE", "RADIAN"},      {"TEMPERATURE", "KELVIN"}, {"FORCE", "DYNE"},
    {"TORQUE", "DYN_CM"},       {"PRESSURE", "DYN__CM2"}, {"SPEED", "CM__S"},        {"ACCELERATION", "CM__S2"},
    {"ENERGY", "ERG"},          {"POWER", "ERG__S"},      {"FREQUENCY", "HERTZ"}};

constexpr KorUnitChoice kImperial[] = {
    {"LENGTH", "INCH"},          {"MASS", "POUND"},        {"DENSITY", "LB__IN3"},        {"INERTIAMOMENT", "LB_IN2"},
    {"SURFACICMASS", "LB__IN2"}, {"LINEICMASS", "LB__IN"}, {"AREA", "IN2"},               {"VOLUME", "IN3"},
    {"TIME", "SECOND"},          {"ANGLE", "DEGREE"},      {"TEMPERATURE", "FAHRENHEIT"}, {"FORCE", "POUND_FORCE"},
    {"TORQUE", "LBF_IN"},        {"PRESSURE", "PSI"},      {"SPEED", "FT__S"},            {"ACCELERATION", "FT__S2"},
    {"ENERGY", "FT_LBF"},        {"POWER", "HORSEPOWER"},  {"FREQUENCY", "RPM"}};

// What mechanical design offices work with: drawings in millimetres, everything else as on the data sheets.
constexpr KorUnitChoice kMixed[] = {
    {"LENGTH", "MILLIMETER"},   {"MASS", "KILOGRAM"},       {"DENSITY", "KG__M3"},      {"INERTIAMOMENT", "KG_M2"},
    {"SURFACICMASS", "KG__M2"}, {"LINEICMASS", "KG__M"},    {"AREA", "MM2"},            {"VOLUME", "MM3"},
    {"TIME", "SECOND"},         {"ANGLE", "DEGREE"},        {"TEMPERATURE", "CELSIUS"}, {"FORCE", "NEWTON"},
    {"TORQUE", "N_M"},          {"PRESSURE", "MEGAPASCAL"}, {"SPEED", "M__S"},          {"ACCELERATION", "M__S2"},
    {"ENERGY", "JOULE"},        {"POWER", "KILOWATT"},      {"FREQUENCY", "HERTZ"}};
// clang-format on

constexpr std::array<KorUnitSystem, 4> kSystems = {
    {{"SI", kSi}, {"CGS", kCgs}, {"Imperial", kImperial}, {"Mixed", kMixed}}};

KorCkeMagnitude_var FindMagnitude(const char* name) {
  const KorCkeParmDictionary* dictionary = KorCkeGlobalFunctions::GetParmDictionary();
  return dictionary ? dictionary->FindMagnitude(name) : KorCkeMagnitude_var();
}

// A magnitude that the dictionary does not have is in nobody's way.
bool IsCurrent(const KorUnitChoice& choice) {
  const KorCkeMagnitude_var magnitude = FindMagnitude(choice.magnitude);
  return !magnitude || magnitude->CurrentUnit() == magnitude->FindUnit(choice.unit);
}

}  // namespace

std::span<const KorUnitSystem> KorGetUnitSystems() { return kSystems; }

HRESULT KorApplyUnitSystem(const KorString& name) {
  const auto system = std::find_if(kSystems.begin(), kSystems.end(),
                                   [&](const KorUnitSystem& candidate) { return candidate.name == name; });
  if (system == kSystems.end()) return E_FAIL;
  for (const KorUnitChoice& choice : system->choices)
    if (KorCkeMagnitude_var magnitude = FindMagnitude(choice.magnitude))
      magnitude->SetCurrentUnit(choice.unit);
  return S_OK;
}

KorString KorCurrentUnitSystem() {
  for (const KorUnitSystem& system : kSystems)
    if (std::all_of(system.choices.begin(), system.choices.end(), IsCurrent)) return system.name;
  return {};
}
