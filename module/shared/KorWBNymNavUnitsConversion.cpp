#include "module/shared/KorWBNymNavUnitsConversion.h"

#include <algorithm>
#include <array>

#include "framework/knowledge/KorCkeParmDictionary.h"

namespace {

struct Quantity {
  WBUnitsType type;
  const char* storageUnit;
  const char* magnitude;  ///< null: the dictionary's own length magnitude
  const char* changedEvent;
};

constexpr std::array kQuantities{
    Quantity{WBUnitsDensity, "KG__M3", "DENSITY", "WBDensityChangedEvent"},
    Quantity{WBUnitsLength, "METER", nullptr, "WBLengthChangedEvent"},
    Quantity{WBUnitsMass, "KILOGRAM", "MASS", "WBMassChangedEvent"},
    Quantity{WBUnitsMomentOfInertia, "KG_M2", "INERTIAMOMENT", "WBMomentOfInertiaChangedEvent"},
};

const Quantity* QuantityOf(int type) {
  const auto found = std::find_if(kQuantities.begin(), kQuantities.end(),
                                  [type](const Quantity& quantity) { return quantity.type == type; });
  return found == kQuantities.end() ? nullptr : &*found;
}

const KorCkeParmDictionary& Dictionary() {
  const KorCkeParmDictionary* dictionary = KorCkeGlobalFunctions::GetParmDictionary();
  if (!dictionary) throw KorNullHandleError();
  return *dictionary;
}

KorCkeMagnitude_var MagnitudeOf(const Quantity& quantity) {
  return quantity.magnitude ? Dictionary().FindMagnitude(quantity.magnitude) : Dictionary().LengthMagnitude();
}

}  // namespace

KorWBNymNavUnitsConversion::KorWBNymNavUnitsConversion() {
  for (const Quantity& quantity : kQuantities)
    _storageUnits.push_back(Dictionary().FindUnit(quantity.storageUnit));
  for (const Quantity& quantity : kQuantities) {
    // A magnitude that the dictionary does not know is passed over; the lists need not line up with the
    // types.
    const KorCkeMagnitude_var magnitude = MagnitudeOf(quantity);
    if (!magnitude) continue;
    _currentUnits.push_back(magnitude->CurrentUnit());
    AddCallback(magnitude.Get(), KorCkeMagnitude::ChangedEvent(), &KorWBNymNavUnitsConversion::OnChangeUnit,
                KorClientData(quantity.type));
    _magnitudes.push_back(magnitude);
  }
}

KorWBNymNavUnitsConversion::KorWBNymNavUnitsConversion(const KorWBNymNavUnitsConversion&) = default;
KorWBNymNavUnitsConversion& KorWBNymNavUnitsConversion::operator=(const KorWBNymNavUnitsConversion&) =
    default;
KorWBNymNavUnitsConversion::~KorWBNymNavUnitsConversion() = default;

const char* KorWBNymNavUnitsConversion::GetChangedEvent(int type) {
  const Quantity* quantity = QuantityOf(type);
  return quantity ? quantity->changedEvent : nullptr;
}

KorUnicodeString KorWBNymNavUnitsConversion::Symbol(int) const { return {}; }

double KorWBNymNavUnitsConversion::ConvertLengthValue(double value) const { return value; }

void KorWBNymNavUnitsConversion::ConvertFromMksToCurrentUnit(int, double&) const {}

void KorWBNymNavUnitsConversion::OnChangeUnit(KorEventSubscriber*, const char*, KorCommandClientData) {}
