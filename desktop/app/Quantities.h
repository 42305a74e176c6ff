#pragma once

#include <QString>
#include <string>

namespace desktop {

/// A value given in the reference unit of a magnitude, in the user's current unit with its symbol; without a
/// unit when the magnitude is unknown.
QString ShowQuantity(const char* magnitude, double reference);

/// Lengths on the wire are metres; the reference unit of lengths is the millimetre.
inline QString ShowLength(double metres) { return ShowQuantity("LENGTH", metres * 1000); }
inline QString ShowMass(double kilograms) { return ShowQuantity("MASS", kilograms); }
inline QString ShowInertia(double kilogramSquareMetres) {
  return ShowQuantity("INERTIAMOMENT", kilogramSquareMetres);
}

/// A value in the SI unit of a magnitude, as the wire has it.
inline QString ShowSi(const std::string& magnitude, double value) {
  return magnitude == "LENGTH" ? ShowLength(value) : ShowQuantity(magnitude.c_str(), value);
}

}  // namespace desktop
